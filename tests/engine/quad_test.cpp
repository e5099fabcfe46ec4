// Continuous problems with a quadratic objective or quadratic rows, run
// for every engine that takes them, with answers worked by hand (primal
// and, where the engine gives them, dual).  Convention (result.h): y_i =
// d(optimal objective)/d(active bound of row i), d = grad f - sum_i y_i
// grad g_i; minimising, a binding >= row has y >= 0, a binding <= row
// y <= 0; maximising flips the signs.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "engine/problem_eval.h"
#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using Quadratic = EngineTest;

// Interior-point answers are accurate to about the square root of the
// barrier's last mu: looser than the LP suites'.
constexpr double kTol = 1e-5;

// min x0^2 + x1^2 + x2^2, x0 + 2 x1 + 3 x2 >= 14, x2 <= 2: x2 = 2 and
// (x0, x1) = (1.6, 3.2), 16.8; 2 x0 = y -> y = 3.2, d2 = 4 - 3y = -5.6.
Problem halfSpace() {
  ProblemBuilder b;
  int x0 = b.col(0, -kInf, kInf), x1 = b.col(0, -kInf, kInf), x2 = b.col(0, -kInf, 2);
  b.row({{x0, 1}, {x1, 2}, {x2, 3}}, 14, kInf);
  for (int j : {x0, x1, x2}) b.objQuad(j, j, 1);
  return b.problem();
}

// max 2 x0 + 4 x1 - x0^2 - x1^2 + 10, x0 + x1 <= 2, x >= 0: on the row
// (2 - 2 x0, 4 - 2 x1) = y (1, 1): x = (0.5, 1.5), 14.5, y = 1.
Problem concave() {
  ProblemBuilder b(KLO_MAXIMIZE);
  int x0 = b.col(2, 0, kInf), x1 = b.col(4, 0, kInf);
  b.row({{x0, 1}, {x1, 1}}, -kInf, 2);
  b.objQuad(x0, x0, -1);
  b.objQuad(x1, x1, -1);
  b.problem().objConstant = 10;
  return b.problem();
}

// Off-diagonal terms count once: min x0^2 + x0 x1 + x1^2 - 3 x0, free:
// (2 x0 + x1 - 3, x0 + 2 x1) = 0 at (2, -1), -3.
Problem offDiagonal() {
  ProblemBuilder b;
  int x0 = b.col(-3, -kInf, kInf), x1 = b.col(0, -kInf, kInf);
  b.objQuad(x0, x0, 1);
  b.objQuad(x0, x1, 1);
  b.objQuad(x1, x1, 1);
  return b.problem();
}

// min x0^2 + x1^2, x0 fixed at 1, x0 + x1 = 3, x0 = 1: x1 = 2, 5, y0 = 4;
// r1's dual and x0's reduced cost share x0's gradient (checked apart).
Problem fixedColumn() {
  ProblemBuilder b;
  int x0 = b.col(0, 1, 1), x1 = b.col(0, 0, 10);
  b.row({{x0, 1}, {x1, 1}}, 3, 3);
  b.row({{x0, 1}}, 1, 1);
  b.objQuad(x0, x0, 1);
  b.objQuad(x1, x1, 1);
  return b.problem();
}

// max x0 + 2 x1, x0 + x1 = 1, x0^2 + 4 x1^2 <= 1, x >= 0: x0 in [0.6, 1],
// so x = (0.6, 0.4), 1.4; (1, 2) = y0 (1, 1) + y1 (1.2, 3.2): y = (0.4, 0.5).
Problem portfolio() {
  ProblemBuilder b(KLO_MAXIMIZE);
  int x0 = b.col(1, 0, kInf), x1 = b.col(2, 0, kInf);
  b.row({{x0, 1}, {x1, 1}}, 1, 1);
  int v = b.row({}, -kInf, 1);
  b.rowQuad(v, x0, x0, 1);
  b.rowQuad(v, x1, x1, 4);
  return b.problem();
}

// A rotated cone: min t + u, x = 2, x^2 - t u <= 0: t = u = 2, 4; from t,
// 1 = -u y1 -> y1 = -0.5; from x, 0 = y0 + 2x y1 -> y0 = 2.
Problem rotatedCone() {
  ProblemBuilder b;
  int x = b.col(0, -kInf, kInf), t = b.col(1, 0, kInf), u = b.col(1, 0, kInf);
  b.row({{x, 1}}, 2, 2);
  int cone = b.row({}, -kInf, 0);
  b.rowQuad(cone, x, x, 1);
  b.rowQuad(cone, t, u, -1);
  return b.problem();
}

// A facility f for three customers c_k: offsets r_k = f - c_k (two rows)
// and distances s_k with r_k0^2 + r_k1^2 - s_k^2 <= 0 (one row), columns
// f0, f1, [z,] then r_k0, r_k1[, s_k] per customer; minimising the total
// distance (one s_k each) or the largest (one shared z).
Problem facility(const double (&c)[3][2], bool largest) {
  ProblemBuilder b;
  const int f0 = b.col(0, -kInf, kInf), f1 = b.col(0, -kInf, kInf);
  const int z = largest ? b.col(1, 0, kInf) : -1;
  for (const auto& ck : c) {
    const int r0 = b.col(0, -kInf, kInf), r1 = b.col(0, -kInf, kInf);
    const int s = largest ? z : b.col(1, 0, kInf);
    b.row({{r0, 1}, {f0, -1}}, -ck[0], -ck[0]);
    b.row({{r1, 1}, {f1, -1}}, -ck[1], -ck[1]);
    const int q = b.row({}, -kInf, 0);
    b.rowQuad(q, r0, r0, 1);
    b.rowQuad(q, r1, r1, 1);
    b.rowQuad(q, s, s, -1);
  }
  return b.problem();
}

struct WorkedQp {
  const char* name;
  Problem problem;
  double objective;
  std::vector<double> x, duals, reducedCosts;  // empty: not checked
};

// The Fermat point of the equilateral triangle (0, 0), (2, 0), (1, h) is
// its centre, each distance 2/h; a cone row's dual is -1/(2 s_k) = -h/4 and
// the offset rows' are r_k / s_k, the unit vectors from the customers.
WorkedQp fermatPoint() {
  const double h = std::sqrt(3.0), s = 2 / h;
  const double c[3][2] = {{0, 0}, {2, 0}, {1, h}};
  WorkedQp w{"total distance", facility(c, false), 2 * h, {1, 1 / h}, {}, {}};
  for (const auto& ck : c) {
    const double r0 = 1 - ck[0], r1 = 1 / h - ck[1];
    w.x.insert(w.x.end(), {r0, r1, s});
    w.duals.insert(w.duals.end(), {r0 / s, r1 / s, -h / 4});
  }
  w.reducedCosts.assign(w.x.size(), 0.0);
  return w;
}

// The largest distance to the acute triangle (0, 0), (4, 0), (1, 3): the
// circumcentre (2, 1), radius sqrt 5, offsets (2, 1), (-2, 1), (1, -2).
// From z, sum y_k = -1/(2 sqrt 5); from f, sum_k y_k r_k = 0: y = -(0.75,
// 1.25, 1)/(6 sqrt 5); the offset rows' duals are -2 y_k r_k.
WorkedQp circumcircle() {
  const double z = std::sqrt(5.0);
  const double c[3][2] = {{0, 0}, {4, 0}, {1, 3}};
  const double y[3] = {-0.75 / (6 * z), -1.25 / (6 * z), -1 / (6 * z)};
  WorkedQp w{"largest distance", facility(c, true), z, {2, 1, z}, {}, {}};
  for (int k = 0; k < 3; ++k) {
    const double r0 = 2 - c[k][0], r1 = 1 - c[k][1];
    w.x.insert(w.x.end(), {r0, r1});
    w.duals.insert(w.duals.end(), {-2 * y[k] * r0, -2 * y[k] * r1, y[k]});
  }
  w.reducedCosts.assign(w.x.size(), 0.0);
  return w;
}

void expectVector(const std::vector<double>& got, const std::vector<double>& want) {
  ASSERT_EQ(got.size(), want.size());
  for (size_t k = 0; k < want.size(); ++k) EXPECT_NEAR(got[k], want[k], kTol) << "entry " << k;
}

TEST_P(Quadratic, WorkedAnswers) {
  const WorkedQp cases[] = {
      {"half-space", halfSpace(), 16.8, {1.6, 3.2, 2}, {3.2}, {0, 0, -5.6}},
      {"concave maximum", concave(), 14.5, {0.5, 1.5}, {1}, {0, 0}},
      {"off-diagonal", offDiagonal(), -3, {2, -1}, {}, {0, 0}},
      {"fixed column", fixedColumn(), 5, {1, 2}, {}, {}},
      {"portfolio", portfolio(), 1.4, {0.6, 0.4}, {0.4, 0.5}, {0, 0}},
      {"rotated cone", rotatedCone(), 4, {2, 2, 2}, {2, -0.5}, {0, 0, 0}},
      fermatPoint(),
      circumcircle(),
  };
  for (const WorkedQp& c : cases) {
    if (!caps().takes(featuresOf(c.problem))) continue;
    SCOPED_TRACE(c.name);
    Result r = solve(c.problem);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
    ASSERT_TRUE(r.hasSolution);
    EXPECT_NEAR(r.objective, c.objective, kTol);
    expectVector(r.x, c.x);
    expectVector(r.activities, rowActivities(c.problem, r.x.data()));
    if (!caps().duals) continue;
    if (!c.duals.empty()) expectVector(r.duals, c.duals);
    if (!c.reducedCosts.empty()) expectVector(r.reducedCosts, c.reducedCosts);
    EXPECT_NEAR(r.dualObjective, c.objective, 1e-4);
    if (std::string(c.name) == "fixed column") {  // 2 x0 = y0 + y1 + d0
      EXPECT_NEAR(r.duals[0], 4, kTol);
      EXPECT_NEAR(r.reducedCosts[1], 0, kTol);
      EXPECT_NEAR(r.duals[1] + r.reducedCosts[0], 2 - 4, kTol);
    }
  }
}

// The disc x0^2 + x1^2 <= 1 against x0 + x1 >= 2 (sqrt 2 from its centre);
// "MaxTime" 0 stops before any work.
TEST_P(Quadratic, InfeasibleAndTimeLimit) {
  ProblemBuilder b;
  int x0 = b.col(1, -kInf, kInf), x1 = b.col(1, -kInf, kInf);
  int disc = b.row({}, -kInf, 1);
  b.rowQuad(disc, x0, x0, 1);
  b.rowQuad(disc, x1, x1, 1);
  if (!caps().takes(kQuadRows)) GTEST_SKIP() << "no quadratic rows";
  Settings s = quietSettings();
  s.maxTime = 0;
  EXPECT_EQ(solve(b.problem(), s).status, KLO_STATUS_TIME_LIMIT);
  b.row({{x0, 1}, {x1, 1}}, 2, kInf);
  Result r = solve(b.problem());
  EXPECT_EQ(r.status, KLO_STATUS_INFEASIBLE);
  EXPECT_FALSE(r.hasSolution);
  EXPECT_TRUE(r.x.empty());
}

bool takesQuadObjective(const EngineEntry& e) { return e.caps.takes(kQuadObjective); }

KLO_ENGINE_SUITE(Quadratic, takesQuadObjective);

}  // namespace
}  // namespace klo::engine::test
