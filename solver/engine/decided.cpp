#include "engine/decided.h"

#include <cmath>
#include <string>

#include "engine/log.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

// Each row's activity is 0: optimal when every row admits 0, infeasible
// otherwise, with row i's Farkas ray +1 (lower bound above 0) or -1 (upper
// bound below 0).
Result withoutColumns(const Problem& p) {
  Result r;
  const int m = p.numRows();
  r.dualRay.assign(m, 0.0);
  bool feasible = true;
  for (int i = 0; i < m; ++i) {
    if (p.rowLower[i] > 0) r.dualRay[i] = 1;
    if (p.rowUpper[i] < 0) r.dualRay[i] = -1;
    feasible = feasible && r.dualRay[i] == 0;
  }
  r.status = feasible ? KLO_STATUS_OPTIMAL : KLO_STATUS_INFEASIBLE;
  if (!feasible) return r;
  r.dualRay.clear();
  r.hasSolution = true;
  r.objective = r.dualObjective = p.objConstant;
  r.activities.assign(m, 0.0);
  r.duals.assign(m, 0.0);
  r.rowBasis.assign(m, KLO_BASIS_BASIC);
  return r;
}

// Infinite in the wrong direction (Clp asserts on such rows and crashes or
// answers 1.8e308 on such columns) or crossed (its presolve calls a row
// with crossed bounds optimal).
bool impossible(double lower, double upper) {
  return lower >= KLO_INFINITY || upper <= -KLO_INFINITY || lower > upper;
}

// An integer or binary column whose bounds hold no integer (Cbc asserts
// when it checks a point for it: a general integer fixed at 0.5).
bool noInteger(const Problem& p, int j, double tol) {
  if (p.colType[j] != 'I' && p.colType[j] != 'B') return false;
  return std::ceil(p.colLower[j] - tol) > std::floor(p.colUpper[j] + tol);
}

// The first element whose bounds no value meets, as the log names it.
std::string impossibleElement(const Problem& p, double integerTolerance) {
  for (int j = 0; j < p.numCols(); ++j)
    if (impossible(p.colLower[j], p.colUpper[j]) || noInteger(p, j, integerTolerance))
      return "column " + std::to_string(j);
  for (int i = 0; i < p.numRows(); ++i)
    if (impossible(p.rowLower[i], p.rowUpper[i])) return "row " + std::to_string(i);
  return "";
}

}  // namespace

std::optional<Result> decidedWithoutEngine(const Problem& p, const Settings& s) {
  const std::string element = impossibleElement(p, s.integerTolerance);
  if (!element.empty()) {
    logLine(s, "Infeasible: " + element + " has bounds that no value meets");
    Result r;
    r.status = KLO_STATUS_INFEASIBLE;
    return r;
  }
  if (p.numCols() == 0 && p.psdVars.empty()) return withoutColumns(p);
  return std::nullopt;
}

}  // namespace klo::engine
