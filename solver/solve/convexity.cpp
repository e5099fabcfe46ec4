#include "solve/convexity.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <string>
#include <vector>

#include "common/error.h"
#include "klo_c.h"
#include "common/eigenvalues.h"

extern "C" void dpotrf_(const char* uplo, const int* n, double* a, const int* lda, int* info);

namespace klo {
namespace {

// Quadratic data often carries six significant digits: a Gram matrix so
// rounded (values: 202 columns) has eigenvalues down to -1.2e-6 times its
// largest one.
constexpr double kRelativeTolerance = 1e-5;

// Groups the variables that quadratic terms connect.
class Blocks {
 public:
  explicit Blocks(const engine::QuadTerms& q) {
    for (int t = 0; t < q.size(); ++t) join(local(q.row[t]), local(q.col[t]));
  }
  // The variables of each connected block, in the order first met.
  std::vector<std::vector<int>> list() {
    std::map<int, std::vector<int>> byRoot;
    std::vector<std::vector<int>> out;
    for (const auto& [column, k] : local_) byRoot[find(k)].push_back(column);
    for (auto& [root, columns] : byRoot) out.push_back(std::move(columns));
    return out;
  }

 private:
  int local(int column) {
    auto [it, added] = local_.emplace(column, static_cast<int>(parent_.size()));
    if (added) parent_.push_back(it->second);
    return it->second;
  }
  int find(int k) {
    while (parent_[k] != k) k = parent_[k] = parent_[parent_[k]];
    return k;
  }
  void join(int a, int b) { parent_[find(a)] = find(b); }

  std::map<int, int> local_;
  std::vector<int> parent_;
};

// The block's symmetric matrix, column-major, scaled by sign.
std::vector<double> denseBlock(const engine::QuadTerms& q, const std::vector<int>& columns,
                               int sign) {
  const int k = static_cast<int>(columns.size());
  std::map<int, int> at;
  for (int i = 0; i < k; ++i) at[columns[i]] = i;
  std::vector<double> a(static_cast<size_t>(k) * k, 0.0);
  for (int t = 0; t < q.size(); ++t) {
    auto r = at.find(q.row[t]), c = at.find(q.col[t]);
    if (r == at.end() || c == at.end()) continue;
    const double v = sign * q.val[t];
    if (r->second == c->second) {
      a[static_cast<size_t>(r->second) * k + r->second] += v;
    } else {
      a[static_cast<size_t>(r->second) * k + c->second] += v / 2;
      a[static_cast<size_t>(c->second) * k + r->second] += v / 2;
    }
  }
  return a;
}

// The fast way to a yes: a Cholesky factorisation of A + tI, with t the
// tolerance times A's largest diagonal entry (at most its largest
// eigenvalue when A is semidefinite), exists only when no eigenvalue of A
// is below -t, a test at least as strict as the eigenvalues' below and a
// quarter of their work.
bool choleskyWithShift(const std::vector<double>& a, int k) {
  double diagonal = 0.0;
  for (int i = 0; i < k; ++i) diagonal = std::max(diagonal, a[static_cast<size_t>(i) * k + i]);
  std::vector<double> shifted = a;
  for (int i = 0; i < k; ++i)
    shifted[static_cast<size_t>(i) * k + i] += kRelativeTolerance * diagonal;
  int info = 0;
  dpotrf_("L", &k, shifted.data(), &k, &info);
  return info == 0;
}

// Whether the dense symmetric k x k matrix is positive semidefinite: its
// smallest eigenvalue no further below 0 than the tolerance times its
// spectral radius.  (The pivots of an LDL' factorisation do not show how
// far from semidefinite a matrix is: values, whose smallest eigenvalue is
// -1.2e-6 of its largest, gives a pivot of -0.28.)
bool positiveSemidefinite(std::vector<double> a, int k) {
  if (k == 1) return a[0] >= 0;
  if (choleskyWithShift(a, k)) return true;
  const std::vector<double> eig = symmetricEigenvalues(std::move(a), k);
  if (eig.empty()) return false;  // no convergence: not shown semidefinite
  const double radius = std::max(std::fabs(eig.front()), std::fabs(eig.back()));
  return eig.front() >= -kRelativeTolerance * radius;
}

// Row r's linear coefficients, by column.
std::map<int, double> linearPart(const engine::Problem& p, int r) {
  std::map<int, double> out;
  const int majors = static_cast<int>(p.start.size()) - 1;
  for (int k = 0; k < majors; ++k)
    for (int e = p.start[k]; e < p.start[k + 1]; ++e) {
      if (p.columnMajor && p.index[e] == r) out[k] += p.value[e];
      if (!p.columnMajor && k == r) out[p.index[e]] += p.value[e];
    }
  return out;
}

}  // namespace

// Blocks of more columns are not made dense (k^2 doubles of memory, k^3
// work): they pass when diagonally dominant and are refused otherwise.
constexpr size_t kDenseLimit = 4000;

// Gershgorin: a symmetric matrix whose every diagonal entry is at least
// the sum of its row's off-diagonal magnitudes is positive semidefinite.
bool diagonallyDominant(const engine::QuadTerms& q, const std::vector<int>& columns, int sign) {
  std::map<int, double> margin;
  for (int j : columns) margin[j] = 0.0;
  for (int t = 0; t < q.size(); ++t) {
    auto r = margin.find(q.row[t]), c = margin.find(q.col[t]);
    if (r == margin.end() || c == margin.end()) continue;
    if (r == c) {
      r->second += sign * q.val[t];
    } else {
      r->second -= std::fabs(q.val[t]) / 2;  // the term is two entries of v / 2
      c->second -= std::fabs(q.val[t]) / 2;
    }
  }
  return std::all_of(margin.begin(), margin.end(), [](const auto& m) { return m.second >= 0; });
}

bool semidefinite(const engine::QuadTerms& q, int sign) {
  for (const std::vector<int>& columns : Blocks(q).list()) {
    if (columns.size() > kDenseLimit) {
      if (diagonallyDominant(q, columns, sign)) continue;
      fail(KLO_ERROR_NOT_SUPPORTED,
           "a block of " + std::to_string(columns.size()) +
               " coupled columns of quadratic terms is too large to check for convexity (more "
               "than " +
               std::to_string(kDenseLimit) + " and not diagonally dominant)");
    }
    if (!positiveSemidefinite(denseBlock(q, columns, sign), static_cast<int>(columns.size())))
      return false;
  }
  return true;
}

bool coneRow(const engine::Problem& p, int r, const engine::QuadTerms& q) {
  const bool upper = p.rowUpper[r]<KLO_INFINITY, lower = p.rowLower[r]> - KLO_INFINITY;
  if (upper == lower) return false;
  const double s = upper ? 1.0 : -1.0;  // the row as  s (q + a'x) <= K
  double k = upper ? p.rowUpper[r] : -p.rowLower[r];
  std::map<int, double> diag;
  std::vector<int> cross;  // the off-diagonal terms
  for (int t = 0; t < q.size(); ++t) {
    if (q.row[t] == q.col[t])
      diag[q.row[t]] += s * q.val[t];
    else
      cross.push_back(t);
  }
  // The cone's apex side: t (and u) with a negative coefficient.
  std::vector<int> apex;
  if (cross.size() == 1) {
    const int t = cross[0];
    if (s * q.val[t] >= 0 || diag.count(q.row[t]) || diag.count(q.col[t])) return false;
    apex = {q.row[t], q.col[t]};
  } else if (!cross.empty()) {
    return false;
  }
  for (const auto& [j, d] : diag) {
    if (d >= 0) continue;
    if (!cross.empty() || !apex.empty()) return false;
    apex = {j};
  }
  if (apex.empty()) return false;
  for (int j : apex)
    if (p.colLower[j] < 0) return false;
  // Linear terms complete the squares of the other side.
  for (const auto& [j, a] : linearPart(p, r)) {
    if (a == 0) continue;
    auto it = diag.find(j);
    if (it == diag.end() || it->second <= 0) return false;
    k += a * a / (4 * it->second);
  }
  return k <= 0;
}

Convexity checkConvexity(const engine::Problem& p) {
  if (p.objQuad.size() > 0 && !semidefinite(p.objQuad, p.sense)) return Convexity{false, -1};
  for (const engine::QuadRow& qr : p.quadRows) {
    const int r = qr.row;
    const bool upper = p.rowUpper[r]<KLO_INFINITY, lower = p.rowLower[r]> - KLO_INFINITY;
    if (!upper && !lower) continue;
    bool convex;
    if (upper && lower)
      convex =
          std::all_of(qr.terms.val.begin(), qr.terms.val.end(), [](double v) { return v == 0; });
    else
      convex = semidefinite(qr.terms, upper ? 1 : -1) || coneRow(p, r, qr.terms);
    if (!convex) return Convexity{false, r};
  }
  return Convexity{};
}

}  // namespace klo
