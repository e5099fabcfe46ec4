// LP outcomes other than optimal: infeasible and unbounded problems with
// their rays, limits, and a stop requested by the callback.
#include <gtest/gtest.h>

#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using LpStatus = EngineTest;

// Limits, callbacks and the methods of simplex and interior-point engines.
using SimplexLimits = LpStatus;
using BarrierLimits = LpStatus;
using BarrierCrossover = LpStatus;

// Interior-point engines that give a basis (by crossing over to one).
bool barrierWithBasis(const EngineEntry& e) { return barrier(e) && givesBasis(e); }

// x + y <= 1 and x + y >= 3 with x, y >= 0.  Farkas: adding r1 - r0 gives
// 0 >= 2, so y = (-k, k) for some k > 0: r1 pairs with its lower bound
// (y > 0), r0 with its upper bound (y < 0).
TEST_P(LpStatus, InfeasibleGivesFarkasRayInEveryMethod) {
  for (LpMethod m : methods()) {
    for (int presolve : {0, 1}) {
      ProblemBuilder b;
      int x = b.col(1, 0, kInf), y = b.col(1, 0, kInf);
      b.row({{x, 1}, {y, 1}}, -kInf, 1);
      b.row({{x, 1}, {y, 1}}, 3, kInf);
      Result r = solveLp(b.problem(), m, presolve);
      SCOPED_TRACE(testing::Message()
                   << "method " << static_cast<int>(m) << " presolve " << presolve);
      EXPECT_EQ(r.status, KLO_STATUS_INFEASIBLE);
      EXPECT_FALSE(r.hasSolution);
      EXPECT_TRUE(r.x.empty());
      if (!caps().rays) continue;
      ASSERT_EQ(r.dualRay.size(), 2u);
      EXPECT_LT(r.dualRay[0], -1e-9);
      EXPECT_NEAR(r.dualRay[1], -r.dualRay[0], 1e-9);
      EXPECT_TRUE(r.primalRay.empty());
    }
  }
}

// min -x - y  s.t.  x - y <= 1,  x, y >= 0: along (1, 1) the row stays at
// 0 and the objective falls without end.  A ray r must keep x, y >= 0
// (r >= 0), keep the row (r_x - r_y <= 0) and improve (-r_x - r_y < 0).
TEST_P(LpStatus, UnboundedGivesAnImprovingFeasibleDirection) {
  for (int sense : {KLO_MINIMIZE, KLO_MAXIMIZE}) {
    for (LpMethod m : methods()) {
      if (m == LpMethod::Barrier) continue;
      ProblemBuilder b(sense);
      int x = b.col(-sense, 0, kInf), y = b.col(-sense, 0, kInf);
      b.row({{x, 1}, {y, -1}}, -kInf, 1);
      Result r = solveLp(b.problem(), m, -1);
      SCOPED_TRACE(testing::Message() << "sense " << sense << " method " << static_cast<int>(m));
      EXPECT_FALSE(r.hasSolution);
      if (!caps().rays) {  // without a direction, unbounded is not told from infeasible
        EXPECT_TRUE(r.status == KLO_STATUS_UNBOUNDED || r.status == KLO_STATUS_INF_OR_UNBD);
        continue;
      }
      EXPECT_EQ(r.status, KLO_STATUS_UNBOUNDED);
      ASSERT_EQ(r.primalRay.size(), 2u);
      const double rx = r.primalRay[0], ry = r.primalRay[1];
      EXPECT_GE(rx, -1e-9);
      EXPECT_GE(ry, -1e-9);
      EXPECT_LE(rx - ry, 1e-9);
      EXPECT_GT(rx + ry, 1e-9);  // improves: -sense * (rx + ry) is better
      EXPECT_TRUE(r.dualRay.empty());
    }
  }
}

TEST_P(SimplexLimits, IterationLimitStopsWithItsStatus) {
  for (int presolve : {0, 1}) {
    Problem p = readInstance("25fv47");
    Settings s = quietSettings();
    s.presolve = presolve;
    s.maxSimplexIterations = 20;
    Result r = solve(p, s, {});
    EXPECT_EQ(r.status, KLO_STATUS_ITERATION_LIMIT);
    EXPECT_LE(r.simplexIterations, 21);
    // Without presolve the basis reached is kept: a warm start resumes.
    if (presolve == 0) {
      ASSERT_EQ(r.colBasis.size(), static_cast<size_t>(p.numCols()));
      p.colBasis = r.colBasis;
      p.rowBasis = r.rowBasis;
      s.maxSimplexIterations = INT_MAX;
      Result resumed = solve(p, s, {});
      EXPECT_EQ(resumed.status, KLO_STATUS_OPTIMAL);
      EXPECT_NEAR(resumed.objective, 5501.845888, 1e-3);
    }
  }
}

TEST_P(BarrierLimits, IterationLimitStopsWithItsStatus) {
  Problem p = readInstance("25fv47");
  Settings s = quietSettings();
  s.method = LpMethod::Barrier;
  s.maxBarrierIterations = 3;
  Result r = solve(p, s, {});
  EXPECT_EQ(r.status, KLO_STATUS_ITERATION_LIMIT);
  EXPECT_GE(r.barrierIterations, 1);
  EXPECT_LE(r.barrierIterations, 4);
}

TEST_P(BarrierLimits, CountsItsIterations) {
  Problem p = readInstance("afiro");
  Settings s = quietSettings();
  s.method = LpMethod::Barrier;
  Result r = solve(p, s, {});
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_GT(r.barrierIterations, 0);
  EXPECT_NEAR(r.objective, -464.7531429, 1e-5);
}

TEST_P(BarrierCrossover, EndsWithABasis) {
  Problem p = readInstance("afiro");
  Settings s = quietSettings();
  s.method = LpMethod::Barrier;
  Result r = solve(p, s, {});
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_EQ(r.colBasis.size(), static_cast<size_t>(p.numCols()));  // crossover gives a basis
}

TEST_P(LpStatus, TimeLimitStopsWithItsStatus) {
  Problem p = readInstance("25fv47");
  Settings s = quietSettings();
  s.presolve = 0;
  s.maxTime = 0.0;
  Result r = solve(p, s, {});
  EXPECT_EQ(r.status, KLO_STATUS_TIME_LIMIT);
}

TEST_P(SimplexLimits, CallbackSeesIterationsAndStops) {
  Problem p = readInstance("25fv47");
  Settings s = quietSettings();
  int calls = 0;
  int lastIters = -1;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where == KLO_CB_PRESOLVE) return 0;
    EXPECT_EQ(ctx.where, KLO_CB_SIMPLEX);
    int iters = 0;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_SIMPLEX, KLO_CBINFO_ITERCOUNT, &iters), KLO_OK);
    EXPECT_GE(iters, lastIters);
    lastIters = iters;
    double obj = 0;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_SIMPLEX, KLO_CBINFO_OBJBEST, &obj), KLO_ERROR_CALLBACK_WHERE);
    return ++calls == 10 ? KLO_CB_STOP : 0;
  };
  Result r = solve(p, s, cb);
  EXPECT_EQ(r.status, KLO_STATUS_INTERRUPTED);
  EXPECT_EQ(calls, 10);
  EXPECT_LE(r.simplexIterations, 12);
}

TEST_P(BarrierLimits, CallbackStops) {
  Problem p = readInstance("25fv47");
  Settings s = quietSettings();
  s.method = LpMethod::Barrier;
  int calls = 0;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where == KLO_CB_PRESOLVE) return 0;
    EXPECT_EQ(ctx.where, KLO_CB_BARRIER);
    return ++calls == 3 ? KLO_CB_STOP : 0;
  };
  Result r = solve(p, s, cb);
  EXPECT_EQ(r.status, KLO_STATUS_INTERRUPTED);
  EXPECT_EQ(calls, 3);
  EXPECT_LE(r.barrierIterations, 4);
}

// Degenerate shapes: bounds only (x in [1, 3] minimised, y <= 4 maximised
// through -y: optimum 1 - 4 = -3), nothing at all, and an empty row whose
// range excludes 0.
TEST_P(LpStatus, ProblemsWithoutRowsOrColumns) {
  ProblemBuilder bounds;
  bounds.col(1, 1, 3);
  bounds.col(-1, -kInf, 4);
  Result r = solve(bounds.problem(), quietSettings());
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, -3, 1e-9);
  EXPECT_TRUE(r.duals.empty());

  ProblemBuilder nothing;
  r = solve(nothing.problem(), quietSettings());
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_EQ(r.objective, 0);

  ProblemBuilder emptyRow;
  emptyRow.row({}, 1, 2);
  r = solve(emptyRow.problem(), quietSettings());
  EXPECT_EQ(r.status, KLO_STATUS_INFEASIBLE);
}

KLO_ENGINE_SUITE(LpStatus, anyEngine);
KLO_ENGINE_SUITE(SimplexLimits, simplex);
KLO_ENGINE_SUITE(BarrierLimits, barrier);
KLO_ENGINE_SUITE(BarrierCrossover, barrierWithBasis);

}  // namespace
}  // namespace klo::engine::test
