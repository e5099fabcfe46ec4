// PSD variables, their objective matrices and their terms in rows.
#include <string>

#include "common/error.h"
#include "klo_c.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {

void addPsdVar(ModelData& d, int dim, const char* name) {
  if (dim < 1)
    fail(KLO_ERROR_INVALID_ARGUMENT,
         "PSD variable dimension " + std::to_string(dim) + " is not positive");
  if (static_cast<long long>(dim) * dim > 2147483647LL)
    fail(KLO_ERROR_INVALID_ARGUMENT,
         "PSD variable dimension " + std::to_string(dim) + " is too large");
  PsdVar v;
  v.dim = dim;
  v.name = name ? name : "";
  d.psdVars.push_back(std::move(v));
}

void deletePsdVars(ModelData& d, int n, const int* ind) {
  checkIndices(d, Kind::PsdVar, n, ind);
  std::vector<int> newIndex = deletionMap(static_cast<int>(d.psdVars.size()), n, ind);
  retain(d.psdVars, keptFlags(newIndex));
  for (Row& r : d.rows) {
    if (!r.nl) continue;
    std::vector<PsdTerm>& terms = r.nl->psd;
    std::vector<bool> keep(terms.size());
    for (size_t t = 0; t < terms.size(); ++t) {
      keep[t] = newIndex[terms[t].psdVar] >= 0;
      if (keep[t]) terms[t].psdVar = newIndex[terms[t].psdVar];
    }
    retain(terms, keep);
  }
}

std::vector<PsdTerm> makePsdTerms(const ModelData& d, int numpsd, const int* psdvar,
                                  const int* mbeg, const int* mind, const double* mval) {
  checkCount(numpsd, "Number of PSD terms");
  if (numpsd == 0) return {};
  if (!psdvar || !mbeg) fail(KLO_ERROR_NULL_ARGUMENT, "PSD variable or begin array is null");
  std::vector<PsdTerm> terms;
  for (int k = 0; k < numpsd; ++k) {
    checkIndex(d, Kind::PsdVar, psdvar[k]);
    int lo = mbeg[k], hi = mbeg[k + 1];  // mbeg[numpsd] is the total
    if (lo < 0 || hi < lo)
      fail(KLO_ERROR_INVALID_ARGUMENT, "Matrix begin offsets " + std::to_string(lo) + ", " +
                                           std::to_string(hi) + " are out of order");
    SymMatrix m = makeSym(hi - lo, mind ? mind + lo : nullptr, mval ? mval + lo : nullptr,
                          d.psdVars[psdvar[k]].dim);
    // Two matrices for one PSD variable add up.
    PsdTerm* same = nullptr;
    for (PsdTerm& t : terms) same = t.psdVar == psdvar[k] ? &t : same;
    if (same)
      same->mat = addSym(same->mat, m);
    else
      terms.push_back({psdvar[k], std::move(m)});
  }
  return terms;
}

void setPsdObj(ModelData& d, int k, int nnz, int nrows, int ncols, const int* ind,
               const double* val) {
  checkIndex(d, Kind::PsdVar, k);
  int dim = d.psdVars[k].dim;
  if (nrows != dim || ncols != dim)
    fail(KLO_ERROR_INVALID_ARGUMENT, "A " + std::to_string(nrows) + " x " + std::to_string(ncols) +
                                         " matrix given for a PSD variable of dimension " +
                                         std::to_string(dim));
  d.psdVars[k].obj = makeSym(nnz, ind, val, dim);
}

}  // namespace klo
