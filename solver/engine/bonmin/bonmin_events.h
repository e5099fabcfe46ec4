// What we hang into Bonmin's search (its CbcModel): an event handler that
// raises the user's MIP and MIPSOL callbacks, keeps the incumbents for the
// pool and stops at the next node once "MaxTime" is spent or the callback
// asks.  Solutions the callback proposes reach the search through the
// Cbc adapter's ProposedSolutions heuristic.
#pragma once

#include <CbcEventHandler.hpp>

#include "engine/cbc/cbc_search_state.h"

namespace klo::engine {

class BonminEvents : public CbcEventHandler {
 public:
  BonminEvents(SearchState& state, bool& timeUp) : state_(&state), timeUp_(&timeUp) {}
  CbcEventHandler* clone() const override { return new BonminEvents(*this); }
  CbcAction event(CbcEvent which) override;

 private:
  void incumbent();
  SearchState* state_;  // shared by Cbc's clones
  bool* timeUp_;
};

}  // namespace klo::engine
