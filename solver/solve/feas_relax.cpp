#include "solve/feas_relax.h"

#include <chrono>
#include <cmath>
#include <string>

#include "common/error.h"
#include "engine/problem_eval.h"
#include "klo_c.h"
#include "solve/checked_solve.h"
#include "solve/chooser.h"
#include "solve/optimize.h"
#include "solve/problem_from_model.h"
#include "solve/relaxation_problem.h"
#include "solve/settings_from_params.h"
#include "solve/store_result.h"
#include "solve/trim_result.h"

namespace klo {
namespace {

void checkPenalties(const double* pen, int n, const char* what) {
  if (!pen) return;
  for (int k = 0; k < n; ++k)
    if (std::isnan(pen[k]) || pen[k] < 0)
      fail(KLO_ERROR_INVALID_ARGUMENT,
           std::string("KLOfeasrelax: ") + what + "[" + std::to_string(k) + "] is negative or NaN");
}

void checkRequest(const ModelData& d, const FeasRelaxRequest& req) {
  if (req.objType < 0 || req.objType > 2)
    fail(KLO_ERROR_INVALID_ARGUMENT,
         "KLOfeasrelax: relaxobjtype must be 0, 1 or 2, not " + std::to_string(req.objType));
  if (req.objType == 1)
    fail(KLO_ERROR_NOT_SUPPORTED,
         "KLOfeasrelax: relaxobjtype 1 (squared violations) needs a quadratic engine, which "
         "this library does not have yet; use 0 or 2");
  checkPenalties(req.lbPen, d.numVars(), "lbpen");
  checkPenalties(req.ubPen, d.numVars(), "ubpen");
  checkPenalties(req.rhsPen, d.numRows(), "rhspen");
}

bool relaxable(const double* pen, int k) { return pen && pen[k] < KLO_INFINITY; }

RelaxationProblem relaxation(const engine::Problem& base, const FeasRelaxRequest& req) {
  RelaxationProblem r(base);
  for (int j = 0; j < base.numCols(); ++j) {
    if (relaxable(req.lbPen, j)) r.relaxBound(j, false, req.lbPen[j]);
    if (relaxable(req.ubPen, j)) r.relaxBound(j, true, req.ubPen[j]);
  }
  for (int i = 0; i < base.numRows(); ++i)
    if (relaxable(req.rhsPen, i)) r.relaxRow(i, req.rhsPen[i]);
  return r;
}

// Optimises the model's objective among the points whose violation measure
// (the objective of p) is at most best.
engine::Result optimiseWithin(engine::Problem& p, const engine::Problem& base, double best,
                              const engine::Settings& s) {
  appendDenseRow(p, p.obj, -KLO_INFINITY, best + 1e-7 * std::max(1.0, std::fabs(best)));
  std::fill(p.obj.begin(), p.obj.end(), 0.0);
  std::copy(base.obj.begin(), base.obj.end(), p.obj.begin());
  p.sense = base.sense;
  p.objConstant = base.objConstant;
  p.objQuad = base.objQuad;
  return checkedSolve(p, s, {}, "KLOfeasrelax");
}

// The relaxed problem's result in terms of the model.
void toModel(engine::Result& r, const engine::Problem& base) {
  trimResult(r, base.numCols(), base.numRows());
  if (r.hasSolution) r.activities = engine::rowActivities(base, r.x.data());
  r.colBasis.clear();  // a basis of the relaxation is none of the model's
  r.rowBasis.clear();
  r.primalRay.clear();
  r.dualRay.clear();
}

}  // namespace

double feasRelax(KLOmodel& m, const FeasRelaxRequest& req) {
  BusyModel busy(m, "KLOfeasrelax");
  const auto started = std::chrono::steady_clock::now();
  checkRequest(m.data, req);
  engine::Problem base = problemFromModel(m.data);
  chooseEngine(base, "KLOfeasrelax");  // refuses before any work
  base.colBasis.clear();
  base.rowBasis.clear();
  base.startValues.clear();
  const engine::Settings s = settingsFromParams(m.env);
  engine::Problem p =
      relaxation(base, req).build(req.objType, m.env.params.getDbl("MIP/LinearizationBigM"));
  engine::Result r = checkedSolve(p, s, {}, "KLOfeasrelax");
  const bool found = r.status == KLO_STATUS_OPTIMAL && r.hasSolution;
  const double measure = found ? r.objective : KLO_INFINITY;
  if (found && req.minRelax) r = optimiseWithin(p, base, measure, s);
  toModel(r, base);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - started;
  storeResult(m, std::move(r), seconds.count());
  return measure;
}

}  // namespace klo
