// Adding and deleting rows, their bounds and coefficients.
#include <string>
#include <utility>

#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {

void addRows(ModelData& d, const Bulk& rows, const double* lower, const double* upper,
             const char* const* names) {
  rows.check("Number of constraints");
  std::vector<Row> made(rows.n);
  for (int k = 0; k < rows.n; ++k) {
    int lo = rows.first(k);
    made[k].lin = makeSparse(rows.end(k) - lo, rows.ind + lo, rows.val + lo, d.numVars());
    // Null bound arrays leave that side of every row unbounded.
    const double lo_k = lower ? lower[k] : -KLO_INFINITY, up_k = upper ? upper[k] : KLO_INFINITY;
    checkBound(lo_k, "Row lower bound");
    checkBound(up_k, "Row upper bound");
    made[k].lower = normBound(lo_k);
    made[k].upper = normBound(up_k);
  }
  for (int k = 0; k < rows.n; ++k) appendRow(d, std::move(made[k]), names ? names[k] : nullptr);
}

void appendRow(ModelData& d, Row row, const char* name) {
  d.rows.push_back(std::move(row));
  d.rowNames.append(name ? name : "");
  if (!d.rowBasis.empty()) d.rowBasis.push_back(KLO_BASIS_BASIC);
}

void deleteRows(ModelData& d, int n, const int* ind) {
  checkIndices(d, Kind::Row, n, ind);
  std::vector<bool> keep = keptFlags(deletionMap(d.numRows(), n, ind));
  retain(d.rows, keep);
  d.rowNames.retain(keep);
  if (!d.rowBasis.empty()) retain(d.rowBasis, keep);
  retain(d.lastRowBasis, keep);
}

void setRowBound(ModelData& d, int i, bool upper, double value) {
  checkIndex(d, Kind::Row, i);
  checkBound(value, upper ? "Row upper bound" : "Row lower bound");
  (upper ? d.rows[i].upper : d.rows[i].lower) = normBound(value);
}

void setCoeff(ModelData& d, int row, int var, double value) {
  checkIndex(d, Kind::Row, row);
  checkIndex(d, Kind::Var, var);
  checkCoef(value, "Coefficient");
  setCoefAt(d.rows[row].lin, var, value);
}

// Each of a few new terms is summed into its place in the sorted objective
// terms: such a call costs a search, not a rebuild of all of them (terms
// added one call at a time, in order, append at the end).  Every sum is
// checked before anything changes.
void addObjQuad(ModelData& d, int n, const int* row, const int* col, const double* val) {
  QuadTerms add = makeQuad(n, row, col, val, d.numVars());
  QuadTerms& q = d.qobj;
  constexpr int kFew = 8;  // beyond that, one merge of both beats insertions
  if (add.size() > kFew) {
    q = addQuad(q, add);
    return;
  }
  std::vector<size_t> at(add.size());
  for (int k = 0; k < add.size(); ++k) {
    at[k] = quadPosition(q, add.row[k], add.col[k]);
    if (at[k] < q.row.size() && q.row[at[k]] == add.row[k] && q.col[at[k]] == add.col[k])
      checkCoef(q.val[at[k]] + add.val[k], "The sum of one term's coefficients");
  }
  // Backwards, so that an insertion does not move the places still to use.
  for (int k = add.size(); k-- > 0;) setQuadAt(q, at[k], add.row[k], add.col[k], add.val[k]);
}

}  // namespace klo
