// Continuous problems with a quadratic objective and quadratic rows, with
// their answers worked by hand (primal and dual).  Run for every engine
// that takes quadratic rows; duals are checked where the engine gives them.
// Convention (result.h): y_i = d(optimal objective)/d(active bound of row
// i); d = grad f(x) - sum_i y_i grad g_i(x); minimising, a binding >= row
// has y >= 0 and a binding <= row y <= 0; maximising flips the signs.
#include <gtest/gtest.h>

#include <cmath>

#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using QuadRows = EngineTest;
using QuadObjective = EngineTest;

// Interior-point answers are accurate to about the square root of the
// barrier's last mu: tolerances here are looser than the LP suites'.
constexpr double kTol = 1e-5;

void expectVector(const std::vector<double>& got, const std::vector<double>& want,
                  double tol = kTol) {
  ASSERT_EQ(got.size(), want.size());
  for (size_t k = 0; k < want.size(); ++k) EXPECT_NEAR(got[k], want[k], tol) << "entry " << k;
}

// min x0^2 + x1^2 + x2^2  s.t.  r0: x0 + 2 x1 + 3 x2 >= 14,  x free but
// x2 <= 2.  Without the bound the nearest point is (1, 2, 3); with it
// x2 = 2 and (x0, x1) = t (1, 2) with 5t = 8: x = (1.6, 3.2, 2), objective
// 2.56 + 10.24 + 4 = 16.8.  Stationarity for x0: 2 x0 = y -> y = 3.2 (>= 0,
// binding >= row).  d2 = 2 x2 - 3 y = 4 - 9.6 = -5.6 (at its upper bound,
// <= 0).  Check by perturbation: with x2 = u the optimum is (14 - 3u)^2/5
// + u^2, whose derivative at u = 2 is -48/5 + 4 = -5.6; with the bound b
// of r0, (b - 6)^2/5 + 4 has derivative 2 * 8/5 = 3.2.
TEST_P(QuadObjective, MinimumNormPointOnAHalfSpace) {
  ProblemBuilder b;
  int x0 = b.col(0, -kInf, kInf), x1 = b.col(0, -kInf, kInf), x2 = b.col(0, -kInf, 2);
  b.row({{x0, 1}, {x1, 2}, {x2, 3}}, 14, kInf);
  for (int j : {x0, x1, x2}) b.objQuad(j, j, 1);
  Result r = solve(b.problem());
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  ASSERT_TRUE(r.hasSolution);
  EXPECT_NEAR(r.objective, 16.8, kTol);
  expectVector(r.x, {1.6, 3.2, 2});
  expectVector(r.activities, {14});
  if (!caps().duals) return;
  expectVector(r.duals, {3.2});
  expectVector(r.reducedCosts, {0, 0, -5.6});
  EXPECT_NEAR(r.dualObjective, 16.8, 1e-4);
}

// max 2 x0 + 4 x1 - x0^2 - x1^2 + 10  s.t.  r0: x0 + x1 <= 2,  x >= 0.
// The unconstrained top (1, 2) breaks r0; on x0 + x1 = 2 the gradient
// (2 - 2 x0, 4 - 2 x1) = y (1, 1) gives x1 = x0 + 1: x = (0.5, 1.5),
// objective 1 + 6 - 0.25 - 2.25 + 10 = 14.5, y = 1.  Maximising, a
// binding <= row has y >= 0: with bound b the optimum is 3b + 0.5 - b^2/2
// + 10, derivative 3 - b = 1 at b = 2.  Both columns are inside their
// bounds: d = 0.
TEST_P(QuadObjective, MaximiseAConcaveObjective) {
  ProblemBuilder b(KLO_MAXIMIZE);
  int x0 = b.col(2, 0, kInf), x1 = b.col(4, 0, kInf);
  b.row({{x0, 1}, {x1, 1}}, -kInf, 2);
  b.objQuad(x0, x0, -1);
  b.objQuad(x1, x1, -1);
  b.problem().objConstant = 10;
  Result r = solve(b.problem());
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, 14.5, kTol);
  expectVector(r.x, {0.5, 1.5});
  if (!caps().duals) return;
  expectVector(r.duals, {1});
  expectVector(r.reducedCosts, {0, 0});
  EXPECT_NEAR(r.dualObjective, 14.5, 1e-4);
}

// Off-diagonal terms count once (no factor 1/2): min x0^2 + x0 x1 + x1^2
// - 3 x0 over x free.  Gradient (2 x0 + x1 - 3, x0 + 2 x1) = 0 gives
// x1 = -x0/2, 1.5 x0 = 3: x = (2, -1), objective 4 - 2 + 1 - 6 = -3.
TEST_P(QuadObjective, OffDiagonalTermsCountOnce) {
  ProblemBuilder b;
  int x0 = b.col(-3, -kInf, kInf), x1 = b.col(0, -kInf, kInf);
  b.objQuad(x0, x0, 1);
  b.objQuad(x0, x1, 1);
  b.objQuad(x1, x1, 1);
  Result r = solve(b.problem());
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, -3, kTol);
  expectVector(r.x, {2, -1});
}

// Columns fixed by their bounds in equality rows: min x0^2 + x1^2 with x0
// fixed at 1, r0: x0 + x1 = 3, r1: x0 = 1.  x1 = 2, objective 5; x1's
// stationarity 2 x1 = y0 gives y0 = 4 (r1's dual and x0's reduced cost
// share x0's gradient: only their sum is determined).
TEST_P(QuadObjective, FixedColumnsInEqualityRows) {
  ProblemBuilder b;
  int x0 = b.col(0, 1, 1), x1 = b.col(0, 0, 10);
  b.row({{x0, 1}, {x1, 1}}, 3, 3);
  b.row({{x0, 1}}, 1, 1);
  b.objQuad(x0, x0, 1);
  b.objQuad(x1, x1, 1);
  Result r = solve(b.problem());
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, 5, kTol);
  expectVector(r.x, {1, 2});
  if (!caps().duals) return;
  EXPECT_NEAR(r.duals[0], 4, kTol);
  EXPECT_NEAR(r.reducedCosts[1], 0, kTol);
  EXPECT_NEAR(r.duals[1] + r.reducedCosts[0], 2 - 4, kTol);  // x0: 2 x0 = y0 + y1 + d0
}

// max x0 + 2 x1  s.t.  r0: x0 + x1 = 1,  r1: x0^2 + 4 x1^2 <= 1,  x >= 0:
// two assets, returns (1, 2), variances (1, 4), a variance budget of 1.
// With x1 = 1 - x0 the return is 2 - x0 and the variance 5 x0^2 - 8 x0 +
// 4 <= 1, i.e. x0 in [0.6, 1]: x = (0.6, 0.4), return 1.4.  Duals from
// (1, 2) = y0 (1, 1) + y1 (2 x0, 8 x1) = y0 (1, 1) + y1 (1.2, 3.2):
// y1 = 0.5, y0 = 0.4 (maximising: the binding <= row has y >= 0).  Check:
// with budget v the return is 2 - (8 - sqrt(20v - 16))/10, derivative
// 1/sqrt(20v - 16) * 1 = 0.5 at v = 1; with sum B it is 1.2B +
// sqrt(20 - 16B^2)/10, derivative 1.2 - 1.6B/sqrt(20 - 16B^2) = 0.4.
TEST_P(QuadRows, PortfolioWithAVarianceBudget) {
  ProblemBuilder b(KLO_MAXIMIZE);
  int x0 = b.col(1, 0, kInf), x1 = b.col(2, 0, kInf);
  b.row({{x0, 1}, {x1, 1}}, 1, 1);
  int v = b.row({}, -kInf, 1);
  b.rowQuad(v, x0, x0, 1);
  b.rowQuad(v, x1, x1, 4);
  Result r = solve(b.problem());
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, 1.4, kTol);
  expectVector(r.x, {0.6, 0.4});
  expectVector(r.activities, {1, 1});
  if (!caps().duals) return;
  expectVector(r.duals, {0.4, 0.5});
  expectVector(r.reducedCosts, {0, 0});
  EXPECT_NEAR(r.dualObjective, 1.4, 1e-4);
}

// A rotated cone: min t + u  s.t.  r0: x = 2,  r1: x^2 - t u <= 0,
// t, u >= 0.  t u >= 4 with t + u least: t = u = 2, objective 4.
// Stationarity: t: 1 = y1 (-u) -> y1 = -0.5 (binding <= row, minimising:
// <= 0); x: 0 = y0 + y1 (2x) -> y0 = 2.  Check: with x = b, t = u = b and
// the optimum 2b (derivative 2); with r1's bound e, t = u = sqrt(4 - e),
// optimum 2 sqrt(4 - e), derivative -1/2 at 0.
TEST_P(QuadRows, RotatedCone) {
  ProblemBuilder b;
  int x = b.col(0, -kInf, kInf), t = b.col(1, 0, kInf), u = b.col(1, 0, kInf);
  b.row({{x, 1}}, 2, 2);
  int cone = b.row({}, -kInf, 0);
  b.rowQuad(cone, x, x, 1);
  b.rowQuad(cone, t, u, -1);
  Result r = solve(b.problem());
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, 4, kTol);
  expectVector(r.x, {2, 2, 2});
  expectVector(r.activities, {2, 0});
  if (!caps().duals) return;
  expectVector(r.duals, {2, -0.5});
  expectVector(r.reducedCosts, {0, 0, 0});
}

// Facility location for three customers c_k: the facility (f0, f1), for
// each customer the offsets r_k = f - c_k (two linear equality rows) and
// its distance s_k >= 0 with  r_k0^2 + r_k1^2 - s_k^2 <= 0.
struct Facility {
  Problem problem;
  int f0, f1;
  std::vector<int> s;         // distance columns (one shared column when minimising the maximum)
  std::vector<int> coneRows;  // one per customer
};

Facility facility(const double (&c)[3][2], bool minimiseMaximum) {
  ProblemBuilder b;
  Facility out;
  out.f0 = b.col(0, -kInf, kInf);
  out.f1 = b.col(0, -kInf, kInf);
  const int z = minimiseMaximum ? b.col(1, 0, kInf) : -1;
  for (const auto& ck : c) {
    const int r0 = b.col(0, -kInf, kInf), r1 = b.col(0, -kInf, kInf);
    const int s = minimiseMaximum ? z : b.col(1, 0, kInf);
    out.s.push_back(s);
    b.row({{r0, 1}, {out.f0, -1}}, -ck[0], -ck[0]);  // r0 - f0 = -c0
    b.row({{r1, 1}, {out.f1, -1}}, -ck[1], -ck[1]);
    const int q = b.row({}, -kInf, 0);
    b.rowQuad(q, r0, r0, 1);
    b.rowQuad(q, r1, r1, 1);
    b.rowQuad(q, s, s, -1);
    out.coneRows.push_back(q);
  }
  out.problem = b.problem();
  return out;
}

// Total distance to the corners of the equilateral triangle (0, 0),
// (2, 0), (1, sqrt 3): the Fermat point is the centre (1, 1/sqrt 3), each
// distance 2/sqrt 3, total 2 sqrt 3.  Duals: s_k: 1 = y_k (-2 s_k) ->
// y_k = -1/(2 s_k) = -sqrt(3)/4 (minimising, binding <= rows); r_k: 0 =
// y_lin + y_k 2 r_k -> the duals of the offset rows are r_k / s_k, the unit
// vector from customer k to the facility (these sum to 0 at the Fermat
// point: f's stationarity).
TEST_P(QuadRows, FacilityMinimisingTotalDistance) {
  const double h = std::sqrt(3.0);
  const double c[3][2] = {{0, 0}, {2, 0}, {1, h}};
  Facility m = facility(c, false);
  Result r = solve(m.problem);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, 2 * h, kTol);
  EXPECT_NEAR(r.x[m.f0], 1, kTol);
  EXPECT_NEAR(r.x[m.f1], 1 / h, kTol);
  for (int s : m.s) EXPECT_NEAR(r.x[s], 2 / h, kTol);
  if (!caps().duals) return;
  for (int k = 0; k < 3; ++k) {
    EXPECT_NEAR(r.duals[m.coneRows[k]], -h / 4, kTol) << "customer " << k;
    const double u0 = (1 - c[k][0]) / (2 / h), u1 = (1 / h - c[k][1]) / (2 / h);
    EXPECT_NEAR(r.duals[3 * k], u0, kTol) << "customer " << k;
    EXPECT_NEAR(r.duals[3 * k + 1], u1, kTol) << "customer " << k;
  }
}

// The largest distance to (0, 0), (4, 0), (1, 3), an acute triangle: the
// smallest circle around it is the circumcircle.  Its centre is on x = 2
// (halfway between the first two) and as far from (0, 0) as from (1, 3):
// x^2 + y^2 = (x - 1)^2 + (y - 3)^2 -> 2x + 6y = 10 -> (2, 1), radius
// z = sqrt 5.  Offsets r_k = f - c_k: (2, 1), (-2, 1), (1, -2).  Duals:
// z: 1 = sum_k y_k (-2z) -> sum y_k = -1/(2 sqrt 5); r_k: the offset rows'
// duals are -2 y_k r_k; f: these sum to 0, so sum_k y_k r_k = 0: with
// y = (a, b, c), 2a - 2b + c = 0 and a + b - 2c = 0 give a = 0.75c,
// b = 1.25c, and the sum 3c = -1/(2 sqrt 5): y = -(0.75, 1.25, 1)/(6 sqrt 5),
// all < 0 (binding <= rows, minimising).  (On a right triangle the corner
// at the right angle lies on the circle with a dual of 0: a degenerate
// optimum that interior-point methods reach only to about 1e-4.)
TEST_P(QuadRows, FacilityMinimisingTheLargestDistance) {
  const double c[3][2] = {{0, 0}, {4, 0}, {1, 3}};
  Facility m = facility(c, true);
  Result r = solve(m.problem);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  const double z = std::sqrt(5.0);
  EXPECT_NEAR(r.objective, z, kTol);
  EXPECT_NEAR(r.x[m.f0], 2, kTol);
  EXPECT_NEAR(r.x[m.f1], 1, kTol);
  if (!caps().duals) return;
  const double y[3] = {-0.75 / (6 * z), -1.25 / (6 * z), -1 / (6 * z)};
  const double offset[3][2] = {{2, 1}, {-2, 1}, {1, -2}};
  for (int k = 0; k < 3; ++k) {
    EXPECT_NEAR(r.duals[m.coneRows[k]], y[k], kTol) << "customer " << k;
    EXPECT_NEAR(r.duals[3 * k], -2 * y[k] * offset[k][0], kTol) << "customer " << k;
    EXPECT_NEAR(r.duals[3 * k + 1], -2 * y[k] * offset[k][1], kTol) << "customer " << k;
  }
}

// x0^2 + x1^2 <= 1 and x0 + x1 >= 2: the line is sqrt 2 from the centre
// of the unit disc.
TEST_P(QuadRows, InfeasibleQuadraticRows) {
  ProblemBuilder b;
  int x0 = b.col(1, -kInf, kInf), x1 = b.col(1, -kInf, kInf);
  int disc = b.row({}, -kInf, 1);
  b.rowQuad(disc, x0, x0, 1);
  b.rowQuad(disc, x1, x1, 1);
  b.row({{x0, 1}, {x1, 1}}, 2, kInf);
  Result r = solve(b.problem());
  EXPECT_EQ(r.status, KLO_STATUS_INFEASIBLE);
  EXPECT_FALSE(r.hasSolution);
  EXPECT_TRUE(r.x.empty());
}

// "MaxTime" 0: stopped before any work, with its status.
TEST_P(QuadRows, TimeLimitStopsWithItsStatus) {
  ProblemBuilder b;
  int x0 = b.col(1, -kInf, kInf), x1 = b.col(1, -kInf, kInf);
  int disc = b.row({}, -kInf, 1);
  b.rowQuad(disc, x0, x0, 1);
  b.rowQuad(disc, x1, x1, 1);
  Settings s = quietSettings();
  s.maxTime = 0;
  Result r = solve(b.problem(), s);
  EXPECT_EQ(r.status, KLO_STATUS_TIME_LIMIT);
}

inline bool takesQuadRows(const EngineEntry& e) { return e.caps.takes(kQuadRows); }
inline bool takesQuadObjective(const EngineEntry& e) { return e.caps.takes(kQuadObjective); }

KLO_ENGINE_SUITE(QuadObjective, takesQuadObjective);
KLO_ENGINE_SUITE(QuadRows, takesQuadRows);

}  // namespace
}  // namespace klo::engine::test
