// The bridge between the engines' callbacks and the user's KLOcallbackfn:
// the engine's CallbackContext is the cbdata the user's function receives
// and hands back to KLOcbget and the other KLOcb... functions.
#pragma once

#include <atomic>
#include <exception>
#include <memory>
#include <mutex>

#include "engine/callback_context.h"
#include "store/model.h"

namespace klo {

// What the user's function threw: the solve was stopped at once (the
// engines never see the exception) and it is thrown again once the
// solve's results are stored.
struct CallbackThrew {
  std::exception_ptr thrown;
};

// Shared by every call of the user's function in one solve.
struct UserCallState {
  std::recursive_mutex oneAtATime;  // the polling thread calls it too
  std::exception_ptr thrown;        // not called again once set
  std::atomic<bool> stopAsked{false};
};

// The engine callback that calls the function registered on m (empty when
// none is).  Calls are one at a time, from whichever thread.  Once the user
// asked to stop (from any location) every later call returns KLO_CB_STOP,
// so the engine stops at its next callback; an exception from the user's
// function is kept in state and stops the solve the same way.
engine::Callback userCallback(KLOmodel& m, std::shared_ptr<UserCallState> state);

// The context behind cbdata when it is the one of the user function running
// on this thread; null otherwise (a stale or foreign pointer).
engine::CallbackContext* runningContext(void* cbdata);

}  // namespace klo
