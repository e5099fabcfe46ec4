#include "common/status_text.h"

#include "klo_c.h"

namespace klo {

const char* statusText(int status) {
  switch (status) {
    case KLO_STATUS_UNSTARTED: return "not solved";
    case KLO_STATUS_OPTIMAL: return "optimal";
    case KLO_STATUS_INFEASIBLE: return "infeasible";
    case KLO_STATUS_UNBOUNDED: return "unbounded";
    case KLO_STATUS_INF_OR_UNBD: return "infeasible or unbounded";
    case KLO_STATUS_NUMERICAL: return "stopped on numerical trouble";
    case KLO_STATUS_NODE_LIMIT: return "node limit reached";
    case KLO_STATUS_TIME_LIMIT: return "time limit reached";
    case KLO_STATUS_SOLUTION_LIMIT: return "solution limit reached";
    case KLO_STATUS_ITERATION_LIMIT: return "iteration limit reached";
    case KLO_STATUS_INTERRUPTED: return "interrupted";
    case KLO_STATUS_CUTOFF: return "no solution better than the cutoff";
    case KLO_STATUS_SUBOPTIMAL: return "suboptimal: the answer failed the check";
    case KLO_STATUS_LOCALLY_OPTIMAL: return "locally optimal";
    default: return "unknown status";
  }
}

}  // namespace klo
