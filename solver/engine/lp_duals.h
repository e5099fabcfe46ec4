// Dual-side quantities of an LP result in the convention of result.h: the
// dual objective of a solution, and the orientation of a Farkas ray.
#pragma once

#include <vector>

#include "engine/problem.h"
#include "engine/result.h"

namespace klo::engine {

// constant + sum_i y_i b_i + sum_j d_j l_j, each dual paired with the bound
// its sign points to (the activity or value where that bound is infinite);
// with quadratic parts, the Wolfe dual f(x) - y'(g(x) - b) - d'(x - l).
double dualObjective(const Problem& p, const Result& r);

// How far y proves infeasibility: the least activity the combined row
// sum_i y_i a_i x is required to have minus the most it can have within the
// column bounds.  Positive for a certificate.
double farkasMargin(const Problem& p, const std::vector<double>& y);

// Negates y when that is the sign that proves infeasibility.
void orientFarkasRay(const Problem& p, std::vector<double>& y);

}  // namespace klo::engine
