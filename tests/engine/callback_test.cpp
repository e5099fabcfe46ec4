// User callbacks inside the search of every engine that calls them:
// incumbents, node relaxations, cuts, proposed solutions, branching,
// progress and stopping, and lazy constraints given at incumbents.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

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

// Progress: nodes never fall, the bound stays below the incumbent.
// Incumbents: feasible, each better than the last (minimising), counted,
// the last one the result.  (A stop asked at one is tested through the C
// interface.)
TEST_P(Callbacks, SearchReportsProgressAndIncumbents) {
  const Problem p = readInstance("stein27");
  int progress = 0, lastNodes = -1;
  std::vector<std::pair<double, int>> seen;  // objective, solution count
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where == KLO_CB_MIP) {
      ++progress;
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
    }
    if (ctx.where != KLO_CB_MIPSOL) return 0;
    const double* x = nullptr;
    const double* same = nullptr;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_SOLUTION_IDX, &x), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_SOLUTION, &same), KLO_OK);
    EXPECT_EQ(x, same);
    EXPECT_LE(maxViolation(p, x, true), 1e-6);
    double best = 0;
    int count = 0;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_OBJBEST, &best), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_SOLCOUNT, &count), KLO_OK);
    EXPECT_NEAR(best, objectiveOf(p, x), 1e-6);
    seen.emplace_back(best, count);
    return 0;
  };
  Settings s = quietSettings();
  s.maxNodes = 50;
  Result r = solve(p, s, cb);
  ASSERT_TRUE(r.hasSolution);
  EXPECT_GT(progress, 10);
  ASSERT_FALSE(seen.empty());
  for (size_t k = 1; k < seen.size(); ++k) {
    EXPECT_LT(seen[k].first, seen[k - 1].first);
    EXPECT_GT(seen[k].second, seen[k - 1].second);
  }
  EXPECT_NEAR(seen.back().first, r.objective, 1e-6);
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

// Nine cities in three tight triangles far apart: the degree rows alone
// are met by three triangles, so at least two rounds of subtour rows are
// needed.
struct Tsp {
  std::vector<std::pair<double, double>> city{{0, 0},  {1, 0}, {0, 1}, {10, 0}, {11, 0},
                                              {10, 1}, {5, 8}, {6, 8}, {5, 9}};
  Tsp() = default;
  // n cities spread by a fixed pseudo-random sequence.
  Tsp(int n, unsigned rng) : city() {
    for (int k = 0; k < n; ++k) {
      rng = rng * 1103515245u + 12345u;
      double x = (rng >> 8) % 1000 / 10.0;
      rng = rng * 1103515245u + 12345u;
      city.emplace_back(x, (rng >> 8) % 1000 / 10.0);
    }
  }
  int n() const { return static_cast<int>(city.size()); }
  double dist(int i, int j) const {
    return std::hypot(city[i].first - city[j].first, city[i].second - city[j].second);
  }
  std::vector<std::pair<int, int>> edges;  // column k joins edges[k]

  Problem problem() {
    ProblemBuilder b;
    for (int i = 0; i < n(); ++i)
      for (int j = i + 1; j < n(); ++j) {
        b.col(dist(i, j), 0, 1, 'B');
        edges.emplace_back(i, j);
      }
    for (int v = 0; v < n(); ++v) {
      std::vector<std::pair<int, double>> row;
      for (size_t k = 0; k < edges.size(); ++k)
        if (edges[k].first == v || edges[k].second == v) row.emplace_back(static_cast<int>(k), 1.0);
      b.row(row, 2, 2);
    }
    return b.problem();
  }

  // The cities reachable from `from` over chosen edges.
  std::vector<int> component(const double* x, int from) const {
    std::vector<int> seen{from};
    for (size_t k = 0; k < seen.size(); ++k)
      for (size_t e = 0; e < edges.size(); ++e) {
        if (x[e] < 0.5) continue;
        int a = edges[e].first, b = edges[e].second, v = seen[k];
        int other = a == v ? b : b == v ? a : -1;
        if (other >= 0 && std::find(seen.begin(), seen.end(), other) == seen.end())
          seen.push_back(other);
      }
    return seen;
  }

  // The shortest tour by trying every order of the cities after city 0.
  double bruteForce() const {
    std::vector<int> order(n());
    std::iota(order.begin(), order.end(), 0);
    double best = 1e100;
    do {
      double len = dist(order.back(), order.front());
      for (int k = 0; k + 1 < n(); ++k) len += dist(order[k], order[k + 1]);
      best = std::min(best, len);
    } while (std::next_permutation(order.begin() + 1, order.end()));
    return best;
  }
};

// Adds the subtour row of the component of city 0 when the candidate is
// not one tour.
Callback subtourCallback(const Tsp& tsp, int& candidates, int& rowsAdded) {
  return [&tsp, &candidates, &rowsAdded](CallbackContext& ctx) {
    if (ctx.where != KLO_CB_MIPSOL) return 0;
    ++candidates;
    const double* x = nullptr;
    callbackGet(ctx, KLO_CB_MIPSOL, KLO_CBINFO_SOLUTION_IDX, &x);
    std::vector<int> sub = tsp.component(x, 0);
    if (static_cast<int>(sub.size()) == tsp.n()) return 0;
    // sum of the edges inside the subtour <= its size - 1
    std::vector<int> ind;
    std::vector<double> val;
    for (size_t e = 0; e < tsp.edges.size(); ++e) {
      bool in1 = std::count(sub.begin(), sub.end(), tsp.edges[e].first) > 0;
      bool in2 = std::count(sub.begin(), sub.end(), tsp.edges[e].second) > 0;
      if (in1 && in2) {
        ind.push_back(static_cast<int>(e));
        val.push_back(1.0);
      }
    }
    EXPECT_EQ(callbackCut(ctx, static_cast<int>(ind.size()), ind.data(), val.data(), '<',
                          static_cast<double>(sub.size()) - 1),
              KLO_OK);
    ++rowsAdded;
    return 0;
  };
}

class LazyConstraints : public EngineTest {
 protected:
  Result solveTsp(Tsp& tsp, int& candidates, int& rowsAdded) {
    Settings s = quietSettings();
    s.lazyConstraints = true;
    return solve(tsp.problem(), s, subtourCallback(tsp, candidates, rowsAdded));
  }
};

// Three tight clusters need at least two rounds of subtour rows; scattered
// cities make the search branch with lazy rows about.
TEST_P(LazyConstraints, SubtourRowsGivenAtIncumbentsGiveTheShortestTour) {
  const Tsp cases[] = {Tsp(), Tsp(9, 1), Tsp(9, 2), Tsp(9, 3)};
  for (Tsp tsp : cases) {
    int candidates = 0, rowsAdded = 0;
    Result r = solveTsp(tsp, candidates, rowsAdded);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
    if (tsp.city == cases[0].city) {
      EXPECT_GE(rowsAdded, 2);
    }
    EXPECT_GT(candidates, rowsAdded);
    EXPECT_EQ(tsp.component(r.x.data(), 0).size(), static_cast<size_t>(tsp.n()));  // one tour
    EXPECT_NEAR(r.objective, tsp.bruteForce(), 1e-6);
  }
}

// Without the setting, a cut at an incumbent is refused: cuts belong to
// node relaxations.
TEST_P(LazyConstraints, RefusedUnlessEnabled) {
  Tsp tsp;
  Problem p = tsp.problem();
  int code = 0;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where == KLO_CB_MIPSOL && code == 0) {
      const int ind[] = {0};
      const double val[] = {1.0};
      code = callbackCut(ctx, 1, ind, val, '<', 0);
    }
    return 0;
  };
  const Result r = solve(p, quietSettings(), cb);
  EXPECT_EQ(code, KLO_CB_IGNORED);  // refused, and the search goes on
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
}

// Engines whose search calls the callback at every location: those taking
// lazy constraints, which come through it (Bonmin's search raises fewer,
// tested with its adapter).
KLO_ENGINE_SUITE(Callbacks, lazyRows);
KLO_ENGINE_SUITE(LazyConstraints, lazyRows);

}  // namespace
}  // namespace klo::engine::test
