#include "capi/guard.h"

#include <exception>

#include "env/environment.h"

namespace klo {

int record(KLOenv* env, int code, const std::string& detail) {
  if (env) env->lastError = detail.empty() ? KLOexplainerror(code) : detail;
  return code;
}

std::string callbackThrewText(const CallbackThrew& e) {
  try {
    std::rethrow_exception(e.thrown);
  } catch (const std::exception& x) {
    return std::string("the callback threw: ") + x.what();
  } catch (...) {
    return "the callback threw an exception that is not a std::exception";
  }
}

}  // namespace klo
