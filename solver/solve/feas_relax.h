// The feasibility relaxation: the smallest weighted violation of bounds and
// rows, then optionally the model's objective among the least violated
// points.  The model itself is not changed; the relaxed point becomes its
// solution.
#pragma once

#include "store/model.h"

namespace klo {

struct FeasRelaxRequest {
  int objType = 0;        // 0 weighted sum, 1 weighted squares, 2 weighted count
  bool minRelax = false;  // then optimise the model's objective 0
  // Penalties per variable bound and per row (null, or >= KLO_INFINITY:
  // may not be relaxed).
  const double* lbPen = nullptr;
  const double* ubPen = nullptr;
  const double* rhsPen = nullptr;
};

// Returns the minimal violation measure (KLO_INFINITY when no relaxed
// point was found; "Status" then says why) and stores the relaxed solution
// as m's results.  Throws klo::Error for bad requests and models with
// features no engine solves; type 1 needs a quadratic engine and is
// refused with KLO_ERROR_NOT_SUPPORTED.
double feasRelax(KLOmodel& m, const FeasRelaxRequest& req);

}  // namespace klo
