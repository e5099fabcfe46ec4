// What the last solve or analysis left in a model, read through the result
// attributes.  Engines fill it; every change to the model discards it.
#ifndef KLO_SOLVER_STORE_RESULTS_H
#define KLO_SOLVER_STORE_RESULTS_H

#include <vector>

#include "engine/result.h"
#include "store/model_data.h"

namespace klo {

struct Results {
  bool solved = false;  // a solve ran since the last change
  engine::Result solve;
  std::vector<SymMatrix> psdX;  // one per PSD variable, upper triangle
  double solutionTime = 0.0;    // seconds of the whole KLOoptimize
  // IIS membership (KLO_IIS_...), empty when no IIS was computed.
  std::vector<int> iisCol, iisRow;
};

}  // namespace klo

#endif
