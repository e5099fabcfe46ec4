#include "solve/parity_proof.h"

#include <cmath>
#include <numeric>
#include <vector>

#include "klo_c.h"

namespace klo {
namespace {

// Coefficients beyond this are not taken as exact integers.
constexpr double kLargest = 1e9;
constexpr double kTolerance = 1e-9;

bool integerColumn(char t) { return t == KLO_INTEGER || t == KLO_BINARY; }

// The gcd of row i's coefficients on free columns, its fixed columns'
// sum in constant; 0 when a term is not integral or all are fixed.
long long rowGcd(const engine::Problem& p, int i, double& constant) {
  long long g = 0;
  constant = 0.0;
  for (int k = p.start[i]; k < p.start[i + 1]; ++k) {
    const int j = p.index[k];
    const double a = p.value[k];
    if (p.colLower[j] == p.colUpper[j]) {
      constant += a * p.colLower[j];
      continue;
    }
    if (!integerColumn(p.colType[j]) || std::fabs(a) > kLargest ||
        std::fabs(a - std::round(a)) > kTolerance)
      return 0;
    g = std::gcd(g, static_cast<long long>(std::llabs(std::llround(a))));
  }
  return g;
}

// Whether [lower, upper] holds a multiple of g (within the tolerance).
bool holdsMultiple(double lower, double upper, long long g) {
  if (lower <= -KLO_INFINITY || upper >= KLO_INFINITY) return true;
  const double gd = static_cast<double>(g);
  return std::ceil((lower - kTolerance) / gd) * gd <= upper + kTolerance;
}

}  // namespace

int rowWithoutIntegerSolution(const engine::Problem& p) {
  if (p.columnMajor) return -1;
  std::vector<bool> nonlinear(p.numRows(), false);
  for (const engine::QuadRow& q : p.quadRows) nonlinear[q.row] = true;
  for (const engine::PsdTerm& t : p.psdTerms) nonlinear[t.row] = true;
  for (int i = 0; i < p.numRows(); ++i) {
    if (nonlinear[i]) continue;
    double constant = 0.0;
    const long long g = rowGcd(p, i, constant);
    if (g > 0 && !holdsMultiple(p.rowLower[i] - constant, p.rowUpper[i] - constant, g)) return i;
  }
  return -1;
}

}  // namespace klo
