// The engines' log goes through the library's log: into "LogFile" (and the
// console per "LogToConsole"), nowhere with "OutputFlag" 0.
#include <string>

#include "solve_fixture.h"

namespace klotest {
namespace {

class SolveLog : public SolveTest {
 protected:
  void logTo(const TempFile& file) {
    ASSERT_EQ(KLOsetstrparam(KLOgetenv(model), "LogFile", file.c_str()), KLO_OK);
  }
};

TEST_F(SolveLog, LpAndMipSummariesReachTheLogFile) {
  TempFile file(".log");
  readInstance("afiro.mps.gz");
  logTo(file);
  optimize();
  const std::string lp = file.read();
  EXPECT_NE(lp.find("LP optimal, objective -464.753"), std::string::npos) << lp;
  readInstance("p0033.mps.gz");
  logTo(file);
  optimize();
  const std::string mip = file.read().substr(lp.size());
  EXPECT_NE(mip.find("MIP optimal, objective 3089"), std::string::npos) << mip;
}

TEST_F(SolveLog, ParametersTheChosenEngineDoesNotUseAreNamed) {
  TempFile file(".log");
  readInstance("afiro.mps.gz");
  logTo(file);
  setDbl("MIP/GapRel", 0.01);
  setInt("SPX/MaxIterations", 1000);
  optimize();
  const std::string log = file.read();
  EXPECT_NE(log.find("Clp does not use parameter \"MIP/GapRel\" (set to 0.01)"), std::string::npos)
      << log;
  EXPECT_EQ(log.find("SPX/MaxIterations"), std::string::npos) << log;
}

// The MIP search settings reach Cbc: none is reported unused, none changes
// the optimum, and a stalling limit of 0 nodes ends the search early.
TEST_F(SolveLog, MipSearchParametersAreHonoured) {
  struct Case {
    const char* name;
    double value;
  };
  for (const Case& c :
       {Case{"MIP/LevelProbing", 0}, Case{"MIP/LevelProbing", 3}, Case{"MIP/LevelStrong", 0},
        Case{"MIP/LevelStrong", 3}, Case{"MIP/ObjectiveTolerance", 1e-3}}) {
    SCOPED_TRACE(std::string(c.name) + " " + std::to_string(c.value));
    TempFile file(".log");
    readInstance("p0033.mps.gz");
    logTo(file);
    if (std::string(c.name) == "MIP/ObjectiveTolerance")
      setDbl(c.name, c.value);
    else
      setInt(c.name, static_cast<int>(c.value));
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    EXPECT_NEAR(dbl("ObjVal"), 3089, 1e-6);
    EXPECT_EQ(file.read().find("does not use"), std::string::npos);
  }
  readInstance("stein27.mps.gz");
  setInt("OutputFlag", 0);
  setInt("MIP/MaxStallingNodes", 0);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_NODE_LIMIT);
}

TEST_F(SolveLog, OutputFlagZeroSilencesTheEngines) {
  TempFile file(".log");
  readInstance("p0033.mps.gz");
  logTo(file);
  setInt("OutputFlag", 0);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_EQ(file.read(), "");
}

}  // namespace
}  // namespace klotest
