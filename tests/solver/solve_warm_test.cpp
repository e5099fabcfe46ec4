// Re-solving an LP after a change starts from the previous basis, kept by
// the model through the change, and needs fewer simplex iterations than
// solving the changed model from scratch.
#include <algorithm>
#include <cmath>
#include <functional>

#include "fixtures.h"

namespace klotest {
namespace {

class SolveWarm : public ModelTest {
 protected:
  void solveInstance() {
    readInstance("25fv47.mps.gz");
    n = intAttr("NumVars");
    m = intAttr("NumConstrs");
    optimize();
    ASSERT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    first = dbl("ObjVal");
  }
  // The iterations and objective of solving a copy of the model without
  // any basis, or with the one given.
  // With addSlackRow, a row that binds nothing is added after the basis is
  // set: the basis must grow with it (its slack basic) and still serve.
  std::pair<int, double> solveCopy(const std::vector<int>& cols = {},
                                   const std::vector<int>& rows = {}, bool addSlackRow = false) {
    KLOmodel* copy = KLOcopymodel(model);
    EXPECT_EQ(KLOreset(copy, 1), KLO_OK);
    if (!cols.empty()) {
      EXPECT_EQ(KLOsetintattrarray(copy, "ColBasis", 0, n, cols.data()), KLO_OK);
      EXPECT_EQ(KLOsetintattrarray(copy, "RowBasis", 0, m, rows.data()), KLO_OK);
    }
    if (addSlackRow) {
      const int var = 0;
      const double one = 1;
      EXPECT_EQ(KLOaddrangeconstr(copy, 1, &var, &one, -KLO_INFINITY, 1e9, "far"), KLO_OK);
      int status = -1;
      EXPECT_EQ(KLOgetintattrelement(copy, "RowBasis", m, &status), KLO_OK);
      EXPECT_EQ(status, KLO_BASIS_BASIC);
    }
    EXPECT_EQ(KLOoptimize(copy), KLO_OK);
    int status = 0, iters = -1;
    double obj = 0;
    EXPECT_EQ(KLOgetintattr(copy, "Status", &status), KLO_OK);
    EXPECT_EQ(status, KLO_STATUS_OPTIMAL);
    EXPECT_EQ(KLOgetintattr(copy, "SPX/NumIters", &iters), KLO_OK);
    EXPECT_EQ(KLOgetdblattr(copy, "ObjVal", &obj), KLO_OK);
    KLOfreemodel(copy);
    return {iters, obj};
  }

  int n = 0, m = 0;
  double first = 0;
};

// Ten variables at their lower bound with a positive reduced cost get a
// lower bound 0.5 above: reduced costs do not depend on bounds, so the old
// basis stays dual feasible and the dual simplex goes on from it.  A 1%
// dearer objective keeps it primal feasible.  The row c'x >= z* + 0.1% |z*|
// cuts the old optimum off; the new optimum is that bound.
TEST_F(SolveWarm, AfterEachKindOfChangeTheResolveBeatsAColdStart) {
  // Each change returns what the new optimum must exceed and what it must
  // be, where known (NAN where not).
  const std::function<std::pair<double, double>()> changes[] = {
      [this] {
        const std::vector<double> x = dblArray("X", n), rc = dblArray("RC", n),
                                  ub = dblArray("UB", n);
        int changed = 0;
        for (int j = 0; j < n && changed < 10; ++j) {
          if (rc[j] <= 1e-6 || ub[j] < x[j] + 1) continue;
          EXPECT_EQ(KLOsetdblattrelement(model, "LB", j, x[j] + 0.5), KLO_OK);
          ++changed;
        }
        EXPECT_EQ(changed, 10);
        return std::make_pair(first, NAN);  // the old optimum was cut off
      },
      [this] {
        for (int j = 0; j < n; j += 7)
          EXPECT_EQ(KLOsetdblattrelement(model, "Obj", j, dblAt("Obj", j) * 1.01), KLO_OK);
        return std::make_pair(-KLO_INFINITY, NAN);
      },
      [this] {
        const std::vector<double> c = dblArray("Obj", n);
        std::vector<std::pair<int, double>> terms;
        for (int j = 0; j < n; ++j)
          if (c[j] != 0) terms.emplace_back(j, c[j]);
        const double target = first + 1e-3 * std::fabs(first);
        row(terms, '>', target - dbl("ObjCon"));
        return std::make_pair(-KLO_INFINITY, target);
      }};
  for (const auto& change : changes) {
    solveInstance();
    const auto [above, target] = change();
    const auto [coldIters, coldObj] = solveCopy();
    optimize();
    ASSERT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(dbl("ObjVal"), coldObj, 1e-6 * std::max(1.0, std::fabs(coldObj)));
    EXPECT_LT(intAttr("SPX/NumIters"), coldIters);
    EXPECT_GT(dbl("ObjVal"), above);
    if (!std::isnan(target)) {
      EXPECT_NEAR(dbl("ObjVal"), target, 1e-6 * std::fabs(target));
    }
  }
}

// Deleting a row whose slack is basic leaves the rest of the basis optimal,
// provided it stays in step with the rows; a basis the user sets is the
// start of the next solve; KLOreset(model, 0) forgets the kept one.
TEST_F(SolveWarm, TheBasisFollowsDeletionsAndUserBasesAndResetForgetsIt) {
  solveInstance();
  const int coldIters = intAttr("SPX/NumIters");
  const auto [userIters, userObj] = solveCopy(intArray("ColBasis", n), intArray("RowBasis", m));
  EXPECT_LE(userIters, 5);
  EXPECT_NEAR(userObj, first, 1e-6 * std::fabs(first));
  const auto [grownIters, grownObj] =
      solveCopy(intArray("ColBasis", n), intArray("RowBasis", m), true);
  EXPECT_LE(grownIters, 5) << "the basis grew with the added row";
  EXPECT_NEAR(grownObj, first, 1e-6 * std::fabs(first));
  optimize();
  EXPECT_LE(intAttr("SPX/NumIters"), 5) << "from the optimal basis";
  ASSERT_EQ(KLOreset(model, 0), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("SPX/NumIters"), coldIters);
  const std::vector<int> rows = intArray("RowBasis", m);
  const int slack =
      static_cast<int>(std::find(rows.begin(), rows.end(), KLO_BASIS_BASIC) - rows.begin());
  ASSERT_LT(slack, m);
  ASSERT_EQ(KLOdelconstrs(model, 1, &slack), KLO_OK);
  int v = 0;
  EXPECT_EQ(KLOgetintattrelement(model, "RowBasis", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE)
      << "after a change the basis is kept for the solve, not read back";
  optimize();
  EXPECT_LE(intAttr("SPX/NumIters"), 5);
  EXPECT_NEAR(dbl("ObjVal"), first, 1e-6 * std::fabs(first));
}

}  // namespace
}  // namespace klotest
