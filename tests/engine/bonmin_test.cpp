// What is particular to the Bonmin adapter: mixed-integer problems with a
// quadratic objective or quadratic rows, whose optimum the tests find by
// enumerating the integer values and solving each continuous problem left
// with the Ipopt engine; infeasibility, limits ("MaxTime" on the wall
// clock) and callbacks.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>

#include "engine/problem_eval.h"
#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

Result solveWithBonmin(const Problem& p, const Settings& s = quietSettings()) {
  return bonminEntry().make()->solve(p, s, {});
}

// The best objective over every integer assignment within the (finite)
// bounds, each continuous rest solved by Ipopt; NaN when none is feasible.
double bruteForceOptimum(const Problem& p) {
  std::vector<int> ints;
  for (int j = 0; j < p.numCols(); ++j)
    if (p.colType[j] != 'C') ints.push_back(j);
  double best = NAN;
  Problem fixed = p;
  std::function<void(size_t)> visit = [&](size_t k) {
    if (k == ints.size()) {
      Result r = ipoptEntry().make()->solve(fixed, quietSettings(), {});
      if (r.status == KLO_STATUS_OPTIMAL &&
          (std::isnan(best) || p.sense * (r.objective - best) < 0))
        best = r.objective;
      return;
    }
    const int j = ints[k];
    fixed.colType[j] = 'C';
    for (double v = std::ceil(p.colLower[j]); v <= p.colUpper[j]; ++v) {
      fixed.colLower[j] = fixed.colUpper[j] = v;
      visit(k + 1);
    }
  };
  visit(0);
  return best;
}

// Convex MIQP: x0 in -3..3 and x1 in 0..4 integer, y0 in [-10, 10], y1
// free; objective 2 x0^2 + x1^2 + y0^2 + y1^2 + x0 y0 + x1 y1 - 3 x0 - 5 x1
// + 2 y0 - y1 + 1 (Hessian positive definite); rows x0 + x1 + y0 >= 1.5,
// x1 - y1 <= 2.2, x0 - x1 <= 0.5.  Maximising flips every sign.
Problem miqp(int sense) {
  ProblemBuilder b(sense);
  const int x0 = b.col(-3 * sense, -3, 3, 'I'), x1 = b.col(-5 * sense, 0, 4, 'I');
  const int y0 = b.col(2 * sense, -10, 10), y1 = b.col(-1 * sense, -kInf, kInf);
  b.objQuad(x0, x0, 2 * sense);
  b.objQuad(x0, y0, 1 * sense);
  b.objQuad(x1, x1, 1 * sense);
  b.objQuad(x1, y1, 1 * sense);
  b.objQuad(y0, y0, 1 * sense);
  b.objQuad(y1, y1, 1 * sense);
  b.problem().objConstant = sense;
  b.row({{x0, 1}, {x1, 1}, {y0, 1}}, 1.5, kInf);
  b.row({{x1, 1}, {y1, -1}}, -kInf, 2.2);
  b.row({{x0, 1}, {x1, -1}}, -kInf, 0.5);
  return b.problem();
}

// Convex MIQCQP: min -2 x0 - 3 y0 - y1 + 1.5 x1, x0 in 0..5 integer, x1
// binary, y >= 0; x0^2 + y0^2 + y1^2 - 5 x1 <= 10 (a ball that x1 widens)
// and x0 + y0 <= 3.7.
Problem miqcqp() {
  ProblemBuilder b;
  const int x0 = b.col(-2, 0, 5, 'I'), x1 = b.col(1.5, 0, 1, 'B');
  const int y0 = b.col(-3, 0, kInf), y1 = b.col(-1, 0, kInf);
  const int ball = b.row({{x1, -5}}, -kInf, 10);
  for (int j : {x0, y0, y1}) b.rowQuad(ball, j, j, 1);
  b.row({{x0, 1}, {y0, 1}}, -kInf, 3.7);
  return b.problem();
}

TEST(Bonmin, OptimumMatchesEnumeration) {
  const struct {
    const char* name;
    Problem p;
  } cases[] = {
      {"MIQP min", miqp(KLO_MINIMIZE)}, {"MIQP max", miqp(KLO_MAXIMIZE)}, {"MIQCQP", miqcqp()}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const double want = bruteForceOptimum(c.p);
    ASSERT_FALSE(std::isnan(want));
    Result r = solveWithBonmin(c.p);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
    ASSERT_TRUE(r.hasSolution);
    EXPECT_NEAR(r.objective, want, 1e-6);
    EXPECT_NEAR(objectiveOf(c.p, r.x.data()), r.objective, 1e-9);
    EXPECT_LE(maxViolation(c.p, r.x.data(), true), 1e-6);
    EXPECT_EQ(r.activities, rowActivities(c.p, r.x.data()));
    EXPECT_LE(c.p.sense * (r.dualObjective - r.objective), 1e-9);  // bound on the right side
    EXPECT_LE(r.gapRel, 1e-4);
    EXPECT_GE(r.nodeCount, 0);
  }
}

// Infeasible through the quadratic row's relaxation already (x0^2 + y^2 <=
// 2 against x0 + y >= 2.5), and only through integrality (2 x0 + 2 x1 = 3).
TEST(Bonmin, InfeasibleProblems) {
  ProblemBuilder ball;
  int x = ball.col(1, 0, 3, 'I'), y = ball.col(1, -kInf, kInf);
  int r0 = ball.row({}, -kInf, 2);
  ball.rowQuad(r0, x, x, 1);
  ball.rowQuad(r0, y, y, 1);
  ball.row({{x, 1}, {y, 1}}, 2.5, kInf);

  ProblemBuilder parity;
  x = parity.col(0, 0, 3, 'I');
  y = parity.col(0, 0, 3, 'I');
  parity.objQuad(x, x, 1);
  parity.row({{x, 2}, {y, 2}}, 3, 3);

  for (ProblemBuilder* b : {&ball, &parity}) {
    Result r = solveWithBonmin(b->problem());
    EXPECT_EQ(r.status, KLO_STATUS_INFEASIBLE);
    EXPECT_FALSE(r.hasSolution);
    EXPECT_TRUE(r.x.empty());
  }
}

// The nearest integer point to a target through a badly conditioned
// lattice: min |A x - t|^2 over n integers in -20..20, A = I + 0.9 (ones),
// every pair coupled, t irrational-looking.
Problem lattice(int n) {
  ProblemBuilder b;
  for (int j = 0; j < n; ++j) b.col(0, -20, 20, 'I');
  for (int i = 0; i < n; ++i) {
    const double t = std::sin(1.0 + i) * 7.3;
    // sum_j A_ij x_j - t squared, expanded.
    for (int j = 0; j < n; ++j) {
      const double aij = (i == j ? 1.0 : 0.0) + 0.9;
      b.problem().obj[j] += -2 * t * aij;
      for (int k = j; k < n; ++k) {
        const double aik = (i == k ? 1.0 : 0.0) + 0.9;
        b.objQuad(j, k, (j == k ? 1.0 : 2.0) * aij * aik);
      }
    }
    b.problem().objConstant += t * t;
  }
  return b.problem();
}

// With 30 columns the search needs far more nodes than half a second
// allows: the stop comes on the wall clock, within 5% and 50 ms.  With 8,
// the node and solution limits stop it early.  Each keeps a feasible
// incumbent if one was found.
TEST(Bonmin, LimitsStopTheSearch) {
  struct Case {
    const char* name;
    int columns;
    void (*set)(Settings&);
    int status;
  };
  const Case cases[] = {
      {"MaxTime", 30, [](Settings& s) { s.maxTime = 0.5; }, KLO_STATUS_TIME_LIMIT},
      {"MIP/MaxNodes", 8, [](Settings& s) { s.maxNodes = 3; }, KLO_STATUS_NODE_LIMIT},
      {"MIP/MaxSols", 8, [](Settings& s) { s.maxSolutions = 1; }, KLO_STATUS_SOLUTION_LIMIT},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Problem p = lattice(c.columns);
    Settings s = quietSettings();
    c.set(s);
    s.started = std::chrono::steady_clock::now();
    Result r = solveWithBonmin(p, s);
    const double took =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - s.started).count();
    EXPECT_EQ(r.status, c.status);
    if (s.maxTime < 1) {
      EXPECT_LE(took, s.maxTime * 1.05 + 0.05);
    }
    if (s.maxNodes == 3) {
      EXPECT_LE(r.nodeCount, 5);
    }
    if (c.status == KLO_STATUS_SOLUTION_LIMIT) {
      ASSERT_TRUE(r.hasSolution);
    }
    if (!r.hasSolution) continue;
    EXPECT_LE(maxViolation(p, r.x.data(), true), 1e-6);
    EXPECT_LE(r.dualObjective, r.objective + 1e-9);
  }
}

// The search raises KLO_CB_MIP and KLO_CB_MIPSOL: incumbents feasible and
// each better than the last, the last one the result and the pool's best;
// a solution proposed at the first node is taken; a stop ends the search.
TEST(Bonmin, CallbackSeesIncumbentsTakesSolutionsAndStops) {
  const Problem p = lattice(6);
  std::vector<double> seen;
  int progress = 0, proposed = -1;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where == KLO_CB_MIP && ++progress == 1) {
      const double x[] = {0, 0, 0, 0, 0, 0};  // feasible, not optimal
      proposed = callbackSolution(ctx, x, nullptr);
    }
    if (ctx.where == KLO_CB_MIPSOL) {
      EXPECT_LE(maxViolation(p, ctx.solution, true), 1e-5);
      seen.push_back(objectiveOf(p, ctx.solution));
    }
    return 0;
  };
  Result r = bonminEntry().make()->solve(p, quietSettings(), cb);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_GT(progress, 0);
  ASSERT_FALSE(seen.empty());
  for (size_t k = 1; k < seen.size(); ++k) EXPECT_LT(seen[k], seen[k - 1] + 1e-9);
  EXPECT_NEAR(seen.back(), r.objective, 1e-5);
  ASSERT_FALSE(r.pool.empty());
  EXPECT_EQ(r.pool.front().x, r.x);
  const std::vector<double> origin(6, 0.0);
  EXPECT_EQ(proposed, KLO_OK);
  EXPECT_TRUE(std::any_of(seen.begin(), seen.end(), [&](double v) {
    return std::fabs(v - objectiveOf(p, origin.data())) < 1e-6;
  })) << "the proposal never became an incumbent";

  Callback stopAtFirst = [](CallbackContext& ctx) {
    return ctx.where == KLO_CB_MIP ? KLO_CB_STOP : 0;
  };
  EXPECT_EQ(bonminEntry().make()->solve(p, quietSettings(), stopAtFirst).status,
            KLO_STATUS_INTERRUPTED);
}

}  // namespace
}  // namespace klo::engine::test
