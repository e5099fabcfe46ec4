// Adding linear rows: every single-row form funnels into addRange; the bulk
// forms make one library call for all rows.
#include <memory>
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/access.h"
#include "model/terms.h"

using klo_detail::check;
using klo_detail::LinearTerms;
using klo_detail::senseToBounds;
using klo_detail::shifted;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// Rows in the row-wise layout of KLOaddconstrs and KLOaddrangeconstrs.
struct RowBlock {
  std::vector<int> beg, ind;
  std::vector<double> val;

  RowBlock(const KLOLinExpr* exprs, int count) {
    for (int i = 0; exprs && i < count; ++i) {
      beg.push_back(static_cast<int>(ind.size()));
      const LinearTerms terms(exprs[i]);
      ind.insert(ind.end(), terms.ind.begin(), terms.ind.end());
      val.insert(val.end(), terms.val.begin(), terms.val.end());
    }
  }
  int numnz() const { return static_cast<int>(ind.size()); }
  const int* begins() const { return beg.empty() ? nullptr : beg.data(); }
  const int* indices() const { return ind.empty() ? nullptr : ind.data(); }
  const double* values() const { return val.empty() ? nullptr : val.data(); }
};

// Each row's finite bound less its expression's constant; null stays null.
std::vector<double> shiftedBounds(const double* bounds, const KLOLinExpr* exprs, int count) {
  std::vector<double> out;
  for (int i = 0; bounds && i < count; ++i)
    out.push_back(exprs ? shifted(bounds[i], exprs[i].getConstant()) : bounds[i]);
  return out;
}

const double* orNull(const double* given, const std::vector<double>& shiftedCopy) {
  return given ? shiftedCopy.data() : nullptr;
}

// The handles of count rows the library has just added.
KLOConstr* newRows(KLOModel& model, int count) {
  std::unique_ptr<KLOConstr[]> added(new KLOConstr[count > 0 ? count : 0]);
  for (int i = 0; i < count; ++i) added[i] = model.addConstr();
  return added.release();
}

}  // namespace

KLOConstr KLOModel::addConstr(const KLOLinExpr& lhs, char sense, const KLOLinExpr& rhs,
                              const std::string& name) {
  return addConstr(lhs - rhs, sense, 0.0, name);
}

KLOConstr KLOModel::addConstr(const KLOLinExpr& lhs, char sense, double rhs,
                              const std::string& name) {
  const klo_detail::Bounds b = senseToBounds(sense, rhs);
  return addRange(lhs, b.lower, b.upper, name);
}

KLOConstr KLOModel::addConstr(const KLOLinExpr& lhs, char sense, KLOVar rhs,
                              const std::string& name) {
  return addConstr(lhs - KLOLinExpr(rhs, 1.0), sense, 0.0, name);
}

KLOConstr KLOModel::addConstr(KLOVar lhs, char sense, KLOVar rhs, const std::string& name) {
  return addConstr(lhs - rhs, sense, 0.0, name);
}

KLOConstr KLOModel::addConstr(KLOVar lhs, char sense, double rhs, const std::string& name) {
  return addConstr(KLOLinExpr(lhs, 1.0), sense, rhs, name);
}

KLOConstr KLOModel::addConstr(const KLOTempConstr& tc, const std::string& name) {
  if (tc.expr.size() > 0)
    throw KLOException("For quadratic constraint using KLOModel::addQConstr.",
                       KLO_ERROR_INVALID_ARGUMENT);
  return addConstr(klo_detail::Access::linear(tc.expr), tc.sense, 0.0, name);
}

KLOConstr KLOModel::addRange(const KLOLinExpr& expr, double lower, double upper,
                             const std::string& name) {
  const double constant = expr.getConstant();
  const LinearTerms terms(expr);
  check(KLOaddrangeconstr(lib(model_), terms.size(), terms.indices(), terms.values(),
                          shifted(lower, constant), shifted(upper, constant), name.c_str()));
  return addConstr();
}

KLOConstr* KLOModel::addConstrs(int count) {
  return addConstrs(nullptr, nullptr, nullptr, nullptr, count);
}

KLOConstr* KLOModel::addConstrs(const KLOLinExpr* exprs, const char* senses, const double* rhs,
                                const std::string* names, int count) {
  const std::vector<double> rhsShifted = shiftedBounds(rhs, exprs, count);
  const RowBlock rows(exprs, count);
  const std::vector<const char*> cnames = klo_detail::cNames(names, count);
  check(KLOaddconstrs(lib(model_), count, rows.numnz(), rows.begins(), rows.indices(),
                      rows.values(), senses, orNull(rhs, rhsShifted),
                      names ? cnames.data() : nullptr));
  return newRows(*this, count);
}

KLOConstr* KLOModel::addRanges(const KLOLinExpr* exprs, const double* lower, const double* upper,
                               const std::string* names, int count) {
  const std::vector<double> lowerShifted = shiftedBounds(lower, exprs, count);
  const std::vector<double> upperShifted = shiftedBounds(upper, exprs, count);
  const RowBlock rows(exprs, count);
  const std::vector<const char*> cnames = klo_detail::cNames(names, count);
  check(KLOaddrangeconstrs(lib(model_), count, rows.numnz(), rows.begins(), rows.indices(),
                           rows.values(), orNull(lower, lowerShifted), orNull(upper, upperShifted),
                           names ? cnames.data() : nullptr));
  return newRows(*this, count);
}
