// The parts of a model that no engine of this library solves yet.
#ifndef KLO_SOLVER_SOLVE_UNSUPPORTED_H
#define KLO_SOLVER_SOLVE_UNSUPPORTED_H

#include "store/model_data.h"

namespace klo {

// Whether semi-continuous and semi-integer variables are solved (through
// switches, solve/semicontinuous.h) by the operation asking.
enum class Switched { Refused, Solved };

// Throws KLO_ERROR_NOT_SUPPORTED naming the first such feature of d:
// quadratic terms (objective or rows), PSD variables or terms, indicator
// constraints, semi-continuous or semi-integer variables (unless solved).
// what names the operation in the message ("KLOoptimize").
void refuseUnsupported(const ModelData& d, const char* what,
                       Switched semi = Switched::Refused);

}  // namespace klo

#endif
