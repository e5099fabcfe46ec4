#include "common/text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace klo {

std::string trim(const std::string& s) {
  const char* ws = " \t\r\n\f\v";
  size_t b = s.find_first_not_of(ws);
  if (b == std::string::npos) return "";
  size_t e = s.find_last_not_of(ws);
  return s.substr(b, e - b + 1);
}

std::vector<std::string> splitWords(const std::string& s) {
  std::istringstream in(s);
  std::vector<std::string> out;
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

bool endsWith(const std::string& s, const std::string& suffix) {
  return s.size() >= suffix.size() &&
         s.compare(s.size() - suffix.size(), suffix.size(), suffix) == 0;
}

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// A decimal number's sign, its digits as an integer (while 19 fit) and
// the power of ten that scales them.
struct Decimal {
  bool negative = false;
  uint64_t mantissa = 0;
  int digits = 0;
  long exponent = 0;

  void add(char c) {
    if (digits++ < 19) mantissa = mantissa * 10 + static_cast<uint64_t>(c - '0');
  }
};

// Reads the whole of s as [sign] digits [. digits] [e [sign] digits] with
// a digit before the exponent.
bool readDecimal(std::string_view s, Decimal& d) {
  size_t i = 0, n = s.size();
  if (i < n && (s[i] == '+' || s[i] == '-')) d.negative = s[i++] == '-';
  for (; i < n && isDigit(s[i]); ++i) d.add(s[i]);
  if (i < n && s[i] == '.')
    for (++i; i < n && isDigit(s[i]); ++i, --d.exponent) d.add(s[i]);
  if (d.digits == 0) return false;
  if (i < n && (s[i] == 'e' || s[i] == 'E')) {
    bool negative = ++i < n && s[i] == '-';
    i += i < n && (s[i] == '+' || s[i] == '-') ? 1 : 0;
    size_t start = i;
    long e = 0;
    for (; i < n && isDigit(s[i]); ++i) e = std::min(e * 10 + (s[i] - '0'), 100000L);
    if (i == start) return false;
    d.exponent += negative ? -e : e;
  }
  return i == n;
}

// Exact when the digits fit in a double's 53 bits and the power of ten is
// exact too: one correctly rounded multiplication or division, the value
// from_chars gives (which the other numbers go to).
bool fastValue(const Decimal& d, double& out) {
  static constexpr double kPow10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                      1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                      1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  if (d.digits > 19 || d.mantissa > (uint64_t{1} << 53) || d.exponent < -22 || d.exponent > 22)
    return false;
  double m = static_cast<double>(d.mantissa);
  double v = d.exponent < 0 ? m / kPow10[-d.exponent] : m * kPow10[d.exponent];
  out = d.negative ? -v : v;
  return true;
}

}  // namespace

bool parseDouble(std::string_view s, double& out) {
  Decimal d;
  if (!readDecimal(s, d)) return false;  // from_chars would take "inf" and "nan"
  if (fastValue(d, out)) return true;
  const char* begin = s.data() + (s[0] == '+' ? 1 : 0);  // from_chars takes no '+'
  const char* end = s.data() + s.size();
  auto [stop, ec] = std::from_chars(begin, end, out);
  return ec == std::errc() && stop == end;  // out of range: beyond what a double holds
}

std::string formatDouble(double v) {
  char buf[32];
  // The fewest digits that read back as the same double: 0.01, not
  // 0.010000000000000000208.
  for (int digits = 15; digits <= 17; ++digits) {
    std::snprintf(buf, sizeof buf, "%.*g", digits, v);
    if (std::strtod(buf, nullptr) == v) break;
  }
  return buf;
}

}  // namespace klo
