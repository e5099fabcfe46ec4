// SOS sets, indicator constraints and objectives of several kinds.
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using Sos = klotest::ModelTest;

TEST_F(Sos, SetsKeepMembersWeightsAndTypes) {
  addVars(4);
  const int types[] = {KLO_SOS_TYPE1, KLO_SOS_TYPE2};
  const int beg[] = {0, 2};
  const int ind[] = {0, 1, 1, 2, 3};
  const double w[] = {1, 2, 10, 20, 30};
  ASSERT_EQ(KLOaddsos(model, 2, 5, types, beg, ind, w), KLO_OK);
  EXPECT_EQ(intAttr("NumSOS"), 2);
  EXPECT_EQ(intAttr("IsInteger"), 1);
  int n = 0, t[1], b[1], m[3];
  double mw[3];
  ASSERT_EQ(KLOgetsos(model, &n, t, b, m, mw, 1, 1), KLO_OK);
  EXPECT_EQ(n, 3);
  EXPECT_EQ(t[0], KLO_SOS_TYPE2);
  EXPECT_EQ(b[0], 0);
  EXPECT_EQ(m[2], 3);
  EXPECT_EQ(mw[2], 30.0);
  const int del[] = {0};
  ASSERT_EQ(KLOdelsos(model, 1, del), KLO_OK);
  ASSERT_EQ(KLOgetsos(model, &n, t, nullptr, nullptr, nullptr, 0, 1), KLO_OK);
  EXPECT_EQ(t[0], KLO_SOS_TYPE2);
  EXPECT_EQ(KLOgetsos(model, &n, t, nullptr, nullptr, nullptr, 1, 1), KLO_ERROR_INVALID_SOS);
  EXPECT_EQ(KLOdelsos(model, 1, beg + 1), KLO_ERROR_INVALID_SOS);
}

TEST_F(Sos, BadSetsAddNothing) {
  addVars(2);
  std::string before = klotest::snapshot(model);
  const int beg[] = {0};
  const int twice[] = {0, 0};
  const int ok[] = {0, 1};
  const double w[] = {1, 2};
  const double same[] = {1, 1};
  const int type1[] = {1};
  const int type3[] = {3};
  EXPECT_EQ(KLOaddsos(model, 1, 2, type3, beg, ok, w), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOaddsos(model, 1, 2, type1, beg, twice, w), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOaddsos(model, 1, 2, type1, beg, ok, same), KLO_ERROR_INVALID_ARGUMENT);
  const int bad[] = {0, 5};
  EXPECT_EQ(KLOaddsos(model, 1, 2, type1, beg, bad, w), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOaddsos(model, 1, 2, nullptr, beg, ok, w), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(klotest::snapshot(model), before);
  EXPECT_EQ(KLOaddsos(model, 1, 2, type1, beg, ok, nullptr), KLO_OK)
      << "weights default to 1, 2, ...";
}

using Indicators = klotest::ModelTest;

TEST_F(Indicators, ConstraintIsReadBackAsGiven) {
  addVars(2);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'B'), KLO_OK);
  const int ind[] = {1};
  const double val[] = {2.5};
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "on", 0, 0, 1, ind, val, '>', 4), KLO_OK);
  int bv = -1, bval = -1, n = 0, gi[1];
  double gv[1], rhs = 0;
  char sense = 0;
  ASSERT_EQ(KLOgetgenconstrIndicator(model, 0, &bv, &bval, &n, gi, gv, &sense, &rhs), KLO_OK);
  EXPECT_EQ(bv, 0);
  EXPECT_EQ(bval, 0);
  EXPECT_EQ(n, 1);
  EXPECT_EQ(gi[0], 1);
  EXPECT_EQ(gv[0], 2.5);
  EXPECT_EQ(sense, '>');
  EXPECT_EQ(rhs, 4.0);
  const char* name = nullptr;
  ASSERT_EQ(KLOgetstrattrelement(model, "GenConstrName", 0, &name), KLO_OK);
  EXPECT_STREQ(name, "on");
  const int del[] = {0};
  ASSERT_EQ(KLOdelgenconstrs(model, 1, del), KLO_OK);
  EXPECT_EQ(intAttr("NumGenConstrs"), 0);
  EXPECT_EQ(KLOdelgenconstrs(model, 1, del), KLO_ERROR_INVALID_GENCONSTR);
}

TEST_F(Indicators, IndicatorVariableMustBeBinaryAndValueZeroOrOne) {
  addVars(2);
  const int ind[] = {1};
  const double val[] = {1};
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "x", 0, 1, 1, ind, val, '<', 1),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_NE(modelError().find("binary"), std::string::npos);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'B'), KLO_OK);
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "x", 0, 2, 1, ind, val, '<', 1),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "x", 5, 1, 1, ind, val, '<', 1), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "x", 0, 1, 1, ind, val, '<', NAN),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(intAttr("NumGenConstrs"), 0);
}

using Objectives = klotest::ModelTest;

TEST_F(Objectives, ObjectiveZeroIsTheModelObjective) {
  addVars(2);
  const int ind[] = {1, 0};
  const double val[] = {5, 6};
  ASSERT_EQ(KLOsetobjectiven(model, 0, 1, 1, 0, 0, "main", 2.0, 2, ind, val), KLO_OK);
  EXPECT_EQ(dblAt("Obj", 0), 6.0);
  EXPECT_EQ(dblAt("Obj", 1), 5.0);
  double con = 0;
  ASSERT_EQ(KLOgetdblattr(model, "ObjCon", &con), KLO_OK);
  EXPECT_EQ(con, 2.0);
  EXPECT_EQ(intAttr("NumObj"), 1);
  const int bad[] = {7};
  EXPECT_EQ(KLOsetobjectiven(model, 1, 0, 1, 0, 0, "", 0, 1, bad, val), KLO_ERROR_INVALID_VAR);
  EXPECT_EQ(intAttr("NumObj"), 1) << "a failed call creates no objective";
  EXPECT_EQ(KLOsetobjectiven(model, 1, 0, NAN, 0, 0, "", 0, 0, nullptr, nullptr),
            KLO_ERROR_INVALID_ARGUMENT);
}

}  // namespace
