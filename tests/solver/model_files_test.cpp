// Model files through the C interface: writing and reading back gives the
// same model in every format that holds it; what a format cannot hold is
// refused; LP files as other programs write them; malformed files get a
// code and a message with file and line, never a crash, and a model given
// to KLOread stays as it was; start, basis, solution and parameter files.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "fixtures.h"
#include "io/side_files.h"
#include "model_snapshot.h"
#include "store/edit.h"

namespace klotest {
namespace {

// A model using everything that MPS and LP files hold.
class RichModel : public ModelTest {
 protected:
  void SetUp() override {
    ModelTest::SetUp();
    const double obj[] = {1, -2, 0, 3.25, 0.5, 1e-7};
    const double lb[] = {0, -KLO_INFINITY, -5, 0, 2, 1};
    const double ub[] = {4, KLO_INFINITY, 5, 1, 8, 1};
    const char types[] = {'C', 'C', 'I', 'B', 'S', 'C'};
    const char* names[] = {"x", "y_free", "n", "b", "sc", "fixed"};
    ASSERT_EQ(KLOaddvars(model, 6, 0, nullptr, nullptr, nullptr, obj, lb, ub, types, names),
              KLO_OK);
    const int beg[] = {0, 3, 5, 7}, ind[] = {0, 1, 2, 1, 3, 4, 5};
    const double val[] = {1, 2.5, -1, 1, 1, 3, 1};
    const double lo[] = {-KLO_INFINITY, 1, -2, 7}, up[] = {10, KLO_INFINITY, 3.5, 7};
    const char* rnames[] = {"le", "ge", "range", "eq"};
    ASSERT_EQ(KLOaddrangeconstrs(model, 4, 7, beg, ind, val, lo, up, rnames), KLO_OK);
    ASSERT_EQ(KLOsetdblattr(model, "ObjCon", 12.5), KLO_OK);
    sense(KLO_MAXIMIZE);
    const int qr[] = {0, 0, 1}, qc[] = {0, 1, 1};
    const double qv[] = {1.5, -2, 0.25};
    ASSERT_EQ(KLOaddqpterms(model, 3, qr, qc, qv), KLO_OK);
    const int st[] = {KLO_SOS_TYPE1, KLO_SOS_TYPE2}, sb[] = {0, 2}, sm[] = {0, 2, 0, 1, 4};
    const double sw[] = {1, 2, 3, 4, 5};
    ASSERT_EQ(KLOaddsos(model, 2, 5, st, sb, sm, sw), KLO_OK);
    ASSERT_EQ(KLOsetstrattr(model, "ModelName", "rich"), KLO_OK);
  }

  // A quadratic row and an indicator, which LP files hold and MPS files not.
  static void addNonlinear(KLOmodel* m) {
    const int li[] = {0}, qr[] = {0, 1}, qc[] = {0, 2}, ii[] = {0, 1};
    const double lv[] = {1}, qv[] = {1, -0.5}, iv[] = {1, -1};
    ASSERT_EQ(KLOaddqconstr(m, 1, li, lv, 2, qr, qc, qv, '<', 9, "quad"), KLO_OK);
    ASSERT_EQ(KLOaddgenconstrIndicator(m, "ind", 3, 0, 2, ii, iv, '>', -1), KLO_OK);
  }

  void expectRoundTrip(const std::string& suffix, SnapshotOptions o = {}) {
    KLOmodel* back = throughFile(model, suffix);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(snapshot(back, o), snapshot(model, o));
    KLOfreemodel(back);
  }
  void expectWriteRefused(const std::string& suffix, const char* says) {
    TempFile file(suffix);
    EXPECT_EQ(KLOwrite(model, file.c_str()), KLO_ERROR_NOT_SUPPORTED);
    EXPECT_NE(modelError().find(says), std::string::npos) << modelError();
  }
};

TEST_F(RichModel, EveryFormatRoundTripsWhatItHolds) {
  for (const char* suffix : {".mps", ".mps.gz", ".lp", ".lp.gz"}) {
    SCOPED_TRACE(suffix);
    expectRoundTrip(suffix);
  }
  // Semi-integer variables, quadratic rows and indicators: LP files only.
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 2, 'N'), KLO_OK);
  expectWriteRefused(".mps", "semi-integer");
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 2, 'I'), KLO_OK);
  addNonlinear(model);
  expectWriteRefused(".mps", ".lp");
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 2, 'N'), KLO_OK);
  expectRoundTrip(".lp");
  ASSERT_EQ(KLOaddpsdvar(model, 2, "P"), KLO_OK);
  expectWriteRefused(".lp", "PSD");
  // Read into a model, a file replaces what it held.
  TempFile file(".mps");
  KLOmodel* empty = nullptr;
  ASSERT_EQ(KLOnewmodel(env, &empty, "", 0, nullptr, nullptr, nullptr, nullptr, nullptr), KLO_OK);
  ASSERT_EQ(KLOwrite(empty, file.c_str()), KLO_OK);
  ASSERT_EQ(KLOread(model, file.c_str()), KLO_OK);
  EXPECT_EQ(snapshot(model), snapshot(empty));
  KLOfreemodel(empty);
  expectRoundTrip(".lp");
}

TEST_F(RichModel, UnusableNamesAreReplacedInFiles) {
  const char* names[] = {"two words", "", "x+y", "Binaries", "end", "1abc"};
  for (int j = 0; j < 6; ++j)
    ASSERT_EQ(KLOsetstrattrelement(model, "VarName", j, names[j]), KLO_OK);
  ASSERT_EQ(KLOsetstrattrelement(model, "ConstrName", 1, "le"), KLO_OK);  // duplicate
  for (const char* suffix : {".lp", ".mps"}) {
    SCOPED_TRACE(suffix);
    expectRoundTrip(suffix, {false, true});
  }
}

// Quadratic parts on x free, y in [-3, 5], t >= 0: every term survives
// MPS -> LP -> MPS and LP -> MPS -> LP, and the first and last file of one
// format are one text.
TEST_F(RichModel, QuadraticTermsSurviveBothChains) {
  const std::vector<std::function<void(KLOmodel*)>> parts = {
      [](KLOmodel* m) {  // -1 <= 3x - y + x^2 + 4xy + 0.25t^2 <= 4
        const int li[] = {0, 1}, qr[] = {0, 0, 2}, qc[] = {0, 1, 2};
        const double lv[] = {3, -1}, qv[] = {1, 4, 0.25};
        ASSERT_EQ(KLOaddqconstr(m, 2, li, lv, 3, qr, qc, qv, '<', 4, "ranged"), KLO_OK);
        ASSERT_EQ(KLOsetdblattrelement(m, "QCLHS", 0, -1), KLO_OK);
      },
      [](KLOmodel* m) {  // max x + y - x^2 - xy - 2y^2 + 7, with x + t^2 = 2
        ASSERT_EQ(KLOsetintattr(m, "ModelSense", KLO_MAXIMIZE), KLO_OK);
        ASSERT_EQ(KLOsetdblattr(m, "ObjCon", 7), KLO_OK);
        const int r[] = {0, 0, 1}, c[] = {0, 1, 1}, li[] = {0}, q[] = {2};
        const double v[] = {-1, -1, -2}, one[] = {1, 1};
        ASSERT_EQ(KLOaddqpterms(m, 3, r, c, v), KLO_OK);
        ASSERT_EQ(KLOsetdblattrarray(m, "Obj", 0, 2, one), KLO_OK);
        ASSERT_EQ(KLOaddqconstr(m, 1, li, one, 1, q, q, one, '=', 2, "eq"), KLO_OK);
      }};
  for (size_t k = 0; k < parts.size(); ++k) {
    fresh();
    const double lb[] = {-KLO_INFINITY, -3, 0}, ub[] = {KLO_INFINITY, 5, KLO_INFINITY};
    const char* names[] = {"x", "y", "t"};
    ASSERT_EQ(KLOaddvars(model, 3, 0, nullptr, nullptr, nullptr, nullptr, lb, ub, nullptr, names),
              KLO_OK);
    parts[k](model);
    const std::string expected = snapshot(model);
    for (const std::vector<std::string>& chain :
         {std::vector<std::string>{".mps", ".lp", ".mps"}, {".lp", ".mps", ".lp"}}) {
      SCOPED_TRACE(std::to_string(k) + chain[0]);
      KLOmodel* current = KLOcopymodel(model);
      std::string first, text;
      for (const std::string& suffix : chain) {
        KLOmodel* next = throughFile(current, suffix, &text);
        KLOfreemodel(current);
        current = next;
        ASSERT_NE(current, nullptr);
        EXPECT_EQ(snapshot(current), expected);
        if (first.empty()) first = text;
      }
      KLOfreemodel(current);
      EXPECT_EQ(text, first);
    }
  }
  // ".qps" is MPS by another name, compressed or not.
  std::string mps, qps;
  KLOfreemodel(throughFile(model, ".mps", &mps));
  KLOfreemodel(throughFile(model, ".qps", &qps));
  EXPECT_EQ(qps, mps);
  expectRoundTrip(".qps.gz");
}

TEST_F(RichModel, StartBasisAndParameterFilesRoundTrip) {
  ASSERT_EQ(KLOsetdblattrelement(model, "Start", 0, 2.5), KLO_OK);
  ASSERT_EQ(KLOsetdblattrelement(model, "Start", 3, 1), KLO_OK);
  const int cols[] = {KLO_BASIS_BASIC, KLO_BASIS_UPPER,      KLO_BASIS_LOWER,
                      KLO_BASIS_BASIC, KLO_BASIS_SUPERBASIC, KLO_BASIS_FIXED};
  const int rows[] = {KLO_BASIS_UPPER, KLO_BASIS_BASIC, KLO_BASIS_LOWER, KLO_BASIS_BASIC};
  ASSERT_EQ(KLOsetintattrarray(model, "ColBasis", 0, 6, cols), KLO_OK);
  ASSERT_EQ(KLOsetintattrarray(model, "RowBasis", 0, 4, rows), KLO_OK);
  TempFile mst(".mst"), bas(".bas"), prm(".prm");
  ASSERT_EQ(KLOwrite(model, mst.c_str()), KLO_OK);
  ASSERT_EQ(KLOwrite(model, bas.c_str()), KLO_OK) << modelError();
  ASSERT_EQ(KLOreset(model, 1), KLO_OK);
  ASSERT_EQ(KLOread(model, mst.c_str()), KLO_OK) << modelError();
  ASSERT_EQ(KLOread(model, bas.c_str()), KLO_OK) << modelError();
  const double u = KLO_UNDEFINED;
  EXPECT_EQ(dblArray("Start", 6), (std::vector<double>{2.5, u, u, 1, u, u}));
  EXPECT_EQ(intArray("ColBasis", 6), std::vector<int>(cols, cols + 6));
  EXPECT_EQ(intArray("RowBasis", 4), std::vector<int>(rows, rows + 4));
  prm.write("MIP/GapRel 0.25\n");
  ASSERT_EQ(KLOread(model, prm.c_str()), KLO_OK);
  double gap = 0;
  ASSERT_EQ(KLOgetdblparam(KLOgetenv(model), "MIP/GapRel", &gap), KLO_OK);
  EXPECT_EQ(gap, 0.25);
  TempFile out(".prm");
  ASSERT_EQ(KLOwrite(model, out.c_str()), KLO_OK);
  EXPECT_NE(out.read().find("MIP/GapRel 0.25"), std::string::npos);
}

TEST_F(RichModel, WhatCannotBeWrittenIsRefused) {
  TempFile sol(".sol"), bas(".bas");
  EXPECT_EQ(KLOwrite(model, sol.c_str()), KLO_ERROR_DATA_NOT_AVAILABLE);
  EXPECT_EQ(KLOwrite(model, bas.c_str()), KLO_ERROR_DATA_NOT_AVAILABLE) << "no basis yet";
  EXPECT_EQ(KLOwrite(model, "model.txt"), KLO_ERROR_FILE_FORMAT);
  EXPECT_EQ(KLOwrite(model, "params.prm.gz"), KLO_ERROR_FILE_FORMAT);
  EXPECT_EQ(KLOwrite(model, nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOwrite(model, "/nonexistent/dir/m.lp"), KLO_ERROR_FILE_WRITE);
}

// Start and solution files are read alike.
TEST_F(RichModel, MalformedValueFileNamesTheLineAndChangesNothing) {
  const std::pair<const char*, const char*> cases[] = {
      {"x 1\nnosuchvar 2\n", ":2: unknown variable \"nosuchvar\""},
      {"# Objective value = 3\nx 1\n\nx one\n", ":4: expected"},
      {"x 1 2\n", ":1: expected"}};
  for (const char* suffix : {".mst", ".sol"}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(suffix) + " " + c.first);
      TempFile file(suffix);
      file.write(c.first);
      EXPECT_EQ(KLOread(model, file.c_str()), KLO_ERROR_FILE_READ);
      EXPECT_NE(modelError().find(file.path() + c.second), std::string::npos) << modelError();
      EXPECT_EQ(dblAt("Start", 0), KLO_UNDEFINED);
    }
  }
}

TEST(SolutionFile, ObjectiveAndOneValuePerVariableUnnamedOnesNamedByColumn) {
  klo::ModelData d;
  klo::NewVars v;
  const char* names[] = {"x", ""};
  v.cols.n = 2;
  v.names = names;
  klo::addVars(d, v);
  TempFile sol(".sol");
  klo::writeSolutionFile(sol.path(), d, 1.5, {0.25, -3});
  EXPECT_EQ(sol.read(), "# Objective value = 1.5\nx 0.25\nC1 -3\n");
}

class Files : public ModelTest {
 protected:
  // The model of an LP file's text.
  std::string readLp(const std::string& text) {
    TempFile file(".lp");
    file.write(text);
    KLOmodel* m = nullptr;
    EXPECT_EQ(KLOreadmodel(env, file.c_str(), &m), KLO_OK) << lastError();
    const std::string s = m ? snapshot(m, {true, false}) : "";
    KLOfreemodel(m);
    return s;
  }
};

TEST_F(Files, LpDialectsOfOtherWriters) {
  // Short spellings, comments, coefficients glued to names, statements over
  // several lines; the constant of c3 moves to its right-hand side.
  EXPECT_EQ(readLp("\\ a comment line\nmax\n  3x1 + 2 x2 \\ glued\n  - x3\nst\n"
                   "  c1: x1 + x2\n      + x3 =< 10\n  x1 - x2 => -4\n  c3: 2 x1 + 3 >= 5\n"
                   "  -3 <= x2 - x3 <= 3\nbound\n  x3 <= 7\n  x2 >= -1e30\nintegers\n  x1\nend\n"),
            "var 0 'x1' I [0, 1e+20] obj 3\nvar 1 'x2' C [-1e+20, 1e+20] obj 2\n"
            "var 2 'x3' C [0, 7] obj -1\nrow 0 'c1' [-1e+20, 10] 1*x0 1*x1 1*x2\n"
            "row 1 '' [-4, 1e+20] 1*x0 -1*x1\nrow 2 'c3' [2, 1e+20] 2*x0\n"
            "row 3 '' [-3, 3] 1*x1 -1*x2\nsense -1 constant 0\npsdrows 0 ents 8\n"
            "objectives 1\n");
  // Long spellings, binaries, semi-continuous variables, SOS weights with a
  // sign, a quadratic objective without the halving.
  EXPECT_EQ(readLp("Minimize\n obj: x + y + [ x^2 + 3 x * y ]\nSubject To\n r: x + y >= 1\n"
                   "Bounds\n 2 >= x\n y <= 1\nBinary\n b\nSemi-Continuous\n y\n"
                   "SOS\n s: S1 :: x:-1 y:+2.5\nEND\n"),
            "var 0 'x' C [0, 2] obj 1\nvar 1 'y' S [0, 1] obj 1\nvar 2 'b' B [0, 1] obj 0\n"
            "row 0 'r' [1, 1e+20] 1*x0 1*x1\nsense 1 constant 0\nq 1*x0*x0\nq 3*x0*x1\n"
            "sos1 x0:-1 x1:2.5\npsdrows 0 ents 4\nobjectives 1\n");
}

struct BadFile {
  const char* suffix;
  const char* text;
  const char* line;       // ":n" expected in the message, "" for none
  const char* says = "";  // further on in the message
};

// The MPS reader's refusals have their own table; here the ways into it.
const BadFile kBadFiles[] = {
    {".mps", "garbage\n\x01\x02\n", ":1"},
    {".mps", "", ""},
    {".qps", "NAME t\nROWS\n N obj\n L c1\nCOLUMNS\n    x c1 1\nQCMATRIX c2\n    x x 1\nENDATA\n",
     ":7"},
    {".qps", "NAME t\nROWS\n N obj\nCOLUMNS\n    x obj 1\nQUADOBJ\n    x x NaN\nENDATA\n", ":7"},
    {".qps",
     "NAME t\nROWS\n N obj\nCOLUMNS\n    x obj 1\n    y obj 1\nQUADOBJ\n    x y 1e308\n"
     "    y x 1e308\nENDATA\n",
     ":7"},
    {".lp", "Minimize\n obj: x + y\nSubject To\n c1: x + y => >= 1\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x +\nSubject To\n c1: x >= 1\nEnd\n", ":3"},
    {".lp", "Minimize\n obj: x\nSubject To\n c1: x + y >= 1\n", ":5"},
    {".lp", "Minimize\n obj: x\nSubject To\n c1: x @ 2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n c1: x >= y\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: [ x * ]\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x\nBounds\n 3 x <= 4\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n i: y = 1 -> x <= 2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSOS\n s: S3 :: x:1\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSOS\n s: S1 :: x:1 x:2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: 1 <= x >= 2\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x + nan y\nSubject To\n c: x >= 1\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x + [ nan x ^ 2 ] / 2\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: [ x * y + inf y ^ 2 ] <= 1\nEnd\n", ":4"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: [ x * y ] + 1e400 x <= 1\nEnd\n", ":4"},
    // finite numbers whose sums or quotients are not
    {".lp", "Minimize\n obj: x\n + [ 1e300 x ^ 2 ] / 1e-300\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: 1e308 x + 1e308 x\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x + 1e308 + 1e308\nEnd\n", ":2"},
    {".lp", "Minimize\n obj: x\nSubject To\n c: [ 1e308 x * y + 1e308 y * x ] <= 1\nEnd\n", ":4"},
    {".lp", "\x7f\x45\x4c\x46\x02\x01", ":1"},
    {".lp", "", ""},
// After this header of an SDPA file, entries start on line 5.
#define HEAD "1\n2\n2 -2\n1.5\n"
    {".dat-s", "", ":1: ", "found the end of the file"},
    {".dat-s", "\"only a comment\n", ":1: ", "found the end of the file"},
    {".dat-s", "0\n1\n2\n1\n", ":1: ", "above 0"},
    {".dat-s", "2.5\n1\n2\n1\n", ":1: ", "expected an integer"},
    {".dat-s", "1\n-1\n2\n1\n", ":2: ", "above 0"},
    {".dat-s", "1\n+-1\n2\n1\n", ":2: ", "expected an integer"},
    {".dat-s", "1\n2\n2 0\n1\n", ":3: ", "other than 0"},
    {".dat-s", "1\n2\n2 1.5\n1\n", ":3: ", "expected an integer"},
    {".dat-s", "1\n2\n2\n1\n", ":3: ", "expected 2 block sizes"},
    {".dat-s", "1\n1\n50000\n1\n", ":3: ", "above 46340"},
    {".dat-s", "1\n1\n-2000000000\n1\n", ":3: ", "diagonal blocks hold more than"},
    {".dat-s", "1\n2\n2 -2\n", ":3: ", "expected the c vector, found the end"},
    {".dat-s", "2\n2\n2 -2\n1\n", ":4: ", "expected a c vector of length 2"},
    {".dat-s", "1\n2\n2 -2\nnan\n", ":4: ", "expected a c vector of length 1"},
    {".dat-s", "1\n2\n2 -2\n1e20\n", ":4: ", "stands for infinity"},
    {".dat-s", HEAD "2 1 1 1 1\n", ":5: ", "matrix number from 0 to 1"},
    {".dat-s", HEAD "1 3 1 1 1\n", ":5: ", "block number from 1 to 2"},
    {".dat-s", HEAD "1 0 1 1 1\n", ":5: ", "block number from 1 to 2"},
    {".dat-s", HEAD "1 1 1 3 1\n", ":5: ", "column number from 1 to 2"},
    {".dat-s", HEAD "1 2 0 0 1\n", ":5: ", "row number from 1 to 2"},
    {".dat-s", HEAD "1 1 2 1 1\n", ":5: ", "below the diagonal"},
    {".dat-s", HEAD "1 2 1 2 1\n", ":5: ", "off the diagonal of diagonal block 2"},
    {".dat-s", HEAD "1 1 1 1 abc\n", ":5: ", "expected an entry"},
    {".dat-s", HEAD "1 1 1 1 -inf\n", ":5: ", "expected a number, found \"-inf\""},
    {".dat-s", HEAD "1 1 1 1 1e400\n", ":5: ", "expected a number"},
    {".dat-s", HEAD "1 1 1 1 1 1\n", ":5: ", "expected an entry"},
    {".dat-s", HEAD "\"a late comment\n", ":5: ", "expected an entry"},
    {".dat-s", HEAD "1 1 1 2 1\n0 1 1 1 1\n1 1 1 2 3\n", ":7: ", "second time (first on line 5)"},
#undef HEAD
};

TEST_F(Files, MalformedFilesAreRefusedWithFileAndLine) {
  addVars(2);
  const std::string before = snapshot(model);
  for (const BadFile& bad : kBadFiles) {
    TempFile file(bad.suffix);
    file.write(bad.text);
    SCOPED_TRACE(std::string(bad.suffix) + ": " + bad.text);
    KLOmodel* m = nullptr;
    EXPECT_EQ(KLOreadmodel(env, file.c_str(), &m), KLO_ERROR_FILE_READ);
    EXPECT_EQ(m, nullptr);
    EXPECT_NE(lastError().find(file.path() + bad.line), std::string::npos) << lastError();
    EXPECT_NE(lastError().find(bad.says), std::string::npos) << lastError();
    EXPECT_EQ(KLOread(model, file.c_str()), KLO_ERROR_FILE_READ);
    EXPECT_EQ(snapshot(model), before);
  }
}

TEST_F(Files, TruncatedCopiesOfAGoodFileNeverCrash) {
  const int ind[] = {0, 1};
  const double val[] = {1, 2};
  addVars(2);
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, val, -1, 4, "r"), KLO_OK);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 1, 'I'), KLO_OK);
  for (const char* suffix : {".lp", ".mps"}) {
    TempFile good(suffix);
    ASSERT_EQ(KLOwrite(model, good.c_str()), KLO_OK);
    const std::string text = good.read();
    for (size_t cut = 0; cut < text.size(); cut += 3) {
      TempFile part(suffix);
      part.write(text.substr(0, cut));
      KLOmodel* m = nullptr;
      const int status = KLOreadmodel(env, part.c_str(), &m);
      EXPECT_TRUE(status == KLO_OK || status == KLO_ERROR_FILE_READ) << suffix << " cut " << cut;
      KLOfreemodel(m);
    }
  }
}

TEST_F(Files, WhatIsNoFileOrIsDamagedIsRefused) {
  std::ifstream in(std::string(KLO_INSTANCES_DIR) + "/afiro.mps.gz", std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  const std::string gz = ss.str();
  std::string badCrc = gz;
  badCrc[badCrc.size() - 6] ^= 0x55;  // the checksum in the trailer
  TempFile longLine(".lp"), directory(".mps"), device(".mps");
  longLine.write(std::string(KLO_MAX_LINE_LENGTH + 1, 'x'));
  std::filesystem::create_directory(directory.path());
  std::filesystem::create_symlink("/dev/zero", device.path());
  struct Case {
    const char* what;
    std::string path;   // read as it is, when set
    std::string bytes;  // else written to a temporary .mps.gz file
    int code;
  };
  const Case cases[] = {
      {"a directory", directory.path(), "", KLO_ERROR_FILE_OPEN},
      {"a device", device.path(), "", KLO_ERROR_FILE_OPEN},
      {"missing", "/nonexistent/model.mps", "", KLO_ERROR_FILE_OPEN},
      {"missing, compressed", "/nonexistent/model.lp.gz", "", KLO_ERROR_FILE_OPEN},
      {"of no known format", "model.xyz", "", KLO_ERROR_FILE_FORMAT},
      {"cut in the trailer", "", gz.substr(0, gz.size() - 2), KLO_ERROR_FILE_READ},
      {"cut in the data", "", gz.substr(0, gz.size() / 2), KLO_ERROR_FILE_READ},
      {"a wrong checksum", "", badCrc, KLO_ERROR_FILE_READ},
      {"a line too long", longLine.path(), "", KLO_ERROR_FILE_READ},
      {"whole", "", gz, KLO_OK},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    TempFile file(".mps.gz");
    if (c.path.empty()) file.write(c.bytes);
    const std::string path = c.path.empty() ? file.path() : c.path;
    KLOmodel* m = nullptr;
    EXPECT_EQ(KLOreadmodel(env, path.c_str(), &m), c.code) << lastError();
    if (c.code == KLO_ERROR_FILE_OPEN) {
      EXPECT_NE(lastError().find(path), std::string::npos);
    }
    KLOfreemodel(m);
  }
  KLOmodel* m = nullptr;
  EXPECT_EQ(KLOreadmodel(env, nullptr, &m), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOread(model, "/nonexistent/start.mst"), KLO_ERROR_FILE_OPEN);
  EXPECT_EQ(KLOreadparams(env, device.path().c_str()), KLO_ERROR_FILE_OPEN);
  std::filesystem::remove(directory.path());
}

}  // namespace
}  // namespace klotest
