// Quadratic rows, the quadratic objective and PSD variables and rows.
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using Quadratic = klotest::ModelTest;

TEST_F(Quadratic, RowTermsAreMergedIntoOneTriangle) {
  addVars(3);
  const int lind[] = {0};
  const double lval[] = {2};
  // x1*x0 and x0*x1 add up; x2^2 stays on the diagonal.
  const int qr[] = {1, 0, 2}, qc[] = {0, 1, 2};
  const double qv[] = {1.5, 0.5, -1};
  ASSERT_EQ(KLOaddqconstr(model, 1, lind, lval, 3, qr, qc, qv, '>', 3, "q"), KLO_OK);
  EXPECT_EQ(intAttr("NumQConstrs"), 1);
  EXPECT_EQ(intAttr("NumConstrs"), 1);
  EXPECT_EQ(intAttr("NumNZs"), 1);
  EXPECT_EQ(intAttr("NumEnts"), 3);
  int nl = 0, nq = 0, r[3], c[3], li[1];
  double v[3], lv[1];
  ASSERT_EQ(KLOgetqconstr(model, 0, &nl, li, lv, &nq, r, c, v), KLO_OK);
  ASSERT_EQ(nq, 2);
  EXPECT_EQ(r[0], 0);
  EXPECT_EQ(c[0], 1);
  EXPECT_EQ(v[0], 2.0);
  EXPECT_EQ(r[1], 2);
  EXPECT_EQ(v[1], -1.0);
  EXPECT_EQ(dblAt("QCLHS", 0), 3.0);
  EXPECT_EQ(dblAt("QCRHS", 0), KLO_INFINITY);
  EXPECT_EQ(KLOgetqconstr(model, 1, &nl, li, lv, &nq, r, c, v), KLO_ERROR_INVALID_CONSTR);
}

TEST_F(Quadratic, ObjectiveTermsAccumulateUntilDeleted) {
  addVars(2);
  const int r1[] = {0}, c1[] = {1};
  const double v1[] = {1};
  ASSERT_EQ(KLOaddqpterms(model, 1, r1, c1, v1), KLO_OK);
  const int r2[] = {1, 1}, c2[] = {0, 1};
  const double v2[] = {2, 4};
  ASSERT_EQ(KLOaddqpterms(model, 2, r2, c2, v2), KLO_OK);
  int n = 0, r[2], c[2];
  double v[2];
  ASSERT_EQ(KLOgetq(model, &n, nullptr, nullptr, nullptr), KLO_OK);
  ASSERT_EQ(n, 2);
  ASSERT_EQ(KLOgetq(model, &n, r, c, v), KLO_OK);
  EXPECT_EQ(v[0], 3.0);
  EXPECT_EQ(v[1], 4.0);
  const int bad[] = {2};
  EXPECT_EQ(KLOaddqpterms(model, 1, bad, c1, v1), KLO_ERROR_INVALID_VAR);
  const double inf[] = {INFINITY};
  EXPECT_EQ(KLOaddqpterms(model, 1, r1, c1, inf), KLO_ERROR_INVALID_ARGUMENT);
  ASSERT_EQ(KLOgetq(model, &n, nullptr, nullptr, nullptr), KLO_OK);
  EXPECT_EQ(n, 2) << "failed additions change nothing";
  ASSERT_EQ(KLOdelq(model), KLO_OK);
  ASSERT_EQ(KLOgetq(model, &n, nullptr, nullptr, nullptr), KLO_OK);
  EXPECT_EQ(n, 0);
}

using Psd = klotest::ModelTest;

TEST_F(Psd, RowsWithMatricesOfSeveralVariables) {
  addVars(1);
  ASSERT_EQ(KLOaddpsdvar(model, 2, "A"), KLO_OK);
  ASSERT_EQ(KLOaddpsdvar(model, 3, "B"), KLO_OK);
  const int cind[] = {0};
  const double cval[] = {1};
  const int psdvar[] = {0, 1};
  // A: entry (1,0) stands for itself and (0,1); B: the diagonal.
  const int mbeg[] = {0, 2, 5};
  const int mind[] = {2, 0, 0, 4, 8};
  const double mval[] = {0.5, 1, 1, 1, 1};
  ASSERT_EQ(KLOaddrangepsdconstr(model, 1, cind, cval, 2, psdvar, mbeg, mind, mval, 1, 1, "trace"),
            KLO_OK);
  EXPECT_EQ(intAttr("NumPsdConstrs"), 1);
  EXPECT_EQ(intAttr("NumEnts"), 1 + 2 + 3);
  EXPECT_EQ(dblAt("PsdCLHS", 0), 1.0);
  int index = -1;
  ASSERT_EQ(KLOgetconstrbyname(model, "trace", &index), KLO_OK);
  EXPECT_EQ(index, 0);

  // Deleting A keeps the row with B's terms.
  const int del[] = {0};
  ASSERT_EQ(KLOdelpsdvars(model, 1, del), KLO_OK);
  EXPECT_EQ(intAttr("NumPsdVars"), 1);
  EXPECT_EQ(intAttr("NumPsdConstrs"), 1);
  EXPECT_EQ(intAttr("NumEnts"), 1 + 3);
  const char* name = nullptr;
  ASSERT_EQ(KLOgetstrattrelement(model, "PsdVarName", 0, &name), KLO_OK);
  EXPECT_STREQ(name, "B");
  ASSERT_EQ(KLOdelpsdvars(model, 1, del), KLO_OK);
  EXPECT_EQ(intAttr("NumPsdConstrs"), 0);
}

TEST_F(Psd, BadMatricesAreRefused) {
  ASSERT_EQ(KLOaddpsdvar(model, 2, "A"), KLO_OK);
  std::string before = klotest::snapshot(model);
  const int psdvar[] = {0};
  const int mbeg[] = {0, 1};
  const int outside[] = {4};
  const double one[] = {1};
  EXPECT_EQ(
      KLOaddrangepsdconstr(model, 0, nullptr, nullptr, 1, psdvar, mbeg, outside, one, 0, 1, ""),
      KLO_ERROR_INVALID_ARGUMENT);
  const int other[] = {1};
  const int pos[] = {0};
  EXPECT_EQ(KLOaddrangepsdconstr(model, 0, nullptr, nullptr, 1, other, mbeg, pos, one, 0, 1, ""),
            KLO_ERROR_INVALID_PSDVAR);
  const int bothTriangles[] = {1, 2};
  const double unequal[] = {1, 2};
  const int mbeg2[] = {0, 2};
  EXPECT_EQ(KLOaddrangepsdconstr(model, 0, nullptr, nullptr, 1, psdvar, mbeg2, bothTriangles,
                                 unequal, 0, 1, ""),
            KLO_ERROR_INVALID_ARGUMENT);
  const double nan[] = {NAN};
  EXPECT_EQ(KLOaddrangepsdconstr(model, 0, nullptr, nullptr, 1, psdvar, mbeg, pos, nan, 0, 1, ""),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(
      KLOaddrangepsdconstr(model, 0, nullptr, nullptr, 1, psdvar, nullptr, pos, one, 0, 1, ""),
      KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOaddpsdvar(model, 0, "empty"), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(klotest::snapshot(model), before);
}

TEST_F(Psd, ObjectiveMatrixIsStoredAsOneTriangle) {
  ASSERT_EQ(KLOaddpsdvar(model, 2, "A"), KLO_OK);
  const int pos[] = {2, 1, 3};  // given whole: (1,0) and (0,1) are one entry
  const double val[] = {2, 2, 5};
  ASSERT_EQ(KLOsetmatattrelement(model, "PsdObj", 0, 3, 2, 2, pos, val), KLO_OK);
  int nnz = 0, nr = 0, nc = 0, ind[3];
  double v[3];
  ASSERT_EQ(KLOgetmatattrelement(model, "PsdObj", 0, &nnz, &nr, &nc, ind, v), KLO_OK);
  EXPECT_EQ(nnz, 2);
  EXPECT_EQ(nr, 2);
  EXPECT_EQ(nc, 2);
  EXPECT_EQ(ind[0], 1);
  EXPECT_EQ(v[0], 2.0);
  EXPECT_EQ(ind[1], 3);
  EXPECT_EQ(KLOsetmatattrelement(model, "PsdObj", 0, 1, 3, 3, pos, val),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOsetmatattrelement(model, "PsdObj", 1, 1, 2, 2, pos, val), KLO_ERROR_INVALID_PSDVAR);
  EXPECT_EQ(KLOgetmatattrelement(model, "PsdX", 0, &nnz, &nr, &nc, ind, v),
            KLO_ERROR_DATA_NOT_AVAILABLE);
}

}  // namespace
