// Branching requests from the node callback.  A CbcObject of priority 0
// (ahead of every integer) is infeasible exactly while a request for the
// current node waits, and then branches on the requested column with
// Cbc's own integer branching object.
#pragma once

#include <CbcBranchDynamic.hpp>
#include <CbcObject.hpp>

namespace klo::engine {

struct BranchRequest {
  int column = -1;  // -1: none waiting
  double down = 0;  // the down arm is x <= down, the up arm x >= down + 1
  int way = 0;      // -1 down first, 1 up first, 0 the engine chooses
};

class RequestedBranch : public CbcObject {
 public:
  RequestedBranch(CbcModel* model, BranchRequest& request);
  CbcObject* clone() const override { return new RequestedBranch(*this); }
  double infeasibility(const OsiBranchingInformation* info, int& preferredWay) const override;
  void feasibleRegion() override {}
  CbcBranchingObject* createCbcBranch(OsiSolverInterface* solver,
                                      const OsiBranchingInformation* info, int way) override;
  // Cbc needs a column for every object it branches on.
  int columnNumber() const override { return request_->column >= 0 ? request_->column : 0; }

 private:
  BranchRequest* request_;
};

// Cbc's dynamic branch decision, safe where Cbc calls it without a current
// node: when a node's branch choice is made again (strong branching fixed
// a column), the search has already cleared its current node, which the
// rule reads once a solution exists (a null read in betterBranch,
// reached on stein27 with a branch request at every node).  There the
// rule for searches without a solution decides instead.
class NodeSafeDecision : public CbcBranchDynamicDecision {
 public:
  CbcBranchDecision* clone() const override { return new NodeSafeDecision(*this); }
  int betterBranch(CbcBranchingObject* thisOne, CbcBranchingObject* bestSoFar, double changeUp,
                   int numInfUp, double changeDown, int numInfDown) override;
};

}  // namespace klo::engine
