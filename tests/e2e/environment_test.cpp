// The object layer's environments and parameters against the solver
// library itself: what the library accepts and refuses reaches the user
// through KLOEnv and KLOModel unchanged.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "klo_cpp.h"

namespace {

// A started environment that writes no log.
KLOEnv& quietEnv(KLOEnv& env) {
  env.set(KLO_IntParam_OutputFlag, 0);
  env.start();
  return env;
}

TEST(LibraryEnvironment, ByNameSettingFindsTheParametersType) {
  KLOEnv env(true);
  env.set("MIP/MaxNodes", "12");
  env.set("MaxTime", "1.5");
  env.set("Presolve", "0.7");  // the integer attempt takes the leading 0
  EXPECT_EQ(env.get(KLO_IntParam_MIP_MaxNodes), 12);
  EXPECT_EQ(env.get(KLO_DoubleParam_MaxTime), 1.5);
  EXPECT_EQ(env.get(KLO_IntParam_Presolve), 0);
}

TEST(LibraryEnvironment, ModelByNameSettingReadsOnFromTheIntegerRead) {
  KLOEnv env(true);
  KLOModel model(quietEnv(env));
  model.set("MaxTime", "1.5");
  EXPECT_EQ(model.get(KLO_DoubleParam_MaxTime), 0.51);
  EXPECT_EQ(env.get(KLO_DoubleParam_MaxTime), 1e20);  // the model has its own copy
}

TEST(LibraryEnvironment, RefusalsCarryTheLibrarysCodesAndDetail) {
  KLOEnv env(true);
  try {
    env.set("NoSuchParameter", "1");
    FAIL() << "unknown name accepted";
  } catch (const KLOException& e) {
    EXPECT_EQ(e.getErrorCode(), -1005);
    EXPECT_NE(env.getErrorMsg().find("NoSuchParameter"), std::string::npos);
  }
  try {
    env.set(KLO_IntParam_Method, 7);
    FAIL() << "out-of-range value accepted";
  } catch (const KLOException& e) {
    EXPECT_EQ(e.getErrorCode(), -1007);
  }
  EXPECT_EQ(env.get(KLO_IntParam_Method), -1);
}

TEST(LibraryEnvironment, ParameterInfoAndReset) {
  KLOEnv env(true);
  env.set(KLO_IntParam_Method, 2);
  int value = 0, min = 0, max = 0, def = 0;
  env.getParamInfo(KLO_IntParam_Method, &value, &min, &max, &def);
  EXPECT_EQ(value, 2);
  EXPECT_LE(min, def);
  EXPECT_LE(def, max);
  env.resetParams();
  EXPECT_EQ(env.get(KLO_IntParam_Method), def);
}

TEST(LibraryEnvironment, LentEnvironmentDiesWithItsModel) {
  KLOEnv env(true);
  auto model = std::make_unique<KLOModel>(quietEnv(env));
  KLOEnv lent = model->getEnv();
  lent.set(KLO_DoubleParam_MaxTime, 30.0);
  EXPECT_EQ(model->get(KLO_DoubleParam_MaxTime), 30.0);
  model.reset();
  try {
    lent.get(KLO_DoubleParam_MaxTime);
    FAIL() << "released environment answered";
  } catch (const KLOException& e) {
    EXPECT_EQ(e.getErrorCode(), -100000);
  }
}

TEST(LibraryEnvironment, VariablesAndTheirAttributes) {
  KLOEnv env(true);
  KLOModel model(quietEnv(env));
  KLOVar x = model.addVar(0.0, 4.0, 1.0, 'I', "x");
  KLOVar y = model.addVar(0.0, 1.0, 0.0, 'C', "y");
  EXPECT_EQ(model.get(KLO_IntAttr_NumVars), 2);
  EXPECT_EQ(x.get(KLO_StringAttr_VarName), "x");
  EXPECT_EQ(x.get(KLO_CharAttr_VType), 'I');
  EXPECT_TRUE(model.getVarByName("y").sameAs(y));
  model.remove(x);
  EXPECT_EQ(y.index(), 0);
  EXPECT_EQ(model.get(KLO_IntAttr_NumVars), 1);
  EXPECT_EQ(model.getVarByName("y").get(KLO_DoubleAttr_UB), 1.0);
}

}  // namespace
