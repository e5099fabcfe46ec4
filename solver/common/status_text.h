// The one text of each optimisation status (KLO_STATUS_...), for log lines,
// summaries and KLOexplainstatus.
#pragma once

namespace klo {

// "optimal", "infeasible", ...; "unknown status" for any other number.
const char* statusText(int status);

}  // namespace klo
