#include "engine/bonmin/bonmin_events.h"

#include <CbcModel.hpp>

#include "engine/problem_eval.h"
#include "klo_c.h"

namespace klo::engine {

CbcEventHandler::CbcAction BonminEvents::event(CbcEvent which) {
  SearchState& s = *state_;
  if (model_->parentModel()) return noAction;  // a heuristic's sub-search
  if (which == node) {
    s.observe(*model_);
    s.call(KLO_CB_MIP);
    if (s.settings.timeLeft() <= 0) *timeUp_ = true;
  } else if ((which == solution || which == heuristicSolution) &&
             model_->getSolutionCount() > s.solutionsSeen) {
    incumbent();
  }
  return s.stopRequested || *timeUp_ ? stop : noAction;
}

// Bonmin's search runs on the model's own columns (no preprocessing).
void BonminEvents::incumbent() {
  SearchState& s = *state_;
  s.solutionsSeen = model_->getSolutionCount();
  s.observe(*model_);
  const int n = s.problem.numCols();
  const double* x = model_->bestSolution();
  if (!x || model_->solver()->getNumCols() != n) return;
  s.incumbents.push_back(PoolSolution{objectiveOf(s.problem, x), std::vector<double>(x, x + n)});
  s.ctx.solution = s.incumbents.back().x.data();
  s.call(KLO_CB_MIPSOL);
}

}  // namespace klo::engine
