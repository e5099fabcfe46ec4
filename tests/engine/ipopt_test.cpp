// What is particular to the Ipopt adapter: start values choose among local
// optima, the iteration limit is exact, and "MaxTime" counts wall-clock
// time.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

Result solveWithIpopt(const Problem& p, const Settings& s, const Callback& cb = {}) {
  return ipoptEntry().make()->solve(p, s, cb);
}

// min -x^2 over [-1, 2] has local minima at both ends (-1 at x = -1, -4 at
// x = 2): the start value decides which one Ipopt finds.
TEST(Ipopt, StartValuesChooseTheLocalOptimumAndIterationsAreLimited) {
  ProblemBuilder b;
  b.col(0, -1, 2);
  b.objQuad(0, 0, -1);
  Problem p = b.problem();
  for (double start : {-0.9, 1.5}) {
    p.startValues = {start};
    Result r = solveWithIpopt(p, quietSettings());
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(r.x[0], start < 0 ? -1 : 2, 1e-6) << "start " << start;
  }
  p.startValues = {KLO_UNDEFINED};  // unset: a point within the bounds
  EXPECT_EQ(solveWithIpopt(p, quietSettings()).status, KLO_STATUS_OPTIMAL);
  Settings s = quietSettings();
  s.maxBarrierIterations = 2;
  Result r = solveWithIpopt(p, s);
  EXPECT_EQ(r.status, KLO_STATUS_ITERATION_LIMIT);
  EXPECT_EQ(r.barrierIterations, 2);
}

// Iterations made slow by a callback that sleeps (no CPU time spent):
// "MaxTime" stops the run on the wall clock, keeping the last iterate,
// which is within the bounds (the only constraints) at every iteration.
TEST(Ipopt, TimeLimitCountsWallClockAndKeepsTheLastIterate) {
  ProblemBuilder b;
  for (int j = 0; j < 5; ++j) {
    b.col(-2.0 * (j + 1), 0, 1.5);
    b.objQuad(j, j, 1);  // min (x_j - (j + 1))^2 - const: x_j at 1.5 or its target
  }
  Settings s = quietSettings();
  s.maxTime = 0.3;
  int calls = 0;
  Callback slow = [&](CallbackContext& ctx) {
    EXPECT_EQ(ctx.where, KLO_CB_BARRIER);
    ++calls;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return 0;
  };
  const auto t0 = std::chrono::steady_clock::now();
  Result r = solveWithIpopt(b.problem(), s, slow);
  const double took = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  EXPECT_EQ(r.status, KLO_STATUS_TIME_LIMIT);
  EXPECT_GE(calls, 3);
  EXPECT_LE(calls, 5);
  EXPECT_LT(took, 2.0);
  ASSERT_TRUE(r.hasSolution);
  ASSERT_EQ(r.x.size(), 5u);
  for (double v : r.x) {
    EXPECT_GE(v, 0);
    EXPECT_LE(v, 1.5);
  }
}

}  // namespace
}  // namespace klo::engine::test
