// Variable functions of klo_c.h.
#include "capi/model_guard.h"
#include "store/checks.h"
#include "store/edit.h"

using klo::changeModel;
using klo::readModel;
using klo::requireArg;

extern "C" {

int KLOaddvar(KLOmodel* model, int numnz, const int* vind, const double* vval, double obj,
              double lb, double ub, char vtype, const char* varname) {
  return changeModel(model, [&] {
    klo::checkCount(numnz, "numnz");
    int beg = 0;
    klo::NewVars v;
    v.cols = {1, numnz, &beg, vind, vval};
    v.obj = &obj;
    v.lb = &lb;
    v.ub = &ub;
    v.type = &vtype;
    v.names = &varname;
    klo::addVars(model->data, v);
  });
}

int KLOaddvars(KLOmodel* model, int numvars, int numnz, const int* vbeg, const int* vind,
               const double* vval, const double* obj, const double* lb, const double* ub,
               const char* vtype, const char* const* varnames) {
  return changeModel(model, [&] {
    klo::NewVars v;
    v.cols = {numvars, numnz, vbeg, vind, vval};
    v.obj = obj;
    v.lb = lb;
    v.ub = ub;
    v.type = vtype;
    v.names = varnames;
    klo::addVars(model->data, v);
  });
}

int KLOdelvars(KLOmodel* model, int numdel, const int* ind) {
  return changeModel(model, [&] { klo::deleteVars(model->data, numdel, ind); });
}

int KLOgetvars(KLOmodel* model, int* numnzP, int* vbeg, int* vind, double* vval, int start,
               int len) {
  return readModel(model, [&] {
    requireArg(numnzP, "numnzP");
    klo::checkRange(model->data, klo::Kind::Var, start, len);
    const klo::ColumnView& c = model->columns();
    int first = c.beg[start];
    *numnzP = c.beg[start + len] - first;
    for (int k = 0; vbeg && k < len; ++k) vbeg[k] = c.beg[start + k] - first;
    for (int e = 0; e < *numnzP; ++e) {
      if (vind) vind[e] = c.row[first + e];
      if (vval) vval[e] = c.val[first + e];
    }
  });
}

int KLOgetvarbyname(KLOmodel* model, const char* name, int* indexP) {
  return readModel(model, [&] {
    requireArg(name, "name");
    requireArg(indexP, "indexP");
    *indexP = model->data.varNames.find(name);
  });
}

}  // extern "C"
