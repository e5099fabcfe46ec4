// Indicator constraints.
#include <string>

#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {

void addIndicator(ModelData& d, const char* name, int binVar, int binVal, int n, const int* ind,
                  const double* val, char sense, double rhs) {
  checkIndex(d, Kind::Var, binVar);
  if (d.type[binVar] != 'B')
    fail(KLO_ERROR_INVALID_ARGUMENT,
         "Indicator variable " + std::to_string(binVar) + " is not binary");
  if (binVal != 0 && binVal != 1)
    fail(KLO_ERROR_INVALID_ARGUMENT,
         "Indicator value " + std::to_string(binVal) + " is neither 0 nor 1");
  Indicator ic;
  ic.lin = makeSparse(n, ind, val, d.numVars());
  checkBound(rhs, "Right-hand side");
  ic.name = name ? name : "";
  ic.binVar = binVar;
  ic.binVal = binVal;
  ic.sense = normSense(sense);
  ic.rhs = normBound(rhs);
  d.indicators.push_back(std::move(ic));
}

void deleteIndicators(ModelData& d, int n, const int* ind) {
  checkIndices(d, Kind::GenConstr, n, ind);
  retain(d.indicators, keptFlags(deletionMap(static_cast<int>(d.indicators.size()), n, ind)));
}

}  // namespace klo
