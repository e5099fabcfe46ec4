// Ipopt adapter: continuous problems with linear rows, a quadratic
// objective and quadratic rows, by Ipopt's interior-point method.
//
// Quirks of Ipopt 3.11.9 as shipped in Debian 12, and what this file does:
//  - IpoptApplication() adds a console journal on stdout; made with
//    create_console_out false it prints nowhere, and a SinkJournal of ours
//    takes its output into the log (none at log level 0: a journal also
//    receives J_INSUPPRESSIBLE text, such as the banner, whatever its level).
//    "sb yes" drops the banner.  Initialize() reads "ipopt.opt" from the
//    working directory when there is one: Initialize("") reads nothing.
//  - max_cpu_time is CPU time; "MaxTime" is wall-clock time, checked in
//    intermediate_callback (every iteration, restoration included), whose
//    false return ends the run with User_Requested_Stop and the current
//    iterate in finalize_solution.  The same hook runs the user's callback
//    (KLO_CB_BARRIER).
//  - Bounds of magnitude nlp_lower/upper_bound_inf (default 1e19) or more
//    are infinite: set to our 1e20.
//  - Fixed columns are removed (fixed_variable_treatment make_parameter),
//    after which a problem with more equality rows than columns left is
//    refused (Not_Enough_Degrees_Of_Freedom), e.g. x0 fixed with rows
//    x0 + x1 = 3 and x0 = 1: it is solved again with relax_bounds.  An
//    over-determined system of equalities is still refused (numerical).
//  - Ipopt's multipliers: grad f + J' lambda - z_L + z_U = 0 for the
//    minimised objective, so y = -sense * lambda in result.h's convention.
//    Bound multipliers of fixed columns are not meaningful after
//    make_parameter: reduced costs are computed as grad f - J'y at x.
//  - Every bound is relaxed by bound_relax_factor (1e-8 relative): the point
//    can lie that far outside; columns are projected back
//    (honor_original_bounds, and clamped here), rows may stay outside.
//    With 1e-10 more answers pass the answer check, but then it no longer
//    detects infeasibility of x^2 + y^2 <= 1, x + y >= 2 (500 iterations,
//    iteration limit), so the default stays.
//  - An interior point lies mu / multiplier from an active bound, which the
//    answer check (at-bound within 1e-6) reads as a slack bound with a
//    non-zero dual.  compl_inf_tol is set 1000 times below
//    "IPM/GapTolerance": on the 45 Maros-Meszaros QPs of the shared set,
//    through KLOoptimize, 34 answers then pass the check against 26 with
//    Ipopt's default (1e-4); all 45 objectives are within 1e-6 relative
//    of the published optimum (the rest reported suboptimal).
//  - Unbounded problems end in Diverging_Iterates (iterates beyond 1e20),
//    which says nothing about feasibility: infeasible or unbounded.
//    Locally infeasible (Infeasible_Problem_Detected) is infeasible for
//    convex rows.
//  - Acceptable-level stops and a search direction too small at a feasible
//    point give suboptimal; an iteration limit keeps a feasible iterate.
//  - MUMPS (sequential, with an MPI stub) is not known to be re-entrant:
//    one Ipopt solve at a time in the process.
//  - Non-Ipopt exceptions from our callbacks are rethrown
//    (RethrowNonIpoptException), not turned into an exit status.
#include <IpIpoptApplication.hpp>
#include <IpIpoptData.hpp>
#include <IpSolveStatistics.hpp>
#include <IpTNLP.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <mutex>

#include "common/status_text.h"
#include "engine/engine.h"
#include "engine/ipopt/ipopt_journal.h"
#include "engine/log.h"
#include "engine/lp_duals.h"
#include "engine/nlp/quad_nlp.h"
#include "engine/problem_eval.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Clock = std::chrono::steady_clock;
using Ipopt::Index;
using Ipopt::Number;

std::mutex ipoptMutex;  // one Ipopt solve at a time (see the quirks)

// compl_inf_tol (absolute, unscaled) against "IPM/GapTolerance".
constexpr double kComplementarityFactor = 1e-3;

// What the run leaves behind: the last point Ipopt reports, and why it
// stopped when we stopped it.
struct IpoptOutcome {
  bool finalized = false;
  Ipopt::SolverReturn status = Ipopt::UNASSIGNED;
  std::vector<double> x, lambda;
  long long iterations = 0;
  bool timeUp = false;       // stopped for "MaxTime"
  bool interrupted = false;  // stopped by the user's callback
};

// The Problem as Ipopt's TNLP: every evaluation comes from QuadNlp.
class QuadTnlp : public Ipopt::TNLP {
 public:
  QuadTnlp(const Problem& p, const QuadNlp& nlp, const Settings& s, const Callback& cb,
           CallbackContext& ctx, IpoptOutcome& out)
      : p_(p), nlp_(nlp), s_(s), cb_(cb), ctx_(ctx), out_(out) {}

  bool get_nlp_info(Index& n, Index& m, Index& nnzJac, Index& nnzHes,
                    IndexStyleEnum& style) override {
    n = nlp_.numCols();
    m = nlp_.numRows();
    nnzJac = nlp_.jacobianSize();
    nnzHes = nlp_.hessianSize();
    style = C_STYLE;
    return true;
  }

  bool get_bounds_info(Index n, Number* xl, Number* xu, Index m, Number* gl, Number* gu) override {
    std::copy(p_.colLower.begin(), p_.colLower.begin() + n, xl);
    std::copy(p_.colUpper.begin(), p_.colUpper.begin() + n, xu);
    std::copy(p_.rowLower.begin(), p_.rowLower.begin() + m, gl);
    std::copy(p_.rowUpper.begin(), p_.rowUpper.begin() + m, gu);
    return true;
  }

  bool get_constraints_linearity(Index m, LinearityType* types) override {
    for (Index i = 0; i < m; ++i) types[i] = nlp_.rowIsLinear(i) ? LINEAR : NON_LINEAR;
    return true;
  }

  bool get_starting_point(Index n, bool initX, Number* x, bool initZ, Number*, Number*, Index,
                          bool initLambda, Number*) override {
    if (initZ || initLambda) return false;  // only asked for warm starts of multipliers
    if (initX) {
      const std::vector<double> start = nlp_.startPoint();
      std::copy(start.begin(), start.begin() + n, x);
    }
    return true;
  }

  bool eval_f(Index, const Number* x, bool, Number& f) override {
    f = nlp_.objective(x);
    return std::isfinite(f);
  }
  bool eval_grad_f(Index, const Number* x, bool, Number* grad) override {
    nlp_.objectiveGradient(x, grad);
    return true;
  }
  bool eval_g(Index, const Number* x, bool, Index, Number* g) override {
    nlp_.rowValues(x, g);
    return true;
  }
  bool eval_jac_g(Index, const Number* x, bool, Index, Index, Index* rows, Index* cols,
                  Number* values) override {
    nlp_.jacobianCall(x, rows, cols, values);
    return true;
  }
  bool eval_h(Index, const Number*, bool, Number objFactor, Index, const Number* lambda, bool,
              Index, Index* rows, Index* cols, Number* values) override {
    nlp_.hessianCall(objFactor, lambda, rows, cols, values);
    return true;
  }

  void finalize_solution(Ipopt::SolverReturn status, Index n, const Number* x, const Number*,
                         const Number*, Index m, const Number*, const Number* lambda, Number,
                         const Ipopt::IpoptData* data, Ipopt::IpoptCalculatedQuantities*) override {
    out_.finalized = true;
    out_.status = status;
    if (x) out_.x.assign(x, x + n);
    if (lambda) out_.lambda.assign(lambda, lambda + m);
    if (data) out_.iterations = std::max<long long>(out_.iterations, data->iter_count());
  }

  // Called once per iteration (restoration phase included): the wall clock
  // and the user's callback may stop the run here.
  bool intermediate_callback(Ipopt::AlgorithmMode, Index iter, Number objective, Number, Number,
                             Number, Number, Number, Number, Number, Index, const Ipopt::IpoptData*,
                             Ipopt::IpoptCalculatedQuantities*) override {
    out_.iterations = std::max<long long>(out_.iterations, iter);
    if (s_.timeLeft() <= 0) {
      out_.timeUp = true;
      return false;
    }
    if (cb_) {
      ctx_.where = KLO_CB_BARRIER;
      ctx_.iterCount = iter;
      ctx_.barrierPrimal = p_.sense * objective;  // Ipopt minimises sense * f
      if (cb_(ctx_) == KLO_CB_STOP) {
        out_.interrupted = true;
        return false;
      }
    }
    return true;
  }

 private:
  const Problem& p_;
  const QuadNlp& nlp_;
  const Settings& s_;
  const Callback& cb_;
  CallbackContext& ctx_;
  IpoptOutcome& out_;
};

class IpoptRun {
 public:
  static constexpr const char* kName = "Ipopt";
  IpoptRun(const Problem& p, const Settings& s, const Callback& cb)
      : p_(p), s_(s), cb_(cb), nlp_(p) {}

  Result run() {
    Ipopt::ApplicationReturnStatus status;
    {
      std::lock_guard<std::mutex> lock(ipoptMutex);
      status = optimize();
    }
    finish(status);
    return std::move(r_);
  }

 private:
  // Ipopt removes fixed columns and then refuses a problem with more
  // equality rows than columns left; keeping them as columns with a tiny
  // range (relax_bounds) solves those with fixed columns in equality rows.
  Ipopt::ApplicationReturnStatus optimize() {
    Ipopt::ApplicationReturnStatus status = optimizeOnce(false);
    if (status != Ipopt::Not_Enough_Degrees_Of_Freedom) return status;
    logLine(s_,
            "Ipopt: too few degrees of freedom with fixed columns removed; solving again with them "
            "kept");
    out_ = IpoptOutcome{};
    return optimizeOnce(true);
  }

  Ipopt::ApplicationReturnStatus optimizeOnce(bool keepFixed) {
    // No console journal: Ipopt prints through ours only.
    Ipopt::SmartPtr<Ipopt::IpoptApplication> app = new Ipopt::IpoptApplication(false);
    app->RethrowNonIpoptException(true);
    addSinkJournal(*app->Jnlst(), s_);
    setOptions(*app->Options());
    if (keepFixed) app->Options()->SetStringValue("fixed_variable_treatment", "relax_bounds");
    // Initialize() would read "ipopt.opt" from the working directory.
    Ipopt::ApplicationReturnStatus status = app->Initialize(std::string());
    if (status != Ipopt::Solve_Succeeded) return status;
    ctx_.numVars = p_.numCols();
    ctx_.numRows = p_.numRows();
    ctx_.started = started_;
    Ipopt::SmartPtr<Ipopt::TNLP> tnlp = new QuadTnlp(p_, nlp_, s_, cb_, ctx_, out_);
    status = app->OptimizeTNLP(tnlp);
    if (Ipopt::IsValid(app->Statistics()))
      out_.iterations = std::max<long long>(out_.iterations, app->Statistics()->IterationCount());
    return status;
  }

  void setOptions(Ipopt::OptionsList& o) const {
    o.SetStringValue("sb", "yes");  // no banner
    o.SetIntegerValue("print_level", 0);
    o.SetNumericValue("nlp_lower_bound_inf", -KLO_INFINITY);
    o.SetNumericValue("nlp_upper_bound_inf", KLO_INFINITY);
    o.SetIntegerValue("max_iter", std::max(0, s_.maxBarrierIterations));
    o.SetNumericValue("tol", s_.ipmGapTolerance);
    o.SetNumericValue("constr_viol_tol", s_.ipmPrimalTolerance);
    o.SetNumericValue("dual_inf_tol", s_.ipmDualTolerance);
    // An interior point sits mu / multiplier from an active bound: the
    // answer check tells active bounds at 1e-6, so complementarity is
    // driven well below the gap tolerance (see the quirks).
    o.SetNumericValue("compl_inf_tol", kComplementarityFactor * s_.ipmGapTolerance);
    if (!nlp_.hasQuadRows()) {
      o.SetStringValue("jac_c_constant", "yes");
      o.SetStringValue("jac_d_constant", "yes");
    }
  }

  int klostatus(Ipopt::ApplicationReturnStatus status, bool feasible) const {
    if (out_.interrupted) return KLO_STATUS_INTERRUPTED;
    if (out_.timeUp) return KLO_STATUS_TIME_LIMIT;
    switch (status) {
      case Ipopt::Solve_Succeeded: return KLO_STATUS_OPTIMAL;
      case Ipopt::Solved_To_Acceptable_Level:
      case Ipopt::Feasible_Point_Found: return KLO_STATUS_SUBOPTIMAL;
      case Ipopt::Infeasible_Problem_Detected: return KLO_STATUS_INFEASIBLE;
      case Ipopt::Diverging_Iterates: return KLO_STATUS_INF_OR_UNBD;
      case Ipopt::Maximum_Iterations_Exceeded: return KLO_STATUS_ITERATION_LIMIT;
      case Ipopt::Maximum_CpuTime_Exceeded: return KLO_STATUS_TIME_LIMIT;
      case Ipopt::Search_Direction_Becomes_Too_Small:
        return feasible ? KLO_STATUS_SUBOPTIMAL : KLO_STATUS_NUMERICAL;
      default: return KLO_STATUS_NUMERICAL;
    }
  }

  void finish(Ipopt::ApplicationReturnStatus status) {
    const bool have = out_.finalized && out_.x.size() == static_cast<size_t>(p_.numCols());
    const bool feasible = have && maxViolation(p_, out_.x.data(), false) <= 1e-6;
    r_.status = klostatus(status, feasible);
    r_.barrierIterations = out_.iterations;
    const bool keep =
        r_.status == KLO_STATUS_OPTIMAL || r_.status == KLO_STATUS_SUBOPTIMAL ||
        (feasible && r_.status != KLO_STATUS_INFEASIBLE && r_.status != KLO_STATUS_INF_OR_UNBD &&
         r_.status != KLO_STATUS_UNBOUNDED && r_.status != KLO_STATUS_NUMERICAL);
    if (have && keep) readSolution();
    r_.solverTime = std::chrono::duration<double>(Clock::now() - started_).count();
    if (status < 0 && status != Ipopt::Maximum_Iterations_Exceeded)
      logLine(s_, std::string("Ipopt: ") + returnText(status));
    logLine(s_, summaryLine());
  }

  void readSolution() {
    const int n = p_.numCols(), m = p_.numRows();
    r_.hasSolution = true;
    r_.x = out_.x;
    // Ipopt's point may sit a hair outside a bound (it relaxes them by
    // bound_relax_factor); honor_original_bounds puts it back, this makes sure.
    for (int j = 0; j < n; ++j)
      r_.x[j] = std::min(std::max(r_.x[j], p_.colLower[j]), p_.colUpper[j]);
    r_.activities.assign(static_cast<size_t>(m), 0.0);
    nlp_.rowValues(r_.x.data(), r_.activities.data());
    r_.objective = objectiveOf(p_, r_.x.data());
    r_.dualObjective = r_.objective;
    if (out_.lambda.size() != static_cast<size_t>(m)) return;
    r_.duals = nlp_.duals(out_.lambda.data());
    r_.reducedCosts = nlp_.reducedCosts(r_.x.data(), r_.duals);
    r_.dualObjective = dualObjective(p_, r_);
  }

  static const char* returnText(Ipopt::ApplicationReturnStatus status) {
    switch (status) {
      case Ipopt::Restoration_Failed: return "restoration phase failed";
      case Ipopt::Error_In_Step_Computation: return "error in step computation";
      case Ipopt::Not_Enough_Degrees_Of_Freedom: return "too few degrees of freedom";
      case Ipopt::Invalid_Problem_Definition: return "invalid problem definition";
      case Ipopt::Invalid_Option: return "invalid option";
      case Ipopt::Invalid_Number_Detected: return "invalid number detected";
      case Ipopt::Insufficient_Memory: return "insufficient memory";
      default: return "internal error";
    }
  }

  std::string summaryLine() const { return interiorSummary("QCP", r_, "barrier"); }

  const Problem& p_;
  const Settings& s_;
  const Callback& cb_;
  QuadNlp nlp_;
  IpoptOutcome out_;
  CallbackContext ctx_;
  Result r_;
  Clock::time_point started_ = Clock::now();
};

}  // namespace

}  // namespace klo::engine

// The entry point through which the solver library loads this engine.
extern "C" __attribute__((visibility("default"))) klo::engine::Engine* klo_new_ipopt_engine() {
  return new klo::engine::RunEngine<klo::engine::IpoptRun>();
}
