// Outcomes decided from the problem alone, before any engine sees it:
// engines differ on them or abort on them (see the quirk notes).
#pragma once

#include <optional>

#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo::engine {

// A problem without columns (optimal when every row admits 0, infeasible
// otherwise), or one with bounds no value can meet: a row or column whose
// lower bound is +infinity, upper bound -infinity, or lower bound above
// its upper one, or an integer column whose bounds hold no integer
// (infeasible, the element named in the log).
// Nothing for every other problem.
std::optional<Result> decidedWithoutEngine(const Problem& p, const Settings& s);

}  // namespace klo::engine
