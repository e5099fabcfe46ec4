// KLOModel lifecycle: construction, synchronisation of the handle vectors,
// copies, relaxation, feasibility relaxation and environment access.
#include "model_fixture.h"

namespace {

class Model : public ModelTest {};

TEST_F(Model, EmptyModelFromPointerOrReference) {
  {
    KLOModel byPointer(&env);
    KLOModel byReference(env);
    EXPECT_EQ(Access::vars(byReference).size(), 0u);
  }
  const Calls calls = klo_fake::strs();
  ASSERT_EQ(calls.size(), 4u);
  EXPECT_EQ(calls[0], "KLOnewmodel(ptr, ptr, null, 0, null, null, null, null, null)");
  EXPECT_EQ(calls[1], calls[0]);
  EXPECT_EQ(calls[2], "KLOfreemodel(ptr)");
  EXPECT_EQ(calls[3], "KLOfreemodel(ptr)");
  EXPECT_EQ(klo_fake::calls()[1].pointer(0), klo_fake::calls()[0].pointer(0));
}

TEST_F(Model, ReadingSynchronisesWithTheOffByOneQuadraticRecords) {
  scriptCounts(3, 2, 1, 2, 1);
  klo_fake::reset();
  scriptCounts(3, 2, 1, 2, 1);
  KLOModel model(env, "small.lp");
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOreadmodel(ptr, \"small.lp\", ptr)", "KLOgetintattr(ptr, \"NumVars\", ptr)",
             "KLOgetintattr(ptr, \"NumConstrs\", ptr)", "KLOgetintattr(ptr, \"NumPsdVars\", ptr)",
             "KLOgetintattr(ptr, \"NumSOS\", ptr)", "KLOgetintattr(ptr, \"NumGenConstrs\", ptr)"}));
  EXPECT_EQ(indices(Access::vars(model)), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(indices(Access::constrs(model)), (std::vector<int>{0, 1}));
  EXPECT_EQ(indices(Access::psdconstrs(model)), (std::vector<int>{0, 1}));
  EXPECT_EQ(indices(Access::qconstrs(model)), (std::vector<int>{1, 2}));
  EXPECT_EQ(indices(Access::psdvars(model)), (std::vector<int>{0}));
  EXPECT_EQ(indices(Access::sos(model)), (std::vector<int>{0, 1}));
  EXPECT_EQ(indices(Access::genconstrs(model)), (std::vector<int>{0}));
}

TEST_F(Model, FailedReadFreesWhatTheLibraryMade) {
  klo_fake::reset();
  klo_fake::on("KLOgetintattr").status(-1001);
  EXPECT_EQ(thrown([&] { KLOModel model(&env, "broken.mps"); }).getErrorCode(), -1001);
  const auto functions = klo_fake::functions();
  EXPECT_EQ(functions.front(), "KLOreadmodel");
  EXPECT_EQ(functions.back(), "KLOfreemodel");
}

TEST_F(Model, CopyHasItsOwnHandles) {
  auto source = readModel(2, 1);
  scriptCounts(2, 1);
  KLOModel copy(*source);
  EXPECT_EQ(klo_fake::functions().front(), "KLOcopymodel");
  EXPECT_EQ(indices(Access::vars(copy)), (std::vector<int>{0, 1}));
  EXPECT_FALSE(Access::vars(copy)[0].sameAs(Access::vars(*source)[0]));
  EXPECT_NE(Access::model(copy), Access::model(*source));
}

TEST_F(Model, FailedCopyRaisesMinusTwo) {
  auto source = readModel(2, 1);
  klo_fake::on("KLOcopymodel").returns(nullptr);
  klo_fake::explain(-2, "Out of memory, or the model could not be copied");
  KLOException e = thrown([&] { KLOModel copy(*source); });
  EXPECT_EQ(e.getErrorCode(), -2);
  EXPECT_EQ(e.getMessage(), "Out of memory, or the model could not be copied");
  EXPECT_EQ(klo_fake::functions(), (std::vector<std::string>{"KLOcopymodel", "KLOexplainerror"}));
}

TEST_F(Model, AssignmentChangesNothing) {
  auto target = readModel(2, 0);
  auto source = readModel(5, 3);
  KLOVar before = Access::vars(*target)[1];
  *target = *source;
  EXPECT_TRUE(klo_fake::calls().empty());
  EXPECT_EQ(Access::vars(*target).size(), 2u);
  EXPECT_TRUE(Access::vars(*target)[1].sameAs(before));
  EXPECT_NE(Access::model(*target), Access::model(*source));
}

TEST_F(Model, HandlesOutliveTheModelWithTheirLastIndex) {
  auto model = readModel(3, 0);
  KLOVar x = Access::vars(*model)[2];
  model.reset();
  EXPECT_EQ(x.index(), 2);
}

TEST_F(Model, WholeModelOperations) {
  KLOModel model(env);
  klo_fake::reset();
  model.optimize();
  model.computeIIS();
  model.read("start.mst");
  model.write("out.lp");
  model.reset(1);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOoptimize(ptr)", "KLOcomputeIIS(ptr)", "KLOread(ptr, \"start.mst\")",
                   "KLOwrite(ptr, \"out.lp\")", "KLOreset(ptr, 1)"}));
  klo_fake::on("KLOoptimize").status(-5);
  EXPECT_EQ(thrown([&] { model.optimize(); }).getErrorCode(), -5);
}

TEST_F(Model, RelaxReplacesTheCopysModelAndSyncsTwice) {
  auto model = readModel(2, 3);
  scriptCounts(2, 3);
  KLOModel relaxed = model->relax();
  const auto calls = klo_fake::calls();
  std::vector<std::string> functions = klo_fake::functions();
  ASSERT_EQ(functions.size(), 13u);
  EXPECT_EQ(functions[0], "KLOcopymodel");
  EXPECT_EQ(functions[6], "KLOfreemodel");
  EXPECT_EQ(functions[7], "KLOrelaxmodel");
  EXPECT_NE(calls[6].pointer(0), Access::model(relaxed));
  EXPECT_EQ(calls[7].pointer(0), Access::model(*model));
  // The PSD-constraint vector is not emptied by sync: the second one
  // appends behind the first.
  EXPECT_EQ(indices(Access::psdconstrs(relaxed)), (std::vector<int>{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(indices(Access::constrs(relaxed)), (std::vector<int>{0, 1, 2}));
}

TEST_F(Model, FailedRelaxFreesTheCopyOnce) {
  auto model = readModel(1, 1);
  scriptCounts(1, 1);
  klo_fake::on("KLOrelaxmodel").status(-3);
  EXPECT_EQ(thrown([&] { model->relax(); }).getErrorCode(), -3);
  EXPECT_EQ(klo_fake::callsOf("KLOfreemodel").size(), 1u);
}

TEST_F(Model, ShortFeasRelaxGivesEachArrayItsOwnCount) {
  auto model = readModel(3, 5);
  klo_fake::on("KLOgetintattr", "NumVars").out(2, 3LL);
  klo_fake::on("KLOgetintattr", "NumConstrs").out(2, 5LL);
  klo_fake::on("KLOfeasrelax").arrayLength(3, 3).arrayLength(4, 3).arrayLength(5, 5).out(6, 7.5);
  EXPECT_EQ(model->feasRelax(0, false, true, true), 0.0);
  EXPECT_EQ(klo_fake::strs().back(),
            "KLOfeasrelax(ptr, 0, 0, [1, 1, 1], [1, 1, 1], [1, 1, 1, 1, 1], ptr)");
  EXPECT_EQ(model->feasRelax(1, true, false, true), 7.5);
  EXPECT_EQ(klo_fake::strs().back(),
            "KLOfeasrelax(ptr, 1, 1, [1e+20, 1e+20, 1e+20], [1e+20, 1e+20, 1e+20], "
            "[1, 1, 1, 1, 1], ptr)");
}

TEST_F(Model, ShortFeasRelaxOnAnEmptyModelPassesNullArrays) {
  KLOModel model(env);
  klo_fake::reset();
  model.feasRelax(0, true, true, false);
  EXPECT_EQ(klo_fake::strs().back(), "KLOfeasrelax(ptr, 0, 1, null, null, null, ptr)");
}

TEST_F(Model, LongFeasRelaxPlacesPenaltiesAtTheElementsIndices) {
  auto model = readModel(3, 2);
  klo_fake::on("KLOgetintattr", "NumVars").out(2, 3LL);
  klo_fake::on("KLOgetintattr", "NumConstrs").out(2, 2LL);
  klo_fake::on("KLOfeasrelax").arrayLength(3, 3).arrayLength(4, 3).arrayLength(5, 2);
  const KLOVar vars[] = {Access::vars(*model)[2], Access::vars(*model)[0]};
  const double lb[] = {1, 2}, ub[] = {3, 4}, rhs[] = {5};
  const KLOConstr cons[] = {Access::constrs(*model)[1]};
  model->feasRelax(0, false, 2, vars, lb, ub, 1, cons, rhs);
  EXPECT_EQ(klo_fake::strs().back(),
            "KLOfeasrelax(ptr, 0, 0, [2, 1e+20, 1], [4, 1e+20, 3], [1e+20, 5], ptr)");
}

TEST_F(Model, LongFeasRelaxRefusesRemovedElements) {
  auto model = readModel(2, 1);
  const KLOVar gone = Access::vars(*model)[1];
  klo_fake::on("KLOdelvars");
  model->remove(gone);
  klo_fake::on("KLOgetintattr", "NumVars").out(2, 1LL);
  klo_fake::on("KLOgetintattr", "NumConstrs").out(2, 1LL);
  const double pen[] = {1};
  EXPECT_EQ(thrown([&] {
              model->feasRelax(0, false, 1, &gone, pen, pen, 0, nullptr, nullptr);
            }).getErrorCode(),
            -2003);
  EXPECT_TRUE(klo_fake::callsOf("KLOfeasrelax").empty());
}

TEST_F(Model, EnvironmentAccess) {
  KLOModel model(env);
  klo_fake::reset();
  int ownEnvironment = 0;
  klo_fake::on("KLOgetenv").returns(&ownEnvironment);
  KLOEnv own = model.getEnv();
  own.set(KLO_IntParam_Method, 1);
  EXPECT_EQ(klo_fake::functions(), (std::vector<std::string>{"KLOgetenv", "KLOsetintparam"}));
  EXPECT_EQ(klo_fake::calls()[1].pointer(0), &ownEnvironment);
}

TEST_F(Model, MultiobjectiveEnvironmentIsAFreshUnownedOne) {
  KLOModel model(env);
  klo_fake::reset();
  {
    KLOEnv first = model.getMultiobjEnv(0);
    klo_fake::on("KLOgetmultiobjenv").returns(nullptr);
    KLOEnv second = model.getMultiobjEnv(7);
  }
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetmultiobjenv(ptr, 0)", "KLOemptyenv(ptr)",
                                     "KLOgetmultiobjenv(ptr, 7)", "KLOloadenv(ptr, null)"}));
  klo_fake::reset();
  klo_fake::on("KLOdiscardmultiobjenvs").status(-1);
  EXPECT_NO_THROW(model.discardMultiobjEnvs());
}

}  // namespace
