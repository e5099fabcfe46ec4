// The trampoline the library calls during a solve, and the handle-based
// callback's operations.
#include <algorithm>
#include <memory>
#include <string>

#include "callback/info_codes.h"
#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/terms.h"

using klo_detail::check;
using klo_detail::checkSubmission;

namespace {

constexpr int kNumVars = 200;
constexpr int kSolution = 316;
constexpr int kNodeRel = 317;
constexpr int kMessageText = 305;
constexpr int kStop = 11;
constexpr int kNothingProposed = 1000;

}  // namespace

KLOCallback::KLOCallback() : KLOCallback(true) {}

KLOCallback::KLOCallback(bool variant) : byVariable(variant) {}

KLOCallback::~KLOCallback() = default;

void KLOCallback::callback() {}

int KLOCallback::cbfn(const void* model, void* cbdata, int where, const void* usrdata) {
  auto* cb = static_cast<KLOCallback*>(const_cast<void*>(usrdata));
  cb->begin(model, cbdata, where);
  cb->callback();
  double objective = 0.0;
  cb->useSolution(&objective);
  return cb->aborted ? kStop : 0;
}

void KLOCallback::begin(const void* libraryModel, void* data, int whereCode) {
  model = libraryModel;
  cbdata = data;
  where = whereCode;
  solutionSet = false;
  aborted = false;
  // The previous invocation's proposal goes now; the last one goes with
  // this object.
  solution.reset();
  numVars = 0;
  int n = 0;
  if (byVariable) {
    check(KLOgetintattr(static_cast<KLOmodel*>(const_cast<void*>(model)), "NumVars", &n));
  } else {
    check(KLOcbget(cbdata, where, kNumVars, &n));
  }
  numVars = std::max(n, 0);
  solution.reset(new double[static_cast<std::size_t>(numVars)]);
  std::fill(solution.get(), solution.get() + numVars, KLO_CB_NOVALUE);
}

template <class T>
const T* KLOCallback::infoArray(int what) {
  const T* values = nullptr;
  check(KLOcbget(cbdata, where, what, &values));
  return values;
}

template const int* KLOCallback::infoArray<int>(int);
template const double* KLOCallback::infoArray<double>(int);

int KLOCallback::getIntInfo(int what) {
  klo_detail::checkIntInfo(what);
  int value = 0;
  check(KLOcbget(cbdata, where, what, &value));
  return value;
}

double KLOCallback::getDoubleInfo(int what) {
  klo_detail::checkDoubleInfo(what);
  double value = 0.0;
  check(KLOcbget(cbdata, where, what, &value));
  return value;
}

std::string KLOCallback::getStringInfo(int what) {
  if (what != kMessageText) klo_detail::raise(KLO_ERROR_CALLBACK_INFO);
  const char* text = nullptr;
  check(KLOcbget(cbdata, where, what, &text));
  return text ? text : "";
}

double KLOCallback::columnValue(int what, int index) {
  const double* values = infoArray<double>(what);
  if (!values) return KLO_CB_NOVALUE;
  if (index < 0 || index >= numVars) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  return values[index];
}

double KLOCallback::getSolution(KLOVar v) { return columnValue(kSolution, v.index()); }

double KLOCallback::getNodeRel(KLOVar v) { return columnValue(kNodeRel, v.index()); }

double* KLOCallback::getSolution(const KLOVar* vars, int n) {
  std::unique_ptr<double[]> values(new double[n > 0 ? n : 0]);
  for (int k = 0; k < n; ++k) values[k] = getSolution(vars[k]);
  return values.release();
}

double* KLOCallback::getNodeRel(const KLOVar* vars, int n) {
  std::unique_ptr<double[]> values(new double[n > 0 ? n : 0]);
  for (int k = 0; k < n; ++k) values[k] = getNodeRel(vars[k]);
  return values.release();
}

void KLOCallback::propose(int index, double x) {
  if (index < 0 || index >= numVars) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  solution[static_cast<std::size_t>(index)] = x;
  solutionSet = true;
}

void KLOCallback::setSolution(KLOVar v, double x) { propose(v.index(), x); }

void KLOCallback::setSolution(const KLOVar* vars, const double* x, int n) {
  for (int k = 0; k < n; ++k) propose(vars[k].index(), x[k]);
}

int KLOCallback::useSolution(double* objOut) {
  if (!solutionSet) return kNothingProposed;
  solutionSet = false;
  return checkSubmission(byVariable ? KLOcbsolution(cbdata, solution.get(), objOut)
                                    : KLOcbsolutionp(cbdata, solution.get(), objOut));
}

int KLOCallback::addBranch(KLOVar v, double value, int dir) {
  const int index = v.index();
  if (index < 0) klo_detail::raise(KLO_ERROR_INVALID_VAR);
  return checkSubmission(KLOcbbranch(cbdata, index, value, dir));
}

int KLOCallback::addCut(const KLOLinExpr& expr, char sense, double rhs) {
  const klo_detail::LinearTerms terms(expr);
  return checkSubmission(KLOcbcut(cbdata, terms.size(), terms.indices(), terms.values(), sense,
                                  klo_detail::shifted(rhs, expr.getConstant())));
}

void KLOCallback::abort() { aborted = true; }

void KLOModel::setCallback(KLOCallback* cb) {
  callback_ = cb;
  // A null object unregisters: the trampoline needs an object to call.
  check(KLOsetcallbackfunc(static_cast<KLOmodel*>(model_), cb ? &KLOCallback::cbfn : nullptr, cb));
}
