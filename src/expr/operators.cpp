// The free operators over variables, linear and quadratic expressions, and
// the comparisons that make temporary constraints.
#include "expr/arith.h"
#include "klo_cpp.h"
#include "model/access.h"

using klo_detail::divided;
using klo_detail::minus;
using klo_detail::plus;
using klo_detail::times;

KLOLinExpr operator+(KLOVar x, KLOVar y) {
  KLOLinExpr sum;
  const double one = 1.0;
  sum.addTerms(&one, &x, 1);
  sum.addTerms(&one, &y, 1);
  return sum;
}

KLOLinExpr operator-(KLOVar x, KLOVar y) {
  static const double coeffs[2] = {1.0, -1.0};
  const KLOVar vars[2] = {x, y};
  KLOLinExpr difference;
  difference.addTerms(coeffs, vars, 2);
  return difference;
}

KLOLinExpr operator+(KLOVar x, double c) {
  KLOLinExpr sum(c);
  sum += x;
  return sum;
}

KLOLinExpr operator+(double c, KLOVar x) { return x + c; }

KLOLinExpr operator-(KLOVar x, double c) { return x + (-c); }

KLOLinExpr operator-(double c, KLOVar x) { return KLOLinExpr(x, -1.0) + KLOLinExpr(c); }

KLOLinExpr operator-(KLOVar x) { return KLOLinExpr(x, -1.0); }

KLOLinExpr operator*(double d, KLOVar x) { return d == 0.0 ? KLOLinExpr() : KLOLinExpr(x, d); }

KLOLinExpr operator*(KLOVar x, double d) { return d * x; }

KLOLinExpr operator/(KLOVar x, double d) { return KLOLinExpr(x, 1.0 / d); }

KLOLinExpr operator+(const KLOLinExpr& a, const KLOLinExpr& b) { return plus(a, b); }

KLOLinExpr operator-(const KLOLinExpr& a, const KLOLinExpr& b) { return minus(a, b); }

KLOLinExpr operator+(const KLOLinExpr& a) { return a; }

KLOLinExpr operator-(const KLOLinExpr& a) { return a * -1.0; }

KLOLinExpr operator*(const KLOLinExpr& a, double d) { return times(a, d); }

KLOLinExpr operator*(double d, const KLOLinExpr& a) { return a * d; }

KLOLinExpr operator/(const KLOLinExpr& a, double d) { return divided(a, d); }

KLOQuadExpr operator*(KLOVar x, KLOVar y) {
  KLOQuadExpr product;
  product.addTerm(1.0, x, y);
  return product;
}

KLOQuadExpr operator*(KLOVar x, const KLOLinExpr& e) {
  KLOQuadExpr product;
  for (int i = 0; i < e.size(); ++i) product.appendTerm(e.getCoeff(i), x, e.getVar(i));
  if (e.getConstant() != 0.0) product.addTerm(e.getConstant(), x);
  return product;
}

KLOQuadExpr operator*(const KLOLinExpr& e, KLOVar x) { return x * e; }

KLOQuadExpr operator*(const KLOLinExpr& a, const KLOLinExpr& b) {
  KLOQuadExpr product;
  // Read each operand's terms once (element access would privatise and
  // check on every read).
  std::vector<double> ac, bc;
  std::vector<KLOVar> av, bv;
  for (int i = 0; i < a.size(); ++i) {
    ac.push_back(a.getCoeff(i));
    av.push_back(a.getVar(i));
  }
  for (int j = 0; j < b.size(); ++j) {
    bc.push_back(b.getCoeff(j));
    bv.push_back(b.getVar(j));
  }
  product.reserve(ac.size() * bc.size());
  for (std::size_t i = 0; i < ac.size(); ++i) {
    for (std::size_t j = 0; j < bc.size(); ++j) product.appendTerm(ac[i] * bc[j], av[i], bv[j]);
  }
  const double ka = a.getConstant();
  const double kb = b.getConstant();
  if (kb != 0.0) {
    for (std::size_t i = 0; i < ac.size(); ++i) product.addTerm(ac[i] * kb, av[i]);
  }
  if (ka != 0.0) {
    for (std::size_t j = 0; j < bc.size(); ++j) product.addTerm(ka * bc[j], bv[j]);
  }
  if (ka * kb != 0.0) product.addConstant(ka * kb);
  return product;
}

KLOQuadExpr operator+(const KLOQuadExpr& p, const KLOQuadExpr& q) { return plus(p, q); }

KLOQuadExpr operator-(const KLOQuadExpr& p, const KLOQuadExpr& q) { return plus(p, -q); }

KLOQuadExpr operator+(const KLOQuadExpr& p) { return p; }

KLOQuadExpr operator-(const KLOQuadExpr& p) {
  KLOQuadExpr negated(p);
  negated *= -1.0;
  return negated;
}

KLOQuadExpr operator*(const KLOQuadExpr& p, double d) { return times(p, d); }

KLOQuadExpr operator*(double d, const KLOQuadExpr& p) { return p * d; }

KLOQuadExpr operator/(const KLOQuadExpr& p, double d) { return divided(p, d); }

KLOTempConstr operator<=(const KLOQuadExpr& a, const KLOQuadExpr& b) {
  KLOTempConstr tc{'<', a};
  tc.expr -= b;
  return tc;
}

KLOTempConstr operator==(const KLOQuadExpr& a, const KLOQuadExpr& b) {
  KLOTempConstr tc{'=', a};
  tc.expr -= b;
  return tc;
}

KLOTempConstr operator>=(const KLOQuadExpr& a, const KLOQuadExpr& b) {
  KLOTempConstr tc{'>', a};
  tc.expr += -b;
  return tc;
}

namespace {

void subtract(KLOLinExpr& e, double c) { e.addConstant(-c); }

template <class R>
void subtract(KLOLinExpr& e, const R& r) {
  e -= r;
}

// a - b as the comparisons of quadratic sides make it (a's terms, then b's
// negated), with no quadratic side built for either.
template <class L, class R>
KLOTempConstr compared(char sense, const L& a, const R& b) {
  KLOTempConstr tc{sense, KLOQuadExpr(a)};
  subtract(klo_detail::Access::linear(tc.expr), b);
  return tc;
}

}  // namespace

#define KLO_LINEAR_COMPARISONS(L, R)                                 \
  KLOTempConstr operator<=(L a, R b) { return compared('<', a, b); } \
  KLOTempConstr operator==(L a, R b) { return compared('=', a, b); } \
  KLOTempConstr operator>=(L a, R b) { return compared('>', a, b); }

KLO_LINEAR_COMPARISONS(const KLOLinExpr&, const KLOLinExpr&)
KLO_LINEAR_COMPARISONS(const KLOLinExpr&, double)
KLO_LINEAR_COMPARISONS(double, const KLOLinExpr&)
KLO_LINEAR_COMPARISONS(KLOVar, KLOVar)

#undef KLO_LINEAR_COMPARISONS
