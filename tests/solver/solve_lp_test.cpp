// Linear programs solved through the C interface: primal and dual values,
// bases, statuses, rays, and what a solve leaves when it cannot run.
#include "solve_fixture.h"

namespace klotest {
namespace {

class SolveLp : public SolveTest {
 protected:
  // min 2x + 3y + 5z + 10  s.t.  r0: x + y + z >= 4,  r1: x + 3y + z >= 6,
  // x, y, z in [0, 10].
  // Both rows bind at the optimum: x + y = 4, x + 3y = 6 give y = 1, x = 3,
  // objective 2*3 + 3*1 + 10 = 19; z = 0.
  // Duals from c_B = B'y: y0 + y1 = 2, y0 + 3 y1 = 3 -> y1 = 0.5, y0 = 1.5
  // (>= 0: binding >= rows when minimising).  Reduced cost of z:
  // 5 - 1.5 - 0.5 = 3 (>= 0 at its lower bound).  Dual objective:
  // 4*1.5 + 6*0.5 + 10 = 19.
  void buildMin() {
    var(2, 0, 10);
    var(3, 0, 10);
    var(5, 0, 10);
    row({{0, 1}, {1, 1}, {2, 1}}, '>', 4);
    row({{0, 1}, {1, 3}, {2, 1}}, '>', 6);
    ASSERT_EQ(KLOsetdblattr(model, "ObjCon", 10), KLO_OK);
  }
};

TEST_F(SolveLp, MinimisationGivesPrimalAndDualValues) {
  buildMin();
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_EQ(intAttr("HasSolution"), 1);
  EXPECT_NEAR(dbl("ObjVal"), 19, 1e-9);
  EXPECT_NEAR(dbl("PrimalObjVal"), 19, 1e-9);
  EXPECT_NEAR(dbl("DualObjVal"), 19, 1e-9);
  std::vector<double> x = dblArray("X", 3), rc = dblArray("RC", 3);
  EXPECT_NEAR(x[0], 3, 1e-9);
  EXPECT_NEAR(x[1], 1, 1e-9);
  EXPECT_NEAR(x[2], 0, 1e-9);
  EXPECT_NEAR(rc[0], 0, 1e-9);
  EXPECT_NEAR(rc[1], 0, 1e-9);
  EXPECT_NEAR(rc[2], 3, 1e-9);
  std::vector<double> y = dblArray("DualSoln", 2), act = dblArray("Activity", 2);
  EXPECT_NEAR(y[0], 1.5, 1e-9);
  EXPECT_NEAR(y[1], 0.5, 1e-9);
  EXPECT_NEAR(act[0], 4, 1e-9);
  EXPECT_NEAR(act[1], 6, 1e-9);
  EXPECT_EQ(intArray("ColBasis", 3),
            (std::vector<int>{KLO_BASIS_BASIC, KLO_BASIS_BASIC, KLO_BASIS_LOWER}));
  EXPECT_EQ(intArray("RowBasis", 2), (std::vector<int>{KLO_BASIS_LOWER, KLO_BASIS_LOWER}));
  EXPECT_EQ(intAttr("SolCount"), 1);
  EXPECT_GT(intAttr("SPX/NumIters"), 0);
  EXPECT_EQ(intAttr("IPM/NumIters"), 0);
  EXPECT_GE(dbl("SolutionTime"), dbl("SolverTime"));
  EXPECT_EQ(dblAt("Xn", 0), x[0]) << "the solution is pool solution 0";
  EXPECT_NEAR(dbl("PoolNObjVal"), 19, 1e-9);
}

// max 3x + 2y  s.t.  r0: x + y <= 4,  r1: x + 3y <= 9,  x in [0, 3], y >= 0.
// x at its upper bound 3, then r0 leaves y = 1 (r1: 6 < 9, slack):
// objective 11.  y basic: 2 - y0 = 0 -> y0 = 2 (>= 0: binding <= row when
// maximising), y1 = 0.  Reduced cost of x: 3 - 2 = 1 (>= 0 at its upper
// bound when maximising).  Dual objective 4*2 + 3*1 = 11.
TEST_F(SolveLp, MaximisationFlipsTheSigns) {
  sense(KLO_MAXIMIZE);
  var(3, 0, 3);
  var(2, 0, KLO_INFINITY);
  row({{0, 1}, {1, 1}}, '<', 4);
  row({{0, 1}, {1, 3}}, '<', 9);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(dbl("ObjVal"), 11, 1e-9);
  EXPECT_NEAR(dbl("DualObjVal"), 11, 1e-9);
  std::vector<double> x = dblArray("X", 2), rc = dblArray("RC", 2), y = dblArray("DualSoln", 2);
  EXPECT_NEAR(x[0], 3, 1e-9);
  EXPECT_NEAR(x[1], 1, 1e-9);
  EXPECT_NEAR(rc[0], 1, 1e-9);
  EXPECT_NEAR(rc[1], 0, 1e-9);
  EXPECT_NEAR(y[0], 2, 1e-9);
  EXPECT_NEAR(y[1], 0, 1e-9);
  EXPECT_EQ(intArray("ColBasis", 2), (std::vector<int>{KLO_BASIS_UPPER, KLO_BASIS_BASIC}));
  EXPECT_EQ(intArray("RowBasis", 2), (std::vector<int>{KLO_BASIS_UPPER, KLO_BASIS_BASIC}));
}

// An equality and a range row:  min x - y  s.t.  x + y = 4,
// 1 <= x - y <= 2.  The objective is the range row itself: it sits at its
// lower bound 1, x = 2.5, y = 1.5, its dual is 1 and the equality's 0.
TEST_F(SolveLp, EqualityAndRangeRows) {
  var(1, 0, 10);
  var(-1, 0, 10);
  row({{0, 1}, {1, 1}}, '=', 4);
  const int ind[] = {0, 1};
  const double val[] = {1, -1};
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, val, 1, 2, "range"), KLO_OK);
  optimize();
  EXPECT_NEAR(dbl("ObjVal"), 1, 1e-9);
  std::vector<double> x = dblArray("X", 2), y = dblArray("DualSoln", 2);
  EXPECT_NEAR(x[0], 2.5, 1e-9);
  EXPECT_NEAR(x[1], 1.5, 1e-9);
  EXPECT_NEAR(y[0], 0, 1e-9);
  EXPECT_NEAR(y[1], 1, 1e-9);
}

TEST_F(SolveLp, EveryMethodReachesTheSameOptimum) {
  buildMin();
  for (int method : {0, 1, 2}) {
    SCOPED_TRACE(method);
    setInt("Method", method);
    optimize();
    EXPECT_NEAR(dbl("ObjVal"), 19, 1e-7);
    EXPECT_NEAR(dblArray("DualSoln", 2)[0], 1.5, 1e-7);
    if (method == 2) {
      EXPECT_GT(intAttr("IPM/NumIters"), 0);
    }
  }
}

// x + y >= 5 and x + y <= 3 cannot both hold.
TEST_F(SolveLp, InfeasibleGivesAFarkasRayAndNoSolution) {
  var(1, 0, 10);
  var(1, 0, 10);
  row({{0, 1}, {1, 1}}, '>', 5);
  row({{0, 1}, {1, 1}}, '<', 3);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INFEASIBLE);
  EXPECT_EQ(intAttr("HasSolution"), 0);
  EXPECT_EQ(intAttr("HasDualRay"), 1);
  EXPECT_EQ(intAttr("HasPrimalRay"), 0);
  EXPECT_EQ(intAttr("SolCount"), 0);
  double v = 0;
  EXPECT_EQ(KLOgetdblattrelement(model, "X", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE);
  EXPECT_EQ(KLOgetdblattr(model, "ObjVal", &v), KLO_ERROR_DATA_NOT_AVAILABLE);
}

// min -x - y  s.t.  x - y <= 1: x = y grows without end.
TEST_F(SolveLp, UnboundedGivesARay) {
  var(-1, 0, KLO_INFINITY);
  var(-1, 0, KLO_INFINITY);
  row({{0, 1}, {1, -1}}, '<', 1);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_UNBOUNDED);
  EXPECT_EQ(intAttr("HasPrimalRay"), 1);
  EXPECT_EQ(intAttr("HasDualRay"), 0);
}

TEST_F(SolveLp, IterationLimitStopsWithItsStatus) {
  readInstance("25fv47.mps.gz");
  setInt("SPX/MaxIterations", 10);
  setInt("Presolve", 0);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_ITERATION_LIMIT);
  EXPECT_LE(intAttr("SPX/NumIters"), 20);
}

TEST_F(SolveLp, ChangesDiscardTheResultsAndNamesDoNot) {
  buildMin();
  optimize();
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 0, "renamed"), KLO_OK);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  ASSERT_EQ(KLOsetdblattrelement(model, "UB", 0, 2.0), KLO_OK);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_UNSTARTED);
  EXPECT_EQ(intAttr("HasSolution"), 0);
  // x <= 2: y = 2 from r0 (r1: 2 + 6 >= 6), objective 4 + 6 + 10 = 20.
  optimize();
  EXPECT_NEAR(dbl("ObjVal"), 20, 1e-9);
}

TEST_F(SolveLp, AModelWithoutVariablesOrRowsSolves) {
  ASSERT_EQ(KLOsetdblattr(model, "ObjCon", 2.5), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(dbl("ObjVal"), 2.5, 1e-12);
}

// Features without an engine: refused with a message naming them, and the
// results of the last solve stay.
TEST_F(SolveLp, UnsupportedFeaturesAreRefusedAndLoseNothing) {
  struct Case {
    const char* feature;
    void (*add)(KLOmodel*);
  };
  const Case cases[] = {
      {"PSD variables",
       [](KLOmodel* m) {
         ASSERT_EQ(KLOaddpsdvar(m, 2, "P"), KLO_OK);
         ASSERT_EQ(KLOsetcharattrelement(m, "VType", 0, 'I'), KLO_OK);
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.feature);
    KLOfreemodel(model);
    ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
    buildMin();
    c.add(model);
    EXPECT_EQ(KLOoptimize(model), KLO_ERROR_NOT_SUPPORTED);
    EXPECT_NE(modelError().find(c.feature), std::string::npos) << modelError();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_UNSTARTED);
  }
}

// Objective 1 (priority 2) first: min x + y over x + y >= 4, x, y in
// [0, 10] reaches 4.  Its absolute tolerance 0.5 then lets objective 0
// (priority 0), min x - y, use x + y <= 4.5: x = 0, y = 4.5.
TEST_F(SolveLp, ObjectivesAreOptimisedInFallingPriority) {
  var(1, 0, 10);
  var(-1, 0, 10);
  row({{0, 1}, {1, 1}}, '>', 4);
  const int ind[] = {0, 1};
  const double val[] = {1, 1};
  ASSERT_EQ(KLOsetobjectiven(model, 1, 2, 1.0, 0.5, 0, "total", 0, 2, ind, val), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  std::vector<double> x = dblArray("X", 2);
  EXPECT_NEAR(x[0], 0, 1e-9);
  EXPECT_NEAR(x[1], 4.5, 1e-9);
  EXPECT_NEAR(dbl("ObjVal"), -4.5, 1e-9) << "the value of objective 0";
  ASSERT_EQ(KLOsetintparam(KLOgetenv(model), "ObjNumber", 1), KLO_OK);
  EXPECT_NEAR(dbl("ObjNVal"), 4.5, 1e-9);
  EXPECT_NEAR(dblAt("Activity", 0), 4.5, 1e-9) << "the model's own row";
}

}  // namespace
}  // namespace klotest
