// Cbc adapter: mixed-integer programs and SOS.
//
// Quirks of Cbc 2.10 as shipped in Debian 12, and what this file does:
//  - CbcMain0 + CbcMain1 with a command line give Cbc's own defaults
//    (preprocessing, cut generators, heuristics) in a few lines; we use them
//    so that a solve is as good as Cbc's command-line solver.  They keep
//    file-level statics: a process-wide mutex keeps to one solve at a time.
//    The overload taking CbcSolverUsefulData lets us refuse its SIGINT
//    handler and its banner.
//  - "-seconds" counts CPU time unless "-timeMode elapsed" comes first.  It
//    bounds the search, not the re-solve that undoes preprocessing after it
//    (see limitSearchTime).  An LP cut short by it in preprocessing ends the
//    run as "infeasible" (secondary status 1, proven infeasible).
//  - isProvenOptimal() is also true after a gap stop; the status comes from
//    secondaryStatus(), where every limit is distinct.
//  - Cbc minimises inside the search: a maximisation is handed over with
//    its objective negated, so cutoff, bound and incumbents the hooks see
//    are turned back here (SearchState::toModel).
//  - Cut generators and incumbents see the preprocessed columns, so with a
//    user callback preprocessing is off and the search runs on one thread.
//  - On small problems (columns + rows < 500) CbcMain1 sets a fast node
//    depth of -12 after its stage-3 hook: deep subtrees are solved inside
//    Clp, unseen by cut generators and event handlers, hence by node
//    callbacks.  There a branch that our own object asks for makes the
//    dynamic branch decision read a null current node (SIGSEGV in
//    CbcBranchDynamicDecision::betterBranch after a few hundred requests
//    on stein27).  With a user callback the hook sets -999, which CbcMain1
//    turns into -1 (off): every node is then a node of the search.
//  - Lazy constraints need a long list of settings at once (allowLazyRows,
//    OsiBabSolver(4), preprocessing off, our generator called at
//    solutions, killSolution for violating candidates); any one missing
//    gives wrong optima.
//  - SOS sets (CbcSOS) survive preprocessing only on its "sos" setting, and
//    even then it asserts on sets it cannot handle (a member that may be
//    negative, members fixed at 0): with SOS sets preprocessing is off.
//  - Cbc's "-maxSolutions" counts solutions the user never sees (found
//    before preprocessing, or the same point again): "MIP/MaxSols" is
//    counted by our event handler on distinct points, which stops the search.
//  - Cbc's saved solutions ("-maxSavedSolutions") overrun a buffer when
//    preprocessing removed columns (seen with AddressSanitizer), so the pool
//    is kept by our event handler instead, from every incumbent mapped back
//    through postProcessedSolver(1).
//  - A MIP start is matched by column name, so columns get names.
//  - Limits (what aborts it, and how the library keeps it away): bounds and
//    coefficients of magnitude 1e16 or more make probing assert (the
//    declaration refuses 1e15 and up); an SOS member that cannot be zero
//    makes CbcSOS assert (such sets are settled first, solve/fixed_sos.h);
//    an infinite SOS weight asserts (refused by the problem check); a
//    heuristic's point that breaks an SOS set of integer members asserts
//    when Cbc checks it (heuristics are off for such problems).
//  - 1e20 is a finite bound to Clp underneath: bounds go in as COIN_DBL_MAX.
// Cbc's headers need its model declared first.
// clang-format off
#include <CbcModel.hpp>
// clang-format on
#include <CbcCutGenerator.hpp>
#include <CbcSOS.hpp>
#include <CbcSolver.hpp>
#include <OsiAuxInfo.hpp>
#include <OsiClpSolverInterface.hpp>

#include <algorithm>
#include <cmath>
#include <mutex>

#include "engine/cbc/cbc_arguments.h"
#include "engine/cbc/cbc_branching.h"
#include "engine/cbc/cbc_hooks.h"
#include "engine/coin/coin_problem.h"
#include "engine/coin/log_handler.h"
#include "engine/engine.h"
#include "engine/log.h"
#include "engine/problem_eval.h"
#include "engine/solution_pool.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

std::mutex cbcDriverMutex;  // CbcMain0/CbcMain1 are not re-entrant

class CbcRun {
 public:
  static constexpr const char* kName = "Cbc";
  CbcRun(const Problem& p, const Settings& s, const Callback& cb)
      : p_(p), s_(s), cb_(cb), handler_(s.log, cbcLogLevel(s)), state_(p, s, cb) {}

  Result run() {
    loadSolver();
    CbcModel model(solver_);
    model.passInMessageHandler(&handler_);
    CbcSolverUsefulData data;
    data.useSignalHandler_ = false;
    data.noPrinting_ = cbcLogLevel(s_) == 0;
    std::lock_guard<std::mutex> lock(cbcDriverMutex);
    CbcMain0(model, data);
    model.setLogLevel(cbcLogLevel(s_));
    install(model);
    current = this;
    const double timeLeft = s_.timeLeft();
    std::vector<std::string> args = cbcArguments(p_, s_, timeLeft, static_cast<bool>(cb_));
    std::vector<const char*> argv;
    for (const std::string& a : args) argv.push_back(a.c_str());
    CbcMain1(static_cast<int>(argv.size()), argv.data(), model,
             lazy() ? beforeLazySearch : beforeSearch, data);
    readResult(model);
    return std::move(r_);
  }

 private:
  // CbcMain1's hooks, called at its stages (3: just before branch and bound).
  // They are plain functions; the run they serve is the one holding the
  // driver mutex.
  static CbcRun* current;
  static int beforeSearch(CbcModel* model, int whereFrom) {
    if (whereFrom == 1) current->firstLpSeconds_ = model->getCurrentSeconds();
    if (whereFrom == 3) {
      current->limitSearchTime(*model);
      current->objectiveTolerance(*model);
      current->state_.search = model;
    }
    // With a callback: every node in the search, and branch requests that
    // do not crash it (see the quirks).
    if (whereFrom == 3 && current->cb_) {
      current->presolveDone(*model);
      model->setFastNodeDepth(-999);
      NodeSafeDecision decision;
      model->setBranchingMethod(decision);  // Cbc keeps a clone
    }
    return 0;
  }
  static int beforeLazySearch(CbcModel* model, int whereFrom) {
    if (whereFrom == 3) allowLazyRows(*model);
    return beforeSearch(model, whereFrom);
  }

  // KLO_CB_PRESOLVE, just before the search: with a callback there is no
  // preprocessing, so what it removed is what the search lacks.
  void presolveDone(CbcModel& model) {
    const OsiSolverInterface& solver = *model.solver();
    if (raisePresolve(cb_, state_.ctx, p_.numCols() - solver.getNumCols(),
                      p_.numRows() - solver.getNumRows())) {
      state_.stopRequested = true;
      model.setMaximumSeconds(model.getCurrentSeconds());
    }
  }

  // "MIP/ObjectiveTolerance" is Cbc's cutoff increment: a new incumbent
  // must beat the last by that much.  Cbc derives a larger one from
  // integral objectives, which stays.
  void objectiveTolerance(CbcModel& model) const {
    const double own = model.getDblParam(CbcModel::CbcCutoffIncrement);
    model.setDblParam(CbcModel::CbcCutoffIncrement, std::max(own, s_.objectiveTolerance));
  }

  // Cbc's "seconds" bound the search alone; after it, undoing preprocessing
  // re-solves the LP, which took misc06 twice its first LP solve, a third
  // of a 0.1 s limit.  So the search gets what is left on our clock less
  // twice that first solve; with nothing left it stops at its first check.
  void limitSearchTime(CbcModel& model) const {
    const double left = s_.timeLeft();
    if (left >= KLO_INFINITY) return;
    const double now = model.getCurrentSeconds();
    model.setMaximumSeconds(now + std::max(0.0, left - 2 * firstLpSeconds_));
  }

  // Lazy rows are correct only without restarts, dominated-column fixing
  // (specialOptions 512, 32768, 64) and bound tightening by dual fixing
  // (moreSpecialOptions 1073741824), with the solver declared as one whose
  // solutions cuts may reject (OsiBabSolver(4), see loadSolver).
  static void allowLazyRows(CbcModel& model) {
    model.setSpecialOptions(model.specialOptions() & ~(512 | 32768 | 64));
    model.setMoreSpecialOptions(model.moreSpecialOptions() | 1073741824);
  }

  bool lazy() const { return s_.lazyConstraints && cb_; }

  void loadSolver() {
    std::vector<double> lower = coinBounds(p_.colLower), upper = coinBounds(p_.colUpper);
    std::vector<double> obj(p_.obj);
    for (double& c : obj) c *= p_.sense;  // Cbc minimises
    for (int j = 0; j < p_.numCols(); ++j)
      if (p_.colType[j] == 'B') {
        lower[j] = std::max(lower[j], 0.0);
        upper[j] = std::min(upper[j], 1.0);
      }
    solver_.messageHandler()->setLogLevel(0);
    solver_.setDblParam(OsiPrimalTolerance, s_.primalTolerance);
    solver_.setDblParam(OsiDualTolerance, s_.dualTolerance);
    solver_.loadProblem(packedMatrix(p_), lower.data(), upper.data(), obj.data(),
                        coinBounds(p_.rowLower).data(), coinBounds(p_.rowUpper).data());
    for (int j = 0; j < p_.numCols(); ++j)
      if (p_.colType[j] != 'C') solver_.setInteger(j);
    solver_.passInMessageHandler(&handler_);
    if (lazy()) {
      OsiBabSolver cutsMayReject(4);
      solver_.setAuxiliaryInfo(&cutsMayReject);  // copied; before the CbcModel is made
    }
  }

  void install(CbcModel& model) {
    addSos(model);
    addStart(model);
    SearchEvents events(state_);
    model.passInEventHandler(&events);  // Cbc keeps a clone
    if (!cb_) return;
    if (lazy()) allowLazyRows(model);
    NodeCallbackCuts cuts(state_);
    model.addCutGenerator(&cuts, 1, "callback", true, lazy(), false, 1, -1, -1);
    CbcCutGenerator* added = model.cutGenerator(model.numberCutGenerators() - 1);
    added->setMustCallAgain(true);  // user cuts go in even when the loop would stop
    added->setSwitchOffIfLessThan(0);
    ProposedSolutions heuristic(state_);
    model.addHeuristic(&heuristic);
    RequestedBranch branching(&model, state_.branchRequest);
    OsiObject* objects[] = {&branching};
    model.addObjects(1, objects);  // Cbc keeps a clone
  }

  void addSos(CbcModel& model) {
    std::vector<OsiObject*> objects;
    for (size_t k = 0; k < p_.sos.size(); ++k) {
      const SosSet& s = p_.sos[k];
      objects.push_back(new CbcSOS(&model, static_cast<int>(s.members.size()), s.members.data(),
                                   s.weights.data(), static_cast<int>(k), s.type));
    }
    if (!objects.empty()) model.addObjects(static_cast<int>(objects.size()), objects.data());
    for (OsiObject* o : objects) delete o;
  }

  void addStart(CbcModel& model) {
    if (p_.startValues.empty()) return;
    std::vector<std::pair<std::string, double>> start;
    for (int j = 0; j < p_.numCols(); ++j) {
      std::string name = "c" + std::to_string(j);
      solver_.setColName(j, name);
      model.solver()->setColName(j, name);
      if (p_.startValues[j] < KLO_UNDEFINED) start.emplace_back(name, p_.startValues[j]);
    }
    if (!start.empty()) model.setMIPStart(start);
  }

  int status(const CbcModel& m) const {
    if (state_.stopRequested) return KLO_STATUS_INTERRUPTED;
    // An LP cut short by the limit (in preprocessing, say) reads to Cbc as
    // an infeasible one: without a solution, a spent limit is the reason.
    const bool outOfTime = m.maximumSecondsReached() || s_.timeLeft() <= 0;
    if (!r_.hasSolution && outOfTime) return KLO_STATUS_TIME_LIMIT;
    switch (m.secondaryStatus()) {
      case 0:
      case 2: return r_.hasSolution ? KLO_STATUS_OPTIMAL : KLO_STATUS_INFEASIBLE;
      case 1:
        return std::fabs(s_.cutoff) < KLO_INFINITY ? KLO_STATUS_CUTOFF : KLO_STATUS_INFEASIBLE;
      case 3: return KLO_STATUS_NODE_LIMIT;
      case 4: return KLO_STATUS_TIME_LIMIT;
      case 5:
        if (state_.stalled) return KLO_STATUS_NODE_LIMIT;
        return state_.solutionLimitReached ? KLO_STATUS_SOLUTION_LIMIT : KLO_STATUS_INTERRUPTED;
      case 6: return KLO_STATUS_SOLUTION_LIMIT;
      case 7: return r_.hasSolution ? KLO_STATUS_UNBOUNDED : KLO_STATUS_INF_OR_UNBD;
      case 8: return KLO_STATUS_ITERATION_LIMIT;
      default: return m.isProvenInfeasible() ? KLO_STATUS_INFEASIBLE : KLO_STATUS_NUMERICAL;
    }
  }

  void readResult(CbcModel& m) {
    const int n = p_.numCols();
    const double* best = m.bestSolution();
    if (best && m.solver()->getNumCols() == n && m.getMinimizationObjValue() < 1e50) {
      r_.hasSolution = true;
      r_.x.assign(best, best + n);
      r_.objective = objectiveOf(p_, best);
      r_.activities = rowActivities(p_, best);
      fillPool(r_, p_, s_, state_.incumbents);
    }
    r_.status = status(m);
    r_.nodeCount = m.getNodeCount();
    r_.simplexIterations = m.getIterationCount();
    readBound(m);
    r_.solverTime = state_.ctx.runtime();
    state_.observe(m);
    state_.ctx.objBound = r_.dualObjective;
    if (r_.hasSolution) state_.ctx.objBest = r_.objective;
    state_.progress(true, false);
    logLine(s_, summaryLine());
  }

  void readBound(const CbcModel& m) {
    const double bound = m.getBestPossibleObjValue();
    r_.dualObjective = std::fabs(bound) < 1e50 ? state_.toModel(bound) : -p_.sense * KLO_INFINITY;
    if (r_.hasSolution && r_.status == KLO_STATUS_OPTIMAL &&
        p_.sense * (r_.dualObjective - r_.objective) > 0)
      r_.dualObjective = r_.objective;  // the bound never passes a proven optimum
    if (!r_.hasSolution) return;
    r_.gapAbs = std::fabs(r_.objective - r_.dualObjective);
    r_.gapRel = r_.gapAbs / std::max(1e-10, std::fabs(r_.objective));
  }

  std::string summaryLine() const {
    return searchSummary("MIP", r_, "simplex", r_.simplexIterations);
  }

  const Problem& p_;
  const Settings& s_;
  const Callback& cb_;
  SinkMessageHandler handler_;
  OsiClpSolverInterface solver_;
  SearchState state_;
  Result r_;
  double firstLpSeconds_ = 0;  // Cbc's clock when its first LP is solved
};

CbcRun* CbcRun::current = nullptr;

}  // namespace

}  // namespace klo::engine

// The entry point through which the solver library loads this engine.
extern "C" __attribute__((visibility("default"))) klo::engine::Engine* klo_new_cbc_engine() {
  return new klo::engine::RunEngine<klo::engine::CbcRun>();
}
