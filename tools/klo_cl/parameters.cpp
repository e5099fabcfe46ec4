#include "parameters.h"

#include <klo_cpp.h>  // the parameter name tables
#include <strings.h>

#include <cerrno>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "library.h"
#include "options.h"
#include "parameter_meanings.h"

namespace klo_cl {

namespace {

constexpr int kIntParams = 39;
constexpr int kDoubleParams = 18;

// Index of name in table (letter case ignored), or -1.
int find(const char* const* table, int size, const std::string& name) {
  for (int i = 0; i < size; ++i)
    if (strcasecmp(table[i], name.c_str()) == 0) return i;
  return -1;
}

long parseInteger(const std::string& name, const std::string& text) {
  char* end = nullptr;
  errno = 0;
  long v = std::strtol(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != '\0' || errno == ERANGE || v < INT_MIN || v > INT_MAX)
    throw UsageError("parameter " + name + " takes a whole number, not '" + text + "'");
  return v;
}

double parseReal(const std::string& name, const std::string& text) {
  char* end = nullptr;
  double v = std::strtod(text.c_str(), &end);
  if (end == text.c_str() || *end != '\0' || std::isnan(v))
    throw UsageError("parameter " + name + " takes a number, not '" + text + "'");
  return v;
}

std::string real(double v) {
  char text[40];
  std::snprintf(text, sizeof text, "%g", v);
  return text;
}

std::string rangeText(const std::string& min, const std::string& max) {
  return "[" + min + ", " + max + "]";
}

void describe(std::ostream& out, const char* name, const char* type, const std::string& range,
              const std::string& def) {
  out << name << "\n  type     " << type << "\n";
  if (!range.empty()) out << "  range    " << range << "\n";
  out << "  default  " << def << "\n  meaning  " << parameterMeaning(name) << "\n";
}

}  // namespace

void describeParameter(KLOenv* env, const std::string& name, std::ostream& out) {
  if (int i = find(INT_PARNAMES, kIntParams, name); i >= 0) {
    int value, min, max, def;
    check(env, KLOgetintparaminfo(env, INT_PARNAMES[i], &value, &min, &max, &def));
    describe(out, INT_PARNAMES[i], "int", rangeText(std::to_string(min), std::to_string(max)),
             std::to_string(def));
  } else if (int d = find(DBL_PARNAMES, kDoubleParams, name); d >= 0) {
    double value, min, max, def;
    check(env, KLOgetdblparaminfo(env, DBL_PARNAMES[d], &value, &min, &max, &def));
    describe(out, DBL_PARNAMES[d], "double", rangeText(real(min), real(max)), real(def));
  } else if (strcasecmp(name.c_str(), "LogFile") == 0) {
    describe(out, "LogFile", "string", "", "\"\"");
  } else {
    throw UsageError("unknown parameter " + name + " (see klo_cl --help)");
  }
}

void setParameter(KLOenv* env, const std::string& name, const std::string& value) {
  if (int i = find(INT_PARNAMES, kIntParams, name); i >= 0) {
    const int v = int(parseInteger(INT_PARNAMES[i], value));
    check(env, KLOsetintparam(env, INT_PARNAMES[i], v));
  } else if (int d = find(DBL_PARNAMES, kDoubleParams, name); d >= 0) {
    check(env, KLOsetdblparam(env, DBL_PARNAMES[d], parseReal(DBL_PARNAMES[d], value)));
  } else if (strcasecmp(name.c_str(), "LogFile") == 0) {
    check(env, KLOsetstrparam(env, "LogFile", value.c_str()));
  } else {
    throw UsageError("unknown parameter " + name + " (see klo_cl --help)");
  }
}

void listParameters(KLOenv* env, std::ostream& out) {
  char line[160];
  std::snprintf(line, sizeof line, "  %-34s %-7s %12s  %s\n", "name", "type", "default", "range");
  out << line;
  for (int p = 0; p < kIntParams; ++p) {
    int value, min, max, def;
    check(env, KLOgetintparaminfo(env, INT_PARNAMES[p], &value, &min, &max, &def));
    std::snprintf(line, sizeof line, "  %-34s %-7s %12d  [%d, %d]\n", INT_PARNAMES[p], "int", def,
                  min, max);
    out << line;
  }
  for (int p = 0; p < kDoubleParams; ++p) {
    double value, min, max, def;
    check(env, KLOgetdblparaminfo(env, DBL_PARNAMES[p], &value, &min, &max, &def));
    std::snprintf(line, sizeof line, "  %-34s %-7s %12g  [%g, %g]\n", DBL_PARNAMES[p], "double",
                  def, min, max);
    out << line;
  }
  char value[512], def[512];
  check(env, KLOgetstrparaminfo(env, "LogFile", value, def));
  std::snprintf(line, sizeof line, "  %-34s %-7s ", "LogFile", "string");
  out << line << (def[0] ? def : "\"\"") << "\n";
}

}  // namespace klo_cl
