// The state a Cbc search shares with our hooks: what the user's callback
// sees (the context) and asks for (proposed solutions, cuts, branches, lazy
// rows), the incumbents found, and the progress log.
#pragma once

#include <CbcModel.hpp>
#include <OsiCuts.hpp>
#include <OsiRowCut.hpp>

#include <mutex>
#include <vector>

#include "engine/callback_context.h"
#include "engine/cbc/cbc_branching.h"
#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo::engine {

struct Proposal {
  double cbcObjective;  // as Cbc sees it: minimised, no constant
  std::vector<double> x;
};

class SearchState : public CallbackActions {
 public:
  SearchState(const Problem& p, const Settings& s, const Callback& cb);

  // Model sense value of an objective as Cbc sees it, and back.
  double toModel(double cbcValue) const;
  double toCbc(double modelValue) const;

  // Calls the user's callback at where; remembers a stop request.
  void call(int where);
  // Writes a progress line when one is due (or force), with a mark for a
  // new incumbent.
  void progress(bool force, bool incumbent);
  // Updates the search figures the callback and the log show.
  void observe(CbcModel& m);

  int proposeSolution(const double* x, double* objective) override;
  int addCut(int len, const int* ind, const double* val, char sense, double rhs) override;
  int branch(int column, double value, int dir) override;

  const Problem& problem;
  const Settings& settings;
  const Callback& callback;
  CallbackContext ctx;
  bool stopRequested = false;
  CbcModel* search = nullptr;  // the model the search runs on, once it starts
  int solutionsSeen = 0;
  std::vector<Proposal> proposals;  // accepted, waiting for the heuristic
  // Incumbents in the original columns, in the order found (each better
  // than the one before); the solution pool comes from them.
  std::vector<PoolSolution> incumbents;
  // Distinct points among them; at "MIP/MaxSols" the search stops.
  int distinctSolutions = 0;
  bool solutionLimitReached = false;
  // "MIP/MaxStallingNodes": nodes since the incumbent last improved.
  long long lastImprovementNode = 0;
  bool stalled = false;
  void addIncumbent(std::vector<double> x);
  OsiCuts* cutsOut = nullptr;       // where cuts go during a node callback
  BranchRequest branchRequest;      // for the node being processed
  std::mutex eventMutex;            // Cbc's threads raise events concurrently
  std::vector<OsiRowCut> lazyRows;  // lazy constraints given so far

  bool violatesLazyRow(const double* x) const;
  // Shows an integral candidate to the callback (once) so that it can add
  // lazy rows; true when it violates one.
  bool checkCandidate(const double* x);
  bool isIntegral(const double* x) const;
  // Puts the lazy rows x violates into cs.
  void addViolatedLazyRows(const double* x, OsiCuts& cs) const;

 private:
  std::vector<double> complete(const double* x, bool& ok) const;
  std::vector<int> integerFlags_;
  std::vector<double> lastCandidate_;
  double lastProgress_ = -1.0;
  bool headerDone_ = false;
};

}  // namespace klo::engine
