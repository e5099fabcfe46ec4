#include <string>

#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"

namespace klo {

void Bulk::check(const char* what, bool needValues) const {
  checkCount(n, what);
  checkCount(nnz, "Number of non-zeros");
  if (nnz == 0 || n == 0) {
    if (nnz > 0)
      fail(KLO_ERROR_INVALID_ARGUMENT, std::to_string(nnz) + " entries given for no elements");
    return;
  }
  if (!beg || !ind || (needValues && !val))
    fail(KLO_ERROR_NULL_ARGUMENT,
         "Begin, index or value array is null for " + std::to_string(nnz) + " entries");
  for (int k = 0; k < n; ++k) {
    int lo = beg[k], hi = end(k);
    if (lo < 0 || lo > hi || hi > nnz)
      fail(KLO_ERROR_INVALID_ARGUMENT, "Begin offset " + std::to_string(lo) + " of element " +
                                           std::to_string(k) + " is out of order or outside [0, " +
                                           std::to_string(nnz) + "]");
  }
}

void checkIndices(const ModelData& d, Kind kind, int n, const int* ind) {
  checkCount(n, "Number of indices");
  if (n > 0 && !ind) fail(KLO_ERROR_NULL_ARGUMENT, "Index array is null");
  for (int k = 0; k < n; ++k) checkIndex(d, kind, ind[k]);
}

}  // namespace klo
