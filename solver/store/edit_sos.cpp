// SOS sets.
#include <algorithm>
#include <cmath>
#include <string>

#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {
namespace {

Sos makeSos(const ModelData& d, int type, int n, const int* ind, const double* weight) {
  if (type != KLO_SOS_TYPE1 && type != KLO_SOS_TYPE2)
    fail(KLO_ERROR_INVALID_ARGUMENT, "SOS type " + std::to_string(type) + " is neither 1 nor 2");
  Sos s;
  s.type = type;
  for (int m = 0; m < n; ++m) {
    checkIndex(d, Kind::Var, ind[m]);
    double w = weight ? weight[m] : m + 1.0;
    checkCoef(w, "SOS weight");
    if (std::fabs(w) >= KLO_INFINITY)
      fail(KLO_ERROR_INVALID_ARGUMENT, "SOS weight " + std::to_string(w) + " is infinite");
    s.members.push_back(ind[m]);
    s.weights.push_back(w);
  }
  std::vector<int> sorted = s.members;
  std::sort(sorted.begin(), sorted.end());
  if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end())
    fail(KLO_ERROR_INVALID_ARGUMENT, "A variable occurs twice in one SOS set");
  std::vector<double> w = s.weights;
  std::sort(w.begin(), w.end());
  if (std::adjacent_find(w.begin(), w.end()) != w.end())
    fail(KLO_ERROR_INVALID_ARGUMENT, "Two members of one SOS set have the same weight");
  return s;
}

}  // namespace

void addSos(ModelData& d, const Bulk& sets, const int* types) {
  sets.check("Number of SOS sets", false);
  if (sets.n > 0 && !types) fail(KLO_ERROR_NULL_ARGUMENT, "SOS type array is null");
  std::vector<Sos> made;
  for (int k = 0; k < sets.n; ++k) {
    int lo = sets.first(k);
    made.push_back(
        makeSos(d, types[k], sets.end(k) - lo, sets.ind + lo, sets.val ? sets.val + lo : nullptr));
  }
  d.sos.insert(d.sos.end(), made.begin(), made.end());
}

void deleteSos(ModelData& d, int n, const int* ind) {
  checkIndices(d, Kind::Sos, n, ind);
  retain(d.sos, keptFlags(deletionMap(static_cast<int>(d.sos.size()), n, ind)));
}

}  // namespace klo
