// Entry storage of matrices: owned arrays come from malloc and go back to
// free; borrowed ones are the caller's.
#include <cstdlib>

#include "klo_cpp.h"

namespace {

template <class T>
T* allocate(int nnz) {
  return static_cast<T*>(std::malloc(static_cast<std::size_t>(static_cast<long>(nnz)) * sizeof(T)));
}

}  // namespace

KLOSparseStorage::KLOSparseStorage(int count)
    : kind(OwnsBoth), nnz(count), indices(allocate<int>(count)), values(allocate<double>(count)) {}

KLOSparseStorage::KLOSparseStorage(int count, int* borrowedIndices)
    : kind(BorrowsIndices), nnz(count), indices(borrowedIndices), values(allocate<double>(count)) {}

KLOSparseStorage::KLOSparseStorage(int count, double* borrowedValues)
    : kind(BorrowsValues), nnz(count), indices(allocate<int>(count)), values(borrowedValues) {}

KLOSparseStorage::KLOSparseStorage(int count, int* borrowedIndices, double* borrowedValues)
    : kind(BorrowsBoth), nnz(count), indices(borrowedIndices), values(borrowedValues) {}

KLOSparseStorage::~KLOSparseStorage() {
  if (!(kind & BorrowsIndices)) std::free(indices);
  if (!(kind & BorrowsValues)) std::free(values);
}
