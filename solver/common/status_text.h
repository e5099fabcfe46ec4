// The one text of each optimisation status (KLO_STATUS_...), for log lines,
// summaries and KLOexplainstatus.
#ifndef KLO_SOLVER_COMMON_STATUS_TEXT_H
#define KLO_SOLVER_COMMON_STATUS_TEXT_H

namespace klo {

// "optimal", "infeasible", ...; "unknown status" for any other number.
const char* statusText(int status);

}  // namespace klo

#endif
