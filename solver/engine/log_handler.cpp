#include "engine/log_handler.h"

#include <cstdio>
#include <string>

#include "klo_c.h"

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

void logLine(const Settings& s, const std::string& line) {
  if (s.logLevel > 0 && s.log) s.log(line);
}

const char* statusText(int status) {
  switch (status) {
    case KLO_STATUS_OPTIMAL: return "optimal";
    case KLO_STATUS_INFEASIBLE: return "infeasible";
    case KLO_STATUS_UNBOUNDED: return "unbounded";
    case KLO_STATUS_INF_OR_UNBD: return "infeasible or unbounded";
    case KLO_STATUS_NUMERICAL: return "stopped on numerical trouble";
    case KLO_STATUS_NODE_LIMIT: return "node limit reached";
    case KLO_STATUS_TIME_LIMIT: return "time limit reached";
    case KLO_STATUS_SOLUTION_LIMIT: return "solution limit reached";
    case KLO_STATUS_ITERATION_LIMIT: return "iteration limit reached";
    case KLO_STATUS_INTERRUPTED: return "interrupted";
    case KLO_STATUS_CUTOFF: return "no solution better than the cutoff";
    default: return "not solved";
  }
}

std::string formatNumber(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.10g", v);
  return buf;
}

}  // namespace klo::engine
