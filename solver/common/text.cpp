#include "common/text.h"

#include <charconv>
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

// The end of a run of digits starting at i.
size_t digitsEnd(std::string_view s, size_t i) {
  while (i < s.size() && isDigit(s[i])) ++i;
  return i;
}

size_t signEnd(std::string_view s, size_t i) {
  return i < s.size() && (s[i] == '+' || s[i] == '-') ? i + 1 : i;
}

// Whether s is a decimal number as parseDouble takes it: checked first,
// since from_chars also takes "inf", "nan" and stops at the first
// character it cannot use.
bool decimal(std::string_view s) {
  size_t i = signEnd(s, 0);
  size_t intEnd = digitsEnd(s, i);
  size_t digits = intEnd - i;
  i = intEnd;
  if (i < s.size() && s[i] == '.') {
    size_t fracEnd = digitsEnd(s, i + 1);
    digits += fracEnd - i - 1;
    i = fracEnd;
  }
  if (digits == 0) return false;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    size_t expStart = signEnd(s, i + 1);
    i = digitsEnd(s, expStart);
    if (i == expStart) return false;
  }
  return i == s.size();
}

}  // namespace

bool parseDouble(std::string_view s, double& out) {
  if (!decimal(s)) return false;
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
