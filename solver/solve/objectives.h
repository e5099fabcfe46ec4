// Models with several objectives, solved hierarchically: objectives of
// higher priority first; objectives of equal priority blended by weight;
// each pass keeps the earlier passes' objectives within their tolerances.
#pragma once

#include "engine/callback_context.h"
#include "engine/problem.h"
#include "engine/result.h"
#include "engine/settings.h"
#include "store/model_data.h"

namespace klo {

// Solves base (built from d) for d's objectives in turn.  The result is
// the last pass's, cut back to d's rows, with objective values (solution
// and pool) of objective 0.  A pass that does not end optimal ends the
// sequence with its own status.
engine::Result solveObjectives(const engine::Problem& base, const ModelData& d,
                               const engine::Settings& settings, const engine::Callback& cb);

}  // namespace klo
