#include "solve/answer_check.h"

#include <algorithm>
#include <cmath>

#include "engine/problem_eval.h"
#include "klo_c.h"

namespace klo {
namespace {

using engine::Problem;

// Where a value stands against its bounds, for the sign its dual must
// have: within tol times the larger of scale and the bound's size of it.
struct Position {
  bool atLower, atUpper;
};

Position positionOf(double v, double lo, double up, double tol, double scale) {
  auto near = [&](double b) { return std::fabs(v - b) <= tol * std::max(scale, std::fabs(b)); };
  return Position{lo > -KLO_INFINITY && near(lo), up < KLO_INFINITY && near(up)};
}

// A dual (minimisation view) of the wrong sign for the position: >= 0 at a
// lower bound, <= 0 at an upper one, 0 between them, anything when fixed.
double wrongSign(double dual, Position at) {
  if (at.atLower && at.atUpper) return 0.0;
  if (at.atLower) return std::max(0.0, -dual);
  if (at.atUpper) return std::max(0.0, dual);
  return std::fabs(dual);
}

// The part of a dual with the right sign for the position.
double rightSign(double dual, Position at) {
  return dual > 0 ? dual - wrongSign(dual, at) : dual + wrongSign(dual, at);
}

// A dual times the distance from the bound its sign pairs with, on either
// side: a bound violated where the dual is large moves the objective as
// much as a slack one.
double slackProduct(double dual, double v, double lo, double up) {
  if (dual > 0 && lo > -KLO_INFINITY) return dual * std::fabs(v - lo);
  if (dual < 0 && up < KLO_INFINITY) return -dual * std::fabs(up - v);
  return 0.0;
}

// The objective's gradient at x: c plus the quadratic terms' derivatives.
std::vector<double> gradient(const Problem& p, const std::vector<double>& x) {
  std::vector<double> g = p.obj;
  const engine::QuadTerms& q = p.objQuad;
  for (int t = 0; t < q.size(); ++t) {
    g[q.row[t]] += q.val[t] * x[q.col[t]];
    g[q.col[t]] += q.val[t] * x[q.row[t]];
  }
  return g;
}

// Row duals are first cut to the sign their row's position allows (what
// is cut shows in the reduced costs of the row's columns, relative to
// their size); reduced costs are then recomputed from them, so that stale
// ones from the engine count for nothing.
void measureDuals(const Problem& p, const engine::Result& r, const std::vector<double>& rowTerms,
                  Violations& v, double tol) {
  std::vector<double> y(p.numRows());
  double gap = 0.0;
  for (int i = 0; i < p.numRows(); ++i) {
    const Position at =
        positionOf(r.activities[i], p.rowLower[i], p.rowUpper[i], tol, std::max(1.0, rowTerms[i]));
    y[i] = p.sense * rightSign(p.sense * r.duals[i], at);
    gap += slackProduct(p.sense * y[i], r.activities[i], p.rowLower[i], p.rowUpper[i]);
  }
  std::vector<double> largest;
  const std::vector<double> aty = engine::transposeTimes(p, y, &largest);
  const std::vector<double> g = gradient(p, r.x);
  for (int j = 0; j < p.numCols(); ++j) {
    const double d = p.sense * (g[j] - aty[j]);
    const double scale = std::max({1.0, std::fabs(g[j]), largest[j]});
    const Position at = positionOf(r.x[j], p.colLower[j], p.colUpper[j], tol, 1.0);
    v.dual = std::max(v.dual, wrongSign(d, at) / scale);
    gap += slackProduct(d, r.x[j], p.colLower[j], p.colUpper[j]);
  }
  v.complementarity = gap / std::max(1.0, std::fabs(r.objective));
  v.dualChecked = true;
}

}  // namespace

void measureAnswer(const Problem& p, engine::Result& r, const engine::Settings& s) {
  r.violations = Violations{};
  if (!r.hasSolution) return;
  const engine::PsdValues* psd = r.psdX.empty() ? nullptr : &r.psdX;
  std::vector<double> rowTerms;
  r.violations = engine::primalViolations(p, r.x.data(), psd, &r.activities, &rowTerms);
  // Duals of quadratic rows and PSD blocks enter the Lagrangian in ways
  // this check does not model yet.
  const bool dualsApply = !p.isMip() && p.quadRows.empty() && p.psdVars.empty();
  if (dualsApply && r.duals.size() == static_cast<size_t>(p.numRows()))
    measureDuals(p, r, rowTerms, r.violations, kCheckSlack * s.primalTolerance);
}

bool passesCheck(const engine::Result& r, const engine::Settings& s) {
  const Violations& v = r.violations;
  const double primal = kCheckSlack * s.primalTolerance, dual = kCheckSlack * s.dualTolerance;
  return v.primal() <= primal && v.sos <= primal &&
         v.integrality <= kCheckSlack * s.integerTolerance && v.dual <= dual &&
         v.complementarity <= dual;
}

}  // namespace klo
