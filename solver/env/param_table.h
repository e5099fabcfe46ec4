// The parameters of an environment: name, type, range and default.
#pragma once

#include <string>

namespace klo {

enum class ParamType { Int, Double, String };

struct ParamDef {
  const char* name;
  ParamType type;
  double min, max, def;  // unused for strings (whose default is "")
};

// Longest string parameter value, without the terminating zero.
constexpr int kMaxStringParam = 511;

int paramCount();
const ParamDef& paramDef(int i);
// Row of the parameter called name, or -1.
int findParam(const std::string& name);

}  // namespace klo
