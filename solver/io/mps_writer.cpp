// Writes free-format MPS that readMps reads back to the same model: numbers
// with the fewest digits that read back exactly, names of any length.
#include <unordered_set>

#include "common/error.h"
#include "common/text.h"
#include "common/text_file.h"
#include "io/file_names.h"
#include "io/mps.h"
#include "klo_c.h"

namespace klo {
namespace {

void refuseWhatMpsCannotHold(const std::string& path, const ModelData& d) {
  const char* what = nullptr;
  for (const Row& r : d.rows) {
    if (r.lower > r.upper) what = "rows whose lower bound is above the upper one";
    if (r.hasPsd()) what = "PSD terms";
  }
  if (!d.psdVars.empty()) what = "PSD variables";
  if (!d.indicators.empty()) what = "indicator constraints";
  if (d.objectives.size() > 1) what = "several objectives";
  for (char t : d.type) what = t == 'N' ? "semi-integer variables" : what;
  if (what)
    fail(KLO_ERROR_NOT_SUPPORTED, "Cannot write \"" + path +
                                      "\": the MPS writer does not support " + what +
                                      " (write an .lp file)");
}

// A row as MPS has it: a type, a right-hand side and maybe a range.
struct MpsRowForm {
  char type;
  double rhs;
  double range = 0;
  bool hasRange = false;
};

// A range row [lo, up]: the right-hand side and R = up - lo, in the form,
// G (lo, R) or L (up, R), that reads back exactly where one does (in some
// ranges neither does: a bound comes back a unit in the last place off).
MpsRowForm rangeForm(double lo, double up) {
  double width = up - lo;
  if (lo + width == up) return {'G', lo, width, true};
  return {'L', up, width, true};
}

// A free row is an L row whose right-hand side is 1e20 (no bound), since
// the reader drops N rows after the first.
MpsRowForm rowForm(const Row& r) {
  if (r.lower <= -KLO_INFINITY) return {'L', r.upper};
  if (r.upper >= KLO_INFINITY) return {'G', r.lower};
  if (r.lower == r.upper) return {'E', r.lower};
  return rangeForm(r.lower, r.upper);
}

class MpsWriter {
 public:
  explicit MpsWriter(const ModelData& d)
      : d_(d), cols_(fileNames(d.varNames, "C")), rows_(fileNames(d.rowNames, "R")) {
    std::unordered_set<std::string> taken(rows_.begin(), rows_.end());
    while (taken.count(objName_)) objName_ += "_";
    for (const Row& r : d.rows) forms_.push_back(rowForm(r));
  }

  std::string text() {
    std::string name = d_.name.empty() ? "" : " " + problemName();
    out_ = "NAME" + name + "\n";
    if (d_.sense == -1) out_ += "OBJSENSE\n    MAX\n";
    rowSection();
    columnSection();
    rhsSection();
    rangeSection();
    boundSection();
    sosSection();
    quadSections();
    out_ += "ENDATA\n";
    return std::move(out_);
  }

 private:
  std::string problemName() const {
    NameTable t;
    t.append(d_.name);
    std::string n = fileNames(t, "")[0];
    return n == "0" ? "BLANK" : n;
  }

  void line(const std::string& a, const std::string& b, double v) {
    out_ += "    " + a + "  " + b + "  " + formatDouble(v) + "\n";
  }

  void rowSection() {
    out_ += "ROWS\n N  " + objName_ + "\n";
    for (int i = 0; i < d_.numRows(); ++i)
      out_ += std::string(" ") + forms_[i].type + "  " + rows_[i] + "\n";
  }

  void columnSection();
  void rhsSection();
  void rangeSection();
  void boundSection();
  void bounds(int j);
  void bound(const char* type, int j, double v);
  void bound(const char* type, int j);
  void sosSection();
  void quadSections();

  const ModelData& d_;
  std::vector<std::string> cols_, rows_;
  std::string objName_ = "OBJ";
  std::vector<MpsRowForm> forms_;
  std::string out_;
};

// Columns by column from the rows, integer ones between markers (an
// integer column without bounds reads as binary: boundSection says so).
void MpsWriter::columnSection() {
  std::vector<std::vector<std::pair<int, double>>> byColumn(d_.numVars());
  for (int i = 0; i < d_.numRows(); ++i)
    for (int k = 0; k < d_.rows[i].lin.size(); ++k)
      byColumn[d_.rows[i].lin.ind[k]].emplace_back(i, d_.rows[i].lin.val[k]);
  out_ += "COLUMNS\n";
  bool marked = false;
  for (int j = 0; j < d_.numVars(); ++j) {
    bool integer = d_.type[j] == 'I' || d_.type[j] == 'B';
    if (integer != marked)
      out_ += std::string("    MARKER  'MARKER'  ") + (integer ? "'INTORG'\n" : "'INTEND'\n");
    marked = integer;
    if (d_.obj()[j] != 0 || byColumn[j].empty()) line(cols_[j], objName_, d_.obj()[j]);
    for (const auto& [i, a] : byColumn[j]) line(cols_[j], rows_[i], a);
  }
  if (marked) out_ += "    MARKER  'MARKER'  'INTEND'\n";
}

void MpsWriter::rhsSection() {
  out_ += "RHS\n";
  if (d_.objectives[0].constant != 0) line("RHS", objName_, -d_.objectives[0].constant);
  for (int i = 0; i < d_.numRows(); ++i)
    if (forms_[i].rhs != 0) line("RHS", rows_[i], forms_[i].rhs);
}

void MpsWriter::rangeSection() {
  bool any = false;
  for (const MpsRowForm& f : forms_) any = any || f.hasRange;
  if (!any) return;
  out_ += "RANGES\n";
  for (int i = 0; i < d_.numRows(); ++i)
    if (forms_[i].hasRange) line("RNG", rows_[i], forms_[i].range);
}

void MpsWriter::boundSection() {
  size_t before = out_.size();
  out_ += "BOUNDS\n";
  size_t header = out_.size();
  for (int j = 0; j < d_.numVars(); ++j) bounds(j);
  if (out_.size() == header) out_.resize(before);
}

void MpsWriter::bound(const char* type, int j, double v) {
  out_ += std::string(" ") + type + " BND  " + cols_[j] + "  " + formatDouble(v) + "\n";
}

void MpsWriter::bound(const char* type, int j) {
  out_ += std::string(" ") + type + " BND  " + cols_[j] + "\n";
}

// From the reader's defaults: [0, infinity], and [0, 1] for an integer
// column no bound names.  LO 0 goes before a negative UP, which would
// otherwise make the lower bound -infinity; SC 0 reads as no upper bound,
// so an upper bound of 0 follows SC as UP.
void MpsWriter::bounds(int j) {
  double lb = d_.lb[j], ub = d_.ub[j];
  bool integer = d_.type[j] == 'I' || d_.type[j] == 'B', semi = d_.type[j] == 'S';
  bool noLower = lb <= -KLO_INFINITY, noUpper = ub >= KLO_INFINITY;
  if (integer && lb == 0 && ub == 1) return;
  if (!semi && lb == ub) return bound("FX", j, lb);
  if (!semi && noLower && noUpper) return bound("FR", j);
  if (noLower)
    bound("MI", j);
  else if (lb != 0 || (ub < 0 && !semi))
    bound("LO", j, lb);
  if (semi) {
    bound("SC", j, ub != 0 ? ub : KLO_INFINITY);
    if (ub == 0) bound("UP", j, 0);
  } else if (!noUpper) {
    bound("UP", j, ub);
  } else if (integer && lb == 0) {
    bound("PL", j);
  }
}

void MpsWriter::sosSection() {
  if (d_.sos.empty()) return;
  out_ += "SOS\n";
  for (const Sos& s : d_.sos) {
    out_ += s.type == 2 ? " S2\n" : " S1\n";
    for (size_t m = 0; m < s.members.size(); ++m)
      out_ += "    " + cols_[s.members[m]] + ":" + formatDouble(s.weights[m]) + "\n";
  }
}

// QUADOBJ: one triangle of Q in 1/2 x'Qx.  QCMATRIX: all of a row's Q in
// x'Qx, each off-diagonal term split evenly between its two entries.
void MpsWriter::quadSections() {
  if (d_.qobj.size() > 0) out_ += "QUADOBJ\n";
  for (int k = 0; k < d_.qobj.size(); ++k) {
    int i = d_.qobj.row[k], j = d_.qobj.col[k];
    line(cols_[i], cols_[j], i == j ? 2 * d_.qobj.val[k] : d_.qobj.val[k]);
  }
  for (int r = 0; r < d_.numRows(); ++r) {
    if (!d_.rows[r].hasQuad()) continue;
    const QuadTerms& q = d_.rows[r].nl->quad;
    out_ += "QCMATRIX " + rows_[r] + "\n";
    for (int k = 0; k < q.size(); ++k) {
      int i = q.row[k], j = q.col[k];
      if (i == j) {
        line(cols_[i], cols_[j], q.val[k]);
      } else {
        line(cols_[i], cols_[j], q.val[k] / 2);
        line(cols_[j], cols_[i], q.val[k] / 2);
      }
    }
  }
}

}  // namespace

void writeMps(const std::string& path, const ModelData& d) {
  refuseWhatMpsCannotHold(path, d);
  writeTextFile(path, MpsWriter(d).text());
}

}  // namespace klo
