// The one place where failures inside the library become status codes.
#pragma once

#include <exception>
#include <new>
#include <string>

#include "common/error.h"
#include "klo_c.h"

namespace klo {

// Records detail as env's last error (env may be null) and returns code.
int record(KLOenv* env, int code, const std::string& detail);

// Runs body(); a klo::Error becomes its code, exhaustion of memory
// KLO_ERROR_OUT_OF_MEMORY, anything else KLO_ERROR_INTERNAL.  The message
// is recorded in env.
template <class F>
int guarded(KLOenv* env, F&& body) {
  try {
    body();
    return KLO_OK;
  } catch (const Error& e) {
    return record(env, e.code, e.message);
  } catch (const std::bad_alloc&) {
    return record(env, KLO_ERROR_OUT_OF_MEMORY, "Out of memory");
  } catch (const std::exception& e) {
    return record(env, KLO_ERROR_INTERNAL, std::string("Internal error: ") + e.what());
  } catch (...) {
    return record(env, KLO_ERROR_INTERNAL, "Internal error");
  }
}

// Throws KLO_ERROR_NULL_ARGUMENT naming what when p is null.
inline void requireArg(const void* p, const char* what) {
  if (!p) fail(KLO_ERROR_NULL_ARGUMENT, std::string("Argument ") + what + " is null");
}

}  // namespace klo
