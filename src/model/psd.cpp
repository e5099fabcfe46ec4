// PSD matrix variables and rows over them.  PSD rows share the one row
// numbering of linear and quadratic rows.
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/records.h"
#include "model/terms.h"

using klo_detail::check;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

}  // namespace

KLOPsdVar KLOModel::addPsdVar(int dim, const std::string& name) {
  check(KLOaddpsdvar(lib(model_), dim, name.c_str()));
  return appendPsdVar();
}

KLOPsdVar KLOModel::getPsdVar(int i) const {
  if (i < 0 || i >= static_cast<int>(psdvars_.size())) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  return psdvars_[static_cast<std::size_t>(i)];
}

void KLOModel::remove(KLOPsdVar X) {
  if (klo_detail::record(X).model != model_) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  const int k = X.index();
  check(KLOdelpsdvars(lib(model_), 1, &k));
  klo_detail::dropAt(psdvars_, k);
}

KLOPsdConstr KLOModel::addPsdConstr(const KLOPsdExpr& expr, char sense, double rhs,
                                    const std::string& name) {
  const klo_detail::Bounds b = klo_detail::senseToBounds(sense, rhs);
  return addRangePsdConstr(expr, b.lower, b.upper, name);
}

KLOPsdConstr KLOModel::addRangePsdConstr(const KLOPsdExpr& expr, double lower, double upper,
                                         const std::string& name) {
  const KLOLinExpr linear = expr.getLinExpr();
  const double constant = linear.getConstant();
  const klo_detail::LinearTerms lin(linear);
  const klo_detail::PsdTerms psd(expr);
  check(KLOaddrangepsdconstr(
      lib(model_), lin.size(), lin.indices(), lin.values(), psd.size(),
      psd.var.empty() ? nullptr : psd.var.data(), psd.beg.data(),
      psd.ind.empty() ? nullptr : psd.ind.data(), psd.val.empty() ? nullptr : psd.val.data(),
      klo_detail::shifted(lower, constant), klo_detail::shifted(upper, constant), name.c_str()));
  addConstr();
  return psdconstrs_.back();
}

KLOPsdConstr KLOModel::getPsdConstr(int i) const {
  if (i < 0 || i >= static_cast<int>(psdconstrs_.size()))
    klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  return psdconstrs_[static_cast<std::size_t>(i)];
}
