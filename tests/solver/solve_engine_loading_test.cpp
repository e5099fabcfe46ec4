// The MIP engine is a library of its own that the solver library loads on
// the first MIP solve: an LP-only process never maps it.  Each case runs in
// a fresh process (a death test re-executing the binary), since other tests
// of this binary load the engine.
#include <fstream>
#include <string>

#include "solve_fixture.h"

namespace klotest {
namespace {

bool mipEngineLoaded() {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);)
    if (line.find("libklo_cbc.so") != std::string::npos) return true;
  return false;
}

class SolveEngineLoading : public SolveTest {
 protected:
  // Solves max x + y, x + y <= 3 (integral when asked) and exits with 0 when
  // the MIP engine is mapped afterwards exactly as expected.
  void solveAndCheck(char type, bool expectLoaded) {
    sense(KLO_MAXIMIZE);
    int x = var(1, 0, 2, type), y = var(1, 0, 2, type);
    row({{x, 1}, {y, 1}}, '<', 3);
    optimize();
    std::exit(dbl("ObjVal") == 3 && mipEngineLoaded() == expectLoaded ? 0 : 1);
  }
};

TEST_F(SolveEngineLoading, AnLpLeavesTheMipEngineUnloadedAndAMipLoadsIt) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(solveAndCheck('C', false), ::testing::ExitedWithCode(0), "");
  EXPECT_EXIT(solveAndCheck('I', true), ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace klotest
