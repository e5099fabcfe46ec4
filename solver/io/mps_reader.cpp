// Reads MPS files section by section into MpsParts.  A file is read in
// free format first and, when that fails, in fixed format (names with
// blanks); when both fail, the error of the reading that got further is
// reported.
#include <cstring>

#include "common/error.h"
#include "common/text.h"
#include "common/text_file.h"
#include "io/mps.h"
#include "io/mps_lines.h"
#include "io/mps_parts.h"

namespace klo {
namespace {

enum class Section { None, Objsense, Rows, Columns, Rhs, Ranges, Bounds, Sos, Quad, Endata };

// Sections come by rank (those of rank 3 in any order), each once, except
// OBJSENSE (anywhere) and the quadratic sections of rows (once a row).
struct Header {
  const char* key;
  Section section;
  int rank;
  bool once;
};
constexpr Header kHeaders[] = {
    {"NAME", Section::None, 0, true},      {"OBJSENSE", Section::Objsense, -1, true},
    {"ROWS", Section::Rows, 1, true},      {"COLUMNS", Section::Columns, 2, true},
    {"RHS", Section::Rhs, 3, true},        {"RANGES", Section::Ranges, 3, true},
    {"BOUNDS", Section::Bounds, 3, true},  {"SOS", Section::Sos, 3, true},
    {"QUADOBJ", Section::Quad, 3, true},   {"QMATRIX", Section::Quad, 3, true},
    {"QSECTION", Section::Quad, 3, false}, {"QCMATRIX", Section::Quad, 3, false},
    {"ENDATA", Section::Endata, 4, true}};
constexpr int kHeaderCount = sizeof kHeaders / sizeof kHeaders[0];

// How a quadratic section's entry v at (i, j) becomes a store term (each
// term once, no factor 1/2).  QUADOBJ lists one triangle of Q in
// 1/2 x'Qx, QMATRIX all of it.  QCMATRIX (and QSECTION) lists all of a
// row's Q in  a'x + x'Qx: the factor 1/2 belongs to the objective's
// convention, where it makes Qx the gradient; a row is read as written.
// On the objective row they are read as QMATRIX.
enum class QuadForm { Triangle, Full, RowFull };

double quadScale(QuadForm form, int i, int j) {
  if (form == QuadForm::Triangle) return i == j ? 0.5 : 1.0;
  return form == QuadForm::Full ? 0.5 : 1.0;
}

// NAME's first word: files put remarks after it (and some writers "FREE"
// to mark free format).
std::string problemName(std::string_view rest) {
  return std::string(rest.substr(0, rest.find_first_of(" \t")));
}

class MpsReader {
 public:
  MpsReader(const std::string& text, const std::string& path, bool fixed)
      : path_(path), lines_(text, fixed, path) {}

  ModelData read() {
    MpsLine l;
    while (section_ != Section::Endata) {
      if (!lines_.next(l))
        failAt(path_, std::max(1, lines_.number()), "expected ENDATA, found the end of the file");
      line_ = &l;
      if (l.header)
        header();
      else
        data();
    }
    return parts_.build(path_);
  }

  // The line the reading got to.
  int line() const { return lines_.number(); }

 private:
  [[noreturn]] void bad(const std::string& what) const { failAt(path_, line_->number, what); }
  [[noreturn]] void badLine(const std::string& expected) const {
    bad("expected " + expected + ", found the line " + quoted(line_->text));
  }
  std::string_view field(int k) const { return line_->field[k]; }

  void header() {
    std::string_view key = field(0), rest = line_->count > 1 ? field(1) : "";
    if (section_ == Section::Objsense)
      bad("expected MIN or MAX after OBJSENSE, found " + quoted(key));
    int h = 0;
    while (h < kHeaderCount && key != kHeaders[h].key) ++h;
    if (h == kHeaderCount)
      bad("expected a section such as ROWS, COLUMNS, RHS or ENDATA, found " + quoted(key));
    checkOrder(h);
    section_ = kHeaders[h].section;
    if (key == "NAME")
      parts_.name = problemName(rest);
    else if (key == "OBJSENSE")
      objsense(rest);
    else if (section_ == Section::Quad)
      quadHeader(key, rest);
    else if (!rest.empty())
      bad("expected nothing after " + std::string(key) + ", found " + quoted(rest));
  }

  void checkOrder(int h) {
    const Header& s = kHeaders[h];
    if (s.once && (seen_ >> h & 1))
      bad(std::string("expected one ") + s.key + " section, found a second");
    if (s.rank >= 0 && s.rank < rank_)
      bad(std::string("expected ") + s.key + " before " + last_ + ", found it after");
    seen_ |= 1u << h;
    if (s.rank >= 0) rank_ = s.rank, last_ = s.key;
  }

  void objsense(std::string_view value) {
    if (!value.empty()) sense(value);  // "OBJSENSE MAX" on one line
  }

  void sense(std::string_view value) {
    if (value == "MIN" || value == "MINIMIZE")
      parts_.sense = 1;
    else if (value == "MAX" || value == "MAXIMIZE")
      parts_.sense = -1;
    else
      bad("expected MIN, MAX, MINIMIZE or MAXIMIZE, found " + quoted(value));
    section_ = Section::None;
  }

  void data() {
    switch (section_) {
      case Section::Objsense:
        if (line_->count != 1) badLine("MIN or MAX");
        return sense(field(0));
      case Section::Rows: return row();
      case Section::Columns: return column();
      case Section::Rhs: return rhs(false);
      case Section::Ranges: return rhs(true);
      case Section::Bounds: return bound();
      case Section::Sos: return sos();
      case Section::Quad: return quadEntry();
      default: badLine("a section such as ROWS or COLUMNS");
    }
  }

  double number(std::string_view text) const {
    double v = 0;
    if (!parseDouble(text, v)) bad("expected a number, found " + quoted(text));
    return v;
  }

  int rowNamed(std::string_view name) const {
    int r = parts_.row(name);
    if (r == MpsParts::kUnknown) bad("expected a row named in ROWS, found " + quoted(name));
    return r;
  }

  int columnNamed(std::string_view name) const {
    int j = parts_.column(name);
    if (j < 0) bad("expected a column named in COLUMNS, found " + quoted(name));
    return j;
  }

  void row() {
    if (line_->count != 2) badLine("a row type and a row name");
    std::string_view type = field(0);
    if (type.size() != 1 || !std::strchr("NLGE", type[0]))
      bad("expected a row type N, L, G or E, found " + quoted(type));
    if (!parts_.addRow(field(1), type[0])) bad("row " + quoted(field(1)) + " occurs twice");
  }

  void column() {
    int n = line_->count;
    if (n == 3 && field(1) == "'MARKER'") return marker(field(2));
    if (n != 3 && n != 5) badLine("a column, a row and a value, optionally a second row and value");
    std::string_view name = field(0);
    if (parts_.columns.empty() || parts_.columnNames.back() != name) {
      if (!parts_.addColumn(name, marked_)) bad("column " + quoted(name) + " occurs twice");
    }
    for (int k = 1; k < n; k += 2) {
      int r = rowNamed(field(k));
      if (!parts_.addEntry(r, number(field(k + 1))))
        bad("row " + quoted(field(k)) + " occurs twice in column " + quoted(name));
    }
  }

  void marker(std::string_view kind) {
    if (kind != "'INTORG'" && kind != "'INTEND'")
      bad("expected 'INTORG' or 'INTEND' after 'MARKER', found " + quoted(kind));
    bool start = kind == "'INTORG'";
    if (start == marked_)
      bad(std::string("expected ") + (marked_ ? "'INTEND'" : "'INTORG'") + ", found " +
          quoted(kind));
    marked_ = start;
  }

  // RHS and RANGES lines: [set] row value [row value].
  void rhs(bool range) {
    int n = line_->count;
    if (n < 2 || n > 5) badLine("[set] row value [row value]");
    int first = n % 2;
    if (first) sameSet(range ? rangeSet_ : rhsSet_, field(0));
    for (int k = first; k < n; k += 2) {
      int r = rowNamed(field(k));
      double v = number(field(k + 1));
      if (range)
        setRange(r, field(k), v);
      else
        setRhs(r, field(k), v);
    }
  }

  // One set of each kind is read: a second would be silently lost.
  void sameSet(std::string_view& set, std::string_view name) const {
    if (set.empty()) set = name;
    if (set != name)
      bad("expected the set " + quoted(set) + ", found " + quoted(name) +
          " (one set a section is read)");
  }

  void setRhs(int r, std::string_view name, double v) {
    if (r == MpsParts::kFreeRow) return;  // dropped with its row
    bool& given = r == MpsParts::kObjective ? parts_.hasObjectiveRhs : parts_.rows[r].hasRhs;
    if (given) bad("expected one RHS entry for row " + quoted(name) + ", found a second");
    given = true;
    (r == MpsParts::kObjective ? parts_.objectiveRhs : parts_.rows[r].rhs) = v;
  }

  void setRange(int r, std::string_view name, double v) {
    if (r < 0) bad("expected a row of type L, G or E, found the N row " + quoted(name));
    MpsRow& row = parts_.rows[r];
    if (row.hasRange) bad("expected one RANGES entry for row " + quoted(name) + ", found a second");
    row.hasRange = true;
    row.range = v;
  }

  void bound();
  void sos();
  void quadHeader(std::string_view key, std::string_view rest);
  void quadEntry();

  std::string path_;
  MpsLines lines_;
  const MpsLine* line_ = nullptr;
  MpsParts parts_;
  Section section_ = Section::None;
  unsigned seen_ = 0;
  int rank_ = 0;
  const char* last_ = "NAME";
  bool marked_ = false;
  std::string_view rhsSet_, rangeSet_, boundSet_;
  bool objectiveQuad_ = false;
  QuadForm quadForm_ = QuadForm::Triangle;
  int quad_ = -1;  // index in parts_.quads of the section being read, -1 to skip it
};

enum class BoundKind { Up, Lo, Fx, Fr, Mi, Pl, Bv, Li, Ui, Sc };
struct BoundType {
  const char* key;
  BoundKind kind;
  bool needsValue;  // the others may have a value: SC's is its upper bound, the rest mean nothing
};
constexpr BoundType kBoundTypes[] = {{"UP", BoundKind::Up, true},  {"LO", BoundKind::Lo, true},
                                     {"FX", BoundKind::Fx, true},  {"FR", BoundKind::Fr, false},
                                     {"MI", BoundKind::Mi, false}, {"PL", BoundKind::Pl, false},
                                     {"BV", BoundKind::Bv, false}, {"LI", BoundKind::Li, true},
                                     {"UI", BoundKind::Ui, true},  {"SC", BoundKind::Sc, false}};

// A negative upper bound on a column whose lower bound no entry has set
// makes the lower bound -infinity, as the format has it.  SC without a
// value, or with 0, leaves the upper bound infinite (0 would allow only 0).
void applyBound(MpsColumn& c, BoundKind kind, double v) {
  const double inf = KLO_INFINITY;
  switch (kind) {
    case BoundKind::Up:
    case BoundKind::Ui:
      c.ub = v;
      if (v < 0 && !c.lbSet) c.lb = -inf;
      break;
    case BoundKind::Lo:
    case BoundKind::Li: c.lb = v; break;
    case BoundKind::Fx: c.lb = c.ub = v; break;
    case BoundKind::Fr: c.lb = -inf, c.ub = inf; break;
    case BoundKind::Mi: c.lb = -inf; break;
    case BoundKind::Pl: c.ub = inf; break;
    case BoundKind::Bv: c.lb = 0, c.ub = 1; break;
    case BoundKind::Sc: c.semi = true, c.ub = v != 0 ? v : inf; break;
  }
  c.bounded = true;
  c.integer |= kind == BoundKind::Bv || kind == BoundKind::Li || kind == BoundKind::Ui;
  c.lbSet |= kind != BoundKind::Up && kind != BoundKind::Ui && kind != BoundKind::Pl &&
             kind != BoundKind::Sc;
}

// type [set] column [value]; where the value may be left out, three
// fields read as "type column value" when the last is a number.
void MpsReader::bound() {
  int n = line_->count;
  const BoundType* t = nullptr;
  for (const BoundType& b : kBoundTypes)
    if (field(0) == b.key) t = &b;
  if (!t)
    bad("expected a bound type UP, LO, FX, FR, MI, PL, BV, LI, UI or SC, found " +
        quoted(field(0)));
  double v = 0;
  bool hasValue = t->needsValue || n == 4 ||
                  (n == 3 && parts_.column(field(1)) >= 0 && parseDouble(field(2), v));
  int names = n - 1 - (hasValue ? 1 : 0);  // the set and the column, or the column
  if (names != 1 && names != 2)
    badLine(std::string("\"") + t->key + " [set] column" + (t->needsValue ? " value\"" : "\""));
  if (names == 2) sameSet(boundSet_, field(1));
  MpsColumn& c = parts_.columns[columnNamed(field(names))];
  if (hasValue) v = number(field(n - 1));
  applyBound(c, t->kind, v);
}

// A set starts with a line "S1" or "S2"; its members follow as
// "column weight" or "column:weight".
void MpsReader::sos() {
  int n = line_->count;
  if (field(0) == "S1" || field(0) == "S2") {
    if (n != 1) badLine("\"S1\" or \"S2\" alone");
    parts_.sets.push_back(MpsSos{line_->number, field(0)[1] - '0', {}, {}});
    return;
  }
  if (parts_.sets.empty()) badLine("a set type S1 or S2 before its members");
  std::string_view name = field(0), weight = n == 2 ? field(1) : "";
  size_t colon = name.rfind(':');
  if (n == 1 && colon != std::string_view::npos) {
    weight = name.substr(colon + 1);
    name = name.substr(0, colon);
  }
  if (n > 2 || weight.empty()) badLine("\"column weight\" or \"column:weight\"");
  MpsSos& s = parts_.sets.back();
  s.members.push_back(columnNamed(name));
  s.weights.push_back(number(weight));
}

void MpsReader::quadHeader(std::string_view key, std::string_view rest) {
  bool objective = key == "QUADOBJ" || key == "QMATRIX";
  if (objective && !rest.empty())
    bad("expected nothing after " + std::string(key) + ", found " + quoted(rest));
  int r = objective ? MpsParts::kObjective : rowNamed(rest);
  quadForm_ = key == "QUADOBJ"            ? QuadForm::Triangle
              : r == MpsParts::kObjective ? QuadForm::Full
                                          : QuadForm::RowFull;
  quad_ = -1;
  if (r == MpsParts::kFreeRow) return;  // dropped with its row
  bool& given = r == MpsParts::kObjective ? objectiveQuad_ : parts_.rows[r].hasQuad;
  if (given)
    bad("expected one quadratic section for " +
        (r == MpsParts::kObjective ? std::string("the objective") : "row " + quoted(rest)) +
        ", found a second");
  given = true;
  quad_ = static_cast<int>(parts_.quads.size());
  parts_.quads.emplace_back();
  parts_.quads.back().row = r;
  parts_.quads.back().line = line_->number;
}

void MpsReader::quadEntry() {
  if (line_->count != 3) badLine("two columns and a value");
  int i = columnNamed(field(0)), j = columnNamed(field(1));
  double v = number(field(2));
  if (quad_ < 0) return;
  MpsQuad& q = parts_.quads[quad_];
  q.r.push_back(i);
  q.c.push_back(j);
  q.v.push_back(v * quadScale(quadForm_, i, j));
}

}  // namespace

ModelData readMps(const std::string& path) {
  const std::string text = readTextFile(path);
  MpsReader freeFormat(text, path, false);
  try {
    return freeFormat.read();
  } catch (const Error&) {
    MpsReader fixedFormat(text, path, true);
    try {
      return fixedFormat.read();
    } catch (const Error&) {
      if (fixedFormat.line() > freeFormat.line()) throw;
    }
    throw;  // the free reading's error
  }
}

}  // namespace klo
