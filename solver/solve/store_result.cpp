#include "solve/store_result.h"

#include <utility>

namespace klo {
namespace {

// A dense dim x dim value as the store keeps it: the upper triangle.
SymMatrix upperTriangle(const std::vector<double>& dense, int dim) {
  SymMatrix m;
  for (int r = 0; r < dim; ++r)
    for (int c = r; c < dim; ++c) {
      const int pos = r * dim + c;
      if (dense[static_cast<size_t>(pos)] == 0.0) continue;
      m.pos.push_back(pos);
      m.val.push_back(dense[static_cast<size_t>(pos)]);
    }
  return m;
}

Results recordOf(engine::Result r, const ModelData& d) {
  Results out;
  out.solved = true;
  out.status = r.status;
  out.hasSolution = r.hasSolution;
  out.objective = r.objective;
  out.dualObjective = r.dualObjective;
  out.gapAbs = r.gapAbs;
  out.gapRel = r.gapRel;
  out.x = std::move(r.x);
  out.reducedCosts = std::move(r.reducedCosts);
  out.duals = std::move(r.duals);
  out.activities = std::move(r.activities);
  out.colBasis = std::move(r.colBasis);
  out.rowBasis = std::move(r.rowBasis);
  out.primalRay = std::move(r.primalRay);
  out.dualRay = std::move(r.dualRay);
  for (engine::PoolSolution& s : r.pool) out.pool.push_back(PoolEntry{s.objective, std::move(s.x)});
  for (size_t k = 0; k < r.psdX.size() && k < d.psdVars.size(); ++k)
    out.psdX.push_back(upperTriangle(r.psdX[k], d.psdVars[k].dim));
  out.simplexIterations = r.simplexIterations;
  out.barrierIterations = r.barrierIterations;
  out.nodeCount = r.nodeCount;
  out.presolveTime = r.presolveTime;
  out.solverTime = r.solverTime;
  out.violations = r.violations;
  return out;
}

}  // namespace

void storeResult(KLOmodel& m, engine::Result r, double seconds) {
  // Everything that allocates comes first, so that a failure changes nothing.
  if (r.hasSolution && r.pool.empty()) r.pool.push_back(engine::PoolSolution{r.objective, r.x});
  Results out = recordOf(std::move(r), m.data);
  out.solutionTime = seconds;
  std::vector<int> cols = out.colBasis, rows = out.rowBasis;
  if (!cols.empty() || !rows.empty()) {
    m.data.lastColBasis.swap(cols);
    m.data.lastRowBasis.swap(rows);
    // The user's basis was this solve's start; its end supersedes it.
    m.data.colBasis.clear();
    m.data.rowBasis.clear();
  }
  m.results = std::move(out);
}

}  // namespace klo
