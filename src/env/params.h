// Typed parameter access on a library environment, shared by KLOEnv and
// KLOModel (which fetches its environment for every call).
#pragma once

#include <string>

#include "klo_cpp.h"

namespace klo_detail {

// The library writes string parameters into caller buffers of this size.
constexpr int kStringBuffer = 512;

int getParam(void* env, KLO_IntParam param);
double getParam(void* env, KLO_DoubleParam param);
std::string getParam(void* env, KLO_StringParam param);
void setParam(void* env, KLO_IntParam param, int value);
void setParam(void* env, KLO_DoubleParam param, double value);
void setParam(void* env, KLO_StringParam param, const std::string& value);

// The integer and double attempts of a by-name setting: true on success,
// failures unreported.
bool trySetInt(void* env, const std::string& name, int value);
bool trySetDouble(void* env, const std::string& name, double value);
// The last attempt, whose failure is raised.
void setString(void* env, const std::string& name, const std::string& value);

}  // namespace klo_detail
