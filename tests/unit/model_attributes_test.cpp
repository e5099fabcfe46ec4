// Attributes and parameters through the model: whole-model attributes, the
// array forms over handles, and the model's own by-name setting.
#include "model_fixture.h"

namespace {

class ModelAttributes : public ModelTest {};

TEST_F(ModelAttributes, WholeModelAttributesByTableName) {
  KLOModel model(env);
  klo_fake::reset();
  klo_fake::on("KLOgetintattr").out(2, 4LL);
  klo_fake::on("KLOgetdblattr").out(2, 1.25);
  klo_fake::on("KLOgetstrattr").out(2, std::string("diet"));
  EXPECT_EQ(model.get(static_cast<KLO_IntAttr>(5)), 4);
  EXPECT_EQ(model.get(KLO_IntAttr_NumBinVars), 4);
  EXPECT_EQ(model.get(KLO_DoubleAttr_ObjVal), 1.25);
  EXPECT_EQ(model.get(KLO_StringAttr_ModelName), "diet");
  model.set(KLO_IntAttr_ModelSense, -1);
  model.set(KLO_DoubleAttr_ObjCon, 0.5);
  model.set(KLO_StringAttr_ProbName, "p");
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOgetintattr(ptr, \"NumVars\", ptr)", "KLOgetintattr(ptr, \"NumBinVars\", ptr)",
             "KLOgetdblattr(ptr, \"ObjVal\", ptr)", "KLOgetstrattr(ptr, \"ModelName\", ptr)",
             "KLOsetintattr(ptr, \"ModelSense\", -1)", "KLOsetdblattr(ptr, \"ObjCon\", 0.5)",
             "KLOsetstrattr(ptr, \"ProbName\", \"p\")"}));
}

TEST_F(ModelAttributes, EmptyArrayGetAllocatesAndCallsNothing) {
  KLOModel model(env);
  klo_fake::reset();
  std::unique_ptr<double[]> values(
      model.get(KLO_DoubleAttr_X, static_cast<const KLOVar*>(nullptr), 0));
  EXPECT_NE(values, nullptr);
  EXPECT_TRUE(klo_fake::calls().empty());
}

TEST_F(ModelAttributes, ArrayGetReadsEachHandleInOrder) {
  auto model = readModel(3, 0);
  klo_fake::on("KLOgetdblattrelement").outs(3, {1.5, 2.5, 3.5});
  const auto& vars = Access::vars(*model);
  const KLOVar order[] = {vars[2], vars[0], vars[1]};
  std::unique_ptr<double[]> x(model->get(KLO_DoubleAttr_X, order, 3));
  EXPECT_EQ((std::vector<double>{x[0], x[1], x[2]}), (std::vector<double>{1.5, 2.5, 3.5}));
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetdblattrelement(ptr, \"X\", 2, ptr)",
                                     "KLOgetdblattrelement(ptr, \"X\", 0, ptr)",
                                     "KLOgetdblattrelement(ptr, \"X\", 1, ptr)"}));
}

TEST_F(ModelAttributes, ArrayGetStopsAtARemovedElement) {
  auto model = readModel(4, 4);
  const std::vector<KLOVar> vars = Access::vars(*model);
  const std::vector<KLOConstr> constrs = Access::constrs(*model);
  model->remove(vars[2]);
  model->remove(constrs[2]);
  klo_fake::reset();
  EXPECT_EQ(thrown([&] { model->get(KLO_DoubleAttr_LB, vars.data(), 4); }).getErrorCode(), -2003);
  EXPECT_EQ(klo_fake::functions(),
            (std::vector<std::string>{"KLOgetdblattrelement", "KLOgetdblattrelement",
                                      "KLOexplainerror"}));
  klo_fake::reset();
  EXPECT_EQ(
      thrown([&] { model->get(KLO_StringAttr_ConstrName, constrs.data(), 4); }).getErrorCode(),
      -2002);
  EXPECT_EQ(klo_fake::functions().size(), 3u);
}

TEST_F(ModelAttributes, ArraySetStopsAtTheFirstFailureKeepingEarlierOnes) {
  auto model = readModel(3, 0);
  klo_fake::on("KLOsetdblattrelement").statuses({0, -1004, 0});
  const double ub[] = {1, 2, 3};
  EXPECT_EQ(thrown([&] {
              model->set(KLO_DoubleAttr_UB, Access::vars(*model).data(), ub, 3);
            }).getErrorCode(),
            -1004);
  EXPECT_EQ(klo_fake::callsOf("KLOsetdblattrelement").size(), 2u);
}

TEST_F(ModelAttributes, ArrayFormsOfEveryHandleKind) {
  auto model = readModel(2, 2, 2, 0, 2);
  klo_fake::on("KLOgetmatattrelement").out(3, 0LL).out(4, 1LL).out(5, 1LL);
  const std::string names[] = {"a", "b"};
  std::string mutableNames[] = {"p", "q"};
  const double values[] = {1.5, 2.5};
  const int ints[] = {1, 0};
  const char types[] = {'I', 'B'};
  const KLOMatrix mats[] = {KLOMatrix::identity(1), KLOMatrix::zero(1, 1)};
  delete[] model->get(KLO_IntAttr_RowBasis, Access::constrs(*model).data(), 2);
  model->set(KLO_CharAttr_VType, Access::vars(*model).data(), types, 2);
  delete[] model->get(KLO_DoubleAttr_QCRHS, Access::qconstrs(*model).data(), 2);
  model->set(KLO_StringAttr_QCName, Access::qconstrs(*model).data(), names, 2);
  delete[] model->get(KLO_IntAttr_GenConstrType, Access::genconstrs(*model).data(), 2);
  model->set(KLO_StringAttr_GenConstrName, Access::genconstrs(*model).data(), names, 2);
  delete[] model->get(KLO_MatAttr_PsdX, Access::psdvars(*model).data(), 2);
  model->set(KLO_MatAttr_PsdObj, Access::psdvars(*model).data(), mats, 2);
  model->set(KLO_StringAttr_PsdVarName, Access::psdvars(*model).data(), mutableNames, 2);
  model->set(KLO_IntAttr_Dim, Access::psdvars(*model).data(), ints, 2);
  model->set(KLO_DoubleAttr_PsdCRHS, Access::psdconstrs(*model).data(), values, 2);
  delete[] model->get(KLO_StringAttr_PsdCName, Access::psdconstrs(*model).data(), 2);
  const Calls calls = klo_fake::strs();
  ASSERT_EQ(calls.size(), 26u);
  EXPECT_EQ(calls[1], "KLOgetintattrelement(ptr, \"RowBasis\", 1, ptr)");
  EXPECT_EQ(calls[3], "KLOsetcharattrelement(ptr, \"VType\", 1, 'B')");
  // Quadratic rows are numbered one past their linear row.
  EXPECT_EQ(calls[4], "KLOgetdblattrelement(ptr, \"QCRHS\", 1, ptr)");
  EXPECT_EQ(calls[7], "KLOsetstrattrelement(ptr, \"QCName\", 2, \"b\")");
  EXPECT_EQ(calls[9], "KLOgetintattrelement(ptr, \"GenConstrType\", 1, ptr)");
  EXPECT_EQ(calls[12], "KLOgetmatattrelement(ptr, \"PsdX\", 0, ptr, ptr, ptr, null, null)");
  EXPECT_EQ(calls[16], "KLOsetmatattrelement(ptr, \"PsdObj\", 0, 1, 1, 1, [0], [1])");
  EXPECT_EQ(calls[17], "KLOsetmatattrelement(ptr, \"PsdObj\", 1, 0, 1, 1, [], [])");
  EXPECT_EQ(calls[19], "KLOsetstrattrelement(ptr, \"PsdVarName\", 1, \"q\")");
  EXPECT_EQ(calls[21], "KLOsetintattrelement(ptr, \"Dim\", 1, 0)");
  EXPECT_EQ(calls[23], "KLOsetdblattrelement(ptr, \"PsdCRHS\", 1, 2.5)");
  EXPECT_EQ(calls[25], "KLOgetstrattrelement(ptr, \"PsdCName\", 1, ptr)");
}

// --- parameters of the model's environment ----------------------------------

TEST_F(ModelAttributes, ParametersFetchTheEnvironmentEveryTime) {
  KLOModel model(env);
  klo_fake::reset();
  klo_fake::on("KLOgetdblparam").out(2, 60.0);
  EXPECT_EQ(model.get(KLO_DoubleParam_MaxTime), 60.0);
  model.set(KLO_IntParam_OutputFlag, 0);
  model.set(KLO_StringParam_LogFile, "m.log");
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOgetenv(ptr)", "KLOgetdblparam(ptr, \"MaxTime\", ptr)", "KLOgetenv(ptr)",
                   "KLOsetintparam(ptr, \"OutputFlag\", 0)", "KLOgetenv(ptr)",
                   "KLOsetstrparam(ptr, \"LogFile\", \"m.log\")"}));
}

TEST_F(ModelAttributes, ByNameIntegerAttemptSucceeds) {
  KLOModel model(env);
  klo_fake::reset();
  model.set("MIP/MaxNodes", "12");
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOgetenv(ptr)", "KLOsetintparam(ptr, \"MIP/MaxNodes\", 12)"}));
}

TEST_F(ModelAttributes, ByNameDoubleReadsOnFromTheIntegerRead) {
  KLOModel model(env);
  klo_fake::reset();
  klo_fake::on("KLOsetintparam").status(-1006);
  model.set("MaxTime", "1.5");
  model.set("MaxTime", "10");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetenv(ptr)", "KLOsetintparam(ptr, \"MaxTime\", 1)",
                                     "KLOgetenv(ptr)", "KLOsetdblparam(ptr, \"MaxTime\", 0.51)",
                                     "KLOgetenv(ptr)", "KLOsetintparam(ptr, \"MaxTime\", 10)",
                                     "KLOgetenv(ptr)", "KLOsetdblparam(ptr, \"MaxTime\", 1e+01)"}));
  EXPECT_EQ(klo_fake::callsOf("KLOsetdblparam")[1].real(2), 10.0);
}

TEST_F(ModelAttributes, ByNameTextEndsInTheStringAttempt) {
  KLOModel model(env);
  klo_fake::reset();
  klo_fake::on("KLOsetintparam").status(-1006);
  klo_fake::on("KLOsetdblparam").status(-1006);
  klo_fake::on("KLOsetstrparam").status(-1005);
  EXPECT_EQ(thrown([&] { model.set("LogFile", "run.log"); }).getErrorCode(), -1005);
  EXPECT_EQ(klo_fake::callsOf("KLOsetstrparam")[0].text(2), "run.log");
  EXPECT_EQ(klo_fake::callsOf("KLOsetdblparam")[0].real(2), 0.0);
}

}  // namespace
