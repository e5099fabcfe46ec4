// User callbacks inside the search of every engine that calls them: incumbents, node
// relaxations, cuts, proposed solutions, progress and stopping.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/problem_eval.h"
#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using Callbacks = EngineTest;

// Heuristics and cuts off, so that the callback's actions show.
Settings bare() {
  Settings s = quietSettings();
  s.levelHeurs = 0;
  s.levelCuts = 0;
  return s;
}

TEST_P(Callbacks, IncumbentsImproveAndMatchTheResult) {
  Problem p = readInstance("p0548");
  struct Seen {
    double obj;
    int count;
  };
  std::vector<Seen> seen;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where != KLO_CB_MIPSOL) return 0;
    const double* x = nullptr;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_SOLUTION_IDX, &x), KLO_OK);
    const double* same = nullptr;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_SOLUTION, &same), KLO_OK);
    EXPECT_EQ(x, same);
    EXPECT_LE(maxViolation(p, x, true), 1e-6);
    double best = 0;
    int count = 0;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_OBJBEST, &best), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_SOLCOUNT, &count), KLO_OK);
    EXPECT_NEAR(best, objectiveOf(p, x), 1e-6);
    seen.push_back({best, count});
    return 0;
  };
  Result r = solve(p, quietSettings(), cb);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  ASSERT_FALSE(seen.empty());
  for (size_t k = 1; k < seen.size(); ++k) {
    EXPECT_LT(seen[k].obj, seen[k - 1].obj);  // minimising: each one better
    EXPECT_GT(seen[k].count, seen[k - 1].count);
  }
  EXPECT_NEAR(seen.back().obj, r.objective, 1e-6);
}

TEST_P(Callbacks, ProgressReportsNodesAndABoundBelowTheIncumbent) {
  Problem p = readInstance("stein27");
  int calls = 0;
  int lastNodes = -1;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where != KLO_CB_MIP) return 0;
    ++calls;
    int nodes = 0;
    double best = 0, bound = 0, runtime = -1;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIP, KLO_CBINFO_NODECOUNT, &nodes), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIP, KLO_CBINFO_OBJBEST, &best), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIP, KLO_CBINFO_OBJBOUND, &bound), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIP, KLO_CBINFO_RUNTIME, &runtime), KLO_OK);
    EXPECT_GE(nodes, lastNodes);
    EXPECT_LE(bound, best + 1e-9);
    EXPECT_GE(runtime, 0);
    lastNodes = nodes;
    return 0;
  };
  Settings s = quietSettings();
  s.maxNodes = 50;
  solve(p, s, cb);
  EXPECT_GT(calls, 10);
}

TEST_P(Callbacks, StopEndsTheSearchWithTheIncumbentKept) {
  Problem p = readInstance("stein27");
  Callback cb = [](CallbackContext& ctx) { return ctx.where == KLO_CB_MIPSOL ? KLO_CB_STOP : 0; };
  Result r = solve(p, quietSettings(), cb);
  EXPECT_EQ(r.status, KLO_STATUS_INTERRUPTED);
  ASSERT_TRUE(r.hasSolution);
  EXPECT_LE(maxViolation(p, r.x.data(), true), 1e-6);
}

// The cut b <= 0 added at the first node: later relaxations obey it and
// the search ends at the best solution without b.
TEST_P(Callbacks, NodeCutsShapeLaterRelaxations) {
  Problem p = knapsack();
  int calls = 0;
  bool violatedAfterCut = false;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where != KLO_CB_MIPNODE) return 0;
    const double* rel = nullptr;
    const double* lower = nullptr;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NODEREL_IDX, &rel), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NODELB, &lower), KLO_OK);
    EXPECT_GE(rel[1], lower[1] - 1e-9);
    if (calls++ == 0) {
      const int ind[] = {1};
      const double val[] = {1.0};
      EXPECT_EQ(callbackCut(ctx, 1, ind, val, '<', 0.0), KLO_OK);
    } else if (rel[1] > 1e-6) {
      violatedAfterCut = true;
    }
    return 0;
  };
  Result r = solve(p, bare(), cb);
  EXPECT_GT(calls, 1);
  EXPECT_FALSE(violatedAfterCut);
  ASSERT_TRUE(r.hasSolution);
  EXPECT_NEAR(r.objective, 22, 1e-9);
}

// Proposals at a node: an infeasible one is rejected, a partial one is
// completed by the engine, one no better than the incumbent is refused,
// and an accepted one becomes an incumbent.
TEST_P(Callbacks, ProposedSolutionsAreCheckedCompletedAndUsed) {
  Problem p = knapsack();
  std::vector<int> codes;
  double acceptedObj = 0;
  std::vector<double> incumbents;
  Callback cb = [&](CallbackContext& ctx) {
    double best = 0;
    if (ctx.where == KLO_CB_MIPSOL &&
        callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_OBJBEST, &best) == KLO_OK)
      incumbents.push_back(best);
    if (ctx.where != KLO_CB_MIPNODE || !codes.empty()) return 0;
    const double tooHeavy[] = {1, 1, 1, 1, 1};
    codes.push_back(callbackSolution(ctx, tooHeavy, nullptr));
    // b, c given; a, d, e left to the engine: e fits (weight 7), a and d do
    // not; the completion is an LP, so the result must be integral to pass.
    // Any value beyond the bounds' infinity marks an unset slot, like the
    // object layer's "no value" marker.
    const double partial[] = {0, 1, 1, 0, -1.23457e+88};
    codes.push_back(callbackSolution(ctx, partial, &acceptedObj));
    const double worse[] = {1, 0, 0, 0, 0};
    codes.push_back(callbackSolution(ctx, worse, nullptr));
    return 0;
  };
  Result r = solve(p, bare(), cb);
  ASSERT_EQ(codes.size(), 3u);
  EXPECT_EQ(codes[0], KLO_CB_REJECTED);
  EXPECT_EQ(codes[1], KLO_OK);
  EXPECT_NEAR(acceptedObj, 24, 1e-9);
  EXPECT_EQ(codes[2], KLO_CB_NOT_IMPROVING);
  ASSERT_TRUE(r.hasSolution);
  EXPECT_NEAR(r.objective, 24, 1e-9);
  // The proposal, made at the root, is the first incumbent.
  ASSERT_FALSE(incumbents.empty());
  EXPECT_NEAR(incumbents.front(), 24, 1e-9);
}

// Asked at the root to branch (up first) on a column whose relaxation
// value is already integral, which Cbc would never pick itself, the next
// node has that column's lower bound raised to 1.  A request whose up arm
// leaves the bounds is ignored.
TEST_P(Callbacks, BranchRequestsChooseTheColumn) {
  Problem p = readInstance("stein27");
  int column = -1;
  std::vector<int> codes;
  std::vector<std::pair<double, double>> bounds;  // the column's, at each node
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where != KLO_CB_MIPNODE) return 0;
    const double* rel = nullptr;
    const double* lower = nullptr;
    const double* upper = nullptr;
    callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NODEREL_IDX, &rel);
    callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NODELB, &lower);
    callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NODEUB, &upper);
    if (column < 0) {
      for (int j = 0; j < ctx.numVars && column < 0; ++j)
        if (std::fabs(rel[j] - std::round(rel[j])) < 1e-9 && lower[j] == 0 && upper[j] == 1)
          column = j;
      if (column < 0) return 0;
      codes.push_back(callbackBranch(ctx, column, 1.0, 1));  // x >= 2: no
      codes.push_back(callbackBranch(ctx, column, 0.5, 1));
    }
    bounds.emplace_back(lower[column], upper[column]);
    return 0;
  };
  Settings s = bare();
  s.maxNodes = 5;
  solve(p, s, cb);
  ASSERT_GE(column, 0);
  EXPECT_EQ(codes, (std::vector<int>{KLO_CB_IGNORED, KLO_OK}));
  ASSERT_GE(bounds.size(), 2u);
  EXPECT_EQ(bounds[0], std::make_pair(0.0, 1.0));
  EXPECT_EQ(bounds[1], std::make_pair(1.0, 1.0));
}

// A branch asked at every fractional node, hundreds of them (flugpl), keeps
// the search sound: the optimum is the one found without requests.
TEST_P(Callbacks, BranchAtEveryFractionalNode) {
  Problem p = readInstance("flugpl");
  int asked = 0;
  Callback cb = [&](CallbackContext& ctx) {
    const double* rel = nullptr;
    if (ctx.where != KLO_CB_MIPNODE ||
        callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NODEREL_IDX, &rel) != KLO_OK || !rel)
      return 0;
    for (int j = 0; j < ctx.numVars; ++j)
      if (p.colType[j] != KLO_CONTINUOUS && std::fabs(rel[j] - std::round(rel[j])) > 1e-6) {
        if (callbackBranch(ctx, j, rel[j], asked % 2 ? 1 : -1) == KLO_OK) ++asked;
        break;
      }
    return 0;
  };
  Result r = solve(p, quietSettings(), cb);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, 1201500, 1e-6 * 1201500);
  EXPECT_GE(asked, 200);
}

TEST_P(Callbacks, InformationOutsideItsLocationIsRefused) {
  Problem p = knapsack();
  std::vector<int> codes;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where != KLO_CB_MIPNODE || !codes.empty()) return 0;
    const double* x = nullptr;
    int n = 0;
    codes.push_back(callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_SOLUTION_IDX, &x));
    codes.push_back(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_NODECOUNT, &n));
    codes.push_back(callbackGet(ctx, KLO_CB_MIPNODE, 9999, &n));
    codes.push_back(callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NUMVARS, nullptr));
    codes.push_back(callbackGet(ctx, KLO_CB_MIPNODE, KLO_CBINFO_NUMVARS, &n));
    EXPECT_EQ(n, 5);
    const int bad[] = {5};
    const double one[] = {1.0};
    codes.push_back(callbackCut(ctx, 1, bad, one, '<', 1));
    codes.push_back(callbackBranch(ctx, -1, 0.5, 0));
    return 0;
  };
  solve(p, bare(), cb);
  EXPECT_EQ(codes, (std::vector<int>{KLO_ERROR_CALLBACK_WHERE, KLO_ERROR_CALLBACK_WHERE,
                                     KLO_ERROR_CALLBACK_INFO, KLO_ERROR_NULL_ARGUMENT, KLO_OK,
                                     KLO_ERROR_INVALID_VAR, KLO_ERROR_INVALID_VAR}));
}

// Engines whose search calls the callback at every location: those taking
// lazy constraints, which come through it (Bonmin's search raises fewer,
// tested with its adapter).
KLO_ENGINE_SUITE(Callbacks, lazyRows);

}  // namespace
}  // namespace klo::engine::test
