#include "engine/log.h"

#include <cstdio>

namespace klo::engine {

void logLine(const Settings& s, const std::string& line) {
  if (s.logLevel > 0 && s.log) s.log(line);
}

std::string formatNumber(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.10g", v);
  return buf;
}

}  // namespace klo::engine
