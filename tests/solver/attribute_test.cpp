// Attributes: every name with its type, level and access; synonyms;
// results before a solve; wrong kind, level and read-only access.
#include <string>
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

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
const AttrCase kAttrs[] = {
    {"ModelSense", Int, Model, true, false},
    {"MinSense", Int, Model, true, false},
    {"HasSolution", Int, Model, false, false},
    {"HasPrimalRay", Int, Model, false, false},
    {"HasDualRay", Int, Model, false, false},
    {"NumVars", Int, Model, false, false},
    {"NumConss", Int, Model, false, false},
    {"NumConstrs", Int, Model, false, false},
    {"NumQConstrs", Int, Model, false, false},
    {"NumSOS", Int, Model, false, false},
    {"NumGenConstrs", Int, Model, false, false},
    {"NumEnts", Int, Model, false, false},
    {"NumNZs", Int, Model, false, false},
    {"SPX/NumIters", Int, Model, false, true},
    {"IPM/NumIters", Int, Model, false, true},
    {"IsInteger", Int, Model, false, false},
    {"IISVar", Int, Var, false, true},
    {"IISConstr", Int, Row, false, true},
    {"IISCol", Int, Var, false, true},
    {"IISRow", Int, Row, false, true},
    {"ColBasis", Int, Var, true, true},
    {"RowBasis", Int, Row, true, true},
    {"GenConstrType", Int, Gen, false, false},
    {"Status", Int, Model, false, false},
    {"Dim", Int, Psd, false, false},
    {"NumPsdVars", Int, Model, false, false},
    {"NumPsdConstrs", Int, Model, false, false},
    {"SolCount", Int, Model, false, false},
    {"NumObj", Int, Model, false, false},
    {"ObjNPriority", Int, Model, true, false},
    {"NumContVars", Int, Model, false, false},
    {"NumIntVars", Int, Model, false, false},
    {"NumBinVars", Int, Model, false, false},
    {"ObjConst", Dbl, Model, true, false},
    {"ObjCon", Dbl, Model, true, false},
    {"PrimalObjVal", Dbl, Model, false, true},
    {"ObjVal", Dbl, Model, false, true},
    {"PoolNObjVal", Dbl, Model, false, true},
    {"DualObjVal", Dbl, Model, false, true},
    {"PresolverTime", Dbl, Model, false, true},
    {"SolverTime", Dbl, Model, false, true},
    {"SolutionTime", Dbl, Model, false, true},
    {"MIP/GapAbs", Dbl, Model, false, true},
    {"MIP/GapRel", Dbl, Model, false, true},
    {"LB", Dbl, Var, true, false},
    {"UB", Dbl, Var, true, false},
    {"Obj", Dbl, Var, true, false},
    {"LHS", Dbl, Row, true, false},
    {"RHS", Dbl, Row, true, false},
    {"QCLHS", Dbl, Row, true, false},
    {"QCRHS", Dbl, Row, true, false},
    {"PrimalSoln", Dbl, Var, false, true},
    {"X", Dbl, Var, false, true},
    {"PoolNX", Dbl, Var, false, true},
    {"Xn", Dbl, Var, false, true},
    {"Start", Dbl, Var, true, false},
    {"DualSoln", Dbl, Row, false, true},
    {"Activity", Dbl, Row, false, true},
    {"ReducedCost", Dbl, Var, false, true},
    {"RC", Dbl, Var, false, true},
    {"PsdCLHS", Dbl, Row, true, false},
    {"PsdCRHS", Dbl, Row, true, false},
    {"ObjN", Dbl, Var, true, false},
    {"ObjNCon", Dbl, Model, true, false},
    {"ObjNVal", Dbl, Model, false, true},
    {"ObjNWeight", Dbl, Model, true, false},
    {"ObjNRelTol", Dbl, Model, true, false},
    {"ObjNAbsTol", Dbl, Model, true, false},
    {"VType", Chr, Var, true, false},
    {"ProbName", Str, Model, true, false},
    {"ModelName", Str, Model, true, false},
    {"RowName", Str, Row, true, false},
    {"ConstrName", Str, Row, true, false},
    {"QCName", Str, Row, true, false},
    {"ColName", Str, Var, true, false},
    {"VarName", Str, Var, true, false},
    {"PsdVarName", Str, Psd, true, false},
    {"PsdCName", Str, Row, true, false},
    {"GenConstrName", Str, Gen, true, false},
    {"PsdX", Mat, Psd, false, true},
    {"PsdObj", Mat, Psd, true, false},
};

// A model with one element of every kind, each at index 0.
class Attributes : public klotest::ModelTest {
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
    int nnz = 0;
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
        return KLOgetmatattrelement(model, c.name, 0, &nnz, nullptr, nullptr, nullptr, nullptr);
    }
  }
};

TEST_F(Attributes, EveryAttributeIsReadableAtItsLevelOrHasNoDataYet) {
  for (const AttrCase& c : kAttrs) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(read(c), c.result ? KLO_ERROR_DATA_NOT_AVAILABLE : KLO_OK) << modelError();
  }
}

TEST_F(Attributes, ReadOnlyAttributesRefuseSetting) {
  for (const AttrCase& c : kAttrs) {
    if (c.settable) continue;
    SCOPED_TRACE(c.name);
    int status;
    switch (c.type) {
      case Int:
        status = c.level == Model ? KLOsetintattr(model, c.name, 1)
                                  : KLOsetintattrelement(model, c.name, 0, 1);
        break;
      case Dbl:
        status = c.level == Model ? KLOsetdblattr(model, c.name, 1)
                                  : KLOsetdblattrelement(model, c.name, 0, 1);
        break;
      default: {
        const int pos = 0;
        const double v = 1;
        status = KLOsetmatattrelement(model, c.name, 0, 1, 2, 2, &pos, &v);
      }
    }
    EXPECT_EQ(status, KLO_ERROR_ATTRIBUTE_READONLY);
    EXPECT_NE(modelError().find(c.name), std::string::npos);
  }
}

TEST_F(Attributes, WrongTypeAndWrongLevelHaveTheirOwnCodes) {
  int i = 0;
  double d = 0;
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
}

TEST_F(Attributes, ElementIndexErrorsNameTheirKind) {
  double d = 0;
  int i = 0;
  const char* s = nullptr;
  EXPECT_EQ(KLOgetdblattrelement(model, "LB", 1, &d), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOgetdblattrelement(model, "RHS", -1, &d), KLO_ERROR_INVALID_CONSTR);
  EXPECT_EQ(KLOgetintattrelement(model, "Dim", 1, &i), KLO_ERROR_INVALID_PSDVAR);
  EXPECT_EQ(KLOgetstrattrelement(model, "GenConstrName", 1, &s), KLO_ERROR_INVALID_GENCONSTR);
  double v[2];
  EXPECT_EQ(KLOgetdblattrarray(model, "LB", 0, 2, v), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOgetdblattrarray(model, "LB", 0, -1, v), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOgetdblattrarray(model, "LB", 1, 0, v), KLO_OK);
}

TEST_F(Attributes, SynonymsShareTheirValue) {
  ASSERT_EQ(KLOsetdblattr(model, "ObjCon", 2.5), KLO_OK);
  double d = 0;
  ASSERT_EQ(KLOgetdblattr(model, "ObjConst", &d), KLO_OK);
  EXPECT_EQ(d, 2.5);
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
  EXPECT_STREQ(s, "col");
  ASSERT_EQ(KLOsetdblattrelement(model, "QCRHS", 0, 0.75), KLO_OK);
  EXPECT_EQ(dblAt("RHS", 0), 0.75);
  EXPECT_EQ(dblAt("PsdCRHS", 0), 0.75);
  ASSERT_EQ(KLOsetdblattrelement(model, "PsdCLHS", 0, -0.5), KLO_OK);
  EXPECT_EQ(dblAt("LHS", 0), -0.5);
  EXPECT_EQ(intAttr("NumConss"), intAttr("NumConstrs"));
}

TEST_F(Attributes, SenseAttributesAgree) {
  EXPECT_EQ(intAttr("ModelSense"), KLO_MINIMIZE);
  EXPECT_EQ(intAttr("MinSense"), 1);
  ASSERT_EQ(KLOsetintattr(model, "ModelSense", KLO_MAXIMIZE), KLO_OK);
  EXPECT_EQ(intAttr("MinSense"), 0);
  ASSERT_EQ(KLOsetintattr(model, "MinSense", 1), KLO_OK);
  EXPECT_EQ(intAttr("ModelSense"), 1);
  EXPECT_EQ(KLOsetintattr(model, "ModelSense", 0), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOsetintattr(model, "MinSense", 2), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(intAttr("ModelSense"), 1);
}

TEST_F(Attributes, CountsFollowTheModel) {
  EXPECT_EQ(intAttr("NumVars"), 1);
  EXPECT_EQ(intAttr("NumBinVars"), 1);
  EXPECT_EQ(intAttr("IsInteger"), 1);
  EXPECT_EQ(intAttr("NumPsdVars"), 1);
  EXPECT_EQ(intAttr("NumGenConstrs"), 1);
  EXPECT_EQ(intAttr("NumQConstrs"), 0);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_UNSTARTED);
  EXPECT_EQ(intAttr("HasSolution"), 0);
  EXPECT_EQ(intAttr("SolCount"), 0);
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
}

TEST_F(Attributes, ArraySetsAreAllOrNothing) {
  ASSERT_EQ(KLOaddvar(model, 0, nullptr, nullptr, 0, 0, 5, 'C', "c"), KLO_OK);
  std::string before = klotest::snapshot(model);
  const double lbs[] = {0, NAN};
  EXPECT_EQ(KLOsetdblattrarray(model, "LB", 0, 2, lbs), KLO_ERROR_INVALID_ARGUMENT);
  const char types[] = {'I', 'Q'};
  EXPECT_EQ(KLOsetcharattrarray(model, "VType", 0, 2, types), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOsetdblattrarray(model, "Obj", 0, 3, lbs), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOsetdblattrarray(model, "Obj", 0, 2, nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(klotest::snapshot(model), before);
  const double objs[] = {3, 4};
  ASSERT_EQ(KLOsetdblattrarray(model, "Obj", 0, 2, objs), KLO_OK);
  double back[2];
  ASSERT_EQ(KLOgetdblattrarray(model, "Obj", 0, 2, back), KLO_OK);
  EXPECT_EQ(back[1], 4.0);
  const int basis[] = {KLO_BASIS_BASIC, 7};
  EXPECT_EQ(KLOsetintattrarray(model, "ColBasis", 0, 2, basis), KLO_ERROR_INVALID_ARGUMENT);
  int got = -1;
  EXPECT_EQ(KLOgetintattrelement(model, "ColBasis", 0, &got), KLO_ERROR_DATA_NOT_AVAILABLE);
}

TEST_F(Attributes, ObjectiveNumberSelectsTheObjective) {
  KLOenv* menv = KLOgetenv(model);
  const int ind[] = {0};
  const double val[] = {9};
  ASSERT_EQ(KLOsetobjectiven(model, 1, 3, 0.5, 0.1, 0.2, "second", 4, 1, ind, val), KLO_OK);
  ASSERT_EQ(KLOsetintparam(menv, "ObjNumber", 1), KLO_OK);
  EXPECT_EQ(intAttr("ObjNPriority"), 3);
  double d = 0;
  ASSERT_EQ(KLOgetdblattr(model, "ObjNWeight", &d), KLO_OK);
  EXPECT_EQ(d, 0.5);
  ASSERT_EQ(KLOgetdblattr(model, "ObjNCon", &d), KLO_OK);
  EXPECT_EQ(d, 4.0);
  EXPECT_EQ(dblAt("ObjN", 0), 9.0);
  ASSERT_EQ(KLOsetdblattr(model, "ObjNRelTol", 0.3), KLO_OK);
  ASSERT_EQ(KLOgetdblattr(model, "ObjNRelTol", &d), KLO_OK);
  EXPECT_EQ(d, 0.3);
  EXPECT_EQ(KLOsetdblattr(model, "ObjNAbsTol", -1), KLO_ERROR_INVALID_ARGUMENT);
  // Objective 0 is the model's own objective.
  ASSERT_EQ(KLOsetintparam(menv, "ObjNumber", 0), KLO_OK);
  EXPECT_EQ(dblAt("ObjN", 0), dblAt("Obj", 0));
  ASSERT_EQ(KLOsetintparam(menv, "ObjNumber", 2), KLO_OK);
  EXPECT_EQ(KLOgetdblattr(model, "ObjNCon", &d), KLO_ERROR_INVALID_OBJECTIVE);
  EXPECT_EQ(KLOsetdblattrelement(model, "ObjN", 0, 1), KLO_ERROR_INVALID_OBJECTIVE);
  EXPECT_EQ(KLOsetobjectiven(model, -1, 0, 1, 0, 0, "", 0, 0, nullptr, nullptr),
            KLO_ERROR_INVALID_OBJECTIVE);
}

TEST_F(Attributes, StringResultsStayValidUntilTheNameChanges) {
  const char* s = nullptr;
  ASSERT_EQ(KLOgetstrattrelement(model, "VarName", 0, &s), KLO_OK);
  int n = 0;
  ASSERT_EQ(KLOgetintattr(model, "NumVars", &n), KLO_OK);
  EXPECT_STREQ(s, "b");
  EXPECT_EQ(KLOsetstrattrelement(model, "VarName", 0, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

}  // namespace
