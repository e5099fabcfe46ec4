#include "store/relax.h"

#include <algorithm>

namespace klo {

void relax(ModelData& d) {
  for (int j = 0; j < d.numVars(); ++j) {
    if (d.type[j] == 'S' || d.type[j] == 'N') d.lb[j] = std::min(0.0, d.lb[j]);
    d.type[j] = 'C';
  }
  d.sos.clear();
  d.indicators.clear();
}

}  // namespace klo
