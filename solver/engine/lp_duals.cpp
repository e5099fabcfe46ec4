#include "engine/lp_duals.h"

#include <cmath>
#include <limits>

#include "engine/problem_eval.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

// The bound a dual of this sign (in the minimisation view) belongs to.
double pairedBound(double minSenseDual, double lower, double upper, double current) {
  if (minSenseDual > 0) return lower > -KLO_INFINITY ? lower : current;
  if (minSenseDual < 0) return upper < KLO_INFINITY ? upper : current;
  return 0.0;
}

}  // namespace

double dualObjective(const Problem& p, const Result& r) {
  double v = p.objConstant;
  for (int i = 0; i < p.numRows(); ++i) {
    double b = pairedBound(p.sense * r.duals[i], p.rowLower[i], p.rowUpper[i], r.activities[i]);
    v += r.duals[i] * b;
  }
  for (int j = 0; j < p.numCols(); ++j) {
    double b = pairedBound(p.sense * r.reducedCosts[j], p.colLower[j], p.colUpper[j], r.x[j]);
    v += r.reducedCosts[j] * b;
  }
  // The Wolfe dual  f(x) - y'(g(x) - b) - d'(x - l): the bound terms plus
  // what the quadratic parts leave of f(x) - y'g(x) - d'x (nothing for an
  // LP, where c = A'y + d).
  if (p.isLinear()) return v;
  double rest = objectiveOf(p, r.x.data()) - p.objConstant;
  for (int i = 0; i < p.numRows(); ++i) rest -= r.duals[i] * r.activities[i];
  for (int j = 0; j < p.numCols(); ++j) rest -= r.reducedCosts[j] * r.x[j];
  return v + rest;
}

double farkasMargin(const Problem& p, const std::vector<double>& y) {
  const double inf = std::numeric_limits<double>::infinity();
  double required = 0.0;  // least value the rows demand of y'Ax
  for (int i = 0; i < p.numRows(); ++i) {
    if (y[i] > 0) required += p.rowLower[i] > -KLO_INFINITY ? y[i] * p.rowLower[i] : -inf;
    if (y[i] < 0) required += p.rowUpper[i] < KLO_INFINITY ? y[i] * p.rowUpper[i] : -inf;
  }
  const std::vector<double> z = transposeTimes(p, y);
  double reachable = 0.0;  // most y'Ax can be within the column bounds
  for (int j = 0; j < p.numCols(); ++j) {
    if (std::fabs(z[j]) < 1e-12) continue;
    double b = z[j] > 0 ? p.colUpper[j] : p.colLower[j];
    reachable += std::fabs(b) < KLO_INFINITY ? z[j] * b : inf;
  }
  if (std::isinf(required) || std::isinf(reachable)) return -inf;
  return required - reachable;
}

void orientFarkasRay(const Problem& p, std::vector<double>& y) {
  std::vector<double> negated(y);
  for (double& v : negated) v = -v;
  if (farkasMargin(p, negated) > farkasMargin(p, y)) y.swap(negated);
}

}  // namespace klo::engine
