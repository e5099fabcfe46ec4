// Semi-continuous and semi-integer variables: the switches that model them
// (model in, model out) and what solves through the C interface give.
#include <vector>

#include "engine/problem.h"
#include "solve/semicontinuous.h"
#include "solve_fixture.h"

namespace klotest {
namespace {

TEST(Semicontinuous, EachColumnAwayFromZeroGetsASwitchAndTwoRows) {
  klo::engine::Problem p;
  // x0 S [2, 5], x1 N [-4, -1], x2 S [-1, 3] (holds 0), x3 S [3, inf], x4 C [0, 1]
  p.obj = {1, 1, 1, 1, 1};
  p.colLower = {2, -4, -1, 3, 0};
  p.colUpper = {5, -1, 3, KLO_INFINITY, 1};
  p.colType = {'S', 'N', 'S', 'S', 'C'};
  p.columnMajor = false;
  p.start = {0, 2};  // x0 + x4 <= 10
  p.index = {0, 4};
  p.value = {1, 1};
  p.rowLower = {-KLO_INFINITY};
  p.rowUpper = {10};
  p.startValues = {4, KLO_UNDEFINED, 0, 0, 1};

  std::vector<klo::Switch> s = klo::switchSemicontinuous(p, 100);

  ASSERT_EQ(s.size(), 3u);
  EXPECT_EQ(s[0].column, 0);
  EXPECT_EQ(s[0].z, 5);
  EXPECT_EQ(s[0].row, 1);
  EXPECT_EQ(s[1].column, 1);
  EXPECT_EQ(s[1].z, 6);
  EXPECT_EQ(s[2].column, 3);
  EXPECT_EQ(s[2].z, 7);
  EXPECT_EQ(s[2].row, 5);
  EXPECT_EQ(p.colType, (std::vector<char>{'C', 'I', 'C', 'C', 'C', 'B', 'B', 'B'}));
  EXPECT_EQ(p.colLower, (std::vector<double>{0, -4, -1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(p.colUpper, (std::vector<double>{5, 0, 3, 100, 1, 1, 1, 1}));
  EXPECT_EQ(p.obj, (std::vector<double>{1, 1, 1, 1, 1, 0, 0, 0}));
  // x0 - 2 z >= 0, x0 - 5 z <= 0; x1 + 4 z >= 0, x1 + z <= 0; x3 - 3 z >= 0, x3 - 100 z <= 0
  EXPECT_EQ(p.start, (std::vector<int>{0, 2, 4, 6, 8, 10, 12, 14}));
  EXPECT_EQ(p.index, (std::vector<int>{0, 4, 0, 5, 0, 5, 1, 6, 1, 6, 3, 7, 3, 7}));
  EXPECT_EQ(p.value, (std::vector<double>{1, 1, 1, -2, 1, -5, 1, 4, 1, 1, 1, -3, 1, -100}));
  EXPECT_EQ(p.rowLower, (std::vector<double>{-KLO_INFINITY, 0, -KLO_INFINITY, 0, -KLO_INFINITY, 0,
                                             -KLO_INFINITY}));
  EXPECT_EQ(p.rowUpper,
            (std::vector<double>{10, KLO_INFINITY, 0, KLO_INFINITY, 0, KLO_INFINITY, 0}));
  // A start of x switches z on or off; an unset one leaves z unset.
  EXPECT_EQ(p.startValues, (std::vector<double>{4, KLO_UNDEFINED, 0, 0, 1, 1, KLO_UNDEFINED, 0}));
  klo::engine::checkProblem(p);
}

// Within the integrality tolerance of its switch, a big-M row lets a column
// stray from 0: the column's own condition is checked on the answer.
TEST(Semicontinuous, AnswersAreCheckedAgainstTheColumnsOwnCondition) {
  const std::vector<klo::Switch> switches{{0, 2, 0, 2, 5}, {1, 3, 2, -KLO_INFINITY, -4}};
  struct Case {
    std::vector<double> x;
    int status;
  };
  const Case cases[] = {
      {{0, -7}, KLO_STATUS_OPTIMAL},       // off, and on within its bounds
      {{3, 1e-9}, KLO_STATUS_OPTIMAL},     // on, and off within the tolerance
      {{1e-4, 0}, KLO_STATUS_SUBOPTIMAL},  // neither 0 nor in [2, 5]
      {{0, -3.9}, KLO_STATUS_SUBOPTIMAL},  // above its upper bound -4
  };
  for (const Case& c : cases) {
    klo::engine::Result r;
    r.status = KLO_STATUS_OPTIMAL;
    r.hasSolution = true;
    r.x = c.x;
    r.x.resize(4, 0.0);
    klo::checkSwitchedColumns(switches, r, klo::engine::Settings{});
    EXPECT_EQ(r.status, c.status) << c.x[0] << ", " << c.x[1];
  }
}

class SolveSemicontinuous : public SolveTest {
 protected:
  // Optimises c x over x of the given type and bounds, with one row on x.
  double solveOne(int s, char type, double lb, double ub, char rowSense, double rhs) {
    sense(s);
    int x = var(1, lb, ub, type);
    row({{x, 1}}, rowSense, rhs);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_EQ(intAttr("NumVars"), 1) << "no switch shows";
    return dblAt("X", 0);
  }
};

TEST_F(SolveSemicontinuous, ZeroOrInsideTheBounds) {
  struct Case {
    int sense;
    char type;
    double lb, ub;
    char rowSense;
    double rhs, x;
  };
  const Case cases[] = {
      {1, 'S', 2, 5, '>', 1, 2},                // on: jumps from 1 to its lower bound
      {-1, 'S', 2, 5, '<', 1.5, 0},             // off: [2, 5] is out of reach
      {-1, 'N', 3, 7, '<', 5.5, 5},             // on, and integer
      {-1, 'N', 3, 7, '<', 2.5, 0},             // off
      {1, 'S', -5, -2, '>', -3, -3},            // negative range, on
      {-1, 'S', -5, -2, '>', -3, 0},            // negative range, off
      {-1, 'S', 2, KLO_INFINITY, '<', 10, 10},  // no upper bound: "MIP/LinearizationBigM" holds
      {1, 'S', -1, 3, '>', -0.5, -0.5},         // [-1, 3] holds 0: continuous
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(1, c.type) + " [" + std::to_string(c.lb) + ", " +
                 std::to_string(c.ub) + "] " + c.rowSense + " " + std::to_string(c.rhs));
    KLOfreemodel(model);
    ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
    EXPECT_NEAR(solveOne(c.sense, c.type, c.lb, c.ub, c.rowSense, c.rhs), c.x, 1e-6);
    EXPECT_NEAR(dbl("ObjVal"), c.x, 1e-6);
    double beyond = 0;
    EXPECT_NE(KLOgetdblattrelement(model, "X", 1, &beyond), KLO_OK) << "results end at the model";
  }
}

// A callback sees the model's columns and proposes solutions over them only.
struct Proposals {
  int numVars = 0;
  int wrongCounts = 0;
  int proposed = 0;  // calls of KLOcbsolution that the engine judged

  std::vector<double> x;
};

int proposer(const void*, void* cbdata, int where, const void* usrdata) {
  Proposals& p = *static_cast<Proposals*>(const_cast<void*>(usrdata));
  int n = 0;
  KLOcbget(cbdata, where, KLO_CBINFO_NUMVARS, &n);
  if (n != p.numVars) ++p.wrongCounts;
  const bool mip = where == KLO_CB_MIP || where == KLO_CB_MIPSOL || where == KLO_CB_MIPNODE;
  if (mip && KLOcbsolution(cbdata, p.x.data(), nullptr) >= 0) ++p.proposed;
  return 0;
}

TEST_F(SolveSemicontinuous, CallbacksSeeTheModelsColumns) {
  // max sum (j+1) x_j  s.t.  sum x_j <= 7.5, x_j semi-integer in {0} u [2, 4]
  sense(-1);
  std::vector<int> xs;
  std::vector<std::pair<int, double>> sum;
  for (int j = 0; j < 4; ++j) {
    xs.push_back(var(j + 1, 2, 4, 'N'));
    sum.emplace_back(xs.back(), 1);
  }
  row(sum, '<', 7.5);
  setInt("Presolve", 0);
  Proposals p;
  p.numVars = 4;
  p.x = {0, 0, 3, 4};  // feasible, objective 25, the optimum
  ASSERT_EQ(KLOsetcallbackfunc(model, proposer, &p), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(dbl("ObjVal"), 25, 1e-6);
  EXPECT_EQ(p.wrongCounts, 0);
  EXPECT_GT(p.proposed, 0);
}

}  // namespace
}  // namespace klotest
