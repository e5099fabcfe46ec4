// Evaluating a point against a Problem: row activities, objective, and how
// far it is from feasible.  Used to check proposed solutions and results.
#ifndef KLO_SOLVER_ENGINE_PROBLEM_EVAL_H
#define KLO_SOLVER_ENGINE_PROBLEM_EVAL_H

#include <vector>

#include "engine/problem.h"

namespace klo::engine {

std::vector<double> rowActivities(const Problem& p, const double* x);
double objectiveOf(const Problem& p, const double* x);  // constant included
// Largest violation of a column bound, row bound or (when integers is
// true) integrality or SOS condition; 0 for a feasible point.
double maxViolation(const Problem& p, const double* x, bool integers);

}  // namespace klo::engine

#endif
