// MIPs, with every engine that takes integers: small models worked out by
// hand, SOS sets, limits that stop with a solution, cutoff, MIP start and
// the solution pool.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/problem_eval.h"
#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using Mip = EngineTest;
using MipSos = EngineTest;
using MipSearch = EngineTest;
using MipPool = EngineTest;

// Two integers without rows: x in [1, 3] minimised, y <= 4.5 maximised
// through -y (integer: 4 at most): 1 - 4 = -3.
Problem withoutRows() {
  ProblemBuilder b;
  b.col(1, 1, 3, 'I');
  b.col(-1, -kInf, 4.5, 'I');
  return b.problem();
}

// The knapsack (optimum b, c, e: 24) as given, with binary bounds given
// wider (clipped to [0, 1]) and with an objective constant, which shifts
// objective and bound alike.
TEST_P(Mip, WorkedOptima) {
  Problem wide = knapsack(), shifted = knapsack();
  for (double& u : wide.colUpper) u = 5;
  shifted.objConstant = 100;
  const struct {
    const char* name;
    Problem p;
    double objective;
    std::vector<double> x;
  } cases[] = {{"knapsack", knapsack(), 24, {0, 1, 1, 0, 1}},
               {"wide binary bounds", wide, 24, {0, 1, 1, 0, 1}},
               {"constant", shifted, 124, {0, 1, 1, 0, 1}},
               {"without rows", withoutRows(), -3, {1, 4}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Result r = solve(c.p);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(r.objective, c.objective, 1e-9);
    EXPECT_NEAR(r.dualObjective, c.objective, 1e-6);  // the bound, in the model's sense
    EXPECT_NEAR(r.gapAbs, 0, 1e-6);
    ASSERT_EQ(r.x.size(), c.x.size());
    for (size_t j = 0; j < c.x.size(); ++j) EXPECT_NEAR(r.x[j], c.x[j], 1e-9) << j;
    const std::vector<double> activities = rowActivities(c.p, r.x.data());
    ASSERT_EQ(r.activities.size(), activities.size());
    for (size_t i = 0; i < activities.size(); ++i)
      EXPECT_NEAR(r.activities[i], activities[i], 1e-9);
    ASSERT_FALSE(r.pool.empty());
    EXPECT_EQ(r.pool[0].x, r.x);
  }
}

// No integer point in 0.5 <= x + y <= 0.7; max x + y with x - y <= 1 and
// no upper bounds is unbounded.
TEST_P(Mip, InfeasibleAndUnboundedStatuses) {
  ProblemBuilder inf;
  int x = inf.col(1, 0, 10, 'I'), y = inf.col(1, 0, 10, 'I');
  inf.row({{x, 1}, {y, 1}}, 0.5, 0.7);
  Result r = solve(inf.problem());
  EXPECT_EQ(r.status, KLO_STATUS_INFEASIBLE);
  EXPECT_FALSE(r.hasSolution);
  ProblemBuilder unb(KLO_MAXIMIZE);
  x = unb.col(1, 0, kInf, 'I');
  y = unb.col(1, 0, kInf, 'I');
  unb.row({{x, 1}, {y, -1}}, -kInf, 1);
  r = solve(unb.problem());
  EXPECT_TRUE(r.status == KLO_STATUS_UNBOUNDED || r.status == KLO_STATUS_INF_OR_UNBD) << r.status;
}

// The knapsack's optimum is 24: maximising, a cutoff of 30 leaves no
// solution, one of 20 keeps the optimum; the cutoff includes the constant.
TEST_P(Mip, CutoffInTheModelsSense) {
  if (!honours("MIP/Cutoff")) GTEST_SKIP() << "no cutoff";
  Problem p = knapsack();
  Settings s = quietSettings();
  s.cutoff = 30;
  Result r = solve(p, s);
  EXPECT_EQ(r.status, KLO_STATUS_CUTOFF);
  EXPECT_FALSE(r.hasSolution);
  s.cutoff = 20;
  EXPECT_NEAR(solve(p, s).objective, 24, 1e-9);
  p.objConstant = 100;
  s.cutoff = 123;
  EXPECT_NEAR(solve(p, s).objective, 124, 1e-9);
  s.cutoff = 125;
  EXPECT_EQ(solve(p, s).status, KLO_STATUS_CUTOFF);
}

// A generous relative gap stops at the root with status optimal: within
// the tolerance, as the status promises.
TEST_P(Mip, GapLimitCountsAsOptimal) {
  Settings s = quietSettings();
  s.gapRel = 0.5;
  Result r = solve(readInstance("stein27"), s);
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_LE(r.gapRel, 0.5 + 1e-9);
  EXPECT_LT(r.nodeCount, 100);
}

// The LP the sets restrict, solved by the LP engine.
double relaxationOptimum(const Problem& p) {
  return clpEntry().make()->solve(p, quietSettings(), {}).objective;
}

// SOS1 over max x0 + 2 x1 + 3 x2, sum <= 2, x in [0, 1]: one non-zero, x2
// (LP 5).  SOS2 over piecewise-linear weights (breakpoints 0..3, values 0,
// 3, 1, 4) with x <= 1.5: only neighbours, 3 at l1 = 1 (LP 3.25 mixes l1
// and l3).  A member that may be negative (y in [-1, 0], y + z = 0, SOS1
// {x, y}, min 0.5 x + 2.5 y) once made preprocessing abort: -2.5, x = 0.
TEST_P(MipSos, SetsRestrictTheRelaxation) {
  ProblemBuilder one(KLO_MAXIMIZE);
  int x0 = one.col(1, 0, 1), x1 = one.col(2, 0, 1), x2 = one.col(3, 0, 1);
  one.row({{x0, 1}, {x1, 1}, {x2, 1}}, -kInf, 2);
  const double lp1 = relaxationOptimum(one.problem());
  one.sos(1, {x0, x1, x2}, {1, 2, 3});
  ProblemBuilder two(KLO_MAXIMIZE);
  int l0 = two.col(0, 0, 1), l1 = two.col(3, 0, 1), l2 = two.col(1, 0, 1), l3 = two.col(4, 0, 1);
  two.row({{l0, 1}, {l1, 1}, {l2, 1}, {l3, 1}}, 1, 1);
  two.row({{l1, 1}, {l2, 2}, {l3, 3}}, -kInf, 1.5);
  const double lp2 = relaxationOptimum(two.problem());
  two.sos(2, {l0, l1, l2, l3}, {1, 2, 3, 4});
  ProblemBuilder neg;
  int x = neg.col(0.5, 0, 1, 'B'), y = neg.col(2.5, -1, 0), z = neg.col(0, 0, 1, 'B');
  neg.row({{y, 1}, {z, 1}}, 0, 0);
  neg.sos(1, {x, y}, {1, 2});
  EXPECT_NEAR(lp1, 5, 1e-9);
  EXPECT_NEAR(lp2, 3.25, 1e-9);
  const struct {
    Problem p;
    double objective;
    int column;
    double value;
  } cases[] = {{one.problem(), 3, x2, 1}, {two.problem(), 3, l1, 1}, {neg.problem(), -2.5, x, 0}};
  for (const auto& c : cases) {
    Result r = solve(c.p);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(r.objective, c.objective, 1e-7);
    EXPECT_NEAR(r.x[c.column], c.value, 1e-7);
  }
}

// stein27 needs hundreds of nodes; each limit stops it early with its own
// status and a feasible incumbent still readable.  (An NLP-based search
// takes seconds a node there: Bonmin's limits are tested with its adapter.)
TEST_P(MipSearch, LimitsStopWithTheBestSolutionSoFar) {
  struct Case {
    const char* parameter;
    void (*set)(Settings&);
    int status;
  };
  const Case cases[] = {
      {"MIP/MaxNodes", [](Settings& s) { s.maxNodes = 10; }, KLO_STATUS_NODE_LIMIT},
      {"MIP/MaxSols", [](Settings& s) { s.maxSolutions = 1; }, KLO_STATUS_SOLUTION_LIMIT},
      {"MaxTime", [](Settings& s) { s.maxTime = 0.3; }, KLO_STATUS_TIME_LIMIT},
  };
  const Problem p = readInstance("stein27");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.parameter);
    if (!honours(c.parameter)) continue;
    Settings s = quietSettings();
    c.set(s);
    Result r = solve(p, s);
    EXPECT_EQ(r.status, c.status);
    if (s.maxNodes == 10) {
      EXPECT_LE(r.nodeCount, 12);
    }
    ASSERT_TRUE(r.hasSolution);
    EXPECT_LE(maxViolation(p, r.x.data(), true), 1e-6);
    EXPECT_GE(r.objective, 18 - 1e-9);               // no better than the optimum
    EXPECT_LE(r.dualObjective, r.objective + 1e-9);  // a valid lower bound
    EXPECT_NEAR(r.gapAbs, r.objective - r.dualObjective, 1e-9);
  }
}

// With search and heuristics off and no nodes allowed, only the start can
// provide a solution.  A partial start (a, b given) is completed.
TEST_P(MipSearch, StartIsUsed) {
  if (!honours("MIP/LevelHeurs")) GTEST_SKIP() << "heuristics cannot be turned off";
  Problem p = knapsack();
  Settings s = quietSettings();
  s.maxNodes = 0;
  s.levelHeurs = 0;
  s.levelCuts = 0;
  EXPECT_FALSE(solve(p, s).hasSolution);
  p.startValues = {1, 1, KLO_UNDEFINED, KLO_UNDEFINED, KLO_UNDEFINED};  // a + b: 23
  Result r = solve(p, s);
  ASSERT_TRUE(r.hasSolution);
  EXPECT_GE(r.objective, 23 - 1e-9);
}

// Without preprocessing and with two threads the search still ends at
// the optimum (index.csv: flugpl 1201500).
TEST_P(MipSearch, PresolveOffAndThreads) {
  if (!honours("Presolve") && !honours("NumThreads")) GTEST_SKIP() << "neither parameter";
  const Problem p = readInstance("flugpl");
  for (int threads : {1, 2}) {
    Settings s = quietSettings();
    s.presolve = 0;
    s.numThreads = threads;
    Result r = solve(p, s);
    EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(r.objective, 1201500, 1e-6 * 1201500 + s.gapRel * 1201500);
  }
}

// The pool holds distinct feasible solutions, best first, the first being x.
TEST_P(MipPool, PoolHoldsEarlierIncumbentsBestFirst) {
  const Problem p = readInstance("qnet1");
  Settings s = quietSettings();
  s.solutionPoolSize = 3;
  Result r = solve(p, s);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  ASSERT_GE(r.pool.size(), 2u);
  EXPECT_LE(r.pool.size(), 3u);
  EXPECT_EQ(r.pool[0].x, r.x);
  for (size_t k = 0; k < r.pool.size(); ++k) {
    EXPECT_LE(maxViolation(p, r.pool[k].x.data(), true), 1e-6) << k;
    EXPECT_NEAR(r.pool[k].objective, objectiveOf(p, r.pool[k].x.data()), 1e-6) << k;
    if (k > 0) {
      EXPECT_GE(r.pool[k].objective, r.pool[k - 1].objective - 1e-9) << k;
    }
  }
}

// Searches whose nodes are LPs (an NLP-based one has its own tests).
bool lpSearch(const EngineEntry& e) { return takesIntegers(e) && !e.caps.takes(kQuadRows); }
bool lpSearchWithPool(const EngineEntry& e) { return lpSearch(e) && e.caps.pool; }

KLO_ENGINE_SUITE(Mip, takesIntegers);
KLO_ENGINE_SUITE(MipSos, takesSos);
KLO_ENGINE_SUITE(MipSearch, lpSearch);
KLO_ENGINE_SUITE(MipPool, lpSearchWithPool);

}  // namespace
}  // namespace klo::engine::test
