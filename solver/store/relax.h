// The continuous relaxation of a model.
#pragma once

#include "store/model_data.h"

namespace klo {

// Integer and binary variables become continuous (binaries keep [0, 1]),
// semi-continuous and semi-integer ones continuous over [min(0, lb), ub];
// SOS sets and indicator constraints are dropped.
void relax(ModelData& d);

}  // namespace klo
