#include "format.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <type_traits>

namespace klo_fake {
namespace {

std::string formatChar(char c) {
  if (std::isprint(static_cast<unsigned char>(c))) return std::string("'") + c + "'";
  char buf[16];
  std::snprintf(buf, sizeof buf, "'\\x%02x'", static_cast<unsigned char>(c));
  return buf;
}

std::string formatText(const std::string& s) { return '"' + s + '"'; }

std::string formatScalar(long long i) { return std::to_string(i); }
std::string formatScalar(double d) { return formatDouble(d); }
std::string formatScalar(char c) { return formatChar(c); }
std::string formatScalar(const std::string& s) { return formatText(s); }

template <class T>
std::string formatArray(const std::vector<T>& items) {
  std::string s = "[";
  for (std::size_t k = 0; k < items.size(); ++k) {
    if (k > 0) s += ", ";
    if constexpr (std::is_same_v<T, int>) {
      s += formatScalar(static_cast<long long>(items[k]));
    } else {
      s += formatScalar(items[k]);
    }
  }
  return s + "]";
}

struct Formatter {
  std::string operator()(const Null&) const { return "null"; }
  std::string operator()(const Pointer&) const { return "ptr"; }
  template <class T>
  std::string operator()(const std::vector<T>& items) const {
    return formatArray(items);
  }
  template <class T>
  std::string operator()(const T& scalar) const {
    return formatScalar(scalar);
  }
};

}  // namespace

std::string formatDouble(double d) {
  char buf[32];
  if (!std::isfinite(d)) {
    std::snprintf(buf, sizeof buf, "%g", d);
    return buf;
  }
  for (int digits = 1; digits <= 17; ++digits) {
    std::snprintf(buf, sizeof buf, "%.*g", digits, d);
    if (std::strtod(buf, nullptr) == d) break;
  }
  return buf;
}

std::string format(const Value& v) { return std::visit(Formatter{}, v); }

const char* kindName(const Value& v) {
  static const char* const kinds[] = {"null",       "pointer",     "int",       "double",
                                      "char",       "string",      "int array", "double array",
                                      "char array", "string array"};
  static_assert(std::size(kinds) == std::variant_size_v<Value>);
  return kinds[v.index()];
}

}  // namespace klo_fake
