// Semidefinite expressions: a linear part and (matrix, PSD variable) terms
// over copy-on-write storage.
#include <map>

#include "expr/arith.h"
#include "expr/compact.h"
#include "klo_cpp.h"

KLOPsdExpr::KLOPsdExpr(double constant)
    : linear_(constant),
      coeffs_(std::make_unique<Vec<KLOMatrix>>()),
      vars_(std::make_unique<Vec<KLOPsdVar>>()) {}

KLOPsdExpr::KLOPsdExpr(const KLOLinExpr& e) : KLOPsdExpr(0.0) { linear_ = e; }

KLOPsdExpr::KLOPsdExpr(KLOPsdVar X, KLOMatrix M) : KLOPsdExpr(0.0) { addTerm(M, X); }

KLOPsdExpr::KLOPsdExpr(const KLOPsdExpr& P)
    : linear_(P.linear_),
      coeffs_(std::make_unique<Vec<KLOMatrix>>(*P.coeffs_)),
      vars_(std::make_unique<Vec<KLOPsdVar>>(*P.vars_)) {}

KLOPsdExpr::~KLOPsdExpr() = default;

KLOPsdExpr& KLOPsdExpr::operator=(const KLOPsdExpr& P) {
  linear_ = P.linear_;
  *coeffs_ = *P.coeffs_;
  *vars_ = *P.vars_;
  return *this;
}

int KLOPsdExpr::size() const { return vars_->size(); }

KLOPsdVar KLOPsdExpr::getPsdVar(int i) const { return (*vars_)[i]; }

KLOMatrix KLOPsdExpr::getCoeff(int i) const { return (*coeffs_)[i]; }

KLOLinExpr KLOPsdExpr::getLinExpr() const { return linear_; }

namespace {

// <M, X> for a symmetric M stored as one triangle: an off-diagonal entry
// stands for itself and its mirror image.
double innerProduct(const KLOMatrix& M, const KLOMatrix& X) {
  std::map<int, double> solution;
  for (int k = 0; k < X.nonzeros(); ++k) solution[X.indices()[k]] = X.data()[k];
  double sum = 0.0;
  for (int k = 0; k < M.nonzeros(); ++k) {
    const int p = M.indices()[k];
    auto found = solution.find(p);
    if (found == solution.end() || M.rows() == 0) continue;
    const double product = M.data()[k] * found->second;
    sum += p / M.rows() == p % M.rows() ? product : 2.0 * product;
  }
  return sum;
}

}  // namespace

double KLOPsdExpr::getValue() const {
  double value = linear_.getValue();
  for (int i = 0; i < size(); ++i) {
    value += innerProduct((*coeffs_)[i], (*vars_)[i].get(KLO_MatAttr_PsdX));
  }
  return value;
}

void KLOPsdExpr::addTerm(const KLOMatrix& M, KLOPsdVar X) {
  coeffs_->push_back(M);
  vars_->push_back(X);
}

void KLOPsdExpr::addTerms(const double* coeffs, const KLOVar* vars, int count) {
  linear_.addTerms(coeffs, vars, count);
}

void KLOPsdExpr::append(const KLOPsdExpr& P, bool negate) {
  if (&P == this) {
    const KLOPsdExpr snapshot(P);
    append(snapshot, negate);
    return;
  }
  P.coeffs_->copyOnWrite();
  P.vars_->copyOnWrite();
  const std::vector<KLOMatrix>& coeffs = *P.coeffs_->vec;
  const std::vector<KLOPsdVar>& vars = *P.vars_->vec;
  for (std::size_t i = 0; i < coeffs.size(); ++i)
    addTerm(negate ? coeffs[i] * -1.0 : coeffs[i], vars[i]);
  if (negate) {
    linear_ -= P.linear_;
  } else {
    linear_ += P.linear_;
  }
}

void KLOPsdExpr::operator+=(const KLOPsdExpr& P) { append(P, false); }
void KLOPsdExpr::operator-=(const KLOPsdExpr& P) { append(P, true); }
void KLOPsdExpr::operator+=(const KLOLinExpr& e) { linear_ += e; }
void KLOPsdExpr::operator-=(const KLOLinExpr& e) { linear_ -= e; }
void KLOPsdExpr::operator+=(const KLOVar& x) { linear_ += x; }
void KLOPsdExpr::operator-=(const KLOVar& x) { linear_ -= x; }
void KLOPsdExpr::operator+=(double c) { linear_.addConstant(c); }
void KLOPsdExpr::operator-=(double c) { linear_.addConstant(-c); }

using klo_detail::minus;
using klo_detail::plus;

KLOPsdExpr KLOPsdExpr::operator+(const KLOPsdExpr& P) const { return plus(*this, P); }
KLOPsdExpr KLOPsdExpr::operator-(const KLOPsdExpr& P) const { return minus(*this, P); }
KLOPsdExpr KLOPsdExpr::operator+(const KLOLinExpr& e) const { return plus(*this, e); }
KLOPsdExpr KLOPsdExpr::operator-(const KLOLinExpr& e) const { return minus(*this, e); }
KLOPsdExpr KLOPsdExpr::operator+(const KLOVar& x) const { return plus(*this, x); }
KLOPsdExpr KLOPsdExpr::operator-(const KLOVar& x) const { return minus(*this, x); }
KLOPsdExpr KLOPsdExpr::operator+(double c) const { return plus(*this, c); }
KLOPsdExpr KLOPsdExpr::operator-(double c) const { return minus(*this, c); }

void KLOPsdExpr::remove(int i) {
  vars_->remove(i);
  coeffs_->remove(i);
}

void KLOPsdExpr::remove(KLOPsdVar X) {
  coeffs_->copyOnWrite();
  vars_->copyOnWrite();
  const std::size_t kept = klo_detail::removeHandle(*coeffs_->vec, *vars_->vec, X);
  coeffs_->n = vars_->n = static_cast<std::int32_t>(kept);
}

void KLOPsdExpr::clear() {
  linear_.clear();
  coeffs_->clear();
  vars_->clear();
}
