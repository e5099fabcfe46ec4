#include "solve/objectives.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "common/error.h"
#include "klo_c.h"
#include "solve/checked_solve.h"
#include "solve/problem_from_model.h"
#include "solve/trim_result.h"

namespace klo {
namespace {

// One pass: the blend of the objectives of one priority.
struct Pass {
  std::vector<double> coef;
  double constant = 0.0;
  double absTol = 0.0;
  double relTol = 0.0;
};

void blendInto(Pass& pass, const Objective& o) {
  if (pass.coef.empty()) pass.coef.assign(o.coef.size(), 0.0);
  for (size_t j = 0; j < o.coef.size(); ++j) pass.coef[j] += o.weight * o.coef[j];
  pass.constant += o.weight * o.constant;
  pass.absTol = std::max(pass.absTol, o.absTol);
  pass.relTol = std::max(pass.relTol, o.relTol);
}

// Passes in falling priority; equal priorities blend by weight.
std::vector<Pass> passesOf(const ModelData& d) {
  std::vector<int> order(d.objectives.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
    return d.objectives[a].priority > d.objectives[b].priority;
  });
  std::vector<Pass> out;
  for (size_t k = 0; k < order.size(); ++k) {
    const Objective& o = d.objectives[order[k]];
    if (k == 0 || o.priority != d.objectives[order[k - 1]].priority) out.emplace_back();
    blendInto(out.back(), o);
  }
  return out;
}

double linearValue(const std::vector<double>& coef, double constant, const std::vector<double>& x) {
  double v = constant;
  for (size_t j = 0; j < coef.size() && j < x.size(); ++j) v += coef[j] * x[j];
  return v;
}

// Keeps the pass's objective within its tolerance of the value reached.
void holdPass(engine::Problem& p, const Pass& pass, double reached, int sense) {
  const double slack = std::max(pass.absTol, pass.relTol * std::fabs(reached));
  const double bound = reached - pass.constant;
  if (sense == 1)
    appendDenseRow(p, pass.coef, -KLO_INFINITY, bound + slack);
  else
    appendDenseRow(p, pass.coef, bound - slack, KLO_INFINITY);
}

// The last pass's result in terms of the model: its rows, objective 0.
void finish(engine::Result& r, const ModelData& d, const engine::Result& totals) {
  trimResult(r, d.lb.size(), d.rows.size());
  const Objective& o = d.objectives[0];
  if (r.hasSolution) r.objective = linearValue(o.coef, o.constant, r.x);
  for (engine::PoolSolution& s : r.pool) s.objective = linearValue(o.coef, o.constant, s.x);
  engine::addWork(r, totals);
}

}  // namespace

engine::Result solveObjectives(const engine::Problem& base, const ModelData& d,
                               const engine::Settings& settings, const engine::Callback& cb) {
  // The hold rows of later passes are linear: a quadratic objective 0
  // would need quadratic ones.
  if (base.objQuad.size() > 0)
    fail(KLO_ERROR_NOT_SUPPORTED,
         "KLOoptimize: several objectives together with quadratic objective terms are not solved");
  const std::vector<Pass> passes = passesOf(d);
  engine::Problem p = base;
  engine::Result r, totals;
  for (size_t k = 0; k < passes.size(); ++k) {
    p.obj = passes[k].coef;
    p.obj.resize(p.numCols(), 0.0);  // columns added by reformulations cost nothing
    p.objConstant = passes[k].constant;
    r = checkedSolve(p, settings, cb, "KLOoptimize");  // one clock for every pass
    if (k + 1 == passes.size() || r.status != KLO_STATUS_OPTIMAL) break;
    engine::addWork(totals, r);
    holdPass(p, passes[k], r.objective, d.sense);
    p.startValues = r.x;  // still feasible: a start for the next pass
    p.colBasis = r.colBasis;
    p.rowBasis = r.rowBasis;
  }
  finish(r, d, totals);
  return r;
}

}  // namespace klo
