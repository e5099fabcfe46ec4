// Model files: writing and reading back gives the same model.
#include <string>
#include <utility>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using klotest::snapshot;
using klotest::TempFile;

// A model using everything that MPS and LP files hold.
class RichModel : public klotest::ModelTest {
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
    const int beg[] = {0, 3, 5, 7};
    const int ind[] = {0, 1, 2, 1, 3, 4, 5};
    const double val[] = {1, 2.5, -1, 1, 1, 3, 1};
    const double lo[] = {-KLO_INFINITY, 1, -2, 7};
    const double up[] = {10, KLO_INFINITY, 3.5, 7};
    const char* rnames[] = {"le", "ge", "range", "eq"};
    ASSERT_EQ(KLOaddrangeconstrs(model, 4, 7, beg, ind, val, lo, up, rnames), KLO_OK);
    ASSERT_EQ(KLOsetdblattr(model, "ObjCon", 12.5), KLO_OK);
    ASSERT_EQ(KLOsetintattr(model, "ModelSense", KLO_MAXIMIZE), KLO_OK);
    const int qr[] = {0, 0, 1}, qc[] = {0, 1, 1};
    const double qv[] = {1.5, -2, 0.25};
    ASSERT_EQ(KLOaddqpterms(model, 3, qr, qc, qv), KLO_OK);
    const int st[] = {KLO_SOS_TYPE1, KLO_SOS_TYPE2};
    const int sb[] = {0, 2};
    const int sm[] = {0, 2, 0, 1, 4};
    const double sw[] = {1, 2, 3, 4, 5};
    ASSERT_EQ(KLOaddsos(model, 2, 5, st, sb, sm, sw), KLO_OK);
    ASSERT_EQ(KLOsetstrattr(model, "ModelName", "rich"), KLO_OK);
  }

  void addNonlinear() {
    const int li[] = {0};
    const double lv[] = {1};
    const int qr[] = {0, 1}, qc[] = {0, 2};
    const double qv[] = {1, -0.5};
    ASSERT_EQ(KLOaddqconstr(model, 1, li, lv, 2, qr, qc, qv, '<', 9, "quad"), KLO_OK);
    const int ii[] = {0, 1};
    const double iv[] = {1, -1};
    ASSERT_EQ(KLOaddgenconstrIndicator(model, "ind", 3, 0, 2, ii, iv, '>', -1), KLO_OK);
  }

  // Writes to path, reads back into a new model and compares.
  void roundTrip(const std::string& suffix) {
    TempFile file(suffix);
    ASSERT_EQ(KLOwrite(model, file.c_str()), KLO_OK) << modelError();
    KLOmodel* back = nullptr;
    ASSERT_EQ(KLOreadmodel(env, file.c_str(), &back), KLO_OK) << lastError();
    EXPECT_EQ(snapshot(back), snapshot(model));
    KLOfreemodel(back);
  }
};

TEST_F(RichModel, MpsRoundTrip) { roundTrip(".mps"); }
TEST_F(RichModel, CompressedMpsRoundTrip) { roundTrip(".mps.gz"); }
TEST_F(RichModel, LpRoundTrip) { roundTrip(".lp"); }
TEST_F(RichModel, CompressedLpRoundTrip) { roundTrip(".lp.gz"); }

TEST_F(RichModel, LpHoldsQuadraticRowsAndIndicators) {
  addNonlinear();
  roundTrip(".lp");
}

TEST_F(RichModel, MpsRefusesWhatItCannotHold) {
  addNonlinear();
  TempFile file(".mps");
  EXPECT_EQ(KLOwrite(model, file.c_str()), KLO_ERROR_NOT_SUPPORTED);
  EXPECT_NE(modelError().find(".lp"), std::string::npos);
}

TEST_F(RichModel, UnusableNamesAreReplacedInFiles) {
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 0, "two words"), KLO_OK);
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 1, ""), KLO_OK);
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 2, "x+y"), KLO_OK);
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 3, "Binaries"), KLO_OK);  // a section keyword
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 4, "end"), KLO_OK);
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 5, "1abc"), KLO_OK);   // reads as a number
  ASSERT_EQ(KLOsetstrattrelement(model, "ConstrName", 1, "le"), KLO_OK);  // duplicate
  for (const char* suffix : {".lp", ".mps"}) {
    SCOPED_TRACE(suffix);
    TempFile file(suffix);
    ASSERT_EQ(KLOwrite(model, file.c_str()), KLO_OK) << modelError();
    KLOmodel* back = nullptr;
    ASSERT_EQ(KLOreadmodel(env, file.c_str(), &back), KLO_OK) << lastError();
    EXPECT_EQ(snapshot(back, {false, true}), snapshot(model, {false, true}));
    KLOfreemodel(back);
  }
}

TEST_F(RichModel, ReadIntoAModelReplacesItsContents) {
  TempFile file(".lp");
  ASSERT_EQ(KLOwrite(model, file.c_str()), KLO_OK);
  std::string written = snapshot(model);
  KLOmodel* other = nullptr;
  ASSERT_EQ(KLOnewmodel(env, &other, "other", 3, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_OK);
  ASSERT_EQ(KLOread(other, file.c_str()), KLO_OK);
  EXPECT_EQ(snapshot(other), written);
  KLOfreemodel(other);
}

TEST_F(RichModel, PsdVariablesCannotBeWrittenToLp) {
  ASSERT_EQ(KLOaddpsdvar(model, 2, "P"), KLO_OK);
  TempFile file(".lp");
  EXPECT_EQ(KLOwrite(model, file.c_str()), KLO_ERROR_NOT_SUPPORTED);
}

using SideFiles = RichModel;

TEST_F(SideFiles, StartValuesRoundTrip) {
  ASSERT_EQ(KLOsetdblattrelement(model, "Start", 0, 2.5), KLO_OK);
  ASSERT_EQ(KLOsetdblattrelement(model, "Start", 3, 1), KLO_OK);
  TempFile mst(".mst");
  ASSERT_EQ(KLOwrite(model, mst.c_str()), KLO_OK);
  ASSERT_EQ(KLOreset(model, 1), KLO_OK);
  EXPECT_EQ(dblAt("Start", 0), KLO_UNDEFINED);
  ASSERT_EQ(KLOread(model, mst.c_str()), KLO_OK) << modelError();
  EXPECT_EQ(dblAt("Start", 0), 2.5);
  EXPECT_EQ(dblAt("Start", 3), 1.0);
  EXPECT_EQ(dblAt("Start", 1), KLO_UNDEFINED);
}

// Start and solution files are read alike.
TEST_F(SideFiles, MalformedValueFileNamesTheLineAndChangesNothing) {
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

TEST_F(SideFiles, BasisRoundTrip) {
  const int cols[] = {KLO_BASIS_BASIC, KLO_BASIS_UPPER,      KLO_BASIS_LOWER,
                      KLO_BASIS_BASIC, KLO_BASIS_SUPERBASIC, KLO_BASIS_FIXED};
  const int rows[] = {KLO_BASIS_UPPER, KLO_BASIS_BASIC, KLO_BASIS_LOWER, KLO_BASIS_BASIC};
  ASSERT_EQ(KLOsetintattrarray(model, "ColBasis", 0, 6, cols), KLO_OK);
  ASSERT_EQ(KLOsetintattrarray(model, "RowBasis", 0, 4, rows), KLO_OK);
  TempFile bas(".bas");
  ASSERT_EQ(KLOwrite(model, bas.c_str()), KLO_OK) << modelError();
  ASSERT_EQ(KLOreset(model, 1), KLO_OK);
  ASSERT_EQ(KLOread(model, bas.c_str()), KLO_OK) << modelError();
  int c[6], r[4];
  ASSERT_EQ(KLOgetintattrarray(model, "ColBasis", 0, 6, c), KLO_OK);
  ASSERT_EQ(KLOgetintattrarray(model, "RowBasis", 0, 4, r), KLO_OK);
  for (int j = 0; j < 6; ++j) EXPECT_EQ(c[j], cols[j]) << j;
  for (int i = 0; i < 4; ++i) EXPECT_EQ(r[i], rows[i]) << i;
}

TEST_F(SideFiles, ParametersSolutionsAndUnknownFormats) {
  TempFile prm(".prm");
  prm.write("MIP/GapRel 0.25\n");
  ASSERT_EQ(KLOread(model, prm.c_str()), KLO_OK);
  double gap = 0;
  ASSERT_EQ(KLOgetdblparam(KLOgetenv(model), "MIP/GapRel", &gap), KLO_OK);
  EXPECT_EQ(gap, 0.25);
  TempFile out(".prm");
  ASSERT_EQ(KLOwrite(model, out.c_str()), KLO_OK);
  EXPECT_NE(out.read().find("MIP/GapRel 0.25"), std::string::npos);
  TempFile sol(".sol");
  EXPECT_EQ(KLOwrite(model, sol.c_str()), KLO_ERROR_DATA_NOT_AVAILABLE);
  TempFile bas(".bas");
  EXPECT_EQ(KLOwrite(model, bas.c_str()), KLO_ERROR_DATA_NOT_AVAILABLE) << "no basis yet";
  EXPECT_EQ(KLOwrite(model, "model.txt"), KLO_ERROR_FILE_FORMAT);
  EXPECT_EQ(KLOwrite(model, "params.prm.gz"), KLO_ERROR_FILE_FORMAT);
  EXPECT_EQ(KLOwrite(model, nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOwrite(model, "/nonexistent/dir/m.lp"), KLO_ERROR_FILE_WRITE);
}

}  // namespace

namespace {

using FileTypes = klotest::ModelTest;

TEST_F(FileTypes, SemiIntegerVariablesLiveInLpFilesOnly) {
  addVars(2);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 1, 'N'), KLO_OK);
  ASSERT_EQ(KLOsetdblattrelement(model, "LB", 1, 2), KLO_OK);
  TempFile lp(".lp");
  ASSERT_EQ(KLOwrite(model, lp.c_str()), KLO_OK);
  KLOmodel* back = nullptr;
  ASSERT_EQ(KLOreadmodel(env, lp.c_str(), &back), KLO_OK) << lastError();
  EXPECT_EQ(snapshot(back), snapshot(model));
  KLOfreemodel(back);
  TempFile mps(".mps");
  EXPECT_EQ(KLOwrite(model, mps.c_str()), KLO_ERROR_NOT_SUPPORTED);
  EXPECT_NE(modelError().find("semi-integer"), std::string::npos);
}

TEST_F(FileTypes, EmptyModelRoundTrips) {
  for (const char* suffix : {".lp", ".mps"}) {
    TempFile file(suffix);
    ASSERT_EQ(KLOwrite(model, file.c_str()), KLO_OK) << modelError();
    KLOmodel* back = nullptr;
    ASSERT_EQ(KLOreadmodel(env, file.c_str(), &back), KLO_OK) << suffix << ": " << lastError();
    EXPECT_EQ(snapshot(back), snapshot(model)) << suffix;
    KLOfreemodel(back);
  }
}

}  // namespace
