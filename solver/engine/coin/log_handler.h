// Routes COIN-OR engine messages into the library's log sink instead of
// stdout.  Severe messages are passed on, never turned into an abort.
#pragma once

#include <CoinMessageHandler.hpp>

#include "engine/settings.h"

namespace klo::engine {

class SinkMessageHandler : public CoinMessageHandler {
 public:
  // level: the engine's own log level (0 silences it).
  SinkMessageHandler(LogSink sink, int level);
  int print() override;
  void checkSeverity() override {}
  CoinMessageHandler* clone() const override { return new SinkMessageHandler(*this); }

 private:
  LogSink sink_;
};

}  // namespace klo::engine
