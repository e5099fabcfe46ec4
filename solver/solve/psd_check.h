// The answer check's figures for PSD variables.  Primal: how far each X_k
// is from semidefinite, its most negative eigenvalue over max(1, its
// largest in magnitude).  Dual: the same for each dual slack matrix
// S_k = sense * (C_k - sum_i y_i A_ik) (C_k its "PsdObj", A_ik its terms in
// row i), and sum_k <S_k, X_k>, its part of the duality gap.
#pragma once

#include <vector>

#include "engine/problem.h"
#include "engine/problem_eval.h"

namespace klo {

double psdPrimalViolation(const engine::Problem& p, const engine::PsdValues& x);

struct PsdDualFigures {
  double violation = 0.0;
  double gap = 0.0;
};

// y: row duals in the result's sign convention.
PsdDualFigures psdDualFigures(const engine::Problem& p, const engine::PsdValues& x,
                              const std::vector<double>& y);

}  // namespace klo
