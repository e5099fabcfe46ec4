// The NLP engine lives in its own library, libklo_ipopt, loaded on the
// first solve that needs it: Ipopt and MUMPS add a few milliseconds to the
// start of every program that links them, which LP, MIP and SDP users
// should not pay.
#include "engine/engine.h"
#include "engine/module_loader.h"

namespace klo::engine {

// Declared here, in the library itself, so that choosing an engine never
// loads the module.
EngineEntry ipoptEntry() {
  Capabilities caps;
  caps.features = kQuadObjective | kQuadRows;
  caps.duals = true;
  caps.local = true;  // an interior point stops at a local optimum
  caps.parameters = {"MaxTime", "IPM/MaxIterations", "IPM/PrimalTolerance", "IPM/DualTolerance",
                     "IPM/GapTolerance"};
  return EngineEntry{"Ipopt", caps, [] {
                       return makeModuleEngine(EngineModule{
                           "libklo_ipopt.so", "klo_new_ipopt_engine", "the NLP engine"});
                     }};
}

}  // namespace klo::engine
