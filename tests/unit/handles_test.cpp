// Handles: identity, typed element attributes by table name, the
// removed-element codes and empty handles.
#include "fake_fixture.h"
#include "model/records.h"

namespace {

using klo_detail::newHandle;
using klo_detail::renumber;

class Handles : public FakeTest {
 protected:
  int modelStandIn = 0;
  void* model = &modelStandIn;
};

TEST_F(Handles, CopiesShareTheRecordWhileEqualIndicesDoNot) {
  KLOVar x = newHandle<KLOVar>(model, 3);
  KLOVar copy = x;
  int otherModel = 0;
  KLOVar sameIndexElsewhere = newHandle<KLOVar>(&otherModel, 3);
  EXPECT_TRUE(copy.sameAs(x));
  EXPECT_FALSE(sameIndexElsewhere.sameAs(x));
  renumber(x, 7);
  EXPECT_EQ(copy.index(), 7);
}

TEST_F(Handles, VariableAttributesGoToTheElementFunctions) {
  KLOVar x = newHandle<KLOVar>(model, 4);
  klo_fake::on("KLOgetdblattrelement", "X").out(3, 2.5);
  klo_fake::on("KLOgetintattrelement").out(3, 1LL);
  klo_fake::on("KLOgetcharattrelement").out(3, 'I');
  klo_fake::on("KLOgetstrattrelement").out(3, std::string("flow"));
  EXPECT_EQ(x.get(KLO_DoubleAttr_X), 2.5);
  EXPECT_EQ(x.get(KLO_IntAttr_ColBasis), 1);
  EXPECT_EQ(x.get(static_cast<KLO_CharAttr>(3)), 'I');
  EXPECT_EQ(x.get(KLO_StringAttr_VarName), "flow");
  x.set(KLO_DoubleAttr_UB, 7.5);
  x.set(KLO_IntAttr_ColBasis, 2);
  x.set(KLO_CharAttr_VType, 'B');
  x.set(KLO_StringAttr_VarName, "y");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetdblattrelement(ptr, \"X\", 4, ptr)",
                                     "KLOgetintattrelement(ptr, \"ColBasis\", 4, ptr)",
                                     "KLOgetcharattrelement(ptr, \"VType\", 4, ptr)",
                                     "KLOgetstrattrelement(ptr, \"VarName\", 4, ptr)",
                                     "KLOsetdblattrelement(ptr, \"UB\", 4, 7.5)",
                                     "KLOsetintattrelement(ptr, \"ColBasis\", 4, 2)",
                                     "KLOsetcharattrelement(ptr, \"VType\", 4, 'B')",
                                     "KLOsetstrattrelement(ptr, \"VarName\", 4, \"y\")"}));
  EXPECT_EQ(klo_fake::calls()[0].pointer(0), model);
}

TEST_F(Handles, ConstraintCharAttributeIsNamedVType) {
  KLOConstr c = newHandle<KLOConstr>(model, 0);
  c.get(KLO_CharAttr_VType);
  c.set(KLO_CharAttr_VType, 'C');
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetcharattrelement(ptr, \"VType\", 0, ptr)",
                                     "KLOsetcharattrelement(ptr, \"VType\", 0, 'C')"}));
}

TEST_F(Handles, LibraryFailureOfAnElementCallIsRaised) {
  KLOQConstr q = newHandle<KLOQConstr>(model, 1);
  klo_fake::on("KLOgetdblattrelement").status(-1003);
  EXPECT_EQ(thrown([&] { q.get(KLO_DoubleAttr_QCRHS); }).getErrorCode(), -1003);
}

TEST_F(Handles, RemovedVariablesRefuseWithoutCallingTheLibrary) {
  klo_fake::explain(-2003, "Invalid variable index");
  KLOVar x = newHandle<KLOVar>(model, ~2);
  KLOPsdVar p = newHandle<KLOPsdVar>(model, -1);
  KLOException e = thrown([&] { x.get(KLO_DoubleAttr_X); });
  EXPECT_EQ(e.getErrorCode(), -2003);
  EXPECT_EQ(e.getMessage(), "Invalid variable index");
  EXPECT_EQ(thrown([&] { x.set(KLO_StringAttr_VarName, "a"); }).getErrorCode(), -2003);
  EXPECT_EQ(thrown([&] { p.get(KLO_IntAttr_Dim); }).getErrorCode(), -2003);
  EXPECT_EQ(thrown([&] { p.get(KLO_MatAttr_PsdX); }).getErrorCode(), -2003);
  EXPECT_EQ(klo_fake::functions(), (std::vector<std::string>(4, "KLOexplainerror")));
}

TEST_F(Handles, RemovedConstraintsOfEveryKindRefuseWith2002) {
  EXPECT_EQ(thrown([&] { newHandle<KLOConstr>(model, -3).get(KLO_DoubleAttr_RHS); }).getErrorCode(),
            -2002);
  EXPECT_EQ(
      thrown([&] { newHandle<KLOQConstr>(model, -1).get(KLO_StringAttr_QCName); }).getErrorCode(),
      -2002);
  EXPECT_EQ(thrown([&] {
              newHandle<KLOPsdConstr>(model, -1).set(KLO_DoubleAttr_PsdCLHS, 1);
            }).getErrorCode(),
            -2002);
  EXPECT_EQ(thrown([&] {
              newHandle<KLOGenConstr>(model, -4).get(KLO_IntAttr_GenConstrType);
            }).getErrorCode(),
            -2002);
  EXPECT_EQ(thrown([&] { newHandle<KLOSOS>(model, -1).get(KLO_IntAttr_Dim); }).getErrorCode(),
            -2002);
  for (const auto& f : klo_fake::functions()) EXPECT_EQ(f, "KLOexplainerror");
}

TEST_F(Handles, EmptyHandlesThrowAClearErrorInsteadOfCrashing) {
  KLOVar x;
  KLOException e = thrown([&] { x.index(); });
  EXPECT_EQ(e.getErrorCode(), -2003);
  EXPECT_NE(e.getMessage().find("KLOVar handle is empty"), std::string::npos);
  EXPECT_EQ(thrown([&] { x.get(KLO_DoubleAttr_X); }).getErrorCode(), -2003);
  EXPECT_EQ(thrown([&] { KLOSOS().set(KLO_IntAttr_Dim, 1); }).getErrorCode(), -2002);
  EXPECT_EQ(thrown([&] { newHandle<KLOVar>(model, 0).sameAs(KLOVar()); }).getErrorCode(), -2003);
  EXPECT_TRUE(klo_fake::calls().empty());
}

TEST_F(Handles, MatrixAttributeIsReadInTwoCalls) {
  KLOPsdVar p = newHandle<KLOPsdVar>(model, 1);
  klo_fake::on("KLOgetmatattrelement")
      .out(3, 2LL)
      .out(4, 2LL)
      .out(5, 2LL)
      .out(6, std::vector<int>{0, 3})
      .out(7, std::vector<double>{1.5, 2.5});
  KLOMatrix m = p.get(KLO_MatAttr_PsdX);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOgetmatattrelement(ptr, \"PsdX\", 1, ptr, ptr, ptr, null, null)",
                   "KLOgetmatattrelement(ptr, \"PsdX\", 1, ptr, ptr, ptr, ptr, ptr)"}));
  ASSERT_EQ(m.nonzeros(), 2);
  EXPECT_EQ(m.rows(), 2);
  EXPECT_EQ(m.cols(), 2);
  EXPECT_EQ(m.indices()[1], 3);
  EXPECT_EQ(m.data()[1], 2.5);
}

TEST_F(Handles, MatrixAttributeIsWrittenInOneCall) {
  KLOPsdVar p = newHandle<KLOPsdVar>(model, 0);
  p.set(KLO_MatAttr_PsdObj, KLOMatrix::sparse(2, 2, {0, 1}, {1, 1}, {4.0, 5.0}));
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOsetmatattrelement(ptr, \"PsdObj\", 0, 2, 2, 2, [1, 3], [4, 5])"}));
}

}  // namespace
