// Parameters: table of types, ranges and defaults; get, set, info, reset.
#include <cmath>
#include <limits>

#include "test_support.h"

namespace {

using klotest::EnvTest;

struct IntParam {
  const char* name;
  int min, max, def;
};
struct DblParam {
  const char* name;
  double min, max, def;
};

// The documented table of klo_c.h.
const IntParam kIntParams[] = {
    {"Method", -1, 2, -1},
    {"PostScaling", -1, 1, -1},
    {"Presolve", -1, 1, -1},
    {"Dualization", -1, 1, -1},
    {"OutputFlag", 0, 1, 1},
    {"LogToConsole", 0, 1, 1},
    {"NumThreads", -1, 128, -1},
    {"EnableNetworkFlow", 0, 1, 0},
    {"EnableStochasticLP", 0, 1, 0},
    {"NumericFocus", 0, 3, 0},
    {"SPX/ColumnGeneration", 0, 1, 0},
    {"SPX/CrashStart", 0, 1, 0},
    {"SPX/MaxIterations", 0, 2147483647, 2147483647},
    {"SPX/PrimalPricing", -1, 3, -1},
    {"SPX/DualPricing", -1, 3, -1},
    {"IPM/MaxIterations", 0, 2147483647, 500},
    {"IPM/NumericFocus", 0, 1, 0},
    {"MIP/LevelCuts", -1, 3, -1},
    {"MIP/LevelHeurs", -1, 3, -1},
    {"MIP/LevelProbing", -1, 3, -1},
    {"MIP/LevelStrong", -1, 3, -1},
    {"MIP/LevelSubmip", -1, 3, -1},
    {"MIP/MaxNodes", 0, 2147483647, 2147483647},
    {"MIP/RootParallelism", -1, 64, -1},
    {"MIP/AutoConfiguration", -1, 1, -1},
    {"MIP/MaxSols", 1, 2147483647, 2147483647},
    {"MIP/AllowDualPresolve", -1, 1, -1},
    {"MIP/EnableLazyConstr", 0, 1, 0},
    {"MIP/Disconnected", -1, 1, -1},
    {"MIP/DetectDisconnectedComponents", -1, 1, -1},
    {"MIP/SolutionPoolSize", 1, 1000, 10},
    {"MIP/MaxStallingNodes", -1, 2147483647, -1},
    {"MIP/SolutionNumber", 0, 2147483647, 0},
    {"MIP/Static", 0, 1, 0},
    {"PDHG/ComputePreference", -1, 1, -1},
    {"PDHG/Device", -1, 1, -1},
    {"PDHG/MaxIterations", 0, 2147483647, 2147483647},
    {"SolutionTarget", -1, 1, -1},
    {"ObjNumber", 0, 2147483647, 0},
};

const DblParam kDblParams[] = {
    {"MaxTime", 0, 1e20, 1e20},
    {"PresolveTolerance", 0, 1, 1e-9},
    {"SPX/PrimalTolerance", 1e-10, 1e-2, 1e-7},
    {"SPX/DualTolerance", 1e-10, 1e-2, 1e-7},
    {"IPM/PrimalTolerance", 1e-12, 1, 1e-8},
    {"IPM/DualTolerance", 1e-12, 1, 1e-8},
    {"IPM/GapTolerance", 1e-12, 1, 1e-8},
    {"MIP/IntegerTolerance", 1e-9, 0.5, 1e-6},
    {"MIP/ObjectiveTolerance", 0, 1e20, 1e-6},
    {"MIP/GapAbs", 0, 1e20, 1e-6},
    {"MIP/GapRel", 0, 1e20, 1e-4},
    {"MIP/LinearizationBigM", 0, 1e20, 1e5},
    {"MIP/Cutoff", -1e20, 1e20, 1e20},
    {"MIP/Heuristics", 0, 1, 0.05},
    {"MIP/NoRelHeurWork", 0, 1e20, 0},
    {"PDHG/DualTolerance", 0, 1, 1e-4},
    {"PDHG/GapTolerance", 0, 1, 1e-4},
    {"PDHG/PrimalTolerance", 0, 1, 1e-4},
};

using ParamTable = EnvTest;

TEST_F(ParamTable, IntParamsHaveDocumentedRangeAndDefault) {
  for (const IntParam& p : kIntParams) {
    SCOPED_TRACE(p.name);
    int value = 0, mn = 0, mx = 0, def = 0;
    ASSERT_EQ(KLOgetintparaminfo(env, p.name, &value, &mn, &mx, &def), KLO_OK);
    EXPECT_EQ(mn, p.min);
    EXPECT_EQ(mx, p.max);
    EXPECT_EQ(def, p.def);
    // The fixture silenced the console; every other value is the default.
    if (std::string(p.name) != "LogToConsole") {
      EXPECT_EQ(value, p.def);
    }
  }
}

TEST_F(ParamTable, DblParamsHaveDocumentedRangeAndDefault) {
  for (const DblParam& p : kDblParams) {
    SCOPED_TRACE(p.name);
    double value = 0, mn = 0, mx = 0, def = 0;
    ASSERT_EQ(KLOgetdblparaminfo(env, p.name, &value, &mn, &mx, &def), KLO_OK);
    EXPECT_EQ(mn, p.min);
    EXPECT_EQ(mx, p.max);
    EXPECT_EQ(def, p.def);
    EXPECT_EQ(value, p.def);
  }
}

TEST_F(ParamTable, BoundsAreAcceptedAndValuesJustOutsideRefused) {
  for (const IntParam& p : kIntParams) {
    SCOPED_TRACE(p.name);
    int got = 0;
    EXPECT_EQ(KLOsetintparam(env, p.name, p.min), KLO_OK);
    EXPECT_EQ(KLOsetintparam(env, p.name, p.max), KLO_OK);
    ASSERT_EQ(KLOgetintparam(env, p.name, &got), KLO_OK);
    EXPECT_EQ(got, p.max);
    if (p.min > std::numeric_limits<int>::min()) {
      EXPECT_EQ(KLOsetintparam(env, p.name, p.min - 1), KLO_ERROR_PARAMETER_RANGE);
    }
    if (p.max < std::numeric_limits<int>::max()) {
      EXPECT_EQ(KLOsetintparam(env, p.name, p.max + 1), KLO_ERROR_PARAMETER_RANGE);
    }
    ASSERT_EQ(KLOgetintparam(env, p.name, &got), KLO_OK);
    EXPECT_EQ(got, p.max) << "a refused set changed the value";
  }
  for (const DblParam& p : kDblParams) {
    SCOPED_TRACE(p.name);
    double got = 0;
    EXPECT_EQ(KLOsetdblparam(env, p.name, p.min), KLO_OK);
    EXPECT_EQ(KLOsetdblparam(env, p.name, p.max), KLO_OK);
    EXPECT_EQ(KLOsetdblparam(env, p.name, std::nextafter(p.max, 1e300)), KLO_ERROR_PARAMETER_RANGE);
    EXPECT_EQ(KLOsetdblparam(env, p.name, std::nextafter(p.min, -1e300)),
              KLO_ERROR_PARAMETER_RANGE);
    EXPECT_EQ(KLOsetdblparam(env, p.name, std::nan("")), KLO_ERROR_PARAMETER_RANGE);
    ASSERT_EQ(KLOgetdblparam(env, p.name, &got), KLO_OK);
    EXPECT_EQ(got, p.max);
  }
}

TEST_F(ParamTable, InfoPointersMayBeNull) {
  int mx = 0;
  EXPECT_EQ(KLOgetintparaminfo(env, "Method", nullptr, nullptr, &mx, nullptr), KLO_OK);
  EXPECT_EQ(mx, 2);
  double def = 0;
  EXPECT_EQ(KLOgetdblparaminfo(env, "MIP/GapRel", nullptr, nullptr, nullptr, &def), KLO_OK);
  EXPECT_EQ(def, 1e-4);
  char value[512] = "x";
  EXPECT_EQ(KLOgetstrparaminfo(env, "LogFile", value, nullptr), KLO_OK);
  EXPECT_STREQ(value, "");
}

using ParamErrors = EnvTest;

TEST_F(ParamErrors, UnknownNameIsRefusedWithTheNameInTheMessage) {
  int i = 0;
  double d = 0;
  char s[512];
  EXPECT_EQ(KLOgetintparam(env, "Bogus", &i), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_NE(lastError().find("Bogus"), std::string::npos);
  EXPECT_EQ(KLOsetdblparam(env, "Bogus2", 1.0), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_NE(lastError().find("Bogus2"), std::string::npos);
  EXPECT_EQ(KLOgetdblparam(env, "maxtime", &d), KLO_ERROR_UNKNOWN_PARAMETER)
      << "names are case-sensitive";
  EXPECT_EQ(KLOgetstrparam(env, "", s), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_EQ(KLOgetintparaminfo(env, "Bogus", &i, nullptr, nullptr, nullptr),
            KLO_ERROR_UNKNOWN_PARAMETER);
}

TEST_F(ParamErrors, WrongTypeIsRefusedInEveryDirection) {
  int i = 0;
  double d = 0;
  char s[512];
  EXPECT_EQ(KLOgetdblparam(env, "Method", &d), KLO_ERROR_PARAMETER_TYPE);
  EXPECT_EQ(KLOsetdblparam(env, "Method", 1.0), KLO_ERROR_PARAMETER_TYPE);
  EXPECT_EQ(KLOgetintparam(env, "MaxTime", &i), KLO_ERROR_PARAMETER_TYPE);
  EXPECT_EQ(KLOsetintparam(env, "MaxTime", 1), KLO_ERROR_PARAMETER_TYPE);
  EXPECT_EQ(KLOgetstrparam(env, "MaxTime", s), KLO_ERROR_PARAMETER_TYPE);
  EXPECT_EQ(KLOsetstrparam(env, "Method", "1"), KLO_ERROR_PARAMETER_TYPE);
  EXPECT_EQ(KLOgetintparam(env, "LogFile", &i), KLO_ERROR_PARAMETER_TYPE);
  EXPECT_EQ(KLOgetdblparaminfo(env, "Method", &d, nullptr, nullptr, nullptr),
            KLO_ERROR_PARAMETER_TYPE);
  EXPECT_NE(lastError().find("Method"), std::string::npos);
  ASSERT_EQ(KLOgetintparam(env, "Method", &i), KLO_OK);
  EXPECT_EQ(i, -1);
}

TEST_F(ParamErrors, NullArgumentsAreRefused) {
  int i = 0;
  EXPECT_EQ(KLOgetintparam(nullptr, "Method", &i), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetintparam(env, nullptr, &i), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetintparam(env, "Method", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetdblparam(env, "MaxTime", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetstrparam(env, "LogFile", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOsetstrparam(env, "LogFile", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOsetintparam(nullptr, "Method", 1), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOresetparams(nullptr), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(ParamErrors, OverlongStringIsRefusedAndChangesNothing) {
  std::string tooLong(512, 'a');
  EXPECT_EQ(KLOsetstrparam(env, "LogFile", tooLong.c_str()), KLO_ERROR_PARAMETER_RANGE);
  char s[512] = "x";
  ASSERT_EQ(KLOgetstrparam(env, "LogFile", s), KLO_OK);
  EXPECT_STREQ(s, "");
}

using ParamReset = EnvTest;

TEST_F(ParamReset, ResetRestoresEveryDefault) {
  ASSERT_EQ(KLOsetintparam(env, "Method", 2), KLO_OK);
  ASSERT_EQ(KLOsetdblparam(env, "MIP/GapRel", 0.5), KLO_OK);
  klotest::TempFile log(".log");
  ASSERT_EQ(KLOsetstrparam(env, "LogFile", log.c_str()), KLO_OK);
  ASSERT_EQ(KLOresetparams(env), KLO_OK);
  int method = 0;
  double gap = 0;
  char s[512] = "x";
  EXPECT_EQ(KLOgetintparam(env, "Method", &method), KLO_OK);
  EXPECT_EQ(method, -1);
  EXPECT_EQ(KLOgetdblparam(env, "MIP/GapRel", &gap), KLO_OK);
  EXPECT_EQ(gap, 1e-4);
  EXPECT_EQ(KLOgetstrparam(env, "LogFile", s), KLO_OK);
  EXPECT_STREQ(s, "");
}

}  // namespace
