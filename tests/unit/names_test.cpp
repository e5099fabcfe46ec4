// Enumerators turn into the library's names by table row; the char
// attribute and the string parameter each have one fixed name.
#include "env/names.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "klo_cpp.h"

namespace {

TEST(Names, IntegerAttributesByRow) {
  EXPECT_STREQ(klo_detail::name(KLO_IntAttr_NumVars), "NumVars");
  EXPECT_EQ(KLO_IntAttr_NumVars, 5);
  EXPECT_STREQ(klo_detail::name(static_cast<KLO_IntAttr>(32)), "NumBinVars");
  EXPECT_STREQ(klo_detail::name(KLO_IntAttr_SPX_NumIters), "SPX/NumIters");
}

TEST(Names, GapAbsIsBothADoubleAttributeAndADoubleParameter) {
  EXPECT_STREQ(klo_detail::name(static_cast<KLO_DoubleParam>(9)), "MIP/GapAbs");
  EXPECT_STREQ(klo_detail::name(static_cast<KLO_DoubleAttr>(9)), "MIP/GapAbs");
  EXPECT_STREQ(klo_detail::name(KLO_DoubleAttr_MIP_GapRel), "MIP/GapRel");
  EXPECT_STREQ(klo_detail::name(KLO_DoubleParam_MIP_GapRel), "MIP/GapRel");
}

TEST(Names, NearDuplicatesKeepTheirOwnRows) {
  EXPECT_STREQ(klo_detail::name(KLO_IntAttr_NumConss), "NumConss");
  EXPECT_STREQ(klo_detail::name(KLO_IntAttr_NumConstrs), "NumConstrs");
  EXPECT_STREQ(klo_detail::name(KLO_DoubleAttr_PrimalSoln), "PrimalSoln");
  EXPECT_STREQ(klo_detail::name(KLO_DoubleAttr_X), "X");
  EXPECT_EQ(KLO_DoubleAttr_X, 19);
  EXPECT_STREQ(klo_detail::name(KLO_StringAttr_ProbName), "ProbName");
  EXPECT_STREQ(klo_detail::name(KLO_StringAttr_ModelName), "ModelName");
}

TEST(Names, FixedNamesIgnoreTheEnumeratorValue) {
  for (int v : {0, 1, 7, -3}) {
    EXPECT_STREQ(klo_detail::name(static_cast<KLO_CharAttr>(v)), "VType");
    EXPECT_STREQ(klo_detail::name(static_cast<KLO_StringParam>(v)), "LogFile");
  }
}

TEST(Names, LastRowsOfEveryTable) {
  EXPECT_STREQ(klo_detail::name(KLO_DoubleAttr_ObjNAbsTol), "ObjNAbsTol");
  EXPECT_STREQ(klo_detail::name(KLO_StringAttr_GenConstrName), "GenConstrName");
  EXPECT_STREQ(klo_detail::name(KLO_MatAttr_PsdObj), "PsdObj");
  EXPECT_STREQ(klo_detail::name(KLO_IntParam_ObjNumber), "ObjNumber");
  EXPECT_STREQ(klo_detail::name(KLO_DoubleParam_PDHG_PrimalTolerance), "PDHG/PrimalTolerance");
}

// A row typed twice would make two enumerators name one attribute.
template <std::size_t N>
void expectDistinctRows(const char* const (&table)[N]) {
  std::set<std::string> seen;
  for (const char* row : table) {
    ASSERT_NE(row, nullptr);
    EXPECT_TRUE(seen.insert(row).second) << row << " appears twice";
  }
}

TEST(Names, NoTableRepeatsARow) {
  expectDistinctRows(INT_ATTRNAMES);
  expectDistinctRows(DBL_ATTRNAMES);
  expectDistinctRows(STR_ATTRNAMES);
  expectDistinctRows(MAT_ATTRNAMES);
  expectDistinctRows(INT_PARNAMES);
  expectDistinctRows(DBL_PARNAMES);
}

}  // namespace
