#include "capi/guard.h"

#include "env/environment.h"

namespace klo {

int record(KLOenv* env, int code, const std::string& detail) {
  if (env) env->lastError = detail.empty() ? KLOexplainerror(code) : detail;
  return code;
}

}  // namespace klo
