// The engine's copy of a model: the linear part, bounds, types, objective
// 0 with its constant and sense, SOS sets, the MIP start and the basis to
// start from.
#ifndef KLO_SOLVER_SOLVE_PROBLEM_FROM_MODEL_H
#define KLO_SOLVER_SOLVE_PROBLEM_FROM_MODEL_H

#include <utility>
#include <vector>

#include "engine/problem.h"
#include "store/model_data.h"

namespace klo {

// d must have passed refuseUnsupported.  The warm-start basis is the one
// the user set ("ColBasis"/"RowBasis"), else the last LP solve's.
engine::Problem problemFromModel(const ModelData& d);

// Appends the row lower <= coef'x <= upper (coef dense, one per column) to
// a row-major problem.
void appendDenseRow(engine::Problem& p, const std::vector<double>& coef, double lower,
                    double upper);
// Appends the row lower <= sum a x[j] <= upper, over the (j, a) of terms.
void appendSparseRow(engine::Problem& p, const std::vector<std::pair<int, double>>& terms,
                     double lower, double upper);

}  // namespace klo

#endif
