#include "engine/engine.h"

#include <CoinError.hpp>

#include "common/error.h"
#include "klo_c.h"

namespace klo::engine {

namespace {

// A problem without columns: each row's activity is 0, so it is optimal
// when every row admits 0 and infeasible otherwise, and row i's Farkas ray
// is +1 (lower bound above 0) or -1 (upper bound below 0).  Decided here
// because engines differ on it (Cbc reports numerical trouble).
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

}  // namespace

Result Engine::solve(const Problem& problem, const Settings& settings, const Callback& callback) {
  checkProblem(problem);
  if (problem.numCols() == 0 && problem.psdVars.empty()) return withoutColumns(problem);
  try {
    return run(problem, settings, callback);
  } catch (const CoinError& e) {
    fail(KLO_ERROR_INTERNAL, std::string(name()) + ": " + e.message() + " in " + e.methodName());
  }
}

const std::vector<EngineEntry>& engines() {
  static const std::vector<EngineEntry> all{clpEntry(), cbcEntry()};
  return all;
}

}  // namespace klo::engine
