// Adding, finding and removing variables, and reading their columns.
#include <memory>
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/records.h"
#include "model/terms.h"

using klo_detail::check;
using klo_detail::cNames;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// A column's terms merged by constraint, as the library receives them.
struct MergedColumn {
  std::vector<double> coeffs;
  std::vector<KLOConstr> constrs;

  explicit MergedColumn(const KLOColumn& col) {
    for (int i = 0; i < col.size(); ++i) {
      coeffs.push_back(col.getCoeff(i));
      constrs.push_back(col.getConstr(i));
    }
    combineLikeTerms(coeffs, constrs);
  }
};

// A removed constraint must not reach the library.
int liveRow(const KLOConstr& c) {
  const int k = c.index();
  if (k < 0) klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  return k;
}

}  // namespace

KLOVar KLOModel::addVar(double lb, double ub, double obj, char vtype, const std::string& name) {
  check(KLOaddvar(lib(model_), 0, nullptr, nullptr, obj, lb, ub, vtype, name.c_str()));
  return appendVar();
}

KLOVar KLOModel::addVar() { return appendVar(); }

KLOVar KLOModel::addVar(double lb, double ub, double obj, char vtype, int numnz,
                        const KLOConstr* constrs, const double* coeffs, const std::string& name) {
  KLOColumn col;
  for (int i = 0; i < numnz; ++i) col.addTerm(coeffs ? coeffs[i] : 0.0, constrs[i]);
  return addVar(lb, ub, obj, vtype, col, name);
}

KLOVar KLOModel::addVar(double lb, double ub, double obj, char vtype, const KLOColumn& col,
                        const std::string& name) {
  for (int i = 0; i < col.size(); ++i) liveRow(col.getConstr(i));
  // The merged terms are what the library gets, so a constraint named
  // twice arrives once.
  const MergedColumn merged(col);
  std::vector<int> rows;
  for (const KLOConstr& c : merged.constrs) rows.push_back(c.index());
  check(KLOaddvar(lib(model_), static_cast<int>(rows.size()), rows.empty() ? nullptr : rows.data(),
                  merged.coeffs.empty() ? nullptr : merged.coeffs.data(), obj, lb, ub, vtype,
                  name.c_str()));
  return appendVar();
}

KLOVar* KLOModel::addVars(int numvars, char vtype) {
  std::vector<char> types(static_cast<std::size_t>(numvars), vtype);
  check(KLOaddvars(lib(model_), numvars, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                   types.empty() ? nullptr : types.data(), nullptr));
  std::unique_ptr<KLOVar[]> added(new KLOVar[numvars]);
  for (int i = 0; i < numvars; ++i) added[i] = appendVar();
  return added.release();
}

KLOVar* KLOModel::addVars(const double* lb, const double* ub, const double* obj, const char* vtype,
                          const std::string* names, int numvars) {
  return addVars(lb, ub, obj, vtype, names, nullptr, numvars);
}

KLOVar* KLOModel::addVars(const double* lb, const double* ub, const double* obj, const char* vtype,
                          const std::string* names, const KLOColumn* cols, int numvars) {
  std::vector<int> beg, ind;
  std::vector<double> val;
  for (int j = 0; cols && j < numvars; ++j) {
    beg.push_back(static_cast<int>(ind.size()));
    const MergedColumn merged(cols[j]);
    for (std::size_t k = 0; k < merged.coeffs.size(); ++k) {
      ind.push_back(liveRow(merged.constrs[k]));
      val.push_back(merged.coeffs[k]);
    }
  }
  const std::vector<const char*> cnames = cNames(names, numvars);
  check(KLOaddvars(lib(model_), numvars, static_cast<int>(ind.size()), cols ? beg.data() : nullptr,
                   cols ? ind.data() : nullptr, cols ? val.data() : nullptr, obj, lb, ub, vtype,
                   names ? cnames.data() : nullptr));
  std::unique_ptr<KLOVar[]> added(new KLOVar[numvars > 0 ? numvars : 0]);
  for (int i = 0; i < numvars; ++i) added[i] = appendVar();
  return added.release();
}

KLOVar KLOModel::getVar(int i) const {
  if (i < 0 || i >= static_cast<int>(vars_.size())) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  return vars_[i];
}

KLOVar* KLOModel::getVars() const {
  std::unique_ptr<KLOVar[]> copies(new KLOVar[vars_.size()]);
  for (std::size_t i = 0; i < vars_.size(); ++i) copies[i] = vars_[i];
  return copies.release();
}

KLOVar KLOModel::getVarByName(const std::string& name) const {
  int index = -1;
  check(KLOgetvarbyname(lib(model_), name.c_str(), &index));
  if (index < 0) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  return getVar(index);
}

void KLOModel::remove(KLOVar v) {
  if (klo_detail::record(v).model != model_) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  const int k = v.index();
  check(KLOdelvars(lib(model_), 1, &k));
  const int size = static_cast<int>(vars_.size());
  if (k < 0 || k >= size) return;  // the library refuses these; nothing to renumber
  for (int i = k; i < size - 1; ++i) {
    vars_[i] = vars_[i + 1];
    klo_detail::renumber(vars_[i], i);
  }
  klo_detail::renumber(v, ~k);
  vars_.pop_back();
}

KLOColumn KLOModel::getCol(KLOVar v) const {
  int numnz = 0;
  check(KLOgetvars(lib(model_), &numnz, nullptr, nullptr, nullptr, v.index(), 1));
  std::vector<int> beg(static_cast<std::size_t>(numnz)), ind(beg.size());
  std::vector<double> val(beg.size());
  check(KLOgetvars(lib(model_), &numnz, numnz > 0 ? beg.data() : nullptr,
                   numnz > 0 ? ind.data() : nullptr, numnz > 0 ? val.data() : nullptr, v.index(),
                   1));
  KLOColumn col;
  for (int k = 0; k < numnz && k < static_cast<int>(ind.size()); ++k)
    col.addTerm(val[k], getConstr(ind[k]));
  return col;
}
