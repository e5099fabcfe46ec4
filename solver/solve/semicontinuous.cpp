#include "solve/semicontinuous.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/error.h"
#include "engine/log.h"
#include "klo_c.h"
#include "solve/answer_check.h"
#include "solve/problem_from_model.h"

namespace klo {
namespace {

bool semi(char t) { return t == KLO_SEMICONT || t == KLO_SEMIINT; }

// Below this magnitude a proposed value counts as 0: its switch is off.
constexpr double kZero = 1e-9;

double switchValue(double x) { return std::fabs(x) > kZero ? 1.0 : 0.0; }

bool isSet(double x) { return std::fabs(x) < KLO_INFINITY; }  // NaN too is unset

void addSwitch(engine::Problem& p, int j, double bigM, std::vector<Switch>& out) {
  const double lower = p.colLower[j], upper = p.colUpper[j];
  const double a = lower <= -KLO_INFINITY ? -bigM : lower;
  const double b = upper >= KLO_INFINITY ? bigM : upper;
  const int z = p.numCols();
  p.obj.push_back(0.0);
  p.colLower.push_back(0.0);
  p.colUpper.push_back(1.0);
  p.colType.push_back(KLO_BINARY);
  if (!p.startValues.empty()) {
    const double x = p.startValues[j];
    p.startValues.push_back(isSet(x) ? switchValue(x) : KLO_UNDEFINED);
  }
  p.colLower[j] = std::min(a, 0.0);
  p.colUpper[j] = std::max(b, 0.0);
  const int row = p.numRows();
  appendSparseRow(p, {{j, 1.0}, {z, -a}}, 0.0, KLO_INFINITY);
  appendSparseRow(p, {{j, 1.0}, {z, -b}}, -KLO_INFINITY, 0.0);
  out.push_back(Switch{j, z, row, lower, upper});
}

}  // namespace

std::vector<Switch> switchSemicontinuous(engine::Problem& p, double bigM) {
  std::vector<Switch> out;
  const int n = p.numCols();
  if (std::none_of(p.colType.begin(), p.colType.end(), semi)) return out;
  if (p.columnMajor) fail(KLO_ERROR_INTERNAL, "semi-continuous columns need a row-major problem");
  for (int j = 0; j < n; ++j) {
    if (!semi(p.colType[j])) continue;
    p.colType[j] = p.colType[j] == KLO_SEMIINT ? KLO_INTEGER : KLO_CONTINUOUS;
    if (p.colLower[j] > 0.0 || p.colUpper[j] < 0.0) addSwitch(p, j, bigM, out);
  }
  return out;
}

void checkSwitchedColumns(const std::vector<Switch>& switches, engine::Result& r,
                          const engine::Settings& s) {
  if (switches.empty() || !r.hasSolution) return;
  double worst = 0.0;
  for (const Switch& sw : switches) {
    const double x = r.x[sw.column];
    const double below =
        sw.lower > -KLO_INFINITY ? (sw.lower - x) / std::max(1.0, std::fabs(sw.lower)) : 0.0;
    const double above =
        sw.upper < KLO_INFINITY ? (x - sw.upper) / std::max(1.0, std::fabs(sw.upper)) : 0.0;
    worst = std::max(worst, std::min(std::fabs(x), std::max({0.0, below, above})));
  }
  r.violations.bound = std::max(r.violations.bound, worst);
  if (r.status != KLO_STATUS_OPTIMAL || worst <= kCheckSlack * s.primalTolerance) return;
  engine::logLine(s, "Answer check failed: a semi-continuous variable is " +
                         engine::formatNumber(worst) +
                         " away from 0 and from its bounds: reported as suboptimal");
  r.status = KLO_STATUS_SUBOPTIMAL;
}

void completeSwitches(const std::vector<Switch>& switches, std::vector<double>& x) {
  for (const Switch& s : switches)
    x[s.z] = isSet(x[s.column]) ? switchValue(x[s.column]) : KLO_UNDEFINED;
}

}  // namespace klo
