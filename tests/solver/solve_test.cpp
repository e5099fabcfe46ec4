// Linear and mixed-integer programs solved through the C interface: primal
// and dual values, bases, statuses and rays, what engines abort on, limits,
// starts, cutoffs, the pool, objectives by priority and the engines' log.
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "fixtures.h"

namespace klotest {
namespace {

using V = std::vector<double>;
using I = std::vector<int>;

class SolveLp : public ModelTest {
 protected:
  // min 2x + 3y + 5z + 10  s.t.  r0: x + y + z >= 4,  r1: x + 3y + z >= 6,
  // x, y, z in [0, 10].  Both rows bind: y = 1, x = 3, z = 0, objective 19.
  // Duals from c_B = B'y: y0 + y1 = 2, y0 + 3 y1 = 3 -> y1 = 0.5, y0 = 1.5
  // (>= 0: binding >= rows when minimising).  Reduced cost of z:
  // 5 - 1.5 - 0.5 = 3 (>= 0 at its lower bound).  Dual objective 19.
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
  EXPECT_EQ(intAttrs({"Status", "HasSolution", "SolCount", "IPM/NumIters"}),
            (I{KLO_STATUS_OPTIMAL, 1, 1, 0}));
  expectNear({dbl("ObjVal"), dbl("PrimalObjVal"), dbl("DualObjVal"), dbl("PoolNObjVal")},
             {19, 19, 19, 19}, 1e-9);
  expectNear(dblArray("X", 3), {3, 1, 0}, 1e-9);
  expectNear(dblArray("RC", 3), {0, 0, 3}, 1e-9);
  expectNear(dblArray("DualSoln", 2), {1.5, 0.5}, 1e-9);
  expectNear(dblArray("Activity", 2), {4, 6}, 1e-9);
  EXPECT_EQ(intArray("ColBasis", 3), (I{KLO_BASIS_BASIC, KLO_BASIS_BASIC, KLO_BASIS_LOWER}));
  EXPECT_EQ(intArray("RowBasis", 2), (I{KLO_BASIS_LOWER, KLO_BASIS_LOWER}));
  EXPECT_GT(intAttr("SPX/NumIters"), 0);
  EXPECT_GE(dbl("SolutionTime"), dbl("SolverTime"));
  EXPECT_EQ(dblArray("Xn", 3), dblArray("X", 3)) << "the solution is pool solution 0";
}

// max 3x + 2y  s.t.  r0: x + y <= 4,  r1: x + 3y <= 9,  x in [0, 3], y >= 0.
// x at its upper bound 3, r0 leaves y = 1 (r1 slack): objective 11.  y
// basic: y0 = 2 (>= 0: binding <= row when maximising), y1 = 0; reduced
// cost of x 3 - 2 = 1 (>= 0 at its upper bound when maximising).
TEST_F(SolveLp, MaximisationFlipsTheSigns) {
  sense(KLO_MAXIMIZE);
  var(3, 0, 3);
  var(2, 0, KLO_INFINITY);
  row({{0, 1}, {1, 1}}, '<', 4);
  row({{0, 1}, {1, 3}}, '<', 9);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  expectNear({dbl("ObjVal"), dbl("DualObjVal")}, {11, 11}, 1e-9);
  expectNear(dblArray("X", 2), {3, 1}, 1e-9);
  expectNear(dblArray("RC", 2), {1, 0}, 1e-9);
  expectNear(dblArray("DualSoln", 2), {2, 0}, 1e-9);
  EXPECT_EQ(intArray("ColBasis", 2), (I{KLO_BASIS_UPPER, KLO_BASIS_BASIC}));
  EXPECT_EQ(intArray("RowBasis", 2), (I{KLO_BASIS_UPPER, KLO_BASIS_BASIC}));
}

// min x - y  s.t.  x + y = 4,  1 <= x - y <= 2: the range row sits at its
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
  expectNear(dblArray("X", 2), {2.5, 1.5}, 1e-9);
  expectNear(dblArray("DualSoln", 2), {0, 1}, 1e-9);
}

TEST_F(SolveLp, EveryMethodReachesTheSameOptimum) {
  buildMin();
  for (int method : {0, 1, 2}) {
    SCOPED_TRACE(method);
    setInt("Method", method);
    optimize();
    EXPECT_NEAR(dbl("ObjVal"), 19, 1e-7);
    EXPECT_NEAR(dblArray("DualSoln", 2)[0], 1.5, 1e-7);
    EXPECT_EQ(intAttr("IPM/NumIters") > 0, method == 2);
  }
}

// x + y >= 5 and x + y <= 3 cannot both hold; min -x - y with x - y <= 1
// grows without end.
TEST_F(SolveLp, InfeasibleGivesAFarkasRayAndUnboundedAPrimalRay) {
  var(1, 0, 10);
  var(1, 0, 10);
  row({{0, 1}, {1, 1}}, '>', 5);
  row({{0, 1}, {1, 1}}, '<', 3);
  optimize();
  EXPECT_EQ(intAttrs({"Status", "HasSolution", "HasDualRay", "HasPrimalRay", "SolCount"}),
            (I{KLO_STATUS_INFEASIBLE, 0, 1, 0, 0}));
  double v = 0;
  EXPECT_EQ(KLOgetdblattrelement(model, "X", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE);
  EXPECT_EQ(KLOgetdblattr(model, "ObjVal", &v), KLO_ERROR_DATA_NOT_AVAILABLE);
  fresh();
  var(-1, 0, KLO_INFINITY);
  var(-1, 0, KLO_INFINITY);
  row({{0, 1}, {1, -1}}, '<', 1);
  optimize();
  EXPECT_EQ(intAttrs({"Status", "HasPrimalRay", "HasDualRay"}), (I{KLO_STATUS_UNBOUNDED, 1, 0}));
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
  ASSERT_EQ(KLOsetdblattr(model, "ObjCon", 2.5), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL) << "a model without variables or rows";
  EXPECT_NEAR(dbl("ObjVal"), 2.5, 1e-12);
  fresh();
  buildMin();
  optimize();
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 0, "renamed"), KLO_OK);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  ASSERT_EQ(KLOsetdblattrelement(model, "UB", 0, 2.0), KLO_OK);
  EXPECT_EQ(intAttrs({"Status", "HasSolution"}), (I{KLO_STATUS_UNSTARTED, 0}));
  // x <= 2: y = 2 from r0 (r1: 2 + 6 >= 6), objective 4 + 6 + 10 = 20.
  optimize();
  EXPECT_NEAR(dbl("ObjVal"), 20, 1e-9);
  // Features without an engine: refused, naming them, and no results.
  ASSERT_EQ(KLOaddpsdvar(model, 2, "P"), KLO_OK);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'I'), KLO_OK);
  EXPECT_EQ(KLOoptimize(model), KLO_ERROR_NOT_SUPPORTED);
  EXPECT_NE(modelError().find("PSD variables"), std::string::npos) << modelError();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_UNSTARTED);
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
  expectNear(dblArray("X", 2), {0, 4.5}, 1e-9);
  EXPECT_NEAR(dbl("ObjVal"), -4.5, 1e-9) << "the value of objective 0";
  setInt("ObjNumber", 1);
  EXPECT_NEAR(dbl("ObjNVal"), 4.5, 1e-9);
  EXPECT_NEAR(dblAt("Activity", 0), 4.5, 1e-9) << "the model's own row";
}

// Models the C interface accepts but the engines abort on: each solve ends
// with a clear status or code, as an LP and as a MIP.  (Crossed row bounds
// are not something engines abort on, but a presolve called such a row
// optimal.)
TEST_F(SolveLp, WhatEnginesAbortOnIsDecidedOrRefusedFirst) {
  struct Case {
    const char* what;
    std::function<void()> spoil;
    int code;    // of KLOoptimize
    int status;  // after it
  };
  const int inf = KLO_STATUS_INFEASIBLE, no = KLO_STATUS_UNSTARTED;
  const Case cases[] = {
      {"row with lower bound +infinity",
       [this] {
         row({{0, 1}}, '>', 1e30);
       },
       KLO_OK, inf},
      {"row with upper bound -infinity",
       [this] {
         row({{0, 1}}, '<', -1e30);
       },
       KLO_OK, inf},
      {"row with crossed bounds",
       [this] {
         const int ind[] = {0};
         const double val[] = {1};
         ASSERT_EQ(KLOaddrangeconstr(model, 1, ind, val, 2, 1, nullptr), KLO_OK);
       },
       KLO_OK, inf},
      {"column fixed at -infinity", [this] { var(1, -1e30, -1e30); }, KLO_OK, inf},
      {"column fixed at +infinity", [this] { var(1, 1e30, 1e30); }, KLO_OK, inf},
      {"integer column fixed at 0.5", [this] { var(0, 0.5, 0.5, 'I'); }, KLO_OK, inf},
      {"objective coefficient 1e30", [this] { var(1e30, 0, 1); }, KLO_ERROR_NOT_SUPPORTED, no},
      {"matrix entry 1e30",
       [this] {
         row({{0, 1e30}}, '<', 1);
       },
       KLO_ERROR_NOT_SUPPORTED, no},
  };
  for (char type : {'C', 'I'}) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.what) + (type == 'C' ? " (LP)" : " (MIP)"));
      fresh();
      var(1, 0, 10, type);
      c.spoil();
      EXPECT_EQ(KLOoptimize(model), c.code) << modelError();
      EXPECT_EQ(intAttr("Status"), c.status);
      if (c.code != KLO_OK) {  // the coefficient is named
        EXPECT_NE(modelError().find("is 1e+30, beyond what"), std::string::npos) << modelError();
      }
    }
  }
}

class SolveMip : public ModelTest {
 protected:
  // max 10a + 13b + 7c + 8d + 4e  s.t.  3a + 4b + 2c + 3d + e <= 7, binary.
  // The sets that fit: a+b 23, b+d 21, a+d+e 22, a+c+e 21, c+d+e 19 and
  // b+c+e 24 (weight 7): the optimum is b, c, e with 24.
  void knapsack() {
    sense(KLO_MAXIMIZE);
    const double value[] = {10, 13, 7, 8, 4}, weight[] = {3, 4, 2, 3, 1};
    std::vector<std::pair<int, double>> terms;
    for (int j = 0; j < 5; ++j) terms.emplace_back(var(value[j], 0, 1, 'B'), weight[j]);
    row(terms, '<', 7);
  }
};

TEST_F(SolveMip, KnapsackOptimum) {
  knapsack();
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  expectNear({dbl("ObjVal"), dbl("DualObjVal")}, {24, 24}, 1e-6);
  EXPECT_LE(dbl("MIP/GapAbs"), 1e-6);
  EXPECT_LE(dbl("MIP/GapRel"), 1e-4);
  expectNear(dblArray("X", 5), {0, 1, 1, 0, 1}, 1e-6);
  EXPECT_NEAR(dblAt("Activity", 0), 7, 1e-6);
  EXPECT_GE(intAttr("SolCount"), 1);
  double v = 0;
  EXPECT_EQ(KLOgetdblattrelement(model, "RC", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE)
      << "no reduced costs for a MIP";
}

// max 3x0 + x1 + 3x2, x in [0, 1].  Unrestricted: all three, 7.  SOS1
// (one non-zero): 3.  SOS2 (two neighbours in weight order): 4.
TEST_F(SolveMip, SosSetsRestrictTheNonZeros) {
  for (int type : {1, 2}) {
    SCOPED_TRACE(type);
    fresh();
    sense(KLO_MAXIMIZE);
    var(3, 0, 1);
    var(1, 0, 1);
    var(3, 0, 1);
    const int beg[] = {0}, ind[] = {0, 1, 2};
    const double w[] = {1, 2, 3};
    ASSERT_EQ(KLOaddsos(model, 1, 3, &type, beg, ind, w), KLO_OK);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(dbl("ObjVal"), type == 1 ? 3 : 4, 1e-6);
    const V x = dblArray("X", 3);
    EXPECT_EQ(std::count_if(x.begin(), x.end(), [](double v) { return std::fabs(v) > 1e-6; }),
              type);
  }
}

// stein27 needs hundreds of nodes (optimum 18): each limit stops it early
// with its own status and a feasible solution no better than the optimum.
TEST_F(SolveMip, LimitsStopWithTheBestSolutionReadable) {
  struct Case {
    const char* param;
    double value;
    int status;
  };
  const Case cases[] = {{"MIP/MaxNodes", 10, KLO_STATUS_NODE_LIMIT},
                        {"MIP/MaxSols", 1, KLO_STATUS_SOLUTION_LIMIT},
                        {"MaxTime", 0.3, KLO_STATUS_TIME_LIMIT}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.param);
    readInstance("stein27.mps.gz");
    if (c.status == KLO_STATUS_TIME_LIMIT)
      setDbl(c.param, c.value);
    else
      setInt(c.param, static_cast<int>(c.value));
    optimize();
    EXPECT_EQ(intAttr("Status"), c.status);
    ASSERT_EQ(intAttr("HasSolution"), 1);
    EXPECT_GE(dbl("ObjVal"), 18 - 1e-6);
    EXPECT_LE(dbl("DualObjVal"), dbl("ObjVal") + 1e-6);
    EXPECT_NEAR(dbl("MIP/GapAbs"), dbl("ObjVal") - dbl("DualObjVal"), 1e-6);
    for (double v : dblArray("X", 27)) EXPECT_NEAR(v, std::round(v), 1e-6);
  }
}

// misc06's root (cuts, heuristics, the re-solve after preprocessing) takes
// longer than these limits: they still stop it there, well before the time
// the full solve takes, and a limit spent inside an LP (which the engine
// reads as an infeasible one) is not called infeasible.
TEST_F(SolveMip, TimeLimitStopsInsideTheRoot) {
  readInstance("misc06.mps.gz");
  optimize();
  ASSERT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  const double full = dbl("SolutionTime");
  for (double limit : {1e-6, 0.01, 0.02, 0.03, 0.05}) {
    SCOPED_TRACE(limit);
    readInstance("misc06.mps.gz");
    setDbl("MaxTime", limit);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_TIME_LIMIT);
    EXPECT_LT(dbl("SolutionTime"), full / 2);
  }
}

// The pool holds distinct points (at least one integer column apart), best
// first, each with its own objective value; the first is the solution.
TEST_F(SolveMip, PoolSolutionsAreDistinctAndBestFirst) {
  for (const char* instance : {"p0548.mps.gz", "lseu.mps.gz"}) {
    SCOPED_TRACE(instance);
    readInstance(instance);
    setInt("MIP/SolutionPoolSize", 5);
    optimize();
    const int n = intAttr("NumVars"), count = intAttr("SolCount");
    ASSERT_GE(count, 1);
    EXPECT_LE(count, 5);
    const V c = dblArray("Obj", n);
    std::vector<V> seen;
    double previous = -KLO_INFINITY;
    for (int k = 0; k < count; ++k) {
      setInt("MIP/SolutionNumber", k);
      const double objective = dbl("PoolNObjVal");
      const V xn = dblArray("Xn", n);
      double value = dbl("ObjCon");
      for (int j = 0; j < n; ++j) value += c[j] * xn[j];
      EXPECT_NEAR(value, objective, 1e-6 * std::max(1.0, std::fabs(objective))) << k;
      if (k == 0) {
        EXPECT_EQ(xn, dblArray("X", n));
      }
      EXPECT_GE(objective, previous - 1e-9) << "best first (minimising)";
      previous = objective;
      for (const V& other : seen) {
        double apart = 0;
        for (int j = 0; j < n; ++j) apart = std::max(apart, std::fabs(other[j] - xn[j]));
        EXPECT_GT(apart, 0.5) << "solution " << k << " repeats an earlier one";
      }
      seen.push_back(xn);
    }
    setInt("MIP/SolutionNumber", count);
    double v = 0;
    EXPECT_EQ(KLOgetdblattr(model, "PoolNObjVal", &v), KLO_ERROR_DATA_NOT_AVAILABLE);
  }
}

// "MIP/MaxSols" k stops the search at its k-th distinct solution, and
// exactly k are reported: with the engine's heuristics, and in the tree
// without heuristics and cuts, where egout finds at least 3.
TEST_F(SolveMip, MaxSolsCountsExactly) {
  const std::pair<int, int> cases[] = {{1, -1}, {1, 0}, {2, 0}, {3, 0}};  // k, "MIP/LevelHeurs"
  for (const auto& [k, heuristics] : cases) {
    SCOPED_TRACE(std::to_string(k) + " solutions, heuristics " + std::to_string(heuristics));
    readInstance("egout.mps.gz");
    setInt("MIP/MaxSols", k);
    setInt("MIP/LevelHeurs", heuristics);
    setInt("MIP/LevelCuts", heuristics);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_SOLUTION_LIMIT);
    EXPECT_EQ(intAttr("SolCount"), k);
  }
}

// With no nodes allowed and heuristics off, the solution can only be the
// start given: a+d+e (22).  After a solve, start files (.mst) and solution
// files (.sol) both carry the incumbent, and either reads back as a start.
TEST_F(SolveMip, StartsAreUsedAndIncumbentsReadBackAsStarts) {
  knapsack();
  KLOmodel* fresh = KLOcopymodel(model);
  ASSERT_NE(fresh, nullptr);
  const double start[] = {1, 0, 0, 1, 1};
  ASSERT_EQ(KLOsetdblattrarray(model, "Start", 0, 5, start), KLO_OK);
  setInt("MIP/MaxNodes", 0);
  setInt("MIP/LevelHeurs", 0);
  setInt("MIP/LevelCuts", 0);
  optimize();
  ASSERT_EQ(intAttr("HasSolution"), 1);
  EXPECT_GE(dbl("ObjVal"), 22 - 1e-6);
  const V x = dblArray("X", 5);
  for (const char* suffix : {".mst", ".sol"}) {
    SCOPED_TRACE(suffix);
    TempFile file(suffix);
    ASSERT_EQ(KLOwrite(model, file.c_str()), KLO_OK) << modelError();
    ASSERT_EQ(KLOreset(fresh, 1), KLO_OK);
    ASSERT_EQ(KLOread(fresh, file.c_str()), KLO_OK) << KLOgeterrormsg(KLOgetenv(fresh));
    V got(5, -1);
    ASSERT_EQ(KLOgetdblattrarray(fresh, "Start", 0, 5, got.data()), KLO_OK);
    EXPECT_EQ(got, x);
  }
  KLOfreemodel(fresh);
}

// A cutoff above the optimum (maximising: 25 > 24) leaves nothing to find;
// so do binaries x, y with x + y >= 3.
TEST_F(SolveMip, CutoffAndInfeasibility) {
  knapsack();
  setDbl("MIP/Cutoff", 25);
  optimize();
  EXPECT_EQ(intAttrs({"Status", "HasSolution"}), (I{KLO_STATUS_CUTOFF, 0}));
  setDbl("MIP/Cutoff", 20);
  optimize();
  EXPECT_NEAR(dbl("ObjVal"), 24, 1e-6);
  fresh();
  var(1, 0, 1, 'B');
  var(1, 0, 1, 'B');
  row({{0, 1}, {1, 1}}, '>', 3);
  optimize();
  EXPECT_EQ(intAttrs({"Status", "HasSolution", "SolCount"}), (I{KLO_STATUS_INFEASIBLE, 0, 0}));
}

// The knapsack's value first (priority 1), allowed to fall by 2 (to 22),
// then as few items as possible (objective 1: -count, maximised): a + b
// (23, two items) beats a + d + e (22, three) and b + c + e (24, three).
TEST_F(SolveMip, ObjectivesInPriorityWithATolerance) {
  knapsack();
  setInt("ObjNumber", 0);
  ASSERT_EQ(KLOsetintattr(model, "ObjNPriority", 1), KLO_OK);
  ASSERT_EQ(KLOsetdblattr(model, "ObjNAbsTol", 2), KLO_OK);
  const int ind[] = {0, 1, 2, 3, 4};
  const double minusOne[] = {-1, -1, -1, -1, -1};
  ASSERT_EQ(KLOsetobjectiven(model, 1, 0, 1.0, 0, 0, "items", 0, 5, ind, minusOne), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  expectNear(dblArray("X", 5), {1, 1, 0, 0, 0}, 1e-6);
  EXPECT_NEAR(dbl("ObjVal"), 23, 1e-6);
  setInt("ObjNumber", 1);
  EXPECT_NEAR(dbl("ObjNVal"), -2, 1e-6);
}

// The engines' log goes through the library's log: into "LogFile" (and the
// console per "LogToConsole"), nowhere with "OutputFlag" 0.
class SolveLog : public ModelTest {
 protected:
  // The log of solving the instance with the parameters set by `set`.
  std::string logOf(
      const char* instance, const std::function<void()>& set = [] {}) {
    TempFile file(".log");
    readInstance(instance);
    EXPECT_EQ(KLOsetstrparam(KLOgetenv(model), "LogFile", file.c_str()), KLO_OK);
    set();
    optimize();
    return file.read();
  }
};

TEST_F(SolveLog, SummariesAndUnusedParametersReachTheLogFile) {
  EXPECT_NE(logOf("afiro.mps.gz").find("LP optimal, objective -464.753"), std::string::npos);
  EXPECT_NE(logOf("p0033.mps.gz").find("MIP optimal, objective 3089"), std::string::npos);
  const std::string log = logOf("afiro.mps.gz", [this] {
    setDbl("MIP/GapRel", 0.01);
    setInt("SPX/MaxIterations", 1000);
  });
  EXPECT_NE(log.find("Clp does not use parameter \"MIP/GapRel\" (set to 0.01)"), std::string::npos)
      << log;
  EXPECT_EQ(log.find("SPX/MaxIterations"), std::string::npos) << log;
  EXPECT_EQ(logOf("p0033.mps.gz", [this] { setInt("OutputFlag", 0); }), "");
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
}

// The MIP search settings reach the engine: none is reported unused, none
// changes the optimum, and a stalling limit of 0 nodes ends the search.
TEST_F(SolveLog, MipSearchParametersAreHonoured) {
  const std::pair<const char*, int> cases[] = {{"MIP/LevelProbing", 0},
                                               {"MIP/LevelProbing", 3},
                                               {"MIP/LevelStrong", 0},
                                               {"MIP/LevelStrong", 3}};
  for (const auto& [name, value] : cases) {
    SCOPED_TRACE(std::string(name) + " " + std::to_string(value));
    EXPECT_EQ(logOf("p0033.mps.gz", [&] { setInt(name, value); }).find("does not use"),
              std::string::npos);
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(dbl("ObjVal"), 3089, 1e-6);
  }
  EXPECT_EQ(logOf("p0033.mps.gz", [this] { setDbl("MIP/ObjectiveTolerance", 1e-3); })
                .find("does not use"),
            std::string::npos);
  EXPECT_NEAR(dbl("ObjVal"), 3089, 1e-6);
  readInstance("stein27.mps.gz");
  setInt("MIP/MaxStallingNodes", 0);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_NODE_LIMIT);
}

}  // namespace
}  // namespace klotest
