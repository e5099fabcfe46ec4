// The engine's copy of a model, built in this one place: the linear part,
// bounds, types, objective 0 with its constant, quadratic terms and sense,
// quadratic rows, PSD variables and terms, SOS sets, indicator rows, the
// MIP start and the basis to start from.
#pragma once

#include <utility>
#include <vector>

#include "engine/problem.h"
#include "store/model_data.h"

namespace klo {

// The warm-start basis is the one
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
