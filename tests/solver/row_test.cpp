// Rows: senses, ranges, coefficients, deletion, names.
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using Rows = klotest::ModelTest;

TEST_F(Rows, SensesBecomeBounds) {
  addVars(2);
  const int beg[] = {0, 1, 2, 3};
  const int ind[] = {0, 1, 0, 1};
  const double val[] = {1, 1, 1, 1};
  const char sense[] = {'<', '>', '=', '?'};
  const double rhs[] = {1, 2, 3, 4};
  const char* names[] = {"le", "ge", "eq", "other"};
  ASSERT_EQ(KLOaddconstrs(model, 4, 4, beg, ind, val, sense, rhs, names), KLO_OK);
  const double lhs[] = {-KLO_INFINITY, 2, 3, -KLO_INFINITY};
  const double rhsOut[] = {1, KLO_INFINITY, 3, 4};
  double lo[4], up[4];
  ASSERT_EQ(KLOgetdblattrarray(model, "LHS", 0, 4, lo), KLO_OK);
  ASSERT_EQ(KLOgetdblattrarray(model, "RHS", 0, 4, up), KLO_OK);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(lo[i], lhs[i]) << i;
    EXPECT_EQ(up[i], rhsOut[i]) << i;
  }
  int index = -1;
  ASSERT_EQ(KLOgetconstrbyname(model, "eq", &index), KLO_OK);
  EXPECT_EQ(index, 2);
}

TEST_F(Rows, NullSensesRightHandSidesAndBoundsAreDefaults) {
  addVars(1);
  // Empty rows with default sense '<' and right-hand side 0: (-inf, 0].
  ASSERT_EQ(KLOaddconstrs(model, 2, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_OK);
  const double upper[] = {5};
  // A null lower array leaves the lower side open.
  ASSERT_EQ(KLOaddrangeconstrs(model, 1, 0, nullptr, nullptr, nullptr, nullptr, upper, nullptr),
            KLO_OK);
  double lo[3], up[3];
  ASSERT_EQ(KLOgetdblattrarray(model, "LHS", 0, 3, lo), KLO_OK);
  ASSERT_EQ(KLOgetdblattrarray(model, "RHS", 0, 3, up), KLO_OK);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(lo[i], -KLO_INFINITY) << i;
  EXPECT_EQ(up[0], 0.0);
  EXPECT_EQ(up[1], 0.0);
  EXPECT_EQ(up[2], 5.0);
}

TEST_F(Rows, RangesAndCoefficients) {
  addVars(3);
  const int ind[] = {2, 0, 2};
  const double val[] = {1.5, -1, 0.5};
  ASSERT_EQ(KLOaddrangeconstr(model, 3, ind, val, -1, 1, nullptr), KLO_OK);
  int nnz = 0, cbeg[1], cind[3];
  double cval[3];
  ASSERT_EQ(KLOgetconstrs(model, &nnz, cbeg, cind, cval, 0, 1), KLO_OK);
  ASSERT_EQ(nnz, 2) << "duplicates add up";
  EXPECT_EQ(cind[0], 0);
  EXPECT_EQ(cval[1], 2.0);
  ASSERT_EQ(KLOsetconstrcoeff(model, 0, 1, 4.0), KLO_OK);
  ASSERT_EQ(KLOsetconstrcoeff(model, 0, 0, 0.0), KLO_OK);
  double a = -1;
  ASSERT_EQ(KLOgetconstrcoeff(model, 0, 0, &a), KLO_OK);
  EXPECT_EQ(a, 0.0);
  ASSERT_EQ(KLOgetconstrcoeff(model, 0, 1, &a), KLO_OK);
  EXPECT_EQ(a, 4.0);
  EXPECT_EQ(intAttr("NumNZs"), 2);
  EXPECT_EQ(KLOsetconstrcoeff(model, 1, 0, 1.0), KLO_ERROR_INVALID_CONSTR);
  EXPECT_EQ(KLOsetconstrcoeff(model, 0, 3, 1.0), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOsetconstrcoeff(model, 0, 0, INFINITY), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOgetconstrcoeff(model, 0, 0, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(Rows, OneBadRowAddsNone) {
  addVars(2);
  std::string before = klotest::snapshot(model);
  std::vector<int> beg(100), ind(100);
  std::vector<double> val(100, 1.0), lo(100, 0.0), up(100, 1.0);
  for (int k = 0; k < 100; ++k) beg[k] = k, ind[k] = k % 2;
  ind[57] = 9;
  EXPECT_EQ(KLOaddrangeconstrs(model, 100, 100, beg.data(), ind.data(), val.data(), lo.data(),
                               up.data(), nullptr),
            KLO_ERROR_INVALID_VAR);
  EXPECT_NE(modelError().find("9"), std::string::npos);
  EXPECT_EQ(klotest::snapshot(model), before);
  ind[57] = 1;
  lo[99] = NAN;
  EXPECT_EQ(KLOaddrangeconstrs(model, 100, 100, beg.data(), ind.data(), val.data(), lo.data(),
                               up.data(), nullptr),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(klotest::snapshot(model), before);
  lo[99] = 0;
  EXPECT_EQ(KLOaddrangeconstrs(model, 100, 100, beg.data(), ind.data(), val.data(), lo.data(),
                               up.data(), nullptr),
            KLO_OK);
  EXPECT_EQ(intAttr("NumConstrs"), 100);
}

TEST_F(Rows, DeletionRenumbersRowsAndNames) {
  addVars(1);
  for (const char* n : {"a", "b", "c", "d"}) {
    const int ind = 0;
    const double val = 1;
    ASSERT_EQ(KLOaddrangeconstr(model, 1, &ind, &val, 0, 1, n), KLO_OK);
  }
  const int del[] = {2, 0};
  ASSERT_EQ(KLOdelconstrs(model, 2, del), KLO_OK);
  EXPECT_EQ(intAttr("NumConstrs"), 2);
  int index = -1;
  ASSERT_EQ(KLOgetconstrbyname(model, "d", &index), KLO_OK);
  EXPECT_EQ(index, 1);
  ASSERT_EQ(KLOgetconstrbyname(model, "a", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  int nnz = -1;
  ASSERT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 0, 1), KLO_OK);
  EXPECT_EQ(nnz, 2) << "the column view follows deletions";
  const int gone[] = {2};
  EXPECT_EQ(KLOdelconstrs(model, 1, gone), KLO_ERROR_INVALID_CONSTR);
}

}  // namespace
