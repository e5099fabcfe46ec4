// Replacing and reading the objective: per-variable "Obj", per-PSD-variable
// "PsdObj", the quadratic objective terms, "ObjCon" and "ModelSense".
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/records.h"
#include "model/terms.h"

using klo_detail::check;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// Sets every variable's "Obj" at once: its coefficients in e added up in
// term order (0 for a variable not in e), so repeated variables add up
// without a merge.  A variable of another model gets its term there, as
// its own handle would set it.
void setLinearPart(void* model, const KLOLinExpr& e, int numVars) {
  std::vector<double> obj(static_cast<std::size_t>(numVars), 0.0);
  for (int i = 0; i < e.size(); ++i) {
    const KLOVar v = e.getVar(i);
    const KLOVarID& id = klo_detail::record(v);
    if (id.model != model || id.index >= numVars) {
      v.set(KLO_DoubleAttr_Obj, v.get(KLO_DoubleAttr_Obj) + e.getCoeff(i));
      continue;
    }
    obj[static_cast<std::size_t>(klo_detail::liveIndex(v, KLO_ERROR_INVALID_VAR))] += e.getCoeff(i);
  }
  if (numVars > 0) check(KLOsetdblattrarray(lib(model), "Obj", 0, numVars, obj.data()));
}

}  // namespace

void KLOModel::clearObjective(int sense) {
  check(KLOdelq(lib(model_)));
  setLinearPart(model_, KLOLinExpr(), static_cast<int>(vars_.size()));
  for (const KLOPsdVar& X : psdvars_) {
    const int dim = X.get(KLO_IntAttr_Dim);
    X.set(KLO_MatAttr_PsdObj, KLOMatrix::zero(dim, dim));
  }
  if (sense != 0) set(KLO_IntAttr_ModelSense, sense);
}

void KLOModel::setObjective(const KLOLinExpr& expr, int sense) {
  clearObjective(sense);
  setLinearPart(model_, expr, static_cast<int>(vars_.size()));
  set(KLO_DoubleAttr_ObjCon, expr.getConstant());
}

void KLOModel::setObjective(KLOVar x, int sense) { setObjective(KLOLinExpr(x, 1.0), sense); }

// The quadratic terms go to the library in one call, after all of them
// have been checked.
void KLOModel::setObjective(const KLOQuadExpr& expr, int sense) {
  std::vector<int> rows, cols;
  std::vector<double> values;
  for (int i = 0; i < expr.size(); ++i) {
    rows.push_back(klo_detail::liveIndex(expr.getVar1(i), KLO_ERROR_INVALID_VAR));
    cols.push_back(klo_detail::liveIndex(expr.getVar2(i), KLO_ERROR_INVALID_VAR));
    values.push_back(expr.getCoeff(i));
  }
  clearObjective(sense);
  if (!values.empty())
    check(KLOaddqpterms(lib(model_), static_cast<int>(values.size()), rows.data(), cols.data(),
                        values.data()));
  const KLOLinExpr linear = expr.getLinExpr();
  setLinearPart(model_, linear, static_cast<int>(vars_.size()));
  set(KLO_DoubleAttr_ObjCon, linear.getConstant());
}

void KLOModel::setObjective(const KLOPsdExpr& expr, int sense) {
  clearObjective(sense);
  std::vector<KLOMatrix> matrices;
  std::vector<KLOPsdVar> vars;
  klo_detail::mergePsdTerms(expr, matrices, vars);
  for (std::size_t k = 0; k < vars.size(); ++k) vars[k].set(KLO_MatAttr_PsdObj, matrices[k]);
  const KLOLinExpr linear = expr.getLinExpr();
  setLinearPart(model_, linear, static_cast<int>(vars_.size()));
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
