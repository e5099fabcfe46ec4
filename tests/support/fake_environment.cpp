// Environment and parameter functions of klo_c.h, recorded and scripted.
#include <string>

#include "engine.h"

using namespace klo_fake;

extern "C" {

int KLOemptyenv(KLOenv** envP) { return status(__func__, {out(envP)}); }

int KLOloadenv(KLOenv** envP, const char* logfilename) {
  return status(__func__, {out(envP), text(logfilename)});
}

int KLOstartenv(KLOenv* env) { return status(__func__, {env}); }

int KLOfreeenv(KLOenv* env) { return status(__func__, {env}); }

int KLOmsg(KLOenv* env, const char* message) { return status(__func__, {env, text(message)}); }

const char* KLOgeterrormsg(KLOenv* env) {
  status(__func__, {env});
  return Engine::instance().errorText.c_str();
}

const char* KLOexplainerror(int code) {
  status(__func__, {code});
  Engine& engine = Engine::instance();
  auto scripted = engine.explanations.find(code);
  if (scripted != engine.explanations.end()) return scripted->second.c_str();
  return engine.keep("fake error " + std::to_string(code));
}

const char* KLOexplainstatus(int status) {
  klo_fake::status(__func__, {status});
  return Engine::instance().keep("fake status " + std::to_string(status));
}

int KLOgetintparam(KLOenv* env, const char* paramname, int* valueP) {
  return status(__func__, {env, text(paramname), out(valueP)});
}

int KLOgetdblparam(KLOenv* env, const char* paramname, double* valueP) {
  return status(__func__, {env, text(paramname), out(valueP)});
}

int KLOgetstrparam(KLOenv* env, const char* paramname, char* value) {
  return status(__func__, {env, text(paramname), out(value)});
}

int KLOsetintparam(KLOenv* env, const char* paramname, int value) {
  return status(__func__, {env, text(paramname), value});
}

int KLOsetdblparam(KLOenv* env, const char* paramname, double value) {
  return status(__func__, {env, text(paramname), value});
}

int KLOsetstrparam(KLOenv* env, const char* paramname, const char* value) {
  return status(__func__, {env, text(paramname), text(value)});
}

int KLOgetintparaminfo(KLOenv* env, const char* paramname, int* valueP, int* minP, int* maxP,
                       int* defP) {
  return status(__func__, {env, text(paramname), out(valueP), out(minP), out(maxP), out(defP)});
}

int KLOgetdblparaminfo(KLOenv* env, const char* paramname, double* valueP, double* minP,
                       double* maxP, double* defP) {
  return status(__func__, {env, text(paramname), out(valueP), out(minP), out(maxP), out(defP)});
}

int KLOgetstrparaminfo(KLOenv* env, const char* paramname, char* valueP, char* defP) {
  return status(__func__, {env, text(paramname), out(valueP), out(defP)});
}

int KLOresetparams(KLOenv* env) { return status(__func__, {env}); }

int KLOreadparams(KLOenv* env, const char* filename) {
  return status(__func__, {env, text(filename)});
}

int KLOwriteparams(KLOenv* env, const char* filename) {
  return status(__func__, {env, text(filename)});
}

}  // extern "C"
