// Solving, analyses and callbacks.  The work is in solve/; these functions
// check arguments and turn failures into codes.
#include <string>

#include "capi/model_guard.h"
#include "engine/callback_context.h"
#include "klo_c.h"
#include "solve/feas_relax.h"
#include "solve/iis.h"
#include "solve/optimize.h"
#include "solve/user_callback.h"

namespace {

// The running callback's context behind cbdata; codes for null and for a
// pointer that is not the running callback's.
template <class F>
int inCallback(void* cbdata, F&& body) {
  if (!cbdata) return KLO_ERROR_NULL_ARGUMENT;
  klo::engine::CallbackContext* ctx = klo::runningContext(cbdata);
  if (!ctx) return KLO_ERROR_NOT_IN_CALLBACK;
  return body(*ctx);
}

int solution(void* cbdata, const double* x, double* objP) {
  return inCallback(cbdata, [&](klo::engine::CallbackContext& c) {
    return klo::engine::callbackSolution(c, x, objP);
  });
}

int cut(void* cbdata, int len, const int* ind, const double* val, char sense, double rhs) {
  return inCallback(cbdata, [&](klo::engine::CallbackContext& c) {
    return klo::engine::callbackCut(c, len, ind, val, sense, rhs);
  });
}

int branch(void* cbdata, int index, double value, int dir) {
  return inCallback(cbdata, [&](klo::engine::CallbackContext& c) {
    return klo::engine::callbackBranch(c, index, value, dir);
  });
}

}  // namespace

extern "C" {

int KLOoptimize(KLOmodel* model) {
  if (!model) return KLO_ERROR_NULL_ARGUMENT;
  return klo::guarded(&model->env, [&] { klo::optimize(*model); });
}

int KLOcomputeIIS(KLOmodel* model) {
  if (!model) return KLO_ERROR_NULL_ARGUMENT;
  return klo::guarded(&model->env, [&] { klo::computeIis(*model); });
}

int KLOfeasrelax(KLOmodel* model, int relaxobjtype, int minrelax, const double* lbpen,
                 const double* ubpen, const double* rhspen, double* feasobjP) {
  if (!model) return KLO_ERROR_NULL_ARGUMENT;
  return klo::guarded(&model->env, [&] {
    klo::FeasRelaxRequest req;
    req.objType = relaxobjtype;
    req.minRelax = minrelax != 0;
    req.lbPen = lbpen;
    req.ubPen = ubpen;
    req.rhsPen = rhspen;
    const double measure = klo::feasRelax(*model, req);
    if (feasobjP) *feasobjP = measure;
  });
}

int KLOcbget(void* cbdata, int where, int what, void* resultP) {
  return inCallback(cbdata, [&](klo::engine::CallbackContext& c) {
    return klo::engine::callbackGet(c, where, what, resultP);
  });
}

int KLOcbsolution(void* cbdata, const double* solution, double* objP) {
  return ::solution(cbdata, solution, objP);
}
int KLOcbsolutionp(void* cbdata, const double* solution, double* objP) {
  return ::solution(cbdata, solution, objP);
}
int KLOcbcut(void* cbdata, int cutlen, const int* cutind, const double* cutval, char cutsense,
             double cutrhs) {
  return cut(cbdata, cutlen, cutind, cutval, cutsense, cutrhs);
}
int KLOcbcutp(void* cbdata, int cutlen, const int* cutind, const double* cutval, char cutsense,
              double cutrhs) {
  return cut(cbdata, cutlen, cutind, cutval, cutsense, cutrhs);
}
int KLOcbbranch(void* cbdata, int index, double value, int dir) {
  return branch(cbdata, index, value, dir);
}
int KLOcbbranchp(void* cbdata, int index, double value, int dir) {
  return branch(cbdata, index, value, dir);
}

}  // extern "C"
