// PSD variables and rows with PSD terms.
#include "capi/model_guard.h"
#include "store/checks.h"
#include "store/edit.h"
#include "store/sparse.h"

using klo::changeModel;

extern "C" {

int KLOaddpsdvar(KLOmodel* model, int dim, const char* name) {
  return changeModel(model, [&] { klo::addPsdVar(model->data, dim, name); });
}

int KLOdelpsdvars(KLOmodel* model, int numdel, const int* ind) {
  return changeModel(model, [&] { klo::deletePsdVars(model->data, numdel, ind); });
}

int KLOaddrangepsdconstr(KLOmodel* model, int numnz, const int* cind, const double* cval,
                         int numpsd, const int* psdvar, const int* mbeg, const int* mind,
                         const double* mval, double lower, double upper, const char* constrname) {
  return changeModel(model, [&] {
    klo::Row row;
    row.lin = klo::makeSparse(numnz, cind, cval, model->data.numVars());
    auto terms = klo::makePsdTerms(model->data, numpsd, psdvar, mbeg, mind, mval);
    if (!terms.empty()) row.nl.ensure().psd = std::move(terms);
    klo::checkBound(lower, "Row lower bound");
    klo::checkBound(upper, "Row upper bound");
    row.lower = klo::normBound(lower);
    row.upper = klo::normBound(upper);
    klo::appendRow(model->data, std::move(row), constrname);
  });
}

}  // extern "C"
