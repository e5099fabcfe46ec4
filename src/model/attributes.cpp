// Attributes of the whole model, element attributes over arrays of
// handles, and the parameters of the model's own environment.
#include <memory>

#include "env/check.h"
#include "env/names.h"
#include "env/params.h"
#include "klo_c.h"
#include "klo_cpp.h"

using klo_detail::check;
using klo_detail::name;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// A new[] array of attr of each handle; the caller owns it.
template <class R, class A, class H>
R* getEach(A attr, const H* handles, int count) {
  std::unique_ptr<R[]> values(new R[count > 0 ? count : 0]);
  for (int i = 0; i < count; ++i) values[i] = handles[i].get(attr);
  return values.release();
}

template <class A, class H, class V>
void setEach(A attr, const H* handles, const V* values, int count) {
  for (int i = 0; i < count; ++i) handles[i].set(attr, values[i]);
}

}  // namespace

int KLOModel::get(KLO_IntAttr attr) const {
  int value = 0;
  check(KLOgetintattr(lib(model_), name(attr), &value));
  return value;
}

double KLOModel::get(KLO_DoubleAttr attr) const {
  double value = 0.0;
  check(KLOgetdblattr(lib(model_), name(attr), &value));
  return value;
}

std::string KLOModel::get(KLO_StringAttr attr) const {
  const char* value = nullptr;
  check(KLOgetstrattr(lib(model_), name(attr), &value));
  return value ? value : "";
}

void KLOModel::set(KLO_IntAttr attr, int value) {
  check(KLOsetintattr(lib(model_), name(attr), value));
}

void KLOModel::set(KLO_DoubleAttr attr, double value) {
  check(KLOsetdblattr(lib(model_), name(attr), value));
}

void KLOModel::set(KLO_StringAttr attr, const std::string& value) {
  check(KLOsetstrattr(lib(model_), name(attr), value.c_str()));
}

// --- arrays over handles ---------------------------------------------------

int* KLOModel::get(KLO_IntAttr a, const KLOVar* h, int n) const { return getEach<int>(a, h, n); }
char* KLOModel::get(KLO_CharAttr a, const KLOVar* h, int n) const { return getEach<char>(a, h, n); }
double* KLOModel::get(KLO_DoubleAttr a, const KLOVar* h, int n) const {
  return getEach<double>(a, h, n);
}
std::string* KLOModel::get(KLO_StringAttr a, const KLOVar* h, int n) const {
  return getEach<std::string>(a, h, n);
}
void KLOModel::set(KLO_IntAttr a, const KLOVar* h, const int* v, int n) { setEach(a, h, v, n); }
void KLOModel::set(KLO_CharAttr a, const KLOVar* h, const char* v, int n) { setEach(a, h, v, n); }
void KLOModel::set(KLO_DoubleAttr a, const KLOVar* h, const double* v, int n) {
  setEach(a, h, v, n);
}
void KLOModel::set(KLO_StringAttr a, const KLOVar* h, const std::string* v, int n) {
  setEach(a, h, v, n);
}

int* KLOModel::get(KLO_IntAttr a, const KLOConstr* h, int n) const { return getEach<int>(a, h, n); }
char* KLOModel::get(KLO_CharAttr a, const KLOConstr* h, int n) const {
  return getEach<char>(a, h, n);
}
double* KLOModel::get(KLO_DoubleAttr a, const KLOConstr* h, int n) const {
  return getEach<double>(a, h, n);
}
std::string* KLOModel::get(KLO_StringAttr a, const KLOConstr* h, int n) const {
  return getEach<std::string>(a, h, n);
}
void KLOModel::set(KLO_IntAttr a, const KLOConstr* h, const int* v, int n) { setEach(a, h, v, n); }
void KLOModel::set(KLO_CharAttr a, const KLOConstr* h, const char* v, int n) {
  setEach(a, h, v, n);
}
void KLOModel::set(KLO_DoubleAttr a, const KLOConstr* h, const double* v, int n) {
  setEach(a, h, v, n);
}
void KLOModel::set(KLO_StringAttr a, const KLOConstr* h, const std::string* v, int n) {
  setEach(a, h, v, n);
}

double* KLOModel::get(KLO_DoubleAttr a, const KLOQConstr* h, int n) const {
  return getEach<double>(a, h, n);
}
std::string* KLOModel::get(KLO_StringAttr a, const KLOQConstr* h, int n) const {
  return getEach<std::string>(a, h, n);
}
void KLOModel::set(KLO_DoubleAttr a, const KLOQConstr* h, const double* v, int n) {
  setEach(a, h, v, n);
}
void KLOModel::set(KLO_StringAttr a, const KLOQConstr* h, const std::string* v, int n) {
  setEach(a, h, v, n);
}

int* KLOModel::get(KLO_IntAttr a, const KLOGenConstr* h, int n) const {
  return getEach<int>(a, h, n);
}
std::string* KLOModel::get(KLO_StringAttr a, const KLOGenConstr* h, int n) const {
  return getEach<std::string>(a, h, n);
}
void KLOModel::set(KLO_StringAttr a, const KLOGenConstr* h, const std::string* v, int n) {
  setEach(a, h, v, n);
}

int* KLOModel::get(KLO_IntAttr a, const KLOPsdVar* h, int n) const { return getEach<int>(a, h, n); }
std::string* KLOModel::get(KLO_StringAttr a, const KLOPsdVar* h, int n) const {
  return getEach<std::string>(a, h, n);
}
KLOMatrix* KLOModel::get(KLO_MatAttr a, const KLOPsdVar* h, int n) const {
  return getEach<KLOMatrix>(a, h, n);
}
void KLOModel::set(KLO_IntAttr a, const KLOPsdVar* h, const int* v, int n) { setEach(a, h, v, n); }
void KLOModel::set(KLO_StringAttr a, const KLOPsdVar* h, std::string* v, int n) {
  setEach(a, h, v, n);
}
void KLOModel::set(KLO_MatAttr a, const KLOPsdVar* h, const KLOMatrix* v, int n) {
  setEach(a, h, v, n);
}

double* KLOModel::get(KLO_DoubleAttr a, const KLOPsdConstr* h, int n) const {
  return getEach<double>(a, h, n);
}
std::string* KLOModel::get(KLO_StringAttr a, const KLOPsdConstr* h, int n) const {
  return getEach<std::string>(a, h, n);
}
void KLOModel::set(KLO_DoubleAttr a, const KLOPsdConstr* h, const double* v, int n) {
  setEach(a, h, v, n);
}
void KLOModel::set(KLO_StringAttr a, const KLOPsdConstr* h, const std::string* v, int n) {
  setEach(a, h, v, n);
}

// --- parameters of the model's environment, fetched afresh each time -------

int KLOModel::get(KLO_IntParam param) const { return klo_detail::getParam(env(), param); }

double KLOModel::get(KLO_DoubleParam param) const { return klo_detail::getParam(env(), param); }

std::string KLOModel::get(KLO_StringParam param) const {
  return klo_detail::getParam(env(), param);
}

void KLOModel::set(KLO_IntParam param, int value) { klo_detail::setParam(env(), param, value); }

void KLOModel::set(KLO_DoubleParam param, double value) {
  klo_detail::setParam(env(), param, value);
}

void KLOModel::set(KLO_StringParam param, const std::string& value) {
  klo_detail::setParam(env(), param, value);
}

void KLOModel::set(const std::string& name, const std::string& value) {
  klo_detail::setByName([this] { return env(); }, name, value, klo_detail::Retry::Append);
}
