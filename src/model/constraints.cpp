// Looking up, changing, reading back and removing rows.  One row numbering
// serves linear, quadratic and PSD rows: a removal renumbers the row's
// three handle vectors together.
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/records.h"
#include "model/terms.h"

using klo_detail::check;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// The position of a row handle in its vector: the record's index, or one
// less for quadratic records numbered one past their row.
template <class H>
int position(const std::vector<H>& handles, const H& h, void* model) {
  if (klo_detail::record(h).model != model) klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  const int k = h.index();
  for (int p : {k, k - 1}) {
    if (p >= 0 && p < static_cast<int>(handles.size()) && handles[p].sameAs(h)) return p;
  }
  klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
}

}  // namespace

KLOConstr KLOModel::getConstr(int i) const {
  if (i < 0 || i >= static_cast<int>(constrs_.size())) klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  return constrs_[i];
}

KLOConstr* KLOModel::getConstrs() { return constrs_.data(); }

KLOConstr KLOModel::getConstrByName(const std::string& name) const {
  int index = -1;
  check(KLOgetconstrbyname(lib(model_), name.c_str(), &index));
  if (index < 0) klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  return getConstr(index);
}

void KLOModel::remove(KLOConstr c) {
  if (klo_detail::record(c).model != model_) klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  const int k = c.index();
  check(KLOdelconstrs(lib(model_), 1, &k));
  if (k < 0) return;  // the library refuses removed rows; nothing to renumber
  klo_detail::renumber(c, ~k);
  klo_detail::dropAt(constrs_, k);
  klo_detail::dropAt(qconstrs_, k);
  klo_detail::dropAt(psdconstrs_, k);
}

int KLOModel::rowOf(const KLOQConstr& qc) const { return position(qconstrs_, qc, model_); }

int KLOModel::rowOf(const KLOPsdConstr& pc) const { return position(psdconstrs_, pc, model_); }

void KLOModel::remove(KLOQConstr qc) { remove(constrs_[static_cast<std::size_t>(rowOf(qc))]); }

void KLOModel::remove(KLOPsdConstr c) { remove(constrs_[static_cast<std::size_t>(rowOf(c))]); }

void KLOModel::chgCoeff(KLOConstr c, KLOVar v, double value) {
  check(KLOsetconstrcoeff(lib(model_), c.index(), v.index(), value));
}

void KLOModel::chgCoeffs(const KLOConstr* constrs, const KLOVar* vars, const double* values,
                         int count) {
  for (int i = 0; i < count; ++i) chgCoeff(constrs[i], vars[i], values[i]);
}

double KLOModel::getCoeff(KLOConstr c, KLOVar v) const {
  double value = 0.0;
  check(KLOgetconstrcoeff(lib(model_), c.index(), v.index(), &value));
  return value;
}

KLOLinExpr KLOModel::getRow(KLOConstr c) const {
  int numnz = 0;
  check(KLOgetconstrs(lib(model_), &numnz, nullptr, nullptr, nullptr, c.index(), 1));
  std::vector<int> beg(static_cast<std::size_t>(numnz)), ind(beg.size());
  std::vector<double> val(beg.size());
  check(KLOgetconstrs(lib(model_), &numnz, numnz > 0 ? beg.data() : nullptr,
                      numnz > 0 ? ind.data() : nullptr, numnz > 0 ? val.data() : nullptr, c.index(),
                      1));
  KLOLinExpr row;
  for (int k = 0; k < numnz && k < static_cast<int>(ind.size()); ++k) {
    const KLOVar v = klo_detail::libraryVar(vars_, ind[k]);
    row.addTerms(&val[k], &v, 1);
  }
  return row;
}
