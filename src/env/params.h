// Typed parameter access on a library environment, shared by KLOEnv and
// KLOModel (which fetches its environment for every call).
#pragma once

#include <functional>
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

// How a by-name setting reuses its text stream for the double attempt.
enum class Retry {
  Rewind,  // back to the start: the environment's way
  Append,  // the text again behind the first copy, read on: the model's way
};

// Sets a parameter of unknown type from text: as an integer, then as a
// double, then as a string; only the string attempt's failure is raised.
// env is asked for the library environment before each attempt.
void setByName(const std::function<void*()>& env, const std::string& name, const std::string& value,
               Retry retry);

}  // namespace klo_detail
