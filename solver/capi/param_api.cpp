// Parameter functions of klo_c.h.
#include <cstring>
#include <string>

#include "capi/guard.h"
#include "env/environment.h"
#include "env/param_file.h"

using klo::guarded;
using klo::ParamType;
using klo::requireArg;

namespace {

// Runs body on a named parameter of env after the common null checks.
template <class F>
int withParam(KLOenv* env, const char* name, F&& body) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  return guarded(env, [&] {
    requireArg(name, "paramname");
    body(std::string(name));
  });
}

template <class T>
void put(T* p, T v) {
  if (p) *p = v;
}

void copyText(char* dst, const std::string& s) {
  if (dst) std::memcpy(dst, s.c_str(), s.size() + 1);  // values are at most 511 characters
}

}  // namespace

extern "C" {

int KLOgetintparam(KLOenv* env, const char* paramname, int* valueP) {
  return withParam(env, paramname, [&](const std::string& n) {
    requireArg(valueP, "valueP");
    *valueP = env->params.getInt(n);
  });
}

int KLOgetdblparam(KLOenv* env, const char* paramname, double* valueP) {
  return withParam(env, paramname, [&](const std::string& n) {
    requireArg(valueP, "valueP");
    *valueP = env->params.getDbl(n);
  });
}

int KLOgetstrparam(KLOenv* env, const char* paramname, char* value) {
  return withParam(env, paramname, [&](const std::string& n) {
    requireArg(value, "value");
    copyText(value, env->params.getStr(n));
  });
}

int KLOsetintparam(KLOenv* env, const char* paramname, int value) {
  return withParam(env, paramname, [&](const std::string& n) { env->params.setInt(n, value); });
}

int KLOsetdblparam(KLOenv* env, const char* paramname, double value) {
  return withParam(env, paramname, [&](const std::string& n) { env->params.setDbl(n, value); });
}

int KLOsetstrparam(KLOenv* env, const char* paramname, const char* value) {
  return withParam(env, paramname, [&](const std::string& n) {
    requireArg(value, "value");
    env->params.require(n, ParamType::String);
    env->setLogFile(value);
  });
}

int KLOgetintparaminfo(KLOenv* env, const char* paramname, int* valueP, int* minP, int* maxP,
                       int* defP) {
  return withParam(env, paramname, [&](const std::string& n) {
    const klo::ParamDef& d = klo::paramDef(env->params.require(n, ParamType::Int));
    put(valueP, env->params.getInt(n));
    put(minP, static_cast<int>(d.min));
    put(maxP, static_cast<int>(d.max));
    put(defP, static_cast<int>(d.def));
  });
}

int KLOgetdblparaminfo(KLOenv* env, const char* paramname, double* valueP, double* minP,
                       double* maxP, double* defP) {
  return withParam(env, paramname, [&](const std::string& n) {
    const klo::ParamDef& d = klo::paramDef(env->params.require(n, ParamType::Double));
    put(valueP, env->params.getDbl(n));
    put(minP, d.min);
    put(maxP, d.max);
    put(defP, d.def);
  });
}

int KLOgetstrparaminfo(KLOenv* env, const char* paramname, char* valueP, char* defP) {
  return withParam(env, paramname, [&](const std::string& n) {
    copyText(valueP, env->params.getStr(n));
    copyText(defP, "");
  });
}

int KLOresetparams(KLOenv* env) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  return guarded(env, [&] { env->replaceParams(klo::ParamSet()); });
}

int KLOreadparams(KLOenv* env, const char* filename) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  return guarded(env, [&] {
    requireArg(filename, "filename");
    env->replaceParams(klo::readParamFile(filename, env->params));
  });
}

int KLOwriteparams(KLOenv* env, const char* filename) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  return guarded(env, [&] {
    requireArg(filename, "filename");
    klo::writeParamFile(filename, env->params);
  });
}

}  // extern "C"
