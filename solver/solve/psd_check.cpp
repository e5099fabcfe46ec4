#include "solve/psd_check.h"

#include <algorithm>
#include <cmath>

#include "common/eigenvalues.h"

namespace klo {
namespace {

// How far below 0 the smallest eigenvalue lies, relative to the largest in
// magnitude (at least 1); 0 for a semidefinite matrix.
double negativePart(const std::vector<double>& dense, int dim) {
  const std::vector<double> eig = symmetricEigenvalues(dense, dim);
  if (eig.empty()) return 1.0;  // no convergence: not shown semidefinite
  const double radius = std::max({1.0, std::fabs(eig.front()), std::fabs(eig.back())});
  return std::max(0.0, -eig.front()) / radius;
}

// Adds factor * m (upper-triangle entries) to the dense dim x dim matrix.
void addSym(std::vector<double>& dense, const engine::SymMatrix& m, int dim, double factor) {
  for (size_t q = 0; q < m.pos.size(); ++q) {
    const int r = m.pos[q] / dim, c = m.pos[q] % dim;
    dense[static_cast<size_t>(r) * dim + c] += factor * m.val[q];
    if (r != c) dense[static_cast<size_t>(c) * dim + r] += factor * m.val[q];
  }
}

}  // namespace

double psdPrimalViolation(const engine::Problem& p, const engine::PsdValues& x) {
  double worst = 0.0;
  for (size_t k = 0; k < p.psdVars.size() && k < x.size(); ++k)
    worst = std::max(worst, negativePart(x[k], p.psdVars[k].dim));
  return worst;
}

PsdDualFigures psdDualFigures(const engine::Problem& p, const engine::PsdValues& x,
                              const std::vector<double>& y) {
  std::vector<std::vector<double>> slack;
  for (const engine::PsdVar& v : p.psdVars) {
    slack.emplace_back(static_cast<size_t>(v.dim) * v.dim, 0.0);
    addSym(slack.back(), v.obj, v.dim, p.sense);
  }
  for (const engine::PsdTerm& t : p.psdTerms)
    addSym(slack[t.psdVar], t.mat, p.psdVars[t.psdVar].dim, -p.sense * y[t.row]);
  PsdDualFigures f;
  for (size_t k = 0; k < slack.size() && k < x.size(); ++k) {
    f.violation = std::max(f.violation, negativePart(slack[k], p.psdVars[k].dim));
    for (size_t e = 0; e < slack[k].size(); ++e) f.gap += slack[k][e] * x[k][e];
  }
  return f;
}

}  // namespace klo
