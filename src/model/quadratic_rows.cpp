// Quadratic rows: added through the same bookkeeping as linear rows (one
// row numbering), read back with their quadratic terms.
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/access.h"
#include "model/terms.h"

using klo_detail::check;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

const int* data(const std::vector<int>& v) { return v.empty() ? nullptr : v.data(); }
const double* data(const std::vector<double>& v) { return v.empty() ? nullptr : v.data(); }
int* data(std::vector<int>& v) { return v.empty() ? nullptr : v.data(); }
double* data(std::vector<double>& v) { return v.empty() ? nullptr : v.data(); }

}  // namespace

KLOQConstr KLOModel::addQConstr(const KLOTempConstr& tc, const std::string& name) {
  return addQConstr(tc.expr, tc.sense, 0.0, name);
}

KLOQConstr KLOModel::addQConstr(const KLOQuadExpr& expr, char sense, double rhs,
                                const std::string& name) {
  const KLOLinExpr& linear = klo_detail::Access::linear(expr);
  const klo_detail::LinearTerms lin(linear);
  const klo_detail::QuadTerms quad(expr);
  check(KLOaddqconstr(lib(model_), lin.size(), lin.indices(), lin.values(), quad.size(),
                      data(quad.row), data(quad.col), data(quad.val), sense,
                      klo_detail::shifted(rhs, linear.getConstant()), name.c_str()));
  addConstr();
  return qconstrs_.back();
}

KLOQuadExpr KLOModel::getQCRow(KLOQConstr qc) const {
  const int row = rowOf(qc);
  int numlnz = 0, numqnz = 0;
  check(KLOgetqconstr(lib(model_), row, &numlnz, nullptr, nullptr, &numqnz, nullptr, nullptr,
                      nullptr));
  std::vector<int> lind(static_cast<std::size_t>(numlnz));
  std::vector<double> lval(lind.size());
  std::vector<int> qrow(static_cast<std::size_t>(numqnz)), qcol(qrow.size());
  std::vector<double> qval(qrow.size());
  check(KLOgetqconstr(lib(model_), row, &numlnz, data(lind), data(lval), &numqnz, data(qrow),
                      data(qcol), data(qval)));
  KLOQuadExpr result;
  for (int k = 0; k < numqnz && k < static_cast<int>(qval.size()); ++k) {
    result.addTerm(qval[k], klo_detail::libraryVar(vars_, qrow[k]),
                   klo_detail::libraryVar(vars_, qcol[k]));
  }
  for (int k = 0; k < numlnz && k < static_cast<int>(lval.size()); ++k)
    result.addTerm(lval[k], klo_detail::libraryVar(vars_, lind[k]));
  return result;
}
