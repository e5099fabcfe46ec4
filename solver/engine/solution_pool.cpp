#include "engine/solution_pool.h"

#include <algorithm>
#include <cmath>

namespace klo::engine {

bool samePoint(const Problem& p, const Settings& s, const std::vector<double>& a,
               const std::vector<double>& b) {
  if (a.size() != b.size()) return false;
  for (size_t j = 0; j < a.size(); ++j) {
    const bool continuous = j >= p.colType.size() || p.colType[j] == 'C';
    const double tol =
        continuous ? s.primalTolerance * std::max(1.0, std::fabs(a[j])) : s.integerTolerance;
    if (!(std::fabs(a[j] - b[j]) <= tol)) return false;
  }
  return true;
}

void fillPool(Result& r, const Problem& p, const Settings& s,
              const std::vector<PoolSolution>& found) {
  std::vector<const PoolSolution*> order;
  for (const PoolSolution& q : found) order.push_back(&q);
  // Best first in the problem's sense; ties keep the order found.
  std::stable_sort(order.begin(), order.end(), [&](const PoolSolution* a, const PoolSolution* b) {
    return p.sense * a->objective < p.sense * b->objective;
  });
  const size_t size = static_cast<size_t>(std::min(s.solutionPoolSize, s.maxSolutions));
  r.pool.assign(1, PoolSolution{r.objective, r.x});
  for (const PoolSolution* q : order) {
    if (r.pool.size() >= size) break;
    const bool seen = std::any_of(r.pool.begin(), r.pool.end(), [&](const PoolSolution& kept) {
      return samePoint(p, s, kept.x, q->x);
    });
    if (!seen) r.pool.push_back(*q);
  }
}

}  // namespace klo::engine
