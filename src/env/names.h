// Enumerator to library name, for every typed attribute and parameter.
#pragma once

#include "klo_cpp.h"

namespace klo_detail {

inline const char* name(KLO_IntAttr a) { return INT_ATTRNAMES[a]; }
inline const char* name(KLO_DoubleAttr a) { return DBL_ATTRNAMES[a]; }
inline const char* name(KLO_StringAttr a) { return STR_ATTRNAMES[a]; }
inline const char* name(KLO_MatAttr a) { return MAT_ATTRNAMES[a]; }
inline const char* name(KLO_CharAttr) { return "VType"; }
inline const char* name(KLO_IntParam p) { return INT_PARNAMES[p]; }
inline const char* name(KLO_DoubleParam p) { return DBL_PARNAMES[p]; }
inline const char* name(KLO_StringParam) { return "LogFile"; }

}  // namespace klo_detail
