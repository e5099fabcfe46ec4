// Mixed-integer programs through the C interface: knapsack, SOS sets,
// limits with the best solution kept, the pool, starts and cutoffs.
#include <algorithm>
#include <cmath>

#include "solve_fixture.h"

namespace klotest {
namespace {

class SolveMip : public SolveTest {
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
  EXPECT_NEAR(dbl("ObjVal"), 24, 1e-6);
  EXPECT_NEAR(dbl("DualObjVal"), 24, 1e-6) << "the bound meets the optimum";
  EXPECT_LE(dbl("MIP/GapAbs"), 1e-6);
  EXPECT_LE(dbl("MIP/GapRel"), 1e-4);
  std::vector<double> x = dblArray("X", 5);
  const double want[] = {0, 1, 1, 0, 1};
  for (int j = 0; j < 5; ++j) EXPECT_NEAR(x[j], want[j], 1e-6) << j;
  EXPECT_NEAR(dblAt("Activity", 0), 7, 1e-6);
  EXPECT_GE(intAttr("SolCount"), 1);
  double v = 0;
  EXPECT_EQ(KLOgetdblattrelement(model, "RC", 0, &v), KLO_ERROR_DATA_NOT_AVAILABLE)
      << "no reduced costs for a MIP";
}

// max 3x0 + x1 + 3x2, x in [0, 1].  Unrestricted: all three, 7.  SOS1
// (one non-zero): 3.  SOS2 (two neighbours in weight order): x0 + x1 or
// x1 + x2, 4.
TEST_F(SolveMip, SosSetsRestrictTheNonZeros) {
  for (int type : {1, 2}) {
    SCOPED_TRACE(type);
    KLOfreemodel(model);
    ASSERT_EQ(KLOnewmodel(env, &model, "sos", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
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
    std::vector<double> x = dblArray("X", 3);
    int nonzeros = 0;
    for (double v : x) nonzeros += std::fabs(v) > 1e-6;
    EXPECT_EQ(nonzeros, type);
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
    if (std::string(c.param) == "MaxTime")
      setDbl(c.param, c.value);
    else
      setInt(c.param, static_cast<int>(c.value));
    optimize();
    EXPECT_EQ(intAttr("Status"), c.status);
    ASSERT_EQ(intAttr("HasSolution"), 1);
    EXPECT_GE(dbl("ObjVal"), 18 - 1e-6);
    EXPECT_LE(dbl("DualObjVal"), dbl("ObjVal") + 1e-6);
    EXPECT_NEAR(dbl("MIP/GapAbs"), dbl("ObjVal") - dbl("DualObjVal"), 1e-6);
    std::vector<double> x = dblArray("X", 27);
    for (double v : x) EXPECT_NEAR(v, std::round(v), 1e-6);
  }
}

// misc06's root (cuts, heuristics, the re-solve after preprocessing) takes
// longer than these limits: they still stop it there, well before the time
// the full solve takes, and a limit spent inside an LP (which Cbc reads as
// an infeasible one) is not called infeasible.
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
    const std::vector<double> c = dblArray("Obj", n);
    std::vector<std::vector<double>> seen;
    double previous = -KLO_INFINITY;
    for (int k = 0; k < count; ++k) {
      setInt("MIP/SolutionNumber", k);
      const double objective = dbl("PoolNObjVal");
      const std::vector<double> xn = dblArray("Xn", n);
      double value = dbl("ObjCon");
      for (int j = 0; j < n; ++j) value += c[j] * xn[j];
      EXPECT_NEAR(value, objective, 1e-6 * std::max(1.0, std::fabs(objective))) << k;
      if (k == 0) {
        EXPECT_EQ(xn, dblArray("X", n));
      }
      EXPECT_GE(objective, previous - 1e-9) << "best first (minimising)";
      previous = objective;
      for (const std::vector<double>& other : seen) {
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
// exactly k are reported.  p0548 finds 2 with Cbc's heuristics, and more
// than 20 in the tree without heuristics and cuts.
TEST_F(SolveMip, MaxSolsCountsExactly) {
  const std::pair<int, int> cases[] = {{1, -1}, {1, 0}, {2, 0}, {3, 0}};  // k, "MIP/LevelHeurs"
  for (const auto& [k, heuristics] : cases) {
    SCOPED_TRACE(std::to_string(k) + " solutions, heuristics " + std::to_string(heuristics));
    readInstance("p0548.mps.gz");
    setInt("MIP/MaxSols", k);
    setInt("MIP/LevelHeurs", heuristics);
    setInt("MIP/LevelCuts", heuristics);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_SOLUTION_LIMIT);
    EXPECT_EQ(intAttr("SolCount"), k);
  }
}

// With no nodes allowed and heuristics off, the solution can only be the
// start given: a+d+e (22).
TEST_F(SolveMip, StartIsUsed) {
  knapsack();
  const double start[] = {1, 0, 0, 1, 1};
  ASSERT_EQ(KLOsetdblattrarray(model, "Start", 0, 5, start), KLO_OK);
  setInt("MIP/MaxNodes", 0);
  setInt("MIP/LevelHeurs", 0);
  setInt("MIP/LevelCuts", 0);
  optimize();
  ASSERT_EQ(intAttr("HasSolution"), 1);
  EXPECT_GE(dbl("ObjVal"), 22 - 1e-6);
}

// After a solve, start files (.mst) and solution files (.sol) both carry
// the incumbent, and either reads back into a fresh copy as its start.
TEST_F(SolveMip, IncumbentReadsBackAsTheStart) {
  knapsack();
  KLOmodel* fresh = KLOcopymodel(model);
  ASSERT_NE(fresh, nullptr);
  optimize();
  const std::vector<double> x = dblArray("X", 5);
  for (const char* suffix : {".mst", ".sol"}) {
    SCOPED_TRACE(suffix);
    TempFile file(suffix);
    ASSERT_EQ(KLOwrite(model, file.c_str()), KLO_OK) << modelError();
    ASSERT_EQ(KLOreset(fresh, 1), KLO_OK);
    ASSERT_EQ(KLOread(fresh, file.c_str()), KLO_OK) << KLOgeterrormsg(KLOgetenv(fresh));
    std::vector<double> start(5, -1);
    ASSERT_EQ(KLOgetdblattrarray(fresh, "Start", 0, 5, start.data()), KLO_OK);
    EXPECT_EQ(start, x);
  }
  KLOfreemodel(fresh);
}

// A cutoff above the optimum (maximising: 25 > 24) leaves nothing to find.
TEST_F(SolveMip, CutoffInTheModelsSense) {
  knapsack();
  setDbl("MIP/Cutoff", 25);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_CUTOFF);
  EXPECT_EQ(intAttr("HasSolution"), 0);
  setDbl("MIP/Cutoff", 20);
  optimize();
  EXPECT_NEAR(dbl("ObjVal"), 24, 1e-6);
}

// x + y >= 3 with binaries x, y.
TEST_F(SolveMip, InfeasibleStatus) {
  var(1, 0, 1, 'B');
  var(1, 0, 1, 'B');
  row({{0, 1}, {1, 1}}, '>', 3);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INFEASIBLE);
  EXPECT_EQ(intAttr("HasSolution"), 0);
  EXPECT_EQ(intAttr("SolCount"), 0);
}

// The knapsack's value first (priority 1), allowed to fall by 2 (to 22),
// then as few items as possible (objective 1: -count, maximised): a + b
// (23, two items) beats a + d + e (22, three) and b + c + e (24, three).
TEST_F(SolveMip, ObjectivesInPriorityWithATolerance) {
  knapsack();
  ASSERT_EQ(KLOsetintparam(KLOgetenv(model), "ObjNumber", 0), KLO_OK);
  ASSERT_EQ(KLOsetintattr(model, "ObjNPriority", 1), KLO_OK);
  ASSERT_EQ(KLOsetdblattr(model, "ObjNAbsTol", 2), KLO_OK);
  const int ind[] = {0, 1, 2, 3, 4};
  const double minusOne[] = {-1, -1, -1, -1, -1};
  ASSERT_EQ(KLOsetobjectiven(model, 1, 0, 1.0, 0, 0, "items", 0, 5, ind, minusOne), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  std::vector<double> x = dblArray("X", 5);
  const double want[] = {1, 1, 0, 0, 0};
  for (int j = 0; j < 5; ++j) EXPECT_NEAR(x[j], want[j], 1e-6) << j;
  EXPECT_NEAR(dbl("ObjVal"), 23, 1e-6);
  ASSERT_EQ(KLOsetintparam(KLOgetenv(model), "ObjNumber", 1), KLO_OK);
  EXPECT_NEAR(dbl("ObjNVal"), -2, 1e-6);
}

}  // namespace
}  // namespace klotest
