// The one way the library runs an engine: the chooser picks it, it solves,
// the answer is measured (solve/answer_check.h), and an answer that claims
// to be optimal but fails the check is cleaned up.
#pragma once

#include <vector>

#include "engine/engine.h"

namespace klo {

// Solves p.  When an optimal answer fails the check and the engine gave a
// basis, the solve continues from that basis without presolve and at
// tolerances 100 times tighter, first with primal simplex, then with dual;
// iterations add up.
// When no answer passes, the status is KLO_STATUS_SUBOPTIMAL and the answer
// with the smallest violations is kept.  what names the operation in
// refusals ("KLOoptimize").  The engine is chosen among `from`.  Throws as
// the chooser and the engine do.
engine::Result checkedSolve(const engine::Problem& p, const engine::Settings& s,
                            const engine::Callback& cb, const char* what,
                            const std::vector<engine::EngineEntry>& from = engine::engines());

}  // namespace klo
