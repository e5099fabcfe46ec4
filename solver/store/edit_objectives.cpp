// The objectives of a (multi-objective) model.
#include <string>

#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {

void setObjective(ModelData& d, const ObjectiveSpec& s) {
  if (s.index < 0 || s.index >= KLO_MAX_OBJECTIVES)
    fail(KLO_ERROR_INVALID_OBJECTIVE, "Objective index " + std::to_string(s.index) +
                                          " is outside 0 .. " +
                                          std::to_string(KLO_MAX_OBJECTIVES - 1));
  checkCoef(s.weight, "Objective weight");
  checkCoef(s.absTol, "Absolute tolerance");
  checkCoef(s.relTol, "Relative tolerance");
  if (s.absTol < 0 || s.relTol < 0)
    fail(KLO_ERROR_INVALID_ARGUMENT, "Objective tolerances must not be negative");
  checkCoef(s.constant, "Objective constant");
  SparseVec lin = makeSparse(s.n, s.ind, s.val, d.numVars());
  while (static_cast<int>(d.objectives.size()) <= s.index) {
    d.objectives.emplace_back();
    d.objectives.back().coef.assign(d.numVars(), 0.0);
  }
  Objective& o = d.objectives[s.index];
  o.coef.assign(d.numVars(), 0.0);
  for (int k = 0; k < lin.size(); ++k) o.coef[lin.ind[k]] = lin.val[k];
  o.constant = s.constant;
  o.priority = s.priority;
  o.weight = s.weight;
  o.absTol = s.absTol;
  o.relTol = s.relTol;
  o.name = s.name ? s.name : "";
}

}  // namespace klo
