// Bonmin adapter: mixed-integer problems with a quadratic objective and
// quadratic rows, by Bonmin's NLP-based branch and bound (B-BB): Cbc's
// search with Ipopt solving the continuous relaxation at every node.
//
// Quirks of Bonmin 1.8.9 as shipped in Debian 12, and what this file does:
//  - initializeOptionsAndJournalist() adds a journal on stdout (Ipopt's
//    banner and output): the journals are deleted and a SinkJournal of
//    ours added, which gets Ipopt's iterations whatever "print_level" says
//    (that option sets the level of the stdout journal only): it is added
//    two log levels down.  Cbc's and Bonmin's messages (NLP0014I per node,
//    Cbc0010I) go through the CoinMessageHandler of the OsiTMINLPInterface
//    the setup is initialised with: ours, into the log.
//  - initialize() reads "bonmin.opt" from the working directory unless
//    options were read before: an empty readOptionsString("") comes first.
//  - "bonmin.time_limit" is CPU time (Cbc's clock): a run whose NLP
//    evaluations wait ran 3.7 s wall on a 0.5 s limit.  With
//    setUseElapsedTime(true) on the Bab's CbcModel before the run it counts
//    wall-clock time, checked between nodes only; an event handler passed
//    to that model in the same way is kept (bonmin_events.h: it raises
//    the MIP and MIPSOL callbacks; heuristics in setup.heuristics() are
//    added to the search and deleted by the setup).  One node can run long (strong
//    branching solves up to 2 x 20 relaxations): a 0.5 s limit ended after
//    1.07 s.  So the relaxation Ipopt solves is our TMINLP2TNLP subclass
//    (handed over through OsiTMINLPInterface::use, cloned with it), whose
//    intermediate_callback stops Ipopt once the time is spent; Cbc then
//    exits on its own wall-clock limit: 0.51 s.
//  - Cbc leaks the root node (CbcNode, its node info and branching object)
//    when the time limit ends the search during the root's processing
//    (seen with LeakSanitizer; nothing of ours is involved).
//  - Binary columns must have bounds exactly 0 and 1 (else it throws):
//    binary bounds are clipped to [0, 1], integer bounds rounded inward,
//    and a binary column left with other bounds is declared integer.
//  - eval_gi and eval_grad_gi throw an int by default: both are given.
//  - Ipopt failures it cannot recover from are thrown as a pointer to
//    TNLPSolver::UnsolvedError: a numerical status here.
//  - B-BB bounds each node by its continuous relaxation, solved to a local
//    optimum: for a nonconvex model the search is a heuristic, its answer
//    a point that is locally optimal with its integer values fixed, and
//    its bound no bound.
//  - "bonmin.cutoff" is on the minimised objective; without a solution
//    better than it the search ends as proven infeasible.
//  - bestObj() is the objective Bonmin minimised (sense * f, constant
//    included): the objective and the bound are turned back to the model's
//    sense; "MIP/GapRel" is relative to the objective with its constant.
//  - Ipopt (MUMPS) is not known to be re-entrant: one solve at a time.
//    This library's mutex cannot see the Ipopt adapter's, in libklo.
#include <BonBonminSetup.hpp>
#include <BonCbc.hpp>
#include <BonOsiTMINLPInterface.hpp>
#include <BonTMINLP2TNLP.hpp>
#include <BonTNLPSolver.hpp>
#include <CbcEventHandler.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <mutex>

#include "common/error.h"
#include "engine/bonmin/bonmin_events.h"
#include "engine/bonmin/quad_tminlp.h"
#include "engine/cbc/cbc_hooks.h"
#include "engine/coin/log_handler.h"
#include "engine/engine.h"
#include "engine/ipopt/ipopt_journal.h"
#include "engine/log.h"
#include "engine/nlp/quad_nlp.h"
#include "engine/problem_eval.h"
#include "engine/solution_pool.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Clock = std::chrono::steady_clock;

std::mutex bonminMutex;  // one Bonmin solve at a time (see the quirks)

// The relaxation Ipopt solves, stopped between two of its iterations once
// "MaxTime" is spent (Ipopt then reports a user stop to Bonmin).
class ClockedTnlp : public Bonmin::TMINLP2TNLP {
 public:
  ClockedTnlp(const Ipopt::SmartPtr<Bonmin::TMINLP>& tminlp, const Settings& s, bool& timeUp)
      : TMINLP2TNLP(tminlp), s_(&s), timeUp_(&timeUp) {}
  Bonmin::TMINLP2TNLP* clone() const override { return new ClockedTnlp(*this); }
  bool intermediate_callback(Ipopt::AlgorithmMode, Ipopt::Index, Ipopt::Number, Ipopt::Number,
                             Ipopt::Number, Ipopt::Number, Ipopt::Number, Ipopt::Number,
                             Ipopt::Number, Ipopt::Number, Ipopt::Index, const Ipopt::IpoptData*,
                             Ipopt::IpoptCalculatedQuantities*) override {
    if (s_->timeLeft() > 0) return true;
    *timeUp_ = true;
    return false;
  }

 private:
  const Settings* s_;
  bool* timeUp_;
};

int bonminLogLevel(const Settings& s) { return s.log ? std::max(0, s.logLevel) : 0; }

class BonminRun {
 public:
  static constexpr const char* kName = "Bonmin";
  BonminRun(const Problem& p, const Settings& s, const Callback& cb)
      : p_(p), s_(s), nlp_(p), handler_(s.log, bonminLogLevel(s)), ipoptLog_(s), state_(p, s, cb) {
    ipoptLog_.logLevel = s.logLevel - 2;  // Ipopt's iterations at every node: level 3 and up
    state_.ctx.lazyConstraints = false;   // no hook sees candidates before they are taken
  }

  Result run() {
    std::vector<double> lower, upper;
    integerBounds(p_, lower, upper);
    for (int j = 0; j < p_.numCols(); ++j)
      if (lower[j] > upper[j]) return noIntegerValue(j);
    {
      std::lock_guard<std::mutex> lock(bonminMutex);
      search();
    }
    r_.solverTime = std::chrono::duration<double>(Clock::now() - started_).count();
    logLine(s_, summaryLine());
    return std::move(r_);
  }

 private:
  Result noIntegerValue(int j) {
    r_.status = KLO_STATUS_INFEASIBLE;
    logLine(s_, "Bonmin: integer column " + std::to_string(j) + " has no integer value in [" +
                    formatNumber(p_.colLower[j]) + ", " + formatNumber(p_.colUpper[j]) + "]");
    return std::move(r_);
  }

  void search() {
    Bonmin::BonminSetup setup(&handler_);
    setup.initializeOptionsAndJournalist();
    setup.journalist()->DeleteAllJournals();
    addSinkJournal(*setup.journalist(), ipoptLog_);
    setup.readOptionsString(std::string());  // else initialize() reads bonmin.opt
    setOptions(*setup.options());
    Ipopt::SmartPtr<Bonmin::TMINLP> tminlp = new QuadTminlp(p_, nlp_);
    Bonmin::Bab bab;
    try {
      Bonmin::OsiTMINLPInterface nlp;
      nlp.initialize(setup.roptions(), setup.options(), setup.journalist(), "bonmin.", tminlp);
      nlp.use(new ClockedTnlp(tminlp, s_, timeUp_));
      nlp.passInMessageHandler(&handler_);
      setup.initialize(nlp);
      if (state_.callback) addProposals(setup);
      bab.model().setUseElapsedTime(true);
      BonminEvents events(state_, timeUp_);
      bab.model().passInEventHandler(&events);
      bab(setup);
    } catch (Bonmin::TNLPSolver::UnsolvedError* e) {
      logLine(s_, "Bonmin: the continuous solver failed on a node (" + e->solverName() + ")");
      delete e;
      r_.status = KLO_STATUS_NUMERICAL;
      return;
    } catch (const Ipopt::IpoptException& e) {
      fail(KLO_ERROR_INTERNAL, "Bonmin: " + e.Message());
    }
    readResult(bab);
  }

  // The search takes the callback's solutions from a heuristic the setup
  // owns (it deletes its heuristics).
  void addProposals(Bonmin::BabSetupBase& setup) {
    Bonmin::BabSetupBase::HeuristicMethod h;
    h.id = "callback solutions";
    h.heuristic = new ProposedSolutions(state_);
    setup.heuristics().push_back(h);
  }

  void setOptions(Ipopt::OptionsList& o) const {
    const int level = bonminLogLevel(s_);
    o.SetStringValue("bonmin.algorithm", "B-BB");
    o.SetIntegerValue("bonmin.bb_log_level", std::min(level, 5));
    o.SetIntegerValue("bonmin.nlp_log_level", level >= 2 ? std::min(level - 1, 2) : 0);
    o.SetIntegerValue("print_level", level >= 3 ? ipoptPrintLevel(level - 2) : 0);
    o.SetStringValue("sb", "yes");
    o.SetNumericValue("nlp_lower_bound_inf", -KLO_INFINITY);
    o.SetNumericValue("nlp_upper_bound_inf", KLO_INFINITY);
    const double left = s_.timeLeft();
    if (left < KLO_INFINITY) o.SetNumericValue("bonmin.time_limit", left);
    o.SetIntegerValue("bonmin.node_limit", std::max(0, s_.maxNodes));
    o.SetIntegerValue("bonmin.solution_limit", std::max(1, s_.maxSolutions));
    o.SetNumericValue("bonmin.allowable_gap", std::max(0.0, s_.gapAbs));
    o.SetNumericValue("bonmin.allowable_fraction_gap", std::max(0.0, s_.gapRel));
    o.SetNumericValue("bonmin.integer_tolerance", s_.integerTolerance);
    if (std::fabs(s_.cutoff) < 1e20) o.SetNumericValue("bonmin.cutoff", p_.sense * s_.cutoff);
  }

  void readResult(Bonmin::Bab& bab) {
    r_.status = status(bab);
    const double* best = bab.bestSolution();
    if (best && r_.status != KLO_STATUS_INFEASIBLE && r_.status != KLO_STATUS_CUTOFF) {
      readSolution(best);
      readPool();
    }
    r_.nodeCount = bab.numNodes();
    r_.barrierIterations = bab.iterationCount();
    readBound(bab.bestBound());
  }

  // Integer columns to their integer (Bonmin accepted them within the
  // tolerance), the rest into their bounds (Ipopt relaxes bounds slightly).
  std::vector<double> cleaned(const double* x) const {
    std::vector<double> v(x, x + p_.numCols());
    for (int j = 0; j < p_.numCols(); ++j) {
      if (p_.colType[j] == 'B' || p_.colType[j] == 'I') v[j] = std::round(v[j]);
      v[j] = std::min(std::max(v[j], p_.colLower[j]), p_.colUpper[j]);
    }
    return v;
  }

  void readSolution(const double* best) {
    r_.hasSolution = true;
    r_.x = cleaned(best);
    r_.objective = objectiveOf(p_, r_.x.data());
    r_.activities = rowActivities(p_, r_.x.data());
  }

  void readPool() {
    std::vector<PoolSolution> earlier;
    for (const PoolSolution& q : state_.incumbents) {
      std::vector<double> x = cleaned(q.x.data());
      earlier.push_back(PoolSolution{objectiveOf(p_, x.data()), std::move(x)});
    }
    fillPool(r_, p_, s_, earlier);
  }

  int status(Bonmin::Bab& bab) const {
    const CbcModel& m = bab.model();
    const bool outOfTime = timeUp_ || m.maximumSecondsReached();
    switch (bab.mipStatus()) {
      case Bonmin::Bab::FeasibleOptimal: return KLO_STATUS_OPTIMAL;
      case Bonmin::Bab::ProvenInfeasible:
        if (outOfTime) return KLO_STATUS_TIME_LIMIT;
        return std::fabs(s_.cutoff) < 1e20 ? KLO_STATUS_CUTOFF : KLO_STATUS_INFEASIBLE;
      case Bonmin::Bab::UnboundedOrInfeasible: return KLO_STATUS_INF_OR_UNBD;
      default: break;
    }
    if (outOfTime) return KLO_STATUS_TIME_LIMIT;
    if (state_.stopRequested) return KLO_STATUS_INTERRUPTED;
    if (m.isNodeLimitReached()) return KLO_STATUS_NODE_LIMIT;
    if (m.isSolutionLimitReached()) return KLO_STATUS_SOLUTION_LIMIT;
    return KLO_STATUS_NUMERICAL;
  }

  // Bonmin's bound is in its minimised sense; none is known beyond 1e50.
  void readBound(double bound) {
    r_.dualObjective = std::fabs(bound) < 1e50 ? p_.sense * bound : -p_.sense * KLO_INFINITY;
    if (!r_.hasSolution) return;
    if (r_.status == KLO_STATUS_OPTIMAL && p_.sense * (r_.dualObjective - r_.objective) > 0)
      r_.dualObjective = r_.objective;  // the bound never passes a proven optimum
    r_.gapAbs = std::fabs(r_.objective - r_.dualObjective);
    r_.gapRel = r_.gapAbs / std::max(1e-10, std::fabs(r_.objective));
  }

  std::string summaryLine() const {
    return searchSummary("MINLP", r_, "barrier", r_.barrierIterations);
  }

  const Problem& p_;
  const Settings& s_;
  QuadNlp nlp_;
  SinkMessageHandler handler_;
  Settings ipoptLog_;  // s_ with the level Ipopt's journal gets
  SearchState state_;
  bool timeUp_ = false;
  Result r_;
  Clock::time_point started_ = Clock::now();
};

}  // namespace
}  // namespace klo::engine

// The entry point through which the solver library loads this engine.
extern "C" __attribute__((visibility("default"))) klo::engine::Engine* klo_new_bonmin_engine() {
  return new klo::engine::RunEngine<klo::engine::BonminRun>();
}
