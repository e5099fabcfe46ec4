// Linear rows: senses to bounds, constants into finite bounds, merged terms,
// the bulk forms, reading rows back and renumbering after removal.
#include "expr_fixture.h"

namespace {

class Constraints : public ExprTest {};

TEST_F(Constraints, SenseBecomesBounds) {
  model->addConstr(x, '<', 5.0);
  model->addConstr(x, '>', 5.0);
  model->addConstr(x, '=', 5.0, "eq");
  model->addConstr(x, 'L', 5.0);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddrangeconstr(ptr, 1, [0], [1], -1e+20, 5, \"\")",
                                     "KLOaddrangeconstr(ptr, 1, [0], [1], 5, 1e+20, \"\")",
                                     "KLOaddrangeconstr(ptr, 1, [0], [1], 5, 5, \"eq\")",
                                     "KLOaddrangeconstr(ptr, 1, [0], [1], -1e+20, 5, \"\")"}));
}

TEST_F(Constraints, ConstantMovesIntoFiniteBoundsOnly) {
  model->addRange(2 * x + 3, 1, 1e20);
  model->addRange(2 * x + 3, -1e21, 1e20);
  model->addConstr(2 * x + 3 * y <= 10);
  model->addConstr(x + 4 >= 2 * y);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddrangeconstr(ptr, 1, [0], [2], -2, 1e+20, \"\")",
                   "KLOaddrangeconstr(ptr, 1, [0], [2], -1e+21, 1e+20, \"\")",
                   "KLOaddrangeconstr(ptr, 2, [0, 1], [2, 3], -1e+20, 1e+01, \"\")",
                   "KLOaddrangeconstr(ptr, 2, [0, 1], [1, -2], -4, 1e+20, \"\")"}));
}

TEST_F(Constraints, LikeTermsMergeAndZeroSumsStay) {
  // x + y = x + 1 holds exactly when y = 1.
  model->addConstr(x + y, '=', x + 1);
  model->addConstr(z, '<', z);
  model->addConstr(y + z, '>', x);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddrangeconstr(ptr, 2, [0, 1], [0, 1], 1, 1, \"\")",
                   "KLOaddrangeconstr(ptr, 1, [2], [0], -1e+20, 0, \"\")",
                   "KLOaddrangeconstr(ptr, 3, [0, 1, 2], [-1, 1, 1], 0, 1e+20, \"\")"}));
}

TEST_F(Constraints, QuadraticComparisonIsRefusedBeforeTheLibrary) {
  const KLOException e = thrown([&] { model->addConstr(x * y <= 1, "q"); });
  EXPECT_EQ(e.getErrorCode(), -3);
  EXPECT_EQ(e.getMessage(), "For quadratic constraint using KLOModel::addQConstr.");
  EXPECT_TRUE(klo_fake::calls().empty());
  EXPECT_TRUE(Access::constrs(*model).empty());
}

TEST_F(Constraints, RemovedVariableOrFailedCallAddsNoHandles) {
  KLOVar gone = z;
  model->remove(gone);
  klo_fake::reset();
  EXPECT_EQ(thrown([&] { model->addConstr(x + gone, '<', 1.0); }).getErrorCode(), -2003);
  const KLOLinExpr rows[] = {x + y, gone + 0.0};
  EXPECT_EQ(thrown([&] { model->addConstrs(rows, "<<", nullptr, nullptr, 2); }).getErrorCode(),
            -2003);
  EXPECT_EQ(klo_fake::functions(),
            (std::vector<std::string>{"KLOexplainerror", "KLOexplainerror"}));
  klo_fake::on("KLOaddrangeconstr").status(-1001);
  EXPECT_EQ(thrown([&] { model->addConstr(x, '<', 1.0); }).getErrorCode(), -1001);
  EXPECT_TRUE(Access::constrs(*model).empty());
  EXPECT_TRUE(Access::qconstrs(*model).empty());
}

TEST_F(Constraints, BulkFormsShiftFiniteRightHandSidesRowByRow) {
  const KLOLinExpr rows[] = {x + y + x + 2, KLOLinExpr(-1.0), z - 1};
  const char senses[] = {'<', '>', 'Q'};
  const double rhs[] = {10, 1e20, -1e20};
  const std::string names[] = {"a", "b", "c"};
  std::unique_ptr<KLOConstr[]> added(model->addConstrs(rows, senses, rhs, names, 3));
  const double lower[] = {0, -1e30, 5};
  const double upper[] = {1e20, 3, 5};
  std::unique_ptr<KLOConstr[]> ranges(model->addRanges(rows, lower, upper, nullptr, 3));
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddconstrs(ptr, 3, 3, [0, 2, 2], [0, 1, 2], [2, 1, 1], ['<', '>', 'Q'], "
                   "[8, 1e+20, -1e+20], [\"a\", \"b\", \"c\"])",
                   "KLOaddrangeconstrs(ptr, 3, 3, [0, 2, 2], [0, 1, 2], [2, 1, 1], "
                   "[-2, -1e+30, 6], [1e+20, 4, 6], null)"}));
  EXPECT_EQ(added[2].index(), 2);
  EXPECT_EQ(ranges[0].index(), 3);
  EXPECT_EQ(model->getConstrs(), Access::constrs(*model).data());
  EXPECT_EQ(indices(Access::psdconstrs(*model)), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST_F(Constraints, EmptyBulkFormPassesNulls) {
  std::unique_ptr<KLOConstr[]> added(model->addConstrs(2));
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddconstrs(ptr, 2, 0, null, null, null, null, null, null)"}));
  EXPECT_EQ(added[1].index(), 1);
}

TEST_F(Constraints, RemovingARowRenumbersAllThreeVectors) {
  auto three = readModel(0, 3);
  const KLOConstr removed = Access::constrs(*three)[1];
  const KLOQConstr removedQ = Access::qconstrs(*three)[1];
  const KLOPsdConstr last = Access::psdconstrs(*three)[2];
  const KLOQConstr lastQ = Access::qconstrs(*three)[2];
  three->remove(removed);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOdelconstrs(ptr, 1, [1])"}));
  EXPECT_EQ(Access::constrs(*three)[1].index(), 1);
  EXPECT_EQ(last.index(), 1);
  EXPECT_EQ(lastQ.index(), 1);
  EXPECT_EQ(removed.index(), -2);
  EXPECT_EQ(removedQ.index(), -2);
  EXPECT_EQ(Access::psdconstrs(*three).size(), 2u);
  EXPECT_EQ(thrown([&] { removed.get(KLO_DoubleAttr_RHS); }).getErrorCode(), -2002);
}

TEST_F(Constraints, QuadraticAndPsdHandlesRemoveTheirOwnRow) {
  auto rows = readModel(0, 3);
  // A fresh quadratic record is numbered one past its row.
  const KLOQConstr q1 = Access::qconstrs(*rows)[1];
  ASSERT_EQ(q1.index(), 2);
  rows->remove(q1);
  rows->remove(Access::psdconstrs(*rows)[0]);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOdelconstrs(ptr, 1, [1])", "KLOdelconstrs(ptr, 1, [0])"}));
  EXPECT_EQ(q1.index(), -2);
  EXPECT_EQ(thrown([&] { rows->remove(q1); }).getErrorCode(), -2002);
}

TEST_F(Constraints, LookupsAndCoefficients) {
  auto rows = readModel(2, 2);
  klo_fake::on("KLOgetconstrbyname").outs(2, {1LL, -1LL});
  EXPECT_TRUE(rows->getConstrByName("c1").sameAs(Access::constrs(*rows)[1]));
  EXPECT_EQ(thrown([&] { rows->getConstrByName("none"); }).getErrorCode(), -2002);
  EXPECT_EQ(thrown([&] { rows->getConstr(-1); }).getErrorCode(), -2002);
  klo_fake::reset();
  klo_fake::on("KLOsetconstrcoeff").statuses({0, -1002});
  const KLOConstr* c = rows->getConstrs();
  const KLOVar* v = Access::vars(*rows).data();
  const KLOConstr cs[] = {c[0], c[1], c[0]};
  const KLOVar vs[] = {v[1], v[0], v[0]};
  const double values[] = {1.5, 2.5, 3.5};
  EXPECT_EQ(thrown([&] { rows->chgCoeffs(cs, vs, values, 3); }).getErrorCode(), -1002);
  EXPECT_EQ(klo_fake::callsOf("KLOsetconstrcoeff").size(), 2u);
  klo_fake::on("KLOgetconstrcoeff").out(3, 4.25);
  EXPECT_EQ(rows->getCoeff(c[1], v[0]), 4.25);
}

TEST_F(Constraints, RowsReadBackInTheLibrarysOrder) {
  klo_fake::on("KLOgetconstrs")
      .out(1, 3LL)
      .out(3, std::vector<int>{2, 0, 2})
      .out(4, std::vector<double>{1.5, -1, 0});
  const KLOLinExpr row = model->getRow(model->addConstr());
  EXPECT_EQ(lin(row), "1.5*2 -1*0 +0");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetconstrs(ptr, ptr, null, null, null, 0, 1)",
                                     "KLOgetconstrs(ptr, ptr, ptr, ptr, ptr, 0, 1)"}));
}

}  // namespace
