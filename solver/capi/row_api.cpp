// Row functions of klo_c.h.
#include <vector>

#include "capi/model_guard.h"
#include "store/checks.h"
#include "store/edit.h"
#include "store/sparse.h"

using klo::changeModel;
using klo::readModel;
using klo::requireArg;

extern "C" {

int KLOaddconstrs(KLOmodel* model, int numconstrs, int numnz, const int* cbeg, const int* cind,
                  const double* cval, const char* sense, const double* rhs,
                  const char* const* constrnames) {
  return changeModel(model, [&] {
    klo::checkCount(numconstrs, "numconstrs");
    // Null senses mean '<' and null right-hand sides 0.
    std::vector<double> lower(numconstrs), upper(numconstrs);
    for (int k = 0; k < numconstrs; ++k)
      klo::senseToBounds(sense ? sense[k] : '<', rhs ? rhs[k] : 0.0, lower[k], upper[k]);
    klo::addRows(model->data, {numconstrs, numnz, cbeg, cind, cval}, lower.data(), upper.data(),
                 constrnames);
  });
}

int KLOaddrangeconstr(KLOmodel* model, int numnz, const int* cind, const double* cval, double lower,
                      double upper, const char* constrname) {
  return changeModel(model, [&] {
    klo::checkCount(numnz, "numnz");
    int beg = 0;
    klo::addRows(model->data, {1, numnz, &beg, cind, cval}, &lower, &upper, &constrname);
  });
}

int KLOaddrangeconstrs(KLOmodel* model, int numconstrs, int numnz, const int* cbeg, const int* cind,
                       const double* cval, const double* lower, const double* upper,
                       const char* const* constrnames) {
  return changeModel(model, [&] {
    klo::addRows(model->data, {numconstrs, numnz, cbeg, cind, cval}, lower, upper, constrnames);
  });
}

int KLOdelconstrs(KLOmodel* model, int numdel, const int* ind) {
  return changeModel(model, [&] { klo::deleteRows(model->data, numdel, ind); });
}

int KLOgetconstrs(KLOmodel* model, int* numnzP, int* cbeg, int* cind, double* cval, int start,
                  int len) {
  return readModel(model, [&] {
    requireArg(numnzP, "numnzP");
    klo::checkRange(model->data, klo::Kind::Row, start, len);
    int n = 0;
    for (int k = 0; k < len; ++k) {
      const klo::SparseVec& lin = model->data.rows[start + k].lin;
      if (cbeg) cbeg[k] = n;
      for (int e = 0; e < lin.size(); ++e, ++n) {
        if (cind) cind[n] = lin.ind[e];
        if (cval) cval[n] = lin.val[e];
      }
    }
    *numnzP = n;
  });
}

int KLOgetconstrbyname(KLOmodel* model, const char* name, int* indexP) {
  return readModel(model, [&] {
    requireArg(name, "name");
    requireArg(indexP, "indexP");
    *indexP = model->data.rowNames.find(name);
  });
}

int KLOsetconstrcoeff(KLOmodel* model, int constr, int var, double value) {
  return changeModel(model, [&] { klo::setCoeff(model->data, constr, var, value); });
}

int KLOgetconstrcoeff(KLOmodel* model, int constr, int var, double* valueP) {
  return readModel(model, [&] {
    requireArg(valueP, "valueP");
    klo::checkIndex(model->data, klo::Kind::Row, constr);
    klo::checkIndex(model->data, klo::Kind::Var, var);
    *valueP = klo::coefAt(model->data.rows[constr].lin, var);
  });
}

}  // extern "C"
