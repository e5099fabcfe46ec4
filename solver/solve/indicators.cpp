#include "solve/indicators.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "common/error.h"
#include "engine/log.h"
#include "klo_c.h"
#include "solve/answer_check.h"
#include "solve/problem_from_model.h"

namespace klo {
namespace {

using engine::IndicatorRow;
using engine::Problem;
using Terms = std::vector<std::pair<int, double>>;

bool isSet(double x) { return std::fabs(x) < KLO_INFINITY; }

// Column bounds, tightened by the rows of a single term (cheap and sound).
struct Bounds {
  std::vector<double> lower, upper;
};

// A row bound v over the coefficient a, infinite ones staying infinite.
double divided(double v, double a) {
  if (isSet(v)) return v / a;
  return (v > 0) == (a > 0) ? KLO_INFINITY : -KLO_INFINITY;
}

Bounds tightened(const Problem& p) {
  Bounds b{p.colLower, p.colUpper};
  for (int i = 0; i < p.numRows(); ++i) {
    if (p.start[i + 1] - p.start[i] != 1) continue;
    const int j = p.index[p.start[i]];
    const double a = p.value[p.start[i]];
    if (a == 0.0) continue;
    const double lo = divided(a > 0 ? p.rowLower[i] : p.rowUpper[i], a);
    const double up = divided(a > 0 ? p.rowUpper[i] : p.rowLower[i], a);
    b.lower[j] = std::max(b.lower[j], lo);
    b.upper[j] = std::min(b.upper[j], up);
  }
  return b;
}

// The largest value of sign * a'x over the bounds (KLO_INFINITY when it
// has none).
double largest(const IndicatorRow& g, double sign, const Bounds& b) {
  double sum = 0.0;
  for (size_t k = 0; k < g.ind.size(); ++k) {
    const double a = sign * g.val[k];
    if (a == 0.0) continue;
    const double end = a > 0 ? b.upper[g.ind[k]] : b.lower[g.ind[k]];
    if (!isSet(end)) return KLO_INFINITY;
    sum += a * end;
  }
  return sum;
}

// 1 or 0 when the binary's bounds fix it, else -1.
int fixedValue(const Problem& p, int z) {
  const double lo = std::ceil(p.colLower[z] - 1e-9), up = std::floor(p.colUpper[z] + 1e-9);
  if (lo != up || (lo != 0.0 && lo != 1.0)) return -1;
  return static_cast<int>(lo);
}

int appendColumn(Problem& p, double lower, double upper, char type) {
  p.obj.push_back(0.0);
  p.colLower.push_back(lower);
  p.colUpper.push_back(upper);
  p.colType.push_back(type);
  if (!p.startValues.empty()) p.startValues.push_back(KLO_UNDEFINED);
  return p.numCols() - 1;
}

Terms termsOf(const IndicatorRow& g, double sign) {
  Terms t;
  for (size_t k = 0; k < g.ind.size(); ++k) t.emplace_back(g.ind[k], sign * g.val[k]);
  return t;
}

// sign * a'x <= sign * b, in the model's rows.
void appendPlain(Problem& p, const IndicatorRow& g, double sign) {
  appendSparseRow(p, termsOf(g, sign), -KLO_INFINITY, sign * g.rhs);
}

class Linearizer {
 public:
  Linearizer(Problem& p, double bigM, bool bigMAllowed)
      : p_(p), bounds_(tightened(p)), bigM_(bigM), bigMAllowed_(bigMAllowed) {}

  IndicatorColumns run() {
    out_.indicators = std::move(p_.indicators);
    p_.indicators.clear();
    for (size_t k = 0; k < out_.indicators.size(); ++k) {
      const IndicatorRow& g = out_.indicators[k];
      if (g.sense != '>') add(static_cast<int>(k), 1.0);
      if (g.sense != '<') add(static_cast<int>(k), -1.0);
    }
    return std::move(out_);
  }

 private:
  // The direction sign * a'x <= sign * b of indicator k.
  void add(int k, double sign) {
    const IndicatorRow& g = out_.indicators[k];
    const int fixed = fixedValue(p_, g.binVar);
    if (fixed >= 0) {
      if (fixed == g.binVal) appendPlain(p_, g, sign);
      return;
    }
    const double m = largest(g, sign, bounds_) - sign * g.rhs;
    if (m <= 0.0) return;  // holds whatever the binary
    if (bigMAllowed_ && m <= bigM_) return addBigM(g, sign, m);
    addSos(k, sign);
  }

  // sign a'x + M y <= sign b + M, with y = z or 1 - z.
  void addBigM(const IndicatorRow& g, double sign, double m) {
    Terms t = termsOf(g, sign);
    const bool onAtOne = g.binVal == 1;
    t.emplace_back(g.binVar, onAtOne ? m : -m);
    appendSparseRow(p_, t, -KLO_INFINITY, sign * g.rhs + (onAtOne ? m : 0.0));
  }

  void addSos(int k, double sign) {
    const IndicatorRow& g = out_.indicators[k];
    const int s = appendColumn(p_, 0.0, KLO_INFINITY, KLO_CONTINUOUS);
    out_.slacks.push_back(IndicatorColumns::Slack{s, k, sign});
    Terms t = termsOf(g, sign);
    t.emplace_back(s, -1.0);
    appendSparseRow(p_, t, -KLO_INFINITY, sign * g.rhs);
    p_.sos.push_back(engine::SosSet{1, {s, literal(g)}, {1.0, 2.0}});
  }

  // The column that is 1 when g must hold.
  int literal(const IndicatorRow& g) {
    if (g.binVal == 1) return g.binVar;
    for (const auto& [w, z] : out_.complements)
      if (z == g.binVar) return w;
    const int w = appendColumn(p_, 0.0, 1.0, KLO_BINARY);
    appendSparseRow(p_, {{w, 1.0}, {g.binVar, 1.0}}, 1.0, 1.0);
    out_.complements.emplace_back(w, g.binVar);
    return w;
  }

  Problem& p_;
  Bounds bounds_;
  double bigM_;
  bool bigMAllowed_;
  IndicatorColumns out_;
};

double activity(const IndicatorRow& g, const std::vector<double>& x) {
  double sum = 0.0;
  for (size_t k = 0; k < g.ind.size(); ++k) sum += g.val[k] * x[g.ind[k]];
  return sum;
}

bool allSet(const IndicatorRow& g, const std::vector<double>& x) {
  return std::all_of(g.ind.begin(), g.ind.end(), [&](int j) { return isSet(x[j]); });
}

// The row's violation at x, relative as the answer check measures rows.
double violation(const IndicatorRow& g, const std::vector<double>& x) {
  const double a = activity(g, x);
  double miss = 0.0;
  if (g.sense != '>') miss = std::max(miss, a - g.rhs);
  if (g.sense != '<') miss = std::max(miss, g.rhs - a);
  double largestTerm = 0.0;
  for (size_t k = 0; k < g.ind.size(); ++k)
    largestTerm = std::max(largestTerm, std::fabs(g.val[k] * x[g.ind[k]]));
  return miss / std::max({1.0, std::fabs(g.rhs), largestTerm});
}

}  // namespace

IndicatorColumns linearizeIndicators(Problem& p, double bigM, bool bigMAllowed) {
  if (p.indicators.empty()) return {};
  if (p.columnMajor) fail(KLO_ERROR_INTERNAL, "indicator constraints need a row-major problem");
  IndicatorColumns c = Linearizer(p, bigM, bigMAllowed).run();
  if (!p.startValues.empty()) completeIndicatorColumns(c, p.startValues);
  return c;
}

void completeIndicatorColumns(const IndicatorColumns& c, std::vector<double>& x) {
  for (const auto& [w, z] : c.complements) x[w] = isSet(x[z]) ? 1.0 - x[z] : KLO_UNDEFINED;
  for (const IndicatorColumns::Slack& s : c.slacks) {
    const IndicatorRow& g = c.indicators[s.indicator];
    x[s.column] =
        allSet(g, x) ? std::max(0.0, s.direction * (activity(g, x) - g.rhs)) : KLO_UNDEFINED;
  }
}

void checkIndicators(const IndicatorColumns& c, engine::Result& r, const engine::Settings& s) {
  if (c.indicators.empty() || !r.hasSolution) return;
  double worst = 0.0;
  for (const IndicatorRow& g : c.indicators)
    if (std::fabs(r.x[g.binVar] - g.binVal) <= s.integerTolerance)
      worst = std::max(worst, violation(g, r.x));
  r.violations.row = std::max(r.violations.row, worst);
  if (r.status != KLO_STATUS_OPTIMAL || worst <= kCheckSlack * s.primalTolerance) return;
  engine::logLine(s, "Answer check failed: an indicator constraint is violated by " +
                         engine::formatNumber(worst) + ": reported as suboptimal");
  r.status = KLO_STATUS_SUBOPTIMAL;
}

}  // namespace klo
