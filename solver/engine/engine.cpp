#include "engine/engine.h"

namespace klo::engine {

std::unique_ptr<Engine> engineFor(const Problem& problem) {
  return problem.isMip() ? makeCbcEngine() : makeClpEngine();
}

}  // namespace klo::engine
