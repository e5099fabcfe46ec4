#include "solve/checked_solve.h"

#include <algorithm>
#include <string>
#include <utility>

#include "engine/log.h"
#include "klo_c.h"
#include "solve/answer_check.h"
#include "solve/chooser.h"
#include "solve/fixed_sos.h"

namespace klo {
namespace {

using engine::LpMethod;

constexpr double kTighter = 0.01;

// How badly an answer misses: its worst figure relative to its tolerance.
double missBy(const engine::Result& r, const engine::Settings& s) {
  const Violations& v = r.violations;
  return std::max({v.primal() / s.primalTolerance, v.sos / s.primalTolerance,
                   v.integrality / s.integerTolerance, v.dual / s.dualTolerance,
                   v.complementarity / s.dualTolerance});
}

std::string figures(const Violations& v) {
  std::string text = "primal " + engine::formatNumber(v.primal());
  if (v.dualChecked)
    text += ", dual " + engine::formatNumber(v.dual) + ", complementarity " +
            engine::formatNumber(v.complementarity);
  if (v.integrality > 0) text += ", integrality " + engine::formatNumber(v.integrality);
  return text;
}

// The work of every attempt, on the answer kept.
engine::Result withWork(engine::Result best, const engine::Result& work) {
  best.simplexIterations = best.barrierIterations = best.nodeCount = 0;
  best.presolveTime = best.solverTime = 0.0;
  engine::addWork(best, work);
  return best;
}

// Simplex continuations from the basis an answer ended with, at tolerances
// 100 times tighter (an engine judges optimality on its scaled problem: at
// the same tolerances it would stop at once): primal simplex first, which
// repairs what postsolve leaves, then dual.
class CleanUp {
 public:
  CleanUp(const engine::Problem& p, const engine::Settings& s, const engine::Callback& cb,
          engine::Engine& e)
      : p_(p), s_(s), cb_(cb), e_(e) {}

  engine::Result run(engine::Result first) {
    engine::Result best = std::move(first), work = best;
    for (LpMethod m : {LpMethod::Primal, LpMethod::Dual}) {
      if (work.colBasis.empty() || s_.timeLeft() <= 0) break;
      engine::Result next = continueFrom(work, m);
      engine::addWork(work, next);
      const bool passed = next.status == KLO_STATUS_OPTIMAL && passesCheck(next, s_);
      if (next.hasSolution && (passed || missBy(next, s_) < missBy(best, s_))) best = next;
      work.colBasis = std::move(next.colBasis);
      work.rowBasis = std::move(next.rowBasis);
      if (passed) return withWork(std::move(best), work);
    }
    engine::logLine(s_, "Answer check failed after clean-up (" + figures(best.violations) +
                            "): reported as suboptimal");
    best.status = KLO_STATUS_SUBOPTIMAL;
    return withWork(std::move(best), work);
  }

 private:
  engine::Result continueFrom(const engine::Result& from, LpMethod method) {
    engine::Problem warm = p_;
    warm.colBasis = from.colBasis;
    warm.rowBasis = from.rowBasis;
    engine::Settings s = s_;
    s.method = method;
    s.presolve = 0;
    s.primalTolerance *= kTighter;
    s.dualTolerance *= kTighter;
    engine::Result r = e_.solve(warm, s, cb_);
    measureAnswer(p_, r);
    return r;
  }

  const engine::Problem& p_;
  const engine::Settings& s_;
  const engine::Callback& cb_;
  engine::Engine& e_;
};

// When an answer without a basis fails (a QP's from the interior-point
// method, which no simplex continues): the engine's other method, then the
// other engines that take the problem, in order of preference.  The first
// answer that passes the check is kept, else the one that misses least.
class Fallback {
 public:
  // localOnly: p is nonconvex, and only engines giving local answers take it.
  Fallback(const engine::Problem& p, const engine::Settings& s,
           const std::vector<engine::EngineEntry>& from, bool localOnly)
      : p_(p), s_(s), from_(from), localOnly_(localOnly) {}

  engine::Result run(engine::Result first, const engine::EngineEntry& tried) {
    engine::Result best = std::move(first), work = best;
    for (const auto& [entry, settings] : attempts(tried)) {
      if (s_.timeLeft() <= 0) break;
      engine::logLine(s_, std::string("Trying ") + entry->name + describe(settings));
      engine::Result next = entry->make()->solve(p_, settings);
      measureAnswer(p_, next);
      engine::addWork(work, next);
      const bool passed = next.status == KLO_STATUS_OPTIMAL && passesCheck(next, s_);
      if (passed ||
          (next.hasSolution && (!best.hasSolution || missBy(next, s_) < missBy(best, s_))))
        best = std::move(next);
      if (passed) return withWork(std::move(best), work);
    }
    engine::logLine(s_, "No method gave an answer that passes the check: reported as suboptimal");
    if (best.hasSolution) best.status = KLO_STATUS_SUBOPTIMAL;
    return withWork(std::move(best), work);
  }

 private:
  using Attempt = std::pair<const engine::EngineEntry*, engine::Settings>;

  std::vector<Attempt> attempts(const engine::EngineEntry& tried) const {
    std::vector<Attempt> out;
    if (honours(tried, "Method")) {
      // Tighter, as for a clean-up: Clp's QP method leaves reduced
      // gradients near its tolerance, whose products with the slacks add
      // up past the check's (values: a gap of 1.7e-6).
      engine::Settings primal = s_;
      primal.method = LpMethod::Primal;
      primal.primalTolerance *= kTighter;
      primal.dualTolerance *= kTighter;
      out.emplace_back(&tried, primal);
    } else if (honours(tried, "IPM/PrimalTolerance")) {
      // An interior-point engine again, to 100 times tighter tolerances.
      engine::Settings tight = s_;
      tight.ipmPrimalTolerance *= kTighter;
      tight.ipmDualTolerance *= kTighter;
      tight.ipmGapTolerance *= kTighter;
      out.emplace_back(&tried, tight);
    }
    const unsigned wanted = engine::featuresOf(p_);
    for (const engine::EngineEntry& e : from_)
      if (&e != &tried && e.caps.takes(wanted) && (e.caps.local || !localOnly_))
        out.emplace_back(&e, s_);
    return out;
  }

  static bool honours(const engine::EngineEntry& e, const std::string& parameter) {
    for (const char* name : e.caps.parameters)
      if (parameter == name) return true;
    return false;
  }

  std::string describe(const engine::Settings& s) const {
    if (s.dualTolerance < s_.dualTolerance) return " (primal method, tolerances 100 times tighter)";
    return s.ipmGapTolerance < s_.ipmGapTolerance ? " (tolerances 100 times tighter)" : "";
  }

  const engine::Problem& p_;
  const engine::Settings& s_;
  const std::vector<engine::EngineEntry>& from_;
  bool localOnly_;
};

// The problem to solve: p, or settled (a copy of p with its SOS sets
// settled, solve/fixed_sos.h) when that changes them; null when they make
// p infeasible.
const engine::Problem* withSettledSos(const engine::Problem& p, engine::Problem& settled) {
  if (p.sos.empty()) return &p;
  settled = p;
  switch (settleFixedSos(settled)) {
    case SosSettled::Unchanged: return &p;
    case SosSettled::Changed: return &settled;
    default: return nullptr;
  }
}

engine::Result infeasibleSos(const engine::Settings& s) {
  engine::logLine(s, "Infeasible: an SOS set has more members that cannot be zero than it allows");
  engine::Result r;
  r.status = KLO_STATUS_INFEASIBLE;
  return r;
}

}  // namespace

engine::Result checkedSolve(const engine::Problem& p, const engine::Settings& s,
                            const engine::Callback& cb, const char* what,
                            const std::vector<engine::EngineEntry>& from) {
  const engine::EngineEntry& entry = chooseEngine(p, what, s.nonconvexLocal, from);
  const bool local = entry.caps.local && classify(p) == ModelClass::Nonconvex;
  engine::checkLimits(p, entry.caps.coefficientLimit, entry.caps.boundLimit, entry.name);
  engine::Problem settled;
  const engine::Problem* q = withSettledSos(p, settled);
  if (!q) return infeasibleSos(s);
  std::unique_ptr<engine::Engine> e = entry.make();
  engine::Result r = e->solve(*q, s, cb);
  measureAnswer(p, r);
  const bool failed = r.status == KLO_STATUS_OPTIMAL && !passesCheck(r, s);
  // Answers of interior-point engines have no basis to clean up from.
  const bool nonlinear = p.objQuad.size() > 0 || !p.quadRows.empty() || !p.psdVars.empty();
  if (failed || (nonlinear && r.status == KLO_STATUS_NUMERICAL)) {
    engine::logLine(s, std::string("Answer check failed (") + figures(r.violations) +
                           (nonlinear ? "): trying other methods" : "): cleaning up"));
    r = nonlinear ? Fallback(*q, s, from, local).run(std::move(r), entry)
                  : CleanUp(*q, s, cb, *e).run(std::move(r));
  }
  if (local && r.status == KLO_STATUS_OPTIMAL) r.status = KLO_STATUS_LOCALLY_OPTIMAL;
  return r;
}

}  // namespace klo
