// Attributes (every name with its type, level and access), parameters (the
// documented table, parameter files), environments, error texts and the log.
#include <cmath>
#include <limits>
#include <set>
#include <string>

#include "fixtures.h"

namespace klotest {
namespace {

enum Type { Int, Dbl, Chr, Str, Mat };
enum Level { Model, Var, Row, Psd, Gen };

struct AttrCase {
  const char* name;
  Type type;
  Level level;
  bool settable;
  bool result;  // needs a solve (or an IIS): no data before one
};

// The attribute list of klo_c.h.
// clang-format off
const AttrCase kAttrs[] = {
    {"ModelSense", Int, Model, true, false}, {"MinSense", Int, Model, true, false},
    {"HasSolution", Int, Model, false, false}, {"HasPrimalRay", Int, Model, false, false},
    {"HasDualRay", Int, Model, false, false}, {"NumVars", Int, Model, false, false},
    {"NumConss", Int, Model, false, false}, {"NumConstrs", Int, Model, false, false},
    {"NumQConstrs", Int, Model, false, false}, {"NumSOS", Int, Model, false, false},
    {"NumGenConstrs", Int, Model, false, false}, {"NumEnts", Int, Model, false, false},
    {"NumNZs", Int, Model, false, false}, {"SPX/NumIters", Int, Model, false, true},
    {"IPM/NumIters", Int, Model, false, true}, {"IsInteger", Int, Model, false, false},
    {"IISVar", Int, Var, false, true}, {"IISConstr", Int, Row, false, true},
    {"IISCol", Int, Var, false, true}, {"IISRow", Int, Row, false, true},
    {"ColBasis", Int, Var, true, true}, {"RowBasis", Int, Row, true, true},
    {"GenConstrType", Int, Gen, false, false}, {"Status", Int, Model, false, false},
    {"Dim", Int, Psd, false, false}, {"NumPsdVars", Int, Model, false, false},
    {"NumPsdConstrs", Int, Model, false, false}, {"SolCount", Int, Model, false, false},
    {"NumObj", Int, Model, false, false}, {"ObjNPriority", Int, Model, true, false},
    {"NumContVars", Int, Model, false, false}, {"NumIntVars", Int, Model, false, false},
    {"NumBinVars", Int, Model, false, false}, {"ObjConst", Dbl, Model, true, false},
    {"ObjCon", Dbl, Model, true, false}, {"PrimalObjVal", Dbl, Model, false, true},
    {"ObjVal", Dbl, Model, false, true}, {"PoolNObjVal", Dbl, Model, false, true},
    {"DualObjVal", Dbl, Model, false, true}, {"PresolverTime", Dbl, Model, false, true},
    {"SolverTime", Dbl, Model, false, true}, {"SolutionTime", Dbl, Model, false, true},
    {"MIP/GapAbs", Dbl, Model, false, true}, {"MIP/GapRel", Dbl, Model, false, true},
    {"LB", Dbl, Var, true, false}, {"UB", Dbl, Var, true, false}, {"Obj", Dbl, Var, true, false},
    {"LHS", Dbl, Row, true, false}, {"RHS", Dbl, Row, true, false},
    {"QCLHS", Dbl, Row, true, false}, {"QCRHS", Dbl, Row, true, false},
    {"PrimalSoln", Dbl, Var, false, true}, {"X", Dbl, Var, false, true},
    {"PoolNX", Dbl, Var, false, true}, {"Xn", Dbl, Var, false, true},
    {"Start", Dbl, Var, true, false}, {"DualSoln", Dbl, Row, false, true},
    {"Activity", Dbl, Row, false, true}, {"ReducedCost", Dbl, Var, false, true},
    {"RC", Dbl, Var, false, true}, {"PsdCLHS", Dbl, Row, true, false},
    {"PsdCRHS", Dbl, Row, true, false}, {"ObjN", Dbl, Var, true, false},
    {"ObjNCon", Dbl, Model, true, false}, {"ObjNVal", Dbl, Model, false, true},
    {"ObjNWeight", Dbl, Model, true, false}, {"ObjNRelTol", Dbl, Model, true, false},
    {"ObjNAbsTol", Dbl, Model, true, false}, {"VType", Chr, Var, true, false},
    {"ProbName", Str, Model, true, false}, {"ModelName", Str, Model, true, false},
    {"RowName", Str, Row, true, false}, {"ConstrName", Str, Row, true, false},
    {"QCName", Str, Row, true, false}, {"ColName", Str, Var, true, false},
    {"VarName", Str, Var, true, false}, {"PsdVarName", Str, Psd, true, false},
    {"PsdCName", Str, Row, true, false}, {"GenConstrName", Str, Gen, true, false},
    {"PsdX", Mat, Psd, false, true}, {"PsdObj", Mat, Psd, true, false}};
// clang-format on

// A model with one element of every kind, each at index 0.
class Attributes : public ModelTest {
 protected:
  void SetUp() override {
    ModelTest::SetUp();
    ASSERT_EQ(KLOaddvar(model, 0, nullptr, nullptr, 1.0, 0, 1, 'B', "b"), KLO_OK);
    const int ind = 0;
    const double val = 1;
    ASSERT_EQ(KLOaddrangeconstr(model, 1, &ind, &val, 0, 1, "r"), KLO_OK);
    ASSERT_EQ(KLOaddpsdvar(model, 2, "P"), KLO_OK);
    ASSERT_EQ(KLOaddgenconstrIndicator(model, "g", 0, 1, 1, &ind, &val, '<', 1), KLO_OK);
  }

  // Reads attribute c at its own level and type; returns the status.
  int read(const AttrCase& c) {
    int i = 0;
    double d = 0;
    char ch = 0;
    const char* s = nullptr;
    if (c.level == Model) {
      switch (c.type) {
        case Int: return KLOgetintattr(model, c.name, &i);
        case Dbl: return KLOgetdblattr(model, c.name, &d);
        default: return KLOgetstrattr(model, c.name, &s);
      }
    }
    switch (c.type) {
      case Int: return KLOgetintattrelement(model, c.name, 0, &i);
      case Dbl: return KLOgetdblattrelement(model, c.name, 0, &d);
      case Chr: return KLOgetcharattrelement(model, c.name, 0, &ch);
      case Str: return KLOgetstrattrelement(model, c.name, 0, &s);
      default:
        return KLOgetmatattrelement(model, c.name, 0, &i, nullptr, nullptr, nullptr, nullptr);
    }
  }
  // Sets read-only attribute c to 1 at its own level; returns the status.
  int write(const AttrCase& c) {
    const int pos = 0;
    const double v = 1;
    if (c.type == Mat) return KLOsetmatattrelement(model, c.name, 0, 1, 2, 2, &pos, &v);
    if (c.type == Int)
      return c.level == Model ? KLOsetintattr(model, c.name, 1)
                              : KLOsetintattrelement(model, c.name, 0, 1);
    return c.level == Model ? KLOsetdblattr(model, c.name, 1)
                            : KLOsetdblattrelement(model, c.name, 0, 1);
  }
};

TEST_F(Attributes, EveryAttributeIsReadableAtItsLevelAndReadOnlyOnesRefuseSetting) {
  for (const AttrCase& c : kAttrs) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(read(c), c.result ? KLO_ERROR_DATA_NOT_AVAILABLE : KLO_OK) << modelError();
    if (c.settable) continue;
    EXPECT_EQ(write(c), KLO_ERROR_ATTRIBUTE_READONLY);
    EXPECT_NE(modelError().find(c.name), std::string::npos);
  }
}

TEST_F(Attributes, WrongTypeLevelNameOrIndexHaveTheirOwnCodes) {
  int i = 0;
  double d = 0, v[2];
  const char* s = nullptr;
  char ch = 0;
  EXPECT_EQ(KLOgetintattr(model, "ObjCon", &i), KLO_ERROR_ATTRIBUTE_TYPE);
  EXPECT_EQ(KLOgetdblattr(model, "NumVars", &d), KLO_ERROR_ATTRIBUTE_TYPE);
  EXPECT_EQ(KLOgetstrattr(model, "NumVars", &s), KLO_ERROR_ATTRIBUTE_TYPE);
  EXPECT_EQ(KLOgetcharattrelement(model, "LB", 0, &ch), KLO_ERROR_ATTRIBUTE_TYPE);
  EXPECT_EQ(KLOgetdblattrelement(model, "VType", 0, &d), KLO_ERROR_ATTRIBUTE_TYPE);
  EXPECT_EQ(KLOgetdblattr(model, "LB", &d), KLO_ERROR_ATTRIBUTE_LEVEL);
  EXPECT_EQ(KLOgetintattrelement(model, "NumVars", 0, &i), KLO_ERROR_ATTRIBUTE_LEVEL);
  EXPECT_EQ(KLOgetstrattrelement(model, "ModelName", 0, &s), KLO_ERROR_ATTRIBUTE_LEVEL);
  EXPECT_EQ(KLOgetintattrarray(model, "NumVars", 0, 1, &i), KLO_ERROR_ATTRIBUTE_LEVEL);
  EXPECT_EQ(KLOgetintattr(model, "NoSuchAttr", &i), KLO_ERROR_UNKNOWN_ATTRIBUTE);
  EXPECT_NE(modelError().find("NoSuchAttr"), std::string::npos);
  EXPECT_EQ(KLOgetintattr(model, nullptr, &i), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetintattr(model, "NumVars", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetintattr(nullptr, "NumVars", &i), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetdblattrelement(model, "LB", 1, &d), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOgetdblattrelement(model, "RHS", -1, &d), KLO_ERROR_INVALID_CONSTR);
  EXPECT_EQ(KLOgetintattrelement(model, "Dim", 1, &i), KLO_ERROR_INVALID_PSDVAR);
  EXPECT_EQ(KLOgetstrattrelement(model, "GenConstrName", 1, &s), KLO_ERROR_INVALID_GENCONSTR);
  EXPECT_EQ(KLOgetdblattrarray(model, "LB", 0, 2, v), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOgetdblattrarray(model, "LB", 0, -1, v), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOgetdblattrarray(model, "LB", 1, 0, v), KLO_OK);
}

TEST_F(Attributes, SynonymsShareTheirValue) {
  ASSERT_EQ(KLOsetdblattr(model, "ObjCon", 2.5), KLO_OK);
  EXPECT_EQ(dbl("ObjConst"), 2.5);
  ASSERT_EQ(KLOsetstrattr(model, "ModelName", "renamed"), KLO_OK);
  const char* s = nullptr;
  ASSERT_EQ(KLOgetstrattr(model, "ProbName", &s), KLO_OK);
  EXPECT_STREQ(s, "renamed");
  for (const char* n : {"RowName", "ConstrName", "QCName", "PsdCName"}) {
    ASSERT_EQ(KLOsetstrattrelement(model, n, 0, n), KLO_OK);
    for (const char* m : {"RowName", "ConstrName", "QCName", "PsdCName"}) {
      ASSERT_EQ(KLOgetstrattrelement(model, m, 0, &s), KLO_OK);
      EXPECT_STREQ(s, n);
    }
  }
  ASSERT_EQ(KLOsetstrattrelement(model, "ColName", 0, "col"), KLO_OK);
  ASSERT_EQ(KLOgetstrattrelement(model, "VarName", 0, &s), KLO_OK);
  EXPECT_EQ(intAttr("NumVars"), 1);
  EXPECT_STREQ(s, "col") << "a string stays valid until its name changes";
  ASSERT_EQ(KLOsetdblattrelement(model, "QCRHS", 0, 0.75), KLO_OK);
  EXPECT_EQ(dblAt("RHS", 0), 0.75);
  EXPECT_EQ(dblAt("PsdCRHS", 0), 0.75);
  ASSERT_EQ(KLOsetdblattrelement(model, "PsdCLHS", 0, -0.5), KLO_OK);
  EXPECT_EQ(dblAt("LHS", 0), -0.5);
  EXPECT_EQ(intAttr("NumConss"), intAttr("NumConstrs"));
  EXPECT_EQ(intAttrs({"ModelSense", "MinSense"}), (std::vector<int>{KLO_MINIMIZE, 1}));
  ASSERT_EQ(KLOsetintattr(model, "ModelSense", KLO_MAXIMIZE), KLO_OK);
  EXPECT_EQ(intAttr("MinSense"), 0);
  ASSERT_EQ(KLOsetintattr(model, "MinSense", 1), KLO_OK);
  EXPECT_EQ(intAttr("ModelSense"), 1);
}

TEST_F(Attributes, CountsAndArraysFollowTheModel) {
  EXPECT_EQ(intAttrs({"NumVars", "NumBinVars", "IsInteger", "NumPsdVars", "NumGenConstrs",
                      "NumQConstrs", "Status", "HasSolution", "SolCount"}),
            (std::vector<int>{1, 1, 1, 1, 1, 0, KLO_STATUS_UNSTARTED, 0, 0}));
  int dim = 0, type = -1;
  ASSERT_EQ(KLOgetintattrelement(model, "Dim", 0, &dim), KLO_OK);
  EXPECT_EQ(dim, 2);
  ASSERT_EQ(KLOgetintattrelement(model, "GenConstrType", 0, &type), KLO_OK);
  EXPECT_EQ(type, KLO_GENCONSTR_INDICATOR);
  // NumEnts: 1 linear entry, 3 PSD objective entries after this.
  const int pos[] = {0, 1, 3};
  const double val[] = {1, 2, 3};
  ASSERT_EQ(KLOsetmatattrelement(model, "PsdObj", 0, 3, 2, 2, pos, val), KLO_OK);
  EXPECT_EQ(intAttr("NumEnts"), 4);
  ASSERT_EQ(KLOaddvar(model, 0, nullptr, nullptr, 0, 0, 5, 'C', "c"), KLO_OK);
  const double objs[] = {3, 4};
  ASSERT_EQ(KLOsetdblattrarray(model, "Obj", 0, 2, objs), KLO_OK);
  EXPECT_EQ(dblArray("Obj", 2), (std::vector<double>{3, 4}));
  EXPECT_EQ(intAttr("NumContVars"), 1);
}

TEST_F(Attributes, ObjectiveNumberSelectsTheObjective) {
  const int ind[] = {0};
  const double val[] = {9};
  ASSERT_EQ(KLOsetobjectiven(model, 1, 3, 0.5, 0.1, 0.2, "second", 4, 1, ind, val), KLO_OK);
  setInt("ObjNumber", 1);
  EXPECT_EQ(intAttr("ObjNPriority"), 3);
  EXPECT_EQ(dbl("ObjNWeight"), 0.5);
  EXPECT_EQ(dbl("ObjNCon"), 4.0);
  EXPECT_EQ(dblAt("ObjN", 0), 9.0);
  ASSERT_EQ(KLOsetdblattr(model, "ObjNRelTol", 0.3), KLO_OK);
  EXPECT_EQ(dbl("ObjNRelTol"), 0.3);
  setInt("ObjNumber", 0);
  EXPECT_EQ(dblAt("ObjN", 0), dblAt("Obj", 0)) << "objective 0 is the model's own";
  setInt("ObjNumber", 2);
  double d = 0;
  EXPECT_EQ(KLOgetdblattr(model, "ObjNCon", &d), KLO_ERROR_INVALID_OBJECTIVE);
  EXPECT_EQ(KLOsetdblattrelement(model, "ObjN", 0, 1), KLO_ERROR_INVALID_OBJECTIVE);
}

struct IntParam {
  const char* name;
  int min, max, def;
};
struct DblParam {
  const char* name;
  double min, max, def;
};

constexpr int kMaxInt = std::numeric_limits<int>::max();

// The documented table of klo_c.h.
// clang-format off
const IntParam kIntParams[] = {
    {"Method", -1, 2, -1}, {"PostScaling", -1, 1, -1}, {"Presolve", -1, 1, -1},
    {"Dualization", -1, 1, -1}, {"OutputFlag", 0, 1, 1}, {"LogToConsole", 0, 1, 1},
    {"NumThreads", -1, 128, -1}, {"EnableNetworkFlow", 0, 1, 0}, {"EnableStochasticLP", 0, 1, 0},
    {"NumericFocus", 0, 3, 0}, {"SPX/ColumnGeneration", 0, 1, 0}, {"SPX/CrashStart", 0, 1, 0},
    {"SPX/MaxIterations", 0, kMaxInt, kMaxInt}, {"SPX/PrimalPricing", -1, 3, -1},
    {"SPX/DualPricing", -1, 3, -1}, {"IPM/MaxIterations", 0, kMaxInt, 500},
    {"IPM/NumericFocus", 0, 1, 0}, {"MIP/LevelCuts", -1, 3, -1}, {"MIP/LevelHeurs", -1, 3, -1},
    {"MIP/LevelProbing", -1, 3, -1}, {"MIP/LevelStrong", -1, 3, -1}, {"MIP/LevelSubmip", -1, 3, -1},
    {"MIP/MaxNodes", 0, kMaxInt, kMaxInt}, {"MIP/RootParallelism", -1, 64, -1},
    {"MIP/AutoConfiguration", -1, 1, -1}, {"MIP/MaxSols", 1, kMaxInt, kMaxInt},
    {"MIP/AllowDualPresolve", -1, 1, -1}, {"MIP/EnableLazyConstr", 0, 1, 0},
    {"MIP/Disconnected", -1, 1, -1}, {"MIP/DetectDisconnectedComponents", -1, 1, -1},
    {"MIP/SolutionPoolSize", 1, 1000, 10}, {"MIP/MaxStallingNodes", -1, kMaxInt, -1},
    {"MIP/SolutionNumber", 0, kMaxInt, 0}, {"MIP/Static", 0, 1, 0},
    {"PDHG/ComputePreference", -1, 1, -1}, {"PDHG/Device", -1, 1, -1},
    {"PDHG/MaxIterations", 0, kMaxInt, kMaxInt}, {"SolutionTarget", -1, 1, -1},
    {"ObjNumber", 0, kMaxInt, 0}};
// clang-format on

// clang-format off
const DblParam kDblParams[] = {
    {"MaxTime", 0, 1e20, 1e20}, {"PresolveTolerance", 0, 1, 1e-9},
    {"SPX/PrimalTolerance", 1e-10, 1e-2, 1e-7}, {"SPX/DualTolerance", 1e-10, 1e-2, 1e-7},
    {"IPM/PrimalTolerance", 1e-12, 1, 1e-8}, {"IPM/DualTolerance", 1e-12, 1, 1e-8},
    {"IPM/GapTolerance", 1e-12, 1, 1e-8}, {"MIP/IntegerTolerance", 1e-9, 0.5, 1e-6},
    {"MIP/ObjectiveTolerance", 0, 1e20, 1e-6}, {"MIP/GapAbs", 0, 1e20, 1e-6},
    {"MIP/GapRel", 0, 1e20, 1e-4}, {"MIP/LinearizationBigM", 0, 1e20, 1e5},
    {"MIP/Cutoff", -1e20, 1e20, 1e20}, {"MIP/Heuristics", 0, 1, 0.05},
    {"MIP/NoRelHeurWork", 0, 1e20, 0}, {"PDHG/DualTolerance", 0, 1, 1e-4},
    {"PDHG/GapTolerance", 0, 1, 1e-4}, {"PDHG/PrimalTolerance", 0, 1, 1e-4}};
// clang-format on

using Params = EnvTest;

TEST_F(Params, EachHasItsDocumentedRangeAndDefaultAndRefusesValuesOutside) {
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
    EXPECT_EQ(KLOsetintparam(env, p.name, p.min), KLO_OK);
    EXPECT_EQ(KLOsetintparam(env, p.name, p.max), KLO_OK);
    if (p.min > std::numeric_limits<int>::min()) {
      EXPECT_EQ(KLOsetintparam(env, p.name, p.min - 1), KLO_ERROR_PARAMETER_RANGE);
    }
    if (p.max < kMaxInt) {
      EXPECT_EQ(KLOsetintparam(env, p.name, p.max + 1), KLO_ERROR_PARAMETER_RANGE);
    }
    ASSERT_EQ(KLOgetintparam(env, p.name, &value), KLO_OK);
    EXPECT_EQ(value, p.max) << "a refused set changed the value";
  }
  for (const DblParam& p : kDblParams) {
    SCOPED_TRACE(p.name);
    double value = 0, mn = 0, mx = 0, def = 0;
    ASSERT_EQ(KLOgetdblparaminfo(env, p.name, &value, &mn, &mx, &def), KLO_OK);
    EXPECT_EQ(mn, p.min);
    EXPECT_EQ(mx, p.max);
    EXPECT_EQ(def, p.def);
    EXPECT_EQ(value, p.def);
    EXPECT_EQ(KLOsetdblparam(env, p.name, p.min), KLO_OK);
    EXPECT_EQ(KLOsetdblparam(env, p.name, p.max), KLO_OK);
    EXPECT_EQ(KLOsetdblparam(env, p.name, std::nextafter(p.max, 1e300)), KLO_ERROR_PARAMETER_RANGE);
    EXPECT_EQ(KLOsetdblparam(env, p.name, std::nextafter(p.min, -1e300)),
              KLO_ERROR_PARAMETER_RANGE);
    EXPECT_EQ(KLOsetdblparam(env, p.name, std::nan("")), KLO_ERROR_PARAMETER_RANGE);
    ASSERT_EQ(KLOgetdblparam(env, p.name, &value), KLO_OK);
    EXPECT_EQ(value, p.max);
  }
  // The one string parameter; information pointers may be null.
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

TEST_F(Params, RefusalsHaveTheirCodesAndChangeNothing) {
  int i = 0;
  double d = 0;
  char s[512] = "x";
  EXPECT_EQ(KLOgetintparam(env, "Bogus", &i), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_NE(lastError().find("Bogus"), std::string::npos);
  EXPECT_EQ(KLOsetdblparam(env, "Bogus2", 1.0), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_NE(lastError().find("Bogus2"), std::string::npos);
  EXPECT_EQ(KLOgetdblparam(env, "maxtime", &d), KLO_ERROR_UNKNOWN_PARAMETER) << "case-sensitive";
  EXPECT_EQ(KLOgetstrparam(env, "", s), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_EQ(KLOgetintparaminfo(env, "Bogus", &i, nullptr, nullptr, nullptr),
            KLO_ERROR_UNKNOWN_PARAMETER);
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
  EXPECT_EQ(KLOgetintparam(nullptr, "Method", &i), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetintparam(env, nullptr, &i), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetintparam(env, "Method", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetdblparam(env, "MaxTime", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOgetstrparam(env, "LogFile", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOsetstrparam(env, "LogFile", nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOsetintparam(nullptr, "Method", 1), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOresetparams(nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOsetstrparam(env, "LogFile", std::string(512, 'a').c_str()),
            KLO_ERROR_PARAMETER_RANGE);
  ASSERT_EQ(KLOgetstrparam(env, "LogFile", s), KLO_OK);
  EXPECT_STREQ(s, "");
  ASSERT_EQ(KLOgetintparam(env, "Method", &i), KLO_OK);
  EXPECT_EQ(i, -1);
}

TEST_F(Params, FilesHoldTheChangedValuesAndReadBack) {
  TempFile prm(".prm"), log(".log");
  ASSERT_EQ(KLOsetintparam(env, "MIP/MaxNodes", 1234), KLO_OK);
  ASSERT_EQ(KLOsetdblparam(env, "MIP/GapRel", 0.1), KLO_OK);  // not exact in binary
  ASSERT_EQ(KLOsetdblparam(env, "MIP/Cutoff", -1e20), KLO_OK);
  ASSERT_EQ(KLOsetstrparam(env, "LogFile", log.c_str()), KLO_OK);
  ASSERT_EQ(KLOwriteparams(env, prm.c_str()), KLO_OK);
  const std::string text = prm.read();
  const std::string lines[] = {"MIP/MaxNodes 1234", "MIP/GapRel 0.1", "MIP/Cutoff -1e+20",
                               "LogToConsole 0", "LogFile " + log.path()};
  for (const std::string& line : lines)
    EXPECT_NE(text.find(line + "\n"), std::string::npos) << line << " in\n" << text;
  EXPECT_EQ(text.find("MaxTime"), std::string::npos) << "only values that are not the default";
  // Read into another environment, the values write the same file again.
  KLOenv* other = nullptr;
  ASSERT_EQ(KLOemptyenv(&other), KLO_OK);
  ASSERT_EQ(KLOreadparams(other, prm.c_str()), KLO_OK) << KLOgeterrormsg(other);
  TempFile again(".prm");
  ASSERT_EQ(KLOwriteparams(other, again.c_str()), KLO_OK);
  EXPECT_EQ(again.read(), text);
  KLOfreeenv(other);
  // Comments, blank lines and spacing of other writers.
  prm.write("# a comment\n\n   Method   1   # trailing comment\n\tMIP/GapAbs\t0.5\r\n");
  ASSERT_EQ(KLOreadparams(env, prm.c_str()), KLO_OK) << lastError();
  int method = 0;
  double gap = 0;
  EXPECT_EQ(KLOgetintparam(env, "Method", &method), KLO_OK);
  EXPECT_EQ(method, 1);
  EXPECT_EQ(KLOgetdblparam(env, "MIP/GapAbs", &gap), KLO_OK);
  EXPECT_EQ(gap, 0.5);
  // Every parameter, the log file too, back at its default: none is written.
  ASSERT_EQ(KLOresetparams(env), KLO_OK);
  ASSERT_EQ(KLOwriteparams(env, prm.c_str()), KLO_OK);
  EXPECT_EQ(prm.read(), "# Parameters that differ from their defaults\n");
}

TEST_F(Params, MalformedFileNamesFileAndLineAndChangesNothing) {
  const std::pair<const char*, const char*> cases[] = {
      {"Bogus 1", "Bogus"},       {"Method", "no value"},           {"Method 1.5", "integer"},
      {"Method 7", "outside"},    {"MaxTime abc", "number"},        {"MaxTime 1 2", "number"},
      {"MaxTime nan", "outside"}, {"Method 99999999999", "integer"}};
  for (const auto& [line, detail] : cases) {
    SCOPED_TRACE(line);
    TempFile prm(".prm");
    prm.write(std::string("Presolve 0\n# comment\n") + line + "\n");
    EXPECT_EQ(KLOreadparams(env, prm.c_str()), KLO_ERROR_FILE_READ);
    EXPECT_NE(lastError().find(prm.path() + ":3"), std::string::npos) << lastError();
    EXPECT_NE(lastError().find(detail), std::string::npos) << lastError();
    int presolve = 0;
    ASSERT_EQ(KLOgetintparam(env, "Presolve", &presolve), KLO_OK);
    EXPECT_EQ(presolve, -1) << "the good first line was applied";
  }
  EXPECT_EQ(KLOreadparams(env, "/nonexistent/dir/x.prm"), KLO_ERROR_FILE_OPEN);
  EXPECT_NE(lastError().find("/nonexistent/dir/x.prm"), std::string::npos);
  EXPECT_EQ(KLOwriteparams(env, "/nonexistent/dir/x.prm"), KLO_ERROR_FILE_WRITE);
  EXPECT_EQ(KLOreadparams(env, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

TEST(Environment, StartNullArgumentsAndErrorsPerEnvironment) {
  KLOenv* env = nullptr;
  ASSERT_EQ(KLOemptyenv(&env), KLO_OK);
  KLOmodel* model = nullptr;
  EXPECT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_ENV_NOT_STARTED);
  EXPECT_EQ(model, nullptr);
  EXPECT_NE(std::string(KLOgeterrormsg(env)).find("started"), std::string::npos);
  KLOenv* other = nullptr;
  ASSERT_EQ(KLOemptyenv(&other), KLO_OK);
  EXPECT_EQ(KLOsetintparam(other, "NoSuchThing", 1), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_NE(std::string(KLOgeterrormsg(other)).find("NoSuchThing"), std::string::npos);
  EXPECT_NE(std::string(KLOgeterrormsg(env)).find("started"), std::string::npos) << "kept apart";
  KLOfreeenv(other);
  ASSERT_EQ(KLOstartenv(env), KLO_OK);
  EXPECT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr), KLO_OK);
  KLOfreemodel(model);
  EXPECT_EQ(KLOfreeenv(env), KLO_OK);
  EXPECT_EQ(KLOemptyenv(nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOloadenv(nullptr, nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOstartenv(nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOmsg(nullptr, "x"), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOfreeenv(nullptr), KLO_OK);  // like free(NULL)
  EXPECT_STREQ(KLOgeterrormsg(nullptr), "");
  EXPECT_EQ(KLOloadenv(&env, "/nonexistent/dir/klo.log"), KLO_ERROR_FILE_OPEN);
  ASSERT_NE(env, nullptr) << "the environment is handed out so its error can be read";
  EXPECT_NE(std::string(KLOgeterrormsg(env)).find("/nonexistent/dir/klo.log"), std::string::npos);
  KLOfreeenv(env);
}

TEST(ExplainError, EveryCodeHasItsOwnTextAndUnknownCodesTheirNumber) {
  // clang-format off
  const int codes[] = {
    KLO_OK, KLO_ERROR_INTERNAL, KLO_ERROR_OUT_OF_MEMORY, KLO_ERROR_INVALID_ARGUMENT,
    KLO_ERROR_NULL_ARGUMENT, KLO_ERROR_NOT_SUPPORTED, KLO_ERROR_DATA_NOT_AVAILABLE,
    KLO_ERROR_ENV_NOT_STARTED, KLO_ERROR_BUSY, KLO_ERROR_UNKNOWN_ATTRIBUTE,
    KLO_ERROR_ATTRIBUTE_TYPE, KLO_ERROR_ATTRIBUTE_LEVEL, KLO_ERROR_ATTRIBUTE_READONLY,
    KLO_ERROR_UNKNOWN_PARAMETER, KLO_ERROR_PARAMETER_TYPE, KLO_ERROR_PARAMETER_RANGE,
    KLO_ERROR_INDEX_OUT_OF_RANGE, KLO_ERROR_INVALID_CONSTR, KLO_ERROR_INVALID_VAR,
    KLO_ERROR_INVALID_PSDVAR, KLO_ERROR_INVALID_SOS, KLO_ERROR_INVALID_GENCONSTR,
    KLO_ERROR_INVALID_OBJECTIVE, KLO_ERROR_FILE_OPEN, KLO_ERROR_FILE_READ, KLO_ERROR_FILE_WRITE,
    KLO_ERROR_FILE_FORMAT, KLO_ERROR_CALLBACK_INFO, KLO_ERROR_NOT_IN_CALLBACK,
    KLO_ERROR_CALLBACK_WHERE, KLO_CB_REJECTED, KLO_CB_NOT_IMPROVING, KLO_CB_IGNORED};
  // clang-format on
  std::set<std::string> texts;
  for (int code : codes) {
    const char* text = KLOexplainerror(code);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::string(text).find("Unknown error code"), std::string::npos) << code;
    EXPECT_TRUE(texts.insert(text).second) << "duplicate text for " << code;
  }
  EXPECT_STREQ(KLOexplainerror(KLO_OK), "Success");
  EXPECT_STREQ(KLOexplainerror(1001), "Unknown error code 1001");
  EXPECT_STREQ(KLOexplainerror(-424242), "Unknown error code -424242");
}

class Log : public ::testing::Test {
 protected:
  void SetUp() override {
    log.write("earlier\n");
    ASSERT_EQ(KLOloadenv(&env, log.c_str()), KLO_OK);
  }
  void TearDown() override { KLOfreeenv(env); }
  TempFile log{".log"};
  KLOenv* env = nullptr;
};

TEST_F(Log, MessagesAreAppendedAndReachTheConsoleOnlyWhenBothFlagsAreOn) {
  ::testing::internal::CaptureStdout();
  EXPECT_EQ(KLOmsg(env, "to console"), KLO_OK);
  KLOsetintparam(env, "LogToConsole", 0);
  EXPECT_EQ(KLOmsg(env, "file only"), KLO_OK);
  KLOsetintparam(env, "LogToConsole", 1);
  KLOsetintparam(env, "OutputFlag", 0);
  KLOmsg(env, "nowhere");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "to console\n");
  EXPECT_EQ(log.read(), "earlier\nto console\nfile only\n");
  EXPECT_EQ(KLOmsg(env, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(Log, ChangingTheLogFileRedirectsAnUnwritableOneIsRefusedAndEmptyStops) {
  ASSERT_EQ(KLOsetintparam(env, "LogToConsole", 0), KLO_OK);
  EXPECT_EQ(KLOsetstrparam(env, "LogFile", "/nonexistent/dir/x.log"), KLO_ERROR_FILE_OPEN);
  char file[512];
  ASSERT_EQ(KLOgetstrparam(env, "LogFile", file), KLO_OK);
  EXPECT_EQ(std::string(file), log.path());
  KLOmsg(env, "still here");
  TempFile second(".log");
  ASSERT_EQ(KLOsetstrparam(env, "LogFile", second.c_str()), KLO_OK);
  KLOmsg(env, "moved");
  ASSERT_EQ(KLOsetstrparam(env, "LogFile", ""), KLO_OK);
  KLOmsg(env, "dropped");
  EXPECT_EQ(log.read(), "earlier\nstill here\n");
  EXPECT_EQ(second.read(), "moved\n");
}

}  // namespace
}  // namespace klotest
