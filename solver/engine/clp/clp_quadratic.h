// Clp's quadratic objective: loading it, and the methods that take it.
#pragma once

#include <ClpSimplex.hpp>

#include "engine/problem.h"
#include "engine/settings.h"

namespace klo::engine {

// Loads p's quadratic objective terms.  Clp's objective is c'x + 1/2 x'Qx
// with Q given by its upper triangle (a full symmetric matrix would count
// the off-diagonals twice): a term val x_i^2 is Q_ii = 2 val, a term
// val x_i x_j (i < j) is Q_ij = val.
void loadQuadraticObjective(ClpSimplex& model, const Problem& p);

// Solves a model with a quadratic objective: the interior-point method
// with presolve (as Clp's own program does for QPs), or with
// LpMethod::Primal its primal QP method; dual simplex would ignore Q.
// Returns Clp's problem status.
int solveQuadratic(ClpSimplex& model, const Settings& s);

}  // namespace klo::engine
