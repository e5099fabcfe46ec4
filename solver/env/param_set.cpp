#include "env/param_set.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"

namespace klo {
namespace {

const char* typeName(ParamType t) {
  switch (t) {
    case ParamType::Int: return "int";
    case ParamType::Double: return "double";
    default: return "string";
  }
}

void checkRange(const ParamDef& d, double v, const std::string& shown) {
  if (std::isnan(v) || v < d.min || v > d.max)
    fail(KLO_ERROR_PARAMETER_RANGE, "Value " + shown + " of parameter \"" + d.name +
                                        "\" is outside [" + formatDouble(d.min) + ", " +
                                        formatDouble(d.max) + "]");
}

}  // namespace

ParamSet::ParamSet() { reset(); }

void ParamSet::reset() {
  num_.assign(paramCount(), 0.0);
  for (int i = 0; i < paramCount(); ++i) num_[i] = paramDef(i).def;
  logFile_.clear();
}

int ParamSet::require(const std::string& name, ParamType want) const {
  int row = findParam(name);
  if (row < 0) fail(KLO_ERROR_UNKNOWN_PARAMETER, "Unknown parameter \"" + name + "\"");
  const ParamDef& d = paramDef(row);
  if (d.type != want)
    fail(KLO_ERROR_PARAMETER_TYPE,
         "Parameter \"" + name + "\" is of type " + typeName(d.type) + ", not " + typeName(want));
  return row;
}

int ParamSet::getInt(const std::string& name) const { return intAt(require(name, ParamType::Int)); }

double ParamSet::getDbl(const std::string& name) const {
  return num_[require(name, ParamType::Double)];
}

const std::string& ParamSet::getStr(const std::string& name) const {
  require(name, ParamType::String);
  return logFile_;
}

void ParamSet::setInt(const std::string& name, int value) {
  int row = require(name, ParamType::Int);
  checkRange(paramDef(row), value, std::to_string(value));
  num_[row] = value;
}

void ParamSet::setDbl(const std::string& name, double value) {
  int row = require(name, ParamType::Double);
  checkRange(paramDef(row), value, formatDouble(value));
  num_[row] = value;
}

void ParamSet::setStr(const std::string& name, const std::string& value) {
  require(name, ParamType::String);
  if (value.size() > static_cast<size_t>(kMaxStringParam))
    fail(KLO_ERROR_PARAMETER_RANGE, "Value of parameter \"" + name + "\" is longer than " +
                                        std::to_string(kMaxStringParam) + " characters");
  logFile_ = value;
}

void ParamSet::setFromText(const std::string& name, const std::string& text) {
  int row = findParam(name);
  if (row < 0) fail(KLO_ERROR_UNKNOWN_PARAMETER, "Unknown parameter \"" + name + "\"");
  ParamType t = paramDef(row).type;
  if (t == ParamType::String) return setStr(name, text);
  const char* s = text.c_str();
  char* end = nullptr;
  errno = 0;
  if (t == ParamType::Int) {
    long v = std::strtol(s, &end, 10);
    if (end == s || *end != '\0' || errno == ERANGE || v < -2147483647L - 1 || v > 2147483647L)
      fail(KLO_ERROR_INVALID_ARGUMENT,
           "Value \"" + text + "\" of parameter \"" + name + "\" is not an integer");
    return setInt(name, static_cast<int>(v));
  }
  double v = std::strtod(s, &end);
  if (end == s || *end != '\0')
    fail(KLO_ERROR_INVALID_ARGUMENT,
         "Value \"" + text + "\" of parameter \"" + name + "\" is not a number");
  setDbl(name, v);
}

std::vector<std::pair<std::string, std::string>> ParamSet::nonDefaults() const {
  std::vector<std::pair<std::string, std::string>> out;
  for (int i = 0; i < paramCount(); ++i) {
    const ParamDef& d = paramDef(i);
    if (d.type == ParamType::String) {
      if (!logFile_.empty()) out.emplace_back(d.name, logFile_);
    } else if (num_[i] != d.def) {
      out.emplace_back(d.name,
                       d.type == ParamType::Int ? std::to_string(intAt(i)) : formatDouble(num_[i]));
    }
  }
  return out;
}

}  // namespace klo
