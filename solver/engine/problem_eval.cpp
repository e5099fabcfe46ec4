#include "engine/problem_eval.h"

#include <algorithm>
#include <cmath>

#include "klo_c.h"

namespace klo::engine {
namespace {

// <m, X> for a symmetric m of one triangle and a full X.
double innerProduct(const SymMatrix& m, const std::vector<double>& x, int dim) {
  double v = 0.0;
  for (size_t k = 0; k < m.pos.size(); ++k) {
    const int r = m.pos[k] / dim, c = m.pos[k] % dim;
    v += (r == c ? 1.0 : 2.0) * m.val[k] * x[static_cast<size_t>(m.pos[k])];
  }
  return v;
}

void addLinear(const Problem& p, const double* x, std::vector<double>& act,
               std::vector<double>* largest) {
  const int majors = static_cast<int>(p.start.size()) - 1;
  for (int k = 0; k < majors; ++k)
    for (int e = p.start[k]; e < p.start[k + 1]; ++e) {
      const int row = p.columnMajor ? p.index[e] : k;
      const double term = p.value[e] * x[p.columnMajor ? k : p.index[e]];
      act[row] += term;
      if (largest) (*largest)[row] = std::max((*largest)[row], std::fabs(term));
    }
}

// Violation of [lo, up] by v, relative to the larger of the bound it
// violates and scale.
// (Crossed bounds are violated on both sides.)
double outside(double v, double lo, double up, double scale = 1.0) {
  double viol = 0.0;
  if (lo > -KLO_INFINITY && v < lo) viol = (lo - v) / std::max(scale, std::fabs(lo));
  if (up < KLO_INFINITY && v > up) viol = std::max(viol, (v - up) / std::max(scale, std::fabs(up)));
  return viol;
}

// Non-zero members beyond what the set allows, measured by their size.
double sosViolation(const SosSet& s, const double* x) {
  std::vector<std::pair<double, int>> order;
  for (size_t k = 0; k < s.members.size(); ++k) order.emplace_back(s.weights[k], s.members[k]);
  std::sort(order.begin(), order.end());
  const size_t allowed = static_cast<size_t>(s.type);
  double worst = 0.0;
  // The best window of `allowed` consecutive members keeps its values;
  // everything outside it counts as violation.
  for (size_t first = 0; first < std::max<size_t>(order.size(), 1); ++first) {
    double out = 0.0;
    for (size_t k = 0; k < order.size(); ++k)
      if (k < first || k >= first + allowed) out = std::max(out, std::fabs(x[order[k].second]));
    worst = first == 0 ? out : std::min(worst, out);
  }
  return worst;
}

// A semi-continuous column is 0 or within its bounds (integral if 'N').
double columnViolation(const Problem& p, int j, double v) {
  const bool semi = p.colType[j] == KLO_SEMICONT || p.colType[j] == KLO_SEMIINT;
  return semi && v == 0.0 ? 0.0 : outside(v, p.colLower[j], p.colUpper[j]);
}

}  // namespace

double quadValue(const QuadTerms& q, const double* x, double* largest) {
  double v = 0.0;
  for (int t = 0; t < q.size(); ++t) {
    const double term = q.val[t] * x[q.row[t]] * x[q.col[t]];
    v += term;
    if (largest) *largest = std::max(*largest, std::fabs(term));
  }
  return v;
}

std::vector<double> rowActivities(const Problem& p, const double* x, const PsdValues* psdX,
                                  std::vector<double>* largest) {
  std::vector<double> act(p.numRows(), 0.0);
  if (largest) largest->assign(p.numRows(), 0.0);
  addLinear(p, x, act, largest);
  for (const QuadRow& q : p.quadRows)
    act[q.row] += quadValue(q.terms, x, largest ? &(*largest)[q.row] : nullptr);
  if (psdX)
    for (const PsdTerm& t : p.psdTerms) {
      const double term = innerProduct(t.mat, (*psdX)[t.psdVar], p.psdVars[t.psdVar].dim);
      act[t.row] += term;
      if (largest) (*largest)[t.row] = std::max((*largest)[t.row], std::fabs(term));
    }
  return act;
}

double objectiveOf(const Problem& p, const double* x, const PsdValues* psdX) {
  double v = p.objConstant + quadValue(p.objQuad, x);
  for (int j = 0; j < p.numCols(); ++j) v += p.obj[j] * x[j];
  if (psdX)
    for (size_t k = 0; k < p.psdVars.size(); ++k)
      v += innerProduct(p.psdVars[k].obj, (*psdX)[k], p.psdVars[k].dim);
  return v;
}

std::vector<double> transposeTimes(const Problem& p, const std::vector<double>& y,
                                   std::vector<double>* largest) {
  std::vector<double> z(p.numCols(), 0.0);
  if (largest) largest->assign(p.numCols(), 0.0);
  const int majors = static_cast<int>(p.start.size()) - 1;
  for (int k = 0; k < majors; ++k)
    for (int e = p.start[k]; e < p.start[k + 1]; ++e) {
      const int j = p.columnMajor ? k : p.index[e];
      const double term = p.value[e] * y[p.columnMajor ? p.index[e] : k];
      z[j] += term;
      if (largest) (*largest)[j] = std::max((*largest)[j], std::fabs(term));
    }
  return z;
}

Violations primalViolations(const Problem& p, const double* x, const PsdValues* psdX,
                            std::vector<double>* activities, std::vector<double>* largest) {
  Violations v;
  for (int j = 0; j < p.numCols(); ++j) {
    v.bound = std::max(v.bound, columnViolation(p, j, x[j]));
    if (p.colType[j] != KLO_CONTINUOUS && p.colType[j] != KLO_SEMICONT)
      v.integrality = std::max(v.integrality, std::fabs(x[j] - std::round(x[j])));
  }
  std::vector<double> ownLargest;
  std::vector<double>& terms = largest ? *largest : ownLargest;
  const std::vector<double> act = rowActivities(p, x, psdX, &terms);
  for (int i = 0; i < p.numRows(); ++i)
    v.row = std::max(v.row, outside(act[i], p.rowLower[i], p.rowUpper[i], std::max(1.0, terms[i])));
  if (activities) *activities = act;
  for (const SosSet& s : p.sos) v.sos = std::max(v.sos, sosViolation(s, x));
  return v;
}

double maxViolation(const Problem& p, const double* x, bool integers) {
  const Violations v = primalViolations(p, x);
  return integers ? std::max({v.primal(), v.integrality, v.sos}) : v.primal();
}

}  // namespace klo::engine
