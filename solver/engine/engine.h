// The one narrow interface between the solver library and its engines.
// An adapter receives a Problem built from the store, Settings built from
// the parameters, and optionally a user callback; it returns a Result.
// Each adapter also declares what it can solve (engine/capabilities.h); the
// list of engines below is all the chooser knows of them.
//
// This folder holds the seam (problem.h, capabilities.h, settings.h,
// result.h, this file) and what every adapter may use (problem_eval.h,
// log.h, lp_duals.h); coin/ what the COIN-OR adapters share; one folder per
// engine (clp/, cbc/, ipopt/, bonmin/; nlp/ what the last two share), with the engine's quirks at
// the top of its main file.
#pragma once

#include <memory>
#include <vector>

#include "engine/callback_context.h"
#include "engine/capabilities.h"
#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo::engine {

class Engine {
 public:
  virtual ~Engine() = default;
  virtual const char* name() const = 0;
  // Every solver outcome, numerical failures included, is a status in the
  // Result.  Throws klo::Error: KLO_ERROR_INVALID_ARGUMENT for a malformed
  // problem, KLO_ERROR_INTERNAL when the engine itself throws.
  Result solve(const Problem& problem, const Settings& settings, const Callback& callback = {});

 protected:
  // The adapter's work, on a problem already checked.
  virtual Result run(const Problem& problem, const Settings& settings,
                     const Callback& callback) = 0;
};

// An adapter written as a one-solve class: Run(problem, settings, callback)
// then run(), with its engine's name in Run::kName.
template <class Run>
class RunEngine : public Engine {
 public:
  const char* name() const override { return Run::kName; }

 protected:
  Result run(const Problem& problem, const Settings& settings, const Callback& cb) override {
    return Run(problem, settings, cb).run();
  }
};

// An engine as the chooser sees it: its declaration, and how to make one
// (which may load its library first, and throws KLO_ERROR_NOT_SUPPORTED
// when that fails).
struct EngineEntry {
  const char* name;
  Capabilities caps;
  std::unique_ptr<Engine> (*make)();
};

// The adapters' declarations (each in its own folder).
EngineEntry clpEntry();
EngineEntry cbcEntry();
EngineEntry ipoptEntry();
EngineEntry bonminEntry();
EngineEntry csdpEntry();

// Every engine of the library, in order of preference: the first that
// takes a problem solves it.
const std::vector<EngineEntry>& engines();

}  // namespace klo::engine
