// Linear expressions: a constant and (coefficient, variable) terms over
// copy-on-write storage.
#include "expr/compact.h"
#include "klo_cpp.h"

// The buffers come with the first term (Vec(nullptr)).
KLOLinExpr::KLOLinExpr(double constant)
    : constant_(constant), coeffs_(new Vec<double>(nullptr)), vars_(new Vec<KLOVar>(nullptr)) {}

KLOLinExpr::KLOLinExpr(KLOVar var, double coeff) : KLOLinExpr(0.0) {
  coeffs_->push_back(coeff);
  vars_->push_back(var);
}

KLOLinExpr::KLOLinExpr(const KLOLinExpr& e)
    : constant_(e.constant_),
      coeffs_(std::make_unique<Vec<double>>(*e.coeffs_)),
      vars_(std::make_unique<Vec<KLOVar>>(*e.vars_)) {}

KLOLinExpr::~KLOLinExpr() = default;

KLOLinExpr& KLOLinExpr::operator=(const KLOLinExpr& e) {
  constant_ = e.constant_;
  *coeffs_ = *e.coeffs_;
  *vars_ = *e.vars_;
  return *this;
}

int KLOLinExpr::size() const { return coeffs_->size(); }

KLOVar KLOLinExpr::getVar(int i) const { return (*vars_)[i]; }

double KLOLinExpr::getCoeff(int i) const { return (*coeffs_)[i]; }

double KLOLinExpr::getConstant() const { return constant_; }

void KLOLinExpr::addConstant(double c) { constant_ += c; }

double KLOLinExpr::getValue() const {
  double value = constant_;
  for (int i = 0; i < size(); ++i) value += (*coeffs_)[i] * (*vars_)[i].get(KLO_DoubleAttr_X);
  return value;
}

void KLOLinExpr::addTerms(const double* coeffs, const KLOVar* vars, int count) {
  for (int i = 0; i < count; ++i) {
    if (coeffs[i] != 0.0) appendTerm(coeffs[i], vars[i]);
  }
}

void KLOLinExpr::append(const KLOLinExpr& e, double sign) {
  if (&e == this) {
    // Appending to itself would chase its own end: work from a snapshot.
    const KLOLinExpr snapshot(e);
    append(snapshot, sign);
    return;
  }
  constant_ += sign * e.constant_;
  if (e.size() == 0) return;
  // Element access would privatise e's buffers on the first read and read
  // them directly after that: do it once and walk them.
  e.coeffs_->copyOnWrite();
  e.vars_->copyOnWrite();
  const std::vector<double>& coeffs = *e.coeffs_->vec;
  const std::vector<KLOVar>& vars = *e.vars_->vec;
  for (std::size_t i = 0; i < coeffs.size(); ++i) {
    coeffs_->push_back(sign * coeffs[i]);
    vars_->push_back(vars[i]);
  }
}

void KLOLinExpr::operator+=(const KLOLinExpr& e) { append(e, 1.0); }

void KLOLinExpr::operator-=(const KLOLinExpr& e) { append(e, -1.0); }

// The same terms as += KLOLinExpr(x), without building and walking a
// one-term expression.
void KLOLinExpr::operator+=(const KLOVar& x) { appendTerm(1.0, x); }

void KLOLinExpr::operator-=(const KLOVar& x) { appendTerm(-1.0, x); }

void KLOLinExpr::appendTerm(double coeff, const KLOVar& var) {
  coeffs_->push_back(coeff);
  vars_->push_back(var);
}

void KLOLinExpr::operator*=(double d) {
  constant_ *= d;
  coeffs_->copyOnWrite();
  for (double& c : *coeffs_->vec) c *= d;
}

void KLOLinExpr::operator/=(double d) {
  constant_ /= d;
  coeffs_->copyOnWrite();
  for (double& c : *coeffs_->vec) c /= d;
}

KLOLinExpr KLOLinExpr::operator+(const KLOLinExpr& e) { return ::operator+(*this, e); }

KLOLinExpr KLOLinExpr::operator-(const KLOLinExpr& e) { return ::operator-(*this, e); }

KLOLinExpr KLOLinExpr::operator+(const KLOVar& x) {
  KLOLinExpr sum(*this);
  sum += x;
  return sum;
}

KLOLinExpr KLOLinExpr::operator-(const KLOVar& x) {
  KLOLinExpr difference(*this);
  difference -= x;
  return difference;
}

void KLOLinExpr::remove(int i) {
  vars_->remove(i);
  coeffs_->remove(i);
}

void KLOLinExpr::remove(KLOVar v) {
  coeffs_->copyOnWrite();
  vars_->copyOnWrite();
  const std::size_t kept = klo_detail::removeHandle(*coeffs_->vec, *vars_->vec, v);
  coeffs_->n = vars_->n = static_cast<std::int32_t>(kept);
}

void KLOLinExpr::clear() {
  constant_ = 0.0;
  coeffs_->clear();
  vars_->clear();
}
