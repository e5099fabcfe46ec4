#include <cctype>
#include <cmath>
#include <sstream>

#include "common/error.h"
#include "common/text.h"
#include "io/file_names.h"
#include "io/lp.h"
#include "common/text_file.h"
#include "klo_c.h"

namespace klo {
namespace {

// Characters the LP format uses as operators, and words it reserves.
const char* const kForbidden = "\\:+-*/^<>=[](){},;\"'";

// Words a reader could take for a section header or a bound.
const char* const kKeywords[] = {"minimize",
                                 "minimise",
                                 "minimum",
                                 "min",
                                 "maximize",
                                 "maximise",
                                 "maximum",
                                 "max",
                                 "subject",
                                 "such",
                                 "st",
                                 "s.t.",
                                 "st.",
                                 "bounds",
                                 "bound",
                                 "general",
                                 "generals",
                                 "gen",
                                 "integer",
                                 "integers",
                                 "binary",
                                 "binaries",
                                 "bin",
                                 "semi-continuous",
                                 "semicontinuous",
                                 "semis",
                                 "semi",
                                 "sos",
                                 "end",
                                 "free",
                                 "inf",
                                 "infinity"};

// fileNames, also replacing names a reader would take for numbers or
// keywords.
std::vector<std::string> lpNames(const NameTable& t, const std::string& prefix) {
  NameTable clean;
  for (int i = 0; i < t.size(); ++i) {
    std::string n = t.get(i), low;
    for (char c : n) low += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    bool number = !n.empty() && (std::isdigit(static_cast<unsigned char>(n[0])) || n[0] == '.');
    bool keyword = false;
    for (const char* k : kKeywords) keyword = keyword || low == k;
    clean.append(number || keyword ? "" : n);
  }
  return fileNames(clean, prefix, kForbidden);
}

std::string num(double v) {
  if (v >= KLO_INFINITY) return "inf";
  if (v <= -KLO_INFINITY) return "-inf";
  return formatDouble(v);
}

void term(std::ostream& out, double c, const std::string& what) {
  out << (c < 0 ? " - " : " + ") << formatDouble(c < 0 ? -c : c) << ' ' << what;
}

void linear(std::ostream& out, const SparseVec& v, const std::vector<std::string>& names) {
  for (int k = 0; k < v.size(); ++k) term(out, v.val[k], names[v.ind[k]]);
}

// Quadratic terms inside [ ]; scale 2 with "/ 2" for the objective.
void quadratic(std::ostream& out, const QuadTerms& q, const std::vector<std::string>& names,
               double scale) {
  if (q.size() == 0) return;
  out << " + [";
  for (int k = 0; k < q.size(); ++k) {
    std::string what =
        q.row[k] == q.col[k] ? names[q.row[k]] + " ^ 2" : names[q.row[k]] + " * " + names[q.col[k]];
    term(out, scale * q.val[k], what);
  }
  out << " ]" << (scale == 2 ? " / 2" : "");
}

void objective(std::ostream& out, const ModelData& d, const std::vector<std::string>& cols) {
  out << (d.sense == -1 ? "Maximize\n" : "Minimize\n") << " obj:";
  // Every variable appears, zeros included, so that a reader meets the
  // variables in their order.
  for (int j = 0; j < d.numVars(); ++j) term(out, d.obj()[j], cols[j]);
  quadratic(out, d.qobj, cols, 2);
  double constant = d.objectives[0].constant;
  if (constant != 0) out << (constant < 0 ? " - " : " + ") << formatDouble(std::fabs(constant));
  out << "\n";
}

void rows(std::ostream& out, const ModelData& d, const std::vector<std::string>& cols,
          const std::vector<std::string>& rowNames) {
  out << "Subject To\n";
  for (int i = 0; i < d.numRows(); ++i) {
    const Row& r = d.rows[i];
    out << ' ' << rowNames[i] << ':';
    bool range = r.lower != r.upper && r.lower > -KLO_INFINITY && r.upper < KLO_INFINITY;
    bool free = r.lower <= -KLO_INFINITY && r.upper >= KLO_INFINITY;
    if (range || free) out << ' ' << num(r.lower) << " <=";
    linear(out, r.lin, cols);
    if (r.nl) quadratic(out, r.nl->quad, cols, 1);
    if (r.lin.size() == 0 && !r.hasQuad()) out << " 0";
    if (range || free)
      out << " <= " << num(r.upper);
    else if (r.lower == r.upper)
      out << " = " << num(r.upper);
    else if (r.lower > -KLO_INFINITY)
      out << " >= " << num(r.lower);
    else
      out << " <= " << num(r.upper);
    out << "\n";
  }
  NameTable labels;
  for (const Indicator& ic : d.indicators) labels.append(ic.name);
  std::vector<std::string> indNames = lpNames(labels, "I");
  for (size_t g = 0; g < d.indicators.size(); ++g) {
    const Indicator& ic = d.indicators[g];
    out << " " << indNames[g] << ": " << cols[ic.binVar] << " = " << ic.binVal << " ->";
    linear(out, ic.lin, cols);
    out << ' '
        << (ic.sense == '<'   ? "<="
            : ic.sense == '>' ? ">="
                              : "=")
        << ' ' << num(ic.rhs) << "\n";
  }
}

void bounds(std::ostream& out, const ModelData& d, const std::vector<std::string>& cols) {
  out << "Bounds\n";
  for (int j = 0; j < d.numVars(); ++j) {
    double lb = d.lb[j], ub = d.ub[j];
    if (lb <= -KLO_INFINITY && ub >= KLO_INFINITY)
      out << ' ' << cols[j] << " free\n";
    else if (lb == ub)
      out << ' ' << cols[j] << " = " << num(lb) << "\n";
    else
      out << ' ' << num(lb) << " <= " << cols[j] << " <= " << num(ub) << "\n";
  }
}

void typeSection(std::ostream& out, const ModelData& d, const std::vector<std::string>& cols,
                 const char* header, const std::string& types) {
  std::ostringstream list;
  for (int j = 0; j < d.numVars(); ++j)
    if (types.find(d.type[j]) != std::string::npos) list << ' ' << cols[j] << "\n";
  if (!list.str().empty()) out << header << "\n" << list.str();
}

void sets(std::ostream& out, const ModelData& d, const std::vector<std::string>& cols) {
  if (d.sos.empty()) return;
  out << "SOS\n";
  for (size_t s = 0; s < d.sos.size(); ++s) {
    out << " s" << s << ": S" << d.sos[s].type << " ::";
    for (size_t m = 0; m < d.sos[s].members.size(); ++m)
      out << ' ' << cols[d.sos[s].members[m]] << ':' << formatDouble(d.sos[s].weights[m]);
    out << "\n";
  }
}

}  // namespace

void writeLp(const std::string& path, const ModelData& d) {
  if (!d.psdVars.empty())
    fail(KLO_ERROR_NOT_SUPPORTED,
         "Cannot write \"" + path + "\": the LP format has no PSD variables");
  if (d.objectives.size() > 1)
    fail(KLO_ERROR_NOT_SUPPORTED,
         "Cannot write \"" + path + "\": several objectives are not supported in LP files");
  std::vector<std::string> cols = lpNames(d.varNames, "C"), rowNames = lpNames(d.rowNames, "R");
  std::ostringstream out;
  out.precision(17);
  out << "\\ Problem name: " << d.name << "\n";
  objective(out, d, cols);
  rows(out, d, cols, rowNames);
  bounds(out, d, cols);
  typeSection(out, d, cols, "Generals", "IN");
  typeSection(out, d, cols, "Binaries", "B");
  typeSection(out, d, cols, "Semi-continuous", "SN");
  sets(out, d, cols);
  out << "End\n";
  writeTextFile(path, out.str());
}

}  // namespace klo
