#include "solve/user_callback.h"

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

engine::Callback userCallback(KLOmodel& m) {
  if (!m.callback) return {};
  KLOcallbackfn fn = m.callback;
  const void* user = m.callbackData;
  KLOmodel* model = &m;
  return [fn, user, model](engine::CallbackContext& ctx) {
    Running scope(&ctx);
    return fn(model, &ctx, ctx.where, user);
  };
}

engine::CallbackContext* runningContext(void* cbdata) {
  return cbdata && cbdata == running ? running : nullptr;
}

}  // namespace klo
