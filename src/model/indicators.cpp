// Indicator constraints: a binary variable at a value implies a linear
// comparison.
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

KLOGenConstr KLOModel::addGenConstrIndicator(KLOVar binvar, int binval, const KLOTempConstr& tc,
                                             const std::string& name) {
  if (tc.expr.size() > 0)
    throw KLOException(
        "An indicator constraint implies a linear constraint: quadratic terms "
        "are not allowed.",
        -3);
  return addGenConstrIndicator(binvar, binval, tc.expr.getLinExpr(), tc.sense, 0.0, name);
}

KLOGenConstr KLOModel::addGenConstrIndicator(KLOVar binvar, int binval, const KLOLinExpr& expr,
                                             char sense, double rhs, const std::string& name) {
  const int bin = klo_detail::liveIndex(binvar, KLO_ERROR_INVALID_VAR);
  const klo_detail::LinearTerms terms(expr);
  check(KLOaddgenconstrIndicator(lib(model_), name.c_str(), bin, binval, terms.size(),
                                 terms.indices(), terms.values(), sense,
                                 klo_detail::shifted(rhs, expr.getConstant())));
  return addGenConstr();
}

void KLOModel::getGenConstrIndicator(KLOGenConstr gc, KLOVar* binvar, int* binval, KLOLinExpr* expr,
                                     char* sense, double* rhs) const {
  const int k = klo_detail::liveIndex(gc, KLO_ERROR_INVALID_CONSTR);
  int bin = 0, value = 0, nvars = 0;
  char s = '<';
  double r = 0.0;
  check(KLOgetgenconstrIndicator(lib(model_), k, &bin, &value, &nvars, nullptr, nullptr, &s, &r));
  std::vector<int> ind(static_cast<std::size_t>(nvars));
  std::vector<double> val(ind.size());
  check(KLOgetgenconstrIndicator(lib(model_), k, &bin, &value, &nvars,
                                 ind.empty() ? nullptr : ind.data(),
                                 val.empty() ? nullptr : val.data(), &s, &r));
  if (binvar) *binvar = klo_detail::libraryVar(vars_, bin);
  if (binval) *binval = value;
  if (sense) *sense = s;
  if (rhs) *rhs = r;
  if (!expr) return;
  KLOLinExpr terms;
  for (int i = 0; i < nvars && i < static_cast<int>(val.size()); ++i) {
    const KLOVar v = klo_detail::libraryVar(vars_, ind[static_cast<std::size_t>(i)]);
    terms.addTerms(&val[static_cast<std::size_t>(i)], &v, 1);
  }
  *expr = terms;
}

void KLOModel::remove(KLOGenConstr gc) {
  if (klo_detail::record(gc).model != model_) klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  const int k = gc.index();
  check(KLOdelgenconstrs(lib(model_), 1, &k));
  klo_detail::dropAt(genconstrs_, k);
}
