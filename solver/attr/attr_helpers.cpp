#include "attr/attr_helpers.h"

#include <cmath>

#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"
#include "store/checks.h"

namespace klo {

void checkFinite(const KLOmodel&, int, double v) { checkCoef(v, "Value"); }

void checkNotNaN(const KLOmodel&, int, double v) { checkBound(v, "Value"); }

void checkNonNegative(const KLOmodel& m, int e, double v) {
  checkFinite(m, e, v);
  if (v < 0) fail(KLO_ERROR_INVALID_ARGUMENT, "Value " + formatDouble(v) + " is negative");
}

void checkBasisStatus(const KLOmodel&, int, double v) {
  if (v != KLO_BASIS_LOWER && v != KLO_BASIS_BASIC && v != KLO_BASIS_UPPER &&
      v != KLO_BASIS_SUPERBASIC && v != KLO_BASIS_FIXED)
    fail(KLO_ERROR_INVALID_ARGUMENT, "Basis status " + formatDouble(v) + " is not one of 0 .. 4");
}

void checkNothing(const KLOmodel&, int, double) {}

int objNumber(const KLOmodel& m) {
  int k = m.env.params.getInt("ObjNumber");
  checkIndex(m.data, Kind::Objective, k);
  return k;
}

double resultAt(const std::vector<double>& v, int k, const char* what) {
  if (v.empty()) fail(KLO_ERROR_DATA_NOT_AVAILABLE, std::string("The last solve gave no ") + what);
  return v[k];
}

const PoolEntry& poolSolution(const KLOmodel& m) {
  const Results& r = solution(m);
  int k = m.env.params.getInt("MIP/SolutionNumber");
  if (k >= static_cast<int>(r.pool.size()))
    fail(KLO_ERROR_DATA_NOT_AVAILABLE, "There is no pool solution " + std::to_string(k) +
                                           " (the pool holds " + std::to_string(r.pool.size()) +
                                           ")");
  return r.pool[k];
}

}  // namespace klo
