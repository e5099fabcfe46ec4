// Bases in the MPS basis format (".bas").
#include <sstream>

#include "common/error.h"
#include "common/text.h"
#include "io/file_names.h"
#include "io/side_files.h"
#include "common/text_file.h"
#include "klo_c.h"

namespace klo {
namespace {

NameTable tableOf(const std::vector<std::string>& names) {
  NameTable t;
  for (const std::string& n : names) t.append(n);
  return t;
}

}  // namespace

Basis readBasisFile(const std::string& path, const ModelData& d) {
  NameTable cols = tableOf(fileNames(d.varNames, "C"));
  NameTable rows = tableOf(fileNames(d.rowNames, "R"));
  Basis b{std::vector<int>(d.numVars(), KLO_BASIS_LOWER),
          std::vector<int>(d.numRows(), KLO_BASIS_BASIC)};
  for (int j = 0; j < d.numVars(); ++j)
    if (d.lb[j] == d.ub[j]) b.cols[j] = KLO_BASIS_FIXED;
  std::istringstream in(readTextFile(path));
  std::string line;
  bool ended = false;
  for (int lineNo = 1; std::getline(in, line) && !ended; ++lineNo) {
    std::vector<std::string> w = splitWords(line);
    if (w.empty() || line[0] == '*') continue;
    std::string where = path + ":" + std::to_string(lineNo) + ": ";
    if (w[0] == "NAME") continue;
    if (w[0] == "ENDATA") {
      ended = true;
      continue;
    }
    const std::string& code = w[0];
    bool pair = code == "XU" || code == "XL";
    if (!(pair || code == "UL" || code == "LL" || code == "SB") || w.size() != (pair ? 3u : 2u))
      fail(KLO_ERROR_FILE_READ, where + "expected XU, XL, UL, LL or SB with its names");
    int j = cols.find(w[1]);
    int i = j < 0 && code == "SB" ? rows.find(w[1]) : -1;
    if (j < 0 && i < 0) fail(KLO_ERROR_FILE_READ, where + "unknown variable \"" + w[1] + "\"");
    if (i >= 0) {
      b.rows[i] = KLO_BASIS_SUPERBASIC;
      continue;
    }
    if (code == "SB") b.cols[j] = KLO_BASIS_SUPERBASIC;
    if (code == "UL") b.cols[j] = KLO_BASIS_UPPER;
    if (code == "LL") b.cols[j] = d.lb[j] == d.ub[j] ? KLO_BASIS_FIXED : KLO_BASIS_LOWER;
    if (!pair) continue;
    int r = rows.find(w[2]);
    if (r < 0) fail(KLO_ERROR_FILE_READ, where + "unknown constraint \"" + w[2] + "\"");
    b.cols[j] = KLO_BASIS_BASIC;
    b.rows[r] = code == "XU"                         ? KLO_BASIS_UPPER
                : d.rows[r].lower == d.rows[r].upper ? KLO_BASIS_FIXED
                                                     : KLO_BASIS_LOWER;
  }
  if (!ended) fail(KLO_ERROR_FILE_READ, path + ": missing ENDATA");
  return b;
}

void writeBasisFile(const std::string& path, const ModelData& d, const Basis& b) {
  std::vector<std::string> cols = fileNames(d.varNames, "C"), rows = fileNames(d.rowNames, "R");
  std::vector<int> nonbasicRows;
  for (int i = 0; i < d.numRows(); ++i)
    if (b.rows[i] != KLO_BASIS_BASIC && b.rows[i] != KLO_BASIS_SUPERBASIC)
      nonbasicRows.push_back(i);
  std::ostringstream out;
  out << "NAME klo\n";
  size_t next = 0;
  for (int j = 0; j < d.numVars(); ++j) {
    switch (b.cols[j]) {
      case KLO_BASIS_BASIC:
        if (next < nonbasicRows.size()) {
          int i = nonbasicRows[next++];
          out << (b.rows[i] == KLO_BASIS_UPPER ? " XU " : " XL ") << cols[j] << ' ' << rows[i]
              << '\n';
        }
        // A basic column without a partner row needs no line: the
        // format cannot say more about an inconsistent basis.
        break;
      case KLO_BASIS_UPPER: out << " UL " << cols[j] << '\n'; break;
      case KLO_BASIS_SUPERBASIC: out << " SB " << cols[j] << '\n'; break;
      default: break;  // at the lower bound: the default
    }
  }
  for (int i = 0; i < d.numRows(); ++i)
    if (b.rows[i] == KLO_BASIS_SUPERBASIC) out << " SB " << rows[i] << '\n';
  out << "ENDATA\n";
  writeTextFile(path, out.str());
}

}  // namespace klo
