#include "summary.h"

#include <cstdio>
#include <string>

#include "library.h"

namespace klo_cl {
namespace {

void line(std::ostream& out, const char* label, const std::string& value) {
  char text[160];
  std::snprintf(text, sizeof text, "%-20s %s\n", label, value.c_str());
  out << text;
}

std::string number(const char* format, double v) {
  char text[64];
  std::snprintf(text, sizeof text, format, v);
  return text;
}

int intAttr(KLOmodel* model, const char* name) {
  int v = 0;
  check(KLOgetenv(model), KLOgetintattr(model, name, &v));
  return v;
}

double dblAttr(KLOmodel* model, const char* name) {
  double v = 0;
  check(KLOgetenv(model), KLOgetdblattr(model, name, &v));
  return v;
}

// A result that the solve may not have given (a bound when a limit stopped
// the search before the root finished, dual figures of a MIP).
std::string optional(KLOmodel* model, const char* name, const char* format) {
  double v = 0;
  return KLOgetdblattr(model, name, &v) == 0 ? number(format, v) : "not available";
}

void printViolations(KLOmodel* model, std::ostream& out) {
  std::string primal = "bounds " + optional(model, "MaxBoundViolation", "%.2g") + ", rows " +
                       optional(model, "MaxConstrViolation", "%.2g");
  if (intAttr(model, "IsInteger") != 0)
    primal += ", integrality " + optional(model, "MaxIntViolation", "%.2g");
  line(out, "Primal violation", primal);
  double dual = 0;
  if (KLOgetdblattr(model, "MaxDualViolation", &dual) == 0)
    line(out, "Dual violation",
         number("%.2g", dual) + ", complementarity " + optional(model, "ComplViolation", "%.2g"));
}

}  // namespace

void printModelSize(KLOmodel* model, const std::string& file, std::ostream& out) {
  out << "Read " << file << ": " << intAttr(model, "NumConstrs") << " rows, "
      << intAttr(model, "NumVars") << " columns (" << intAttr(model, "NumIntVars") << " integer), "
      << intAttr(model, "NumNZs") << " nonzeros";
  if (int psd = intAttr(model, "NumPsdVars")) out << ", " << psd << " PSD variables";
  out << "\n";
}

void printSummary(KLOmodel* model, std::ostream& out) {
  const bool mip = intAttr(model, "IsInteger") != 0;
  const bool solution = intAttr(model, "HasSolution") != 0;
  out << "\nSummary\n";
  line(out, "Status", KLOexplainstatus(intAttr(model, "Status")));
  line(out, "Objective", solution ? number("%.10g", dblAttr(model, "ObjVal")) : "no solution");
  if (mip) {
    line(out, "Best bound", optional(model, "DualObjVal", "%.10g"));
    if (solution) {
      line(out, "Gap", number("%.4g%%", 100.0 * dblAttr(model, "MIP/GapRel")));
      line(out, "Solutions", std::to_string(intAttr(model, "SolCount")));
    }
  }
  line(out, "Time", number("%.3f s", dblAttr(model, "SolutionTime")));
  const int barrier = intAttr(model, "IPM/NumIters");
  if (barrier > 0) line(out, "Barrier iterations", std::to_string(barrier));
  line(out, "Simplex iterations", std::to_string(intAttr(model, "SPX/NumIters")));
  if (solution) printViolations(model, out);
}

}  // namespace klo_cl
