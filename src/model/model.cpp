// Model lifecycle: construction, copying, the rebuild of the handle
// vectors from the library's counts, destruction and environment access.
#include <memory>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/records.h"

using klo_detail::check;
using klo_detail::newHandle;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// A library model made before a later step failed is freed, so that a
// failed constructor leaves nothing behind.
struct FreeOnFailure {
  void*& model;
  bool done = false;
  ~FreeOnFailure() {
    if (!done && model) KLOfreemodel(lib(model));
  }
};

}  // namespace

KLOModel::KLOModel(const KLOEnv* env) : KLOModel(*env) {}

KLOModel::KLOModel(const KLOEnv& env) : model_(nullptr), released_(std::make_shared<bool>(false)) {
  KLOmodel* model = nullptr;
  check(KLOnewmodel(static_cast<KLOenv*>(env.env_), &model, nullptr, 0, nullptr, nullptr, nullptr,
                    nullptr, nullptr));
  model_ = model;
}

KLOModel::KLOModel(const KLOEnv* env, const std::string& file) : KLOModel(*env, file) {}

KLOModel::KLOModel(const KLOEnv& env, const std::string& file)
    : model_(nullptr), released_(std::make_shared<bool>(false)) {
  KLOmodel* model = nullptr;
  FreeOnFailure guard{model_};
  int status = KLOreadmodel(static_cast<KLOenv*>(env.env_), file.c_str(), &model);
  model_ = model;
  check(status);
  sync();
  guard.done = true;
}

KLOModel::KLOModel(const KLOModel& other) : model_(KLOcopymodel(lib(other.model_))) {
  FreeOnFailure guard{model_};
  if (!model_) klo_detail::raise(KLO_ERROR_OUT_OF_MEMORY);
  sync();
  released_ = std::make_shared<bool>(false);
  guard.done = true;
}

KLOModel& KLOModel::operator=(const KLOModel&) { return *this; }

KLOModel::~KLOModel() {
  if (model_) KLOfreemodel(lib(model_));
  if (released_) *released_ = true;
}

void KLOModel::sync() {
  const int numVars = get(KLO_IntAttr_NumVars);
  const int numConstrs = get(KLO_IntAttr_NumConstrs);
  const int numPsdVars = get(KLO_IntAttr_NumPsdVars);
  const int numSOS = get(KLO_IntAttr_NumSOS);
  const int numGenConstrs = get(KLO_IntAttr_NumGenConstrs);
  // The PSD-constraint vector is left as it is: a second sync appends
  // behind the records it already holds.
  vars_.clear();
  sos_.clear();
  genconstrs_.clear();
  constrs_.clear();
  qconstrs_.clear();
  psdvars_.clear();
  for (int i = 0; i < numVars; ++i) appendVar();
  for (int i = 0; i < numConstrs; ++i) addConstr();
  for (int i = 0; i < numPsdVars; ++i) appendPsdVar();
  for (int i = 0; i < numSOS; ++i) addSOS();
  for (int i = 0; i < numGenConstrs; ++i) addGenConstr();
}

KLOVar KLOModel::appendVar() {
  vars_.push_back(newHandle<KLOVar>(model_, static_cast<int>(vars_.size())));
  return vars_.back();
}

KLOConstr KLOModel::addConstr() {
  constrs_.push_back(newHandle<KLOConstr>(model_, static_cast<int>(constrs_.size())));
  psdconstrs_.push_back(newHandle<KLOPsdConstr>(model_, static_cast<int>(psdconstrs_.size())));
  // Numbered after the linear append: one past the row's index.
  qconstrs_.push_back(newHandle<KLOQConstr>(model_, static_cast<int>(constrs_.size())));
  return constrs_.back();
}

KLOPsdVar KLOModel::appendPsdVar() {
  psdvars_.push_back(newHandle<KLOPsdVar>(model_, static_cast<int>(psdvars_.size())));
  return psdvars_.back();
}

KLOSOS KLOModel::addSOS() {
  sos_.push_back(newHandle<KLOSOS>(model_, static_cast<int>(sos_.size())));
  return sos_.back();
}

KLOGenConstr KLOModel::addGenConstr() {
  genconstrs_.push_back(newHandle<KLOGenConstr>(model_, static_cast<int>(genconstrs_.size())));
  return genconstrs_.back();
}

KLOEnv KLOModel::getEnv() const { return KLOEnv(env(), released_); }

void* KLOModel::env() const { return KLOgetenv(lib(model_)); }

KLOEnv KLOModel::getMultiobjEnv(int index) const {
  // Kept as the library boundary has always behaved: a fresh environment,
  // not the objective's own, never freed.
  KLOEnv result(KLOgetmultiobjenv(lib(model_), index) != nullptr);
  result.owned_ = false;
  return result;
}

void KLOModel::discardMultiobjEnvs() { KLOdiscardmultiobjenvs(lib(model_)); }
