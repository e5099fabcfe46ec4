// The MPS reader and writer of the library: what a file is refused for
// (and how the message reads), numbers, bound rules, fixed format, names
// of any length and the quadratic sections.
#include <cmath>
#include <string>
#include <vector>

#include "fixtures.h"
#include "io/mps.h"
#include "store/edit.h"

namespace {

using klo::ModelData;
using klotest::TempFile;

const double kInf = KLO_INFINITY;
// Lines 1-5; a test's own lines start at 6.
const std::string kHead = "NAME t\nROWS\n N obj\n L c\nCOLUMNS\n";

ModelData readText(const std::string& text) {
  TempFile file(".mps");
  file.write(text);
  return klo::readMps(file.path());
}

// The message of the refusal, with the path replaced by "f".
std::string refusal(const std::string& text) {
  TempFile file(".mps");
  file.write(text);
  const klo::Error e = klotest::thrown([&] { klo::readMps(file.path()); });
  EXPECT_EQ(e.code, KLO_ERROR_FILE_READ);
  return e.message.compare(0, file.path().size(), file.path()) == 0
             ? "f" + e.message.substr(file.path().size())
             : e.message;
}

struct Bad {
  std::string text;
  std::string says;  // the message from its line number on
};

TEST(MpsReader, MalformedFilesAreRefusedWithLineAndWhatWasFound) {
  const std::string two = kHead + "    x obj 1 c 1\n    y c 1\n";  // lines 6-7
  const std::string longName(200, 'n');
  const Bad cases[] = {
      {"ROWS\n N obj\nNAME t\nENDATA\n", "3: expected NAME before ROWS, found it after"},
      {"NAME t\nROWS\n N obj\n N obj\nENDATA\n", "4: row \"obj\" occurs twice"},
      {"NAME t\nROWS\n N obj\n Q c1\nENDATA\n", "4: expected a row type"},
      {"NAME t\nROWS\n N obj\n L c\n G c\nENDATA\n", "5: row \"c\" occurs twice"},
      {two + "    x c 2\nENDATA\n", "8: column \"x\" occurs twice"},
      {kHead + "    x c 1 c 2\nENDATA\n", "6: row \"c\" occurs twice in column \"x\""},
      {two + "SOS\n S1\n    x:1\n    x:2\nENDATA\n", "9: A variable occurs twice in one SOS set"},
      {two + "RHS\n    rhs c 1\n    other c 2\nENDATA\n",
       "10: expected the set \"rhs\", found \"other\" (one set a section is read)"},
      {two + "RHS\n    rhs c 1 c 2\nENDATA\n", "9: expected one RHS entry for row \"c\""},
      {two + "RANGES\n    rng obj 2\nENDATA\n", "9: expected a row of type L, G or E"},
      {two + "BOUNDS\n XX b x 1\nENDATA\n", "9: expected a bound type UP, LO, FX"},
      {two + "BOUNDS\n UP b z 1\nENDATA\n", "9: expected a column named in COLUMNS"},
      {two + "QUADOBJ\n    x x 1\nQMATRIX\n    y y 1\nENDATA\n",
       "10: expected one quadratic section for the objective"},
      {two + "QCMATRIX d\n    x x 1\nENDATA\n", "8: expected a row named in ROWS, found \"d\""},
      {two + "QCMATRIX c\n    x y nan\nENDATA\n", "9: expected a number, found \"nan\""},
      {two + "QUADOBJ\n    x x 1\n    y y -inf\nENDATA\n", "10: expected a number, found \"-inf\""},
      {two + "QMATRIX\n    x y 1e999\nENDATA\n", "9: expected a number, found \"1e999\""},
      {"NAME t\nOBJSENSE\n    MAXX\nENDATA\n", "3: expected MIN, MAX, MINIMIZE or MAXIMIZE"},
      {"NAME t\nROWZ\nENDATA\n", "2: expected a section such as ROWS"},
      {kHead + "    M 'MARKER' 'INTEND'\nENDATA\n", "6: expected 'INTORG', found \"'INTEND'\""},
      {kHead + "    x c 1 c 2 c 3\nENDATA\n", "6: expected at most 6 fields"},
      {two, "7: expected ENDATA, found the end of the file"},
      {kHead + "    x " + longName + " 1\nENDATA\n",
       "6: expected a row named in ROWS, found \"" + longName.substr(0, 40) + "...\""},
      {"NAME t\nROWS\n N obj\n L \x01\x02\xff\nCOLUMNS\n    x \x03 1\nENDATA\n",
       "6: expected a row named in ROWS, found \"?\""},
  };
  for (const Bad& bad : cases) {
    SCOPED_TRACE(bad.text);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    std::string message = refusal(bad.text);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(message.compare(0, 2 + bad.says.size(), "f:" + bad.says), 0) << message;
  }
}

TEST(MpsReader, NumbersAreWholeFiniteDecimals) {
  struct Number {
    const char* field;
    bool ok;
    double value;
  };
  const Number numbers[] = {
      {"1", true, 1},     {"-1.5", true, -1.5}, {"+2", true, 2},     {".5", true, .5},
      {"5.", true, 5},    {"2E-3", true, 2e-3}, {"1e+2", true, 100}, {"0.1", true, 0.1},
      {"e5", false, 0},   {".", false, 0},      {"+", false, 0},     {"-", false, 0},
      {"1e", false, 0},   {"1e400", false, 0},  {"inf", false, 0},   {"nan", false, 0},
      {"0x10", false, 0}, {"1.5.2", false, 0},  {"1,5", false, 0},   {"1e5x", false, 0}};
  for (const Number& n : numbers) {
    SCOPED_TRACE(n.field);
    std::string text = kHead + "    x c " + n.field + "\nENDATA\n";
    if (n.ok) {
      ModelData d = readText(text);
      ASSERT_EQ(d.rows[0].lin.size(), 1);
      EXPECT_EQ(d.rows[0].lin.val[0], n.value);  // exactly: the nearest double
    } else {
      EXPECT_EQ(refusal(text), "f:6: expected a number, found \"" + std::string(n.field) + "\"");
    }
  }
}

TEST(MpsReader, BoundRules) {
  struct Case {
    const char* bounds;  // on "i" (between integer markers) and "x"
    int column;
    double lb, ub;
    char type;
  };
  const Case cases[] = {
      {"", 0, 0, 1, 'B'},  // an integer column without bounds is binary
      {" LO b i 2\n", 0, 2, kInf, 'I'},
      {" PL b i\n", 0, 0, kInf, 'I'},
      {" SC b i 4\n", 0, 0, 4, 'N'},
      {" UP b x -3\n", 1, -kInf, -3, 'C'},         // a negative upper bound frees the lower one
      {" LO b x 0\n UP b x -3\n", 1, 0, -3, 'C'},  // unless a bound set it
      {" UP b x 1e20\n LO b x -1e25\n", 1, -kInf, kInf, 'C'},
      {" UP x 4\n", 1, 0, 4, 'C'},  // no set name
      {" FR x\n", 1, -kInf, kInf, 'C'},
      {" MI b x\n", 1, -kInf, kInf, 'C'},
      {" FX b x 3\n", 1, 3, 3, 'C'},
      {" BV BND x 1\n", 1, 0, 1, 'B'},
      {" UI b x 4\n", 1, 0, 4, 'I'},
      {" LI b x -2\n", 1, -2, kInf, 'I'},
      {" SC b x\n", 1, 0, kInf, 'S'},
      {" SC b x 0\n", 1, 0, kInf, 'S'},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.bounds);
    ModelData d = readText(kHead +
                           "    M1 'MARKER' 'INTORG'\n    i c 1\n    M2 'MARKER' 'INTEND'\n"
                           "    x c 1\nBOUNDS\n" +
                           c.bounds + "ENDATA\n");
    EXPECT_EQ(d.lb[c.column], c.lb);
    EXPECT_EQ(d.ub[c.column], c.ub);
    EXPECT_EQ(d.type[c.column], c.type);
  }
}

// A line of fields at the fixed-format columns 2, 5, 15, 25, 40 and 50.
std::string fixedLine(const std::vector<std::string>& fields) {
  const size_t at[] = {1, 4, 14, 24, 39, 49};
  std::string line;
  for (size_t k = 0; k < fields.size(); ++k) {
    line.resize(at[k], ' ');
    line += fields[k];
  }
  return line + "\n";
}

TEST(MpsReader, FixedFormatNamesMayHoldBlanks) {
  ModelData d = readText("NAME          fixed\nROWS\n N  COST\n L  LIM 1\nCOLUMNS\n" +
                         fixedLine({"", "MY VAR", "COST", "1.5", "LIM 1", "2"}) + "RHS\n" +
                         fixedLine({"", "", "LIM 1", "4"}) + "BOUNDS\n" +
                         fixedLine({"UP", "BND", "MY VAR", "3"}) + "ENDATA\n");
  EXPECT_EQ(d.name, "fixed");
  ASSERT_EQ(d.numVars(), 1);
  EXPECT_EQ(d.varNames.get(0), "MY VAR");
  EXPECT_EQ(d.rowNames.get(0), "LIM 1");
  EXPECT_EQ(d.obj()[0], 1.5);
  EXPECT_EQ(d.rows[0].lin.val, std::vector<double>{2});
  EXPECT_EQ(d.rows[0].upper, 4);
  EXPECT_EQ(d.ub[0], 3);
}

TEST(MpsReader, FreeRowsAfterTheObjectiveAreDroppedWithTheirEntries) {
  ModelData d = readText(
      "NAME t FREE\nOBJSENSE MAXIMIZE\nROWS\n N obj\n N spare\n L "
      "c\nCOLUMNS\n\tx\tobj\t1\tspare\t5\n    x c 2\n"
      "RHS\n    rhs spare 3 c 4\nENDATA\n");
  EXPECT_EQ(d.name, "t");
  ASSERT_EQ(d.numRows(), 1);
  EXPECT_EQ(d.rowNames.get(0), "c");
  EXPECT_EQ(d.obj(), std::vector<double>{1});
  EXPECT_EQ(d.rows[0].upper, 4);
  EXPECT_EQ(d.sense, -1);
}

// RANGES: R on an E row gives [rhs, rhs + R] when R > 0, [rhs + R, rhs]
// when R < 0; on L and G rows |R| below or above.  The objective row's
// right-hand side is minus the objective's constant.  OBJSENSE on a line
// of its own.
TEST(MpsReader, RangesObjectiveConstantAndSense) {
  ModelData d = readText(
      "NAME ranges\nOBJSENSE\n    MAX\nROWS\n N obj\n E e1\n E e2\n L l\n G g\nCOLUMNS\n"
      "    x obj 2 e1 1\n    x e2 1 l 1\n    x g 1\n"
      "RHS\n    rhs obj -7.5 e1 1\n    rhs e2 2 l 3\n    rhs g 4\n"
      "RANGES\n    rng e1 2 e2 -2\n    rng l 1 g 1\nSOS\n S2\n    x 1.5\nENDATA\n");
  std::vector<double> lower, upper;
  for (const klo::Row& r : d.rows) lower.push_back(r.lower), upper.push_back(r.upper);
  EXPECT_EQ(lower, (std::vector<double>{1, 0, 2, 4}));
  EXPECT_EQ(upper, (std::vector<double>{3, 2, 3, 5}));
  EXPECT_EQ(d.objectives[0].constant, 7.5);
  EXPECT_EQ(d.sense, -1);
  ASSERT_EQ(d.sos.size(), 1u);
  EXPECT_EQ(d.sos[0].type, 2);
  EXPECT_EQ(d.sos[0].weights, std::vector<double>{1.5}) << "\"column weight\" form";
}

struct Term {
  int i, j;
  double q;
  bool operator==(const Term& o) const { return i == o.i && j == o.j && q == o.q; }
};

std::vector<Term> terms(const klo::QuadTerms& q) {
  std::vector<Term> out;
  for (int k = 0; k < q.size(); ++k) out.push_back({q.row[k], q.col[k], q.val[k]});
  return out;
}

// QUADOBJ: one triangle of Q in 1/2 x'Qx; QMATRIX: all of it; QCMATRIX and
// QSECTION on a row: all of Q in x'Qx, on the objective row as QMATRIX.
// The store keeps each term once without the 1/2.
TEST(MpsReader, QuadraticSectionsGiveTheStoreTerms) {
  const std::string base = kHead + "    x obj 1 c 1\n    y c 1\n";
  const std::string full = "    x x 4\n    x y 3\n    y x 1\n    y y 2\n";
  struct Case {
    std::string sections;
    std::vector<Term> objective, row;
  };
  const Case cases[] = {
      {"QUADOBJ\n    x x 4\n    x y 3\n    y y 2\n", {{0, 0, 2}, {0, 1, 3}, {1, 1, 1}}, {}},
      {"QMATRIX\n" + full, {{0, 0, 2}, {0, 1, 2}, {1, 1, 1}}, {}},
      {"QSECTION obj\n" + full, {{0, 0, 2}, {0, 1, 2}, {1, 1, 1}}, {}},
      {"QCMATRIX c\n" + full, {}, {{0, 0, 4}, {0, 1, 4}, {1, 1, 2}}},
      {"QSECTION c\n" + full, {}, {{0, 0, 4}, {0, 1, 4}, {1, 1, 2}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.sections);
    ModelData d = readText(base + c.sections + "ENDATA\n");
    EXPECT_EQ(terms(d.qobj), c.objective);
    EXPECT_EQ(d.rows[0].hasQuad() ? terms(d.rows[0].nl->quad) : std::vector<Term>{}, c.row);
  }
}

// Writes d and reads it back.
ModelData roundTrip(const ModelData& d) {
  TempFile file(".mps");
  klo::writeMps(file.path(), d);
  return klo::readMps(file.path());
}

TEST(MpsWriter, NamesOfAnyLengthRoundTrip) {
  for (size_t length : {200, 10000}) {
    std::string var(length, 'v'), row(length, 'r');
    ModelData d;
    const char* names[] = {var.c_str()};
    klo::NewVars v;
    v.cols.n = 1;
    v.names = names;
    klo::addVars(d, v);
    klo::Row r;
    r.lin.ind = {0};
    r.lin.val = {2};
    klo::appendRow(d, r, row.c_str());
    d.sos.push_back({1, {0}, {1}});
    ModelData back = roundTrip(d);
    ASSERT_EQ(back.numVars(), 1);
    EXPECT_EQ(back.varNames.get(0), var);
    EXPECT_EQ(back.rowNames.get(0), row);
    EXPECT_EQ(back.rows[0].lin.val, std::vector<double>{2});
    EXPECT_EQ(back.sos.size(), 1u);
  }
}

// Each kind of column and row, with bounds MPS states only indirectly
// (ranges, negative upper bounds, integers without bounds).
TEST(MpsWriter, BoundsAndRangesRoundTripExactly) {
  struct Column {
    char type;
    double lb, ub;
  };
  const Column columns[] = {{'C', 0, -3},      {'C', -kInf, -kInf}, {'C', 2.5, 2.5},
                            {'I', 0, kInf},    {'I', -kInf, 4},     {'B', 0, 1},
                            {'S', 2, 8},       {'S', -1, kInf},     {'S', 0, 0},
                            {'C', kInf, kInf}, {'C', 1e-300, 1e19}};
  // [-3.97, -0.87] reads back exactly as an L row only.
  const double ranges[][2] = {{0.1, 0.3}, {-3.97, -0.87}, {-1e-3, 7.77},   {-kInf, kInf},
                              {5, 5},     {-2, kInf},     {1e15, 1e15 + 3}};
  ModelData d;
  for (const Column& c : columns) {
    klo::NewVars v;
    v.cols.n = 1;
    v.lb = &c.lb;
    v.ub = &c.ub;
    v.type = &c.type;
    klo::addVars(d, v);
  }
  for (const auto& r : ranges) {
    klo::Row row;
    row.lower = r[0];
    row.upper = r[1];
    klo::appendRow(d, row, nullptr);
  }
  ModelData back = roundTrip(d);
  EXPECT_EQ(back.lb, d.lb);
  EXPECT_EQ(back.ub, d.ub);
  EXPECT_EQ(back.type, d.type);
  ASSERT_EQ(back.numRows(), d.numRows());
  for (int i = 0; i < d.numRows(); ++i) {
    EXPECT_EQ(back.rows[i].lower, d.rows[i].lower) << i;
    EXPECT_EQ(back.rows[i].upper, d.rows[i].upper) << i;
  }
}

TEST(MpsWriter, RefusesARowWhoseBoundsCross) {
  ModelData d;
  klo::Row row;
  row.lower = 5;
  row.upper = 3;
  klo::appendRow(d, row, "crossed");
  TempFile file(".mps");
  EXPECT_EQ(klotest::thrown([&] { klo::writeMps(file.path(), d); }).code, KLO_ERROR_NOT_SUPPORTED);
}

}  // namespace
