#include "engine/cbc/cbc_branching.h"

#include <CbcModel.hpp>
#include <CbcSimpleInteger.hpp>

#include <vector>

namespace klo::engine {

RequestedBranch::RequestedBranch(CbcModel* model, BranchRequest& request)
    : CbcObject(model), request_(&request) {
  setPriority(0);
}

double RequestedBranch::infeasibility(const OsiBranchingInformation* info,
                                      int& preferredWay) const {
  const BranchRequest& r = *request_;
  if (r.column < 0) return 0.0;
  // Both arms must leave the node's bounds non-empty.
  if (r.down < info->lower_[r.column] || r.down + 1 > info->upper_[r.column]) return 0.0;
  preferredWay = r.way < 0 ? -1 : 1;
  return 1.0;  // above any integer's fractionality (at most 0.5)
}

// The column's own integer object makes the branch: Cbc's branch choice
// casts branching objects to the kind its objects make (a plain integer
// branch there crashed it once pseudo-costs were in use).  The object
// branches at the value it reads, set here to down + 0.5, so its arms are
// x <= down and x >= down + 1.
CbcBranchingObject* RequestedBranch::createCbcBranch(OsiSolverInterface* solver,
                                                     const OsiBranchingInformation* info, int way) {
  BranchRequest& r = *request_;
  const int column = r.column;
  r.column = -1;
  std::vector<double> x(info->solution_, info->solution_ + info->numberColumns_);
  x[column] = r.down + 0.5;
  OsiBranchingInformation at(*info);
  at.solution_ = x.data();
  for (int k = 0; k < model_->numberObjects(); ++k) {
    auto* integer = dynamic_cast<CbcSimpleInteger*>(model_->modifiableObject(k));
    if (integer && integer->columnNumber() == column)
      return integer->createCbcBranch(solver, &at, way);
  }
  return new CbcIntegerBranchingObject(model_, column, way, r.down + 0.5);
}

int NodeSafeDecision::betterBranch(CbcBranchingObject* thisOne, CbcBranchingObject* bestSoFar,
                                   double changeUp, int numInfUp, double changeDown,
                                   int numInfDown) {
  CbcModel* model = thisOne->model();
  if (model->currentNode())
    return CbcBranchDynamicDecision::betterBranch(thisOne, bestSoFar, changeUp, numInfUp,
                                                  changeDown, numInfDown);
  const int state = model->stateOfSearch();
  model->setStateOfSearch(1);
  const int way = CbcBranchDynamicDecision::betterBranch(thisOne, bestSoFar, changeUp, numInfUp,
                                                         changeDown, numInfDown);
  model->setStateOfSearch(state);
  return way;
}

}  // namespace klo::engine
