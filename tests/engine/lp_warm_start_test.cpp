// Re-solving from the previous basis after a change takes fewer simplex
// iterations than a cold solve, and reaches the same optimum.
#include <gtest/gtest.h>

#include <cmath>

#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

struct WarmCold {
  Result warm, cold;
};

class LpWarmStart : public EngineTest {
 protected:
  // Solves `changed` cold and from base's final basis.
  WarmCold resolve(const Problem& base, Problem changed) {
    Result r0 = solve(base);
    EXPECT_EQ(r0.status, KLO_STATUS_OPTIMAL);
    WarmCold out;
    out.cold = solve(changed);
    changed.colBasis = r0.colBasis;
    changed.rowBasis = r0.rowBasis;
    out.warm = solve(changed);
    return out;
  }
};

void expectWarmWins(const WarmCold& wc) {
  ASSERT_EQ(wc.cold.status, KLO_STATUS_OPTIMAL);
  ASSERT_EQ(wc.warm.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(wc.warm.objective, wc.cold.objective,
              1e-6 * std::max(1.0, std::fabs(wc.cold.objective)));
  EXPECT_LT(wc.warm.simplexIterations, wc.cold.simplexIterations);
}

Problem base() { return readInstance("25fv47"); }

TEST_P(LpWarmStart, AfterChangingBounds) {
  Problem p = base(), q = p;
  for (int j = 0; j < q.numCols(); j += 50) q.colUpper[j] = std::min(q.colUpper[j], 1000.0);
  expectWarmWins(resolve(p, q));
}

TEST_P(LpWarmStart, AfterChangingTheObjective) {
  Problem p = base(), q = p;
  for (int j = 0; j < q.numCols(); j += 7) q.obj[j] *= 1.01;
  expectWarmWins(resolve(p, q));
}

// An added row is missing from the old basis: it starts basic.  The row
// c'x >= z* + 0.1% |z*| cuts the old optimum off (and keeps the problem
// feasible: the objective can rise), so the new optimum is that bound.
TEST_P(LpWarmStart, AfterAddingARow) {
  Problem p = base();
  Result r0 = solve(p);
  ASSERT_EQ(r0.status, KLO_STATUS_OPTIMAL);
  const double target = r0.objective + 1e-3 * std::fabs(r0.objective);
  Problem q = p;  // column-major: the new row's entries go into the columns
  std::vector<int> start{0}, index;
  std::vector<double> value;
  for (int j = 0; j < p.numCols(); ++j) {
    for (int e = p.start[j]; e < p.start[j + 1]; ++e) {
      index.push_back(p.index[e]);
      value.push_back(p.value[e]);
    }
    if (p.obj[j] != 0) {
      index.push_back(p.numRows());
      value.push_back(p.obj[j]);
    }
    start.push_back(static_cast<int>(index.size()));
  }
  q.start = start;
  q.index = index;
  q.value = value;
  q.rowLower.push_back(target - p.objConstant);
  q.rowUpper.push_back(kInf);
  WarmCold wc = resolve(p, q);
  expectWarmWins(wc);
  EXPECT_NEAR(wc.warm.objective, target, 1e-6 * std::fabs(target));
}

KLO_ENGINE_SUITE(LpWarmStart, givesBasis);

}  // namespace
}  // namespace klo::engine::test
