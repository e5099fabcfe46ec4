// Handles and attributes: identity, typed element attributes by table name,
// the removed-element codes, empty handles, whole-model attributes and the
// array forms over handles of every kind.
#include "fixture.h"
#include "model/records.h"

namespace {

using klo_detail::newHandle;

class Handles : public FakeTest {
 protected:
  int modelStandIn = 0;
  void* model = &modelStandIn;
};

TEST_F(Handles, CopiesShareTheRecordWhileEqualIndicesDoNot) {
  KLOVar x = newHandle<KLOVar>(model, 3);
  const KLOVar copy = x;
  int otherModel = 0;
  EXPECT_TRUE(copy.sameAs(x));
  EXPECT_FALSE(newHandle<KLOVar>(&otherModel, 3).sameAs(x));
  klo_detail::renumber(x, 7);
  EXPECT_EQ(copy.index(), 7);
}

TEST_F(Handles, ElementAttributesGoToTheElementFunctionsByTableName) {
  KLOVar x = newHandle<KLOVar>(model, 4);
  KLOConstr c = newHandle<KLOConstr>(model, 0);
  KLOPsdVar p = newHandle<KLOPsdVar>(model, 1);
  klo_fake::on("KLOgetdblattrelement", "X").out(3, 2.5);
  klo_fake::on("KLOgetintattrelement").out(3, 1LL);
  klo_fake::on("KLOgetcharattrelement").out(3, 'I');
  klo_fake::on("KLOgetstrattrelement").out(3, std::string("flow"));
  script(klo_fake::on("KLOgetmatattrelement"),
         {{3, 2LL}, {4, 2LL}, {5, 2LL}, {6, Ints{0, 3}}, {7, Doubles{1.5, 2.5}}});
  EXPECT_EQ(x.get(KLO_DoubleAttr_X), 2.5);
  EXPECT_EQ(x.get(KLO_IntAttr_ColBasis), 1);
  EXPECT_EQ(x.get(static_cast<KLO_CharAttr>(3)), 'I');
  EXPECT_EQ(x.get(KLO_StringAttr_VarName), "flow");
  x.set(KLO_DoubleAttr_UB, 7.5);
  x.set(KLO_IntAttr_ColBasis, 2);
  x.set(KLO_CharAttr_VType, 'B');
  x.set(KLO_StringAttr_VarName, "y");
  c.get(KLO_CharAttr_VType);
  c.set(KLO_CharAttr_VType, 'C');
  const KLOMatrix m = p.get(KLO_MatAttr_PsdX);  // the size first, then the entries
  p.set(KLO_MatAttr_PsdObj, KLOMatrix::sparse(2, 2, {0, 1}, {1, 1}, {4.0, 5.0}));
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOgetdblattrelement(ptr, \"X\", 4, ptr)",
                   "KLOgetintattrelement(ptr, \"ColBasis\", 4, ptr)",
                   "KLOgetcharattrelement(ptr, \"VType\", 4, ptr)",
                   "KLOgetstrattrelement(ptr, \"VarName\", 4, ptr)",
                   "KLOsetdblattrelement(ptr, \"UB\", 4, 7.5)",
                   "KLOsetintattrelement(ptr, \"ColBasis\", 4, 2)",
                   "KLOsetcharattrelement(ptr, \"VType\", 4, 'B')",
                   "KLOsetstrattrelement(ptr, \"VarName\", 4, \"y\")",
                   "KLOgetcharattrelement(ptr, \"VType\", 0, ptr)",
                   "KLOsetcharattrelement(ptr, \"VType\", 0, 'C')",
                   "KLOgetmatattrelement(ptr, \"PsdX\", 1, ptr, ptr, ptr, null, null)",
                   "KLOgetmatattrelement(ptr, \"PsdX\", 1, ptr, ptr, ptr, ptr, ptr)",
                   "KLOsetmatattrelement(ptr, \"PsdObj\", 1, 2, 2, 2, [1, 3], [4, 5])"}));
  EXPECT_EQ(klo_fake::calls()[0].pointer(0), model);
  ASSERT_EQ(m.nonzeros(), 2);
  EXPECT_EQ((Ints{m.rows(), m.cols()}), (Ints{2, 2}));
  EXPECT_EQ(m.indices()[1], 3);
  EXPECT_EQ(m.data()[1], 2.5);
  klo_fake::on("KLOgetdblattrelement").status(-1003);
  EXPECT_EQ(code([&] { newHandle<KLOQConstr>(model, 1).get(KLO_DoubleAttr_QCRHS); }), -1003);
}

// Removed and empty handles refuse without calling the library.
TEST_F(Handles, RemovedAndEmptyHandlesRefuseWithTheirKindsCode) {
  klo_fake::explain(-2003, "Invalid variable index");
  const KLOVar x = newHandle<KLOVar>(model, ~2);
  const KLOPsdVar p = newHandle<KLOPsdVar>(model, -1);
  EXPECT_EQ(failure([&] { x.get(KLO_DoubleAttr_X); }), "-2003 Invalid variable index");
  EXPECT_NE(failure([&] { KLOVar().index(); }).find("KLOVar handle is empty"), std::string::npos);
  const std::vector<std::pair<int, std::function<void()>>> cases = {
      {-2003, [&] { x.get(KLO_DoubleAttr_X); }},
      {-2003, [&] { x.set(KLO_StringAttr_VarName, "a"); }},
      {-2003, [&] { p.get(KLO_IntAttr_Dim); }},
      {-2003, [&] { p.get(KLO_MatAttr_PsdX); }},
      {-2002, [&] { newHandle<KLOConstr>(model, -3).get(KLO_DoubleAttr_RHS); }},
      {-2002, [&] { newHandle<KLOQConstr>(model, -1).get(KLO_StringAttr_QCName); }},
      {-2002, [&] { newHandle<KLOPsdConstr>(model, -1).set(KLO_DoubleAttr_PsdCLHS, 1); }},
      {-2002, [&] { newHandle<KLOGenConstr>(model, -4).get(KLO_IntAttr_GenConstrType); }},
      {-2002, [&] { newHandle<KLOSOS>(model, -1).get(KLO_IntAttr_Dim); }},
      {-2003, [&] { KLOVar().index(); }},
      {-2003, [&] { KLOVar().get(KLO_DoubleAttr_X); }},
      {-2002, [&] { KLOSOS().set(KLO_IntAttr_Dim, 1); }},
      {-2003, [&] { newHandle<KLOVar>(model, 0).sameAs(KLOVar()); }}};
  for (std::size_t k = 0; k < cases.size(); ++k)
    EXPECT_EQ(code(cases[k].second), cases[k].first) << k;
  for (const auto& f : klo_fake::functions()) EXPECT_EQ(f, "KLOexplainerror");
}

using Attributes = FakeTest;

TEST_F(Attributes, WholeModelAttributesAndParametersByTableName) {
  KLOModel model(env);
  klo_fake::reset();
  klo_fake::on("KLOgetintattr").out(2, 4LL);
  klo_fake::on("KLOgetdblattr").out(2, 1.25);
  klo_fake::on("KLOgetstrattr").out(2, std::string("diet"));
  klo_fake::on("KLOgetdblparam").out(2, 60.0);
  EXPECT_EQ(model.get(static_cast<KLO_IntAttr>(5)), 4);
  EXPECT_EQ(model.get(KLO_IntAttr_NumBinVars), 4);
  EXPECT_EQ(model.get(KLO_DoubleAttr_ObjVal), 1.25);
  EXPECT_EQ(model.get(KLO_StringAttr_ModelName), "diet");
  model.set(KLO_IntAttr_ModelSense, -1);
  model.set(KLO_DoubleAttr_ObjCon, 0.5);
  model.set(KLO_StringAttr_ProbName, "p");
  // Parameters fetch the model's environment every time.
  EXPECT_EQ(model.get(KLO_DoubleParam_MaxTime), 60.0);
  model.set(KLO_IntParam_OutputFlag, 0);
  model.set(KLO_StringParam_LogFile, "m.log");
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOgetintattr(ptr, \"NumVars\", ptr)", "KLOgetintattr(ptr, \"NumBinVars\", ptr)",
             "KLOgetdblattr(ptr, \"ObjVal\", ptr)", "KLOgetstrattr(ptr, \"ModelName\", ptr)",
             "KLOsetintattr(ptr, \"ModelSense\", -1)", "KLOsetdblattr(ptr, \"ObjCon\", 0.5)",
             "KLOsetstrattr(ptr, \"ProbName\", \"p\")", "KLOgetenv(ptr)",
             "KLOgetdblparam(ptr, \"MaxTime\", ptr)", "KLOgetenv(ptr)",
             "KLOsetintparam(ptr, \"OutputFlag\", 0)", "KLOgetenv(ptr)",
             "KLOsetstrparam(ptr, \"LogFile\", \"m.log\")"}));
}

TEST_F(Attributes, ArrayFormsGoElementByElementAndStopAtTheFirstFailure) {
  auto model = readModel(4, 4);
  const std::vector<KLOVar> vars = Access::vars(*model);
  const std::vector<KLOConstr> constrs = Access::constrs(*model);
  std::unique_ptr<double[]> none(model->get(KLO_DoubleAttr_X, vars.data(), 0));
  EXPECT_NE(none, nullptr);
  EXPECT_TRUE(klo_fake::calls().empty());
  klo_fake::on("KLOgetdblattrelement").outs(3, {1.5, 2.5, 3.5});
  const KLOVar order[] = {vars[2], vars[0], vars[1]};
  std::unique_ptr<double[]> x(model->get(KLO_DoubleAttr_X, order, 3));
  EXPECT_EQ(Doubles(x.get(), x.get() + 3), (Doubles{1.5, 2.5, 3.5}));
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetdblattrelement(ptr, \"X\", 2, ptr)",
                                     "KLOgetdblattrelement(ptr, \"X\", 0, ptr)",
                                     "KLOgetdblattrelement(ptr, \"X\", 1, ptr)"}));
  klo_fake::reset();
  klo_fake::on("KLOsetdblattrelement").statuses({0, -1004, 0});
  const double ub[] = {1, 2, 3};
  EXPECT_EQ(code([&] { model->set(KLO_DoubleAttr_UB, vars.data(), ub, 3); }), -1004);
  EXPECT_EQ(klo_fake::callsOf("KLOsetdblattrelement").size(), 2u);
  model->remove(vars[2]);
  model->remove(constrs[2]);
  klo_fake::reset();
  EXPECT_EQ(code([&] { model->get(KLO_DoubleAttr_LB, vars.data(), 4); }), -2003);
  EXPECT_EQ(klo_fake::functions(),
            (Calls{"KLOgetdblattrelement", "KLOgetdblattrelement", "KLOexplainerror"}));
  klo_fake::reset();
  EXPECT_EQ(code([&] { model->get(KLO_StringAttr_ConstrName, constrs.data(), 4); }), -2002);
  EXPECT_EQ(klo_fake::functions().size(), 3u);
}

TEST_F(Attributes, ArrayFormsOfEveryHandleKind) {
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

}  // namespace
