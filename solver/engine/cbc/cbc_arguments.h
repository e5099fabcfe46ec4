// The command line handed to Cbc's own solver driver (CbcMain1): Cbc's
// good defaults for cuts, heuristics and preprocessing, with our settings
// translated into its options.
#pragma once

#include <string>
#include <vector>

#include "engine/problem.h"
#include "engine/settings.h"

namespace klo::engine {

// timeLeft: wall seconds left for the search; withCallback: a user
// callback needs the original columns (preprocessing off) and one thread.
std::vector<std::string> cbcArguments(const Problem& p, const Settings& s, double timeLeft,
                                      bool withCallback);

// Cbc's own log level for ours: our level 1 prints our progress lines
// only, higher levels add the engine's messages.
int cbcLogLevel(const Settings& s);

}  // namespace klo::engine
