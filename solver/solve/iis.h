// An irreducible infeasible subsystem: a set of row and variable bounds
// that cannot all hold, every one of which is needed for that.
#pragma once

#include "store/model.h"

namespace klo {

// Finds one by a deletion filter (each bound dropped in turn, kept dropped
// when the rest stays infeasible), started from the bounds an LP's Farkas
// certificate uses.  Integer variables keep their integrality, which is not
// itself a member; a check of an integer program that cannot settle within
// its node limit keeps the bound it tried to drop, so the subsystem is then
// infeasible but perhaps not irreducible.  Stores the membership (KLO_IIS_...) in m's results;
// throws KLO_ERROR_INVALID_ARGUMENT when the model is feasible or cannot
// be proven infeasible.
void computeIis(KLOmodel& m);

}  // namespace klo
