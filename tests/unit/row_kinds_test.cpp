// Quadratic, PSD, SOS and indicator constraints: merged terms, the shared
// row numbering, reading back and removal.
#include "expr_fixture.h"

namespace {

class SpecialRows : public ExprTest {};

TEST_F(SpecialRows, QuadraticRowsMergeTermsAndJoinTheRowNumbering) {
  model->addConstr(x, '<', 1.0);
  const KLOQConstr q = model->addQConstr(x * y + 2 * (x * y) + y * x + z + z + 1 <= 5, "q");
  model->addQConstr(x * x, '>', 1e20);
  EXPECT_EQ(klo_fake::strs()[1],
            "KLOaddqconstr(ptr, 1, [2], [2], 2, [1, 1], [0, 0], [3, 1], '<', 4, \"q\")");
  EXPECT_EQ(klo_fake::strs()[2],
            "KLOaddqconstr(ptr, 0, null, null, 1, [0], [0], [1], '>', 1e+20, \"\")");
  EXPECT_TRUE(q.sameAs(Access::qconstrs(*model)[1]));
  EXPECT_EQ(indices(Access::constrs(*model)), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(indices(Access::psdconstrs(*model)), (std::vector<int>{0, 1, 2}));
}

TEST_F(SpecialRows, QuadraticRowWithARemovedVariableAddsNothing) {
  KLOVar gone = z;
  model->remove(gone);
  klo_fake::reset();
  EXPECT_EQ(thrown([&] { model->addQConstr(x * gone <= 1); }).getErrorCode(), -2003);
  klo_fake::on("KLOaddqconstr").status(-1001);
  EXPECT_EQ(thrown([&] { model->addQConstr(x * y <= 1); }).getErrorCode(), -1001);
  EXPECT_TRUE(Access::qconstrs(*model).empty());
}

TEST_F(SpecialRows, QuadraticRowReadsBackItsOwnRow) {
  auto rows = readModel(3, 2);
  klo_fake::on("KLOgetqconstr")
      .out(2, 1LL)
      .out(5, 1LL)
      .outs(3, {klo_fake::Null{}, std::vector<int>{2}})
      .outs(4, {klo_fake::Null{}, std::vector<double>{-1.0}})
      .outs(6, {klo_fake::Null{}, std::vector<int>{1}})
      .outs(7, {klo_fake::Null{}, std::vector<int>{0}})
      .outs(8, {klo_fake::Null{}, std::vector<double>{2.5}});
  // Handle of row 1, numbered 2: the row read is 1.
  const KLOQuadExpr q = rows->getQCRow(Access::qconstrs(*rows)[1]);
  EXPECT_EQ(quad(q), "2.5*1*0 | -1*2 +0");
  EXPECT_EQ(klo_fake::calls()[0].integer(1), 1);
  klo_fake::reset();
  klo_fake::on("KLOgetqconstr").out(2, 1LL).out(3, std::vector<int>{9});
  EXPECT_EQ(thrown([&] { rows->getQCRow(Access::qconstrs(*rows)[0]); }).getErrorCode(), -2003);
}

// The matrices of X are summed, the entry (1, 0) moved to its mirror
// position 1 in the upper triangle.
TEST_F(SpecialRows, PsdRowsSumMatricesPerVariable) {
  KLOPsdExpr P = KLOMatrix::sparse(2, 2, {0}, {0}, {1.0}) * X + 2 * x + 3;
  P += KLOMatrix::sparse(2, 2, {1}, {0}, {4.0}) * X;
  klo_fake::on("KLOaddrangepsdconstr").arrayLength(7, 2).arrayLength(8, 2);
  const KLOPsdConstr c = model->addPsdConstr(P, '>', 5.0, "p");
  model->addRangePsdConstr(KLOPsdExpr(x + 1), -1e20, 2.0);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddrangepsdconstr(ptr, 1, [0], [2], 1, [0], [0, 2], [0, 1], [1, 4], 2, "
                   "1e+20, \"p\")",
                   "KLOaddrangepsdconstr(ptr, 1, [0], [1], 0, null, [0], null, null, -1e+20, 1, "
                   "\"\")"}));
  EXPECT_TRUE(c.sameAs(model->getPsdConstr(0)));
  EXPECT_EQ(Access::constrs(*model).size(), 2u);
  EXPECT_EQ(thrown([&] { model->getPsdConstr(2); }).getErrorCode(), -2002);
}

TEST_F(SpecialRows, PsdVariablesAddAndRemoveWithRenumbering) {
  const KLOPsdVar Y = model->addPsdVar(3, "Y");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddpsdvar(ptr, 3, \"Y\")"}));
  EXPECT_EQ(Y.index(), 1);
  model->remove(X);
  EXPECT_EQ(klo_fake::strs().back(), "KLOdelpsdvars(ptr, 1, [0])");
  EXPECT_EQ(Y.index(), 0);
  EXPECT_EQ(X.index(), -1);
  EXPECT_TRUE(model->getPsdVar(0).sameAs(Y));
  EXPECT_EQ(thrown([&] { model->getPsdVar(1); }).getErrorCode(), -2003);
  EXPECT_EQ(thrown([&] { model->addPsdConstr(X * KLOMatrix::identity(2), '<', 1); }).getErrorCode(),
            -2003);
}

TEST_F(SpecialRows, SosSetsAddReadAndRemove) {
  const KLOVar members[] = {z, x};
  const double weights[] = {1.0, 2.0};
  const KLOSOS first = model->addSOS(members, weights, 2, 1);
  const KLOSOS second = model->addSOS(members, nullptr, 2, 2);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddsos(ptr, 1, 2, [1], [0], [2, 0], [1, 2])",
                                     "KLOaddsos(ptr, 1, 2, [2], [0], [2, 0], null)"}));
  klo_fake::reset();
  klo_fake::on("KLOgetsos")
      .out(1, 2LL)
      .outs(2, {klo_fake::Null{}, std::vector<int>{2}})
      .outs(4, {klo_fake::Null{}, std::vector<int>{2, 0}})
      .outs(5, {klo_fake::Null{}, std::vector<double>{1, 2}});
  EXPECT_EQ(model->getSOS(second, nullptr, nullptr, nullptr), 2);
  KLOVar read[2];
  double w[2];
  int type = 0;
  EXPECT_EQ(model->getSOS(second, read, w, &type), 2);
  EXPECT_TRUE(read[0].sameAs(z));
  EXPECT_EQ(w[1], 2.0);
  EXPECT_EQ(type, 2);
  model->remove(first);
  EXPECT_EQ(second.index(), 0);
  EXPECT_EQ(thrown([&] { model->getSOS(first, nullptr, nullptr, nullptr); }).getErrorCode(), -2002);
}

TEST_F(SpecialRows, IndicatorsTakeLinearComparisonsOnly) {
  const KLOGenConstr g = model->addGenConstrIndicator(z, 1, x + x + 2 <= y, "ind");
  model->addGenConstrIndicator(z, 0, 2 * y, '=', 1e20);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddgenconstrIndicator(ptr, \"ind\", 2, 1, 2, [0, 1], [2, -1], '<', -2)",
                   "KLOaddgenconstrIndicator(ptr, \"\", 2, 0, 1, [1], [2], '=', 1e+20)"}));
  const KLOException e = thrown([&] { model->addGenConstrIndicator(z, 1, x * y <= 1); });
  EXPECT_EQ(e.getErrorCode(), -3);
  EXPECT_EQ(Access::genconstrs(*model).size(), 2u);
  klo_fake::reset();
  klo_fake::on("KLOgetgenconstrIndicator")
      .out(2, 2LL)
      .out(3, 1LL)
      .out(4, 1LL)
      .out(7, '>')
      .out(8, 4.5)
      .outs(5, {klo_fake::Null{}, std::vector<int>{0}})
      .outs(6, {klo_fake::Null{}, std::vector<double>{3}});
  KLOVar bin;
  int value = 0;
  KLOLinExpr expr;
  char sense = 0;
  double rhs = 0;
  model->getGenConstrIndicator(g, &bin, &value, &expr, &sense, &rhs);
  EXPECT_TRUE(bin.sameAs(z));
  EXPECT_EQ(value, 1);
  EXPECT_EQ(lin(expr), "3*0 +0");
  EXPECT_EQ(sense, '>');
  EXPECT_EQ(rhs, 4.5);
  model->remove(g);
  EXPECT_EQ(klo_fake::strs().back(), "KLOdelgenconstrs(ptr, 1, [0])");
  EXPECT_EQ(g.index(), -1);
  EXPECT_EQ(Access::genconstrs(*model)[0].index(), 0);
}

}  // namespace
