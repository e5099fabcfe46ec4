// The index-based callback: columns by their index in the model.
#include <memory>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"

using klo_detail::checkSubmission;

namespace {

constexpr int kSolution = 303;
constexpr int kNodeRel = 304;

}  // namespace

KLOCallbackP::KLOCallbackP() : KLOCallback(false) {}

KLOCallbackP::~KLOCallbackP() = default;

int KLOCallbackP::getIntInfoAt(int index, int what) {
  const int* values = infoArray<int>(what);
  // Every array the library offers has one element per column.
  if (!values) klo_detail::raise(KLO_ERROR_CALLBACK_INFO);
  if (index < 0 || index >= numVars) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  return values[index];
}

double KLOCallbackP::getDoubleInfoAt(int index, int what) {
  const double* values = infoArray<double>(what);
  if (!values) klo_detail::raise(KLO_ERROR_CALLBACK_INFO);
  if (index < 0 || index >= numVars) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  return values[index];
}

double KLOCallbackP::getSolution(int index) { return columnValue(kSolution, index); }

double KLOCallbackP::getNodeRel(int index) { return columnValue(kNodeRel, index); }

double* KLOCallbackP::getSolution(int* indices, int n) {
  std::unique_ptr<double[]> values(new double[n > 0 ? n : 0]);
  for (int k = 0; k < n; ++k) values[k] = getSolution(indices[k]);
  return values.release();
}

double* KLOCallbackP::getNodeRel(int* indices, int n) {
  std::unique_ptr<double[]> values(new double[n > 0 ? n : 0]);
  for (int k = 0; k < n; ++k) values[k] = getNodeRel(indices[k]);
  return values.release();
}

void KLOCallbackP::setSolution(int index, double x) { propose(index, x); }

void KLOCallbackP::setSolution(int* indices, double* x, int n) {
  for (int k = 0; k < n; ++k) propose(indices[k], x[k]);
}

int KLOCallbackP::addBranch(int index, double value, int dir) {
  return checkSubmission(KLOcbbranchp(cbdata, index, value, dir));
}

int KLOCallbackP::addCut(int* indices, double* values, int n, char sense, double rhs) {
  return checkSubmission(KLOcbcutp(cbdata, n, indices, values, sense, rhs));
}
