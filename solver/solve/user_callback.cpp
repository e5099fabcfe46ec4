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

engine::Callback userCallback(KLOmodel& m, std::shared_ptr<std::exception_ptr> thrown) {
  if (!m.callback) return {};
  KLOcallbackfn fn = m.callback;
  const void* user = m.callbackData;
  KLOmodel* model = &m;
  return [fn, user, model, thrown](engine::CallbackContext& ctx) {
    if (*thrown) return KLO_CB_STOP;
    Running scope(&ctx);
    try {
      return fn(model, &ctx, ctx.where, user);
    } catch (...) {
      *thrown = std::current_exception();
      return KLO_CB_STOP;
    }
  };
}

engine::CallbackContext* runningContext(void* cbdata) {
  return cbdata && cbdata == running ? running : nullptr;
}

}  // namespace klo
