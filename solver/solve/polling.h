// KLO_CB_POLLING: raised from a thread of its own while a solve runs, so
// that a user sees the solve alive (and can stop it) however long the
// engine goes without a callback location of its own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "engine/callback_context.h"

namespace klo {

class Poller {
 public:
  // Calls cb at KLO_CB_POLLING every kPeriod until destroyed; nothing when
  // cb is empty.  cb must be safe to call from another thread (see
  // userCallback).  numVars etc. are what the context tells.
  Poller(engine::Callback cb, engine::CallbackContext ctx);
  ~Poller();
  Poller(const Poller&) = delete;
  Poller& operator=(const Poller&) = delete;

  // Half the promised 0.1 s, for the time the user's own calls take.
  static constexpr std::chrono::milliseconds kPeriod{50};

 private:
  void loop();

  engine::Callback cb_;
  engine::CallbackContext ctx_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool done_ = false;
  std::thread thread_;
};

}  // namespace klo
