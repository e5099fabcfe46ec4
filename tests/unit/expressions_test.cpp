// Expressions: the copy-on-write vectors under them, linear, quadratic and
// semidefinite terms, the operator algebra (terms are appended, never
// merged), evaluation against the solution and printing.
#include <cmath>
#include <iomanip>

#include "fixture.h"
#include "model/records.h"

namespace {

using Expressions = ExprTest;

Vec<double> vec(std::initializer_list<double> items) {
  Vec<double> v;
  for (double d : items) v.push_back(d);
  return v;
}

TEST_F(Expressions, VecCopiesShareABufferUntilOneWritesOrReads) {
  Vec<double> b = vec({1, 2, 3});
  Vec<double> a = b;
  ASSERT_EQ(a.buffer(), b.buffer());
  a.push_back(10);  // the longer sharer appends in place
  EXPECT_EQ(a.size(), 4);
  EXPECT_EQ(b.size(), 3);
  EXPECT_EQ(a.buffer(), b.buffer());
  b.push_back(20);  // b no longer ends where the buffer ends: it copies
  EXPECT_NE(a.buffer(), b.buffer());
  EXPECT_EQ(a[3], 10);
  EXPECT_EQ(b[3], 20);
  EXPECT_EQ(b.buffer()->size(), 4u);
  Vec<double> c = b;  // reading a shared element privatises the reader
  const std::vector<double>* shared = b.buffer();
  EXPECT_EQ(c[0], 1);
  EXPECT_NE(c.buffer(), shared);
  EXPECT_EQ(b.buffer(), shared);
  EXPECT_EQ(b.useCount(), 1);
  Vec<double> d = b;
  d.remove(0);
  EXPECT_EQ(d.size(), 3);
  EXPECT_EQ(d[0], 2);
  EXPECT_EQ(b[0], 1);
  EXPECT_EQ(b.size(), 4);
}

TEST_F(Expressions, VecTrimsClearsSetsAndChecksPositions) {
  Vec<double> a = vec({1, 2, 3});
  {
    Vec<double> longer = a;
    longer.push_back(4);
  }
  EXPECT_EQ(a.buffer()->size(), 4u);  // the extra element outlived its appender
  a.copyOnWrite();
  EXPECT_EQ(a.buffer()->size(), 3u);
  klo_fake::explain(-2003, "Invalid variable index");
  EXPECT_EQ(failure([&] { a.checkId(-1); }), "-2003 Invalid variable index");
  EXPECT_EQ(code([&] { a.checkId(3); }), -2003);
  EXPECT_NO_THROW(a.checkId(2));
  EXPECT_EQ(code([&] { a.remove(3); }), -2003);
  EXPECT_EQ(a.size(), 3);
  Vec<double> b = a;
  a.clear();
  EXPECT_EQ(a.size(), 0);
  EXPECT_EQ(a.buffer(), nullptr);
  EXPECT_EQ(a.useCount(), 0);
  a.push_back(7);
  EXPECT_EQ(a[0], 7);
  EXPECT_EQ(b[1], 2);
  Vec<double> c;
  c.clear();
  c.copyOnWrite();
  EXPECT_NE(c.buffer(), nullptr);
  std::vector<double> source{4, 5, 6};
  b.setVec(source);
  source[0] = 0;
  EXPECT_EQ(b.size(), 3);
  EXPECT_EQ(b[0], 4);
  Vec<KLOVar> vars;
  vars.push_back(x);
  Vec<KLOVar> copy = vars;
  copy.copyOnWrite();
  EXPECT_TRUE(copy[0].sameAs(x));
  Vec<KLOMatrix> mats;
  mats.push_back(KLOMatrix::identity(2));
  EXPECT_EQ(mats[0].nonzeros(), 2);
}

// The constructor keeps a zero coefficient, the free operators do not; zero
// products stay quadratic only; (2 * x) * y puts y first.
TEST_F(Expressions, OperatorsAppendTermsInOrderWithoutMerging) {
  const std::vector<std::pair<KLOLinExpr, std::string>> cases = {
      {x, "1*0 +0"},
      {2.5, "+2.5"},
      {x + x, "1*0 1*0 +0"},
      {x - x, "1*0 -1*0 +0"},
      {5 - x, "-1*0 +5"},
      {x - 5, "1*0 +-5"},
      {-x, "-1*0 +0"},
      {x / 0.0, "inf*0 +0"},
      {0.0 * x, "+0"},
      {x * 0.0, "+0"},
      {(x + y + 3) * 0.0, "+0"},
      {KLOLinExpr(x, 0.0), "0*0 +0"},
  };
  for (const auto& [e, terms] : cases) EXPECT_EQ(lin(e), terms);
  const std::vector<std::pair<KLOQuadExpr, std::string>> quads = {
      {(x + 1) * (y + 2), "1*0*1 | 2*0 1*1 +2"},
      {x * (2 * y + 3), "2*0*1 | 3*0 +0"},
      {(2 * y + 3) * x, "2*0*1 | 3*0 +0"},
      {KLOLinExpr(x, 0.0) * (y + 2), "0*0*1 | +0"},
      {(x * y + 1) * 0.0, "| +0"},
      {KLOQuadExpr(x, 0.0), "| 0*0 +0"},
      {2 * x * y + 3 * y * x + 4 * x, "2*1*0 3*0*1 | 4*0 +0"},
  };
  for (const auto& [q, terms] : quads) EXPECT_EQ(quad(q), terms);
}

TEST_F(Expressions, CompoundAssignmentsShareCopiesAndHandleAliasing) {
  // Sums append to a copy sharing the left operand's buffer: none may see
  // another's terms.
  KLOLinExpr base = x + 2 * y;  // not const: the member operators
  const KLOLinExpr sums[] = {base + 3 * x, base - 4 * y, base + y, base - x};
  EXPECT_EQ(lin(sums[0]) + " " + lin(sums[1]), "1*0 2*1 3*0 +0 1*0 2*1 -4*1 +0");
  EXPECT_EQ(lin(sums[2]) + " " + lin(sums[3]), "1*0 2*1 1*1 +0 1*0 2*1 -1*0 +0");
  EXPECT_EQ(lin(base), "1*0 2*1 +0");
  KLOLinExpr e = 4 * x + 5;
  const KLOLinExpr shared = e;
  e -= 2 * x + 3;
  EXPECT_EQ(lin(e), "4*0 -2*0 +2");
  e += e;
  EXPECT_EQ(lin(e), "4*0 -2*0 4*0 -2*0 +4");
  e -= e;
  EXPECT_EQ(lin(e), "4*0 -2*0 4*0 -2*0 -4*0 2*0 -4*0 2*0 +0");
  e = shared;
  e *= 0.0;  // the member keeps its terms, unlike the free operator
  EXPECT_EQ(lin(e), "0*0 +0");
  e.addConstant(1.5);
  e.addConstant(1.0);
  EXPECT_EQ(lin(e), "0*0 +2.5");
  KLOLinExpr inf = shared;
  inf /= 0.0;
  EXPECT_EQ(lin(inf), "inf*0 +inf");
  EXPECT_EQ(lin(shared), "4*0 +5");
  KLOLinExpr nan = KLOLinExpr(x, 0.0);
  nan /= 0.0;
  EXPECT_TRUE(std::isnan(nan.getCoeff(0)));
  KLOLinExpr a = 2 * y;
  a += x;
  a -= z;
  EXPECT_EQ(lin(a), "2*1 1*0 -1*2 +0");
  KLOQuadExpr q = x * y + 1;
  q += q;
  EXPECT_EQ(quad(q), "1*0*1 1*0*1 | +2");
  q -= q;
  EXPECT_EQ(quad(q), "1*0*1 1*0*1 -1*0*1 -1*0*1 | +0");
  q *= 0.0;
  EXPECT_EQ(quad(q), "0*0*1 0*0*1 -0*0*1 -0*0*1 | +0");
}

TEST_F(Expressions, AddTermsDropsZerosAndRemovalTakesEveryOccurrence) {
  KLOLinExpr e(3.0);
  const double c[] = {0.0, 2.0, -0.0};
  const KLOVar v[] = {x, y, x};
  e.addTerms(c, v, 3);
  e.addTerms(c, v, 0);
  e.addTerms(c, v, -1);
  EXPECT_EQ(lin(e), "2*1 +3");
  e += x + 2 * x;
  const KLOLinExpr before = e;
  e.remove(x);
  EXPECT_EQ(lin(e), "2*1 +3");
  EXPECT_EQ(before.size(), 3);
  int otherStandIn = 0;
  e.remove(klo_detail::newHandle<KLOVar>(&otherStandIn, 1));  // same index, other record
  EXPECT_EQ(e.size(), 1);
  e += 5 * z;
  e.remove(0);
  EXPECT_EQ(lin(e), "5*2 +3");
  EXPECT_EQ(code([&] { e.remove(1); }), -2003);
  EXPECT_EQ(code([&] { e.getCoeff(e.size()); }), -2003);
  EXPECT_EQ(code([&] { e.getVar(-1); }), -2003);
  e.clear();
  EXPECT_EQ(lin(e), "+0");
  e += KLOLinExpr(y, 5.0);
  EXPECT_EQ(lin(e), "5*1 +0");
  e.clear();
  e *= 2.0;
  EXPECT_EQ(e.size(), 0);
  EXPECT_EQ(lin(before), "2*1 1*0 2*0 +3");
  KLOQuadExpr q;
  q.addTerm(0.0, x, y);
  q.addTerm(0.0, x);
  EXPECT_EQ(quad(q), "| +0");
  q = 2 * x * y + 3 * y * x + y * z + 4 * x;
  q.remove(x);
  EXPECT_EQ(quad(q), "1*1*2 | +0");
  q += 3 * x * z;
  q.remove(0);  // every slot of the position goes
  EXPECT_EQ(quad(q), "3*2*0 | +0");
  EXPECT_EQ(code([&] { q.remove(1); }), -2003);
}

TEST_F(Expressions, CombiningLikeQuadraticTermsKeysByThePairAsGiven) {
  std::vector<double> c{1, 2, 3};
  std::vector<KLOVar> v1{x, x, y}, v2{y, y, x};
  combineLikeQTerms(c, v1, v2);
  EXPECT_EQ(c, (Doubles{3, 3}));  // the larger index is stored first
  EXPECT_EQ(indices(v1), (Ints{1, 1}));
  EXPECT_EQ(indices(v2), (Ints{0, 0}));
  c = {1, -1, 4};
  v1 = {z, z, x};
  v2 = {x, x, x};
  combineLikeQTerms(c, v1, v2);
  EXPECT_EQ(c, (Doubles{4, 0}));  // zero sums stay
  EXPECT_EQ(indices(v1), (Ints{0, 2}));
  c.clear(), v1.clear(), v2.clear();
  combineLikeQTerms(c, v1, v2);
  EXPECT_TRUE(c.empty() && v1.empty() && v2.empty());
}

TEST_F(Expressions, ComparisonsHoldLeftMinusRight) {
  const KLOTempConstr le = x + y <= 3, ge = x >= y, eq = 2 * x == 4;
  EXPECT_EQ(num(le.sense) + num(ge.sense) + num(eq.sense), "<>=");
  EXPECT_EQ(quad(le.expr), "| 1*0 1*1 +-3");
  EXPECT_EQ(quad(ge.expr), "| 1*0 -1*1 +0");
  EXPECT_EQ(quad(eq.expr), "| 2*0 +-4");
  EXPECT_EQ(quad((x * y >= 2 * z * x + 1).expr), "1*0*1 -2*0*2 | +-1");
}

TEST_F(Expressions, ValuesReadEachFactorsSolution) {
  klo_fake::on("KLOgetdblattrelement", "X").outs(3, {3.0, 4.0});
  const KLOLinExpr e = x + 2 * y + 1;
  EXPECT_EQ(e.getValue(), 12.0);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetdblattrelement(ptr, \"X\", 0, ptr)",
                                     "KLOgetdblattrelement(ptr, \"X\", 1, ptr)"}));
  klo_fake::reset();
  klo_fake::on("KLOgetdblattrelement", "X").outs(3, {2.0, 2.0, 5.0});
  EXPECT_EQ((x * y + x + 1).getValue(), 13.0);
  klo_fake::on("KLOgetdblattrelement", "X").status(-6);
  EXPECT_EQ(code([&] { e.getValue(); }), -6);
  script(klo_fake::on("KLOgetmatattrelement", "PsdX"), {{3, 1LL}, {4, 2LL}, {5, 2LL}},
         {{6, Ints{1}}, {7, Doubles{3}}});
  const KLOPsdExpr P(X, KLOMatrix::sparse(2, 2, {0, 1}, {1, 1}, {1.0, 5.0}));
  EXPECT_EQ(P.getValue(), 6.0);  // off-diagonal twice; (1,1) is absent from the solution
}

TEST_F(Expressions, PsdExpressionsMakeNewMatricesAndRemoveEveryTerm) {
  const KLOMatrix M = KLOMatrix::identity(2);
  const KLOPsdExpr P = M * X + x;
  const KLOPsdExpr N = 1.0 - P;
  EXPECT_EQ(N.getCoeff(0).data()[0], -1.0);
  EXPECT_EQ(M.data()[0], 1.0);
  EXPECT_EQ(lin(N.getLinExpr()), "-1*0 +1");
  EXPECT_EQ(lin((y - P).getLinExpr()), "-1*0 1*1 +0");
  EXPECT_EQ(lin((KLOLinExpr(y) - P).getLinExpr()), "-1*0 1*1 +0");
  KLOPsdExpr D = P;
  D -= P;
  EXPECT_EQ(D.size(), 2);
  EXPECT_EQ(D.getCoeff(1).data()[1], -1.0);
  EXPECT_EQ(lin(D.getLinExpr()), "1*0 -1*0 +0");
  KLOPsdExpr R = X * KLOMatrix::identity(2);
  R += KLOMatrix::ones(2, 2) * X;
  R += 2.0;
  R.remove(X);
  EXPECT_EQ(R.size(), 0);
  EXPECT_EQ(lin(R.getLinExpr()), "+2");
  EXPECT_EQ(code([&] { R.getCoeff(0); }), -2003);
}

TEST_F(Expressions, ColumnsKeepZerosAndCheckRemovalPositions) {
  auto rows = readModel(0, 2);
  const KLOConstr c0 = Access::constrs(*rows)[0], c1 = Access::constrs(*rows)[1];
  KLOColumn col;
  const double coeffs[] = {0.0, 1.0, 2.0};
  const KLOConstr constrs[] = {c0, c1, c0};
  col.addTerms(coeffs, constrs, 3);
  col.addTerms(coeffs, constrs, -2);
  EXPECT_EQ(col.size(), 3);
  klo_fake::explain(-3, "Invalid argument");
  EXPECT_EQ(failure([&] { col.remove(3); }), "-3 Invalid argument");
  EXPECT_EQ(code([&] { col.remove(-1); }), -3);
  col.remove(c0);
  ASSERT_EQ(col.size(), 1);
  EXPECT_TRUE(col.getConstr(0).sameAs(c1));
  col.addTerm(4.0, c0);
  col.remove(0);
  EXPECT_EQ(col.getCoeff(0), 4.0);
  col.clear();
  EXPECT_EQ(col.size(), 0);
}

// Printing asks the library for each variable's name, in term order.
TEST_F(Expressions, PrintingMatchesTheEstablishedFormsByteForByte) {
  const auto printed = [](std::vector<klo_fake::Value> names, const auto& e) {
    klo_fake::reset();
    klo_fake::on("KLOgetstrattrelement", "VarName").outs(3, std::move(names));
    return num(e);
  };
  KLOLinExpr zeroed = x + 2 * y;
  zeroed *= 0.0;
  EXPECT_EQ(printed({"x", "y"}, 2 * x - y + 3), "2 * x - y + 3");
  EXPECT_EQ(printed({"x"}, -x + 1), "- x + 1");
  EXPECT_EQ(printed({}, KLOLinExpr()), "");
  EXPECT_EQ(printed({}, KLOLinExpr(-2.0)), "- 2");
  EXPECT_EQ(printed({}, KLOLinExpr(1.0)), "1");
  EXPECT_EQ(printed({"x", "y"}, zeroed), "");
  EXPECT_EQ(printed({"x"}, KLOLinExpr(x, 1.0000001)), "1 * x");
  EXPECT_EQ(printed({""}, x + 0.0), "1");
  EXPECT_EQ(printed({"x"}, KLOLinExpr(x, 123456789.0)), "1.23457e+08 * x");
  EXPECT_EQ(printed({"x", "y", "x"}, x * y + 2 * x + 1), "x * y2 * x + 1");
  EXPECT_EQ(printed({"x"}, KLOQuadExpr(2 * x + 1)), " * x + 1");
  EXPECT_EQ(printed({"x", "y", "x"}, x * y - 2 * x), "x * y- 2 * x");
  EXPECT_EQ(printed({"x", "y"}, -3 * (x * y)), "- 3 * x * y");
  EXPECT_EQ(printed({}, KLOQuadExpr()), "");
  printed({"x"}, KLOLinExpr());
  std::ostringstream os;  // the caller's stream state is neither used nor changed
  os << std::fixed << std::setprecision(2) << 2.5 * x;
  EXPECT_EQ(os.str(), "2.5 * x");
  EXPECT_EQ(os.precision(), 2);
  klo_fake::reset();
  klo_fake::on("KLOgetstrattrelement", "VarName").statuses({0, -2003});
  std::ostringstream failing;
  EXPECT_EQ(code([&] { failing << x + y; }), -2003);
  EXPECT_EQ(failing.str(), "");  // a failing name writes nothing
}

}  // namespace
