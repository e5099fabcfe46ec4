// Indicator constraints "z = v implies a'x (sense) b", solved as rows,
// columns and SOS sets that any MIP engine takes.
//
// The literal y is z (v = 1) or 1 - z (v = 0): y = 1 when the row must hold.
// An equality is the two inequalities.  For a'x <= b (>= is the mirror):
//  - big-M: a'x + M y <= b + M, where M = max a'x - b over the column
//    bounds (tightened by singleton rows), used when 0 < M <= bigM ("MIP/
//    LinearizationBigM"); M <= 0 means the row always holds and adds nothing;
//  - otherwise, with no M: a slack s >= 0, the row a'x - s <= b and the
//    SOS1 set {s, y}: when y is 1, s is 0.  y = 1 - z is a binary column w
//    of its own with the row w + z = 1 (SOS members must be columns, and
//    Cbc refuses members that may be negative).
// A binary fixed by its bounds needs neither: its row is there or not.
#pragma once

#include <vector>

#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"

namespace klo {

// Columns added for one model's indicators, which callbacks cannot know of:
// their values follow the model's columns.
struct IndicatorColumns {
  struct Slack {
    int column;
    int indicator;     // of the model's indicators
    double direction;  // 1: s = a'x - b (a <= row), -1: s = b - a'x
  };
  std::vector<engine::IndicatorRow> indicators;  // the model's, as given
  std::vector<Slack> slacks;
  std::vector<std::pair<int, int>> complements;  // (w, z): w = 1 - z
};

// Rewrites p's indicators (p row-major) as above, leaving p.indicators
// empty; columns are appended after p's, rows after p's.  With bigMAllowed
// false every indicator takes the form without M (a relaxation that later
// drops column bounds needs that: an M from bounds no longer holds).
// A MIP start gives the added columns' values.
IndicatorColumns linearizeIndicators(engine::Problem& p, double bigM, bool bigMAllowed);

// Fills the added columns of x (sized to the rewritten problem) from the
// model's columns; KLO_UNDEFINED where those are not all set.
void completeIndicatorColumns(const IndicatorColumns& c, std::vector<double>& x);

// Measures r's answer on the model's indicators (each whose binary is
// within the integrality tolerance of its value: its row's violation) and
// folds the worst into r.violations.row; an optimal answer that the check
// then fails is suboptimal, and the log says so.
void checkIndicators(const IndicatorColumns& c, engine::Result& r, const engine::Settings& s);

}  // namespace klo
