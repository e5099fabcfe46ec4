// Model functions of klo_c.h: creation, copies, files, environments.
#include <memory>
#include <string>

#include "attr/attributes.h"
#include "capi/model_guard.h"
#include "env/param_file.h"
#include "io/model_files.h"
#include "io/side_files.h"
#include "store/edit.h"
#include "store/relax.h"

using klo::changeModel;
using klo::readModel;
using klo::requireArg;

namespace {

// Makes a model from a started env and hands it out through modelP.
template <class F>
int makeModel(KLOenv* env, KLOmodel** modelP, F&& fill) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  return klo::guarded(env, [&] {
    requireArg(modelP, "modelP");
    *modelP = nullptr;
    if (!env->started)
      klo::fail(KLO_ERROR_ENV_NOT_STARTED,
                "The environment has not been started (call KLOstartenv first)");
    auto model = std::make_unique<KLOmodel>(*env);
    fill(*model);
    *modelP = model.release();
  });
}

klo::Basis currentBasis(const KLOmodel& m) {
  const klo::Results& r = m.results;
  klo::Basis b{m.data.colBasis, m.data.rowBasis};
  if (b.cols.empty() && m.results.solved) b.cols = r.colBasis;
  if (b.rows.empty() && m.results.solved) b.rows = r.rowBasis;
  if (b.cols.empty() && b.rows.empty())
    klo::fail(KLO_ERROR_DATA_NOT_AVAILABLE, "No basis is known to write");
  if (b.cols.empty()) b.cols.assign(m.data.numVars(), KLO_BASIS_LOWER);
  if (b.rows.empty()) b.rows.assign(m.data.numRows(), KLO_BASIS_BASIC);
  return b;
}

// After a solve that found a solution, the solution is the start worth
// keeping; before one, the start values given.
const std::vector<double>& startToWrite(const KLOmodel& m) {
  const klo::Results& r = m.results;
  const bool solved = r.solved && r.hasSolution && r.x.size() == m.data.start.size();
  return solved ? r.x : m.data.start;
}

}  // namespace

extern "C" {

int KLOnewmodel(KLOenv* env, KLOmodel** modelP, const char* Pname, int numvars, const double* obj,
                const double* lb, const double* ub, const char* vtype,
                const char* const* varnames) {
  return makeModel(env, modelP, [&](KLOmodel& m) {
    m.data.name = Pname ? Pname : "";
    klo::NewVars v;
    v.cols.n = numvars;
    v.obj = obj;
    v.lb = lb;
    v.ub = ub;
    v.type = vtype;
    v.names = varnames;
    klo::addVars(m.data, v);
  });
}

int KLOreadmodel(KLOenv* env, const char* filename, KLOmodel** modelP) {
  return makeModel(env, modelP, [&](KLOmodel& m) {
    requireArg(filename, "filename");
    m.data = klo::readModelFile(filename);
  });
}

KLOmodel* KLOcopymodel(KLOmodel* model) {
  if (!model) return nullptr;
  KLOmodel* copy = nullptr;
  klo::guarded(&model->env, [&] { copy = new KLOmodel(*model); });
  return copy;
}

int KLOfreemodel(KLOmodel* model) {
  if (!model) return KLO_OK;
  if (model->busy)
    return klo::record(&model->env, KLO_ERROR_BUSY,
                       "A model cannot be freed while it is being solved");
  delete model;
  return KLO_OK;
}

int KLOread(KLOmodel* model, const char* filename) {
  return changeModel(model, [&] {
    requireArg(filename, "filename");
    switch (klo::fileKind(filename)) {
      case klo::FileKind::Params:
        model->env.replaceParams(klo::readParamFile(filename, model->env.params));
        return true;
      case klo::FileKind::Start:
      case klo::FileKind::Solution:
        model->data.start = klo::readStartFile(filename, model->data);
        return true;
      case klo::FileKind::Basis: {
        klo::Basis b = klo::readBasisFile(filename, model->data);
        model->data.colBasis = std::move(b.cols);
        model->data.rowBasis = std::move(b.rows);
        return true;
      }
      default: model->data = klo::readModelFile(filename); return false;
    }
  });
}

int KLOwrite(KLOmodel* model, const char* filename) {
  return readModel(model, [&] {
    requireArg(filename, "filename");
    switch (klo::fileKind(filename)) {
      case klo::FileKind::Params: return klo::writeParamFile(filename, model->env.params);
      case klo::FileKind::Start:
        return klo::writeStartFile(filename, model->data, startToWrite(*model));
      case klo::FileKind::Basis:
        return klo::writeBasisFile(filename, model->data, currentBasis(*model));
      case klo::FileKind::Solution: {
        const klo::Results& r = klo::solution(*model);
        return klo::writeSolutionFile(filename, model->data, r.objective, r.x);
      }
      default: return klo::writeModelFile(filename, model->data);
    }
  });
}

int KLOrelaxmodel(KLOmodel* model, KLOmodel** relaxedP) {
  return readModel(model, [&] {
    requireArg(relaxedP, "relaxedP");
    *relaxedP = nullptr;
    auto copy = std::make_unique<KLOmodel>(*model);
    klo::relax(copy->data);
    copy->changed();
    *relaxedP = copy.release();
  });
}

int KLOreset(KLOmodel* model, int clearall) {
  return changeModel(model, [&] {
    if (clearall != 0 && clearall != 1)
      klo::fail(KLO_ERROR_INVALID_ARGUMENT,
                "clearall must be 0 or 1, not " + std::to_string(clearall));
    model->data.lastColBasis.clear();
    model->data.lastRowBasis.clear();
    if (clearall == 1) {
      model->data.start.assign(model->data.numVars(), KLO_UNDEFINED);
      model->data.colBasis.clear();
      model->data.rowBasis.clear();
    }
  });
}

KLOenv* KLOgetenv(KLOmodel* model) { return model ? &model->env : nullptr; }

KLOenv* KLOgetmultiobjenv(KLOmodel* model, int num) {
  if (!model) return nullptr;
  if (num < 0 || num >= static_cast<int>(model->data.objectives.size())) {
    klo::record(&model->env, KLO_ERROR_INVALID_OBJECTIVE,
                "Objective index " + std::to_string(num) + " is out of range");
    return nullptr;
  }
  std::unique_ptr<KLOenv>& env = model->objectiveEnvs[num];
  if (!env) {
    env = std::make_unique<KLOenv>(model->env);
    env->ownedByModel = true;
    env->lastError.clear();
  }
  return env.get();
}

int KLOdiscardmultiobjenvs(KLOmodel* model) {
  return readModel(model, [&] { model->objectiveEnvs.clear(); });
}

int KLOsetcallbackfunc(KLOmodel* model, KLOcallbackfn cb, void* usrdata) {
  return readModel(model, [&] {
    if (model->busy) klo::fail(KLO_ERROR_BUSY, "The callback cannot change during a solve");
    model->callback = cb;
    model->callbackData = usrdata;
  });
}

}  // extern "C"
