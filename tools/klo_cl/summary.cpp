#include "summary.h"

#include <klo_c.h>
#include <klo_cpp.h>

#include <cstdio>
#include <string>

namespace klo_cl {

const char* statusName(int status) {
    switch (status) {
        case KLO_STATUS_UNSTARTED: return "not solved";
        case KLO_STATUS_OPTIMAL: return "optimal";
        case KLO_STATUS_INFEASIBLE: return "infeasible";
        case KLO_STATUS_UNBOUNDED: return "unbounded";
        case KLO_STATUS_INF_OR_UNBD: return "infeasible or unbounded";
        case KLO_STATUS_NUMERICAL: return "numerical trouble";
        case KLO_STATUS_NODE_LIMIT: return "node limit reached";
        case KLO_STATUS_TIME_LIMIT: return "time limit reached";
        case KLO_STATUS_SOLUTION_LIMIT: return "solution limit reached";
        case KLO_STATUS_ITERATION_LIMIT: return "iteration limit reached";
        case KLO_STATUS_INTERRUPTED: return "interrupted";
        case KLO_STATUS_CUTOFF: return "no solution better than the cutoff";
        default: return "unknown status";
    }
}

namespace {

void line(std::ostream& out, const char* label, const std::string& value) {
    char text[128];
    std::snprintf(text, sizeof text, "%-20s %s\n", label, value.c_str());
    out << text;
}

std::string number(const char* format, double v) {
    char text[64];
    std::snprintf(text, sizeof text, format, v);
    return text;
}

// A result that the library may not have (e.g. a bound when a limit stopped
// the search before the root finished).
std::string optional(const KLOModel& model, KLO_DoubleAttr attr, const char* format) {
    try {
        return number(format, model.get(attr));
    } catch (const KLOException&) {
        return "not available";
    }
}

}  // namespace

void printModelSize(const KLOModel& model, const std::string& file, std::ostream& out) {
    out << "Read " << file << ": " << model.get(KLO_IntAttr_NumConstrs) << " rows, "
        << model.get(KLO_IntAttr_NumVars) << " columns (" << model.get(KLO_IntAttr_NumIntVars)
        << " integer), " << model.get(KLO_IntAttr_NumNZs) << " nonzeros\n";
}

void printSummary(const KLOModel& model, std::ostream& out) {
    const bool mip = model.get(KLO_IntAttr_IsInteger) != 0;
    const bool solution = model.get(KLO_IntAttr_HasSolution) != 0;
    out << "\nSummary\n";
    line(out, "Status", statusName(model.get(KLO_IntAttr_Status)));
    line(out, "Objective",
         solution ? number("%.10g", model.get(KLO_DoubleAttr_ObjVal)) : "no solution");
    if (mip) {
        line(out, "Best bound", optional(model, KLO_DoubleAttr_DualObjVal, "%.10g"));
        if (solution) {
            line(out, "Gap", number("%.4g%%", 100.0 * model.get(KLO_DoubleAttr_MIP_GapRel)));
            line(out, "Solutions", std::to_string(model.get(KLO_IntAttr_SolCount)));
        }
    }
    line(out, "Time", number("%.3f s", model.get(KLO_DoubleAttr_SolutionTime)));
    const int simplex = model.get(KLO_IntAttr_SPX_NumIters);
    const int barrier = model.get(KLO_IntAttr_IPM_NumIters);
    if (barrier > 0) line(out, "Barrier iterations", std::to_string(barrier));
    line(out, "Simplex iterations", std::to_string(simplex));
}

}  // namespace klo_cl
