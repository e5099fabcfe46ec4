// Routes COIN-OR engine messages into the library's log sink instead of
// stdout.  Severe messages are passed on, never turned into an abort.
#ifndef KLO_SOLVER_ENGINE_LOG_HANDLER_H
#define KLO_SOLVER_ENGINE_LOG_HANDLER_H

#include <CoinMessageHandler.hpp>

#include <string>

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

// Writes one line to the sink when there is one and the level allows it.
void logLine(const Settings& s, const std::string& line);

// Short text of a KLO_STATUS_... code for log lines ("optimal", ...).
const char* statusText(int status);
// A number as log lines show it (up to 10 significant digits).
std::string formatNumber(double v);

}  // namespace klo::engine

#endif
