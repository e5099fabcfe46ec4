#include <CoinMpsIO.hpp>
#include <CoinPackedMatrix.hpp>

#include <sstream>

#include "common/error.h"
#include "common/text.h"
#include "io/file_names.h"
#include "io/mps.h"
#include "common/text_file.h"
#include "klo_c.h"

namespace klo {
namespace {

void refuseWhatMpsCannotHold(const std::string& path, const ModelData& d) {
  const char* what = nullptr;
  for (const Row& r : d.rows)
    what = r.hasQuad() ? "quadratic constraints" : r.hasPsd() ? "PSD terms" : what;
  if (!d.psdVars.empty()) what = "PSD variables";
  if (!d.indicators.empty()) what = "indicator constraints";
  if (d.objectives.size() > 1) what = "several objectives";
  for (char t : d.type) what = t == 'N' ? "semi-integer variables" : what;
  if (what)
    fail(KLO_ERROR_NOT_SUPPORTED, "Cannot write \"" + path +
                                      "\": the MPS writer does not support " + what +
                                      " (write an .lp file)");
}

CoinPackedMatrix columnMatrix(const ModelData& d) {
  std::vector<int> rowInd, colInd;
  std::vector<double> val;
  for (int i = 0; i < d.numRows(); ++i)
    for (int k = 0; k < d.rows[i].lin.size(); ++k) {
      rowInd.push_back(i);
      colInd.push_back(d.rows[i].lin.ind[k]);
      val.push_back(d.rows[i].lin.val[k]);
    }
  CoinPackedMatrix m(true, rowInd.data(), colInd.data(), val.data(),
                     static_cast<CoinBigIndex>(val.size()));
  m.setDimensions(d.numRows(), d.numVars());
  return m;
}

// QUADOBJ lists one triangle of Q in  c'x + 1/2 x'Qx.
std::string quadSection(const ModelData& d, const std::vector<std::string>& names) {
  if (d.qobj.size() == 0) return "";
  std::ostringstream out;
  out << "QUADOBJ\n";
  for (int k = 0; k < d.qobj.size(); ++k) {
    int i = d.qobj.row[k], j = d.qobj.col[k];
    double q = i == j ? 2 * d.qobj.val[k] : d.qobj.val[k];
    out << "    " << names[i] << "  " << names[j] << "  " << formatDouble(q) << "\n";
  }
  return out.str();
}

std::string problemName(const std::string& name) {
  NameTable t;
  t.append(name);
  std::string n = fileNames(t, "")[0];
  return n == "0" ? "BLANK" : n;
}

}  // namespace

void writeMps(const std::string& path, const ModelData& d) {
  refuseWhatMpsCannotHold(path, d);
  std::vector<std::string> cols = fileNames(d.varNames, "C");
  std::vector<std::string> rows = fileNames(d.rowNames, "R");
  std::vector<double> rowLo(d.numRows()), rowUp(d.numRows());
  for (int i = 0; i < d.numRows(); ++i) {
    rowLo[i] = d.rows[i].lower;
    rowUp[i] = d.rows[i].upper;
  }
  std::vector<char> integer(d.numVars());
  for (int j = 0; j < d.numVars(); ++j)
    integer[j] = d.type[j] == 'I' || d.type[j] == 'B' ? 1 : d.type[j] == 'S' ? 3 : 0;
  // The char* form: the std::string overload of setMpsData leaks the names.
  std::vector<const char*> colPtr, rowPtr;
  for (const std::string& n : cols) colPtr.push_back(n.c_str());
  for (const std::string& n : rows) rowPtr.push_back(n.c_str());
  CoinMpsIO io;
  io.setMpsData(columnMatrix(d), KLO_INFINITY, d.lb.data(), d.ub.data(), d.obj().data(),
                integer.data(), rowLo.data(), rowUp.data(), colPtr.data(), rowPtr.data());
  io.copyInIntegerInformation(integer.data());
  io.setProblemName(problemName(d.name).c_str());
  io.setObjectiveOffset(-d.objectives[0].constant);
  std::vector<CoinSet> sets;  // CoinMpsIO indexes a plain CoinSet array
  for (const Sos& s : d.sos)
    sets.push_back(
        CoinSosSet(static_cast<int>(s.members.size()), s.members.data(), s.weights.data(), s.type));

  TempPath tmp;
  io.messageHandler()->setLogLevel(0);
  if (io.writeMps(tmp.path().c_str(), 0, 1, 2, nullptr, static_cast<int>(sets.size()),
                  sets.empty() ? nullptr : sets.data()) != 0)
    fail(KLO_ERROR_FILE_WRITE, "Cannot write \"" + path + "\"");
  std::string text = readTextFile(tmp.path());
  // CoinMpsIO writes neither the sense nor QUADOBJ after SOS (its reader
  // drops sets that follow QUADOBJ): add both.
  if (d.sense == -1) {
    size_t eol = text.find('\n');
    text.insert(eol == std::string::npos ? text.size() : eol + 1, "OBJSENSE\n    MAX\n");
  }
  size_t end = text.rfind("ENDATA");
  text.insert(end == std::string::npos ? text.size() : end, quadSection(d, cols));
  writeTextFile(path, text);
}

}  // namespace klo
