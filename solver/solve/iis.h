// An irreducible infeasible subsystem: a set of row and variable bounds
// that cannot all hold, every one of which is needed for that.
#pragma once

#include "store/model.h"

namespace klo {

// Finds one by a deletion filter (each bound dropped in turn, kept dropped
// when the rest stays infeasible), started from the bounds an LP's Farkas
// certificate uses.  Works on the model reformulated (solve/
// reformulation.h, indicators without M): integrality, SOS sets, indicators
// and semi-continuity are kept and are not members.  A check of an integer
// program tries cheap proofs first (the LP relaxation, the gcd of integer
// rows); one that cannot settle within its node limit keeps the bound it
// tried to drop, and when "MaxTime" (for the whole search) runs out the
// untried bounds stay: the subsystem is then infeasible but not proven
// irreducible, which m's results record.  Stores the membership
// (KLO_IIS_...) in m's results; throws KLO_ERROR_INVALID_ARGUMENT when the
// model is feasible or cannot be proven infeasible.
void computeIis(KLOmodel& m);

}  // namespace klo
