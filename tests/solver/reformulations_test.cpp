// Indicator constraints, semi-continuous and semi-integer variables and SOS
// sets with members that cannot be zero: the problems that model them
// (model in, model out), the check of answers against the originals, and
// solves through the C interface (indicators against brute force over
// their binaries; callbacks that see only the model's columns).
#include <algorithm>
#include <string>
#include <vector>

#include "engine/problem.h"
#include "fixtures.h"
#include "solve/fixed_sos.h"
#include "solve/indicators.h"
#include "solve/semicontinuous.h"

namespace klotest {
namespace {

using klo::engine::IndicatorRow;
using klo::engine::Problem;
using V = std::vector<double>;
using I = std::vector<int>;
constexpr double kInf = KLO_INFINITY;

// A problem of the columns' bounds and types, with the row x0 (+ x4) <= up.
Problem columns(V lower, V upper, std::vector<char> types, I rowCols, double up) {
  Problem p;
  p.obj.assign(lower.size(), 0.0);
  p.colLower = std::move(lower);
  p.colUpper = std::move(upper);
  p.colType = std::move(types);
  p.columnMajor = false;
  p.start = {0, static_cast<int>(rowCols.size())};
  p.index = std::move(rowCols);
  p.value.assign(p.index.size(), 1.0);
  p.rowLower = {-kInf};
  p.rowUpper = {up};
  return p;
}

// x0 in [0, 10] with the row x0 <= 4, x1 free, z2 binary, z3 binary fixed at 1.
TEST(IndicatorForms, BigMFromBoundsElseSlackAndSos) {
  Problem p = columns({0, -kInf, 0, 1}, {10, kInf, 1, 1}, {'C', 'C', 'B', 'B'}, {0}, 4);
  p.indicators = {
      IndicatorRow{2, 1, {0}, {1}, '<', 2},        // M = 4 - 2 from the row: x0 + 2 z2 <= 4
      IndicatorRow{2, 0, {1}, {1}, '>', 1},        // x1 free: -x1 - s <= -1, w + z2 = 1, {s, w}
      IndicatorRow{3, 1, {0, 1}, {1, 1}, '=', 3},  // z3 fixed at 1: both rows, plain
      IndicatorRow{3, 0, {0}, {1}, '>', 1},        // z3 fixed at 1: absent
      IndicatorRow{2, 1, {0}, {1}, '<', 7},        // x0 <= 4 anyway: nothing
  };
  const klo::IndicatorColumns c = klo::linearizeIndicators(p, 100, true);
  EXPECT_TRUE(p.indicators.empty());
  EXPECT_EQ(c.indicators.size(), 5u);
  EXPECT_EQ(p.colType, (std::vector<char>{'C', 'C', 'B', 'B', 'C', 'B'}));
  EXPECT_EQ(p.colLower, (V{0, -kInf, 0, 1, 0, 0}));
  EXPECT_EQ(p.colUpper, (V{10, kInf, 1, 1, kInf, 1}));
  EXPECT_EQ(p.start, (I{0, 1, 3, 5, 7, 9, 11}));
  EXPECT_EQ(p.index, (I{0, 0, 2, 1, 4, 5, 2, 0, 1, 0, 1}));
  EXPECT_EQ(p.value, (V{1, 1, 2, -1, -1, 1, 1, 1, 1, -1, -1}));
  EXPECT_EQ(p.rowLower, (V{-kInf, -kInf, -kInf, 1, -kInf, -kInf}));
  EXPECT_EQ(p.rowUpper, (V{4, 4, -1, 1, 3, -3}));
  ASSERT_EQ(p.sos.size(), 1u);
  EXPECT_EQ(p.sos[0].type, 1);
  EXPECT_EQ(p.sos[0].members, (I{4, 5}));
  klo::engine::checkProblem(p);
  // A callback's point over the model's columns: w and s follow.
  V x{3, 0.25, 0, 1, KLO_UNDEFINED, KLO_UNDEFINED};
  klo::completeIndicatorColumns(c, x);
  EXPECT_EQ(x[4], 0.75);
  EXPECT_EQ(x[5], 1.0);
}

// x0 S [2, 5], x1 N [-4, -1], x2 S [-1, 3] (holds 0), x3 S [3, inf], x4 C.
TEST(SemicontinuousForms, EachColumnAwayFromZeroGetsASwitchAndTwoRows) {
  Problem p =
      columns({2, -4, -1, 3, 0}, {5, -1, 3, kInf, 1}, {'S', 'N', 'S', 'S', 'C'}, {0, 4}, 10);
  p.obj = {1, 1, 1, 1, 1};
  p.startValues = {4, KLO_UNDEFINED, 0, 0, 1};
  const std::vector<klo::Switch> s = klo::switchSemicontinuous(p, 100);
  ASSERT_EQ(s.size(), 3u);
  EXPECT_EQ((I{s[0].column, s[0].z, s[0].row, s[1].column, s[1].z, s[2].column, s[2].z, s[2].row}),
            (I{0, 5, 1, 1, 6, 3, 7, 5}));
  EXPECT_EQ(p.colType, (std::vector<char>{'C', 'I', 'C', 'C', 'C', 'B', 'B', 'B'}));
  EXPECT_EQ(p.colLower, (V{0, -4, -1, 0, 0, 0, 0, 0}));
  EXPECT_EQ(p.colUpper, (V{5, 0, 3, 100, 1, 1, 1, 1}));
  EXPECT_EQ(p.obj, (V{1, 1, 1, 1, 1, 0, 0, 0}));
  // x0 - 2 z >= 0, x0 - 5 z <= 0; x1 + 4 z >= 0, x1 + z <= 0; x3 - 3 z >= 0, x3 - 100 z <= 0
  EXPECT_EQ(p.start, (I{0, 2, 4, 6, 8, 10, 12, 14}));
  EXPECT_EQ(p.index, (I{0, 4, 0, 5, 0, 5, 1, 6, 1, 6, 3, 7, 3, 7}));
  EXPECT_EQ(p.value, (V{1, 1, 1, -2, 1, -5, 1, 4, 1, 1, 1, -3, 1, -100}));
  EXPECT_EQ(p.rowLower, (V{-kInf, 0, -kInf, 0, -kInf, 0, -kInf}));
  EXPECT_EQ(p.rowUpper, (V{10, kInf, 0, kInf, 0, kInf, 0}));
  // A start of x switches z on or off; an unset one leaves z unset.
  EXPECT_EQ(p.startValues, (V{4, KLO_UNDEFINED, 0, 0, 1, 1, KLO_UNDEFINED, 0}));
  klo::engine::checkProblem(p);
}

// An answer is measured against each indicator whose binary takes its
// value, and against each switched column's own condition (within the
// integrality tolerance of its switch, a big-M row lets a column stray).
TEST(SpecialForms, AnswersAreCheckedAgainstTheOriginals) {
  klo::IndicatorColumns c;
  c.indicators = {IndicatorRow{0, 1, {1}, {1}, '<', 2}};
  const std::vector<klo::Switch> switches{{0, 2, 0, 2, 5}, {1, 3, 2, -kInf, -4}};
  struct Case {
    bool indicator;
    V x;
    int status;
  };
  const int ok = KLO_STATUS_OPTIMAL, bad = KLO_STATUS_SUBOPTIMAL;
  const Case cases[] = {
      {true, {1, 2}, ok},             // active, holds
      {true, {0, 5}, ok},             // inactive
      {true, {1, 2.5}, bad},          // active, broken
      {true, {1 - 1e-7, 3}, bad},     // active within the integrality tolerance
      {false, {0, -7, 0, 0}, ok},     // off, and on within its bounds
      {false, {3, 1e-9, 1, 0}, ok},   // on, and off within the tolerance
      {false, {1e-4, 0, 0, 0}, bad},  // neither 0 nor in [2, 5]
      {false, {0, -3.9, 0, 1}, bad},  // above its upper bound -4
  };
  for (const Case& k : cases) {
    klo::engine::Result r;
    r.status = KLO_STATUS_OPTIMAL;
    r.hasSolution = true;
    r.x = k.x;
    if (k.indicator)
      klo::checkIndicators(c, r, klo::engine::Settings{});
    else
      klo::checkSwitchedColumns(switches, r, klo::engine::Settings{});
    EXPECT_EQ(r.status, k.status) << k.x[0] << ", " << k.x[1];
  }
}

// Four columns in [0, 5] in one set, weights putting them in the order
// 0, 1, 2, 3; those listed in positive start at 1 instead.
TEST(FixedSos, MembersThatCannotBeZeroDecideTheRest) {
  using klo::SosSettled;
  struct Case {
    const char* what;
    int type;
    I positive;
    SosSettled outcome;
    V upper;  // the columns' upper bounds after
    I keptMembers;
  };
  const Case cases[] = {
      {"none", 1, {}, SosSettled::Unchanged, {5, 5, 5, 5}, {2, 0, 3, 1}},
      {"type 1, one", 1, {2}, SosSettled::Changed, {0, 0, 5, 0}, {}},
      {"type 1, two", 1, {0, 3}, SosSettled::Infeasible, {}, {}},
      {"type 2, one inside", 2, {1}, SosSettled::Changed, {5, 5, 5, 0}, {0, 2}},
      {"type 2, one at the end", 2, {3}, SosSettled::Changed, {0, 0, 5, 5}, {}},
      {"type 2, two neighbours", 2, {1, 2}, SosSettled::Changed, {0, 5, 5, 0}, {}},
      {"type 2, two apart", 2, {0, 2}, SosSettled::Infeasible, {}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Problem p;
    p.obj.assign(4, 0.0);
    p.colLower.assign(4, 0.0);
    p.colUpper.assign(4, 5.0);
    p.colType.assign(4, 'C');
    for (int j : c.positive) p.colLower[j] = 1;
    p.sos.push_back({c.type, {2, 0, 3, 1}, {3, 1, 4, 2}});
    ASSERT_EQ(klo::settleFixedSos(p), c.outcome);
    if (c.outcome == SosSettled::Infeasible) continue;
    EXPECT_EQ(p.colUpper, c.upper);
    EXPECT_EQ(p.sos.empty(), c.keptMembers.empty());
    if (p.sos.empty()) continue;
    EXPECT_EQ(p.sos[0].members, c.keptMembers);
    EXPECT_EQ(p.sos[0].type, c.outcome == SosSettled::Changed ? 1 : c.type);
  }
}

struct Var {
  double obj, lb, ub;
  char type;
};
struct Lin {
  std::vector<std::pair<int, double>> terms;
  char sense;
  double rhs;
};
struct Ind {
  int bin, val;
  Lin row;
};
struct Model {
  const char* name;
  int sense;
  std::vector<Var> vars;
  std::vector<Lin> rows;
  std::vector<Ind> inds;
  double bigM;  // "MIP/LinearizationBigM", 0 for the default
};

const Var kX{1, 0, 10, 'C'}, kY{1, 0, 10, 'C'};

const Model kModels[] = {
    {"both values, <=",
     -1,
     {kX, kY, {3, 0, 1, 'B'}, {2, 0, 1, 'B'}},
     {{{{0, 1}, {1, 1}}, '<', 10}},
     {{2, 1, {{{0, 1}}, '<', 2}}, {2, 0, {{{1, 1}}, '<', 1}}, {3, 1, {{{0, 1}, {1, 2}}, '<', 6}}},
     0},
    {">=",
     1,
     {kX, kY, {-3, 0, 1, 'B'}, {-2, 0, 1, 'B'}},
     {},
     {{2, 1, {{{0, 1}}, '>', 4}}, {3, 0, {{{0, 1}, {1, 1}}, '>', 3}}, {3, 1, {{{1, 1}}, '>', 5}}},
     0},
    {"=",
     -1,
     {kX, kY, {4, 0, 1, 'B'}, {-1, 0, 1, 'B'}},
     {{{{0, 1}, {1, 1}}, '<', 10}},
     {{2, 1, {{{0, 1}, {1, -1}}, '=', 1}}, {3, 0, {{{0, 1}}, '=', 2}}},
     0},
    {"free variables: no M",
     -1,
     {{1, -kInf, kInf, 'C'}, {1, -kInf, kInf, 'C'}, {3, 0, 1, 'B'}, {2, 0, 1, 'B'}},
     {{{{0, 1}, {1, 1}}, '<', 10}, {{{0, 1}, {1, -1}}, '<', 3}, {{{0, -1}, {1, 1}}, '<', 3}},
     {{2, 1, {{{0, 1}}, '<', 2}}, {2, 0, {{{1, 1}, {0, -1}}, '>', 1}}, {3, 1, {{{0, 1}}, '=', -1}}},
     0},
    {"bounds beyond LinearizationBigM",
     -1,
     {{1, 0, 1e7, 'C'}, {1, 0, 1e7, 'C'}, {3, 0, 1, 'B'}, {2, 0, 1, 'B'}},
     {{{{0, 1}, {1, 1}}, '<', 1e6}},
     {{2, 1, {{{0, 1}}, '<', 2}}, {2, 0, {{{1, 1}}, '<', 1}}, {3, 1, {{{0, 1}, {1, -1}}, '>', 5}}},
     0},
    {"LinearizationBigM below every M",
     -1,
     {kX, kY, {3, 0, 1, 'B'}, {2, 0, 1, 'B'}},
     {{{{0, 1}, {1, 1}}, '<', 10}},
     {{2, 1, {{{0, 1}}, '<', 2}}, {2, 0, {{{1, 1}}, '<', 1}}, {3, 0, {{{0, 1}, {1, 2}}, '>', 25}}},
     1},
    {"binaries fixed by their bounds",
     -1,
     {kX, kY, {3, 1, 1, 'B'}, {2, 0, 0, 'B'}},
     {},
     {{2, 1, {{{0, 1}}, '<', 2}}, {3, 1, {{{1, 1}}, '<', 0}}, {3, 0, {{{1, 1}}, '<', 4}}},
     0},
    {"infeasible",
     -1,
     {kX, kY, {3, 1, 1, 'B'}},
     {{{{0, 1}, {1, 1}}, '<', 10}},
     {{2, 1, {{{0, 1}, {1, 1}}, '>', 11}}},
     0},
};

class SolveSpecial : public ModelTest {
 protected:
  void addRow(const Lin& l) { row(l.terms, l.sense, l.rhs); }

  // The model with its indicators, or (fixed non-empty: one value per
  // binary) the LP with the binaries fixed and the active indicators as rows.
  void build(const Model& m, const std::vector<int>& fixed) {
    fresh();
    sense(m.sense);
    std::vector<int> binaryNumber;  // each variable's place among the binaries
    int binaries = 0;
    for (const Var& v : m.vars) {
      binaryNumber.push_back(binaries);
      binaries += v.type == 'B';
      const double at = v.type == 'B' && !fixed.empty() ? fixed[binaryNumber.back()] : 0;
      if (v.type != 'B' || fixed.empty())
        var(v.obj, v.lb, v.ub, v.type);
      else
        var(v.obj, at, at, 'C');
    }
    for (const Lin& l : m.rows) addRow(l);
    for (const Ind& g : m.inds) {
      if (!fixed.empty()) {
        if (fixed[binaryNumber[g.bin]] == g.val) addRow(g.row);
        continue;
      }
      std::vector<int> ind;
      V val;
      for (const auto& [j, a] : g.row.terms) ind.push_back(j), val.push_back(a);
      ASSERT_EQ(KLOaddgenconstrIndicator(model, "g", g.bin, g.val, static_cast<int>(ind.size()),
                                         ind.data(), val.data(), g.row.sense, g.row.rhs),
                KLO_OK)
          << modelError();
    }
    if (m.bigM > 0) setDbl("MIP/LinearizationBigM", m.bigM);
  }

  // The best objective over every fixing of the binaries (KLO_INFINITY
  // when none is feasible), each an LP solved by the library.
  double bruteForce(const Model& m) {
    std::vector<const Var*> binaries;
    for (const Var& v : m.vars)
      if (v.type == 'B') binaries.push_back(&v);
    double best = KLO_INFINITY;
    for (int mask = 0; mask < (1 << binaries.size()); ++mask) {
      std::vector<int> fixed;
      bool within = true;
      for (size_t b = 0; b < binaries.size(); ++b) {
        fixed.push_back((mask >> b) & 1);
        within = within && fixed[b] >= binaries[b]->lb && fixed[b] <= binaries[b]->ub;
      }
      if (!within) continue;
      build(m, fixed);
      optimize();
      if (intAttr("Status") == KLO_STATUS_OPTIMAL) best = std::min(best, m.sense * dbl("ObjVal"));
    }
    return best;
  }
};

TEST_F(SolveSpecial, IndicatorOptimaMatchBruteForce) {
  for (const Model& m : kModels) {
    SCOPED_TRACE(m.name);
    const double best = bruteForce(m);
    build(m, {});
    optimize();
    if (best >= KLO_INFINITY) {
      EXPECT_EQ(intAttr("Status"), KLO_STATUS_INFEASIBLE);
      continue;
    }
    ASSERT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(m.sense * dbl("ObjVal"), best, 1e-6);
    EXPECT_EQ(intAttr("NumVars"), static_cast<int>(m.vars.size())) << "no added column shows";
    double beyond = 0;
    EXPECT_NE(KLOgetdblattrelement(model, "X", static_cast<int>(m.vars.size()), &beyond), KLO_OK);
  }
}

// Optimises x over x of the given type and bounds with one row on x: 0 or
// inside the bounds.
TEST_F(SolveSpecial, SemicontinuousVariablesAreZeroOrInsideTheirBounds) {
  struct Case {
    int sense;
    char type;
    double lb, ub;
    char rowSense;
    double rhs, x;
  };
  const Case cases[] = {
      {1, 'S', 2, 5, '>', 1, 2},        // on: jumps from 1 to its lower bound
      {-1, 'S', 2, 5, '<', 1.5, 0},     // off: [2, 5] is out of reach
      {-1, 'N', 3, 7, '<', 5.5, 5},     // on, and integer
      {-1, 'N', 3, 7, '<', 2.5, 0},     // off
      {1, 'S', -5, -2, '>', -3, -3},    // negative range, on
      {-1, 'S', -5, -2, '>', -3, 0},    // negative range, off
      {-1, 'S', 2, kInf, '<', 10, 10},  // no upper bound: "MIP/LinearizationBigM" holds
      {1, 'S', -1, 3, '>', -0.5, -0.5}  // [-1, 3] holds 0: continuous
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(1, c.type) + " [" + std::to_string(c.lb) + ", " +
                 std::to_string(c.ub) + "] " + c.rowSense + " " + std::to_string(c.rhs));
    fresh();
    sense(c.sense);
    row({{var(1, c.lb, c.ub, c.type), 1}}, c.rowSense, c.rhs);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_EQ(intAttr("NumVars"), 1) << "no switch shows";
    EXPECT_NEAR(dblAt("X", 0), c.x, 1e-6);
    EXPECT_NEAR(dbl("ObjVal"), c.x, 1e-6);
    double beyond = 0;
    EXPECT_NE(KLOgetdblattrelement(model, "X", 1, &beyond), KLO_OK) << "results end at the model";
  }
}

// A callback sees the model's columns and proposes points over them only:
// the slacks, complements and switches follow.
struct Proposals {
  int wrongCounts = 0;
  int feasible = 0;  // proposals judged feasible, better or not
  V x;
};

int propose(const void*, void* cbdata, int where, const void* usrdata) {
  Proposals& p = *static_cast<Proposals*>(const_cast<void*>(usrdata));
  int n = 0;
  KLOcbget(cbdata, where, KLO_CBINFO_NUMVARS, &n);
  if (n != static_cast<int>(p.x.size())) ++p.wrongCounts;
  if (where != KLO_CB_MIP && where != KLO_CB_MIPSOL && where != KLO_CB_MIPNODE) return 0;
  const int rc = KLOcbsolution(cbdata, p.x.data(), nullptr);
  if (rc == KLO_OK || rc == KLO_CB_NOT_IMPROVING) ++p.feasible;
  return 0;
}

TEST_F(SolveSpecial, CallbacksSeeTheModelsColumns) {
  // max x + y + 3z, x + y <= 10; z = 0 implies y <= 2, z = 1 implies x >= 5;
  // "MIP/LinearizationBigM" 0.5: both take slacks, the first a complement.
  // The optimum (10, 0, 1) is 13.
  const Model m{"callback",
                -1,
                {kX, kY, {3, 0, 1, 'B'}},
                {{{{0, 1}, {1, 1}}, '<', 10}},
                {{2, 0, {{{1, 1}}, '<', 2}}, {2, 1, {{{0, 1}}, '>', 5}}},
                0.5};
  // max sum (j+1) x_j  s.t.  sum x_j <= 7.5, x_j semi-integer in {0} u
  // [2, 4]: the optimum (0, 0, 3, 4) is 25.
  const auto semiIntegers = [this] {
    fresh();
    sense(-1);
    std::vector<std::pair<int, double>> sum;
    for (int j = 0; j < 4; ++j) sum.emplace_back(var(j + 1, 2, 4, 'N'), 1);
    row(sum, '<', 7.5);
  };
  for (int k = 0; k < 2; ++k) {
    SCOPED_TRACE(k == 0 ? "indicators" : "semi-integers");
    if (k == 0)
      build(m, {});
    else
      semiIntegers();
    setInt("Presolve", 0);
    Proposals p;
    p.x = k == 0 ? V{10, 0, 1} : V{0, 0, 3, 4};
    ASSERT_EQ(KLOsetcallbackfunc(model, propose, &p), KLO_OK);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(dbl("ObjVal"), k == 0 ? 13 : 25, 1e-6);
    EXPECT_EQ(p.wrongCounts, 0);
    EXPECT_GT(p.feasible, 0);
  }
}

}  // namespace
}  // namespace klotest
