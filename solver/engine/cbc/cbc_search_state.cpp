#include "engine/cbc/cbc_search_state.h"

#include <CbcModel.hpp>
#include <CbcTree.hpp>
#include <ClpSimplex.hpp>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "engine/coin/coin_problem.h"
#include "engine/log.h"
#include "engine/problem_eval.h"
#include "engine/solution_pool.h"
#include "klo_c.h"

namespace klo::engine {

SearchState::SearchState(const Problem& p, const Settings& s, const Callback& cb)
    : problem(p), settings(s), callback(cb) {
  integerFlags_.resize(p.numCols());
  for (int j = 0; j < p.numCols(); ++j) {
    integerFlags_[j] = p.colType[j] != 'C';
    ctx.numIntVars += integerFlags_[j];
  }
  ctx.numVars = p.numCols();
  ctx.numRows = p.numRows();
  ctx.isInteger = integerFlags_.data();
  ctx.objBest = p.sense * KLO_INFINITY;
  ctx.objBound = -p.sense * KLO_INFINITY;
  ctx.actions = this;
  ctx.lazyConstraints = s.lazyConstraints && cb;
}

double SearchState::toModel(double cbcValue) const {
  return problem.sense * cbcValue + problem.objConstant;
}

double SearchState::toCbc(double modelValue) const {
  return problem.sense * (modelValue - problem.objConstant);
}

void SearchState::call(int where) {
  if (!callback || stopRequested) return;
  ctx.where = where;
  if (callback(ctx) == KLO_CB_STOP) {
    stopRequested = true;
    // Events come only between nodes, and the root can take long: a spent
    // time limit ends its cut loop and heuristics too.
    if (search) search->setMaximumSeconds(search->getCurrentSeconds());
  }
  ctx.solution = ctx.nodeRelaxation = ctx.nodeLower = ctx.nodeUpper = nullptr;
}

// Cbc's own solution count differs from what the user sees (points found
// before preprocessing, the same point found again), so the limit is
// counted here, on distinct points.
void SearchState::addIncumbent(std::vector<double> x) {
  const bool repeat = std::any_of(incumbents.begin(), incumbents.end(), [&](const PoolSolution& q) {
    return samePoint(problem, settings, q.x, x);
  });
  const double objective = objectiveOf(problem, x.data());
  incumbents.push_back(PoolSolution{objective, std::move(x)});
  if (!repeat && ++distinctSolutions >= settings.maxSolutions) solutionLimitReached = true;
}

void SearchState::observe(CbcModel& m) {
  ctx.nodeCount = m.getNodeCount();
  ctx.nodeLeft = m.tree() ? m.tree()->size() : 0;
  ctx.iterCount = m.getIterationCount();
  ctx.solCount = m.getSolutionCount();
  if (m.bestSolution()) ctx.objBest = toModel(m.getObjValue());
  const double bound = m.getBestPossibleObjValue();
  if (std::fabs(bound) < 1e50) ctx.objBound = toModel(bound);
}

namespace {

std::string gapText(double best, double bound) {
  if (std::fabs(best) >= KLO_INFINITY || std::fabs(bound) >= KLO_INFINITY) return "-";
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.2f%%",
                100.0 * std::fabs(best - bound) / std::max(1e-10, std::fabs(best)));
  return buf;
}

std::string valueText(double v) { return std::fabs(v) >= KLO_INFINITY ? "-" : formatNumber(v); }

}  // namespace

void SearchState::progress(bool force, bool incumbent) {
  const double t = ctx.runtime();
  if (!force && !incumbent && t - lastProgress_ < settings.progressInterval) return;
  lastProgress_ = t;
  if (!headerDone_) {
    logLine(settings, "      Nodes      Left       Incumbent           Bound      Gap     Time");
    headerDone_ = true;
  }
  char buf[160];
  std::snprintf(buf, sizeof buf, "%c %9lld %9lld %15s %15s %8s %7.1fs", incumbent ? '*' : ' ',
                ctx.nodeCount, ctx.nodeLeft, valueText(ctx.objBest).c_str(),
                valueText(ctx.objBound).c_str(), gapText(ctx.objBest, ctx.objBound).c_str(), t);
  logLine(settings, buf);
}

// Fills unset values by an LP over them with the given ones fixed.
std::vector<double> SearchState::complete(const double* x, bool& ok) const {
  const int n = problem.numCols();
  std::vector<double> full(x, x + n);
  ok = true;
  std::vector<double> lower = problem.colLower, upper = problem.colUpper;
  bool missing = false;
  for (int j = 0; j < n; ++j) {
    // Unset: KLO_UNDEFINED, any other value no column can take (magnitude
    // 1e20 or more, as the object layer's "no value" marker) and NaN.
    if (!(std::fabs(full[j]) < KLO_INFINITY))
      missing = true;
    else
      lower[j] = upper[j] = full[j];
  }
  if (!missing) return full;
  ClpSimplex lp;
  lp.setLogLevel(0);
  lp.loadProblem(packedMatrix(problem), coinBounds(lower).data(), coinBounds(upper).data(),
                 problem.obj.data(), coinBounds(problem.rowLower).data(),
                 coinBounds(problem.rowUpper).data());
  lp.setOptimizationDirection(problem.sense);
  lp.dual();
  ok = lp.status() == 0;
  if (ok) full.assign(lp.primalColumnSolution(), lp.primalColumnSolution() + n);
  return full;
}

int SearchState::proposeSolution(const double* x, double* objective) {
  bool ok = false;
  std::vector<double> full = complete(x, ok);
  if (!ok || maxViolation(problem, full.data(), true) > 1e-6) return KLO_CB_REJECTED;
  for (int j = 0; j < problem.numCols(); ++j)
    if (integerFlags_[j]) full[j] = std::round(full[j]);
  const double obj = objectiveOf(problem, full.data());
  // Better than the incumbent and than proposals still waiting.
  double best = ctx.solCount > 0 ? toCbc(ctx.objBest) : COIN_DBL_MAX;
  for (const Proposal& q : proposals) best = std::min(best, q.cbcObjective);
  if (toCbc(obj) >= best - 1e-9 * (1.0 + std::fabs(best))) return KLO_CB_NOT_IMPROVING;
  proposals.push_back(Proposal{toCbc(obj), std::move(full)});
  *objective = obj;
  return KLO_OK;
}

int SearchState::addCut(int len, const int* ind, const double* val, char sense, double rhs) {
  const bool lazy = ctx.where == KLO_CB_MIPSOL;
  if (!lazy && !cutsOut) return KLO_CB_IGNORED;
  OsiRowCut cut;
  cut.setRow(len, ind, val);
  cut.setLb(sense == '>' || sense == '=' ? rhs : -COIN_DBL_MAX);
  cut.setUb(sense == '>' ? COIN_DBL_MAX : rhs);
  cut.setGloballyValid(true);
  if (lazy)
    lazyRows.push_back(cut);
  else
    cutsOut->insert(cut);
  ++ctx.cutCount;
  return KLO_OK;
}

namespace {

bool violates(const OsiRowCut& cut, const double* x) {
  const double activity = cut.row().dotProduct(x);
  const double tol = 1e-6 * (1.0 + std::fabs(activity));
  return activity < cut.lb() - tol || activity > cut.ub() + tol;
}

}  // namespace

bool SearchState::violatesLazyRow(const double* x) const {
  return std::any_of(lazyRows.begin(), lazyRows.end(),
                     [x](const OsiRowCut& c) { return violates(c, x); });
}

bool SearchState::isIntegral(const double* x) const {
  for (int j = 0; j < problem.numCols(); ++j)
    if (integerFlags_[j] && std::fabs(x[j] - std::round(x[j])) > settings.integerTolerance)
      return false;
  return true;
}

bool SearchState::checkCandidate(const double* x) {
  const int n = problem.numCols();
  if (!std::equal(x, x + n, lastCandidate_.begin(), lastCandidate_.end())) {
    lastCandidate_.assign(x, x + n);
    ctx.solution = lastCandidate_.data();
    call(KLO_CB_MIPSOL);
  }
  return violatesLazyRow(x);
}

void SearchState::addViolatedLazyRows(const double* x, OsiCuts& cs) const {
  for (const OsiRowCut& c : lazyRows)
    if (violates(c, x)) cs.insert(c);
}

// Integer columns only, and only when both arms fit the node's bounds.
int SearchState::branch(int column, double value, int dir) {
  if (!integerFlags_[column] || !ctx.nodeLower || !ctx.nodeUpper) return KLO_CB_IGNORED;
  const double down = std::floor(value + settings.integerTolerance);
  if (down < ctx.nodeLower[column] || down + 1 > ctx.nodeUpper[column]) return KLO_CB_IGNORED;
  branchRequest = BranchRequest{column, down, dir};
  return KLO_OK;
}

}  // namespace klo::engine
