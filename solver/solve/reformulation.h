// The model's MIP features that no engine takes as such, rewritten before
// an engine sees the problem: semi-continuous columns (solve/
// semicontinuous.h), then indicator constraints (solve/indicators.h).
// Added columns and rows come after the model's, so results are cut back
// by trimResult; answers are checked in the model's own terms, and
// callbacks see the model.
#pragma once

#include <vector>

#include "engine/callback_context.h"
#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"
#include "solve/indicators.h"
#include "solve/semicontinuous.h"
#include "store/model_data.h"

namespace klo {

struct Reformulation {
  int modelCols = 0;
  int modelRows = 0;
  int problemCols = 0;  // of the rewritten problem
  std::vector<Switch> switches;
  IndicatorColumns indicators;

  // Fills the added columns of x (sized to the rewritten problem) from the
  // model's columns.
  void complete(std::vector<double>& x) const;
  bool empty() const { return switches.empty() && indicators.indicators.empty(); }
};

// Rewrites p (row-major, built from the model) in place.  bigM is
// "MIP/LinearizationBigM"; with indicatorBigM false indicators take the
// form without M (for relaxations that drop column bounds).
Reformulation reformulate(engine::Problem& p, double bigM, bool indicatorBigM = true);

// The answer check in the model's terms: switched columns and indicators.
void checkReformulated(const Reformulation& f, engine::Result& r, const engine::Settings& s);

// The user's callback seeing the model d rather than the rewritten problem:
// its numbers of columns, rows and integers, and solutions proposed with
// d's columns only (the added columns follow them).
engine::Callback modelCallback(engine::Callback cb, const Reformulation& f, const ModelData& d);

}  // namespace klo
