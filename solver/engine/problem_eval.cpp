#include "engine/problem_eval.h"

#include <algorithm>
#include <cmath>

namespace klo::engine {

std::vector<double> rowActivities(const Problem& p, const double* x) {
  std::vector<double> act(p.numRows(), 0.0);
  const int majors = static_cast<int>(p.start.size()) - 1;
  for (int k = 0; k < majors; ++k) {
    for (int e = p.start[k]; e < p.start[k + 1]; ++e) {
      if (p.columnMajor)
        act[p.index[e]] += p.value[e] * x[k];
      else
        act[k] += p.value[e] * x[p.index[e]];
    }
  }
  return act;
}

double objectiveOf(const Problem& p, const double* x) {
  double v = p.objConstant;
  for (int j = 0; j < p.numCols(); ++j) v += p.obj[j] * x[j];
  return v;
}

namespace {

double boundViolation(double v, double lo, double up) {
  double viol = 0.0;
  if (lo > -kInfinity) viol = std::max(viol, lo - v);
  if (up < kInfinity) viol = std::max(viol, v - up);
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
    double outside = 0.0;
    for (size_t k = 0; k < order.size(); ++k)
      if (k < first || k >= first + allowed) outside = std::max(outside, std::fabs(x[order[k].second]));
    worst = first == 0 ? outside : std::min(worst, outside);
  }
  return worst;
}

}  // namespace

double maxViolation(const Problem& p, const double* x, bool integers) {
  double viol = 0.0;
  for (int j = 0; j < p.numCols(); ++j) {
    viol = std::max(viol, boundViolation(x[j], p.colLower[j], p.colUpper[j]));
    if (integers && p.colType[j] != 'C') viol = std::max(viol, std::fabs(x[j] - std::round(x[j])));
  }
  std::vector<double> act = rowActivities(p, x);
  for (int i = 0; i < p.numRows(); ++i)
    viol = std::max(viol, boundViolation(act[i], p.rowLower[i], p.rowUpper[i]));
  if (integers)
    for (const SosSet& s : p.sos) viol = std::max(viol, sosViolation(s, x));
  return viol;
}

}  // namespace klo::engine
