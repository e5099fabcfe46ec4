// The analyses of infeasible models: the feasibility relaxation and the
// irreducible infeasible subsystem.  Neither changes the model.
#include "solve_fixture.h"

namespace klotest {
namespace {

class SolveAnalysis : public SolveTest {
 public:  // for the builders of table-driven cases
  using ModelTest::model;
  using SolveTest::row;
  using SolveTest::var;

 protected:
  // min x + 2y, x, y in [0, 10]:  r0: x + y >= 5,  r1: x + y <= 3.
  // Whatever x + y in [3, 5] is chosen, the rows are violated by 2 in all.
  void conflictingRows() {
    var(1, 0, 10);
    var(2, 0, 10);
    row({{0, 1}, {1, 1}}, '>', 5);
    row({{0, 1}, {1, 1}}, '<', 3);
  }
  double relax(int type, int minrelax, const double* lb, const double* ub, const double* rhs) {
    double f = -1;
    EXPECT_EQ(KLOfeasrelax(model, type, minrelax, lb, ub, rhs, &f), KLO_OK) << modelError();
    return f;
  }
  void expectUnchanged() {
    EXPECT_EQ(intAttr("NumVars"), 2);
    EXPECT_EQ(intAttr("NumConstrs"), 2);
    EXPECT_EQ(dblAt("RHS", 0), KLO_INFINITY);
    EXPECT_EQ(dblAt("LHS", 0), 5);
    EXPECT_EQ(dblAt("UB", 0), 10);
  }
};

// Penalties 1 on r0 and 3 on r1: violating r0 by 2 (x + y = 3) costs 2,
// r1 would cost 6.  Among those points, min x + 2y: x = 3, y = 0.
TEST_F(SolveAnalysis, FeasRelaxPricesRowViolations) {
  conflictingRows();
  const double rhspen[] = {1, 3};
  EXPECT_NEAR(relax(0, 0, nullptr, nullptr, rhspen), 2, 1e-9);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(dblAt("Activity", 0), 3, 1e-9);
  EXPECT_NEAR(dbl("ObjVal"), 2, 1e-9) << "the violation measure";
  expectUnchanged();
  EXPECT_NEAR(relax(0, 1, nullptr, nullptr, rhspen), 2, 1e-9);
  std::vector<double> x = dblArray("X", 2);
  EXPECT_NEAR(x[0], 3, 1e-6);
  EXPECT_NEAR(x[1], 0, 1e-6);
  EXPECT_NEAR(dbl("ObjVal"), 3, 1e-6) << "the model's objective";
  expectUnchanged();
}

// Counting violations: one violated row suffices, whichever.
TEST_F(SolveAnalysis, FeasRelaxCountsViolations) {
  conflictingRows();
  const double rhspen[] = {1, 1};
  EXPECT_NEAR(relax(2, 0, nullptr, nullptr, rhspen), 1, 1e-6);
  std::vector<double> act = dblArray("Activity", 2);
  const bool r0 = act[0] >= 5 - 1e-6, r1 = act[1] <= 3 + 1e-6;
  EXPECT_TRUE(r0 != r1) << "exactly one row holds";
  expectUnchanged();
}

// x in [0, 10], y in [0, 10], x + y >= 25 with the rows fixed: raising x's
// upper bound costs 1 a unit, y's 2: x = 15, measure 5.
TEST_F(SolveAnalysis, FeasRelaxMovesBounds) {
  var(1, 0, 10);
  var(1, 0, 10);
  row({{0, 1}, {1, 1}}, '>', 25);
  const double ubpen[] = {1, 2};
  EXPECT_NEAR(relax(0, 0, nullptr, ubpen, nullptr), 5, 1e-9);
  EXPECT_NEAR(dblAt("X", 0), 15, 1e-9);
  EXPECT_NEAR(dblAt("X", 1), 10, 1e-9);
  EXPECT_EQ(dblAt("UB", 0), 10) << "the model keeps its bounds";
}

TEST_F(SolveAnalysis, FeasRelaxRefusals) {
  conflictingRows();
  const double rhspen[] = {1, 1}, negative[] = {1, -1};
  double f = 0;
  EXPECT_EQ(KLOfeasrelax(model, 1, 0, nullptr, nullptr, rhspen, &f), KLO_ERROR_NOT_SUPPORTED);
  EXPECT_NE(modelError().find("squared"), std::string::npos);
  EXPECT_EQ(KLOfeasrelax(model, 3, 0, nullptr, nullptr, rhspen, &f), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOfeasrelax(model, 0, 0, nullptr, nullptr, negative, &f), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_NE(modelError().find("rhspen[1]"), std::string::npos);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_UNSTARTED) << "refusals leave no results";
  // Nothing may be relaxed: no relaxed point, and the status says why.
  EXPECT_EQ(KLOfeasrelax(model, 0, 0, nullptr, nullptr, nullptr, &f), KLO_OK);
  EXPECT_EQ(f, KLO_INFINITY);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INFEASIBLE);
  EXPECT_EQ(KLOfeasrelax(nullptr, 0, 0, nullptr, nullptr, nullptr, &f), KLO_ERROR_NULL_ARGUMENT);
}

// x, y in [0, 10]:  r0: x + y >= 5,  r1: x <= 1,  r2: y <= 2,
// r3: x - y <= 100.  r0 cannot hold with r1 and r2 (x + y <= 3); r3 and
// the variable bounds play no part.
TEST_F(SolveAnalysis, IisNamesTheConflictingRows) {
  var(1, 0, 10);
  var(1, 0, 10);
  row({{0, 1}, {1, 1}}, '>', 5);
  row({{0, 1}}, '<', 1);
  row({{1, 1}}, '<', 2);
  row({{0, 1}, {1, -1}}, '<', 100);
  int v = 0;
  EXPECT_EQ(KLOgetintattrelement(model, "IISConstr", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE);
  ASSERT_EQ(KLOcomputeIIS(model), KLO_OK) << modelError();
  EXPECT_EQ(intArray("IISConstr", 4),
            (std::vector<int>{KLO_IIS_LOWER, KLO_IIS_UPPER, KLO_IIS_UPPER, KLO_IIS_NONE}));
  EXPECT_EQ(intArray("IISVar", 2), (std::vector<int>{KLO_IIS_NONE, KLO_IIS_NONE}));
  EXPECT_EQ(intArray("IISRow", 4), intArray("IISConstr", 4));
  ASSERT_EQ(KLOsetdblattrelement(model, "RHS", 3, 50), KLO_OK);
  EXPECT_EQ(KLOgetintattrelement(model, "IISConstr", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE)
      << "a change discards it";
}

// x in [0, 1], y in [0, 2]:  x + y >= 5 and a row that does not matter.
TEST_F(SolveAnalysis, IisNamesVariableBounds) {
  var(0, 0, 1);
  var(0, 0, 2);
  row({{0, 1}, {1, 1}}, '>', 5);
  row({{0, 1}, {1, 2}}, '<', 50);
  ASSERT_EQ(KLOcomputeIIS(model), KLO_OK) << modelError();
  EXPECT_EQ(intArray("IISConstr", 2), (std::vector<int>{KLO_IIS_LOWER, KLO_IIS_NONE}));
  EXPECT_EQ(intArray("IISVar", 2), (std::vector<int>{KLO_IIS_UPPER, KLO_IIS_UPPER}));
}

// x + y = 1 and x - y = 0 hold only at x = y = 0.5: no integer solution.
// Each side of each equality is needed (without one, x = y = 0 or 1, or
// x = 0, y = 1, will do); no variable bound is.
TEST_F(SolveAnalysis, IisOfAnIntegerModel) {
  var(0, 0, 10, 'I');
  var(0, 0, 10, 'I');
  row({{0, 1}, {1, 1}}, '=', 1);
  row({{0, 1}, {1, -1}}, '=', 0);
  ASSERT_EQ(KLOcomputeIIS(model), KLO_OK) << modelError();
  EXPECT_EQ(intArray("IISConstr", 2), (std::vector<int>{KLO_IIS_BOTH, KLO_IIS_BOTH}));
  EXPECT_EQ(intArray("IISVar", 2), (std::vector<int>{KLO_IIS_NONE, KLO_IIS_NONE}));
}

TEST_F(SolveAnalysis, IisOfAFeasibleModelIsRefused) {
  conflictingRows();
  ASSERT_EQ(KLOsetdblattrelement(model, "RHS", 1, 6), KLO_OK);
  EXPECT_EQ(KLOcomputeIIS(model), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_NE(modelError().find("feasible"), std::string::npos);
  EXPECT_EQ(KLOcomputeIIS(nullptr), KLO_ERROR_NULL_ARGUMENT);
}

// Integer rows: 2x + 2y = 5 has no integer solution whatever the bounds
// (the gcd of its terms says so, where branching would never end), so
// only its two sides are needed.
TEST_F(SolveAnalysis, IisOfARowWithoutIntegerSolution) {
  var(0, 0, 10, 'I');
  var(0, 0, 10, 'I');
  row({{0, 2}, {1, 2}}, '=', 5);
  int v = 0;
  EXPECT_EQ(KLOgetintattr(model, "IISMinimal", &v), KLO_ERROR_DATA_NOT_AVAILABLE);
  ASSERT_EQ(KLOcomputeIIS(model), KLO_OK) << modelError();
  EXPECT_EQ(intArray("IISConstr", 1), (std::vector<int>{KLO_IIS_BOTH}));
  EXPECT_EQ(intArray("IISVar", 2), (std::vector<int>{KLO_IIS_NONE, KLO_IIS_NONE}));
  EXPECT_EQ(intAttr("IISMinimal"), 1);
}

// "MaxTime" covers the whole analysis: out of time after the first proof,
// every bound not yet tried stays and the set is not proven irreducible.
TEST_F(SolveAnalysis, IisOutOfTimeSaysItIsNotProvenIrreducible) {
  var(0, 0, 10, 'I');
  var(0, 0, 10, 'I');
  row({{0, 2}, {1, 2}}, '=', 5);
  row({{0, 1}, {1, -1}}, '<', 100);
  setDbl("MaxTime", 0);
  ASSERT_EQ(KLOcomputeIIS(model), KLO_OK) << modelError();
  EXPECT_EQ(intAttr("IISMinimal"), 0);
  EXPECT_EQ(intArray("IISConstr", 2), (std::vector<int>{KLO_IIS_BOTH, KLO_IIS_UPPER}));
  EXPECT_EQ(intArray("IISVar", 2), (std::vector<int>{KLO_IIS_BOTH, KLO_IIS_BOTH}));
}

// z >= 1, x in [0, 10], x <= 3, and z = 1 implies x >= 5.
void indicatorModel(SolveAnalysis& t) {
  t.var(0, 0, 10);
  t.var(0, 0, 1, 'B');
  t.row({{1, 1}}, '>', 1);
  t.row({{0, 1}}, '<', 3);
  const int ind[] = {0};
  const double val[] = {1};
  ASSERT_EQ(KLOaddgenconstrIndicator(t.model, "g", 1, 1, 1, ind, val, '>', 5), KLO_OK);
}

// Binaries stay binary (their bounds count where they narrow [0, 1]);
// indicators and semi-continuous variables take part through their
// reformulations; the members are the model's own rows and bounds.
TEST_F(SolveAnalysis, IisOfBinariesIndicatorsAndSemicontinuousVariables) {
  struct Case {
    const char* name;
    void (*build)(SolveAnalysis&);
    std::vector<int> rows, vars;
  };
  const Case cases[] = {
      {"binary fixed at 1",
       [](SolveAnalysis& t) {
         t.var(0, 1, 1, 'B');
         t.row({{0, 1}}, '<', 0.5);
       },
       {KLO_IIS_UPPER},
       {KLO_IIS_LOWER}},
      // z >= 1, x <= 3, and z = 1 implies x >= 5
      {"indicator",
       indicatorModel,
       {KLO_IIS_LOWER, KLO_IIS_UPPER},
       {KLO_IIS_NONE, KLO_IIS_NONE}},
      // x 0 or in [2, 5], and 0.5 <= x <= 1: x's upper bound is not needed
      {"semi-continuous",
       [](SolveAnalysis& t) {
         t.var(0, 2, 5, 'S');
         t.row({{0, 1}}, '<', 1);
         t.row({{0, 1}}, '>', 0.5);
       },
       {KLO_IIS_UPPER, KLO_IIS_LOWER},
       {KLO_IIS_LOWER}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    KLOfreemodel(model);
    ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
    c.build(*this);
    ASSERT_EQ(KLOcomputeIIS(model), KLO_OK) << modelError();
    EXPECT_EQ(intArray("IISConstr", static_cast<int>(c.rows.size())), c.rows);
    EXPECT_EQ(intArray("IISVar", static_cast<int>(c.vars.size())), c.vars);
    EXPECT_EQ(intAttr("IISMinimal"), 1);
  }
}

// The relaxation keeps indicators and semi-continuity; a semi-continuous
// variable's bounds are relaxed while it is away from 0.
TEST_F(SolveAnalysis, FeasRelaxOfIndicatorsAndSemicontinuousVariables) {
  struct Case {
    const char* name;
    void (*build)(SolveAnalysis&);
    double lbPen, ubPen, rhsPen1;  // variable 0's bounds, row 1
    double measure, x;
  };
  const double inf = KLO_INFINITY;
  const Case cases[] = {
      // z >= 1 (kept), x <= 3 (relaxed), z = 1 implies x >= 5
      {"indicator",
       indicatorModel,
       inf, inf, 1, 2, 5},
      {"semi-continuous, lower bound",
       [](SolveAnalysis& t) {
         t.var(0, 2, 5, 'S');
         t.row({{0, 1}}, '<', 1);
         t.row({{0, 1}}, '>', 0.5);
       },
       1, 1, inf, 1, 1},
      {"semi-continuous, upper bound",
       [](SolveAnalysis& t) {
         t.var(0, 2, 5, 'S');
         t.row({{0, 1}}, '>', 7);
         t.row({{0, 1}}, '<', 100);
       },
       1, 1, inf, 2, 7},
      {"semi-continuous, negative range",
       [](SolveAnalysis& t) {
         t.var(0, -5, -2, 'S');
         t.row({{0, 1}}, '<', -7);
         t.row({{0, 1}}, '>', -100);
       },
       1, 1, inf, 2, -7},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    KLOfreemodel(model);
    ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
    c.build(*this);
    const double lb[] = {c.lbPen, inf}, ub[] = {c.ubPen, inf}, rhs[] = {inf, c.rhsPen1};
    EXPECT_NEAR(relax(0, 0, lb, ub, rhs), c.measure, 1e-6);
    EXPECT_NEAR(dblAt("X", 0), c.x, 1e-6);
  }
}

}  // namespace
}  // namespace klotest
