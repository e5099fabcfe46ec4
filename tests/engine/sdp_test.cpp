// Problems with PSD variables: their block form (model in, blocks out) and
// the CSDP adapter on problems with worked answers.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <tuple>

#include "engine/problem_eval.h"
#include "engine/sdp/sdp_packing.h"
#include "engine_suite.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using Entry = std::tuple<int, int, int, double>;  // block, i, j, value

std::vector<Entry> entries(const std::vector<SdpEntry>& e) {
  std::vector<Entry> out;
  for (const SdpEntry& x : e) out.emplace_back(x.block, x.i, x.j, x.val);
  return out;
}

// Every kind of column and row: x0 in [1, 3] (shift and box), x1 free
// (split), x2 <= 4 (mirrored), x3 fixed at 2; rows =, >=, <=, ranged, free.
TEST(SdpPacking, ColumnsRowsAndObjective) {
  ProblemBuilder b;
  const int X = b.psdVar(2, {{0, 0, 1}, {1, 1, 1}});
  b.col(2, 1, 3);
  b.col(0, -kInf, kInf);
  b.col(1, -kInf, 4);
  b.col(5, 2, 2);
  const int r0 = b.row({{0, 1}, {3, 1}}, 5, 5);
  b.psdTerm(r0, X, {{0, 1, 0.5}});
  b.row({{1, 1}}, 1, kInf);
  b.row({{2, 1}}, -kInf, 2);
  b.row({{0, 1}, {1, -1}}, 0, 4);
  b.row({{0, 1}}, -kInf, kInf);
  const SdpForm f = packSdp(b.problem());
  // Scalars: x0 = 1 + s0 (s0 + s1 = 2), x1 = s2 - s3, x2 = 4 - s4, then the
  // slacks s5 (>=), s6 (<=), s7 (ranged, s7 + s8 = 4).
  EXPECT_EQ(f.blockSizes, (std::vector<int>{2, 9}));
  EXPECT_EQ(f.diagonalBlock, 1);
  EXPECT_EQ(f.rowConstraint, (std::vector<int>{0, 1, 2, 3, -1}));
  EXPECT_EQ(f.rhs, (std::vector<double>{2, 1, -2, -1, 2, 4}));
  const std::vector<std::vector<Entry>> rows{
      {{0, 0, 1, 0.5}, {1, 0, 0, 1}}, {{1, 2, 2, 1}, {1, 3, 3, -1}, {1, 5, 5, -1}},
      {{1, 4, 4, -1}, {1, 6, 6, 1}},  {{1, 0, 0, 1}, {1, 2, 2, -1}, {1, 3, 3, 1}, {1, 7, 7, -1}},
      {{1, 0, 0, 1}, {1, 1, 1, 1}},   {{1, 7, 7, 1}, {1, 8, 8, 1}}};
  ASSERT_EQ(f.constraints.size(), rows.size());
  for (size_t k = 0; k < rows.size(); ++k) EXPECT_EQ(entries(f.constraints[k]), rows[k]) << k;
  // min 2 x0 + x2 + 5 x3 + X00 + X11 = 16 + 2 s0 - s4 + X00 + X11.
  EXPECT_EQ(entries(f.objective),
            (std::vector<Entry>{{0, 0, 0, -1}, {0, 1, 1, -1}, {1, 0, 0, -2}, {1, 4, 4, 1}}));
  EXPECT_DOUBLE_EQ(f.modelObjective(-3), 19);
  const std::vector<double> x = unpackColumns(f, {0.5, 1.5, 2, 3, 1, 0, 0, 0, 0});
  EXPECT_EQ(x, (std::vector<double>{1.5, -1, 3, 2}));
  EXPECT_EQ(unpackDuals(f, {1, 2, 3, 4, 5, 6}), (std::vector<double>{-1, -2, -3, -4, 0}));
}

TEST(SdpPacking, RowWithNothingLeft) {
  for (double rhs : {0.0, 1.0}) {
    ProblemBuilder b;
    b.psdVar(1);
    b.col(1, 2, 2);
    b.row({{0, 1}}, 2 + rhs, 2 + rhs);  // x0 fixed at 2: 0 = rhs
    const SdpForm f = packSdp(b.problem());
    EXPECT_EQ(f.emptyInfeasibleRow, rhs == 0 ? -1 : 0);
    EXPECT_EQ(f.rowConstraint[0], -1);
  }
}

Result solveSdp(const Problem& p, const Callback& cb = {}) {
  return csdpEntry().make()->solve(p, quietSettings(), cb);
}

// min <C, X> subject to tr X = 1: the smallest eigenvalue of C = [2 1; 1 2],
// 1, at X = v v' with v = (1, -1)/sqrt 2; the row's dual is 1.
Problem smallestEigenvalue() {
  ProblemBuilder b;
  const int X = b.psdVar(2, {{0, 0, 2}, {0, 1, 1}, {1, 1, 2}});
  b.psdTerm(b.row({}, 1, 1), X, {{0, 0, 1}, {1, 1, 1}});
  return b.problem();
}

// The Lovasz theta of the 5-cycle, sqrt 5: max <J, X> subject to tr X = 1
// and X_ij = 0 on the cycle's edges.
Problem thetaOfPentagon() {
  ProblemBuilder b(-1);
  ProblemBuilder::Entries ones;
  for (int i = 0; i < 5; ++i)
    for (int j = i; j < 5; ++j) ones.emplace_back(i, j, 1.0);
  const int X = b.psdVar(5, ones);
  ProblemBuilder::Entries trace;
  for (int i = 0; i < 5; ++i) trace.emplace_back(i, i, 1.0);
  b.psdTerm(b.row({}, 1, 1), X, trace);
  for (int i = 0; i < 5; ++i)
    b.psdTerm(b.row({}, 0, 0), X, {{std::min(i, (i + 1) % 5), std::max(i, (i + 1) % 5), 1.0}});
  return b.problem();
}

// min 3 x + X00 + X11 subject to x + X01 >= 1, x in [0, 0.5]: X00 + X11 >=
// 2 |X01| >= 2 (1 - x), so the optimum is 2 at x = 0, X = [1 1; 1 1]; the
// row's dual is 2 and x's reduced cost 3 - 2 = 1.
Problem mixed() {
  ProblemBuilder b;
  const int X = b.psdVar(2, {{0, 0, 1}, {1, 1, 1}});
  b.col(3, 0, 0.5);
  b.psdTerm(b.row({{0, 1}}, 1, kInf), X, {{0, 1, 0.5}});
  return b.problem();
}

TEST(Csdp, WorkedAnswers) {
  struct Case {
    const char* name;
    Problem p;
    double objective;
    std::vector<double> duals;
  };
  const std::vector<Case> cases{{"smallest eigenvalue", smallestEigenvalue(), 1, {1}},
                                {"theta of C5", thetaOfPentagon(), std::sqrt(5.0), {}},
                                {"mixed", mixed(), 2, {2}}};
  for (const Case& c : cases) {
    Result r = solveSdp(c.p);
    ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL) << c.name;
    EXPECT_NEAR(r.objective, c.objective, 1e-6) << c.name;
    EXPECT_NEAR(r.dualObjective, c.objective, 1e-6) << c.name;
    EXPECT_LE(primalViolations(c.p, r.x.data(), &r.psdX).primal(), 1e-6) << c.name;
    EXPECT_NEAR(objectiveOf(c.p, r.x.data(), &r.psdX), r.objective, 1e-9) << c.name;
    for (size_t i = 0; i < c.duals.size(); ++i) EXPECT_NEAR(r.duals[i], c.duals[i], 1e-6) << c.name;
  }
  Result r = solveSdp(smallestEigenvalue());
  const std::vector<double> expected{0.5, -0.5, -0.5, 0.5};
  for (int e = 0; e < 4; ++e) EXPECT_NEAR(r.psdX[0][e], expected[e], 1e-6);
  r = solveSdp(mixed());
  EXPECT_NEAR(r.x[0], 0, 1e-6);
  EXPECT_NEAR(r.reducedCosts[0], 1, 1e-6);
}

TEST(Csdp, InfeasibleAndUnbounded) {
  ProblemBuilder infeasible;  // tr X = -1
  const int X = infeasible.psdVar(2);
  infeasible.psdTerm(infeasible.row({}, -1, -1), X, {{0, 0, 1}, {1, 1, 1}});
  EXPECT_EQ(solveSdp(infeasible.problem()).status, KLO_STATUS_INFEASIBLE);
  // max X00 + X11 subject to X01 = 1: X + t I stays feasible.  (max 2 X01
  // subject to X00 = 1 is unbounded too, but without such a ray: CSDP then
  // claims success with objectives far apart, which the adapter refuses.)
  ProblemBuilder unbounded(-1);
  const int Y = unbounded.psdVar(2, {{0, 0, 1}, {1, 1, 1}});
  unbounded.psdTerm(unbounded.row({}, 1, 1), Y, {{0, 1, 0.5}});
  Result u = solveSdp(unbounded.problem());
  EXPECT_EQ(u.status, KLO_STATUS_UNBOUNDED);
  ProblemBuilder rayless(-1);
  const int Z = rayless.psdVar(2, {{0, 1, 1}});
  rayless.psdTerm(rayless.row({}, 1, 1), Z, {{0, 0, 1}});
  EXPECT_EQ(solveSdp(rayless.problem()).status, KLO_STATUS_NUMERICAL);
}

// Without constraints (here a row with no terms, which packs to none) the
// engine itself is not run: X = 0 is optimal when the costs are PSD, and
// otherwise the objective is unbounded.
TEST(Csdp, NoConstraints) {
  struct Case {
    const char* name;
    ProblemBuilder::Entries cost;
    double colCost, colLower, colUpper;
    int status;
    double objective;
  };
  const std::vector<Case> cases{
      {"no costs", {}, 0, 0, kInf, KLO_STATUS_OPTIMAL, 0},
      {"trace", {{0, 0, 1}, {1, 1, 1}}, 0, 0, kInf, KLO_STATUS_OPTIMAL, 0},
      {"singular PSD cost", {{0, 0, 1}, {0, 1, 1}, {1, 1, 1}}, 0, 0, kInf, KLO_STATUS_OPTIMAL, 0},
      {"column at its bound", {{0, 0, 1}}, 2, 1, kInf, KLO_STATUS_OPTIMAL, 2},
      {"indefinite cost", {{0, 0, 1}, {1, 1, -1}}, 0, 0, kInf, KLO_STATUS_UNBOUNDED, 0},
      {"off-diagonal cost", {{0, 1, 1}}, 0, 0, kInf, KLO_STATUS_UNBOUNDED, 0},
      {"column without lower bound", {}, 1, -kInf, 0, KLO_STATUS_UNBOUNDED, 0}};
  for (const Case& c : cases) {
    ProblemBuilder b;
    b.psdVar(2, c.cost);
    b.col(c.colCost, c.colLower, c.colUpper);
    b.row({}, 0, 0);
    const Problem p = b.problem();
    const Result r = solveSdp(p);
    ASSERT_EQ(r.status, c.status) << c.name;
    if (c.status != KLO_STATUS_OPTIMAL) continue;
    EXPECT_DOUBLE_EQ(r.objective, c.objective) << c.name;
    EXPECT_DOUBLE_EQ(r.dualObjective, c.objective) << c.name;
    EXPECT_EQ(r.psdX[0], std::vector<double>(4, 0.0)) << c.name;
    EXPECT_EQ(r.x[0], c.colLower) << c.name;
  }
}

// A param.csdp in the working directory (asking for output and one
// iteration) changes nothing, and nothing reaches stdout.
TEST(Csdp, IgnoresParameterFilesAndPrintsNothing) {
  char dir[] = "/tmp/klo-csdp-XXXXXX";
  ASSERT_NE(mkdtemp(dir), nullptr);
  char old[4096];
  ASSERT_NE(getcwd(old, sizeof old), nullptr);
  ASSERT_EQ(chdir(dir), 0);
  std::ofstream(std::string(dir) + "/param.csdp") << "maxiter=1\nprintlevel=3\n";
  testing::internal::CaptureStdout();
  Result r = solveSdp(thetaOfPentagon());
  const std::string out = testing::internal::GetCapturedStdout();
  EXPECT_EQ(chdir(old), 0);
  std::remove((std::string(dir) + "/param.csdp").c_str());
  rmdir(dir);
  EXPECT_EQ(out, "");
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_GT(r.barrierIterations, 1);
}

// Each iteration raises KLO_CB_BARRIER with both objectives (closing in
// on sqrt 5); a stop ends the run.
TEST(Csdp, CallbackSeesIterationsAndStops) {
  std::vector<std::pair<double, double>> seen;
  Callback cb = [&](CallbackContext& ctx) {
    double primal = 0, dual = 0;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_BARRIER, KLO_CBINFO_BARRIER_PRIMOBJ, &primal), KLO_OK);
    EXPECT_EQ(callbackGet(ctx, KLO_CB_BARRIER, KLO_CBINFO_BARRIER_DUALOBJ, &dual), KLO_OK);
    seen.emplace_back(primal, dual);
    return 0;
  };
  Result r = solveSdp(thetaOfPentagon(), cb);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  ASSERT_EQ(seen.size(), static_cast<size_t>(r.barrierIterations));
  EXPECT_NEAR(seen.back().first, std::sqrt(5.0), 1e-5);
  EXPECT_NEAR(seen.back().second, std::sqrt(5.0), 1e-5);
  // An exception from the callback comes out of the solve, not through
  // CSDP's C frames.
  Callback throws = [](CallbackContext&) -> int { throw std::runtime_error("from the callback"); };
  EXPECT_THROW(solveSdp(thetaOfPentagon(), throws), std::runtime_error);
  Callback stop = [](CallbackContext& ctx) { return ctx.iterCount == 3 ? KLO_CB_STOP : 0; };
  r = solveSdp(thetaOfPentagon(), stop);
  EXPECT_EQ(r.status, KLO_STATUS_INTERRUPTED);
  EXPECT_EQ(r.barrierIterations, 3);
}

}  // namespace
}  // namespace klo::engine::test
