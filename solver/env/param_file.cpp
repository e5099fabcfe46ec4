#include "env/param_file.h"

#include <fstream>
#include <sstream>

#include "common/error.h"
#include "common/text.h"
#include "common/text_file.h"
#include "klo_c.h"

namespace klo {

ParamSet readParamFile(const std::string& path, const ParamSet& base) {
  std::istringstream in(readTextFile(path));
  ParamSet out = base;
  std::string line;
  for (int lineNo = 1; std::getline(in, line); ++lineNo) {
    std::string text = trim(line.substr(0, line.find('#')));
    if (text.empty()) continue;
    size_t gap = text.find_first_of(" \t");
    std::string name = text.substr(0, gap);
    std::string value = gap == std::string::npos ? "" : trim(text.substr(gap));
    try {
      if (value.empty()) fail(KLO_ERROR_FILE_READ, "parameter \"" + name + "\" has no value");
      out.setFromText(name, value);
    } catch (const Error& e) {
      fail(KLO_ERROR_FILE_READ, path + ":" + std::to_string(lineNo) + ": " + e.message);
    }
  }
  return out;
}

void writeParamFile(const std::string& path, const ParamSet& params) {
  std::ofstream out(path);
  if (!out) fail(KLO_ERROR_FILE_WRITE, "Cannot write parameter file \"" + path + "\"");
  out << "# Parameters that differ from their defaults\n";
  for (const auto& [name, value] : params.nonDefaults()) out << name << ' ' << value << '\n';
  out.flush();
  if (!out) fail(KLO_ERROR_FILE_WRITE, "Error writing parameter file \"" + path + "\"");
}

}  // namespace klo
