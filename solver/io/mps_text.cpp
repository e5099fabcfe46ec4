#include "io/mps_text.h"

#include <cctype>
#include <set>
#include <sstream>
#include <utility>
#include <vector>

#include "common/text.h"

namespace klo {

int objectiveSense(const std::string& text) {
  if (text.find("OBJSENSE") == std::string::npos) return 1;  // most files: skip the line scan
  std::istringstream in(text);
  std::string line;
  bool inSection = false;
  while (std::getline(in, line)) {
    std::vector<std::string> w = splitWords(line);
    if (w.empty()) continue;
    bool header = !std::isspace(static_cast<unsigned char>(line[0]));
    if (header && w[0] == "OBJSENSE") {
      if (w.size() > 1) return w[1].compare(0, 3, "MAX") == 0 ? -1 : 1;
      inSection = true;
    } else if (inSection) {
      return !header && w[0].compare(0, 3, "MAX") == 0 ? -1 : 1;
    }
  }
  return 1;
}

std::string markedFree(const std::string& text) {
  if (text.compare(0, 4, "NAME") != 0) return "NAME FREE\n" + text;
  size_t eol = text.find('\n');
  std::string name = text.substr(0, eol);
  if (name.find("FREE") != std::string::npos) return text;
  std::vector<std::string> w = splitWords(name);
  return "NAME " + (w.size() > 1 ? w[1] : std::string("BLANK")) + " FREE" +
         (eol == std::string::npos ? "" : text.substr(eol));
}

std::string withoutObjsense(std::string text) {
  if (text.find("OBJSENSE") == std::string::npos) return text;
  std::istringstream in(text);
  std::ostringstream out;
  bool inSection = false;
  for (std::string line; std::getline(in, line);) {
    bool header =
        !line.empty() && !std::isspace(static_cast<unsigned char>(line[0])) && line[0] != '*';
    if (header) inSection = splitWords(line)[0] == "OBJSENSE";
    out << (inSection ? "*" : line) << '\n';
  }
  return out.str();
}

std::string qmatrixAsQuadobj(std::string text) {
  if (text.find("QMATRIX") == std::string::npos) return text;
  std::istringstream in(text);
  std::ostringstream out;
  std::set<std::pair<std::string, std::string>> kept;
  bool inQmatrix = false;
  for (std::string line; std::getline(in, line);) {
    bool header =
        !line.empty() && !std::isspace(static_cast<unsigned char>(line[0])) && line[0] != '*';
    if (header) {
      inQmatrix = splitWords(line)[0] == "QMATRIX";
      out << (inQmatrix ? "QUADOBJ" : line) << '\n';
      continue;
    }
    std::vector<std::string> w = splitWords(line);
    if (inQmatrix && w.size() >= 2 && w[0] != w[1] && kept.count({w[1], w[0]})) {
      out << "*\n";  // the mirror of an entry already kept
      continue;
    }
    if (inQmatrix && w.size() >= 2) kept.insert({w[0], w[1]});
    out << line << '\n';
  }
  return out.str();
}

}  // namespace klo
