// Matrix values: construction, access, copies, arithmetic and sorting.
#include <algorithm>
#include <climits>
#include <cstring>
#include <utility>
#include <vector>

#include "klo_cpp.h"

KLOMatrix::KLOMatrix() : KLOMatrix(0, 0, 0) {}

KLOMatrix::KLOMatrix(int rows, int cols, int nnz)
    : rows_(rows), cols_(cols), storage_(std::make_shared<KLOSparseStorage>(nnz)) {}

KLOMatrix::KLOMatrix(int rows, int cols, int nnz, int* indices)
    : rows_(rows), cols_(cols), storage_(std::make_shared<KLOSparseStorage>(nnz, indices)) {}

KLOMatrix::KLOMatrix(int rows, int cols, int nnz, double* values)
    : rows_(rows), cols_(cols), storage_(std::make_shared<KLOSparseStorage>(nnz, values)) {}

KLOMatrix::KLOMatrix(int rows, int cols, int nnz, int* indices, double* values)
    : rows_(rows),
      cols_(cols),
      storage_(std::make_shared<KLOSparseStorage>(nnz, indices, values)) {}

int KLOMatrix::nonzeros() const { return storage_->nnz; }
int* KLOMatrix::indices() const { return storage_->indices; }
double* KLOMatrix::data() const { return storage_->values; }
int KLOMatrix::rows() const { return rows_; }
int KLOMatrix::cols() const { return cols_; }

KLOMatrix KLOMatrix::copy() const {
  const int nnz = nonzeros();
  KLOMatrix result(rows_, cols_, nnz);
  if (nnz > 0) {
    std::memcpy(result.indices(), indices(), static_cast<std::size_t>(nnz) * sizeof(int));
    std::memcpy(result.data(), data(), static_cast<std::size_t>(nnz) * sizeof(double));
  }
  return result;
}

KLOMatrix KLOMatrix::operator*(double d) const {
  KLOMatrix result = copy();
  double* v = result.data();
  for (int k = 0; k < result.nonzeros(); ++k) v[k] *= d;
  return result;
}

KLOMatrix KLOMatrix::operator/(double d) const {
  KLOMatrix result = copy();
  double* v = result.data();
  for (int k = 0; k < result.nonzeros(); ++k) v[k] /= d;
  return result;
}

KLOMatrix operator*(double d, KLOMatrix m) { return m * d; }

void sort(const KLOMatrix& m) {
  const int nnz = m.nonzeros();
  if (nnz < 1) return;
  int* pos = m.indices();
  double* val = m.data();
  std::vector<std::pair<int, double>> entries;
  entries.reserve(static_cast<std::size_t>(nnz));
  bool ordered = true;
  for (int k = 0; k < nnz; ++k) {
    if (k > 0 && pos[k] < pos[k - 1]) ordered = false;
    entries.emplace_back(pos[k], val[k]);
  }
  if (ordered) return;
  std::sort(entries.begin(), entries.end());
  for (int k = 0; k < nnz; ++k) {
    pos[k] = entries[static_cast<std::size_t>(k)].first;
    val[k] = entries[static_cast<std::size_t>(k)].second;
  }
}

namespace {

// Two-pointer merge of sorted entry lists; sign is +1 for a sum, -1 for a
// difference.  Matching positions combine; the others pass through.
KLOMatrix merge(const KLOMatrix& a, const KLOMatrix& b, double sign) {
  sort(a);
  sort(b);
  std::vector<int> pos;
  std::vector<double> val;
  const int na = a.nonzeros(), nb = b.nonzeros();
  int i = 0, j = 0;
  for (;;) {
    const int pa = i < na ? a.indices()[i] : INT_MAX;
    const int pb = j < nb ? b.indices()[j] : INT_MAX;
    if (pa == pb) {
      if (pa == INT_MAX) break;
      pos.push_back(pa);
      val.push_back(sign > 0 ? a.data()[i] + b.data()[j] : a.data()[i] - b.data()[j]);
      ++i;
      ++j;
    } else if (pa < pb) {
      pos.push_back(pa);
      val.push_back(a.data()[i++]);
    } else {
      pos.push_back(pb);
      val.push_back(sign > 0 ? b.data()[j] : -b.data()[j]);
      ++j;
    }
  }
  KLOMatrix result(a.rows(), a.cols(), static_cast<int>(pos.size()));
  std::copy(pos.begin(), pos.end(), result.indices());
  std::copy(val.begin(), val.end(), result.data());
  return result;
}

}  // namespace

KLOMatrix KLOMatrix::operator+(const KLOMatrix& other) const { return merge(*this, other, 1.0); }

KLOMatrix KLOMatrix::operator-(const KLOMatrix& other) const { return merge(*this, other, -1.0); }
