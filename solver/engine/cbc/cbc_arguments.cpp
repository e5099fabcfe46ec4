#include "engine/cbc/cbc_arguments.h"

#include <cmath>

#include "engine/log.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Args = std::vector<std::string>;

void add(Args& a, const std::string& option, const std::string& value) {
  a.push_back("-" + option);
  a.push_back(value);
}

void addCuts(Args& a, int level) {
  if (level == 0) add(a, "cuts", "off");
  if (level == 1) add(a, "cuts", "root");
  if (level == 3) add(a, "cuts", "on");
}

void addProbing(Args& a, int level) {
  if (level == 0) add(a, "probingCuts", "off");
  if (level == 1) add(a, "probingCuts", "root");
  if (level == 3) add(a, "probingCuts", "forceOn");
}

// Strong branching: how many candidates are tried, and after how many
// branches a column's pseudo-costs are trusted instead.
void addStrong(Args& a, int level) {
  if (level == 0) {
    add(a, "strongBranching", "0");
    add(a, "trustPseudoCosts", "0");
  }
  if (level == 1) add(a, "strongBranching", "5");
  if (level == 3) {
    add(a, "strongBranching", "50");
    add(a, "trustPseudoCosts", "20");
  }
}

void addHeuristics(Args& a, int level) {
  if (level == 0) add(a, "heuristicsOnOff", "off");
  if (level == 1) {
    add(a, "heuristicsOnOff", "off");
    add(a, "roundingHeuristic", "on");
    add(a, "feasibilityPump", "on");
  }
  if (level == 3) {
    add(a, "Rens", "on");
    add(a, "Rins", "on");
    add(a, "Dins", "on");
    add(a, "proximitySearch", "on");
  }
}

void addLimits(Args& a, const Problem& p, const Settings& s, double timeLeft) {
  if (timeLeft < KLO_INFINITY) add(a, "seconds", formatNumber(timeLeft));
  if (s.maxNodes < INT_MAX) add(a, "maxNodes", std::to_string(s.maxNodes));
  add(a, "allowableGap", formatNumber(s.gapAbs));
  add(a, "ratioGap", formatNumber(s.gapRel));
  // Cbc minimises, without our constant: a maximisation reaches it negated.
  if (std::fabs(s.cutoff) < KLO_INFINITY)
    add(a, "cutoff", formatNumber(p.sense * (s.cutoff - p.objConstant)));
}

bool sosOfIntegers(const Problem& p) {
  for (const SosSet& set : p.sos)
    for (int j : set.members)
      if (p.colType[j] != KLO_CONTINUOUS) return true;
  return false;
}

}  // namespace

int cbcLogLevel(const Settings& s) { return s.logLevel <= 1 ? 0 : s.logLevel - 1; }

std::vector<std::string> cbcArguments(const Problem& p, const Settings& s, double timeLeft,
                                      bool withCallback) {
  Args a{"klo"};
  add(a, "log", std::to_string(cbcLogLevel(s)));
  add(a, "timeMode", "elapsed");
  addLimits(a, p, s, timeLeft);
  add(a, "integerTolerance", formatNumber(s.integerTolerance));
  addCuts(a, s.levelCuts);
  addProbing(a, s.levelProbing);
  addStrong(a, s.levelStrong);
  // A heuristic's point that breaks an SOS set of integer members makes
  // Cbc assert when it checks the point (CbcSOS::feasibleRegion).
  addHeuristics(a, sosOfIntegers(p) ? 0 : s.levelHeurs);
  if (s.presolve == 0) add(a, "presolve", "off");
  // Preprocessing asserts on SOS sets it cannot handle (a member that may
  // be negative, members fixed at 0: CglPreProcess::preProcessNonDefault).
  if (withCallback || s.presolve == 0 || !p.sos.empty()) add(a, "preprocess", "off");
  if (!withCallback && s.numThreads > 1) add(a, "threads", std::to_string(s.numThreads));
  a.push_back("-solve");
  a.push_back("-quit");
  return a;
}

}  // namespace klo::engine
