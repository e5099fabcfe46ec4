// Adding, deleting and retyping variables.
#include <algorithm>
#include <string>

#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {

double clipBound(char type, bool upper, double value) {
  value = normBound(value);
  if (type != 'B') return value;
  return upper ? std::min(value, 1.0) : std::max(value, 0.0);
}

void addVars(ModelData& d, const NewVars& v) {
  const Bulk& c = v.cols;
  c.check("Number of variables");
  // Columns without entries need no vectors (one variable at a time is the
  // common call).
  std::vector<SparseVec> cols(c.nnz > 0 ? c.n : 0);
  for (int k = 0; k < c.n; ++k) {
    int lo = c.first(k);
    if (c.nnz > 0)
      cols[k] = makeSparse(c.end(k) - lo, c.ind + lo, c.val + lo, d.numRows(), Kind::Row);
    if (v.obj) checkCoef(v.obj[k], "Objective coefficient");
    if (v.lb) checkBound(v.lb[k], "Lower bound");
    if (v.ub) checkBound(v.ub[k], "Upper bound");
    if (v.type) checkVarType(v.type[k]);
  }
  int first = d.numVars();
  for (int k = 0; k < c.n; ++k) {
    char t = v.type ? v.type[k] : 'C';
    d.type.push_back(t);
    d.lb.push_back(clipBound(t, false, v.lb ? v.lb[k] : 0.0));
    d.ub.push_back(clipBound(t, true, v.ub ? v.ub[k] : KLO_INFINITY));
    d.start.push_back(KLO_UNDEFINED);
    d.varNames.append(v.names && v.names[k] ? v.names[k] : "");
    for (Objective& o : d.objectives) o.coef.push_back(0.0);
    d.objectives[0].coef.back() = v.obj ? v.obj[k] : 0.0;
    if (!d.colBasis.empty()) d.colBasis.push_back(KLO_BASIS_LOWER);
    for (int e = 0; c.nnz > 0 && e < cols[k].size(); ++e) {
      SparseVec& row = d.rows[cols[k].ind[e]].lin;
      row.ind.push_back(first + k);  // the highest index so far: rows stay sorted
      row.val.push_back(cols[k].val[e]);
    }
  }
}

void deleteVars(ModelData& d, int n, const int* ind) {
  checkIndices(d, Kind::Var, n, ind);
  std::vector<int> newIndex = deletionMap(d.numVars(), n, ind);
  std::vector<bool> keep = keptFlags(newIndex);
  retain(d.lb, keep);
  retain(d.ub, keep);
  retain(d.type, keep);
  retain(d.start, keep);
  d.varNames.retain(keep);
  for (Objective& o : d.objectives) retain(o.coef, keep);
  if (!d.colBasis.empty()) retain(d.colBasis, keep);
  retain(d.lastColBasis, keep);
  for (Row& r : d.rows) {
    renumber(r.lin, newIndex);
    if (r.nl) renumber(r.nl->quad, newIndex);
  }
  renumber(d.qobj, newIndex);
  for (Sos& s : d.sos) {
    size_t out = 0;
    for (size_t m = 0; m < s.members.size(); ++m) {
      if (newIndex[s.members[m]] < 0) continue;
      s.members[out] = newIndex[s.members[m]];
      s.weights[out++] = s.weights[m];
    }
    s.members.resize(out);
    s.weights.resize(out);
  }
  // An indicator cannot stand without its binary variable.
  std::vector<bool> keepInd(d.indicators.size());
  for (size_t g = 0; g < d.indicators.size(); ++g) {
    Indicator& ic = d.indicators[g];
    keepInd[g] = newIndex[ic.binVar] >= 0;
    if (!keepInd[g]) continue;
    ic.binVar = newIndex[ic.binVar];
    renumber(ic.lin, newIndex);
  }
  retain(d.indicators, keepInd);
}

void setVarType(ModelData& d, int j, char type) {
  checkIndex(d, Kind::Var, j);
  checkVarType(type);
  d.type[j] = type;
  d.lb[j] = clipBound(type, false, d.lb[j]);
  d.ub[j] = clipBound(type, true, d.ub[j]);
}

void setVarBound(ModelData& d, int j, bool upper, double value) {
  checkIndex(d, Kind::Var, j);
  checkBound(value, upper ? "Upper bound" : "Lower bound");
  (upper ? d.ub : d.lb)[j] = clipBound(d.type[j], upper, value);
}

}  // namespace klo
