// Lazy constraints from the incumbent callback: a travelling salesman
// problem with degree rows only, whose subtour rows are given lazily.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

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

TEST_P(LazyConstraints, SubtourRowsGivenAtIncumbentsGiveTheShortestTour) {
  Tsp tsp;
  int candidates = 0, rowsAdded = 0;
  Result r = solveTsp(tsp, candidates, rowsAdded);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_GE(rowsAdded, 2);
  EXPECT_GT(candidates, rowsAdded);
  EXPECT_EQ(tsp.component(r.x.data(), 0).size(), static_cast<size_t>(tsp.n()));  // one tour
  EXPECT_NEAR(r.objective, tsp.bruteForce(), 1e-6);
}

// Scattered cities, where the search must branch with lazy rows about.
TEST_P(LazyConstraints, ScatteredCities) {
  for (unsigned rng : {1u, 2u, 3u}) {
    Tsp tsp(9, rng);
    int candidates = 0, rowsAdded = 0;
    Result r = solveTsp(tsp, candidates, rowsAdded);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL) << rng;
    EXPECT_EQ(tsp.component(r.x.data(), 0).size(), static_cast<size_t>(tsp.n())) << rng;
    EXPECT_NEAR(r.objective, tsp.bruteForce(), 1e-6) << rng;
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

KLO_ENGINE_SUITE(LazyConstraints, lazyRows);

}  // namespace
}  // namespace klo::engine::test
