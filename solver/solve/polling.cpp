#include "solve/polling.h"

#include <utility>

#include "klo_c.h"

namespace klo {

Poller::Poller(engine::Callback cb, engine::CallbackContext ctx)
    : cb_(std::move(cb)), ctx_(std::move(ctx)) {
  ctx_.where = KLO_CB_POLLING;
  if (cb_) thread_ = std::thread([this] { loop(); });
}

Poller::~Poller() {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    done_ = true;
  }
  wake_.notify_one();
  if (thread_.joinable()) thread_.join();
}

// A stop asked here is latched by the user's callback and reaches the
// engine at its next callback location.
void Poller::loop() {
  std::unique_lock<std::mutex> lock(mutex_);
  while (!wake_.wait_for(lock, kPeriod, [this] { return done_; })) {
    lock.unlock();
    cb_(ctx_);
    lock.lock();
  }
}

}  // namespace klo
