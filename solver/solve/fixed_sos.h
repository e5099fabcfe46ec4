// SOS sets with members that cannot be zero (a lower bound above 0 or an
// upper bound below 0), settled before an engine sees them: Cbc asserts on
// such members (CbcSOS::feasibleRegion).
//
// Type 1: the member that cannot be zero is the set's one non-zero, so the
// others are fixed at 0 and the set goes; two such members make the
// problem infeasible.  Type 2: with two such members, adjacent in weight
// order, the rest are fixed at 0 and the set goes; with one, members more
// than one place from it are fixed at 0 and the set becomes type 1 over its
// two neighbours (at most one may join it); members further apart make the
// problem infeasible.
#pragma once

#include "engine/problem.h"

namespace klo {

enum class SosSettled { Unchanged, Changed, Infeasible };

// Rewrites p's SOS sets as above (columns and rows stay as they are).
SosSettled settleFixedSos(engine::Problem& p);

}  // namespace klo
