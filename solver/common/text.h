// Small text helpers shared by the file readers.
#pragma once

#include <string>
#include <vector>

namespace klo {

std::string trim(const std::string& s);
// Whitespace-separated words of s.
std::vector<std::string> splitWords(const std::string& s);
bool endsWith(const std::string& s, const std::string& suffix);
// Parses the whole of s as a number; false when it is not one.
bool parseDouble(const std::string& s, double& out);
// The shortest "%g" text (15 to 17 digits) that reads back as the same
// double.
std::string formatDouble(double v);

}  // namespace klo
