// Basis statuses between Clp and KLO_BASIS_... codes.  Both describe a
// row by its activity (a binding <= row is at its upper bound), so rows and
// columns convert the same way.
#pragma once

#include <ClpSimplex.hpp>

#include "engine/problem.h"
#include "engine/result.h"

namespace klo::engine {

int basisCode(ClpSimplex::Status s, double lower, double upper);
ClpSimplex::Status clpStatus(int code, double lower, double upper);

// Loads the Problem's basis (padded for added columns and rows) into the
// model, with nonbasic values at their bounds.  False when there is none.
bool loadBasis(ClpSimplex& m, const Problem& p);
// Reads the model's basis into the result.
void readBasis(const ClpSimplex& m, Result& r);

}  // namespace klo::engine
