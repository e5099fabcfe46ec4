// Replacing and reading the objective: per-variable "Obj", per-PSD-variable
// "PsdObj", the quadratic objective terms, "ObjCon" and "ModelSense".
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/terms.h"

using klo_detail::check;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// Adds each term's coefficient to its variable's "Obj", so repeated
// variables add up without a merge.
void addLinearPart(const KLOLinExpr& e) {
  for (int i = 0; i < e.size(); ++i) {
    const KLOVar v = e.getVar(i);
    v.set(KLO_DoubleAttr_Obj, v.get(KLO_DoubleAttr_Obj) + e.getCoeff(i));
  }
}

}  // namespace

void KLOModel::clearObjective(int sense) {
  check(KLOdelq(lib(model_)));
  for (const KLOVar& v : vars_) v.set(KLO_DoubleAttr_Obj, 0.0);
  for (const KLOPsdVar& X : psdvars_) {
    const int dim = X.get(KLO_IntAttr_Dim);
    X.set(KLO_MatAttr_PsdObj, KLOMatrix::zero(dim, dim));
  }
  if (sense != 0) set(KLO_IntAttr_ModelSense, sense);
}

void KLOModel::setObjective(const KLOLinExpr& expr, int sense) {
  clearObjective(sense);
  addLinearPart(expr);
  set(KLO_DoubleAttr_ObjCon, expr.getConstant());
}

void KLOModel::setObjective(KLOVar x, int sense) { setObjective(KLOLinExpr(x, 1.0), sense); }

void KLOModel::setObjective(const KLOQuadExpr& expr, int sense) {
  clearObjective(sense);
  for (int i = 0; i < expr.size(); ++i) {
    const int row = klo_detail::liveIndex(expr.getVar1(i), KLO_ERROR_INVALID_VAR);
    const int col = klo_detail::liveIndex(expr.getVar2(i), KLO_ERROR_INVALID_VAR);
    const double q = expr.getCoeff(i);
    check(KLOaddqpterms(lib(model_), 1, &row, &col, &q));
  }
  const KLOLinExpr linear = expr.getLinExpr();
  addLinearPart(linear);
  set(KLO_DoubleAttr_ObjCon, linear.getConstant());
}

void KLOModel::setObjective(const KLOPsdExpr& expr, int sense) {
  clearObjective(sense);
  std::vector<KLOMatrix> matrices;
  std::vector<KLOPsdVar> vars;
  klo_detail::mergePsdTerms(expr, matrices, vars);
  for (std::size_t k = 0; k < vars.size(); ++k) vars[k].set(KLO_MatAttr_PsdObj, matrices[k]);
  const KLOLinExpr linear = expr.getLinExpr();
  addLinearPart(linear);
  set(KLO_DoubleAttr_ObjCon, linear.getConstant());
}

void KLOModel::setObjectiveN(const KLOLinExpr& expr, int index, int priority, double weight,
                             double abstol, double reltol, const std::string& name) {
  std::vector<int> ind;
  std::vector<double> val;
  for (int i = 0; i < expr.size(); ++i) {
    ind.push_back(expr.getVar(i).index());
    val.push_back(expr.getCoeff(i));
  }
  // The library's refusal is not reported: kept as the interface has it.
  KLOsetobjectiven(lib(model_), index, priority, weight, abstol, reltol, name.c_str(),
                   expr.getConstant(), expr.size(), ind.empty() ? nullptr : ind.data(),
                   val.empty() ? nullptr : val.data());
}

KLOQuadExpr KLOModel::getObjective() const {
  int numqnz = 0;
  check(KLOgetq(lib(model_), &numqnz, nullptr, nullptr, nullptr));
  std::vector<int> qrow(static_cast<std::size_t>(numqnz)), qcol(qrow.size());
  std::vector<double> qval(qrow.size());
  check(KLOgetq(lib(model_), &numqnz, qrow.empty() ? nullptr : qrow.data(),
                qcol.empty() ? nullptr : qcol.data(), qval.empty() ? nullptr : qval.data()));
  KLOQuadExpr objective(0.0);
  for (int k = 0; k < numqnz && k < static_cast<int>(qval.size()); ++k)
    objective.addTerm(qval[k], getVar(qrow[k]), getVar(qcol[k]));
  for (const KLOVar& v : vars_) {
    const double c = v.get(KLO_DoubleAttr_Obj);
    if (c != 0.0) objective.addTerm(c, v);
  }
  objective.addConstant(get(KLO_DoubleAttr_ObjCon));
  return objective;
}
