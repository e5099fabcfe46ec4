#include "engine/engine.h"

#include <CoinError.hpp>

#include "common/error.h"
#include "engine/decided.h"
#include "klo_c.h"

namespace klo::engine {

Result Engine::solve(const Problem& problem, const Settings& settings, const Callback& callback) {
  checkProblem(problem);
  if (std::optional<Result> decided = decidedWithoutEngine(problem, settings)) return *decided;
  try {
    return run(problem, settings, callback);
  } catch (const CoinError& e) {
    fail(KLO_ERROR_INTERNAL, std::string(name()) + ": " + e.message() + " in " + e.methodName());
  }
}

const std::vector<EngineEntry>& engines() {
  static const std::vector<EngineEntry> all{clpEntry(), cbcEntry(), ipoptEntry(), bonminEntry(),
                                            csdpEntry()};
  return all;
}

}  // namespace klo::engine
