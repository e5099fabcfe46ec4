// The one narrow interface between the solver library and its engines.
// An adapter receives a Problem built from the store, Settings built from
// the parameters, and optionally a user callback; it returns a Result.
#ifndef KLO_SOLVER_ENGINE_ENGINE_H
#define KLO_SOLVER_ENGINE_ENGINE_H

#include <memory>

#include "engine/callback_context.h"
#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo::engine {

class Engine {
 public:
  virtual ~Engine() = default;
  virtual const char* name() const = 0;
  // Throws klo::Error for a malformed problem; every solver outcome,
  // failures included, is a status in the Result.
  virtual Result solve(const Problem& problem, const Settings& settings,
                       const Callback& callback) = 0;
};

std::unique_ptr<Engine> makeClpEngine();
std::unique_ptr<Engine> makeCbcEngine();

// The engine for a problem: Cbc when it has integers or SOS, Clp otherwise.
std::unique_ptr<Engine> engineFor(const Problem& problem);

}  // namespace klo::engine

#endif
