// The bridge between the engines' callbacks and the user's KLOcallbackfn:
// the engine's CallbackContext is the cbdata the user's function receives
// and hands back to KLOcbget and the other KLOcb... functions.
#pragma once

#include <exception>
#include <memory>

#include "engine/callback_context.h"
#include "store/model.h"

namespace klo {

// What the user's function threw: the solve was stopped at once (the
// engines never see the exception) and it is thrown again once the
// solve's results are stored.
struct CallbackThrew {
  std::exception_ptr thrown;
};

// The engine callback that calls the function registered on m (empty when
// none is).  An exception from the user's function stops the solve and is
// kept in *thrown; the function is not called again in that solve.
engine::Callback userCallback(KLOmodel& m, std::shared_ptr<std::exception_ptr> thrown);

// The context behind cbdata when it is the one of the user function running
// on this thread; null otherwise (a stale or foreign pointer).
engine::CallbackContext* runningContext(void* cbdata);

}  // namespace klo
