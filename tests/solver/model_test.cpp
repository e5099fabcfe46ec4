// Models: creation, copies, relaxation, reset, environments.
#include <cstring>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using klotest::ModelTest;
using klotest::snapshot;

using Models = klotest::EnvTest;

TEST_F(Models, NewModelWithInitialVariablesAndDefaults) {
  KLOmodel* m = nullptr;
  const double obj[] = {1, 2, 3};
  const char types[] = {'C', 'B', 'I'};
  const char* names[] = {"a", nullptr, "c"};
  ASSERT_EQ(KLOnewmodel(env, &m, "prob", 3, obj, nullptr, nullptr, types, names), KLO_OK);
  int n = 0;
  EXPECT_EQ(KLOgetintattr(m, "NumVars", &n), KLO_OK);
  EXPECT_EQ(n, 3);
  double ub = 0, lb = -1;
  EXPECT_EQ(KLOgetdblattrelement(m, "UB", 0, &ub), KLO_OK);
  EXPECT_EQ(ub, KLO_INFINITY);
  EXPECT_EQ(KLOgetdblattrelement(m, "UB", 1, &ub), KLO_OK);
  EXPECT_EQ(ub, 1.0) << "binary bounds are clipped to [0, 1]";
  EXPECT_EQ(KLOgetdblattrelement(m, "LB", 2, &lb), KLO_OK);
  EXPECT_EQ(lb, 0.0);
  const char* name = nullptr;
  EXPECT_EQ(KLOgetstrattrelement(m, "VarName", 1, &name), KLO_OK);
  EXPECT_STREQ(name, "");
  EXPECT_EQ(KLOgetstrattr(m, "ProbName", &name), KLO_OK);
  EXPECT_STREQ(name, "prob");
  KLOfreemodel(m);
}

TEST_F(Models, NewModelRefusesBadArgumentsAndHandsOutNothing) {
  KLOmodel* m = reinterpret_cast<KLOmodel*>(0x1);
  const char types[] = {'C', 'X'};
  EXPECT_EQ(KLOnewmodel(env, &m, "p", 2, nullptr, nullptr, nullptr, types, nullptr),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(m, nullptr);
  EXPECT_NE(std::string(KLOgeterrormsg(env)).find("'X'"), std::string::npos);
  EXPECT_EQ(KLOnewmodel(env, &m, "p", -1, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOnewmodel(env, nullptr, "p", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOnewmodel(nullptr, &m, "p", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_NULL_ARGUMENT);
}

using ModelLife = ModelTest;

TEST_F(ModelLife, ModelOwnsACopyOfItsEnvironment) {
  KLOenv* own = KLOgetenv(model);
  ASSERT_NE(own, nullptr);
  EXPECT_NE(own, env);
  ASSERT_EQ(KLOsetintparam(own, "Method", 2), KLO_OK);
  int method = 0;
  ASSERT_EQ(KLOgetintparam(env, "Method", &method), KLO_OK);
  EXPECT_EQ(method, -1) << "the model's parameters are its own";
  ASSERT_EQ(KLOgetintparam(own, "LogToConsole", &method), KLO_OK);
  EXPECT_EQ(method, 0) << "copied from the environment it was made from";
  EXPECT_EQ(KLOfreeenv(own), KLO_ERROR_INVALID_ARGUMENT) << "freed with its model only";
  EXPECT_EQ(KLOgetenv(nullptr), nullptr);
}

TEST_F(ModelLife, ModelOutlivesTheEnvironmentItWasMadeFrom) {
  KLOenv* other = nullptr;
  ASSERT_EQ(KLOloadenv(&other, nullptr), KLO_OK);
  KLOmodel* m = nullptr;
  ASSERT_EQ(KLOnewmodel(other, &m, "p", 1, nullptr, nullptr, nullptr, nullptr, nullptr), KLO_OK);
  KLOfreeenv(other);
  EXPECT_EQ(KLOaddvar(m, 0, nullptr, nullptr, 1.0, 0, 1, 'C', "y"), KLO_OK);
  int n = 0;
  EXPECT_EQ(KLOgetintattr(m, "NumVars", &n), KLO_OK);
  EXPECT_EQ(n, 2);
  KLOfreemodel(m);
}

TEST_F(ModelLife, CopyIsDeepAndIndependent) {
  addVars(2);
  const int ind[] = {0, 1};
  const double val[] = {1, 2};
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, val, 1, 5, "r"), KLO_OK);
  ASSERT_EQ(KLOsetintparam(KLOgetenv(model), "Presolve", 0), KLO_OK);
  KLOmodel* copy = KLOcopymodel(model);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(snapshot(copy), snapshot(model));
  int presolve = 1;
  ASSERT_EQ(KLOgetintparam(KLOgetenv(copy), "Presolve", &presolve), KLO_OK);
  EXPECT_EQ(presolve, 0) << "the copy has a copy of the parameters";

  std::string before = snapshot(model);
  ASSERT_EQ(KLOsetconstrcoeff(copy, 0, 0, 7.0), KLO_OK);
  ASSERT_EQ(KLOsetstrattrelement(copy, "VarName", 1, "renamed"), KLO_OK);
  ASSERT_EQ(KLOaddvar(copy, 0, nullptr, nullptr, 0, 0, 1, 'B', "z"), KLO_OK);
  EXPECT_EQ(snapshot(model), before);
  int index = 0;
  ASSERT_EQ(KLOgetvarbyname(model, "renamed", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  KLOfreemodel(copy);
  EXPECT_EQ(KLOcopymodel(nullptr), nullptr);
}

TEST_F(ModelLife, RelaxDropsIntegralitySosAndIndicators) {
  const char types[] = {'B', 'I', 'S', 'C'};
  const double lb[] = {0, -3, 2, 0};
  const double ub[] = {1, 3, 5, 4};
  ASSERT_EQ(KLOaddvars(model, 4, 0, nullptr, nullptr, nullptr, nullptr, lb, ub, types, nullptr),
            KLO_OK);
  const int type = KLO_SOS_TYPE1, beg = 0, members[] = {1, 3};
  ASSERT_EQ(KLOaddsos(model, 1, 2, &type, &beg, members, nullptr), KLO_OK);
  const int ind = 3;
  const double val = 1;
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "ic", 0, 1, 1, &ind, &val, '<', 2), KLO_OK);
  KLOmodel* relaxed = nullptr;
  ASSERT_EQ(KLOrelaxmodel(model, &relaxed), KLO_OK);
  int n = -1;
  EXPECT_EQ(KLOgetintattr(relaxed, "IsInteger", &n), KLO_OK);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(KLOgetintattr(relaxed, "NumSOS", &n), KLO_OK);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(KLOgetintattr(relaxed, "NumGenConstrs", &n), KLO_OK);
  EXPECT_EQ(n, 0);
  char t[4];
  double rlb[4], rub[4];
  ASSERT_EQ(KLOgetcharattrarray(relaxed, "VType", 0, 4, t), KLO_OK);
  ASSERT_EQ(KLOgetdblattrarray(relaxed, "LB", 0, 4, rlb), KLO_OK);
  ASSERT_EQ(KLOgetdblattrarray(relaxed, "UB", 0, 4, rub), KLO_OK);
  for (int j = 0; j < 4; ++j) EXPECT_EQ(t[j], 'C');
  EXPECT_EQ(rlb[2], 0.0) << "a semi-continuous variable may be 0";
  EXPECT_EQ(rub[0], 1.0);
  EXPECT_EQ(rlb[1], -3.0);
  EXPECT_EQ(intAttr("IsInteger"), 1) << "the original is unchanged";
  KLOfreemodel(relaxed);
  EXPECT_EQ(KLOrelaxmodel(model, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(ModelLife, ResetClearsStartsAndBasesOnlyWithClearAll) {
  addVars(2);
  ASSERT_EQ(KLOsetdblattrelement(model, "Start", 0, 4.0), KLO_OK);
  ASSERT_EQ(KLOsetintattrelement(model, "ColBasis", 1, KLO_BASIS_BASIC), KLO_OK);
  ASSERT_EQ(KLOreset(model, 0), KLO_OK);
  EXPECT_EQ(dblAt("Start", 0), 4.0);
  int basis = -1;
  EXPECT_EQ(KLOgetintattrelement(model, "ColBasis", 1, &basis), KLO_OK);
  EXPECT_EQ(basis, KLO_BASIS_BASIC);
  ASSERT_EQ(KLOreset(model, 1), KLO_OK);
  EXPECT_EQ(dblAt("Start", 0), KLO_UNDEFINED);
  EXPECT_EQ(KLOgetintattrelement(model, "ColBasis", 1, &basis), KLO_ERROR_DATA_NOT_AVAILABLE);
  EXPECT_EQ(KLOreset(model, 2), KLO_ERROR_INVALID_ARGUMENT);
}

TEST_F(ModelLife, MultiObjectiveEnvironmentsAreMadeOnFirstUse) {
  addVars(2);
  EXPECT_EQ(intAttr("NumObj"), 1) << "the model's own objective";
  const int ind[] = {1};
  const double val[] = {3};
  ASSERT_EQ(KLOsetobjectiven(model, 2, 5, 1.0, 0, 0, "third", 0, 1, ind, val), KLO_OK);
  EXPECT_EQ(intAttr("NumObj"), 3);
  KLOenv* e2 = KLOgetmultiobjenv(model, 2);
  ASSERT_NE(e2, nullptr);
  EXPECT_EQ(KLOgetmultiobjenv(model, 2), e2) << "made once";
  EXPECT_NE(e2, KLOgetenv(model));
  ASSERT_EQ(KLOsetdblparam(e2, "MaxTime", 5.0), KLO_OK);
  double t = 0;
  ASSERT_EQ(KLOgetdblparam(KLOgetenv(model), "MaxTime", &t), KLO_OK);
  EXPECT_EQ(t, 1e20);
  EXPECT_EQ(KLOgetmultiobjenv(model, 3), nullptr);
  EXPECT_EQ(KLOgetmultiobjenv(model, -1), nullptr);
  EXPECT_EQ(KLOdiscardmultiobjenvs(model), KLO_OK);
  EXPECT_NE(KLOgetmultiobjenv(model, 0), nullptr);
}

TEST_F(ModelLife, FreeingNullIsHarmless) { EXPECT_EQ(KLOfreemodel(nullptr), KLO_OK); }

}  // namespace
