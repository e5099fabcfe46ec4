// Re-solving an LP after a change starts from the previous basis, kept by
// the model through the change, and needs fewer simplex iterations than
// solving the changed model from scratch.
#include <cmath>

#include "solve_fixture.h"

namespace klotest {
namespace {

class SolveWarm : public SolveTest {
 protected:
  void SetUp() override {
    SolveTest::SetUp();
    readInstance("25fv47.mps.gz");
    n = intAttr("NumVars");
    m = intAttr("NumConstrs");
    optimize();
    ASSERT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    first = dbl("ObjVal");
  }

  // Solves the changed model warm (as it stands) and then cold (a copy
  // without any basis); both must agree on the optimum.
  void expectWarmWins() {
    KLOmodel* cold = KLOcopymodel(model);
    ASSERT_NE(cold, nullptr);
    ASSERT_EQ(KLOreset(cold, 1), KLO_OK);
    optimize();
    ASSERT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    const int warmIters = intAttr("SPX/NumIters");
    ASSERT_EQ(KLOoptimize(cold), KLO_OK);
    int status = 0, coldIters = 0;
    double coldObj = 0;
    ASSERT_EQ(KLOgetintattr(cold, "Status", &status), KLO_OK);
    ASSERT_EQ(status, KLO_STATUS_OPTIMAL);
    ASSERT_EQ(KLOgetintattr(cold, "SPX/NumIters", &coldIters), KLO_OK);
    ASSERT_EQ(KLOgetdblattr(cold, "ObjVal", &coldObj), KLO_OK);
    KLOfreemodel(cold);
    EXPECT_NEAR(dbl("ObjVal"), coldObj, 1e-6 * std::max(1.0, std::fabs(coldObj)));
    EXPECT_LT(warmIters, coldIters);
    RecordProperty("warm", warmIters);
    RecordProperty("cold", coldIters);
  }

  int n = 0, m = 0;
  double first = 0;
};

// Ten variables at their lower bound with a positive reduced cost get a
// lower bound 0.5 above: the old point is cut off and the objective rises.
// Reduced costs do not depend on bounds, so the old basis stays dual
// feasible and the dual simplex goes on from it (often in no iterations,
// when the basic variables absorb the shift).
TEST_F(SolveWarm, AfterChangingBounds) {
  std::vector<double> x = dblArray("X", n), rc = dblArray("RC", n), ub = dblArray("UB", n);
  int changed = 0;
  for (int j = 0; j < n && changed < 10; ++j) {
    if (rc[j] <= 1e-6 || ub[j] < x[j] + 1) continue;
    ASSERT_EQ(KLOsetdblattrelement(model, "LB", j, x[j] + 0.5), KLO_OK);
    ++changed;
  }
  ASSERT_EQ(changed, 10);
  expectWarmWins();
  EXPECT_GT(dbl("ObjVal"), first) << "the old optimum was cut off";
}

TEST_F(SolveWarm, AfterChangingTheObjective) {
  for (int j = 0; j < n; j += 7) {
    double c = 0;
    ASSERT_EQ(KLOgetdblattrelement(model, "Obj", j, &c), KLO_OK);
    ASSERT_EQ(KLOsetdblattrelement(model, "Obj", j, c * 1.01), KLO_OK);
  }
  expectWarmWins();
}

// The row c'x >= z* + 0.1% |z*| cuts the old optimum off; the new optimum
// is that bound.
TEST_F(SolveWarm, AfterAddingARow) {
  std::vector<double> c(n);
  ASSERT_EQ(KLOgetdblattrarray(model, "Obj", 0, n, c.data()), KLO_OK);
  double constant = 0;
  ASSERT_EQ(KLOgetdblattr(model, "ObjCon", &constant), KLO_OK);
  std::vector<int> ind;
  std::vector<double> val;
  for (int j = 0; j < n; ++j)
    if (c[j] != 0) {
      ind.push_back(j);
      val.push_back(c[j]);
    }
  const double target = first + 1e-3 * std::fabs(first);
  const int beg = 0;
  const char gt = '>';
  const double rhs = target - constant;
  ASSERT_EQ(KLOaddconstrs(model, 1, static_cast<int>(ind.size()), &beg, ind.data(), val.data(), &gt,
                          &rhs, nullptr),
            KLO_OK);
  expectWarmWins();
  EXPECT_NEAR(dbl("ObjVal"), target, 1e-6 * std::fabs(target));
}

// Deleting a row whose slack is basic (a row that does not bind) leaves
// the rest of the basis optimal, provided it stays in step with the rows:
// the re-solve then needs (almost) no iterations.
TEST_F(SolveWarm, DeletionsKeepTheBasisInStep) {
  std::vector<int> rows = intArray("RowBasis", m);
  int slack = -1;
  for (int i = 0; i < m && slack < 0; ++i)
    if (rows[i] == KLO_BASIS_BASIC) slack = i;
  ASSERT_GE(slack, 0);
  ASSERT_EQ(KLOdelconstrs(model, 1, &slack), KLO_OK);
  int v = 0;
  EXPECT_EQ(KLOgetintattrelement(model, "RowBasis", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE)
      << "after a change the basis is kept for the solve, not read back";
  optimize();
  EXPECT_LE(intAttr("SPX/NumIters"), 5);
  EXPECT_NEAR(dbl("ObjVal"), first, 1e-6 * std::fabs(first));
}

// A basis the user sets is the start of the next solve: the optimal basis
// read from one model and given to a fresh copy solves in no iterations.
TEST_F(SolveWarm, UserBasisIsTheStart) {
  std::vector<int> cols = intArray("ColBasis", n), rows = intArray("RowBasis", m);
  KLOmodel* fresh = KLOcopymodel(model);
  ASSERT_NE(fresh, nullptr);
  ASSERT_EQ(KLOreset(fresh, 1), KLO_OK);
  ASSERT_EQ(KLOsetintattrarray(fresh, "ColBasis", 0, n, cols.data()), KLO_OK);
  ASSERT_EQ(KLOsetintattrarray(fresh, "RowBasis", 0, m, rows.data()), KLO_OK);
  ASSERT_EQ(KLOoptimize(fresh), KLO_OK);
  int iters = -1;
  double obj = 0;
  ASSERT_EQ(KLOgetintattr(fresh, "SPX/NumIters", &iters), KLO_OK);
  ASSERT_EQ(KLOgetdblattr(fresh, "ObjVal", &obj), KLO_OK);
  KLOfreemodel(fresh);
  EXPECT_LE(iters, 5);
  EXPECT_NEAR(obj, first, 1e-6 * std::fabs(first));
}

// KLOreset(model, 0) forgets the kept basis: the next solve is cold.
TEST_F(SolveWarm, ResetStartsCold) {
  const int coldIters = intAttr("SPX/NumIters");
  optimize();
  EXPECT_LE(intAttr("SPX/NumIters"), 5) << "from the optimal basis";
  ASSERT_EQ(KLOreset(model, 0), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("SPX/NumIters"), coldIters);
}

}  // namespace
}  // namespace klotest
