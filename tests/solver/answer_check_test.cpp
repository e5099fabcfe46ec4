// The answer check's figures on answers with one known fault each.
#include "solve/answer_check.h"

#include <gtest/gtest.h>

#include <functional>

namespace klotest {
namespace {

using klo::Violations;
using klo::engine::Problem;
using klo::engine::Result;

// x0 + x1 >= 2, x in [0, 4]^2, minimise x0 + 2 x1: optimum (2, 0), row
// dual 1; x1's reduced cost 2 - 1 = 1 >= 0 at its lower bound.
Problem base() {
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
         p.quadRows.push_back({0, {{0}, {0}, {1.0}}});
         p.index = {1};
         p.value = {1};
         p.start = {0, 1};
       },
       &Violations::row, 0.25},
      // Costing x1 0.5 makes its reduced cost 0.5 - 1 < 0 at its lower bound.
      {"reduced cost sign", [](Problem& p, Result&) { p.obj[1] = 0.5; }, &Violations::dual, 0.5},
      // A >= row at its bound with a negative dual: cut to 0, it leaves x0's
      // reduced cost 1 although x0 is between its bounds.
      {"row dual sign", [](Problem&, Result& r) { r.duals = {-1}; }, &Violations::dual, 1.0},
      // At x = (3, 0) the row is slack, so its dual must be 0; then x0's
      // reduced cost 1 times its distance 3 from its bound is a duality gap
      // of 3, over |objective| 3.
      {"complementarity",
       [](Problem&, Result& r) {
         r.x = {3, 0};
         r.objective = 3;
       },
       &Violations::complementarity, 1.0},
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
    Problem p = base();
    Result r;
    r.hasSolution = true;
    r.x = {2, 0};
    r.duals = {1};
    r.objective = 2;
    c.spoil(p, r);
    klo::measureAnswer(p, r, klo::engine::Settings{});
    EXPECT_NEAR(r.violations.*c.figure, c.expected, 1e-12);
  }
}

TEST(AnswerCheck, DualFiguresOnlyForContinuousAnswersWithDuals) {
  Problem p = base();
  Result r;
  r.hasSolution = true;
  r.x = {2, 0};
  klo::measureAnswer(p, r, klo::engine::Settings{});
  EXPECT_FALSE(r.violations.dualChecked) << "no duals";
  r.duals = {1};
  p.colType[1] = 'I';
  klo::measureAnswer(p, r, klo::engine::Settings{});
  EXPECT_FALSE(r.violations.dualChecked) << "integer";
  klo::engine::Settings s;
  EXPECT_TRUE(klo::passesCheck(r, s));
  r.x = {2, 1e-4};  // beyond the integrality tolerance, even with the slack
  klo::measureAnswer(p, r, klo::engine::Settings{});
  EXPECT_FALSE(klo::passesCheck(r, s));
}

}  // namespace
}  // namespace klotest
