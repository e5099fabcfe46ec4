#include "io/file_names.h"

#include <cctype>
#include <unordered_set>

namespace klo {
namespace {

bool usable(const std::string& n, const std::string& forbidden) {
  if (n.empty()) return false;
  for (unsigned char c : n)
    if (std::isspace(c) || !std::isprint(c) || forbidden.find(c) != std::string::npos) return false;
  return true;
}

}  // namespace

std::vector<std::string> fileNames(const NameTable& table, const std::string& prefix,
                                   const std::string& forbidden) {
  std::vector<std::string> out(table.size());
  std::unordered_set<std::string> seen;
  for (int i = 0; i < table.size(); ++i) {
    const std::string& n = table.get(i);
    if (usable(n, forbidden) && seen.insert(n).second) out[i] = n;
  }
  for (int i = 0; i < table.size(); ++i) {
    if (!out[i].empty()) continue;
    std::string g = prefix + std::to_string(i);
    while (!seen.insert(g).second) g += "_";
    out[i] = g;
  }
  return out;
}

}  // namespace klo
