// The MIP engine lives in its own library, libklo_cbc, loaded on the first
// MIP solve: loading Cbc and Cgl costs a process about as much as solving a
// small LP, and programs that only solve LPs should not pay it.
#include "engine/engine.h"
#include "engine/module_loader.h"

namespace klo::engine {
namespace {

std::unique_ptr<Engine> makeCbcEngine() {
  return makeModuleEngine(EngineModule{"libklo_cbc.so", "klo_new_cbc_engine", "the MIP engine"});
}

}  // namespace

// Declared here, in the library itself, so that choosing an engine never
// loads the module.
EngineEntry cbcEntry() {
  Capabilities caps;
  caps.features = kIntegers | kSos;
  caps.pool = true;
  // Magnitudes of 1e16 and more in bounds and coefficients together make
  // Cbc's probing assert (CglProbing::probe, up > down): they cannot be
  // told apart to the integrality tolerance anyway.
  caps.coefficientLimit = caps.boundLimit = 1e15;
  caps.parameters = {"Presolve",
                     "MaxTime",
                     "SPX/PrimalTolerance",
                     "SPX/DualTolerance",
                     "MIP/MaxNodes",
                     "MIP/MaxSols",
                     "MIP/GapAbs",
                     "MIP/GapRel",
                     "MIP/Cutoff",
                     "MIP/IntegerTolerance",
                     "MIP/LevelCuts",
                     "MIP/LevelHeurs",
                     "MIP/LevelProbing",
                     "MIP/LevelStrong",
                     "MIP/MaxStallingNodes",
                     "MIP/ObjectiveTolerance",
                     "MIP/SolutionPoolSize",
                     "MIP/EnableLazyConstr",
                     "NumThreads"};
  return EngineEntry{"Cbc", caps, makeCbcEngine};
}

}  // namespace klo::engine
