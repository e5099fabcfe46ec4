// The solve pipeline's own parts: the model class and convexity (model in,
// class out), which engine solves what (or the refusal), the answer check's
// figures on answers with one known fault each and its clean-up with an
// engine that answers from a script, and the solution pool.
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "engine/solution_pool.h"
#include "fixtures.h"
#include "solve/answer_check.h"
#include "solve/checked_solve.h"
#include "solve/chooser.h"
#include "solve/convexity.h"

namespace klotest {
namespace {

using klo::ModelClass;
using klo::Violations;
using klo::engine::Problem;
using klo::engine::QuadTerms;
using klo::engine::Result;
using klo::engine::Settings;
using C = ModelClass;
constexpr double kInf = KLO_INFINITY;

// Three columns in [0, 10] with costs 1 and no rows.
Problem threeColumns() {
  Problem p;
  p.obj = {1, 1, 1};
  p.colLower = {0, 0, 0};
  p.colUpper = {10, 10, 10};
  p.colType = {'C', 'C', 'C'};
  p.columnMajor = false;
  return p;
}

// Adds the row  lo <= linear x + q(x) <= up.
void addRow(Problem& p, double lo, double up, const std::vector<double>& linear,
            const QuadTerms& q) {
  const int r = p.numRows();
  for (int j = 0; j < 3; ++j)
    if (linear[j] != 0) p.index.push_back(j), p.value.push_back(linear[j]);
  p.start.push_back(static_cast<int>(p.index.size()));
  p.rowLower.push_back(lo);
  p.rowUpper.push_back(up);
  p.quadRows.push_back({r, q, "r" + std::to_string(r)});
}

TEST(Convexity, ModelInClassOut) {
  struct Case {
    const char* name;
    ModelClass cls;
    QuadTerms obj, row;  // the row is added when it has terms
    double lo = -kInf, up = kInf;
    std::vector<double> linear = {0, 0, 0};
    int sense = 1;
    char type1 = 'C';  // of column 1
    double lb2 = 0;    // column 2's lower bound
  };
  const QuadTerms squares{{0, 1}, {0, 1}, {1, 1}}, cone{{0, 1, 2}, {0, 1, 2}, {1, 1, -1}};
  const QuadTerms hyper{{0, 2}, {0, 2}, {1, -1}};
  const Case cases[] = {
      {"LP", C::LP, {}, {}},
      {"MIP", C::MIP, {}, {}, -kInf, kInf, {0, 0, 0}, 1, 'I'},
      {"min x0^2 + x1^2", C::QP, squares, {}},
      {"min (x0 - x1)^2, singular", C::QP, {{0, 0, 1}, {0, 1, 1}, {1, -2, 1}}, {}},
      {"max -x0^2", C::QP, {{0}, {0}, {-1}}, {}, -kInf, kInf, {0, 0, 0}, -1},
      {"max x0^2", C::Nonconvex, {{0}, {0}, {1}}, {}, -kInf, kInf, {0, 0, 0}, -1},
      {"min x0 x1", C::Nonconvex, {{0}, {1}, {1}}, {}},
      {"min x0^2 + 3 x0 x1 + x1^2 (eigenvalues 2.5, -0.5)",
       C::Nonconvex,
       {{0, 0, 1}, {0, 1, 1}, {1, 3, 1}},
       {}},
      {"x0^2 + x1^2 <= 4", C::QCQP, {}, squares, -kInf, 4},
      {"-x0^2 + x1 >= -4", C::QCQP, {}, {{0}, {0}, {-1}}, -4, kInf, {0, 1, 0}},
      {"x0^2 + x1^2 >= 1", C::Nonconvex, {}, squares, 1, kInf},
      {"x0^2 + x1^2 == 1", C::Nonconvex, {}, squares, 1, 1},
      {"cone x0^2 + x1^2 - x2^2 <= 0, x2 >= 0", C::QCQP, {}, cone, -kInf, 0},
      {"the same cone with x2 >= -1", C::Nonconvex, {}, cone, -kInf, 0, {0, 0, 0}, 1, 'C', -1},
      {"cone as >=: x2^2 - x0^2 >= 1", C::QCQP, {}, {{0, 2}, {0, 2}, {-1, 1}}, 1, kInf},
      {"hyperboloid x0^2 - x2^2 <= 1", C::Nonconvex, {}, hyper, -kInf, 1},
      {"(x0 + 1)^2 - x2^2 <= 0 as x0^2 + 2 x0 - x2^2 <= -1",
       C::QCQP,
       {},
       hyper,
       -kInf,
       -1,
       {2, 0, 0}},
      {"x0^2 + 2 x0 - x2^2 <= 0 (a hyperboloid)", C::Nonconvex, {}, hyper, -kInf, 0, {2, 0, 0}},
      {"rotated cone x0^2 <= x1 x2", C::QCQP, {}, {{0, 1}, {0, 2}, {1, -1}}, -kInf, 0},
      {"x0^2 <= x1 x2 with a linear term on x1",
       C::Nonconvex,
       {},
       {{0, 1}, {0, 2}, {1, -1}},
       -kInf,
       0,
       {0, 1, 0}},
      {"mixed-integer convex", C::MIQP, {}, squares, -kInf, 4, {0, 0, 0}, 1, 'B'},
      {"mixed-integer nonconvex",
       C::Nonconvex,
       {{0}, {1}, {1}},
       {},
       -kInf,
       kInf,
       {0, 0, 0},
       1,
       'B'},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Problem p = threeColumns();
    p.objQuad = c.obj;
    p.sense = c.sense;
    p.colType[1] = c.type1;
    p.colLower[2] = c.lb2;
    if (c.row.size() > 0) addRow(p, c.lo, c.up, c.linear, c.row);
    EXPECT_EQ(klo::classify(p), c.cls) << klo::className(klo::classify(p));
  }
}

// A Gram matrix B'B of n columns is positive semidefinite, of rank 3 here;
// less a small multiple of the identity it is not.  Both are one dense
// block.  A chain of 10000 coupled columns is never made dense: the
// smoothing matrix (2 on the diagonal, -1 beside it) passes as diagonally
// dominant; one that is not is refused as too large to check.
TEST(Convexity, DenseBlocksAreFactorisedAndLargeOnesNot) {
  const int n = 40;
  QuadTerms gram, shifted;
  for (int i = 0; i < n; ++i)
    for (int j = i; j < n; ++j) {
      double v = 0;
      for (int k = 0; k < 3; ++k) v += std::sin(i + 7.0 * k) * std::sin(j + 7.0 * k);
      const double term = i == j ? v : 2 * v;  // x'Mx lists each pair once
      gram.row.push_back(i), gram.col.push_back(j), gram.val.push_back(term);
      shifted.row.push_back(i), shifted.col.push_back(j);
      shifted.val.push_back(i == j ? term - 1e-2 : term);
    }
  EXPECT_TRUE(klo::semidefinite(gram, 1));
  EXPECT_FALSE(klo::semidefinite(gram, -1));
  EXPECT_FALSE(klo::semidefinite(shifted, 1));
  QuadTerms smooth, weak;
  for (int i = 0; i < 10000; ++i) {
    for (QuadTerms* q : {&smooth, &weak})
      q->row.push_back(i), q->col.push_back(i), q->val.push_back(q == &smooth ? 2 : 0.5);
    if (i + 1 < 10000)
      for (QuadTerms* q : {&smooth, &weak})
        q->row.push_back(i), q->col.push_back(i + 1), q->val.push_back(-2);  // -x_i x_{i+1} twice
  }
  EXPECT_TRUE(klo::semidefinite(smooth, 1));
  const klo::Error e = thrown([&] { klo::semidefinite(weak, 1); });
  EXPECT_EQ(e.code, KLO_ERROR_NOT_SUPPORTED);
  EXPECT_NE(e.message.find("too large to check"), std::string::npos) << e.message;
}

TEST(EngineChoice, NonconvexRowsAreNamedUnlessALocalAnswerIsAskedFor) {
  Problem p = threeColumns();
  addRow(p, -kInf, 4, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
  addRow(p, 1, kInf, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
  const klo::Error e = thrown([&] { klo::chooseEngine(p, "KLOoptimize"); });
  EXPECT_EQ(e.code, KLO_ERROR_NONCONVEX);
  EXPECT_NE(e.message.find("KLOoptimize: row \"r1\" is not convex"), std::string::npos);
  EXPECT_NE(e.message.find("\"NonConvex\""), std::string::npos) << e.message;
  klo::engine::EngineEntry local{"Local", {}, nullptr}, global{"Global", {}, nullptr};
  local.caps.features = global.caps.features = klo::engine::kQuadRows;
  local.caps.local = true;
  EXPECT_STREQ(klo::chooseEngine(p, "x", true, {global, local}).name, "Local");
  p.quadRows.pop_back();
  EXPECT_STREQ(klo::chooseEngine(p, "x", true, {global, local}).name, "Global");
}

// x0 + x1 >= 2 over x0, x1 in [0, 4]; minimise x0 + 2 x1: the optimum is
// x = (2, 0), the row's dual 1 and x1's reduced cost 2 - 1 = 1 >= 0 at its
// lower bound.
Problem twoColumns() {
  Problem p;
  p.obj = {1, 2};
  p.colLower = {0, 0};
  p.colUpper = {4, 4};
  p.colType = {'C', 'C'};
  p.columnMajor = false;
  p.start = {0, 2};
  p.index = {0, 1};
  p.value = {1, 1};
  p.rowLower = {2};
  p.rowUpper = {KLO_INFINITY};
  return p;
}

TEST(EngineChoice, ModelClassesGoToTheEngineThatTakesThemOrAreRefusedByFeature) {
  struct Case {
    const char* name;
    std::function<void(Problem&)> add;
    ModelClass cls;
    const char* outcome;  // the engine's name, or a piece of the refusal
  };
  const Case cases[] = {
      {"LP", [](Problem&) {}, C::LP, "Clp"},
      {"MIP", [](Problem& p) { p.colType[0] = 'I'; }, C::MIP, "Cbc"},
      {"SOS",
       [](Problem& p) {
         p.sos.push_back({1, {0, 1}, {1, 2}});
       },
       C::MIP, "Cbc"},
      {"semi-continuous", [](Problem& p) { p.colType[1] = 'S'; }, C::MIP,
       "has semi-continuous or semi-integer variables, which no engine"},
      {"indicator",
       [](Problem& p) {
         p.indicators.push_back({0, 1, {1}, {1.0}, '<', 1});
       },
       C::MIP, "has indicator constraints"},
      {"QP",
       [](Problem& p) {
         p.objQuad = {{0}, {0}, {1.0}};
       },
       C::QP, "Clp"},
      {"QCQP",
       [](Problem& p) {
         p.quadRows.push_back({0, {{0}, {0}, {-1.0}}, ""});
       },
       C::QCQP, "Ipopt"},  // concave in a >= row
      {"MIQP",
       [](Problem& p) {
         p.colType[0] = 'B';
         p.objQuad = {{0}, {0}, {1.0}};
       },
       C::MIQP, "Bonmin"},
      {"SDP",
       [](Problem& p) {
         p.psdVars.push_back({2, {}});
       },
       C::SDP, "CSDP"},
      {"PSD with integers",
       [](Problem& p) {
         p.colType[0] = 'I';
         p.psdVars.push_back({2, {}});
       },
       C::Other, "has integer variables together with PSD variables"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Problem p = twoColumns();
    c.add(p);
    EXPECT_EQ(klo::classify(p), c.cls);
    try {
      EXPECT_STREQ(klo::chooseEngine(p, "KLOoptimize").name, c.outcome);
    } catch (const klo::Error& e) {
      EXPECT_EQ(e.code, KLO_ERROR_NOT_SUPPORTED);
      EXPECT_NE(e.message.find(std::string("KLOoptimize: the model ") + c.outcome),
                std::string::npos)
          << e.message;
    }
  }
  // Two engines that each take one feature: a model with both is refused
  // by naming the pair; the order of the list is the order of preference.
  klo::engine::EngineEntry integers{"IntegersOnly", {}, nullptr};
  integers.caps.features = klo::engine::kIntegers;
  klo::engine::EngineEntry quadratic{"QuadraticOnly", {}, nullptr};
  quadratic.caps.features = klo::engine::kQuadObjective;
  Problem p = twoColumns();
  EXPECT_STREQ(klo::chooseEngine(p, "x", false, {integers, quadratic}).name, "IntegersOnly");
  p.colType[0] = 'I';
  p.objQuad = {{0}, {0}, {1.0}};
  const klo::Error e = thrown([&] { klo::chooseEngine(p, "x", false, {integers, quadratic}); });
  EXPECT_NE(e.message.find("integer variables together with quadratic objective terms"),
            std::string::npos)
      << e.message;
}

TEST(AnswerCheck, EachFaultShowsInItsFigure) {
  struct Case {
    const char* fault;
    std::function<void(Problem&, Result&)> spoil;
    double Violations::*figure;
    double expected;
  };
  const Case cases[] = {
      {"none", [](Problem&, Result&) {}, &Violations::dual, 0.0},
      // 0.5 over the bound 4, relative to it.
      {"column bound",
       [](Problem&, Result& r) {
         r.x = {4.5, 0};
       },
       &Violations::bound, 0.125},
      // Short of the row's bound 2 by 0.5.
      {"row bound",
       [](Problem&, Result& r) {
         r.x = {1.5, 0};
       },
       &Violations::row, 0.25},
      // x1 + x0^2 <= 3 at x0 = 2: over by 1, relative to its largest term 4.
      {"quadratic row",
       [](Problem& p, Result&) {
         p.rowUpper[0] = 3;
         p.quadRows.push_back({0, {{0}, {0}, {1.0}}, ""});
         p.index = {1};
         p.value = {1};
         p.start = {0, 1};
       },
       &Violations::row, 0.25},
      // Costing x1 0.5 makes its reduced cost 0.5 - 1 < 0, pointing at an
      // upper bound it does not have.
      {"reduced cost sign",
       [](Problem& p, Result&) {
         p.obj[1] = 0.5;
         p.colUpper[1] = KLO_INFINITY;
       },
       &Violations::dual, 0.5},
      // With an upper bound of 4 that reduced cost pairs with it, 4 away:
      // a duality gap of 0.5 * 4 over |objective| 2.
      {"reduced cost at the far bound", [](Problem& p, Result&) { p.obj[1] = 0.5; },
       &Violations::complementarity, 1.0},
      // A negative dual on a >= row: cut to 0, it leaves x0's reduced cost 1,
      // which pairs with x0's lower bound 2 away: a gap of 2 over 2.
      {"row dual sign", [](Problem&, Result& r) { r.duals = {-1}; }, &Violations::complementarity,
       1.0},
      // At x = (3, 0) the row is 1 above its bound: its dual 1 times that
      // is a duality gap of 1, over |objective| 3.
      {"complementarity",
       [](Problem&, Result& r) {
         r.x = {3, 0};
         r.objective = 3;
       },
       &Violations::complementarity, 1.0 / 3},
      {"integrality",
       [](Problem& p, Result& r) {
         p.colType[0] = 'I';
         r.x = {2.3, 0};
       },
       &Violations::integrality, 0.3},
      {"SOS",
       [](Problem& p, Result& r) {
         p.sos.push_back({1, {0, 1}, {1, 2}});
         r.x = {2, 1};
       },
       &Violations::sos, 1.0},
      // Semi-continuous in [1, 4]: 0 is allowed, 0.5 is not.
      {"semi-continuous",
       [](Problem& p, Result& r) {
         p.colType[1] = 'S';
         p.colLower[1] = 1;
         r.x = {2, 0.5};
       },
       &Violations::bound, 0.5},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.fault);
    Problem p = twoColumns();
    Result r;
    r.hasSolution = true;
    r.x = {2, 0};
    r.duals = {1};
    r.objective = 2;
    c.spoil(p, r);
    klo::measureAnswer(p, r);
    EXPECT_NEAR(r.violations.*c.figure, c.expected, 1e-12);
  }
}

TEST(AnswerCheck, DualFiguresOnlyForContinuousAnswersWithDuals) {
  Problem p = twoColumns();
  Result r;
  r.hasSolution = true;
  r.x = {2, 0};
  klo::measureAnswer(p, r);
  EXPECT_FALSE(r.violations.dualChecked) << "no duals";
  r.duals = {1};
  p.colType[1] = 'I';
  klo::measureAnswer(p, r);
  EXPECT_FALSE(r.violations.dualChecked) << "integer";
  EXPECT_TRUE(klo::passesCheck(r, Settings{}));
  r.x = {2, 1e-4};  // beyond the integrality tolerance, even with the slack
  klo::measureAnswer(p, r);
  EXPECT_FALSE(klo::passesCheck(r, Settings{}));
}

// An engine that answers from a script: the n-th solve gives answers[n]
// (the last one again when the script runs out), and records the settings
// and warm start it was given.
struct Script {
  std::vector<Result> answers;
  std::vector<Settings> settings;
  std::vector<std::vector<int>> warmColBasis;
};
Script* script = nullptr;

class ScriptedRun {
 public:
  static constexpr const char* kName = "Scripted";
  ScriptedRun(const Problem& p, const Settings& s, const klo::engine::Callback&) : p_(p), s_(s) {}
  Result run() {
    script->settings.push_back(s_);
    script->warmColBasis.push_back(p_.colBasis);
    return script->answers[std::min(script->settings.size(), script->answers.size()) - 1];
  }

 private:
  const Problem& p_;
  const Settings& s_;
};

// An optimal answer with basis (basic, lower) and 10 iterations.
Result answer(std::vector<double> x, double dual, double objective) {
  Result r;
  r.status = KLO_STATUS_OPTIMAL;
  r.hasSolution = true;
  r.x = std::move(x);
  r.duals = {dual};
  r.objective = objective;
  r.colBasis = {KLO_BASIS_BASIC, KLO_BASIS_LOWER};
  r.rowBasis = {KLO_BASIS_LOWER};
  r.simplexIterations = 10;
  return r;
}

// The optimum; the optimum with the row's dual of the wrong sign (a >= row
// at its bound needs a dual >= 0); a point short of the row by 0.5,
// relative to its bound 2 a violation of 0.25; one shorter still.
TEST(CheckedSolve, AnswersThatFailTheCheckAreCleanedUpOrCalledSuboptimal) {
  klo::engine::EngineEntry scripted{
      ScriptedRun::kName, {}, [] {
        return std::unique_ptr<klo::engine::Engine>(new klo::engine::RunEngine<ScriptedRun>());
      }};
  scripted.caps.duals = scripted.caps.basis = true;
  const Result right = answer({2, 0}, 1, 2), wrongDual = answer({2, 0}, -1, 2);
  const Result shortRow = answer({1.5, 0}, 1, 1.5), shorter = answer({1, 0}, 1, 1.5);
  Script s;
  script = &s;
  const auto solve = [&](std::vector<Result> answers) {
    s = Script{std::move(answers), {}, {}};
    return klo::checkedSolve(twoColumns(), Settings{}, {}, "test", {scripted});
  };
  Result r = solve({right});
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_EQ(s.settings.size(), 1u) << "taken as it is";
  EXPECT_TRUE(r.violations.dualChecked);
  EXPECT_LE(r.violations.dual + r.violations.complementarity, 1e-12);

  r = solve({wrongDual, right});  // continued from the basis without presolve
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  ASSERT_EQ(s.settings.size(), 2u);
  EXPECT_EQ(s.settings[1].presolve, 0);
  EXPECT_EQ(s.settings[1].method, klo::engine::LpMethod::Primal);
  EXPECT_DOUBLE_EQ(s.settings[1].dualTolerance, 0.01 * Settings{}.dualTolerance);
  EXPECT_EQ(s.warmColBasis[1], wrongDual.colBasis);
  EXPECT_EQ(r.simplexIterations, 20) << "both solves' work counts";
  EXPECT_LE(r.violations.dual, 1e-12);

  r = solve({shortRow, shorter});  // the least violated answer is kept
  EXPECT_EQ(r.status, KLO_STATUS_SUBOPTIMAL);
  ASSERT_EQ(s.settings.size(), 3u) << "primal simplex, then dual";
  EXPECT_EQ(s.settings[2].method, klo::engine::LpMethod::Dual);
  EXPECT_TRUE(r.hasSolution);
  EXPECT_EQ(r.x, (std::vector<double>{1.5, 0}));
  EXPECT_NEAR(r.violations.row, 0.25, 1e-12);
  EXPECT_EQ(r.simplexIterations, 30);
  script = nullptr;
}

// The pool an adapter builds from the solutions it saw: repeats (within
// tolerance) kept once, best first, within both size limits.  Column 0 is
// integer, column 1 continuous; the solve's own answer is (1, 2.5), 10.
TEST(SolutionPool, RepeatsGoAndTheBestComeFirst) {
  using klo::engine::PoolSolution;
  using X = std::vector<std::vector<double>>;
  const auto pooled = [](int sense, const std::vector<PoolSolution>& found, int poolSize = 10,
                         int maxSols = 1000) {
    Problem p;
    p.colType = {'I', 'C'};
    p.sense = sense;
    Settings s;
    s.solutionPoolSize = poolSize;
    s.maxSolutions = maxSols;
    Result r;
    r.objective = 10;
    r.x = {1, 2.5};
    klo::engine::fillPool(r, p, s, found);
    X xs;
    for (const PoolSolution& q : r.pool) xs.push_back(q.x);
    return xs;
  };
  const PoolSolution again{10, {1 + 1e-7, 2.5 + 1e-8}};  // off by less than the tolerances
  const PoolSolution worse{14, {3, 2.5}}, worst{20, {4, 0}}, closeButApart{12, {1, 2.5 + 1e-3}};
  EXPECT_EQ(pooled(1, {worst, again, worse, again}), (X{{1, 2.5}, {3, 2.5}, {4, 0}}));
  EXPECT_EQ(pooled(1, {closeButApart, worse}), (X{{1, 2.5}, {1, 2.5 + 1e-3}, {3, 2.5}}));
  EXPECT_EQ(pooled(-1, {worse, worst}), (X{{1, 2.5}, {4, 0}, {3, 2.5}})) << "maximising";
  EXPECT_EQ(pooled(1, {worst, worse}, 2), (X{{1, 2.5}, {3, 2.5}})) << "pool size";
  EXPECT_EQ(pooled(1, {worst, worse}, 10, 1), (X{{1, 2.5}})) << "solution limit";
}

}  // namespace
}  // namespace klotest
