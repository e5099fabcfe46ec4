#include "model/upper_triangle.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace klo_detail {

namespace {

// The library's test for a matrix given whole: mirror entries equal to
// within a relative 1e-12.
bool mirrorsAgree(double a, double b) {
  return std::fabs(a - b) <= 1e-12 * std::max({1.0, std::fabs(a), std::fabs(b)});
}

}  // namespace

bool foldToUpper(KLOMatrix& M) {
  const int n = M.rows();
  if (M.cols() != n) return false;
  std::map<int, double> given;
  for (int k = 0; k < M.nonzeros(); ++k) {
    const int p = M.indices()[k];
    if (p < 0 || p >= n * n) return false;
    given[p] += M.data()[k];
  }
  std::map<int, double> upper;
  for (const auto& [p, v] : given) {
    const int r = p / n, c = p % n, mirror = c * n + r;
    const auto m = given.find(mirror);
    if (r == c || m == given.end()) {
      upper[std::min(p, mirror)] = v;
    } else if (!mirrorsAgree(v, m->second)) {
      return false;
    } else if (r < c) {
      upper[p] = v;
    }
  }
  KLOMatrix folded(n, n, static_cast<int>(upper.size()));
  int k = 0;
  for (const auto& [p, v] : upper) {
    folded.indices()[k] = p;
    folded.data()[k++] = v;
  }
  M = folded;
  return true;
}

}  // namespace klo_detail
