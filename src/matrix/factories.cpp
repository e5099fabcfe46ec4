// The ways to make a matrix: over caller arrays (positions computed where
// needed) or with arrays of its own.
#include <stdexcept>

#include "klo_cpp.h"

namespace {

// Fills positions for compressed groups: group g holds entries
// start[g] .. (g == lastGroup ? nnz : start[g + 1]) - 1, and entry k of a
// group goes to position(g, k).  Positions are written at a running
// counter, independently of k; groups that overlap (possible through the
// last-group rule) never write past the nnz positions.
template <class Position>
void fillGroups(int* out, int groups, int lastGroup, int nnz, const int* start, Position position) {
  int next = 0;
  for (int g = 0; g < groups; ++g) {
    const int end = g == lastGroup ? nnz : start[g + 1];
    for (int k = start[g]; k < end && next < nnz; ++k) out[next++] = position(g, k);
  }
}

// A matrix owning its arrays with every position stored, all with value.
KLOMatrix everywhere(int rows, int cols, double value) {
  const int nnz = rows * cols;
  KLOMatrix m(rows, cols, nnz);
  for (int k = 0; k < nnz; ++k) {
    m.indices()[k] = k;
    m.data()[k] = value;
  }
  return m;
}

}  // namespace

KLOMatrix KLOMatrix::coo(int rows, int cols, int nnz, int* indices, double* values) {
  return KLOMatrix(rows, cols, nnz, indices, values);
}

KLOMatrix KLOMatrix::coo(int rows, int cols, int nnz, int* rowIdx, int* colIdx, double* values) {
  KLOMatrix m(rows, cols, nnz, values);
  for (int k = 0; k < nnz; ++k) m.indices()[k] = rowIdx[k] * cols + colIdx[k];
  return m;
}

KLOMatrix KLOMatrix::csr(int rows, int cols, int nnz, int* rowStart, int* colIdx, double* values) {
  KLOMatrix m(rows, cols, nnz, values);
  fillGroups(m.indices(), rows, rows - 1, nnz, rowStart,
             [&](int i, int k) { return i * cols + colIdx[k]; });
  return m;
}

KLOMatrix KLOMatrix::csc(int rows, int cols, int nnz, int* colStart, int* rowIdx, double* values) {
  KLOMatrix m(rows, cols, nnz, values);
  // The group that runs to nnz is column rows-1, not cols-1: long-standing
  // behaviour, the same for square matrices.
  fillGroups(m.indices(), cols, rows - 1, nnz, colStart,
             [&](int j, int k) { return rowIdx[k] * cols + j; });
  return m;
}

KLOMatrix KLOMatrix::dense(int rows, int cols, double* values) {
  const int nnz = rows * cols;
  KLOMatrix m(rows, cols, nnz, values);
  for (int k = 0; k < nnz; ++k) m.indices()[k] = k;
  return m;
}

KLOMatrix KLOMatrix::dense(int rows, int cols, std::initializer_list<double> values) {
  const int nnz = rows * cols;
  if (static_cast<long>(values.size()) < static_cast<long>(nnz))
    throw std::out_of_range("data array expects more elements");
  KLOMatrix m(rows, cols, nnz);
  const double* v = values.begin();
  for (int k = 0; k < nnz; ++k) {
    m.indices()[k] = k;
    m.data()[k] = v[k];
  }
  return m;
}

KLOMatrix KLOMatrix::sparse(int rows, int cols, std::initializer_list<int> rowIdx,
                            std::initializer_list<int> colIdx,
                            std::initializer_list<double> values) {
  const int nnz = static_cast<int>(values.size());
  KLOMatrix m(rows, cols, nnz);
  for (int k = 0; k < nnz; ++k) {
    if (static_cast<std::size_t>(k) >= rowIdx.size())
      throw std::out_of_range("row array has less elements than data array");
    if (static_cast<std::size_t>(k) >= colIdx.size())
      throw std::out_of_range("col array has less elements than data array");
    m.indices()[k] = rowIdx.begin()[k] * cols + colIdx.begin()[k];
    m.data()[k] = values.begin()[k];
  }
  return m;
}

KLOMatrix KLOMatrix::zero(int rows, int cols) { return KLOMatrix(rows, cols, 0); }

KLOMatrix KLOMatrix::ones(int rows, int cols) { return everywhere(rows, cols, 1.0); }

KLOMatrix KLOMatrix::full(int rows, int cols, double value) {
  if (value == 0.0) return zero(rows, cols);
  return everywhere(rows, cols, value);
}

KLOMatrix KLOMatrix::identity(int n) {
  KLOMatrix m(n, n, n);
  for (int i = 0; i < n; ++i) {
    m.indices()[i] = i * (n + 1);
    m.data()[i] = 1.0;
  }
  return m;
}
