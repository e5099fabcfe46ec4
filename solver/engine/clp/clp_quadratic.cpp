#include "engine/clp/clp_quadratic.h"

#include <ClpSolve.hpp>

#include <vector>

namespace klo::engine {

void loadQuadraticObjective(ClpSimplex& model, const Problem& p) {
  const QuadTerms& q = p.objQuad;
  const int n = p.numCols();
  std::vector<int> start(n + 1, 0), column(q.size());
  std::vector<double> element(q.size());
  for (int t = 0; t < q.size(); ++t) ++start[q.row[t] + 1];
  for (int j = 0; j < n; ++j) start[j + 1] += start[j];
  std::vector<int> next(start.begin(), start.end() - 1);
  for (int t = 0; t < q.size(); ++t) {
    const int k = next[q.row[t]]++;
    column[k] = q.col[t];
    element[k] = q.row[t] == q.col[t] ? 2 * q.val[t] : q.val[t];
  }
  model.loadQuadraticObjective(n, start.data(), column.data(), element.data());
}

int solveQuadratic(ClpSimplex& model, const Settings& s) {
  model.setMaximumWallSeconds(s.timeLeft());
  if (s.method == LpMethod::Primal) {
    model.primal();
    return model.status();
  }
  ClpSolve options;
  options.setSolveType(ClpSolve::useBarrier);
  options.setPresolveType(s.presolve == 0 ? ClpSolve::presolveOff : ClpSolve::presolveOn);
  model.initialSolve(options);
  return model.status();
}

}  // namespace klo::engine
