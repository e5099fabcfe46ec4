// A cheap proof of infeasibility for integer programs, which no branching
// gives when variables are unbounded: a row whose terms are all integer
// columns with integer coefficients (fixed columns counting as constants)
// takes only multiples of their gcd, so a range holding none cannot be met.
// 2x + 2y = 5 is the smallest example; 0.5 <= x <= 0.7 (a row) another.
#pragma once

#include "engine/problem.h"

namespace klo {

// The first row of p (row-major) proven infeasible so, or -1.
int rowWithoutIntegerSolution(const engine::Problem& p);

}  // namespace klo
