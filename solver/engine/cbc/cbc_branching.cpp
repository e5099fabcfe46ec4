#include "engine/cbc/cbc_branching.h"

#include <CbcModel.hpp>
#include <CbcSimpleInteger.hpp>

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

CbcBranchingObject* RequestedBranch::createCbcBranch(OsiSolverInterface*,
                                                     const OsiBranchingInformation*, int way) {
  BranchRequest& r = *request_;
  // x* = down + 0.5: Cbc's arms are then x <= down and x >= down + 1.
  auto* branch = new CbcIntegerBranchingObject(model_, r.column, way, r.down + 0.5);
  for (int k = 0; k < model_->numberObjects(); ++k) {
    auto* integer = dynamic_cast<CbcSimpleInteger*>(model_->modifiableObject(k));
    if (integer && integer->columnNumber() == r.column) {
      branch->setOriginalObject(integer);
      break;
    }
  }
  r.column = -1;
  return branch;
}

}  // namespace klo::engine
