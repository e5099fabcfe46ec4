// Environment functions of klo_c.h.
#include <memory>

#include "capi/guard.h"
#include "env/environment.h"

using klo::guarded;
using klo::requireArg;

namespace {

int makeEnv(KLOenv** envP, bool start, const char* logfile) {
  if (!envP) return KLO_ERROR_NULL_ARGUMENT;
  *envP = nullptr;
  KLOenv* env = new (std::nothrow) KLOenv;
  if (!env) return KLO_ERROR_OUT_OF_MEMORY;
  *envP = env;  // even on a later failure, so that the caller can read the error
  return guarded(env, [&] {
    if (logfile) env->setLogFile(logfile);
    env->started = start;
  });
}

}  // namespace

extern "C" {

int KLOemptyenv(KLOenv** envP) { return makeEnv(envP, false, nullptr); }

int KLOloadenv(KLOenv** envP, const char* logfilename) { return makeEnv(envP, true, logfilename); }

int KLOstartenv(KLOenv* env) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  env->started = true;
  return KLO_OK;
}

int KLOfreeenv(KLOenv* env) {
  if (!env) return KLO_OK;
  if (env->ownedByModel)
    return klo::record(env, KLO_ERROR_INVALID_ARGUMENT,
                       "This environment belongs to a model and is freed with it");
  delete env;
  return KLO_OK;
}

int KLOmsg(KLOenv* env, const char* message) {
  if (!env) return KLO_ERROR_NULL_ARGUMENT;
  return guarded(env, [&] {
    requireArg(message, "message");
    env->message(message);
  });
}

const char* KLOgeterrormsg(KLOenv* env) { return env ? env->lastError.c_str() : ""; }

}  // extern "C"
