#include "engine/clp/clp_barrier.h"

#include <ClpCholeskyBase.hpp>
#include <ClpEventHandler.hpp>
#include <ClpInterior.hpp>

namespace klo::engine {

BarrierRun runInteriorPoint(ClpSimplex& model, const Settings& s, double timeLeft) {
  ClpInterior ipm;
  ipm.borrowModel(model);
  ipm.setCholesky(new ClpCholeskyBase());  // owned by ipm
  ipm.scaling(0);  // scaled, it stalls on some problems (capri) that it solves unscaled
  ipm.setPrimalTolerance(s.ipmPrimalTolerance);
  ipm.setDualTolerance(s.ipmDualTolerance);
  ipm.setMaximumBarrierIterations(s.maxBarrierIterations);
  ipm.setMaximumWallSeconds(timeLeft);
  // The borrowed event handler belongs to the simplex model; Clp asserts
  // unless it is detached while the interior-point method runs.
  ipm.eventHandler()->setSimplex(nullptr);
  auto* watcher = dynamic_cast<InteriorWatcher*>(ipm.eventHandler());
  if (watcher) watcher->watch(&ipm);
  ipm.primalDual();
  if (watcher) watcher->watch(nullptr);
  BarrierRun run{ipm.status(), ipm.numberIterations()};
  ipm.returnModel(model);
  model.eventHandler()->setSimplex(&model);
  return run;
}

}  // namespace klo::engine
