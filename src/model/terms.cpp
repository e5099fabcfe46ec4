#include "model/terms.h"

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <utility>

#include "env/check.h"
#include "klo_c.h"
#include "model/access.h"
#include "model/upper_triangle.h"

namespace klo_detail {

Bounds senseToBounds(char sense, double rhs) {
  if (sense == '>') return {rhs, KLO_INFINITY};
  if (sense == '=') return {rhs, rhs};
  return {-KLO_INFINITY, rhs};
}

double shifted(double bound, double constant) {
  return bound > -KLO_INFINITY && bound < KLO_INFINITY ? bound - constant : bound;
}

template <class H>
int liveIndex(const H& h, int code) {
  const int k = h.index();
  if (k < 0) raise(code);
  return k;
}

template int liveIndex(const KLOVar&, int);
template int liveIndex(const KLOPsdVar&, int);
template int liveIndex(const KLOSOS&, int);
template int liveIndex(const KLOGenConstr&, int);

namespace {

// Positions 0 .. keys.size()-1 ordered by key, equal keys in position
// order: the groups of like terms, in the order the library gets them.
template <class Key>
std::vector<std::size_t> byKey(const std::vector<Key>& keys) {
  std::vector<std::size_t> order(keys.size());
  for (std::size_t k = 0; k < order.size(); ++k) order[k] = k;
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return keys[a] < keys[b] || (keys[a] == keys[b] && a < b);
  });
  return order;
}

// The end of the group of equal keys that starts at order[first].
template <class Key>
std::size_t groupEnd(const std::vector<Key>& keys, const std::vector<std::size_t>& order,
                     std::size_t first) {
  std::size_t last = first + 1;
  while (last < order.size() && keys[order[last]] == keys[order[first]]) ++last;
  return last;
}

bool strictlyAscending(const std::vector<int>& v) {
  for (std::size_t k = 1; k < v.size(); ++k)
    if (v[k - 1] >= v[k]) return false;
  return true;
}

// Terms ordered by index, like terms in their given order: in place for
// the short rows models are mostly made of.
void sortByIndex(std::vector<int>& ind, std::vector<double>& val) {
  constexpr std::size_t kShort = 32;
  if (ind.size() <= kShort) {
    for (std::size_t k = 1; k < ind.size(); ++k)
      for (std::size_t j = k; j > 0 && ind[j - 1] > ind[j]; --j) {
        std::swap(ind[j - 1], ind[j]);
        std::swap(val[j - 1], val[j]);
      }
    return;
  }
  std::vector<std::pair<int, double>> terms(ind.size());
  for (std::size_t k = 0; k < ind.size(); ++k) terms[k] = {ind[k], val[k]};
  std::stable_sort(terms.begin(), terms.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (std::size_t k = 0; k < ind.size(); ++k) std::tie(ind[k], val[k]) = terms[k];
}

// Like terms summed from the last occurrence back to the first, as
// combineLikeTerms sums them.
void mergeLinear(std::vector<int>& ind, std::vector<double>& val) {
  sortByIndex(ind, val);
  std::size_t out = 0;
  for (std::size_t first = 0; first < ind.size();) {
    std::size_t end = first + 1;
    while (end < ind.size() && ind[end] == ind[first]) ++end;
    double sum = val[end - 1];
    for (std::size_t k = end - 1; k-- > first;) sum = sum + val[k];
    ind[out] = ind[first];
    val[out++] = sum;
    first = end;
  }
  ind.resize(out);
  val.resize(out);
}

}  // namespace

LinearTerms::LinearTerms(const KLOLinExpr& e) {
  const std::size_t n = static_cast<std::size_t>(e.size());
  const double* coeffs = Access::data(Access::coeffs(e));
  const KLOVar* vars = Access::data(Access::vars(e));
  ind.resize(n);
  val.assign(coeffs, coeffs + n);
  for (std::size_t k = 0; k < n; ++k) ind[k] = vars[k].index();
  if (!strictlyAscending(ind)) mergeLinear(ind, val);
  for (int j : ind)
    if (j < 0) raise(KLO_ERROR_INVALID_VAR);
}

// Keyed by the pair as given, as combineLikeQTerms keys it: x*y and y*x
// stay apart, coefficients summed first to last, the larger index first.
QuadTerms::QuadTerms(const KLOQuadExpr& q) {
  const std::size_t n = static_cast<std::size_t>(q.size());
  const double* coeffs = Access::data(Access::coeffs(q));
  const KLOVar* vars1 = Access::data(Access::vars1(q));
  const KLOVar* vars2 = Access::data(Access::vars2(q));
  std::vector<std::int64_t> keys(n);
  for (std::size_t k = 0; k < n; ++k) {
    const int a = vars1[k].index();
    const int b = vars2[k].index();
    keys[k] = static_cast<std::int64_t>(static_cast<std::uint64_t>(a) << 32) +
              static_cast<std::int64_t>(b);
  }
  const std::vector<std::size_t> order = byKey(keys);
  for (std::size_t first = 0; first < n;) {
    const std::size_t end = groupEnd(keys, order, first);
    double sum = coeffs[order[first]];
    for (std::size_t k = first + 1; k < end; ++k) sum += coeffs[order[k]];
    const int a = vars1[order[first]].index(), b = vars2[order[first]].index();
    row.push_back(std::max(a, b));
    col.push_back(std::min(a, b));
    val.push_back(sum);
    first = end;
  }
  for (std::size_t k = 0; k < row.size(); ++k)
    if (row[k] < 0 || col[k] < 0) raise(KLO_ERROR_INVALID_VAR);
}

namespace {

// Whether term i of P shares its PSD variable with another term.
bool sharesItsVariable(const KLOPsdExpr& P, int i) {
  for (int k = 0; k < P.size(); ++k)
    if (k != i && P.getPsdVar(k).sameAs(P.getPsdVar(i))) return true;
  return false;
}

}  // namespace

void mergePsdTerms(const KLOPsdExpr& P, std::vector<KLOMatrix>& matrices,
                   std::vector<KLOPsdVar>& vars) {
  for (int i = 0; i < P.size(); ++i) {
    KLOMatrix M = P.getCoeff(i);
    // A matrix summed with others is first read as the library reads it.
    if (sharesItsVariable(P, i) && !foldToUpper(M)) {
      // The library refuses this matrix in any sum, with its own message;
      // alone, no other term can mask what is wrong with it.
      matrices.assign(1, M);
      vars.assign(1, P.getPsdVar(i));
      return;
    }
    matrices.push_back(M);
    vars.push_back(P.getPsdVar(i));
  }
  combineLikeTerms(matrices, vars);
}

PsdTerms::PsdTerms(const KLOPsdExpr& P) {
  std::vector<KLOMatrix> matrices;
  std::vector<KLOPsdVar> vars;
  mergePsdTerms(P, matrices, vars);
  for (std::size_t k = 0; k < vars.size(); ++k) {
    var.push_back(liveIndex(vars[k], KLO_ERROR_INVALID_VAR));
    beg.push_back(static_cast<int>(ind.size()));
    const KLOMatrix& M = matrices[k];
    ind.insert(ind.end(), M.indices(), M.indices() + M.nonzeros());
    val.insert(val.end(), M.data(), M.data() + M.nonzeros());
  }
  beg.push_back(static_cast<int>(ind.size()));
}

std::vector<const char*> cNames(const std::string* names, int count) {
  std::vector<const char*> out;
  if (!names) return out;
  for (int j = 0; j < count; ++j) out.push_back(names[j].c_str());
  return out;
}

KLOVar libraryVar(const std::vector<KLOVar>& vars, int index) {
  if (index < 0 || index >= static_cast<int>(vars.size())) raise(KLO_ERROR_INVALID_VAR);
  return vars[static_cast<std::size_t>(index)];
}

}  // namespace klo_detail
