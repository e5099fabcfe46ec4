// Every shared instance, read with CoinMpsIO into a Problem and solved by
// every engine that takes it, to the optimal objective of index.csv.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/problem_eval.h"
#include "engine_suite.h"
#include "instance_index.h"
#include "klo_c.h"

namespace klo::engine::test {
namespace {

using klotest::Instance;
using klotest::readIndex;

struct InstanceEngine {
  Instance inst;
  EngineEntry engine;
};

// The instances are linear: they measure the linear engines.  Engines that
// take quadratic rows or PSD variables (Ipopt, Bonmin, CSDP: interior-point
// methods never chosen for a linear model) have their own suites.
bool linearEngine(const EngineEntry& e) {
  return !e.caps.takes(kQuadRows) && !e.caps.takes(kPsd);
}

// Each instance with each linear engine that takes its kind (and, with
// method, honours "Method").
std::vector<InstanceEngine> pairs(const char* kind, bool method) {
  std::vector<InstanceEngine> out;
  for (const Instance& inst : readIndex(kind))
    for (const EngineEntry& e : engines()) {
      const unsigned features = inst.kind == "MIP" ? kIntegers : 0u;
      if (linearEngine(e) && e.caps.takes(features) && (!method || honours(e, "Method")))
        out.push_back({inst, e});
    }
  return out;
}

std::string pairName(const testing::TestParamInfo<InstanceEngine>& info) {
  return info.param.inst.name + "_" + info.param.engine.name;
}

class InstanceSolve : public ::testing::TestWithParam<InstanceEngine> {};
using LpInstanceSolve = InstanceSolve;

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
  const Instance& inst = GetParam().inst;
  Problem p = readMpsProblem(klotest::instancePath(inst));
  ASSERT_EQ(p.isMip(), inst.kind == "MIP");
  Settings s = quietSettings();
  expectOptimum(inst, p, s, GetParam().engine.make()->solve(p, s));
}

// LPs also with every other method, and without presolve.
TEST_P(LpInstanceSolve, EveryMethodReachesIt) {
  const Instance& inst = GetParam().inst;
  Problem p = readMpsProblem(klotest::instancePath(inst));
  for (LpMethod m : {LpMethod::Primal, LpMethod::Barrier, LpMethod::Dual}) {
    for (int presolve : {0, 1}) {
      SCOPED_TRACE(testing::Message()
                   << "method " << static_cast<int>(m) << " presolve " << presolve);
      Settings s = quietSettings();
      s.method = m;
      s.presolve = presolve;
      expectOptimum(inst, p, s, GetParam().engine.make()->solve(p, s));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Shared, InstanceSolve, ::testing::ValuesIn(pairs("", false)), pairName);
INSTANTIATE_TEST_SUITE_P(Shared, LpInstanceSolve, ::testing::ValuesIn(pairs("LP", true)), pairName);

}  // namespace
}  // namespace klo::engine::test
