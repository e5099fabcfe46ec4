// Indicator constraints: the rows, columns and SOS sets that model them
// (model in, model out) and solves through the C interface checked
// against brute force over their binaries.
#include <cmath>
#include <string>
#include <vector>

#include "engine/problem.h"
#include "solve/indicators.h"
#include "solve_fixture.h"

namespace klotest {
namespace {

using klo::engine::IndicatorRow;
using klo::engine::SosSet;

// x0 in [0, 10] with the row x0 <= 4, x1 free, z2 binary, z3 binary fixed at 1.
TEST(IndicatorForms, BigMFromBoundsElseSlackAndSos) {
  klo::engine::Problem p;
  p.obj = {0, 0, 0, 0};
  p.colLower = {0, -KLO_INFINITY, 0, 1};
  p.colUpper = {10, KLO_INFINITY, 1, 1};
  p.colType = {'C', 'C', 'B', 'B'};
  p.columnMajor = false;
  p.start = {0, 1};
  p.index = {0};
  p.value = {1};
  p.rowLower = {-KLO_INFINITY};
  p.rowUpper = {4};
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
  EXPECT_EQ(p.colLower, (std::vector<double>{0, -KLO_INFINITY, 0, 1, 0, 0}));
  EXPECT_EQ(p.colUpper, (std::vector<double>{10, KLO_INFINITY, 1, 1, KLO_INFINITY, 1}));
  EXPECT_EQ(p.start, (std::vector<int>{0, 1, 3, 5, 7, 9, 11}));
  EXPECT_EQ(p.index, (std::vector<int>{0, 0, 2, 1, 4, 5, 2, 0, 1, 0, 1}));
  EXPECT_EQ(p.value, (std::vector<double>{1, 1, 2, -1, -1, 1, 1, 1, 1, -1, -1}));
  EXPECT_EQ(p.rowLower, (std::vector<double>{-KLO_INFINITY, -KLO_INFINITY, -KLO_INFINITY, 1,
                                             -KLO_INFINITY, -KLO_INFINITY}));
  EXPECT_EQ(p.rowUpper, (std::vector<double>{4, 4, -1, 1, 3, -3}));
  ASSERT_EQ(p.sos.size(), 1u);
  EXPECT_EQ(p.sos[0].type, 1);
  EXPECT_EQ(p.sos[0].members, (std::vector<int>{4, 5}));
  klo::engine::checkProblem(p);

  // A callback's point over the model's columns: w and s follow.
  std::vector<double> x{3, 0.25, 0, 1, KLO_UNDEFINED, KLO_UNDEFINED};
  klo::completeIndicatorColumns(c, x);
  EXPECT_EQ(x[4], 0.75);
  EXPECT_EQ(x[5], 1.0);
}

// An answer is measured against each indicator whose binary takes its value.
TEST(IndicatorForms, AnswersAreCheckedAgainstTheIndicators) {
  klo::IndicatorColumns c;
  c.indicators = {IndicatorRow{0, 1, {1}, {1}, '<', 2}};
  struct Case {
    std::vector<double> x;
    int status;
  };
  const Case cases[] = {
      {{1, 2}, KLO_STATUS_OPTIMAL},            // active, holds
      {{0, 5}, KLO_STATUS_OPTIMAL},            // inactive
      {{1, 2.5}, KLO_STATUS_SUBOPTIMAL},       // active, broken
      {{1 - 1e-7, 3}, KLO_STATUS_SUBOPTIMAL},  // active within the integrality tolerance
  };
  for (const Case& k : cases) {
    klo::engine::Result r;
    r.status = KLO_STATUS_OPTIMAL;
    r.hasSolution = true;
    r.x = k.x;
    klo::checkIndicators(c, r, klo::engine::Settings{});
    EXPECT_EQ(r.status, k.status) << k.x[0] << ", " << k.x[1];
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

class SolveIndicators : public SolveTest {
 protected:
  void addRow(const Lin& l) { row(l.terms, l.sense, l.rhs); }

  // The model with its indicators, or (fixed non-empty: one value per
  // binary) the LP with the binaries fixed and the active indicators as rows.
  void build(const Model& m, const std::vector<int>& fixed) {
    KLOfreemodel(model);
    ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
    sense(m.sense);
    for (size_t j = 0, b = 0; j < m.vars.size(); ++j) {
      const Var& v = m.vars[j];
      if (v.type != 'B' || fixed.empty()) {
        var(v.obj, v.lb, v.ub, v.type);
        continue;
      }
      const double at = fixed[b++];
      var(v.obj, at, at, 'C');
    }
    for (const Lin& l : m.rows) addRow(l);
    for (const Ind& g : m.inds) {
      if (!fixed.empty()) {
        if (fixed[binaryNumber(m, g.bin)] == g.val) addRow(g.row);
        continue;
      }
      std::vector<int> ind;
      std::vector<double> val;
      for (const auto& [j, a] : g.row.terms) {
        ind.push_back(j);
        val.push_back(a);
      }
      ASSERT_EQ(KLOaddgenconstrIndicator(model, "g", g.bin, g.val, static_cast<int>(ind.size()),
                                         ind.data(), val.data(), g.row.sense, g.row.rhs),
                KLO_OK)
          << modelError();
    }
    if (m.bigM > 0) setDbl("MIP/LinearizationBigM", m.bigM);
  }

  static int binaryNumber(const Model& m, int j) {
    int b = 0;
    for (int k = 0; k < j; ++k) b += m.vars[k].type == 'B';
    return b;
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
      if (intAttr("Status") != KLO_STATUS_OPTIMAL) continue;
      const double v = m.sense * dbl("ObjVal");
      best = std::min(best, v);
    }
    return best;
  }
};

constexpr double kInf = KLO_INFINITY;
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

TEST_F(SolveIndicators, OptimaMatchBruteForce) {
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

// A callback sees the model's columns and proposes points over them only:
// the slacks and the complement follow.
struct Seen {
  int wrongCounts = 0;
  int feasible = 0;  // proposals judged feasible, better or not
  std::vector<double> x;
};

int propose(const void*, void* cbdata, int where, const void* usrdata) {
  Seen& seen = *static_cast<Seen*>(const_cast<void*>(usrdata));
  int n = 0;
  KLOcbget(cbdata, where, KLO_CBINFO_NUMVARS, &n);
  if (n != static_cast<int>(seen.x.size())) ++seen.wrongCounts;
  const bool mip = where == KLO_CB_MIP || where == KLO_CB_MIPSOL || where == KLO_CB_MIPNODE;
  if (!mip) return 0;
  const int rc = KLOcbsolution(cbdata, seen.x.data(), nullptr);
  if (rc == KLO_OK || rc == KLO_CB_NOT_IMPROVING) ++seen.feasible;
  return 0;
}

TEST_F(SolveIndicators, CallbacksSeeTheModelsColumns) {
  // max x + y + 3z, x + y <= 10; z = 0 implies y <= 2, z = 1 implies x >= 5;
  // "MIP/LinearizationBigM" 0.5: both take slacks, the first a complement.
  const Model m{"callback",
                -1,
                {kX, kY, {3, 0, 1, 'B'}},
                {{{{0, 1}, {1, 1}}, '<', 10}},
                {{2, 0, {{{1, 1}}, '<', 2}}, {2, 1, {{{0, 1}}, '>', 5}}},
                0.5};
  build(m, {});
  setInt("Presolve", 0);
  Seen seen;
  seen.x = {10, 0, 1};  // the optimum, 13
  ASSERT_EQ(KLOsetcallbackfunc(model, propose, &seen), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(dbl("ObjVal"), 13, 1e-6);
  EXPECT_EQ(seen.wrongCounts, 0);
  EXPECT_GT(seen.feasible, 0);
}

}  // namespace
}  // namespace klotest
