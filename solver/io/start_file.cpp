// Start values (".mst") and solutions (".sol").
#include <sstream>

#include "common/error.h"
#include "common/text.h"
#include "common/text_file.h"
#include "io/file_names.h"
#include "io/side_files.h"
#include "klo_c.h"

namespace klo {
namespace {

std::string valueLines(const ModelData& d, const std::vector<double>& x, bool skipUndefined) {
  std::vector<std::string> names = fileNames(d.varNames, "C");
  std::ostringstream out;
  for (int j = 0; j < d.numVars(); ++j)
    if (!skipUndefined || x[j] != KLO_UNDEFINED)
      out << names[j] << ' ' << formatDouble(x[j]) << '\n';
  return out.str();
}

}  // namespace

std::vector<double> readStartFile(const std::string& path, const ModelData& d) {
  std::vector<double> start = d.start;
  std::vector<std::string> names = fileNames(d.varNames, "C");
  NameTable lookup;
  for (const std::string& n : names) lookup.append(n);
  std::istringstream in(readTextFile(path));
  std::string line;
  for (int lineNo = 1; std::getline(in, line); ++lineNo) {
    std::vector<std::string> w = splitWords(line.substr(0, line.find('#')));
    if (w.empty()) continue;
    std::string where = path + ":" + std::to_string(lineNo) + ": ";
    double v = 0;
    if (w.size() != 2 || !parseDouble(w[1], v))
      fail(KLO_ERROR_FILE_READ, where + "expected \"name value\"");
    int j = lookup.find(w[0]);
    if (j < 0) fail(KLO_ERROR_FILE_READ, where + "unknown variable \"" + w[0] + "\"");
    start[j] = v;
  }
  return start;
}

void writeStartFile(const std::string& path, const ModelData& d, const std::vector<double>& x) {
  writeTextFile(path, "# MIP start\n" + valueLines(d, x, true));
}

void writeSolutionFile(const std::string& path, const ModelData& d, double objective,
                       const std::vector<double>& x) {
  writeTextFile(path,
                "# Objective value = " + formatDouble(objective) + "\n" + valueLines(d, x, false));
}

}  // namespace klo
