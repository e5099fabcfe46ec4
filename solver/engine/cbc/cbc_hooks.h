// What we hang into Cbc's search: an event handler (incumbents, progress
// lines, the MIP callback and stopping), a cut generator (the node
// callback and its cuts) and a heuristic (solutions the callback proposes).
// Cbc clones all three, so they share one SearchState through a pointer.
#pragma once

#include <CbcEventHandler.hpp>
#include <CbcHeuristic.hpp>
#include <CglCutGenerator.hpp>
#include <OsiCuts.hpp>

#include <vector>

#include "engine/cbc/cbc_search_state.h"

namespace klo::engine {

class SearchEvents : public CbcEventHandler {
 public:
  explicit SearchEvents(SearchState& state) : state_(&state) {}
  CbcAction event(CbcEvent e) override;
  CbcEventHandler* clone() const override { return new SearchEvents(*this); }

 private:
  // The incumbent in the original columns (empty when it cannot be mapped).
  std::vector<double> originalIncumbent() const;
  CbcAction candidate();  // a solution about to be accepted, with lazy rows
  void incumbent();       // a new incumbent
  SearchState* state_;
};

class NodeCallbackCuts : public CglCutGenerator {
 public:
  explicit NodeCallbackCuts(SearchState& state) : state_(&state) {}
  void generateCuts(const OsiSolverInterface& si, OsiCuts& cs,
                    const CglTreeInfo info = CglTreeInfo()) override;
  CglCutGenerator* clone() const override { return new NodeCallbackCuts(*this); }

 private:
  SearchState* state_;
};

class ProposedSolutions : public CbcHeuristic {
 public:
  explicit ProposedSolutions(SearchState& state) : state_(&state) {
    setHeuristicName("callback solutions");
  }
  CbcHeuristic* clone() const override { return new ProposedSolutions(*this); }
  void resetModel(CbcModel*) override {}
  bool shouldHeurRun(int) override { return true; }
  int solution(double& objectiveValue, double* newSolution) override;

 private:
  SearchState* state_;
};

}  // namespace klo::engine
