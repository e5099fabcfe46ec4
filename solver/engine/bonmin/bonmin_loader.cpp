// The MINLP engine lives in its own library, libklo_bonmin (Bonmin brings
// Cbc, Cgl and Ipopt), loaded on the first solve that needs it.
#include <dlfcn.h>

#include <mutex>
#include <string>

#include "common/error.h"
#include "engine/engine.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Factory = Engine* (*)();

constexpr const char* kModule = "libklo_bonmin.so";

// The module next to this library (build tree or install prefix), else
// wherever the dynamic loader finds it.
std::string modulePath() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&bonminEntry), &info) && info.dli_fname) {
    std::string self = info.dli_fname;
    std::string::size_type slash = self.rfind('/');
    if (slash != std::string::npos) return self.substr(0, slash + 1) + kModule;
  }
  return kModule;
}

Factory loadFactory(std::string& error) {
  void* handle = dlopen(modulePath().c_str(), RTLD_NOW | RTLD_GLOBAL);
  if (!handle) handle = dlopen(kModule, RTLD_NOW | RTLD_GLOBAL);
  if (!handle) {
    const char* why = dlerror();
    error = why ? why : std::string(kModule) + " not found";
    return nullptr;
  }
  auto factory = reinterpret_cast<Factory>(dlsym(handle, "klo_new_bonmin_engine"));
  if (!factory) error = std::string(kModule) + " lacks its entry point";
  return factory;
}

std::unique_ptr<Engine> makeBonminEngine() {
  static std::once_flag once;
  static Factory factory = nullptr;
  static std::string error;
  std::call_once(once, [] { factory = loadFactory(error); });  // never unloaded
  if (!factory) fail(KLO_ERROR_NOT_SUPPORTED, "the MINLP engine cannot be loaded: " + error);
  return std::unique_ptr<Engine>(factory());
}

}  // namespace

// Declared here, in the library itself, so that choosing an engine never
// loads the module.
EngineEntry bonminEntry() {
  Capabilities caps;
  caps.features = kIntegers | kQuadObjective | kQuadRows;
  // For a nonconvex model B-BB is a heuristic whose answer is locally
  // optimal with its integer values fixed, as Ipopt's answers are: the
  // chooser hands it one only when "NonConvex" asks for a local optimum.
  caps.local = true;
  caps.parameters = {"MaxTime",    "MIP/MaxNodes", "MIP/MaxSols",         "MIP/GapAbs",
                     "MIP/GapRel", "MIP/Cutoff",   "MIP/IntegerTolerance"};
  return EngineEntry{"Bonmin", caps, makeBonminEngine};
}

}  // namespace klo::engine
