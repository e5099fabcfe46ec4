// The one place where failures inside the library become status codes.
#pragma once

#include <exception>
#include <new>
#include <string>

#include "common/error.h"
#include "klo_c.h"
#include "solve/user_callback.h"

namespace klo {

// Records detail as env's last error (env may be null) and returns code.
int record(KLOenv* env, int code, const std::string& detail);

// "the callback threw: " and the exception's text when it has one.
std::string callbackThrewText(const CallbackThrew& e);

// Runs body(); a klo::Error becomes its code, exhaustion of memory
// KLO_ERROR_OUT_OF_MEMORY, anything else KLO_ERROR_INTERNAL.  The message
// is recorded in env.  An exception of the user's callback passes through.
template <class F>
int guarded(KLOenv* env, F&& body) {
  try {
    body();
    return KLO_OK;
  } catch (const Error& e) {
    return record(env, e.code, e.message);
  } catch (const CallbackThrew& e) {
    // The user's own exception, thrown again to the caller once the solve
    // has stopped cleanly; the message keeps its text for catch-alls.
    record(env, KLO_ERROR_CALLBACK_EXCEPTION, callbackThrewText(e));
    std::rethrow_exception(e.thrown);
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
