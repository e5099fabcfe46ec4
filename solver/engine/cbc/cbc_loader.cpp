// The MIP engine lives in its own library, libklo_cbc, loaded on the first
// MIP solve: loading Cbc and Cgl costs a process about as much as solving a
// small LP, and programs that only solve LPs should not pay it.
#include <dlfcn.h>

#include <mutex>
#include <string>

#include "common/error.h"
#include "engine/engine.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Factory = Engine* (*)();

// libklo_cbc next to this library (build tree or install prefix), else
// wherever the dynamic loader finds it.
std::string modulePath() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&cbcEntry), &info) && info.dli_fname) {
    std::string self = info.dli_fname;
    std::string::size_type slash = self.rfind('/');
    if (slash != std::string::npos) return self.substr(0, slash + 1) + "libklo_cbc.so";
  }
  return "libklo_cbc.so";
}

Factory loadFactory(std::string& error) {
  void* handle = dlopen(modulePath().c_str(), RTLD_NOW | RTLD_GLOBAL);
  if (!handle) handle = dlopen("libklo_cbc.so", RTLD_NOW | RTLD_GLOBAL);
  if (!handle) {
    const char* why = dlerror();
    error = why ? why : "libklo_cbc.so not found";
    return nullptr;
  }
  return reinterpret_cast<Factory>(dlsym(handle, "klo_new_cbc_engine"));
}

std::unique_ptr<Engine> makeCbcEngine() {
  static std::once_flag once;
  static Factory factory = nullptr;
  static std::string error;
  std::call_once(once, [] { factory = loadFactory(error); });  // never unloaded
  if (!factory) fail(KLO_ERROR_NOT_SUPPORTED, "the MIP engine cannot be loaded: " + error);
  return std::unique_ptr<Engine>(factory());
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
                     "MIP/SolutionPoolSize",
                     "MIP/EnableLazyConstr",
                     "NumThreads"};
  return EngineEntry{"Cbc", caps, makeCbcEngine};
}

}  // namespace klo::engine
