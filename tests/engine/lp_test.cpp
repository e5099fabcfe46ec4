// LPs through every engine: answers worked by hand (duals and bases where
// the engine declares them), malformed input, infeasible and unbounded
// outcomes with their rays, limits, callbacks, warm starts, and the shared
// LPs with the methods and presolve settings the library's default skips.
// Convention (result.h): y_i = d(objective)/d(active bound of row i) and
// d_j = c_j - sum_i y_i a_ij, in minimisation and maximisation alike.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "common/error.h"
#include "engine/problem_eval.h"
#include "engine_suite.h"
#include "instance_index.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using LpSolutions = EngineTest;
using LpStatus = EngineTest;
using SimplexLimits = EngineTest;
using BarrierLimits = EngineTest;
using LpWarmStart = EngineTest;

void expectVector(const std::vector<double>& got, const std::vector<double>& want) {
  ASSERT_EQ(got.size(), want.size());
  for (size_t k = 0; k < want.size(); ++k) EXPECT_NEAR(got[k], want[k], 1e-6) << "entry " << k;
}

// min 2x + 3y, r0: x + y >= 4, r1: x + 3y >= 6, x, y >= 0: vertex (3, 1),
// objective 9; 2 = y0 + y1, 3 = y0 + 3 y1 -> y = (1.5, 0.5).
Problem minGreaterRows() {
  ProblemBuilder b(KLO_MINIMIZE);
  int x = b.col(2, 0, kInf), y = b.col(3, 0, kInf);
  b.row({{x, 1}, {y, 1}}, 4, kInf);
  b.row({{x, 1}, {y, 3}}, 6, kInf);
  return b.problem();
}

Problem byColumns() {
  Problem p = minGreaterRows();
  p.columnMajor = true;
  p.start = {0, 2, 4};
  p.index = {0, 1, 0, 1};
  p.value = {1, 1, 1, 3};
  return p;
}

// max x + y, r0: x + 2y <= 4, r1: 3x + y <= 6: x = (1.6, 1.2), 2.8; raising
// a binding <= bound raises the maximum: y = (0.4, 0.2).
Problem maxLessRows() {
  ProblemBuilder b(KLO_MAXIMIZE);
  int x = b.col(1, 0, kInf), y = b.col(1, 0, kInf);
  b.row({{x, 1}, {y, 2}}, -kInf, 4);
  b.row({{x, 3}, {y, 1}}, -kInf, 6);
  return b.problem();
}

// min x + 2y - z + 10, x >= 0, y free, 0 <= z <= 2, r0: x + y + z = 6,
// r1: 1 <= x - y <= 3.  The objective is 17.5 - 2.5 z on r1's upper bound:
// z = 2, y = 0.5, x = 3.5, 12.5; y = (1.5, -0.5), d_z = -1 - y0 = -2.5.
// Maximising the negated objective negates objective, duals and d.
Problem equalityRangeFree(int sense) {
  ProblemBuilder b(sense);
  int x = b.col(sense * 1, 0, kInf), y = b.col(sense * 2, -kInf, kInf), z = b.col(sense * -1, 0, 2);
  b.row({{x, 1}, {y, 1}, {z, 1}}, 6, 6);
  b.row({{x, 1}, {y, -1}}, 1, 3);
  b.problem().objConstant = sense * 10;
  return b.problem();
}

struct WorkedLp {
  const char* name;
  Problem problem;
  double objective;
  std::vector<double> x, activities, duals, reducedCosts;
  std::vector<int> colBasis, rowBasis;
};

TEST_P(LpSolutions, WorkedAnswersInEveryMethodWithAndWithoutPresolve) {
  constexpr int B = KLO_BASIS_BASIC, L = KLO_BASIS_LOWER, U = KLO_BASIS_UPPER;
  const WorkedLp cases[] = {
      {"min >= rows", minGreaterRows(), 9, {3, 1}, {4, 6}, {1.5, 0.5}, {0, 0}, {B, B}, {L, L}},
      {"column-major", byColumns(), 9, {3, 1}, {4, 6}, {1.5, 0.5}, {0, 0}, {B, B}, {L, L}},
      {"max <= rows", maxLessRows(), 2.8, {1.6, 1.2}, {4, 6}, {0.4, 0.2}, {0, 0}, {B, B}, {U, U}},
      {"equality, range, free",
       equalityRangeFree(KLO_MINIMIZE),
       12.5,
       {3.5, 0.5, 2},
       {6, 3},
       {1.5, -0.5},
       {0, 0, -2.5},
       {B, B, U},
       {KLO_BASIS_FIXED, U}},
      {"negated and maximised",
       equalityRangeFree(KLO_MAXIMIZE),
       -12.5,
       {3.5, 0.5, 2},
       {6, 3},
       {-1.5, 0.5},
       {0, 0, 2.5},
       {B, B, U},
       {KLO_BASIS_FIXED, U}},
  };
  for (const WorkedLp& c : cases)
    for (LpMethod m : methods())
      for (int presolve : {0, 1}) {
        SCOPED_TRACE(testing::Message()
                     << c.name << ", method " << static_cast<int>(m) << ", presolve " << presolve);
        Result r = solveLp(c.problem, m, presolve);
        ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
        EXPECT_TRUE(r.hasSolution);
        EXPECT_NEAR(r.objective, c.objective, 1e-7);
        EXPECT_NEAR(r.dualObjective, c.objective, 1e-6);
        expectVector(r.x, c.x);
        expectVector(r.activities, c.activities);
        if (caps().duals) {
          expectVector(r.duals, c.duals);
          expectVector(r.reducedCosts, c.reducedCosts);
        }
        if (!caps().basis) continue;
        EXPECT_EQ(r.colBasis, c.colBasis);
        EXPECT_EQ(r.rowBasis, c.rowBasis);
      }
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

// x + y <= 1 and x + y >= 3: r1 - r0 gives 0 >= 2, so the Farkas ray is
// (-k, k), k > 0.
TEST_P(LpStatus, InfeasibleGivesFarkasRayInEveryMethod) {
  ProblemBuilder b;
  int x = b.col(1, 0, kInf), y = b.col(1, 0, kInf);
  b.row({{x, 1}, {y, 1}}, -kInf, 1);
  b.row({{x, 1}, {y, 1}}, 3, kInf);
  for (LpMethod m : methods())
    for (int presolve : {0, 1}) {
      SCOPED_TRACE(testing::Message()
                   << "method " << static_cast<int>(m) << " presolve " << presolve);
      Result r = solveLp(b.problem(), m, presolve);
      EXPECT_EQ(r.status, KLO_STATUS_INFEASIBLE);
      EXPECT_FALSE(r.hasSolution);
      EXPECT_TRUE(r.x.empty());
      if (!caps().rays) continue;
      ASSERT_EQ(r.dualRay.size(), 2u);
      EXPECT_LT(r.dualRay[0], -1e-9);
      EXPECT_NEAR(r.dualRay[1], -r.dualRay[0], 1e-9);
      EXPECT_TRUE(r.primalRay.empty());
    }
}

// min -x - y (or max x + y), x - y <= 1, x, y >= 0: a ray r keeps r >= 0,
// r_x - r_y <= 0 and improves (r_x + r_y > 0).
TEST_P(LpStatus, UnboundedGivesAnImprovingFeasibleDirection) {
  for (int sense : {KLO_MINIMIZE, KLO_MAXIMIZE})
    for (LpMethod m : methods()) {
      if (m == LpMethod::Barrier) continue;
      ProblemBuilder b(sense);
      int x = b.col(-sense, 0, kInf), y = b.col(-sense, 0, kInf);
      b.row({{x, 1}, {y, -1}}, -kInf, 1);
      Result r = solveLp(b.problem(), m, -1);
      SCOPED_TRACE(testing::Message() << "sense " << sense << " method " << static_cast<int>(m));
      EXPECT_FALSE(r.hasSolution);
      if (!caps().rays) {  // without a direction, unbounded is not told from infeasible
        EXPECT_TRUE(r.status == KLO_STATUS_UNBOUNDED || r.status == KLO_STATUS_INF_OR_UNBD);
        continue;
      }
      EXPECT_EQ(r.status, KLO_STATUS_UNBOUNDED);
      ASSERT_EQ(r.primalRay.size(), 2u);
      const double rx = r.primalRay[0], ry = r.primalRay[1];
      EXPECT_GE(rx, -1e-9);
      EXPECT_GE(ry, -1e-9);
      EXPECT_LE(rx - ry, 1e-9);
      EXPECT_GT(rx + ry, 1e-9);
      EXPECT_TRUE(r.dualRay.empty());
    }
}

// Bounds only (x in [1, 3] minimised, y <= 4 maximised: -3), nothing at
// all, and an empty row whose range excludes 0.
TEST_P(LpStatus, ProblemsWithoutRowsOrColumns) {
  ProblemBuilder bounds;
  bounds.col(1, 1, 3);
  bounds.col(-1, -kInf, 4);
  Result r = solve(bounds.problem());
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_NEAR(r.objective, -3, 1e-9);
  EXPECT_TRUE(r.duals.empty());
  r = solve(ProblemBuilder().problem());
  EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_EQ(r.objective, 0);
  ProblemBuilder emptyRow;
  emptyRow.row({}, 1, 2);
  EXPECT_EQ(solve(emptyRow.problem()).status, KLO_STATUS_INFEASIBLE);
}

TEST_P(LpStatus, TimeLimitStopsWithItsStatus) {
  Settings s = quietSettings();
  s.presolve = 0;
  s.maxTime = 0.0;
  EXPECT_EQ(solve(readInstance("25fv47"), s).status, KLO_STATUS_TIME_LIMIT);
}

// Without presolve the basis reached is kept: a warm start resumes.
TEST_P(SimplexLimits, IterationLimitStopsWithItsStatus) {
  for (int presolve : {0, 1}) {
    Problem p = readInstance("25fv47");
    Settings s = quietSettings();
    s.presolve = presolve;
    s.maxSimplexIterations = 20;
    Result r = solve(p, s);
    EXPECT_EQ(r.status, KLO_STATUS_ITERATION_LIMIT);
    EXPECT_LE(r.simplexIterations, 21);
    if (presolve == 1) continue;
    ASSERT_EQ(r.colBasis.size(), static_cast<size_t>(p.numCols()));
    p.colBasis = r.colBasis;
    p.rowBasis = r.rowBasis;
    s.maxSimplexIterations = INT_MAX;
    Result resumed = solve(p, s);
    EXPECT_EQ(resumed.status, KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(resumed.objective, 5501.845888, 1e-3);
  }
}

TEST_P(SimplexLimits, CallbackSeesIterationsAndStops) {
  int calls = 0, lastIters = -1;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where == KLO_CB_PRESOLVE) return 0;
    EXPECT_EQ(ctx.where, KLO_CB_SIMPLEX);
    int iters = 0;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_SIMPLEX, KLO_CBINFO_ITERCOUNT, &iters), KLO_OK);
    EXPECT_GE(iters, lastIters);
    lastIters = iters;
    double obj = 0;
    EXPECT_EQ(callbackGet(ctx, KLO_CB_SIMPLEX, KLO_CBINFO_OBJBEST, &obj), KLO_ERROR_CALLBACK_WHERE);
    return ++calls == 10 ? KLO_CB_STOP : 0;
  };
  Result r = solve(readInstance("25fv47"), quietSettings(), cb);
  EXPECT_EQ(r.status, KLO_STATUS_INTERRUPTED);
  EXPECT_EQ(calls, 10);
  EXPECT_LE(r.simplexIterations, 12);
}

TEST_P(BarrierLimits, IterationsCountedAndLimited) {
  Settings s = quietSettings();
  s.method = LpMethod::Barrier;
  Problem afiro = readInstance("afiro");
  Result r = solve(afiro, s);
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_GT(r.barrierIterations, 0);
  EXPECT_NEAR(r.objective, -464.7531429, 1e-5);
  if (caps().basis) {  // by crossover
    EXPECT_EQ(r.colBasis.size(), static_cast<size_t>(afiro.numCols()));
  }
  s.maxBarrierIterations = 3;
  r = solve(readInstance("25fv47"), s);
  EXPECT_EQ(r.status, KLO_STATUS_ITERATION_LIMIT);
  EXPECT_GE(r.barrierIterations, 1);
  EXPECT_LE(r.barrierIterations, 4);
}

TEST_P(BarrierLimits, CallbackStops) {
  Settings s = quietSettings();
  s.method = LpMethod::Barrier;
  int calls = 0;
  Callback cb = [&](CallbackContext& ctx) {
    if (ctx.where == KLO_CB_PRESOLVE) return 0;
    EXPECT_EQ(ctx.where, KLO_CB_BARRIER);
    return ++calls == 3 ? KLO_CB_STOP : 0;
  };
  Result r = solve(readInstance("25fv47"), s, cb);
  EXPECT_EQ(r.status, KLO_STATUS_INTERRUPTED);
  EXPECT_EQ(calls, 3);
  EXPECT_LE(r.barrierIterations, 4);
}

// After a change, a solve from the old basis reaches the cold optimum in
// fewer iterations.  An added row, missing from the old basis, starts
// basic: c'x >= z* + 0.1% |z*| cuts the old optimum off, so the new
// optimum is that bound.
TEST_P(LpWarmStart, ResolvesAfterAChangeInFewerIterations) {
  const Problem p = readInstance("25fv47");
  const Result r0 = solve(p);
  ASSERT_EQ(r0.status, KLO_STATUS_OPTIMAL);
  Problem bounds = p, objective = p, row = p;
  for (int j = 0; j < p.numCols(); j += 50) bounds.colUpper[j] = std::min(p.colUpper[j], 1000.0);
  for (int j = 0; j < p.numCols(); j += 7) objective.obj[j] *= 1.01;
  const double target = r0.objective + 1e-3 * std::fabs(r0.objective);
  row.start = {0};
  row.index.clear();
  row.value.clear();
  for (int j = 0; j < p.numCols(); ++j) {  // column-major: the row's entries go into the columns
    for (int e = p.start[j]; e < p.start[j + 1]; ++e) {
      row.index.push_back(p.index[e]);
      row.value.push_back(p.value[e]);
    }
    if (p.obj[j] != 0) {
      row.index.push_back(p.numRows());
      row.value.push_back(p.obj[j]);
    }
    row.start.push_back(static_cast<int>(row.index.size()));
  }
  row.rowLower.push_back(target - p.objConstant);
  row.rowUpper.push_back(kInf);
  for (Problem* q : {&bounds, &objective, &row}) {
    const Result cold = solve(*q);
    q->colBasis = r0.colBasis;
    q->rowBasis = r0.rowBasis;
    const Result warm = solve(*q);
    ASSERT_EQ(cold.status, KLO_STATUS_OPTIMAL);
    ASSERT_EQ(warm.status, KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(warm.objective, cold.objective, 1e-6 * std::max(1.0, std::fabs(cold.objective)));
    EXPECT_LT(warm.simplexIterations, cold.simplexIterations);
    if (q == &row) {
      EXPECT_NEAR(warm.objective, target, 1e-6 * std::fabs(target));
    }
  }
}

KLO_ENGINE_SUITE(LpSolutions, anyEngine);
KLO_ENGINE_SUITE(LpStatus, anyEngine);
KLO_ENGINE_SUITE(SimplexLimits, simplex);
KLO_ENGINE_SUITE(BarrierLimits, barrier);
KLO_ENGINE_SUITE(LpWarmStart, givesBasis);

// The shared LPs with the methods the C interface's default never takes
// (its sweep solves each with the dual simplex after presolve): primal and
// barrier with and without presolve, dual without.
struct LpMethodCase {
  klotest::Instance inst;
  LpMethod method;
  int presolve;
};

std::vector<LpMethodCase> lpMethodCases() {
  std::vector<LpMethodCase> out;
  for (const klotest::Instance& inst : klotest::readIndex("LP")) {
    for (LpMethod m : {LpMethod::Primal, LpMethod::Barrier})
      for (int presolve : {0, 1}) out.push_back({inst, m, presolve});
    out.push_back({inst, LpMethod::Dual, 0});
  }
  return out;
}

std::string lpMethodName(const testing::TestParamInfo<LpMethodCase>& info) {
  const char* method[] = {"Primal", "Dual", "Barrier"};
  return info.param.inst.name + "_" + method[static_cast<int>(info.param.method)] +
         (info.param.presolve ? "_presolved" : "");
}

class LpInstanceMethods : public testing::TestWithParam<LpMethodCase> {};

TEST_P(LpInstanceMethods, ReachTheKnownOptimum) {
  const LpMethodCase& c = GetParam();
  const Problem p = readMpsProblem(klotest::instancePath(c.inst));
  Settings s = quietSettings();
  s.method = c.method;
  s.presolve = c.presolve;
  const Result r = clpEntry().make()->solve(p, s, {});
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  EXPECT_LE(maxViolation(p, r.x.data(), true), 1e-6);
  const double scale = std::max(1.0, std::fabs(c.inst.objective));
  EXPECT_NEAR(r.objective, c.inst.objective, 1e-6 * scale);
  EXPECT_NEAR(r.dualObjective, r.objective, 1e-6 * scale);
}

INSTANTIATE_TEST_SUITE_P(Shared, LpInstanceMethods, testing::ValuesIn(lpMethodCases()),
                         lpMethodName);

}  // namespace
}  // namespace klo::engine::test
