// Small LPs, primal and dual solutions worked out by hand; every engine
// gives the primal side, those that declare duals and bases give those too.
// Convention (result.h): y_i = d(objective)/d(active bound of row i) and
// d_j = c_j - sum_i y_i a_ij, in minimisation and maximisation alike.
#include <gtest/gtest.h>

#include <cmath>

#include "common/error.h"
#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

constexpr double kTol = 1e-7;

using LpSolutions = EngineTest;

void expectVector(const std::vector<double>& got, const std::vector<double>& want) {
  ASSERT_EQ(got.size(), want.size());
  for (size_t k = 0; k < want.size(); ++k) EXPECT_NEAR(got[k], want[k], 1e-6) << "entry " << k;
}

// min 2x + 3y  s.t.  r0: x + y >= 4,  r1: x + 3y >= 6,  x, y >= 0.
// Vertices: (6,0) 12, (3,1) 9, (0,4) 12 -> optimum (3,1), objective 9.
// Duals from c = A'y: 2 = y0 + y1, 3 = y0 + 3 y1 -> y = (1.5, 0.5), both
// >= 0 as binding >= rows must be when minimising; d = (0, 0).
// Dual objective 4*1.5 + 6*0.5 = 9.
Problem minGreaterRows() {
  ProblemBuilder b(KLO_MINIMIZE);
  int x = b.col(2, 0, kInf), y = b.col(3, 0, kInf);
  b.row({{x, 1}, {y, 1}}, 4, kInf);
  b.row({{x, 1}, {y, 3}}, 6, kInf);
  return b.problem();
}

TEST_P(LpSolutions, MinimiseWithGreaterRows) {
  for (LpMethod m : methods()) {
    Result r = solveLp(minGreaterRows(), m);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL) << static_cast<int>(m);
    EXPECT_TRUE(r.hasSolution);
    EXPECT_NEAR(r.objective, 9, kTol);
    EXPECT_NEAR(r.dualObjective, 9, 1e-6);
    expectVector(r.x, {3, 1});
    expectVector(r.activities, {4, 6});
    if (caps().duals) {
      expectVector(r.duals, {1.5, 0.5});
      expectVector(r.reducedCosts, {0, 0});
    }
    if (!caps().basis) continue;
    EXPECT_EQ(r.colBasis, (std::vector<int>{KLO_BASIS_BASIC, KLO_BASIS_BASIC}));
    // Binding >= rows sit at their lower bound.
    EXPECT_EQ(r.rowBasis, (std::vector<int>{KLO_BASIS_LOWER, KLO_BASIS_LOWER}));
  }
}

// max x + y  s.t.  r0: x + 2y <= 4,  r1: 3x + y <= 6,  x, y >= 0.
// Intersection: x = 1.6, y = 1.2, objective 2.8.  Duals: 1 = y0 + 3 y1,
// 1 = 2 y0 + y1 -> y = (0.4, 0.2): raising a binding <= bound raises the
// maximum, so they are positive.  Binding <= rows are at their upper bound.
TEST_P(LpSolutions, MaximiseWithLessRows) {
  ProblemBuilder b(KLO_MAXIMIZE);
  int x = b.col(1, 0, kInf), y = b.col(1, 0, kInf);
  b.row({{x, 1}, {y, 2}}, -kInf, 4);
  b.row({{x, 3}, {y, 1}}, -kInf, 6);
  Result r = solveLp(b.problem());
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, 2.8, kTol);
  EXPECT_NEAR(r.dualObjective, 2.8, 1e-6);
  expectVector(r.x, {1.6, 1.2});
  if (caps().duals) expectVector(r.duals, {0.4, 0.2});
  if (caps().basis) {
    EXPECT_EQ(r.rowBasis, (std::vector<int>{KLO_BASIS_UPPER, KLO_BASIS_UPPER}));
  }
}

// min x + 2y - z + 10  with x >= 0, y free, 0 <= z <= 2,
//   r0: x + y + z = 6,   r1: 1 <= x - y <= 3.
// x = 6 - y - z gives objective 16 + y - 2z and r1: 3 <= 2y + z <= 5, so
// y = (3 - z)/2 and the objective 17.5 - 2.5 z is least at z = 2:
// y = 0.5, x = 3.5, objective 12.5; r1's activity 3 is its upper bound.
// Duals: x and y basic -> 1 = y0 + y1, 2 = y0 - y1 -> y = (1.5, -0.5);
// d_z = -1 - y0 = -2.5 (at its upper bound, so <= 0 when minimising).
// Dual objective 10 + 6*1.5 + 3*(-0.5) + 2*(-2.5) = 12.5.
Problem equalityRangeFree(int sense) {
  ProblemBuilder b(sense);
  int x = b.col(sense * 1, 0, kInf), y = b.col(sense * 2, -kInf, kInf), z = b.col(sense * -1, 0, 2);
  b.row({{x, 1}, {y, 1}, {z, 1}}, 6, 6);
  b.row({{x, 1}, {y, -1}}, 1, 3);
  b.problem().objConstant = sense * 10;
  return b.problem();
}

TEST_P(LpSolutions, EqualityRangeAndFreeVariable) {
  for (int presolve : {0, 1}) {
    Result r = solveLp(equalityRangeFree(KLO_MINIMIZE), LpMethod::Automatic, presolve);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(r.objective, 12.5, kTol);
    EXPECT_NEAR(r.dualObjective, 12.5, 1e-6);
    expectVector(r.x, {3.5, 0.5, 2});
    expectVector(r.activities, {6, 3});
    if (caps().duals) {
      expectVector(r.duals, {1.5, -0.5});
      expectVector(r.reducedCosts, {0, 0, -2.5});
    }
    if (!caps().basis) continue;
    EXPECT_EQ(r.colBasis[2], KLO_BASIS_UPPER);
    EXPECT_EQ(r.rowBasis, (std::vector<int>{KLO_BASIS_FIXED, KLO_BASIS_UPPER}));
  }
}

// The same problem maximised with the objective negated: the same point,
// objective -12.5, and every dual and reduced cost negated, since each is
// the rate of change of the (now negated) objective.
TEST_P(LpSolutions, MaximisationNegatesDualsOfTheNegatedObjective) {
  Result r = solveLp(equalityRangeFree(KLO_MAXIMIZE));
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, -12.5, kTol);
  EXPECT_NEAR(r.dualObjective, -12.5, 1e-6);
  expectVector(r.x, {3.5, 0.5, 2});
  if (!caps().duals) return;
  expectVector(r.duals, {-1.5, 0.5});
  expectVector(r.reducedCosts, {0, 0, 2.5});
}

// The matrix may come column-major: the same problem, the same answer.
TEST_P(LpSolutions, ColumnMajorMatrixGivesTheSameAnswer) {
  Problem p = minGreaterRows();
  Problem c = p;
  c.columnMajor = true;
  c.start = {0, 2, 4};
  c.index = {0, 1, 0, 1};
  c.value = {1, 1, 1, 3};
  Result r = solveLp(c);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  expectVector(r.x, {3, 1});
  if (caps().duals) expectVector(r.duals, {1.5, 0.5});
}

TEST_P(LpSolutions, MalformedProblemsAreRefusedWithTheirReason) {
  struct Case {
    const char* reason;
    void (*spoil)(Problem&);
  };
  const Case cases[] = {
      {"index out of range", [](Problem& p) { p.index[1] = 7; }},
      {"column arrays differ", [](Problem& p) { p.colLower.pop_back(); }},
      {"obj[0] is NaN", [](Problem& p) { p.obj[0] = std::nan(""); }},
      {"column type", [](Problem& p) { p.colType[0] = 'X'; }},
      {"basis code 9",
       [](Problem& p) {
         p.colBasis = {9, 1};
       }},
      {"matrix start", [](Problem& p) { p.start.pop_back(); }},
  };
  for (const Case& c : cases) {
    Problem p = minGreaterRows();
    c.spoil(p);
    try {
      solveLp(p);
      ADD_FAILURE() << "accepted: " << c.reason;
    } catch (const Error& e) {
      EXPECT_EQ(e.code, KLO_ERROR_INVALID_ARGUMENT);
      EXPECT_NE(e.message.find(c.reason), std::string::npos) << e.message;
    }
  }
}

KLO_ENGINE_SUITE(LpSolutions, anyEngine);

}  // namespace
}  // namespace klo::engine::test
