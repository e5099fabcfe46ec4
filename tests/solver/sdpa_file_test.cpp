// SDPA files: a file becomes "maximise tr(F0 Y), tr(Fi Y) = ci, Y >= 0";
// models of another shape are not written, and writing then reading gives
// the same model.  (Malformed ones are with the other formats' in
// model_files_test.cpp.)
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "fixtures.h"
#include "model_snapshot.h"

namespace klotest {
namespace {

using SdpaFiles = ModelTest;

// Two constraints; a 2x2 matrix block and a diagonal block of two.
constexpr const char* kSmall =
    "\"a comment line\n"
    "* and another\n"
    "2 = mDIM\n"
    "2 = nBLOCK\n"
    "{2, -2}\n"
    "{1.5, -3}\n"
    "0 1 1 1 1\n"
    "0 1 1 2 0.5\n"
    "0 2 2 2 4\n"
    "2 1 2 2 3\n"  // entries in any order
    "1 1 1 1 2\n"
    "1 2 1 1 -1\n"
    "2 1 1 2 0.25\n"
    "2 2 1 1 7\n"
    "2 2 2 2 0\n";  // zeros are no terms

TEST_F(SdpaFiles, ASmallFileBecomesTheModel) {
  TempFile file(".dat-s");
  file.write(kSmall);
  ASSERT_EQ(KLOread(model, file.c_str()), KLO_OK) << modelError();
  // Row 0: -1 x0; row 1: 7 x0 (the zero is no entry).  (1, 2) of the file
  // is position 0 * 2 + 1, unscaled: both the file and the store mean the
  // entry and its mirror.
  EXPECT_EQ(snapshot(model, {false, false}),
            "var 0 '' C [0, 1e+20] obj 0\nvar 1 '' C [0, 1e+20] obj 4\n"
            "row 0 '' [1.5, 1.5] -1*x0 psd0: 0=2\nrow 1 '' [-3, -3] 7*x0 psd0: 1=0.25 3=3\n"
            "sense -1 constant 0\npsd 0 dim 2 obj 0:1 1:0.5\npsdrows 2 ents 7\nobjectives 1\n");
}

// Maximise with two PSD variables and three linear ones, every row an
// equality: the shape SDPA holds.
class SdpaModel : public ModelTest {
 protected:
  void SetUp() override {
    ModelTest::SetUp();
    const double obj[] = {1.5, 0, -2};
    ASSERT_EQ(
        KLOaddvars(model, 3, 0, nullptr, nullptr, nullptr, obj, nullptr, nullptr, nullptr, nullptr),
        KLO_OK);
    ASSERT_EQ(KLOaddpsdvar(model, 2, "X"), KLO_OK);
    ASSERT_EQ(KLOaddpsdvar(model, 3, "Z"), KLO_OK);
    const int oind[] = {0, 4, 8};
    const double oval[] = {1, -0.125, 1e-9};
    ASSERT_EQ(KLOsetmatattrelement(model, "PsdObj", 1, 3, 3, 3, oind, oval), KLO_OK);
    const int cind[] = {0, 2};
    const double cval[] = {1, 3};
    const int psdvar[] = {1, 0}, mbeg[] = {0, 2, 3}, mind[] = {1, 5, 3};
    const double mval[] = {0.5, 2, -1};
    ASSERT_EQ(KLOaddrangepsdconstr(model, 2, cind, cval, 2, psdvar, mbeg, mind, mval, 4, 4, "a"),
              KLO_OK);
    ASSERT_EQ(KLOaddrangeconstr(model, 1, &cind[1], &cval[1], -1, -1, "b"), KLO_OK);
    ASSERT_EQ(KLOsetintattr(model, "ModelSense", KLO_MAXIMIZE), KLO_OK);
  }
};

// SDPA holds no names.
const SnapshotOptions kNoNames = {false, false};

TEST_F(SdpaModel, WritingAndReadingGivesTheSameModel) {
  for (const char* suffix : {".dat-s", ".dat-s.gz"}) {
    SCOPED_TRACE(suffix);
    KLOmodel* back = throughFile(model, suffix);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(snapshot(back, kNoNames), snapshot(model, kNoNames));
    KLOfreemodel(back);
  }
}

TEST_F(SdpaModel, AMinimisedModelIsWrittenWithItsObjectiveNegated) {
  ASSERT_EQ(KLOsetintattr(model, "ModelSense", KLO_MINIMIZE), KLO_OK);
  KLOmodel* back = throughFile(model, ".dat-s");
  ASSERT_NE(back, nullptr);
  int sense = 0, nnz = 0, nr = 0, nc = 0, ind[3];
  double obj = 0, val[3];
  ASSERT_EQ(KLOgetintattr(back, "ModelSense", &sense), KLO_OK);
  EXPECT_EQ(sense, KLO_MAXIMIZE);
  ASSERT_EQ(KLOgetdblattrelement(back, "Obj", 0, &obj), KLO_OK);
  EXPECT_EQ(obj, -1.5);
  ASSERT_EQ(KLOgetmatattrelement(back, "PsdObj", 1, &nnz, &nr, &nc, ind, val), KLO_OK);
  ASSERT_EQ(nnz, 3);
  EXPECT_EQ(val[1], 0.125);
  KLOfreemodel(back);
}

TEST_F(SdpaModel, OtherShapesAreRefusedAndNothingIsWritten) {
  struct Change {
    const char* says;
    std::function<int(KLOmodel*)> apply;
  };
  const int zero = 0;
  const double one = 1;
  const Change changes[] = {
      {"rows other than equalities",
       [&](KLOmodel* m) { return KLOaddrangeconstr(m, 1, &zero, &one, -KLO_INFINITY, 2, "le"); }},
      {"bounds other than [0, infinity)",
       [](KLOmodel* m) { return KLOsetdblattrelement(m, "UB", 1, 5); }},
      {"bounds other than [0, infinity)",
       [](KLOmodel* m) { return KLOsetdblattrelement(m, "LB", 2, -KLO_INFINITY); }},
      {"integer", [](KLOmodel* m) { return KLOsetcharattrelement(m, "VType", 0, 'I'); }},
      {"objective constant", [](KLOmodel* m) { return KLOsetdblattr(m, "ObjCon", 1); }},
      {"quadratic objective", [&](KLOmodel* m) { return KLOaddqpterms(m, 1, &zero, &zero, &one); }},
      {"more than SDPA files of this length hold",
       [](KLOmodel* m) {
         return KLOaddvars(m, 1 << 20, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr);
       }},
      {"without rows", [](KLOmodel* m) {
         const int rows[] = {0, 1};
         return KLOdelconstrs(m, 2, rows);
       }}};
  for (const Change& c : changes) {
    SCOPED_TRACE(c.says);
    KLOmodel* m = KLOcopymodel(model);
    ASSERT_EQ(c.apply(m), KLO_OK);
    TempFile file(".dat-s");
    EXPECT_EQ(KLOwrite(m, file.c_str()), KLO_ERROR_NOT_SUPPORTED);
    EXPECT_NE(std::string(KLOgeterrormsg(KLOgetenv(m))).find(c.says), std::string::npos)
        << KLOgeterrormsg(KLOgetenv(m));
    EXPECT_FALSE(std::filesystem::exists(file.path()));
    KLOfreemodel(m);
  }
}

}  // namespace
}  // namespace klotest
