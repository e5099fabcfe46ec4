// The bridge between the engines' callbacks and the user's KLOcallbackfn:
// the engine's CallbackContext is the cbdata the user's function receives
// and hands back to KLOcbget and the other KLOcb... functions.
#pragma once

#include "engine/callback_context.h"
#include "store/model.h"

namespace klo {

// The engine callback that calls the function registered on m (empty when
// none is).
engine::Callback userCallback(KLOmodel& m);

// The context behind cbdata when it is the one of the user function running
// on this thread; null otherwise (a stale or foreign pointer).
engine::CallbackContext* runningContext(void* cbdata);

}  // namespace klo
