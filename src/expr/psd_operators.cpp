// The free operators that make or extend semidefinite expressions.
#include "klo_cpp.h"

KLOPsdExpr operator*(const KLOMatrix& M, KLOPsdVar X) {
  KLOPsdExpr product(0.0);
  product.addTerm(M, X);
  return product;
}

KLOPsdExpr operator*(KLOPsdVar X, const KLOMatrix& M) { return M * X; }

KLOPsdExpr operator-(const KLOPsdExpr& P) {
  KLOPsdExpr negated(0.0);
  negated.append(P, true);
  return negated;
}

KLOPsdExpr operator+(const KLOLinExpr& e, const KLOPsdExpr& P) { return P + e; }

KLOPsdExpr operator-(const KLOLinExpr& e, const KLOPsdExpr& P) { return -P + e; }

KLOPsdExpr operator+(KLOVar x, const KLOPsdExpr& P) { return P + x; }

KLOPsdExpr operator-(KLOVar x, const KLOPsdExpr& P) { return -P + x; }

KLOPsdExpr operator+(double c, const KLOPsdExpr& P) { return P + c; }

KLOPsdExpr operator-(double c, const KLOPsdExpr& P) { return -P + c; }
