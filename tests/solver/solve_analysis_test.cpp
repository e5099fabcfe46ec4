// The analyses of infeasible models: the feasibility relaxation and the
// irreducible infeasible subsystem.  Neither changes the model.
#include <functional>

#include "fixtures.h"
#include "model_snapshot.h"

namespace klotest {
namespace {

using I = std::vector<int>;
constexpr int kNone = KLO_IIS_NONE, kLow = KLO_IIS_LOWER, kUp = KLO_IIS_UPPER, kBoth = KLO_IIS_BOTH;

class SolveAnalysis : public ModelTest {
 protected:
  // min x + 2y, x, y in [0, 10]:  r0: x + y >= 5,  r1: x + y <= 3.
  // Whatever x + y in [3, 5] is chosen, the rows are violated by 2 in all.
  void conflictingRows() {
    var(1, 0, 10);
    var(2, 0, 10);
    row({{0, 1}, {1, 1}}, '>', 5);
    row({{0, 1}, {1, 1}}, '<', 3);
  }
  // z >= 1, x in [0, 10], x <= 3, and z = 1 implies x >= 5.
  void indicatorModel() {
    var(0, 0, 10);
    var(0, 0, 1, 'B');
    row({{1, 1}}, '>', 1);
    row({{0, 1}}, '<', 3);
    const int ind[] = {0};
    const double val[] = {1};
    ASSERT_EQ(KLOaddgenconstrIndicator(model, "g", 1, 1, 1, ind, val, '>', 5), KLO_OK);
  }
  // x semi-continuous in [lb, ub] with the rows  x sense1 rhs1, x sense2 rhs2.
  void semicontinuous(double lb, double ub, char s1, double r1, char s2, double r2) {
    var(0, lb, ub, 'S');
    row({{0, 1}}, s1, r1);
    row({{0, 1}}, s2, r2);
  }
  double relax(int type, int minrelax, const double* lb, const double* ub, const double* rhs) {
    double f = -1;
    EXPECT_EQ(KLOfeasrelax(model, type, minrelax, lb, ub, rhs, &f), KLO_OK) << modelError();
    return f;
  }
};

// Penalties 1 on r0 and 3 on r1: violating r0 by 2 (x + y = 3) costs 2,
// r1 would cost 6.  Among those points, min x + 2y: x = 3, y = 0.
// Counting violations: one violated row suffices, whichever.
TEST_F(SolveAnalysis, FeasRelaxPricesOrCountsRowViolations) {
  conflictingRows();
  const std::string before = snapshot(model);
  const double rhspen[] = {1, 3}, ones[] = {1, 1};
  EXPECT_NEAR(relax(0, 0, nullptr, nullptr, rhspen), 2, 1e-9);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(dblAt("Activity", 0), 3, 1e-9);
  EXPECT_NEAR(dbl("ObjVal"), 2, 1e-9) << "the violation measure";
  EXPECT_EQ(snapshot(model), before);
  EXPECT_NEAR(relax(0, 1, nullptr, nullptr, rhspen), 2, 1e-9);
  expectNear(dblArray("X", 2), {3, 0}, 1e-6);
  EXPECT_NEAR(dbl("ObjVal"), 3, 1e-6) << "the model's objective";
  EXPECT_EQ(snapshot(model), before);
  EXPECT_NEAR(relax(2, 0, nullptr, nullptr, ones), 1, 1e-6);
  const std::vector<double> act = dblArray("Activity", 2);
  EXPECT_TRUE((act[0] >= 5 - 1e-6) != (act[1] <= 3 + 1e-6)) << "exactly one row holds";
  EXPECT_EQ(snapshot(model), before);
}

// x in [0, 10], y in [0, 10], x + y >= 25 with the rows fixed: raising x's
// upper bound costs 1 a unit, y's 2: x = 15, measure 5.
TEST_F(SolveAnalysis, FeasRelaxMovesBounds) {
  var(1, 0, 10);
  var(1, 0, 10);
  row({{0, 1}, {1, 1}}, '>', 25);
  const double ubpen[] = {1, 2};
  EXPECT_NEAR(relax(0, 0, nullptr, ubpen, nullptr), 5, 1e-9);
  expectNear(dblArray("X", 2), {15, 10}, 1e-9);
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

// The relaxation keeps indicators and semi-continuity; a semi-continuous
// variable's bounds are relaxed while it is away from 0.
TEST_F(SolveAnalysis, FeasRelaxOfIndicatorsAndSemicontinuousVariables) {
  struct Case {
    const char* name;
    std::function<void()> build;
    double lbPen, ubPen, rhsPen1;  // variable 0's bounds, row 1
    double measure, x;
  };
  const double inf = KLO_INFINITY;
  const Case cases[] = {
      // z >= 1 (kept), x <= 3 (relaxed), z = 1 implies x >= 5
      {"indicator", [this] { indicatorModel(); }, inf, inf, 1, 2, 5},
      {"semi-continuous, lower bound", [this] { semicontinuous(2, 5, '<', 1, '>', 0.5); }, 1, 1,
       inf, 1, 1},
      {"semi-continuous, upper bound", [this] { semicontinuous(2, 5, '>', 7, '<', 100); }, 1, 1,
       inf, 2, 7},
      {"semi-continuous, negative range", [this] { semicontinuous(-5, -2, '<', -7, '>', -100); }, 1,
       1, inf, 2, -7},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    fresh();
    c.build();
    const double lb[] = {c.lbPen, inf}, ub[] = {c.ubPen, inf}, rhs[] = {inf, c.rhsPen1};
    EXPECT_NEAR(relax(0, 0, lb, ub, rhs), c.measure, 1e-6);
    EXPECT_NEAR(dblAt("X", 0), c.x, 1e-6);
  }
}

// Each subsystem: its rows and bounds, and whether it is proven irreducible.
TEST_F(SolveAnalysis, IisNamesTheConflictingRowsAndBounds) {
  struct Case {
    const char* name;
    std::function<void()> build;
    I rows, vars;
    int minimal;
  };
  const Case cases[] = {
      // r0 cannot hold with r1 and r2 (x + y <= 3); r3 and the bounds play
      // no part.
      {"rows",
       [this] {
         var(1, 0, 10);
         var(1, 0, 10);
         row({{0, 1}, {1, 1}}, '>', 5);
         row({{0, 1}}, '<', 1);
         row({{1, 1}}, '<', 2);
         row({{0, 1}, {1, -1}}, '<', 100);
       },
       {kLow, kUp, kUp, kNone},
       {kNone, kNone},
       1},
      // x in [0, 1], y in [0, 2], x + y >= 5, and a row that does not matter.
      {"bounds",
       [this] {
         var(0, 0, 1);
         var(0, 0, 2);
         row({{0, 1}, {1, 1}}, '>', 5);
         row({{0, 1}, {1, 2}}, '<', 50);
       },
       {kLow, kNone},
       {kUp, kUp},
       1},
      // x + y = 1 and x - y = 0 hold only at x = y = 0.5: each side of each
      // equality is needed, no bound is.
      {"integers",
       [this] {
         var(0, 0, 10, 'I');
         var(0, 0, 10, 'I');
         row({{0, 1}, {1, 1}}, '=', 1);
         row({{0, 1}, {1, -1}}, '=', 0);
       },
       {kBoth, kBoth},
       {kNone, kNone},
       1},
      // 2x + 2y = 5 has no integer solution whatever the bounds (the gcd of
      // its terms says so, where branching would never end).
      {"a row without integer solutions",
       [this] {
         var(0, 0, 10, 'I');
         var(0, 0, 10, 'I');
         row({{0, 2}, {1, 2}}, '=', 5);
       },
       {kBoth},
       {kNone, kNone},
       1},
      // "MaxTime" covers the whole analysis: out of time after the first
      // proof, every bound not yet tried stays.
      {"out of time",
       [this] {
         var(0, 0, 10, 'I');
         var(0, 0, 10, 'I');
         row({{0, 2}, {1, 2}}, '=', 5);
         row({{0, 1}, {1, -1}}, '<', 100);
         setDbl("MaxTime", 0);
       },
       {kBoth, kUp},
       {kBoth, kBoth},
       0},
      // Binaries stay binary (their bounds count where they narrow [0, 1]).
      {"binary fixed at 1",
       [this] {
         var(0, 1, 1, 'B');
         row({{0, 1}}, '<', 0.5);
       },
       {kUp},
       {kLow},
       1},
      // Indicators and semi-continuous variables take part through their
      // reformulations; the members are the model's own rows and bounds.
      {"indicator", [this] { indicatorModel(); }, {kLow, kUp}, {kNone, kNone}, 1},
      // x 0 or in [2, 5], and 0.5 <= x <= 1: x's upper bound is not needed
      {"semi-continuous",
       [this] { semicontinuous(2, 5, '<', 1, '>', 0.5); },
       {kUp, kLow},
       {kLow},
       1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    fresh();
    c.build();
    int v = 0;
    EXPECT_EQ(KLOgetintattr(model, "IISMinimal", &v), KLO_ERROR_DATA_NOT_AVAILABLE);
    const std::string before = snapshot(model);
    ASSERT_EQ(KLOcomputeIIS(model), KLO_OK) << modelError();
    const int m = static_cast<int>(c.rows.size()), n = static_cast<int>(c.vars.size());
    EXPECT_EQ(intArray("IISConstr", m), c.rows);
    EXPECT_EQ(intArray("IISRow", m), c.rows);
    EXPECT_EQ(intArray("IISVar", n), c.vars);
    EXPECT_EQ(intArray("IISCol", n), c.vars);
    EXPECT_EQ(intAttr("IISMinimal"), c.minimal);
    EXPECT_EQ(snapshot(model), before);
  }
  ASSERT_EQ(KLOsetdblattrelement(model, "RHS", 0, 50), KLO_OK);
  int v = 0;
  EXPECT_EQ(KLOgetintattrelement(model, "IISConstr", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE)
      << "a change discards it";
  EXPECT_EQ(KLOcomputeIIS(model), KLO_ERROR_INVALID_ARGUMENT) << "x <= 50 and x >= 0.5 hold";
  EXPECT_NE(modelError().find("feasible"), std::string::npos);
  EXPECT_EQ(KLOcomputeIIS(nullptr), KLO_ERROR_NULL_ARGUMENT);
}

}  // namespace
}  // namespace klotest
