#include "store/sparse.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numeric>
#include <string>
#include <utility>

#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"
#include "store/checks.h"

namespace klo {
namespace {

void requireArrays(int n, std::initializer_list<const void*> arrays) {
  bool missing = false;
  for (const void* a : arrays) missing = missing || a == nullptr;
  if (n > 0 && missing)
    fail(KLO_ERROR_NULL_ARGUMENT,
         "Index or value array is null for " + std::to_string(n) + " entries");
}

void checkVarIndex(int j, int count, Kind kind = Kind::Var) {
  if (j < 0 || j >= count)
    fail(invalidIndexCode(kind), std::string(kindName(kind)) + " index " + std::to_string(j) +
                                     " is out of range (the model has " + std::to_string(count) +
                                     ")");
}

// Sorts (key, value) pairs by key, sums equal keys and drops zeros.  Finite
// entries can sum past the largest double: such a sum is refused too.
template <class K>
void normalise(std::vector<std::pair<K, double>>& e) {
  std::stable_sort(e.begin(), e.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  size_t out = 0;
  for (size_t i = 0; i < e.size();) {
    K key = e[i].first;
    double sum = 0.0;
    for (; i < e.size() && e[i].first == key; ++i) sum += e[i].second;
    checkCoef(sum, "The sum of one term's coefficients");
    if (sum != 0.0) e[out++] = {key, sum};
  }
  e.resize(out);
}

using QuadEntries = std::vector<std::pair<std::pair<int, int>, double>>;
using SymEntries = std::vector<std::pair<int, double>>;

// Normal forms from (key, value) entries in any order.
QuadTerms quadFrom(QuadEntries e) {
  normalise(e);
  QuadTerms q;
  for (const auto& [ij, a] : e) {
    q.row.push_back(ij.first);
    q.col.push_back(ij.second);
    q.val.push_back(a);
  }
  return q;
}

SymMatrix symFrom(SymEntries e) {
  normalise(e);
  SymMatrix m;
  for (const auto& [p, a] : e) {
    m.pos.push_back(p);
    m.val.push_back(a);
  }
  return m;
}

// One triangle stands for the whole matrix: an entry whose mirror is not
// given is moved to the upper triangle; one whose mirror is given must
// equal it (a matrix given whole), else the matrix is not symmetric.
SymEntries foldToUpper(const SymEntries& full, int dim) {
  auto valueAt = [&](int p) -> const double* {
    auto it = std::lower_bound(full.begin(), full.end(), p,
                               [](const auto& e, int key) { return e.first < key; });
    return it != full.end() && it->first == p ? &it->second : nullptr;
  };
  SymEntries upper;
  for (const auto& [p, v] : full) {
    const int r = p / dim, c = p % dim, mirror = c * dim + r;
    const double* m = r == c ? nullptr : valueAt(mirror);
    if (m && std::fabs(*m - v) > 1e-12 * std::max({1.0, std::fabs(v), std::fabs(*m)}))
      fail(KLO_ERROR_INVALID_ARGUMENT, "The matrix is not symmetric: entry (" + std::to_string(r) +
                                           ", " + std::to_string(c) + ") is " + formatDouble(v) +
                                           " and entry (" + std::to_string(c) + ", " +
                                           std::to_string(r) + ") " + formatDouble(*m));
    if (r <= c || !m) upper.push_back({std::min(p, mirror), v});
  }
  return upper;
}

}  // namespace

SparseVec makeSparse(int n, const int* ind, const double* val, int count, Kind kind) {
  checkCount(n, "Number of entries");
  requireArrays(n, {ind, val});
  bool normal = true;  // sorted, unique, no zero: taken as given
  for (int k = 0; k < n; ++k) {
    checkVarIndex(ind[k], count, kind);
    checkCoef(val[k], "Coefficient");
    normal = normal && val[k] != 0.0 && (k == 0 || ind[k - 1] < ind[k]);
  }
  SparseVec v;
  if (normal) {
    v.ind.assign(ind, ind + n);
    v.val.assign(val, val + n);
    return v;
  }
  std::vector<std::pair<int, double>> e(n);
  for (int k = 0; k < n; ++k) e[k] = {ind[k], val[k]};
  normalise(e);
  v.ind.reserve(e.size());
  v.val.reserve(e.size());
  for (const auto& [j, a] : e) {
    v.ind.push_back(j);
    v.val.push_back(a);
  }
  return v;
}

QuadTerms makeQuad(int n, const int* row, const int* col, const double* val, int numVars) {
  checkCount(n, "Number of quadratic terms");
  requireArrays(n, {row, col, val});
  QuadEntries e(n);
  for (int k = 0; k < n; ++k) {
    checkVarIndex(row[k], numVars);
    checkVarIndex(col[k], numVars);
    checkCoef(val[k], "Quadratic coefficient");
    e[k] = {{std::min(row[k], col[k]), std::max(row[k], col[k])}, val[k]};
  }
  return quadFrom(std::move(e));
}

SymMatrix makeSym(int n, const int* pos, const double* val, int dim) {
  checkCount(n, "Number of matrix entries");
  requireArrays(n, {pos, val});
  long long size = static_cast<long long>(dim) * dim;
  SymEntries full(n);
  for (int k = 0; k < n; ++k) {
    if (pos[k] < 0 || pos[k] >= size)
      fail(KLO_ERROR_INVALID_ARGUMENT, "Matrix position " + std::to_string(pos[k]) +
                                           " is outside a " + std::to_string(dim) + " x " +
                                           std::to_string(dim) + " matrix");
    checkCoef(val[k], "Matrix coefficient");
    full[k] = {pos[k], val[k]};
  }
  normalise(full);
  return symFrom(foldToUpper(full, dim));
}

QuadTerms addQuad(const QuadTerms& a, const QuadTerms& b) {
  QuadEntries e;
  e.reserve(a.size() + b.size());
  for (const QuadTerms* q : {&a, &b})
    for (int k = 0; k < q->size(); ++k) e.push_back({{q->row[k], q->col[k]}, q->val[k]});
  return quadFrom(std::move(e));
}

SymMatrix addSym(const SymMatrix& a, const SymMatrix& b) {
  SymEntries e;
  for (const SymMatrix* m : {&a, &b})
    for (int k = 0; k < m->size(); ++k) e.push_back({m->pos[k], m->val[k]});
  return symFrom(std::move(e));
}

size_t quadPosition(const QuadTerms& q, int i, int j) {
  size_t lo = 0, hi = q.row.size();
  // The common case first: a term past the last one.
  if (hi == 0 || std::make_pair(q.row[hi - 1], q.col[hi - 1]) < std::make_pair(i, j)) return hi;
  while (lo < hi) {
    const size_t mid = lo + (hi - lo) / 2;
    if (std::make_pair(q.row[mid], q.col[mid]) < std::make_pair(i, j)) {
      lo = mid + 1;
    } else {
      hi = mid;
    }
  }
  return lo;
}

void setQuadAt(QuadTerms& q, size_t at, int i, int j, double value) {
  if (at < q.row.size() && q.row[at] == i && q.col[at] == j) {
    const double sum = 0.0 + q.val[at] + value;
    if (sum != 0.0) {
      q.val[at] = sum;
      return;
    }
    q.row.erase(q.row.begin() + at);
    q.col.erase(q.col.begin() + at);
    q.val.erase(q.val.begin() + at);
    return;
  }
  q.row.insert(q.row.begin() + at, i);
  q.col.insert(q.col.begin() + at, j);
  q.val.insert(q.val.begin() + at, value);
}

double coefAt(const SparseVec& v, int j) {
  auto it = std::lower_bound(v.ind.begin(), v.ind.end(), j);
  return it != v.ind.end() && *it == j ? v.val[it - v.ind.begin()] : 0.0;
}

void setCoefAt(SparseVec& v, int j, double value) {
  auto it = std::lower_bound(v.ind.begin(), v.ind.end(), j);
  size_t k = it - v.ind.begin();
  bool present = it != v.ind.end() && *it == j;
  if (present && value == 0.0) {
    v.ind.erase(it);
    v.val.erase(v.val.begin() + k);
  } else if (present) {
    v.val[k] = value;
  } else if (value != 0.0) {
    v.ind.insert(it, j);
    v.val.insert(v.val.begin() + k, value);
  }
}

void renumber(SparseVec& v, const std::vector<int>& newIndex) {
  size_t out = 0;
  for (size_t k = 0; k < v.ind.size(); ++k) {
    int j = newIndex[v.ind[k]];
    if (j < 0) continue;
    v.ind[out] = j;
    v.val[out++] = v.val[k];
  }
  v.ind.resize(out);
  v.val.resize(out);
}

void renumber(QuadTerms& q, const std::vector<int>& newIndex) {
  size_t out = 0;
  for (size_t k = 0; k < q.row.size(); ++k) {
    int i = newIndex[q.row[k]], j = newIndex[q.col[k]];
    if (i < 0 || j < 0) continue;
    q.row[out] = i;
    q.col[out] = j;
    q.val[out++] = q.val[k];
  }
  q.row.resize(out);
  q.col.resize(out);
  q.val.resize(out);
}

std::vector<int> deletionMap(int count, int n, const int* ind) {
  std::vector<int> newIndex(count, 0);
  for (int k = 0; k < n; ++k) newIndex[ind[k]] = -1;
  int next = 0;
  for (int i = 0; i < count; ++i)
    if (newIndex[i] == 0) newIndex[i] = next++;
  return newIndex;
}

std::vector<bool> keptFlags(const std::vector<int>& newIndex) {
  std::vector<bool> keep(newIndex.size());
  for (size_t i = 0; i < newIndex.size(); ++i) keep[i] = newIndex[i] >= 0;
  return keep;
}

}  // namespace klo
