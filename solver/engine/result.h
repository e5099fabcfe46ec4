// What a solve gives back, in the model's own sense and numbering.
//
// Sign convention of duals and reduced costs (minimisation and maximisation
// alike): the dual value y_i of a row is the rate at which the optimal
// objective changes when the row's active bound is raised, and the reduced
// cost of a column is d_j = c_j - sum_i y_i a_ij, the rate at which the
// objective changes when the column's active bound is raised.  Hence, when
// minimising, a binding >= row has y >= 0, a binding <= row y <= 0, and a
// column at its lower bound d >= 0; when maximising all these signs flip.
// In both senses  objective = c'x + constant  and  c = A'y + d.
//
// Rays.  primalRay (unbounded problems) is a direction r with the column
// bounds and rows still satisfied along x + t r, t >= 0, in which the
// objective improves (c'r < 0 minimising, > 0 maximising).  dualRay
// (infeasible problems) is a Farkas certificate y, one value per row, in the
// sign convention of the duals when minimising: y_i > 0 pairs with the row's
// lower bound, y_i < 0 with its upper bound, and the combined row
// sum_i y_i a_i x >= sum_{y_i>0} y_i lower_i + sum_{y_i<0} y_i upper_i
// cannot be met by any x within the column bounds.
#pragma once

#include <vector>

#include "common/violations.h"

namespace klo::engine {

struct PoolSolution {
  double objective = 0.0;
  std::vector<double> x;
};

struct Result {
  int status = 0;  // KLO_STATUS_...
  bool hasSolution = false;
  double objective = 0.0;      // of x, constant included
  double dualObjective = 0.0;  // LP: dual objective; MIP: best bound
  double gapAbs = 0.0;         // MIP: |objective - bound|
  double gapRel = 0.0;         // MIP: gapAbs / max(1e-10, |objective|)

  std::vector<double> x;
  std::vector<double> reducedCosts;  // LP only
  std::vector<double> duals;         // LP only
  std::vector<double> activities;    // row activities a_i x
  std::vector<int> colBasis;         // KLO_BASIS_..., LP only
  std::vector<int> rowBasis;         // KLO_BASIS_... of the row activity, LP only

  std::vector<double> primalRay;  // unbounded LP, empty otherwise
  std::vector<double> dualRay;    // infeasible LP, empty otherwise

  // MIP solution pool, distinct points best first (the first is x; see
  // engine/solution_pool.h).
  std::vector<PoolSolution> pool;

  // PSD variables' values, one dim x dim row-major matrix each.
  std::vector<std::vector<double>> psdX;

  // Filled by the solve pipeline's answer check, not by adapters.
  Violations violations;

  long long simplexIterations = 0;
  long long barrierIterations = 0;
  long long nodeCount = 0;

  double presolveTime = 0.0;  // seconds; measured where presolve runs apart (LP barrier), else 0
  double solverTime = 0.0;    // seconds in the engine
};

// Adds the work counts and times of from (another solve of the same
// answer's making) to those of to.
inline void addWork(Result& to, const Result& from) {
  to.simplexIterations += from.simplexIterations;
  to.barrierIterations += from.barrierIterations;
  to.nodeCount += from.nodeCount;
  to.presolveTime += from.presolveTime;
  to.solverTime += from.solverTime;
}

}  // namespace klo::engine
