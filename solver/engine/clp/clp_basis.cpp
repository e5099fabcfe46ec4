#include "engine/clp/clp_basis.h"

#include "klo_c.h"

namespace klo::engine {

int basisCode(ClpSimplex::Status s, double lower, double upper) {
  switch (s) {
    case ClpSimplex::basic: return KLO_BASIS_BASIC;
    case ClpSimplex::isFree:
    case ClpSimplex::superBasic: return KLO_BASIS_SUPERBASIC;
    default: break;
  }
  if (lower == upper) return KLO_BASIS_FIXED;
  return s == ClpSimplex::atUpperBound ? KLO_BASIS_UPPER : KLO_BASIS_LOWER;
}

ClpSimplex::Status clpStatus(int code, double lower, double upper) {
  const bool hasLower = lower > -KLO_INFINITY, hasUpper = upper < KLO_INFINITY;
  switch (code) {
    case KLO_BASIS_BASIC: return ClpSimplex::basic;
    case KLO_BASIS_SUPERBASIC:
      return hasLower || hasUpper ? ClpSimplex::superBasic : ClpSimplex::isFree;
    case KLO_BASIS_UPPER:
      if (hasUpper) return ClpSimplex::atUpperBound;
      break;
    default:
      if (hasLower) return ClpSimplex::atLowerBound;
      break;
  }
  if (hasLower) return ClpSimplex::atLowerBound;
  return hasUpper ? ClpSimplex::atUpperBound : ClpSimplex::isFree;
}

namespace {

// The value a nonbasic element takes for its status.
double valueFor(ClpSimplex::Status s, double lower, double upper, double current) {
  if (s == ClpSimplex::atLowerBound) return lower;
  if (s == ClpSimplex::atUpperBound) return upper;
  if (s == ClpSimplex::isFree) return 0.0;
  return current;
}

}  // namespace

bool loadBasis(ClpSimplex& m, const Problem& p) {
  if (p.colBasis.empty() && p.rowBasis.empty()) return false;
  m.createStatus();
  double* x = m.primalColumnSolution();
  for (int j = 0; j < p.numCols(); ++j) {
    int code = j < static_cast<int>(p.colBasis.size()) ? p.colBasis[j] : KLO_BASIS_LOWER;
    ClpSimplex::Status s = clpStatus(code, p.colLower[j], p.colUpper[j]);
    m.setColumnStatus(j, s);
    x[j] = valueFor(s, p.colLower[j], p.colUpper[j], x[j]);
  }
  double* act = m.primalRowSolution();
  for (int i = 0; i < p.numRows(); ++i) {
    int code = i < static_cast<int>(p.rowBasis.size()) ? p.rowBasis[i] : KLO_BASIS_BASIC;
    ClpSimplex::Status s = clpStatus(code, p.rowLower[i], p.rowUpper[i]);
    m.setRowStatus(i, s);
    act[i] = valueFor(s, p.rowLower[i], p.rowUpper[i], act[i]);
  }
  return true;
}

void readBasis(const ClpSimplex& m, Result& r) {
  const int n = m.numberColumns(), rows = m.numberRows();
  r.colBasis.resize(n);
  r.rowBasis.resize(rows);
  for (int j = 0; j < n; ++j)
    r.colBasis[j] = basisCode(m.getColumnStatus(j), m.columnLower()[j], m.columnUpper()[j]);
  for (int i = 0; i < rows; ++i)
    r.rowBasis[i] = basisCode(m.getRowStatus(i), m.rowLower()[i], m.rowUpper()[i]);
}

}  // namespace klo::engine
