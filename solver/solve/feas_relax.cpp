#include "solve/feas_relax.h"

#include <chrono>
#include <cmath>
#include <string>
#include <vector>

#include "common/error.h"
#include "engine/problem_eval.h"
#include "klo_c.h"
#include "solve/checked_solve.h"
#include "solve/chooser.h"
#include "solve/optimize.h"
#include "solve/problem_from_model.h"
#include "solve/reformulation.h"
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

// A switched column's bound (solve/semicontinuous.h) relaxes where its
// switch holds it: the near one (the side of 0) in its switch row; the far
// one in the other switch row, the column's bound going and a row
// x - bigM z <= 0 (>= for a negative range) keeping x at 0 while off.
void relaxSwitched(engine::Problem& base, RelaxationProblem& r, const Switch& s, bool upper,
                   double penalty, double bigM) {
  const bool positive = s.lower > 0;
  if (upper != positive) return r.relaxRow(positive ? s.row : s.row + 1, penalty);
  r.relaxRow(positive ? s.row + 1 : s.row, penalty);
  (positive ? base.colUpper : base.colLower)[s.column] = positive ? KLO_INFINITY : -KLO_INFINITY;
  appendSparseRow(base, {{s.column, 1.0}, {s.z, positive ? -bigM : bigM}},
                  positive ? -KLO_INFINITY : 0.0, positive ? 0.0 : KLO_INFINITY);
}

void relaxColumn(engine::Problem& base, RelaxationProblem& r, int j, const Switch* s,
                 const FeasRelaxRequest& req, double bigM) {
  for (const bool upper : {false, true}) {
    const double* pen = upper ? req.ubPen : req.lbPen;
    if (!relaxable(pen, j)) continue;
    const double bound = s ? (upper ? s->upper : s->lower) : 0.0;
    if (!s)
      r.relaxBound(j, upper, pen[j]);
    else if (std::fabs(bound) < KLO_INFINITY)
      relaxSwitched(base, r, *s, upper, pen[j], bigM);
  }
}

// The relaxation of base (the model's problem, reformulated by f).  Rows
// added to base for switched columns come after the model's and the
// reformulation's.
RelaxationProblem relaxation(engine::Problem& base, const Reformulation& f,
                             const FeasRelaxRequest& req, double bigM) {
  RelaxationProblem r(base);
  std::vector<const Switch*> switchOf(f.modelCols, nullptr);
  for (const Switch& s : f.switches) switchOf[s.column] = &s;
  for (int j = 0; j < f.modelCols; ++j) relaxColumn(base, r, j, switchOf[j], req, bigM);
  for (int i = 0; i < f.modelRows; ++i)
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
  const engine::Problem own = problemFromModel(m.data);
  engine::Problem base = own;
  base.colBasis.clear();
  base.rowBasis.clear();
  base.startValues.clear();
  const double bigM = m.env.params.getDbl("MIP/LinearizationBigM");
  // Relaxed bounds would break an M taken from them: indicators take the
  // form without M.
  const Reformulation f = reformulate(base, bigM, false);
  chooseEngine(base, "KLOfeasrelax");  // refuses before any work
  const engine::Settings s = settingsFromParams(m.env);
  engine::Problem p = relaxation(base, f, req, bigM).build(req.objType, bigM);
  engine::Result r = checkedSolve(p, s, {}, "KLOfeasrelax");
  const bool found = r.status == KLO_STATUS_OPTIMAL && r.hasSolution;
  const double measure = found ? r.objective : KLO_INFINITY;
  if (found && req.minRelax) r = optimiseWithin(p, base, measure, s);
  toModel(r, own);
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - started;
  storeResult(m, std::move(r), seconds.count());
  return measure;
}

}  // namespace klo
