// Evaluating a point against a Problem: row activities, objective, and how
// far it is from feasible.  Used to check proposed solutions and answers.
#pragma once

#include <vector>

#include "common/violations.h"
#include "engine/problem.h"

namespace klo::engine {

// The values of the PSD variables, one dim x dim row-major matrix each;
// null where a problem has none.
using PsdValues = std::vector<std::vector<double>>;

// a_i x plus the row's quadratic and PSD terms, for every row; with
// largest, also each row's largest term in absolute value (the scale of
// the rounding its activity carries).
std::vector<double> rowActivities(const Problem& p, const double* x,
                                  const PsdValues* psdX = nullptr,
                                  std::vector<double>* largest = nullptr);
// sum_t val_t x_i(t) x_j(t); with largest, the largest term in absolute
// value folded into *largest.
double quadValue(const QuadTerms& q, const double* x, double* largest = nullptr);
// The objective, constant, quadratic and PSD terms included.
double objectiveOf(const Problem& p, const double* x, const PsdValues* psdX = nullptr);

// A'y for the linear matrix; with largest, also each column's largest
// |a_ij y_i|.
std::vector<double> transposeTimes(const Problem& p, const std::vector<double>& y,
                                   std::vector<double>* largest = nullptr);

// The primal figures of Violations (bounds, rows, integrality, SOS) of x.
// A row's violation is relative to the largest of 1, the bound and its
// largest term.  activities, when given, receives x's row activities and
// largest their largest terms.
Violations primalViolations(const Problem& p, const double* x, const PsdValues* psdX = nullptr,
                            std::vector<double>* activities = nullptr,
                            std::vector<double>* largest = nullptr);
// The largest primal figure (with integrality and SOS when integers).
double maxViolation(const Problem& p, const double* x, bool integers);

}  // namespace klo::engine
