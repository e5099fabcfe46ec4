#include "store/checks.h"

#include <cmath>
#include <string>

#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"

namespace klo {

int countOf(const ModelData& d, Kind k) {
  switch (k) {
    case Kind::Var: return d.numVars();
    case Kind::Row: return d.numRows();
    case Kind::PsdVar: return static_cast<int>(d.psdVars.size());
    case Kind::Sos: return static_cast<int>(d.sos.size());
    case Kind::GenConstr: return static_cast<int>(d.indicators.size());
    default: return static_cast<int>(d.objectives.size());
  }
}

const char* kindName(Kind k) {
  switch (k) {
    case Kind::Var: return "Variable";
    case Kind::Row: return "Constraint";
    case Kind::PsdVar: return "PSD variable";
    case Kind::Sos: return "SOS";
    case Kind::GenConstr: return "General constraint";
    default: return "Objective";
  }
}

int invalidIndexCode(Kind k) {
  switch (k) {
    case Kind::Var: return KLO_ERROR_INVALID_VAR;
    case Kind::Row: return KLO_ERROR_INVALID_CONSTR;
    case Kind::PsdVar: return KLO_ERROR_INVALID_PSDVAR;
    case Kind::Sos: return KLO_ERROR_INVALID_SOS;
    case Kind::GenConstr: return KLO_ERROR_INVALID_GENCONSTR;
    default: return KLO_ERROR_INVALID_OBJECTIVE;
  }
}

void checkCount(int n, const char* what) {
  if (n < 0)
    fail(KLO_ERROR_INVALID_ARGUMENT,
         std::string(what) + " is negative (" + std::to_string(n) + ")");
}

void checkIndex(const ModelData& d, Kind k, int i) {
  int n = countOf(d, k);
  if (i < 0 || i >= n)
    fail(invalidIndexCode(k), std::string(kindName(k)) + " index " + std::to_string(i) +
                                  " is out of range (the model has " + std::to_string(n) + ")");
}

void checkRange(const ModelData& d, Kind k, int start, int len) {
  checkCount(len, "len");
  int n = countOf(d, k);
  if (start < 0 || start > n || len > n - start)
    fail(invalidIndexCode(k), std::string(kindName(k)) + " range " + std::to_string(start) +
                                  " .. " + std::to_string(static_cast<long long>(start) + len - 1) +
                                  " is out of range (the model has " + std::to_string(n) + ")");
}

void checkCoef(double v, const char* what) {
  if (!std::isfinite(v))
    fail(KLO_ERROR_INVALID_ARGUMENT,
         std::string(what) + " is " + formatDouble(v) + " (coefficients must be finite numbers)");
}

void checkBound(double v, const char* what) {
  if (std::isnan(v)) fail(KLO_ERROR_INVALID_ARGUMENT, std::string(what) + " is NaN");
}

void checkVarType(char t) {
  if (t != 'C' && t != 'B' && t != 'I' && t != 'S' && t != 'N')
    fail(KLO_ERROR_INVALID_ARGUMENT,
         std::string("Unknown variable type '") + t + "' (expected C, B, I, S or N)");
}

double normBound(double v) {
  if (v >= KLO_INFINITY) return KLO_INFINITY;
  if (v <= -KLO_INFINITY) return -KLO_INFINITY;
  return v;
}

char normSense(char s) { return s == '>' || s == '=' ? s : '<'; }

void senseToBounds(char sense, double rhs, double& lower, double& upper) {
  checkBound(rhs, "Right-hand side");
  rhs = normBound(rhs);
  switch (normSense(sense)) {
    case '>': lower = rhs, upper = KLO_INFINITY; break;
    case '=': lower = upper = rhs; break;
    default: lower = -KLO_INFINITY, upper = rhs; break;
  }
}

}  // namespace klo
