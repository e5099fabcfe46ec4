// Small text helpers shared by the file readers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace klo {

std::string trim(const std::string& s);
// Whitespace-separated words of s.
std::vector<std::string> splitWords(const std::string& s);
bool endsWith(const std::string& s, const std::string& suffix);
// Parses the whole of s as a decimal number: [sign] digits [. digits]
// [e [sign] digits], with a digit before the exponent.  False for anything
// else ("e5", ".", "-", "1e", "inf", hexadecimal) and for a value a double
// cannot hold (1e400).
bool parseDouble(std::string_view s, double& out);
// The shortest "%g" text (15 to 17 digits) that reads back as the same
// double.
std::string formatDouble(double v);

}  // namespace klo
