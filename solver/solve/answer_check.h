// The answer check: every answer is measured in the terms of the problem
// the engine was given (the model's own columns and rows first, unscaled,
// after the engine's presolve was undone) before it may be called optimal.
#pragma once

#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo {

// How many times its tolerance a figure may reach: the engines apply their
// tolerances to scaled problems, so the unscaled figures of a sound answer
// come out somewhat larger.
constexpr double kCheckSlack = 10.0;

// Fills r.violations from r.x (and, for a continuous problem with duals,
// from r.duals: the duals that point at an infinite bound, and the duality
// gap), and r.activities.  Nothing to measure without a solution.
void measureAnswer(const engine::Problem& p, engine::Result& r);

// Whether r's figures are within the tolerances of s: primal figures and
// SOS within "SPX/PrimalTolerance", integrality within
// "MIP/IntegerTolerance", dual and complementarity figures within
// "SPX/DualTolerance", each times kCheckSlack.
bool passesCheck(const engine::Result& r, const engine::Settings& s);

}  // namespace klo
