// Clp's interior-point method, run directly through ClpInterior so that its
// iterations are counted and limited (ClpSimplex::barrier reports none).
#pragma once

#include <ClpInterior.hpp>
#include <ClpSimplex.hpp>

#include "engine/settings.h"

namespace klo::engine {

// Implemented by an event handler that reports the interior-point iterate:
// during the method its simplex model is detached, so it is handed the
// interior-point model instead (null again afterwards).
class InteriorWatcher {
 public:
  virtual ~InteriorWatcher() = default;
  virtual void watch(const ClpInterior* ipm) = 0;
};

struct BarrierRun {
  int status = 4;  // ClpInterior's: 0 optimal, 1 infeasible, 2 unbounded, 3 limit, 4 error
  int iterations = 0;
};

// Leaves the interior point in model's solution arrays, ready for a
// crossover.  timeLeft: wall seconds.
BarrierRun runInteriorPoint(ClpSimplex& model, const Settings& s, double timeLeft);

}  // namespace klo::engine
