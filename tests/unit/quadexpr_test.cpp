// Quadratic and semidefinite expressions, the free operators and the
// comparisons that make temporary constraints.
#include "expr_fixture.h"

namespace {

class QuadExpr : public ExprTest {};

TEST_F(QuadExpr, ZeroCoefficientsAreDroppedByAddTermOnly) {
  KLOQuadExpr q;
  q.addTerm(0.0, x, y);
  q.addTerm(0.0, x);
  EXPECT_EQ(quad(q), "| +0");
  EXPECT_EQ(quad(KLOQuadExpr(x, 0.0)), "| 0*0 +0");
}

TEST_F(QuadExpr, RemovingAVariableDropsItFromBothSlotsAndTheLinearPart) {
  KLOQuadExpr q = 2 * x * y;
  q += 3 * y * x;
  q += y * z;
  q += 4 * x;
  const KLOQuadExpr before = q;
  q.remove(x);
  EXPECT_EQ(quad(q), "1*1*2 | +0");
  // (2 * x) * y puts y first: the variable factor leads its products.
  EXPECT_EQ(quad(before), "2*1*0 3*0*1 1*1*2 | 4*0 +0");
  EXPECT_EQ(thrown([&] { q.remove(1); }).getErrorCode(), -2003);
}

TEST_F(QuadExpr, ValueReadsEachFactor) {
  scriptX({2.0, 2.0, 5.0});
  EXPECT_EQ((x * y + x + 1).getValue(), 13.0);
}

TEST_F(QuadExpr, AddingToItselfDoublesOnce) {
  KLOQuadExpr q = x * y + 1;
  q += q;
  EXPECT_EQ(quad(q), "1*0*1 1*0*1 | +2");
  q -= q;
  EXPECT_EQ(quad(q), "1*0*1 1*0*1 -1*0*1 -1*0*1 | +0");
}

TEST_F(QuadExpr, CombineKeysByThePairAsGivenAndStoresTheLargerIndexFirst) {
  std::vector<double> c{1, 2, 3};
  std::vector<KLOVar> v1{x, x, y}, v2{y, y, x};
  combineLikeQTerms(c, v1, v2);
  EXPECT_EQ(c, (std::vector<double>{3, 3}));
  EXPECT_EQ(indices(v1), (std::vector<int>{1, 1}));
  EXPECT_EQ(indices(v2), (std::vector<int>{0, 0}));
  std::vector<double> none;
  std::vector<KLOVar> n1, n2;
  combineLikeQTerms(none, n1, n2);
  EXPECT_TRUE(none.empty() && n1.empty() && n2.empty());
}

TEST_F(QuadExpr, CombineKeepsZeroSums) {
  std::vector<double> c{1, -1, 4};
  std::vector<KLOVar> v1{z, z, x}, v2{x, x, x};
  combineLikeQTerms(c, v1, v2);
  EXPECT_EQ(c, (std::vector<double>{4, 0}));
  EXPECT_EQ(indices(v1), (std::vector<int>{0, 2}));
}

TEST_F(QuadExpr, VariableOperatorsNeverMerge) {
  EXPECT_EQ(lin(x + x), "1*0 1*0 +0");
  EXPECT_EQ(lin(x - x), "1*0 -1*0 +0");
  EXPECT_EQ(lin(5 - x), "-1*0 +5");
  EXPECT_EQ(lin(x - 5), "1*0 +-5");
  EXPECT_EQ(lin(-x), "-1*0 +0");
  EXPECT_EQ(lin(x / 0.0), "inf*0 +0");
}

TEST_F(QuadExpr, ScalarZeroEmptiesWhileTheMemberKeepsTerms) {
  EXPECT_EQ(lin(0.0 * x), "+0");
  EXPECT_EQ(lin(x * 0.0), "+0");
  EXPECT_EQ(lin((x + y + 3) * 0.0), "+0");
  EXPECT_EQ(quad((x * y + 1) * 0.0), "| +0");
  KLOQuadExpr q = x * y + 1;
  q *= 0.0;
  EXPECT_EQ(quad(q), "0*0*1 | +0");
}

TEST_F(QuadExpr, ProductsOfLinearExpressions) {
  EXPECT_EQ(quad((x + 1) * (y + 2)), "1*0*1 | 2*0 1*1 +2");
  EXPECT_EQ(quad(x * (2 * y + 3)), "2*0*1 | 3*0 +0");
  EXPECT_EQ(quad((2 * y + 3) * x), "2*0*1 | 3*0 +0");
  // Zero products stay as quadratic terms but not as linear ones.
  EXPECT_EQ(quad(KLOLinExpr(x, 0.0) * (y + 2)), "0*0*1 | +0");
}

TEST_F(QuadExpr, ComparisonsHoldLeftMinusRight) {
  const KLOTempConstr le = x + y <= 3;
  EXPECT_EQ(le.sense, '<');
  EXPECT_EQ(quad(le.expr), "| 1*0 1*1 +-3");
  const KLOTempConstr ge = x >= y;
  EXPECT_EQ(ge.sense, '>');
  EXPECT_EQ(quad(ge.expr), "| 1*0 -1*1 +0");
  const KLOTempConstr eq = 2 * x == 4;
  EXPECT_EQ(eq.sense, '=');
  EXPECT_EQ(quad(eq.expr), "| 2*0 +-4");
  EXPECT_EQ(quad((x * y >= 2 * z * x + 1).expr), "1*0*1 -2*0*2 | +-1");
}

TEST_F(QuadExpr, AppendingAVariableMatchesAppendingItsExpression) {
  KLOLinExpr a = 2 * y, b = 2 * y;
  a += x;
  b += KLOLinExpr(x);
  a -= z;
  b -= KLOLinExpr(z);
  EXPECT_EQ(lin(a), lin(b));
}

class PsdExpr : public ExprTest {};

TEST_F(PsdExpr, ValueCountsOffDiagonalEntriesTwice) {
  klo_fake::on("KLOgetmatattrelement", "PsdX")
      .outs(3, {1LL, 1LL})
      .outs(4, {2LL, 2LL})
      .outs(5, {2LL, 2LL})
      .outs(6, {klo_fake::Null{}, std::vector<int>{1}})
      .outs(7, {klo_fake::Null{}, std::vector<double>{3.0}});
  const KLOPsdExpr P(X, KLOMatrix::sparse(2, 2, {0, 1}, {1, 1}, {1.0, 5.0}));
  EXPECT_EQ(P.getValue(), 6.0);  // (1,1) is absent from the solution
}

TEST_F(PsdExpr, NegationAndSubtractionMakeNewMatrices) {
  const KLOMatrix M = KLOMatrix::identity(2);
  const KLOPsdExpr P = M * X + x;
  const KLOPsdExpr N = 1.0 - P;
  EXPECT_EQ(N.getCoeff(0).data()[0], -1.0);
  EXPECT_EQ(M.data()[0], 1.0);
  EXPECT_EQ(lin(N.getLinExpr()), "-1*0 +1");
  KLOPsdExpr D = P;
  D -= P;
  EXPECT_EQ(D.size(), 2);
  EXPECT_EQ(D.getCoeff(1).data()[1], -1.0);
  EXPECT_EQ(lin(D.getLinExpr()), "1*0 -1*0 +0");
}

TEST_F(PsdExpr, RemoveTakesEveryTermOfTheVariable) {
  KLOPsdExpr P = X * KLOMatrix::identity(2);
  P += KLOMatrix::ones(2, 2) * X;
  P += 2.0;
  P.remove(X);
  EXPECT_EQ(P.size(), 0);
  EXPECT_EQ(lin(P.getLinExpr()), "+2");
  EXPECT_EQ(thrown([&] { P.getCoeff(0); }).getErrorCode(), -2003);
}

}  // namespace
