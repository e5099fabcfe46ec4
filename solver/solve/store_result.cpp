#include "solve/store_result.h"

#include <utility>

namespace klo {

void storeResult(KLOmodel& m, engine::Result r, double seconds) {
  // Everything that allocates comes first, so that a failure changes nothing.
  if (r.hasSolution && r.pool.empty()) r.pool.push_back(engine::PoolSolution{r.objective, r.x});
  const bool basis = !r.colBasis.empty() || !r.rowBasis.empty();
  std::vector<int> cols = r.colBasis, rows = r.rowBasis;
  Results out;
  out.solved = true;
  out.solve = std::move(r);
  out.solutionTime = seconds;
  if (basis) {
    m.data.lastColBasis.swap(cols);
    m.data.lastRowBasis.swap(rows);
    // The user's basis was this solve's start; its end supersedes it.
    m.data.colBasis.clear();
    m.data.rowBasis.clear();
  }
  m.results = std::move(out);
}

}  // namespace klo
