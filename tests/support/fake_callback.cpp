// Functions of klo_c.h used inside a running callback, recorded and
// scripted.  A scripted KLOcbget result is written as its Value says: an int,
// a double, or the address of an array the fake keeps (Null: a null pointer).
#include "engine.h"

using namespace klo_fake;

extern "C" {

int KLOcbget(void* cbdata, int where, int what, void* resultP) {
  return status(__func__, {ptr(cbdata), where, what, out(resultP)});
}

// The proposal has one value per variable, which the call does not say:
// Script::arrayLength gives it.
int KLOcbsolution(void* cbdata, const double* solution, double* objP) {
  return status(__func__, {ptr(cbdata), unsized(solution), out(objP)});
}

int KLOcbsolutionp(void* cbdata, const double* solution, double* objP) {
  return status(__func__, {ptr(cbdata), unsized(solution), out(objP)});
}

int KLOcbcut(void* cbdata, int cutlen, const int* cutind, const double* cutval, char cutsense,
             double cutrhs) {
  return status(__func__, {ptr(cbdata), cutlen, array(cutind, cutlen), array(cutval, cutlen),
                           cutsense, cutrhs});
}

int KLOcbcutp(void* cbdata, int cutlen, const int* cutind, const double* cutval, char cutsense,
              double cutrhs) {
  return status(__func__, {ptr(cbdata), cutlen, array(cutind, cutlen), array(cutval, cutlen),
                           cutsense, cutrhs});
}

int KLOcbbranch(void* cbdata, int index, double value, int dir) {
  return status(__func__, {ptr(cbdata), index, value, dir});
}

int KLOcbbranchp(void* cbdata, int index, double value, int dir) {
  return status(__func__, {ptr(cbdata), index, value, dir});
}

}  // extern "C"
