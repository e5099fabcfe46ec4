// Columns: (coefficient, constraint) terms of a variable to be added.
#include <utility>

#include "env/check.h"
#include "expr/compact.h"
#include "klo_c.h"
#include "klo_cpp.h"

int KLOColumn::size() const { return static_cast<int>(coeffs_.size()); }

KLOConstr KLOColumn::getConstr(int i) const { return constrs_[static_cast<std::size_t>(i)]; }

double KLOColumn::getCoeff(int i) const { return coeffs_[static_cast<std::size_t>(i)]; }

void KLOColumn::addTerm(double coeff, KLOConstr constr) {
  coeffs_.push_back(coeff);
  constrs_.push_back(std::move(constr));
}

void KLOColumn::addTerms(const double* coeffs, const KLOConstr* constrs, int count) {
  for (int i = 0; i < count; ++i) addTerm(coeffs[i], constrs[i]);
}

void KLOColumn::remove(int i) {
  if (i < 0 || i >= static_cast<int>(constrs_.size()))
    klo_detail::raise(KLO_ERROR_INVALID_ARGUMENT);
  coeffs_.erase(coeffs_.begin() + i);
  constrs_.erase(constrs_.begin() + i);
}

void KLOColumn::remove(KLOConstr c) { klo_detail::removeHandle(coeffs_, constrs_, c); }

void KLOColumn::clear() {
  coeffs_.clear();
  constrs_.clear();
}
