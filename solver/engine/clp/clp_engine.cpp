// Clp adapter: linear programs, and convex quadratic objectives over
// linear rows.
//
// Quirks of Clp 1.17 as shipped in Debian 12, and what this file does:
//  - Bounds of 1e20 are finite to Clp; they are loaded as COIN_DBL_MAX.
//  - setMaximumSeconds counts CPU time from the moment it is called; the
//    wall-clock limit is set with setMaximumWallSeconds right before each
//    algorithm runs, to what is left of "MaxTime".
//  - barrier(true) reports no iterations and has no iteration limit, so the
//    interior-point method runs here through ClpInterior, followed by a
//    primal simplex crossover from its point.  Its borrowed event handler
//    must be detached meanwhile (Clp asserts otherwise).
//  - Rays (infeasibilityRay, unboundedRay) are new[] arrays, present only
//    when the last algorithm proved the status itself (dual simplex for
//    infeasible, primal for unbounded) on the unpresolved model; when one is
//    missing a short re-solve derives it.  The sign of Clp's Farkas ray is
//    not documented: orientFarkasRay keeps the sign that proves
//    infeasibility (the convention of result.h).
//  - Presolve drops the basis, so a warm start skips it.  Simplex with
//    presolve runs through ClpSolve like Clp's own solver; the barrier uses
//    ClpPresolve directly, postsolving only an optimal model (postsolve
//    asserts on others, and the Debian build keeps assert() on), then a
//    primal clean-up, since postsolved reduced costs can be stale.
//    Infeasible and unbounded outcomes are re-solved unpresolved, which
//    also gives their rays.
//  - Duals and reduced costs come back in the user's sense, which is the
//    convention of result.h for minimisation and maximisation alike.
//  - Status 5 means an event handler stopped the solve: our callback did.
//  - Limits: an objective coefficient of magnitude 1e25 or more aborts
//    (createRim asserts), matrix entries alike: the declaration refuses
//    them.  Rows with lower bound +infinity or upper bound -infinity abort
//    (an assertion), a column fixed at -infinity crashes and one fixed at
//    +infinity "solves" to 1.8e308, and presolve calls a row with crossed
//    bounds optimal: such problems are decided infeasible before Clp sees
//    them (engine/decided.h).
//  - Dual simplex hands over to primal when its artificial bounds make the
//    primal infeasibility blow up, while the log still says "Dual took";
//    moreSpecialOptions bit 8192 keeps it dual, as Clp's own program does
//    (25fv47: 2,702 dual iterations in 0.85 of the time of 2,097 mixed
//    ones).  Perturbation 50 and presolve action 32768 (dependent rows) are
//    that program's choices too.
//  - Quadratic objectives (clp/clp_quadratic.h): dual simplex ignores Q
//    silently, so a QP runs the interior-point method through ClpSolve with
//    presolve (as Clp's program does), or primal simplex's QP method.
//    Neither is right on every convex QP (the barrier gives qsc205 14.19
//    for -0.0058): the pipeline checks the KKT conditions and falls back.
//    No basis comes back from a QP.
//  - Status 0 is no proof of a clean answer: a secondary status of 2 to 4
//    means infeasibilities on the unscaled model, and ClpSolve solves the
//    presolved model at tolerances 1e-6 when both are exactly 1e-7.  The
//    solve pipeline's answer check decides.
//  - For the callbacks' objectives: during the simplex objectiveValue() is
//    the current basis's, in the user's sense, with presolve's offset but
//    not our constant; ClpInterior's primalObjective() and dualObjective()
//    are minimised (times optimizationDirection) and lack presolve's offset.
//    The event handler gets no ClpInterior (its simplex model is detached),
//    so runInteriorPoint hands it over (InteriorWatcher).
#include <ClpEventHandler.hpp>
#include <ClpInterior.hpp>
#include <ClpPresolve.hpp>
#include <ClpSimplex.hpp>
#include <ClpSolve.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>

#include "common/status_text.h"
#include "engine/clp/clp_barrier.h"
#include "engine/clp/clp_basis.h"
#include "engine/clp/clp_quadratic.h"
#include "engine/coin/coin_problem.h"
#include "engine/coin/log_handler.h"
#include "engine/engine.h"
#include "engine/log.h"
#include "engine/lp_duals.h"
#include "engine/problem_eval.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point t) {
  return std::chrono::duration<double>(Clock::now() - t).count();
}

// Calls the user's callback at every simplex or barrier iteration, and
// once ClpSolve's presolve is done (on the presolved model).
class SimplexEvents : public ClpEventHandler, public InteriorWatcher {
 public:
  SimplexEvents(const Callback& cb, CallbackContext& ctx, const long long& doneIters, bool& stopped,
                bool& presolveRaised, double constant)
      : constant_(constant),
        cb_(&cb),
        ctx_(&ctx),
        doneIters_(&doneIters),
        stopped_(&stopped),
        presolveRaised_(&presolveRaised) {}
  int event(Event e) override {
    if (e == presolveBeforeSolve && model_ && !*presolveRaised_) {
      *presolveRaised_ = true;
      *stopped_ |= raisePresolve(*cb_, *ctx_, ctx_->numVars - model_->numberColumns(),
                                 ctx_->numRows - model_->numberRows());
    }
    if (e != endOfIteration || *stopped_) return *stopped_ ? 0 : -1;
    // The interior-point method runs with the handler detached (model_ null).
    ctx_->where = model_ ? KLO_CB_SIMPLEX : KLO_CB_BARRIER;
    if (model_) {
      ctx_->iterCount = *doneIters_ + model_->numberIterations();
      ctx_->simplexObjective = model_->objectiveValue() + constant_;
    } else if (ipm_) {
      // ClpInterior keeps its objectives minimised and without presolve's
      // offset, which objectiveValue() takes into account.
      const double sense = ipm_->optimizationDirection(), offset = ipm_->objectiveOffset();
      ctx_->barrierPrimal = sense * ipm_->primalObjective() - offset + constant_;
      ctx_->barrierDual = sense * ipm_->dualObjective() - offset + constant_;
    }
    if ((*cb_)(*ctx_) == KLO_CB_STOP) *stopped_ = true;
    return *stopped_ ? 0 : -1;
  }
  ClpEventHandler* clone() const override { return new SimplexEvents(*this); }
  void watch(const ClpInterior* ipm) override { ipm_ = ipm; }

 private:
  double constant_;  // the objective's, which Clp does not hold
  const Callback* cb_;
  CallbackContext* ctx_;
  const long long* doneIters_;
  bool* stopped_;
  bool* presolveRaised_;
  const ClpInterior* ipm_ = nullptr;
};

struct Outcome {
  int status = 4;          // Clp's problem status
  int secondary = 0;       // Clp's secondary status
  bool onOriginal = true;  // the original model holds the final state
};

// moreSpecialOptions: dual simplex never hands over to primal; a solve
// inside initialSolve.
constexpr int kStayDual = 8192;
constexpr int kInInitialSolve = 16384;
// ClpSolve presolve action: look for dependent rows.
constexpr int kDependentRows = 32768;

class ClpRun {
 public:
  static constexpr const char* kName = "Clp";
  ClpRun(const Problem& p, const Settings& s, const Callback& cb)
      : p_(p), s_(s), cb_(cb), handler_(s.log, std::max(0, s.logLevel)) {}

  Result run() {
    load();
    if (quadratic()) return runQuadratic();
    const bool warm = loadBasis(m_, p_);
    const bool presolve = s_.presolve != 0 && !warm;
    if (!presolve) presolveDone(0, 0);
    Outcome o = presolve ? solvePresolved() : solve(m_);
    if (o.onOriginal && (o.status == 1 || o.status == 2)) o = proveWithRay(o);
    finish(o);
    return std::move(r_);
  }

 private:
  bool quadratic() const { return p_.objQuad.size() > 0; }

  Result runQuadratic() {
    loadQuadraticObjective(m_, p_);
    if (s_.method == LpMethod::Dual)
      logLine(s_, "Dual simplex does not take a quadratic objective: the barrier runs instead");
    lastPrimal_ = s_.method == LpMethod::Primal;
    const int status = solveQuadratic(m_, s_);
    (lastPrimal_ ? r_.simplexIterations : r_.barrierIterations) += m_.numberIterations();
    finish(Outcome{status, m_.secondaryStatus(), true});
    return std::move(r_);
  }

  void load() {
    m_.passInMessageHandler(&handler_);
    m_.setLogLevel(std::max(0, s_.logLevel));
    m_.setPerturbation(50);
    m_.setMoreSpecialOptions(m_.moreSpecialOptions() | kStayDual);
    const std::vector<double> colLower = coinBounds(p_.colLower),
                              colUpper = coinBounds(p_.colUpper),
                              rowLower = coinBounds(p_.rowLower),
                              rowUpper = coinBounds(p_.rowUpper);
    if (p_.columnMajor)  // straight from our arrays: one copy fewer
      m_.loadProblem(p_.numCols(), p_.numRows(), p_.start.data(), p_.index.data(), p_.value.data(),
                     colLower.data(), colUpper.data(), p_.obj.data(), rowLower.data(),
                     rowUpper.data());
    else
      m_.loadProblem(packedMatrix(p_), colLower.data(), colUpper.data(), p_.obj.data(),
                     rowLower.data(), rowUpper.data());
    m_.setOptimizationDirection(p_.sense);
    m_.setPrimalTolerance(s_.primalTolerance);
    m_.setDualTolerance(s_.dualTolerance);
    m_.setMaximumIterations(s_.maxSimplexIterations);
    ctx_.numVars = p_.numCols();
    ctx_.numRows = p_.numRows();
    ctx_.started = started_;
    if (cb_) {
      SimplexEvents events(cb_, ctx_, r_.simplexIterations, stopped_, presolveRaised_,
                           p_.objConstant);
      m_.passInEventHandler(&events);  // Clp keeps a clone
    }
  }

  double timeLeft() const { return s_.timeLeft(); }

  void presolveDone(int colsRemoved, int rowsRemoved) {
    if (!cb_ || presolveRaised_) return;
    presolveRaised_ = true;
    stopped_ |= raisePresolve(cb_, ctx_, colsRemoved, rowsRemoved);
  }

  // Runs the chosen algorithm on model (the original or a presolved one).
  Outcome solve(ClpSimplex& model) {
    if (s_.method == LpMethod::Barrier) return barrier(model);
    model.setMaximumWallSeconds(timeLeft());
    lastPrimal_ = s_.method == LpMethod::Primal;
    if (lastPrimal_)
      model.primal();
    else
      model.dual();
    r_.simplexIterations += model.numberIterations();
    return Outcome{model.status(), model.secondaryStatus(), true};
  }

  Outcome barrier(ClpSimplex& model) {
    const BarrierRun ipm = runInteriorPoint(model, s_, timeLeft());
    r_.barrierIterations += ipm.iterations;
    if (ipm.status >= 3) return Outcome{ipm.status, 0, true};
    // Crossover to a basic solution (also settles infeasible and unbounded).
    model.createStatus();
    model.setMaximumWallSeconds(timeLeft());
    lastPrimal_ = true;
    model.primal(1);
    r_.simplexIterations += model.numberIterations();
    return Outcome{model.status(), model.secondaryStatus(), true};
  }

  // Simplex with presolve goes through ClpSolve, as Clp's own solver does:
  // its postsolve and clean-up are cheaper than ours.
  Outcome solvePresolved() {
    if (s_.method == LpMethod::Barrier) return barrierPresolved();
    ClpSolve options;
    lastPrimal_ = s_.method == LpMethod::Primal;
    options.setSolveType(lastPrimal_ ? ClpSolve::usePrimal : ClpSolve::useDual);
    options.setPresolveType(ClpSolve::presolveOn);
    options.setPresolveActions(kDependentRows);
    m_.setMaximumWallSeconds(timeLeft());
    const int special = m_.moreSpecialOptions();
    m_.setMoreSpecialOptions(special | kInInitialSolve);
    m_.initialSolve(options);
    m_.setMoreSpecialOptions(special);
    r_.simplexIterations += m_.numberIterations();
    return Outcome{m_.status(), m_.secondaryStatus(), true};
  }

  Outcome barrierPresolved() {
    const Clock::time_point t = Clock::now();
    ClpPresolve pre;
    std::unique_ptr<ClpSimplex> small(pre.presolvedModel(m_, 1e-8));
    r_.presolveTime = secondsSince(t);
    if (small)
      presolveDone(p_.numCols() - small->numberColumns(), p_.numRows() - small->numberRows());
    if (!small) {  // presolve proved it infeasible or unbounded
      presolveDone(0, 0);
      return solve(m_);
    }
    Outcome o = solve(*small);
    if (o.status == 0) {
      pre.postsolve(true);
      small.reset();
      return cleanUp();
    }
    small.reset();
    if (o.status == 1 || o.status == 2) return solve(m_);  // for a trustworthy status and rays
    o.onOriginal = false;
    return o;
  }

  // After postsolve the reduced costs can be stale and presolve's
  // tolerances can leave small infeasibilities: a primal simplex from the
  // postsolved basis repairs both, usually in no iterations.
  Outcome cleanUp() {
    m_.setMaximumWallSeconds(timeLeft());
    lastPrimal_ = true;
    m_.primal(1);
    r_.simplexIterations += m_.numberIterations();
    return Outcome{m_.status(), m_.secondaryStatus(), true};
  }

  // Infeasible: dual simplex gives the Farkas ray; unbounded: primal gives
  // the direction.  Re-solve with the right one when the ray is missing.
  Outcome proveWithRay(Outcome o) {
    for (int attempt = 0; attempt < 2; ++attempt) {
      if (o.status == 1 && takeDualRay()) return o;
      if (o.status == 2 && takePrimalRay()) return o;
      if (o.status != 1 && o.status != 2) return o;
      m_.setMaximumWallSeconds(timeLeft());
      lastPrimal_ = o.status == 2;
      if (lastPrimal_)
        m_.primal();
      else
        m_.dual();
      r_.simplexIterations += m_.numberIterations();
      o = Outcome{m_.status(), m_.secondaryStatus(), true};
    }
    return o;
  }

  // A ray counts only from the algorithm that proves its status: an
  // "unbounded" from dual simplex is no proof.
  bool takeDualRay() {
    if (lastPrimal_) return false;
    std::unique_ptr<double[]> ray(m_.infeasibilityRay());
    if (!ray) return false;
    r_.dualRay.assign(ray.get(), ray.get() + p_.numRows());
    orientFarkasRay(p_, r_.dualRay);
    return true;
  }

  bool takePrimalRay() {
    if (!lastPrimal_) return false;
    std::unique_ptr<double[]> ray(m_.unboundedRay());
    if (!ray) return false;
    r_.primalRay.assign(ray.get(), ray.get() + p_.numCols());
    return true;
  }

  int klostatus(const Outcome& o) const {
    if (stopped_ || o.status == 5) return KLO_STATUS_INTERRUPTED;
    switch (o.status) {
      case 0: return KLO_STATUS_OPTIMAL;
      case 1: return KLO_STATUS_INFEASIBLE;
      case 2: return KLO_STATUS_UNBOUNDED;
      case 3:
        return o.secondary == 9 || s_.timeLeft() <= 0 ? KLO_STATUS_TIME_LIMIT
                                                      : KLO_STATUS_ITERATION_LIMIT;
      default: return KLO_STATUS_NUMERICAL;
    }
  }

  void finish(const Outcome& o) {
    r_.status = klostatus(o);
    if (o.onOriginal) readSolution();
    r_.solverTime = secondsSince(started_);
    logLine(s_, summaryLine());
  }

  void readSolution() {
    const double* x = m_.primalColumnSolution();
    const int n = p_.numCols(), rows = p_.numRows();
    if (!quadratic()) readBasis(m_, r_);
    bool feasible = r_.status == KLO_STATUS_OPTIMAL ||
                    (r_.status != KLO_STATUS_INFEASIBLE && r_.status != KLO_STATUS_UNBOUNDED &&
                     maxViolation(p_, x, false) <= 1e-6);
    if (!feasible) return;
    r_.hasSolution = true;
    r_.x.assign(x, x + n);
    r_.activities.assign(m_.primalRowSolution(), m_.primalRowSolution() + rows);
    r_.duals.assign(m_.dualRowSolution(), m_.dualRowSolution() + rows);
    r_.reducedCosts.assign(m_.dualColumnSolution(), m_.dualColumnSolution() + n);
    r_.objective = objectiveOf(p_, x);
    r_.dualObjective = dualObjective(p_, r_);
  }

  std::string summaryLine() const {
    std::string line = std::string(quadratic() ? "QP " : "LP ") + statusText(r_.status);
    if (r_.hasSolution) line += ", objective " + formatNumber(r_.objective);
    line += "; " + std::to_string(r_.simplexIterations) + " simplex";
    if (s_.method == LpMethod::Barrier || r_.barrierIterations > 0)
      line += " and " + std::to_string(r_.barrierIterations) + " barrier";
    return line + " iterations in " + formatNumber(r_.solverTime) + " s";
  }

  const Problem& p_;
  const Settings& s_;
  const Callback& cb_;
  SinkMessageHandler handler_;
  ClpSimplex m_;
  Result r_;
  CallbackContext ctx_;
  bool stopped_ = false;
  bool presolveRaised_ = false;
  bool lastPrimal_ = false;  // the last algorithm run was primal simplex
  Clock::time_point started_ = Clock::now();
};

}  // namespace

EngineEntry clpEntry() {
  Capabilities caps;
  caps.features = kQuadObjective;
  caps.duals = caps.rays = caps.basis = true;
  caps.coefficientLimit = kCoinCoefficientLimit;
  caps.parameters = {"Method",
                     "Presolve",
                     "MaxTime",
                     "SPX/MaxIterations",
                     "SPX/PrimalTolerance",
                     "SPX/DualTolerance",
                     "IPM/MaxIterations",
                     "IPM/PrimalTolerance",
                     "IPM/DualTolerance"};
  return EngineEntry{ClpRun::kName, caps,
                     [] { return std::unique_ptr<Engine>(std::make_unique<RunEngine<ClpRun>>()); }};
}

}  // namespace klo::engine
