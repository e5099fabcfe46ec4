// Log lines the adapters write themselves (summaries, progress).
#pragma once

#include <string>

#include "engine/result.h"
#include "engine/settings.h"

namespace klo::engine {

// Writes one line to the sink when there is one and the level allows it.
void logLine(const Settings& s, const std::string& line);

// A number as log lines show it (up to 10 significant digits).
std::string formatNumber(double v);

// The closing line of a branch-and-bound search: "<kind> <status>,
// objective .., bound .., gap ..%; N nodes, M <iterationKind> iterations
// in T s".
std::string searchSummary(const char* kind, const Result& r, const char* iterationKind,
                          long long iterations);

// The closing line of an interior-point run: "<kind> <status>, objective
// ..; N <iterationKind> iterations in T s".
std::string interiorSummary(const char* kind, const Result& r, const char* iterationKind);

}  // namespace klo::engine
