// Solving, analyses and callbacks.  The engines are not connected in this
// build: every call refuses with KLO_ERROR_NOT_SUPPORTED and says so.
#include <string>

#include "capi/model_guard.h"

namespace {

int noEngine(KLOmodel* model, const char* fn) {
  if (!model) return KLO_ERROR_NULL_ARGUMENT;
  return klo::record(
      &model->env, KLO_ERROR_NOT_SUPPORTED,
      std::string(fn) + ": no solving engine is connected in this build of the library");
}

// Callback functions only work inside a running callback, and none can run
// without an engine.
int notInCallback(void* cbdata) {
  return cbdata ? KLO_ERROR_NOT_IN_CALLBACK : KLO_ERROR_NULL_ARGUMENT;
}

}  // namespace

extern "C" {

int KLOoptimize(KLOmodel* model) { return noEngine(model, "KLOoptimize"); }

int KLOcomputeIIS(KLOmodel* model) { return noEngine(model, "KLOcomputeIIS"); }

int KLOfeasrelax(KLOmodel* model, int, int, const double*, const double*, const double*, double*) {
  return noEngine(model, "KLOfeasrelax");
}

int KLOcbget(void* cbdata, int, int, void*) { return notInCallback(cbdata); }
int KLOcbsolution(void* cbdata, const double*, double*) { return notInCallback(cbdata); }
int KLOcbsolutionp(void* cbdata, const double*, double*) { return notInCallback(cbdata); }
int KLOcbcut(void* cbdata, int, const int*, const double*, char, double) {
  return notInCallback(cbdata);
}
int KLOcbcutp(void* cbdata, int, const int*, const double*, char, double) {
  return notInCallback(cbdata);
}
int KLOcbbranch(void* cbdata, int, double, int) { return notInCallback(cbdata); }
int KLOcbbranchp(void* cbdata, int, double, int) { return notInCallback(cbdata); }

}  // extern "C"
