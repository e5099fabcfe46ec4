#include "engine/cbc/cbc_hooks.h"

#include <CbcModel.hpp>

#include <algorithm>

#include "engine/problem_eval.h"
#include "klo_c.h"

namespace klo::engine {

CbcEventHandler::CbcAction SearchEvents::event(CbcEvent e) {
  SearchState& s = *state_;
  if (model_->parentModel()) return noAction;  // a sub-search of a heuristic
  std::lock_guard<std::mutex> lock(s.eventMutex);
  if (e == node) {
    s.branchRequest.column = -1;  // a request lasts for its own node only
    s.observe(*model_);
    const int stall = s.settings.maxStallingNodes;
    if (stall >= 0 && s.ctx.nodeCount - s.lastImprovementNode > stall) s.stalled = true;
    s.call(KLO_CB_MIP);
    s.progress(false, false);
  } else if (e == beforeSolution2 && s.ctx.lazyConstraints) {
    return candidate();
  } else if ((e == solution || e == heuristicSolution) &&
             model_->getSolutionCount() > s.solutionsSeen) {
    incumbent();
  }
  return s.stopRequested || s.solutionLimitReached || s.stalled ? stop : noAction;
}

// With lazy constraints the callback sees candidates (here the candidate
// is the model's best solution for the moment) and may add lazy rows that
// reject them.
CbcEventHandler::CbcAction SearchEvents::candidate() {
  SearchState& s = *state_;
  const double* x = model_->bestSolution();
  if (!x || model_->solver()->getNumCols() != s.problem.numCols()) return noAction;
  return s.checkCandidate(x) ? killSolution : noAction;
}

void SearchEvents::incumbent() {
  SearchState& s = *state_;
  s.solutionsSeen = model_->getSolutionCount();
  s.observe(*model_);
  s.lastImprovementNode = s.ctx.nodeCount;
  std::vector<double> x = originalIncumbent();
  if (!x.empty()) {
    s.addIncumbent(std::move(x));
    s.ctx.solution = s.incumbents.back().x.data();
    if (!s.ctx.lazyConstraints) s.call(KLO_CB_MIPSOL);  // seen as a candidate already
  }
  s.progress(false, true);
}

std::vector<double> SearchEvents::originalIncumbent() const {
  const int n = state_->problem.numCols();
  const double* x = model_->bestSolution();
  if (model_->preProcess()) {
    const OsiSolverInterface* original = model_->postProcessedSolver(1);
    x = original && original->getNumCols() == n ? original->getColSolution() : nullptr;
  } else if (model_->solver()->getNumCols() != n) {
    x = nullptr;
  }
  return x ? std::vector<double>(x, x + n) : std::vector<double>();
}

void NodeCallbackCuts::generateCuts(const OsiSolverInterface& si, OsiCuts& cs,
                                    const CglTreeInfo info) {
  SearchState& s = *state_;
  if (si.getNumCols() != s.problem.numCols()) return;
  // An integral node point is a candidate: its lazy rows must be cuts here,
  // before Cbc takes the point as a solution.
  if (s.ctx.lazyConstraints && s.isIntegral(si.getColSolution()))
    s.checkCandidate(si.getColSolution());
  s.addViolatedLazyRows(si.getColSolution(), cs);
  if (s.stopRequested) return;
  s.ctx.nodeRelaxation = si.getColSolution();
  s.ctx.nodeLower = si.getColLower();
  s.ctx.nodeUpper = si.getColUpper();
  s.ctx.nodeDepth = info.level;
  s.ctx.nodeStatus = KLO_STATUS_OPTIMAL;
  s.cutsOut = &cs;
  s.call(KLO_CB_MIPNODE);
  s.cutsOut = nullptr;
}

int ProposedSolutions::solution(double& objectiveValue, double* newSolution) {
  auto& pending = state_->proposals;
  auto best = std::min_element(
      pending.begin(), pending.end(),
      [](const Proposal& a, const Proposal& b) { return a.cbcObjective < b.cbcObjective; });
  int found = 0;
  if (best != pending.end() && best->cbcObjective < objectiveValue) {
    std::copy(best->x.begin(), best->x.end(), newSolution);
    objectiveValue = best->cbcObjective;
    found = 1;
  }
  pending.clear();
  return found;
}

}  // namespace klo::engine
