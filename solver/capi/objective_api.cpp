// Objectives of a multi-objective model.
#include "capi/model_guard.h"
#include "store/edit.h"

using klo::changeModel;

extern "C" {

int KLOsetobjectiven(KLOmodel* model, int index, int priority, double weight, double abstol,
                     double reltol, const char* name, double constant, int lnz, const int* lind,
                     const double* lval) {
  return changeModel(model, [&] {
    klo::ObjectiveSpec s;
    s.index = index;
    s.priority = priority;
    s.weight = weight;
    s.absTol = abstol;
    s.relTol = reltol;
    s.name = name;
    s.constant = constant;
    s.n = lnz;
    s.ind = lind;
    s.val = lval;
    klo::setObjective(model->data, s);
  });
}

}  // extern "C"
