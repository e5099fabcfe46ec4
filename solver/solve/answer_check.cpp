#include "solve/answer_check.h"

#include <algorithm>
#include <cmath>

#include "engine/problem_eval.h"
#include "klo_c.h"
#include "solve/psd_check.h"

namespace klo {
namespace {

using engine::Problem;

// A dual (minimisation view) pairs with the bound its sign points to: >= 0
// with the lower bound, <= 0 with the upper.  What points at an infinite
// bound cannot pair: that is dual infeasibility.
double unpaired(double dual, double lo, double up) {
  if (dual > 0 && lo <= -KLO_INFINITY) return dual;
  if (dual < 0 && up >= KLO_INFINITY) return -dual;
  return 0.0;
}

// Adds scale times the gradient of the terms at x to g.
void addQuadGradient(const engine::QuadTerms& q, const std::vector<double>& x, double scale,
                     std::vector<double>& g) {
  if (scale == 0) return;
  for (int t = 0; t < q.size(); ++t) {
    g[q.row[t]] += scale * q.val[t] * x[q.col[t]];
    g[q.col[t]] += scale * q.val[t] * x[q.row[t]];
  }
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
  addQuadGradient(p.objQuad, x, 1.0, g);
  return g;
}

// Row duals are first cut to the sign their row's bounds allow (what is
// cut shows in the reduced costs of the row's columns, relative to their
// size); reduced costs d = gradient - sum_i y_i grad(row i) are then
// recomputed from them, so that stale ones from the engine count for
// nothing.  Each dual pairs with the bound its sign points to, and the
// products with the distances from those bounds add up to the duality gap:
// the complementarity figure, relative to the objective.  An interior
// point's answer passes as a vertex's does, its distances being small
// where its duals are not.
void measureDuals(const Problem& p, const engine::Result& r, Violations& v) {
  std::vector<double> y(p.numRows());
  double gap = 0.0;
  for (int i = 0; i < p.numRows(); ++i) {
    const double dual = p.sense * r.duals[i];
    y[i] = p.sense * (dual - (dual > 0 ? 1 : -1) * unpaired(dual, p.rowLower[i], p.rowUpper[i]));
    gap += slackProduct(p.sense * y[i], r.activities[i], p.rowLower[i], p.rowUpper[i]);
  }
  std::vector<double> largest;
  std::vector<double> aty = engine::transposeTimes(p, y, &largest);
  for (const engine::QuadRow& q : p.quadRows) addQuadGradient(q.terms, r.x, y[q.row], aty);
  const std::vector<double> g = gradient(p, r.x);
  for (int j = 0; j < p.numCols(); ++j) {
    const double d = p.sense * (g[j] - aty[j]);
    const double scale = std::max({1.0, std::fabs(g[j]), largest[j]});
    v.dual = std::max(v.dual, unpaired(d, p.colLower[j], p.colUpper[j]) / scale);
    gap += slackProduct(d, r.x[j], p.colLower[j], p.colUpper[j]);
  }
  if (!r.psdX.empty()) {
    const PsdDualFigures f = psdDualFigures(p, r.psdX, y);
    v.dual = std::max(v.dual, f.violation);
    gap += f.gap;
  }
  v.complementarity = gap / std::max(1.0, std::fabs(r.objective));
  v.dualChecked = true;
}

}  // namespace

void measureAnswer(const Problem& p, engine::Result& r) {
  r.violations = Violations{};
  if (!r.hasSolution) return;
  const engine::PsdValues* psd = r.psdX.empty() ? nullptr : &r.psdX;
  std::vector<double> rowTerms;
  r.violations = engine::primalViolations(p, r.x.data(), psd, &r.activities, &rowTerms);
  if (psd) r.violations.psd = psdPrimalViolation(p, *psd);
  const bool dualsApply = !p.isMip();
  if (dualsApply && r.duals.size() == static_cast<size_t>(p.numRows()))
    measureDuals(p, r, r.violations);
}

bool passesCheck(const engine::Result& r, const engine::Settings& s) {
  const Violations& v = r.violations;
  const double primal = kCheckSlack * s.primalTolerance, dual = kCheckSlack * s.dualTolerance;
  return v.primal() <= primal && v.sos <= primal &&
         v.integrality <= kCheckSlack * s.integerTolerance && v.dual <= dual &&
         v.complementarity <= dual;
}

}  // namespace klo
