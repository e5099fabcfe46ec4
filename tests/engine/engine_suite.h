// Conformance suites are written once and run for every engine whose
// declaration says it can take them: KLO_ENGINE_SUITE(Suite, need)
// instantiates Suite (a fixture derived from EngineTest) once per engine of
// the library for which need(entry) holds.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <ostream>
#include <string>
#include <vector>

#include "problem_builder.h"

namespace klo::engine::test {

using Need = bool (*)(const EngineEntry&);

inline std::vector<EngineEntry> enginesThat(Need need) {
  std::vector<EngineEntry> out;
  for (const EngineEntry& e : engines())
    if (need(e)) out.push_back(e);
  return out;
}

inline bool honours(const EngineEntry& e, const char* parameter) {
  for (const char* p : e.caps.parameters)
    if (std::strcmp(p, parameter) == 0) return true;
  return false;
}

// What the suites ask for.
inline bool anyEngine(const EngineEntry&) { return true; }
inline bool givesDuals(const EngineEntry& e) { return e.caps.duals; }
inline bool givesBasis(const EngineEntry& e) { return e.caps.basis; }
inline bool simplex(const EngineEntry& e) { return honours(e, "SPX/MaxIterations"); }
inline bool barrier(const EngineEntry& e) { return honours(e, "IPM/MaxIterations"); }
inline bool takesIntegers(const EngineEntry& e) { return e.caps.takes(kIntegers); }
inline bool takesSos(const EngineEntry& e) { return e.caps.takes(kIntegers | kSos); }
inline bool lazyRows(const EngineEntry& e) { return honours(e, "MIP/EnableLazyConstr"); }

class EngineTest : public testing::TestWithParam<EngineEntry> {
 protected:
  const Capabilities& caps() const { return GetParam().caps; }
  bool honours(const char* parameter) const { return test::honours(GetParam(), parameter); }
  Result solve(const Problem& p, const Settings& s = quietSettings(),
               const Callback& cb = {}) const {
    return GetParam().make()->solve(p, s, cb);
  }
  // Solves with that LP method and presolve setting (-1: the engine's choice).
  Result solveLp(const Problem& p, LpMethod method = LpMethod::Automatic, int presolve = -1) const {
    Settings s = quietSettings();
    s.method = method;
    s.presolve = presolve;
    return solve(p, s);
  }
  // The LP methods the engine lets us choose.
  std::vector<LpMethod> methods() const {
    if (!honours("Method")) return {LpMethod::Automatic};
    return {LpMethod::Dual, LpMethod::Primal, LpMethod::Barrier};
  }
};

inline std::string engineName(const testing::TestParamInfo<EngineEntry>& info) {
  return info.param.name;
}

}  // namespace klo::engine::test

namespace klo::engine {
// What gtest prints for a parameter (found by argument-dependent lookup).
inline void PrintTo(const EngineEntry& e, std::ostream* os) { *os << e.name; }
}  // namespace klo::engine

#define KLO_ENGINE_SUITE(Suite, need)                                                 \
  INSTANTIATE_TEST_SUITE_P(Engines, Suite,                                            \
                           testing::ValuesIn(::klo::engine::test::enginesThat(need)), \
                           ::klo::engine::test::engineName);                          \
  GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Suite)
