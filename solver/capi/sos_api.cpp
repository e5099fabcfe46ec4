// SOS sets and indicator constraints.
#include "capi/model_guard.h"
#include "store/checks.h"
#include "store/edit.h"

using klo::changeModel;
using klo::putIf;
using klo::readModel;
using klo::requireArg;

extern "C" {

int KLOaddsos(KLOmodel* model, int numsos, int nummembers, const int* types, const int* beg,
              const int* ind, const double* weight) {
  return changeModel(model, [&] {
    klo::addSos(model->data, {numsos, nummembers, beg, ind, weight}, types);
  });
}

int KLOdelsos(KLOmodel* model, int numdel, const int* ind) {
  return changeModel(model, [&] { klo::deleteSos(model->data, numdel, ind); });
}

int KLOgetsos(KLOmodel* model, int* nummembersP, int* types, int* beg, int* ind, double* weight,
              int start, int len) {
  return readModel(model, [&] {
    requireArg(nummembersP, "nummembersP");
    klo::checkRange(model->data, klo::Kind::Sos, start, len);
    int n = 0;
    for (int k = 0; k < len; ++k) {
      const klo::Sos& s = model->data.sos[start + k];
      if (types) types[k] = s.type;
      if (beg) beg[k] = n;
      for (size_t m = 0; m < s.members.size(); ++m, ++n) {
        if (ind) ind[n] = s.members[m];
        if (weight) weight[n] = s.weights[m];
      }
    }
    *nummembersP = n;
  });
}

int KLOaddgenconstrIndicator(KLOmodel* model, const char* name, int binvar, int binval, int nvars,
                             const int* ind, const double* val, char sense, double rhs) {
  return changeModel(model, [&] {
    klo::addIndicator(model->data, name, binvar, binval, nvars, ind, val, sense, rhs);
  });
}

int KLOgetgenconstrIndicator(KLOmodel* model, int genconstr, int* binvarP, int* binvalP,
                             int* nvarsP, int* ind, double* val, char* senseP, double* rhsP) {
  return readModel(model, [&] {
    klo::checkIndex(model->data, klo::Kind::GenConstr, genconstr);
    const klo::Indicator& ic = model->data.indicators[genconstr];
    putIf(binvarP, ic.binVar);
    putIf(binvalP, ic.binVal);
    putIf(nvarsP, ic.lin.size());
    for (int k = 0; k < ic.lin.size(); ++k) {
      if (ind) ind[k] = ic.lin.ind[k];
      if (val) val[k] = ic.lin.val[k];
    }
    putIf(senseP, ic.sense);
    putIf(rhsP, ic.rhs);
  });
}

int KLOdelgenconstrs(KLOmodel* model, int numdel, const int* ind) {
  return changeModel(model, [&] { klo::deleteIndicators(model->data, numdel, ind); });
}

}  // extern "C"
