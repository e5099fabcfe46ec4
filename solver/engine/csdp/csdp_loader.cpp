// The SDP engine lives in its own library, libklo_csdp, loaded on the first
// solve with PSD variables: its hooks into CSDP must be exported symbols,
// which libklo itself should not carry.
#include "engine/engine.h"
#include "engine/module_loader.h"

namespace klo::engine {

// Declared here, in the library itself, so that choosing an engine never
// loads the module.
EngineEntry csdpEntry() {
  Capabilities caps;
  caps.features = kPsd;
  caps.duals = true;
  caps.parameters = {"MaxTime", "IPM/MaxIterations", "IPM/PrimalTolerance", "IPM/DualTolerance",
                     "IPM/GapTolerance"};
  return EngineEntry{"CSDP", caps, [] {
                       return makeModuleEngine(
                           EngineModule{"libklo_csdp.so", "klo_new_csdp_engine", "the SDP engine"});
                     }};
}

}  // namespace klo::engine
