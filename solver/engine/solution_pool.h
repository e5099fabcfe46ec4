// The solution pool a MIP adapter hands back: distinct points, best first.
#pragma once

#include <vector>

#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo::engine {

// Two points are the same when every integer, semi-continuous or
// semi-integer column differs by at most "MIP/IntegerTolerance" and every
// continuous one by at most "SPX/PrimalTolerance" times max(1, |value|):
// an engine may report one point twice with rounding differences (before
// and after undoing its preprocessing, say).
bool samePoint(const Problem& p, const Settings& s, const std::vector<double>& a,
               const std::vector<double>& b);

// Fills r.pool: r's own solution first, then the other solutions found
// (any order, in the problem's columns) that are not the same point as one
// kept already, best objective first, at most "MIP/SolutionPoolSize" and
// "MIP/MaxSols" in all.
void fillPool(Result& r, const Problem& p, const Settings& s,
              const std::vector<PoolSolution>& found);

}  // namespace klo::engine
