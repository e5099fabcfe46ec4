#include "engine/coin/log_handler.h"

#include <string>

namespace klo::engine {

SinkMessageHandler::SinkMessageHandler(LogSink sink, int level) : sink_(std::move(sink)) {
  // Pinned per message class: Cbc's sub-searches change the general level.
  setLogLevel(level);
  for (int c = 0; c < 4; ++c) setLogLevel(c, level);
  setPrefix(false);
}

int SinkMessageHandler::print() {
  if (!sink_) return 0;
  std::string text = messageBuffer();
  size_t from = 0;
  while (from <= text.size()) {
    size_t nl = text.find('\n', from);
    if (nl == std::string::npos) nl = text.size();
    if (nl > from) sink_(text.substr(from, nl - from));
    from = nl + 1;
  }
  return 0;
}

}  // namespace klo::engine
