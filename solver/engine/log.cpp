#include "engine/log.h"

#include <cstdio>

#include "common/status_text.h"

namespace klo::engine {

void logLine(const Settings& s, const std::string& line) {
  if (s.logLevel > 0 && s.log) s.log(line);
}

std::string formatNumber(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.10g", v);
  return buf;
}

std::string searchSummary(const char* kind, const Result& r, const char* iterationKind,
                          long long iterations) {
  std::string line = std::string(kind) + " " + statusText(r.status);
  if (r.hasSolution)
    line += ", objective " + formatNumber(r.objective) + ", bound " +
            formatNumber(r.dualObjective) + ", gap " + formatNumber(100.0 * r.gapRel) + "%";
  else
    line += ", no solution";
  return line + "; " + std::to_string(r.nodeCount) + " nodes, " + std::to_string(iterations) + " " +
         iterationKind + " iterations in " + formatNumber(r.solverTime) + " s";
}

std::string interiorSummary(const char* kind, const Result& r, const char* iterationKind) {
  std::string line = std::string(kind) + " " + statusText(r.status);
  if (r.hasSolution) line += ", objective " + formatNumber(r.objective);
  return line + "; " + std::to_string(r.barrierIterations) + " " + iterationKind +
         " iterations in " + formatNumber(r.solverTime) + " s";
}

}  // namespace klo::engine
