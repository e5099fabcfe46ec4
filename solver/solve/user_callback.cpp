#include "solve/user_callback.h"

#include "klo_c.h"

namespace klo {
namespace {

// The context of the user function running on this thread.  Checked by the
// KLOcb... functions so that a cbdata kept past its callback is refused
// rather than followed.
thread_local engine::CallbackContext* running = nullptr;

class Running {
 public:
  explicit Running(engine::CallbackContext* ctx) : previous_(running) { running = ctx; }
  ~Running() { running = previous_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  engine::CallbackContext* previous_;
};

}  // namespace

engine::Callback userCallback(KLOmodel& m, std::shared_ptr<UserCallState> state) {
  if (!m.callback) return {};
  KLOcallbackfn fn = m.callback;
  const void* user = m.callbackData;
  KLOmodel* model = &m;
  return [fn, user, model, state](engine::CallbackContext& ctx) {
    std::lock_guard<std::recursive_mutex> lock(state->oneAtATime);
    if (state->thrown) return KLO_CB_STOP;
    Running scope(&ctx);
    try {
      if (fn(model, &ctx, ctx.where, user) == KLO_CB_STOP) state->stopAsked = true;
    } catch (...) {
      state->thrown = std::current_exception();
      state->stopAsked = true;
    }
    return state->stopAsked ? KLO_CB_STOP : 0;
  };
}

engine::CallbackContext* runningContext(void* cbdata) {
  return cbdata && cbdata == running ? running : nullptr;
}

}  // namespace klo
