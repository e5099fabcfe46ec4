// The solution pool an adapter builds from the solutions it saw: repeats
// (within tolerance) kept once, best first, within both size limits.
#include "engine/solution_pool.h"

#include <gtest/gtest.h>

#include <vector>

namespace klotest {
namespace {

using klo::engine::PoolSolution;
using klo::engine::Problem;
using klo::engine::Result;
using klo::engine::Settings;

// Column 0 integer, column 1 continuous; the solve's own answer is
// (1, 2.5) with objective 10.
std::vector<std::vector<double>> pooled(int sense, const std::vector<PoolSolution>& found,
                                        int poolSize = 10, int maxSols = 1000) {
  Problem p;
  p.colType = {'I', 'C'};
  p.sense = sense;
  Settings s;
  s.solutionPoolSize = poolSize;
  s.maxSolutions = maxSols;
  Result r;
  r.objective = 10;
  r.x = {1, 2.5};
  klo::engine::fillPool(r, p, s, found);
  std::vector<std::vector<double>> xs;
  for (const PoolSolution& q : r.pool) xs.push_back(q.x);
  return xs;
}

TEST(SolutionPool, RepeatsGoAndTheBestComeFirst) {
  using X = std::vector<std::vector<double>>;
  // The answer itself again, off by less than the tolerances.
  const PoolSolution again{10, {1 + 1e-7, 2.5 + 1e-8}};
  const PoolSolution worse{14, {3, 2.5}}, worst{20, {4, 0}}, closeButApart{12, {1, 2.5 + 1e-3}};
  EXPECT_EQ(pooled(1, {worst, again, worse, again}), (X{{1, 2.5}, {3, 2.5}, {4, 0}}));
  EXPECT_EQ(pooled(1, {closeButApart, worse}), (X{{1, 2.5}, {1, 2.5 + 1e-3}, {3, 2.5}}));
  EXPECT_EQ(pooled(-1, {worse, worst}), (X{{1, 2.5}, {4, 0}, {3, 2.5}})) << "maximising";
  EXPECT_EQ(pooled(1, {worst, worse}, 2), (X{{1, 2.5}, {3, 2.5}})) << "pool size";
  EXPECT_EQ(pooled(1, {worst, worse}, 10, 1), (X{{1, 2.5}})) << "solution limit";
}

}  // namespace
}  // namespace klotest
