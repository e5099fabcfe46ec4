// Quadratic expressions: a linear part and (coefficient, variable,
// variable) terms over copy-on-write storage.
#include "expr/compact.h"
#include "klo_cpp.h"

// The buffers of the quadratic terms come with the first term (Vec(nullptr)).
#define KLO_NO_QUADRATIC_TERMS                                         \
  coeffs_(new Vec<double>(nullptr)), vars1_(new Vec<KLOVar>(nullptr)), \
      vars2_(new Vec<KLOVar>(nullptr))

KLOQuadExpr::KLOQuadExpr(double constant) : linear_(constant), KLO_NO_QUADRATIC_TERMS {}

KLOQuadExpr::KLOQuadExpr(KLOVar var, double coeff) : linear_(var, coeff), KLO_NO_QUADRATIC_TERMS {}

KLOQuadExpr::KLOQuadExpr(const KLOLinExpr& e) : linear_(e), KLO_NO_QUADRATIC_TERMS {}

#undef KLO_NO_QUADRATIC_TERMS

KLOQuadExpr::KLOQuadExpr(const KLOQuadExpr& q)
    : linear_(q.linear_),
      coeffs_(std::make_unique<Vec<double>>(*q.coeffs_)),
      vars1_(std::make_unique<Vec<KLOVar>>(*q.vars1_)),
      vars2_(std::make_unique<Vec<KLOVar>>(*q.vars2_)) {}

KLOQuadExpr::~KLOQuadExpr() = default;

KLOQuadExpr& KLOQuadExpr::operator=(const KLOQuadExpr& q) {
  linear_ = q.linear_;
  *coeffs_ = *q.coeffs_;
  *vars1_ = *q.vars1_;
  *vars2_ = *q.vars2_;
  return *this;
}

int KLOQuadExpr::size() const { return coeffs_->size(); }

KLOVar KLOQuadExpr::getVar1(int i) const { return (*vars1_)[i]; }

KLOVar KLOQuadExpr::getVar2(int i) const { return (*vars2_)[i]; }

double KLOQuadExpr::getCoeff(int i) const { return (*coeffs_)[i]; }

KLOLinExpr KLOQuadExpr::getLinExpr() const { return linear_; }

double KLOQuadExpr::getValue() const {
  double value = linear_.getValue();
  for (int i = 0; i < size(); ++i) {
    value +=
        (*coeffs_)[i] * (*vars1_)[i].get(KLO_DoubleAttr_X) * (*vars2_)[i].get(KLO_DoubleAttr_X);
  }
  return value;
}

void KLOQuadExpr::addConstant(double c) { linear_.addConstant(c); }

void KLOQuadExpr::addTerm(double coeff, KLOVar var) { linear_.addTerms(&coeff, &var, 1); }

void KLOQuadExpr::addTerm(double coeff, KLOVar var1, KLOVar var2) {
  if (coeff != 0.0) appendTerm(coeff, var1, var2);
}

void KLOQuadExpr::appendTerm(double coeff, const KLOVar& var1, const KLOVar& var2) {
  coeffs_->push_back(coeff);
  vars1_->push_back(var1);
  vars2_->push_back(var2);
}

// Room for that many more quadratic terms: a product knows its size.
void KLOQuadExpr::reserve(std::size_t terms) {
  for (Vec<double>* v : {coeffs_.get()}) {
    v->copyOnWrite();
    v->vec->reserve(v->vec->size() + terms);
  }
  for (Vec<KLOVar>* v : {vars1_.get(), vars2_.get()}) {
    v->copyOnWrite();
    v->vec->reserve(v->vec->size() + terms);
  }
}

void KLOQuadExpr::addTerms(const double* coeffs, const KLOVar* vars, int count) {
  linear_.addTerms(coeffs, vars, count);
}

void KLOQuadExpr::addTerms(const double* coeffs, const KLOVar* vars1, const KLOVar* vars2,
                           int count) {
  for (int i = 0; i < count; ++i) addTerm(coeffs[i], vars1[i], vars2[i]);
}

void KLOQuadExpr::add(KLOLinExpr e) { linear_ += e; }

void KLOQuadExpr::append(const KLOQuadExpr& q, double sign) {
  if (&q == this) {
    // Appending to itself would chase its own end: work from a snapshot.
    const KLOQuadExpr snapshot(q);
    append(snapshot, sign);
    return;
  }
  if (sign > 0) {
    linear_ += q.linear_;
  } else {
    linear_ -= q.linear_;
  }
  if (q.size() == 0) return;
  q.coeffs_->copyOnWrite();
  q.vars1_->copyOnWrite();
  q.vars2_->copyOnWrite();
  const std::vector<double>& coeffs = *q.coeffs_->vec;
  const std::vector<KLOVar>& vars1 = *q.vars1_->vec;
  const std::vector<KLOVar>& vars2 = *q.vars2_->vec;
  for (std::size_t i = 0; i < coeffs.size(); ++i) appendTerm(sign * coeffs[i], vars1[i], vars2[i]);
}

void KLOQuadExpr::operator+=(const KLOQuadExpr& q) { append(q, 1.0); }

void KLOQuadExpr::operator-=(const KLOQuadExpr& q) { append(q, -1.0); }

void KLOQuadExpr::scale(double d, bool divide) {
  if (divide) {
    linear_ /= d;
  } else {
    linear_ *= d;
  }
  coeffs_->copyOnWrite();
  for (double& c : *coeffs_->vec) c = divide ? c / d : c * d;
}

void KLOQuadExpr::operator*=(double d) { scale(d, false); }

void KLOQuadExpr::operator/=(double d) { scale(d, true); }

KLOQuadExpr KLOQuadExpr::operator+(const KLOQuadExpr& q) { return ::operator+(*this, q); }

KLOQuadExpr KLOQuadExpr::operator-(const KLOQuadExpr& q) { return ::operator-(*this, q); }

void KLOQuadExpr::remove(int i) {
  coeffs_->remove(i);
  vars1_->remove(i);
  vars2_->remove(i);
}

void KLOQuadExpr::remove(KLOVar v) {
  coeffs_->copyOnWrite();
  vars1_->copyOnWrite();
  vars2_->copyOnWrite();
  std::vector<double>& coeffs = *coeffs_->vec;
  std::vector<KLOVar>& vars1 = *vars1_->vec;
  std::vector<KLOVar>& vars2 = *vars2_->vec;
  const auto& record = klo_detail::Access::id(v);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < coeffs.size(); ++i) {
    if (klo_detail::Access::id(vars1[i]) == record || klo_detail::Access::id(vars2[i]) == record)
      continue;
    coeffs[kept] = coeffs[i];
    vars1[kept] = vars1[i];
    vars2[kept] = vars2[i];
    ++kept;
  }
  coeffs.resize(kept);
  vars1.resize(kept);
  vars2.resize(kept);
  coeffs_->n = vars1_->n = vars2_->n = static_cast<std::int32_t>(kept);
  linear_.remove(v);
}

void KLOQuadExpr::clear() {
  linear_.clear();
  coeffs_->clear();
  vars1_->clear();
  vars2_->clear();
}
