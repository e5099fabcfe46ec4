// Argument checks shared by the store's operations.  Each throws a
// klo::Error with the matching KLO_ERROR_... code and a detail naming the
// offending argument, index or value.
#pragma once

#include "store/model_data.h"

namespace klo {

// Element kinds with their own index error code.
enum class Kind { Var, Row, PsdVar, Sos, GenConstr, Objective };

int countOf(const ModelData& d, Kind k);
const char* kindName(Kind k);
int invalidIndexCode(Kind k);

void checkCount(int n, const char* what);
void checkIndex(const ModelData& d, Kind k, int i);
// start .. start+len-1 must be indices of kind k.
void checkRange(const ModelData& d, Kind k, int start, int len);
// Finite, not NaN.
void checkCoef(double v, const char* what);
// Not NaN (infinite bounds are allowed).
void checkBound(double v, const char* what);
void checkVarType(char t);
// Clamps a bound to +-1e20, the representation of "no bound".
double normBound(double v);
// '>' greater-or-equal, '=' equal, anything else less-or-equal.
char normSense(char s);
// Row bounds [lower, upper] of  expr sense rhs.
void senseToBounds(char sense, double rhs, double& lower, double& upper);

}  // namespace klo
