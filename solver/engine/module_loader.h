// Engines that live in their own shared library (a module), loaded on the
// first solve that needs them and never unloaded.
#pragma once

#include <memory>

#include "engine/engine.h"

namespace klo::engine {

struct EngineModule {
  const char* file;   // "libklo_cbc.so": looked for beside libklo, then by the loader
  const char* entry;  // its extern "C" factory, returning a new Engine
  const char* what;   // how messages name it: "the MIP engine"
};

// A new engine from the module, loading it on the first call.  Throws
// KLO_ERROR_NOT_SUPPORTED (with the loader's reason) when it cannot load.
std::unique_ptr<Engine> makeModuleEngine(const EngineModule& m);

}  // namespace klo::engine
