// The solve pipeline's own parts: which engine solves what (model class in,
// engine or refusal out), the answer check's figures on answers with one
// known fault each, and its clean-up, with engines that give wrong answers
// on purpose.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "common/error.h"
#include "solve/answer_check.h"
#include "solve/checked_solve.h"
#include "solve/chooser.h"

namespace klotest {
namespace {

using klo::ModelClass;
using klo::Violations;
using klo::engine::Problem;
using klo::engine::Result;

// x0 + x1 >= 2 over x0 in [0, 4], x1 in [0, 4]; minimise x0 + 2 x1: the
// optimum is x = (2, 0), the row's dual 1 and x1's reduced cost 2 - 1 = 1
// >= 0 at its lower bound.
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
      {"LP", [](Problem&) {}, ModelClass::LP, "Clp"},
      {"MIP", [](Problem& p) { p.colType[0] = 'I'; }, ModelClass::MIP, "Cbc"},
      {"SOS",
       [](Problem& p) {
         p.sos.push_back({1, {0, 1}, {1, 2}});
       },
       ModelClass::MIP, "Cbc"},
      {"semi-continuous", [](Problem& p) { p.colType[1] = 'S'; }, ModelClass::MIP,
       "has semi-continuous or semi-integer variables, which no engine"},
      {"indicator",
       [](Problem& p) {
         p.indicators.push_back({0, 1, {1}, {1.0}, '<', 1});
       },
       ModelClass::MIP, "has indicator constraints"},
      {"QP",
       [](Problem& p) {
         p.objQuad = {{0}, {0}, {1.0}};
       },
       ModelClass::QP, "Clp"},
      {"QCQP",
       [](Problem& p) {
         p.quadRows.push_back({0, {{0}, {0}, {-1.0}}, ""});  // concave in a >= row
       },
       ModelClass::QCQP, "Ipopt"},
      {"MIQP",
       [](Problem& p) {
         p.colType[0] = 'B';
         p.objQuad = {{0}, {0}, {1.0}};
       },
       ModelClass::MIQP, "Bonmin"},
      {"SDP",
       [](Problem& p) {
         p.psdVars.push_back({2, {}});
       },
       ModelClass::SDP, "CSDP"},
      {"PSD with integers",
       [](Problem& p) {
         p.colType[0] = 'I';
         p.psdVars.push_back({2, {}});
       },
       ModelClass::Other, "has integer variables together with PSD variables"},
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
}

// Two engines that each take one feature: a model with both is refused by
// naming the pair, and the order of the list is the order of preference.
TEST(EngineChoice, FeaturesTakenOnlyApartAreRefusedTogether) {
  klo::engine::EngineEntry integers{"IntegersOnly", {}, nullptr};
  integers.caps.features = klo::engine::kIntegers;
  klo::engine::EngineEntry quadratic{"QuadraticOnly", {}, nullptr};
  quadratic.caps.features = klo::engine::kQuadObjective;
  const std::vector<klo::engine::EngineEntry> both{integers, quadratic};
  Problem p = twoColumns();
  EXPECT_STREQ(klo::chooseEngine(p, "x", false, both).name, "IntegersOnly");
  p.colType[0] = 'I';
  p.objQuad = {{0}, {0}, {1.0}};
  try {
    klo::chooseEngine(p, "x", false, both);
    ADD_FAILURE() << "accepted";
  } catch (const klo::Error& e) {
    EXPECT_NE(e.message.find("integer variables together with quadratic objective terms"),
              std::string::npos)
        << e.message;
  }
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
  klo::engine::Settings s;
  EXPECT_TRUE(klo::passesCheck(r, s));
  r.x = {2, 1e-4};  // beyond the integrality tolerance, even with the slack
  klo::measureAnswer(p, r);
  EXPECT_FALSE(klo::passesCheck(r, s));
}

// An engine that answers from a script: the n-th solve gives answers[n]
// (the last one again when the script runs out), and records the settings
// and warm start it was given.
struct Script {
  std::vector<klo::engine::Result> answers;
  std::vector<klo::engine::Settings> settings;
  std::vector<std::vector<int>> warmColBasis;
};
Script* script = nullptr;

class ScriptedRun {
 public:
  static constexpr const char* kName = "Scripted";
  ScriptedRun(const Problem& p, const klo::engine::Settings& s, const klo::engine::Callback&)
      : p_(p), s_(s) {}
  klo::engine::Result run() {
    script->settings.push_back(s_);
    script->warmColBasis.push_back(p_.colBasis);
    const size_t k = std::min(script->settings.size(), script->answers.size()) - 1;
    return script->answers[k];
  }

 private:
  const Problem& p_;
  const klo::engine::Settings& s_;
};

klo::engine::Result answer(std::vector<double> x, std::vector<double> duals, double objective,
                           std::vector<int> colBasis) {
  klo::engine::Result r;
  r.status = KLO_STATUS_OPTIMAL;
  r.hasSolution = true;
  r.x = std::move(x);
  r.duals = std::move(duals);
  r.objective = objective;
  r.colBasis = std::move(colBasis);
  r.rowBasis = {KLO_BASIS_LOWER};
  r.simplexIterations = 10;
  return r;
}

class CheckedSolve : public testing::Test {
 protected:
  void SetUp() override { script = &script_; }
  void TearDown() override { script = nullptr; }
  klo::engine::Result solve() {
    klo::engine::EngineEntry scripted{
        ScriptedRun::kName, {}, [] {
          return std::unique_ptr<klo::engine::Engine>(new klo::engine::RunEngine<ScriptedRun>());
        }};
    scripted.caps.duals = scripted.caps.basis = true;
    return klo::checkedSolve(twoColumns(), klo::engine::Settings{}, {}, "test", {scripted});
  }
  Script script_;
  // The optimum; the optimum with the row's dual of the wrong sign (a >= row
  // at its bound needs a dual >= 0); a point short of the row by 0.5,
  // relative to its bound 2 a violation of 0.25.
  const std::vector<int> basis_{KLO_BASIS_BASIC, KLO_BASIS_LOWER};
  const klo::engine::Result right_ = answer({2, 0}, {1}, 2, basis_);
  const klo::engine::Result wrongDual_ = answer({2, 0}, {-1}, 2, basis_);
  const klo::engine::Result shortRow_ = answer({1.5, 0}, {1}, 1.5, basis_);
};

TEST_F(CheckedSolve, AnAnswerThatPassesIsTakenAsItIs) {
  script_.answers = {right_};
  klo::engine::Result r = solve();
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_EQ(script_.settings.size(), 1u);
  EXPECT_TRUE(r.violations.dualChecked);
  EXPECT_LE(r.violations.dual, 1e-12);
  EXPECT_LE(r.violations.complementarity, 1e-12);
}

TEST_F(CheckedSolve, AFailedCheckContinuesFromTheBasisWithoutPresolve) {
  script_.answers = {wrongDual_, right_};
  klo::engine::Result r = solve();
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  ASSERT_EQ(script_.settings.size(), 2u);
  EXPECT_EQ(script_.settings[1].presolve, 0);
  EXPECT_EQ(script_.settings[1].method, klo::engine::LpMethod::Primal);
  EXPECT_DOUBLE_EQ(script_.settings[1].dualTolerance, 0.01 * klo::engine::Settings{}.dualTolerance);
  EXPECT_EQ(script_.warmColBasis[1], wrongDual_.colBasis);
  EXPECT_EQ(r.simplexIterations, 20) << "both solves' work counts";
  EXPECT_LE(r.violations.dual, 1e-12);
}

TEST_F(CheckedSolve, AnAnswerThatNeverPassesIsSuboptimalWithTheLeastViolatedKept) {
  klo::engine::Result worse = shortRow_;
  worse.x = {1, 0};
  script_.answers = {shortRow_, worse};
  klo::engine::Result r = solve();
  EXPECT_EQ(r.status, KLO_STATUS_SUBOPTIMAL);
  ASSERT_EQ(script_.settings.size(), 3u) << "primal simplex, then dual";
  EXPECT_EQ(script_.settings[2].method, klo::engine::LpMethod::Dual);
  EXPECT_TRUE(r.hasSolution);
  EXPECT_EQ(r.x, (std::vector<double>{1.5, 0}));
  EXPECT_NEAR(r.violations.row, 0.25, 1e-12);
  EXPECT_EQ(r.simplexIterations, 30);
}

}  // namespace
}  // namespace klotest
