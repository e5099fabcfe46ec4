// Linear expressions: construction, sharing of terms between copies,
// arithmetic, removal and evaluation against the solution.
#include <cmath>

#include "model/records.h"
#include "model_fixture.h"

namespace {

class LinExpr : public ModelTest {
 protected:
  std::unique_ptr<KLOModel> model;
  KLOVar x, y;

  void SetUp() override {
    ModelTest::SetUp();
    model = readModel(2, 0);
    x = Access::vars(*model)[0];
    y = Access::vars(*model)[1];
  }

  static std::vector<double> coeffs(const KLOLinExpr& e) {
    std::vector<double> out;
    for (int i = 0; i < e.size(); ++i) out.push_back(e.getCoeff(i));
    return out;
  }

  static std::vector<int> vars(const KLOLinExpr& e) {
    std::vector<int> out;
    for (int i = 0; i < e.size(); ++i) out.push_back(e.getVar(i).index());
    return out;
  }
};

TEST_F(LinExpr, ZeroCoefficientsAreKeptByTheConstructorOnly) {
  KLOLinExpr single(x, 0.0);
  EXPECT_EQ(single.size(), 1);
  KLOLinExpr e(3.0);
  const double c[] = {0.0, 2.0, -0.0};
  const KLOVar v[] = {x, y, x};
  e.addTerms(c, v, 3);
  EXPECT_EQ(coeffs(e), std::vector<double>{2.0});
  EXPECT_EQ(vars(e), std::vector<int>{1});
  e.addTerms(c, v, 0);
  e.addTerms(c, v, -1);
  EXPECT_EQ(e.size(), 1);
  EXPECT_EQ(e.getConstant(), 3.0);
}

TEST_F(LinExpr, ConversionsFromConstantsAndVariables) {
  KLOLinExpr fromVar = x;
  KLOLinExpr fromDouble = 2.5;
  EXPECT_EQ(coeffs(fromVar), std::vector<double>{1.0});
  EXPECT_EQ(fromDouble.size(), 0);
  EXPECT_EQ(fromDouble.getConstant(), 2.5);
}

TEST_F(LinExpr, SubtractionAppendsNegatedTermsWithoutMerging) {
  KLOLinExpr e(5.0);
  e += KLOLinExpr(x, 4.0);
  KLOLinExpr e2(3.0);
  e2 += KLOLinExpr(x, 2.0);
  e -= e2;
  EXPECT_EQ(e.getConstant(), 2.0);
  EXPECT_EQ(coeffs(e), (std::vector<double>{4.0, -2.0}));
  EXPECT_EQ(vars(e), (std::vector<int>{0, 0}));
}

TEST_F(LinExpr, AddingAnExpressionToItselfDoublesIt) {
  KLOLinExpr e(1.0);
  e += KLOLinExpr(x, 2.0);
  e += KLOLinExpr(y, 3.0);
  e += e;
  EXPECT_EQ(e.getConstant(), 2.0);
  EXPECT_EQ(coeffs(e), (std::vector<double>{2, 3, 2, 3}));
  e -= e;
  EXPECT_EQ(e.getConstant(), 0.0);
  EXPECT_EQ(e.size(), 8);
}

TEST_F(LinExpr, SumsShareTheLeftOperandsBufferWithoutDisturbingIt) {
  KLOLinExpr e = KLOLinExpr(x, 1.0) + KLOLinExpr(y, 2.0);
  KLOLinExpr f = e + KLOLinExpr(x, 3.0);
  KLOLinExpr g = e - KLOLinExpr(y, 4.0);
  EXPECT_EQ(coeffs(e), (std::vector<double>{1, 2}));
  EXPECT_EQ(coeffs(f), (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(coeffs(g), (std::vector<double>{1, 2, -4}));
  // A variable on the right appends (+-1, var) to a copy, like the
  // expression form, and leaves the left operand alone.
  KLOLinExpr h = e + y;
  KLOLinExpr k = e - x;
  EXPECT_EQ(coeffs(h), (std::vector<double>{1, 2, 1}));
  EXPECT_EQ(vars(h), (std::vector<int>{0, 1, 1}));
  EXPECT_EQ(coeffs(k), (std::vector<double>{1, 2, -1}));
  EXPECT_EQ(vars(k), (std::vector<int>{0, 1, 0}));
  EXPECT_EQ(e.size(), 2);
}

TEST_F(LinExpr, ScalingKeepsTermsAndFollowsIEEE) {
  KLOLinExpr e(2.0);
  e += KLOLinExpr(x, 3.0);
  KLOLinExpr shared = e;
  e *= 0.0;
  EXPECT_EQ(e.getConstant(), 0.0);
  EXPECT_EQ(coeffs(e), std::vector<double>{0.0});
  EXPECT_EQ(coeffs(shared), std::vector<double>{3.0});
  shared /= 0.0;
  EXPECT_TRUE(std::isinf(shared.getConstant()));
  EXPECT_TRUE(std::isinf(shared.getCoeff(0)));
  KLOLinExpr zero(0.0);
  zero += KLOLinExpr(x, 0.0);
  zero /= 0.0;
  EXPECT_TRUE(std::isnan(zero.getCoeff(0)));
}

TEST_F(LinExpr, RemovingAVariableRemovesEveryOccurrence) {
  KLOLinExpr e = KLOLinExpr(x) + KLOLinExpr(y) + KLOLinExpr(x, 2.0);
  KLOLinExpr before = e;
  e.remove(x);
  EXPECT_EQ(coeffs(e), std::vector<double>{1.0});
  EXPECT_EQ(vars(e), std::vector<int>{1});
  EXPECT_EQ(before.size(), 3);
  int otherStandIn = 0;
  e.remove(klo_detail::newHandle<KLOVar>(&otherStandIn, 1));  // same index, other record
  EXPECT_EQ(e.size(), 1);
}

TEST_F(LinExpr, RemovingByPositionIsChecked) {
  KLOLinExpr e = KLOLinExpr(x, 1.0) + KLOLinExpr(y, 2.0);
  e.remove(0);
  EXPECT_EQ(coeffs(e), std::vector<double>{2.0});
  EXPECT_EQ(thrown([&] { e.remove(1); }).getErrorCode(), -2003);
  EXPECT_EQ(thrown([&] { e.getCoeff(e.size()); }).getErrorCode(), -2003);
  EXPECT_EQ(thrown([&] { e.getVar(-1); }).getErrorCode(), -2003);
  EXPECT_EQ(e.size(), 1);
}

TEST_F(LinExpr, ClearedExpressionGrowsAgain) {
  KLOLinExpr e = KLOLinExpr(x, 1.0) + 4.0;
  KLOLinExpr kept = e;
  e.clear();
  EXPECT_EQ(e.size(), 0);
  EXPECT_EQ(e.getConstant(), 0.0);
  e += KLOLinExpr(y, 5.0);
  EXPECT_EQ(coeffs(e), std::vector<double>{5.0});
  EXPECT_EQ(coeffs(kept), std::vector<double>{1.0});
  e.clear();
  e *= 2.0;
  EXPECT_EQ(e.size(), 0);
}

TEST_F(LinExpr, ValueSumsCoefficientTimesSolution) {
  KLOLinExpr e = KLOLinExpr(x) + KLOLinExpr(y, 2.0) + 1.0;
  klo_fake::on("KLOgetdblattrelement", "X").outs(3, {3.0, 4.0});
  EXPECT_EQ(e.getValue(), 12.0);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetdblattrelement(ptr, \"X\", 0, ptr)",
                                     "KLOgetdblattrelement(ptr, \"X\", 1, ptr)"}));
  klo_fake::on("KLOgetdblattrelement", "X").status(-6);
  EXPECT_EQ(thrown([&] { e.getValue(); }).getErrorCode(), -6);
}

TEST_F(LinExpr, AssignmentSharesAndAddConstantAccumulates) {
  KLOLinExpr e = KLOLinExpr(x, 2.0);
  KLOLinExpr f(9.0);
  f = e;
  f.addConstant(1.5);
  f.addConstant(1.0);
  EXPECT_EQ(f.getConstant(), 2.5);
  EXPECT_EQ(e.getConstant(), 0.0);
  EXPECT_EQ(coeffs(f), std::vector<double>{2.0});
}

// --- columns ---------------------------------------------------------------

TEST_F(LinExpr, ColumnsKeepZerosAndCheckRemovalPositions) {
  auto rows = readModel(0, 2);
  const KLOConstr c0 = Access::constrs(*rows)[0], c1 = Access::constrs(*rows)[1];
  KLOColumn col;
  const double coeffs[] = {0.0, 1.0, 2.0};
  const KLOConstr constrs[] = {c0, c1, c0};
  col.addTerms(coeffs, constrs, 3);
  col.addTerms(coeffs, constrs, -2);
  EXPECT_EQ(col.size(), 3);
  klo_fake::explain(-3, "Invalid argument");
  KLOException e = thrown([&] { col.remove(3); });
  EXPECT_EQ(e.getErrorCode(), -3);
  EXPECT_EQ(e.getMessage(), "Invalid argument");
  EXPECT_EQ(thrown([&] { col.remove(-1); }).getErrorCode(), -3);
  col.remove(c0);
  ASSERT_EQ(col.size(), 1);
  EXPECT_TRUE(col.getConstr(0).sameAs(c1));
  col.addTerm(4.0, c0);
  col.remove(0);
  EXPECT_EQ(col.getCoeff(0), 4.0);
  col.clear();
  EXPECT_EQ(col.size(), 0);
}

}  // namespace
