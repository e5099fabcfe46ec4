// Every shared instance, read with CoinMpsIO into a Problem and solved by
// the engine its kind calls for, to the optimal objective of index.csv.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/problem_eval.h"
#include "instance_index.h"
#include "klo_c.h"
#include "problem_builder.h"

namespace klo::engine::test {
namespace {

using klotest::Instance;
using klotest::instanceName;
using klotest::readIndex;

class InstanceSolve : public ::testing::TestWithParam<Instance> {};
class LpInstanceSolve : public ::testing::TestWithParam<Instance> {};

void expectOptimum(const Instance& inst, const Problem& p, const Settings& s, const Result& r) {
  ASSERT_EQ(r.status, KLO_STATUS_OPTIMAL);
  ASSERT_TRUE(r.hasSolution);
  EXPECT_LE(maxViolation(p, r.x.data(), true), 1e-6);
  const double scale = std::max(1.0, std::fabs(inst.objective));
  if (inst.kind == "LP") {
    EXPECT_NEAR(r.objective, inst.objective, 1e-6 * scale);
    EXPECT_NEAR(r.dualObjective, r.objective, 1e-6 * scale);
    return;
  }
  // Within the gap tolerances the search stops at (index.csv rounds some
  // optima to a few digits, hence the absolute term).
  const double allowed = std::max(s.gapAbs, s.gapRel * std::fabs(r.objective)) + 1e-6 * scale;
  EXPECT_NEAR(r.objective, inst.objective, allowed);
  EXPECT_LE(std::fabs(r.objective - r.dualObjective), allowed);
}

TEST_P(InstanceSolve, ReachesTheKnownOptimum) {
  const Instance& inst = GetParam();
  Problem p = readMpsProblem(klotest::instancePath(inst));
  ASSERT_EQ(p.isMip(), inst.kind == "MIP");
  Settings s = quietSettings();
  expectOptimum(inst, p, s, (p.isMip() ? makeCbcEngine() : makeClpEngine())->solve(p, s));
}

// LPs also with every other method, and without presolve.
TEST_P(LpInstanceSolve, EveryMethodReachesIt) {
  const Instance& inst = GetParam();
  Problem p = readMpsProblem(klotest::instancePath(inst));
  for (LpMethod m : {LpMethod::Primal, LpMethod::Barrier, LpMethod::Dual}) {
    for (int presolve : {0, 1}) {
      SCOPED_TRACE(testing::Message() << "method " << static_cast<int>(m) << " presolve " << presolve);
      Settings s = quietSettings();
      s.method = m;
      s.presolve = presolve;
      expectOptimum(inst, p, s, makeClpEngine()->solve(p, s));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Shared, InstanceSolve, ::testing::ValuesIn(readIndex()), instanceName);
INSTANTIATE_TEST_SUITE_P(Shared, LpInstanceSolve, ::testing::ValuesIn(readIndex("LP")),
                         instanceName);

}  // namespace
}  // namespace klo::engine::test
