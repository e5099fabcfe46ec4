// Variables: bulk adds with columns, deletion everywhere, lookup by name.
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using Variables = klotest::ModelTest;

TEST_F(Variables, ColumnsGoIntoExistingRows) {
  addVars(1);
  const int ind[] = {0, 0};
  const double val[] = {1, 1};
  const char sense[] = {'<', '>'};
  const double rhs[] = {4, 1};
  const int beg[] = {0, 1};
  ASSERT_EQ(KLOaddconstrs(model, 2, 2, beg, ind, val, sense, rhs, nullptr), KLO_OK);
  // Two columns: y in rows 1 and 0 (given out of order, with a duplicate
  // entry for row 0 that adds up), z in no row.
  const int vbeg[] = {0, 3};
  const int vind[] = {1, 0, 0};
  const double vval[] = {2, 3, 4};
  const char* names[] = {"y", "z"};
  ASSERT_EQ(KLOaddvars(model, 2, 3, vbeg, vind, vval, nullptr, nullptr, nullptr, nullptr, names),
            KLO_OK);
  double a = 0;
  ASSERT_EQ(KLOgetconstrcoeff(model, 0, 1, &a), KLO_OK);
  EXPECT_EQ(a, 7.0);
  ASSERT_EQ(KLOgetconstrcoeff(model, 1, 1, &a), KLO_OK);
  EXPECT_EQ(a, 2.0);
  int nnz = 0;
  int cbeg[3];
  int cind[8];
  double cval[8];
  ASSERT_EQ(KLOgetvars(model, &nnz, cbeg, cind, cval, 0, 3), KLO_OK);
  ASSERT_EQ(nnz, 4);
  EXPECT_EQ(std::vector<int>(cbeg, cbeg + 3), (std::vector<int>{0, 2, 4}));
  EXPECT_EQ(std::vector<int>(cind, cind + 4), (std::vector<int>{0, 1, 0, 1}));
  EXPECT_EQ(std::vector<double>(cval, cval + 4), (std::vector<double>{1, 1, 7, 2}));
}

TEST_F(Variables, GetVarsCountsWithNullArrays) {
  addVars(3);
  const int ind[] = {0, 2};
  const double val[] = {1, 5};
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, val, 0, 1, "r"), KLO_OK);
  int nnz = -1;
  ASSERT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 1, 2), KLO_OK);
  EXPECT_EQ(nnz, 1);
  ASSERT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 0, 0), KLO_OK);
  EXPECT_EQ(nnz, 0);
  EXPECT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 2, 2), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOgetvars(model, nullptr, nullptr, nullptr, nullptr, 0, 1), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(Variables, DeletionRemovesTermsEverywhere) {
  addVars(4);
  ASSERT_EQ(KLOsetintparam(KLOgetenv(model), "ObjNumber", 0), KLO_OK);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 3, 'B'), KLO_OK);
  const int ind[] = {0, 1, 2};
  const double val[] = {1, 2, 3};
  ASSERT_EQ(KLOaddrangeconstr(model, 3, ind, val, 0, 9, "lin"), KLO_OK);
  const int qr[] = {1, 0, 2}, qc[] = {1, 2, 2};
  const double qv[] = {1, 4, 5};
  ASSERT_EQ(KLOaddqconstr(model, 2, ind, val, 3, qr, qc, qv, '<', 8, "quad"), KLO_OK);
  ASSERT_EQ(KLOaddqpterms(model, 3, qr, qc, qv), KLO_OK);
  const int type = 1, beg = 0, members[] = {0, 1, 2};
  const double weights[] = {1, 2, 3};
  ASSERT_EQ(KLOaddsos(model, 1, 3, &type, &beg, members, weights), KLO_OK);
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "keep", 3, 1, 2, ind, val, '<', 1), KLO_OK);
  const int obj1[] = {1, 2};
  const double c1[] = {6, 7};
  ASSERT_EQ(KLOsetobjectiven(model, 1, 0, 1, 0, 0, "second", 0, 2, obj1, c1), KLO_OK);

  const int del[] = {1, 1};  // duplicates are harmless
  ASSERT_EQ(KLOdelvars(model, 2, del), KLO_OK);
  EXPECT_EQ(intAttr("NumVars"), 3);
  // Former x2 is now x1.
  int index = -1;
  ASSERT_EQ(KLOgetvarbyname(model, "x2", &index), KLO_OK);
  EXPECT_EQ(index, 1);
  ASSERT_EQ(KLOgetvarbyname(model, "x1", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  double a = 0;
  ASSERT_EQ(KLOgetconstrcoeff(model, 0, 1, &a), KLO_OK);
  EXPECT_EQ(a, 3.0);
  EXPECT_EQ(intAttr("NumNZs"), 2 + 1);  // lin row: x0, x1; quad row: x0
  int nl = 0, nq = 0, r[3], c[3];
  double v[3];
  ASSERT_EQ(KLOgetqconstr(model, 1, &nl, nullptr, nullptr, &nq, r, c, v), KLO_OK);
  EXPECT_EQ(nq, 2);  // x0*x2 -> x0*x1 and x2^2 -> x1^2; x1^2 went
  ASSERT_EQ(KLOgetq(model, &nq, r, c, v), KLO_OK);
  EXPECT_EQ(nq, 2);
  int nm = 0, sbeg = 0, sind[3];
  double sw[3];
  ASSERT_EQ(KLOgetsos(model, &nm, nullptr, &sbeg, sind, sw, 0, 1), KLO_OK);
  ASSERT_EQ(nm, 2);
  EXPECT_EQ(sind[0], 0);
  EXPECT_EQ(sind[1], 1);
  EXPECT_EQ(sw[1], 3.0);
  int bv = -1, n = 0;
  ASSERT_EQ(
      KLOgetgenconstrIndicator(model, 0, &bv, nullptr, &n, nullptr, nullptr, nullptr, nullptr),
      KLO_OK);
  EXPECT_EQ(bv, 2);
  EXPECT_EQ(n, 1);
  ASSERT_EQ(KLOsetintparam(KLOgetenv(model), "ObjNumber", 1), KLO_OK);
  EXPECT_EQ(dblAt("ObjN", 1), 7.0);
  EXPECT_EQ(dblAt("ObjN", 0), 0.0);

  // Deleting the indicator's binary variable removes the indicator.
  const int bin[] = {2};
  ASSERT_EQ(KLOdelvars(model, 1, bin), KLO_OK);
  EXPECT_EQ(intAttr("NumGenConstrs"), 0);
}

TEST_F(Variables, FailedDeletionChangesNothing) {
  addVars(3);
  std::string before = klotest::snapshot(model);
  const int del[] = {0, 3};
  EXPECT_EQ(KLOdelvars(model, 2, del), KLO_ERROR_INVALID_VAR);
  EXPECT_NE(modelError().find("3"), std::string::npos);
  EXPECT_EQ(klotest::snapshot(model), before);
  EXPECT_EQ(KLOdelvars(model, -1, del), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOdelvars(model, 1, nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOdelvars(model, 0, nullptr), KLO_OK);
}

TEST_F(Variables, NamesAreFoundAfterRenamesAndDeletes) {
  addVars(5);
  int index = -1;
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 3, "x1"), KLO_OK);  // duplicate of x1
  ASSERT_EQ(KLOgetvarbyname(model, "x1", &index), KLO_OK);
  EXPECT_EQ(index, 1) << "the first of two equal names";
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 1, "renamed"), KLO_OK);
  ASSERT_EQ(KLOgetvarbyname(model, "x1", &index), KLO_OK);
  EXPECT_EQ(index, 3) << "the remaining holder of the name";
  ASSERT_EQ(KLOgetvarbyname(model, "x3", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  const int del[] = {0};
  ASSERT_EQ(KLOdelvars(model, 1, del), KLO_OK);
  ASSERT_EQ(KLOgetvarbyname(model, "renamed", &index), KLO_OK);
  EXPECT_EQ(index, 0);
  ASSERT_EQ(KLOgetvarbyname(model, "x4", &index), KLO_OK);
  EXPECT_EQ(index, 3);
  ASSERT_EQ(KLOgetvarbyname(model, "", &index), KLO_OK);
  EXPECT_EQ(index, -1) << "empty names are never found";
  EXPECT_EQ(KLOgetvarbyname(model, nullptr, &index), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(Variables, TypesAndBounds) {
  addVars(1);
  ASSERT_EQ(KLOsetdblattrelement(model, "LB", 0, -5), KLO_OK);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'B'), KLO_OK);
  EXPECT_EQ(dblAt("LB", 0), 0.0);
  EXPECT_EQ(dblAt("UB", 0), 1.0);
  ASSERT_EQ(KLOsetdblattrelement(model, "UB", 0, 7), KLO_OK);
  EXPECT_EQ(dblAt("UB", 0), 1.0) << "a binary's bounds stay within [0, 1]";
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'I'), KLO_OK);
  ASSERT_EQ(KLOsetdblattrelement(model, "UB", 0, 1e30), KLO_OK);
  EXPECT_EQ(dblAt("UB", 0), KLO_INFINITY) << "bounds beyond 1e20 are infinite";
  ASSERT_EQ(KLOsetdblattrelement(model, "LB", 0, -INFINITY), KLO_OK);
  EXPECT_EQ(dblAt("LB", 0), -KLO_INFINITY);
  EXPECT_EQ(intAttr("NumIntVars"), 1);
  EXPECT_EQ(intAttr("NumBinVars"), 0);
  EXPECT_EQ(intAttr("NumContVars"), 0);
  EXPECT_EQ(KLOsetcharattrelement(model, "VType", 0, 'c'), KLO_ERROR_INVALID_ARGUMENT);
}

}  // namespace
