// Writing a solve's outcome into the model, where the result attributes
// read it.
#pragma once

#include "engine/result.h"
#include "store/model.h"

namespace klo {

// Replaces m's results with r (seconds: the whole KLOoptimize).  An LP
// basis becomes the start of the next solve, in place of one the user set.
// A solution also becomes pool solution 0 when the engine kept no pool.
// Cannot fail once r is built (moves only).
void storeResult(KLOmodel& m, engine::Result r, double seconds);

}  // namespace klo
