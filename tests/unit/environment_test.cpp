// KLOEnv: which library calls each constructor and operation makes, the
// released flag of environments lent by a model, and setting by name.
#include "fake_fixture.h"

namespace {

class Environment : public FakeTest {};

TEST_F(Environment, EmptyEnvironmentCallsOnlyEmptyenv) {
  {
    KLOEnv env(true);
    EXPECT_EQ(klo_fake::functions(), (std::vector<std::string>{"KLOemptyenv"}));
  }
  EXPECT_EQ(klo_fake::functions(), (std::vector<std::string>{"KLOemptyenv", "KLOfreeenv"}));
}

TEST_F(Environment, LoadedEnvironmentHasNoLogFileUnlessGivenOne) {
  { KLOEnv env(false); }
  { KLOEnv env("run.log"); }
  { KLOEnv env(std::string("other.log")); }
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOloadenv(ptr, null)", "KLOfreeenv(ptr)", "KLOloadenv(ptr, \"run.log\")",
                   "KLOfreeenv(ptr)", "KLOloadenv(ptr, \"other.log\")", "KLOfreeenv(ptr)"}));
}

TEST_F(Environment, FailedCreationFreesWhatTheLibraryMadeAndThrows) {
  klo_fake::on("KLOloadenv").status(-7);
  klo_fake::explain(-7, "not started");
  KLOException e = thrown([] { KLOEnv env; });
  EXPECT_EQ(e.getErrorCode(), -7);
  EXPECT_EQ(e.getMessage(), "not started");
  EXPECT_EQ(klo_fake::functions(),
            (std::vector<std::string>{"KLOloadenv", "KLOfreeenv", "KLOexplainerror"}));
}

TEST_F(Environment, StartAndMessage) {
  KLOEnv env(true);
  klo_fake::reset();
  env.start();
  klo_fake::on("KLOmsg").status(-1);  // a failing log write is ignored
  EXPECT_NO_THROW(env.message("hello"));
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOstartenv(ptr)", "KLOmsg(ptr, \"hello\")"}));
}

TEST_F(Environment, TypedParametersUseTheTableNames) {
  KLOEnv env;
  klo_fake::reset();
  klo_fake::on("KLOgetintparam").out(2, 12LL);
  klo_fake::on("KLOgetdblparam").out(2, 2.5);
  klo_fake::on("KLOgetstrparam").out(2, std::string("solver.log"));
  EXPECT_EQ(env.get(KLO_IntParam_MIP_MaxNodes), 12);
  EXPECT_EQ(env.get(KLO_DoubleParam_MIP_GapAbs), 2.5);
  EXPECT_EQ(env.get(KLO_StringParam_LogFile), "solver.log");
  env.set(KLO_IntParam_Presolve, 0);
  env.set(static_cast<KLO_DoubleParam>(9), 1e-3);
  env.set(KLO_StringParam_LogFile, "x.log");
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOgetintparam(ptr, \"MIP/MaxNodes\", ptr)",
             "KLOgetdblparam(ptr, \"MIP/GapAbs\", ptr)", "KLOgetstrparam(ptr, \"LogFile\", ptr)",
             "KLOsetintparam(ptr, \"Presolve\", 0)", "KLOsetdblparam(ptr, \"MIP/GapAbs\", 0.001)",
             "KLOsetstrparam(ptr, \"LogFile\", \"x.log\")"}));
}

TEST_F(Environment, ParameterInfoPassesTheCallersPointersThrough) {
  KLOEnv env;
  klo_fake::reset();
  klo_fake::on("KLOgetintparaminfo").out(2, 5LL).out(3, -1LL).out(4, 9LL).out(5, 1LL);
  int value = 0, min = 0, max = 0, def = 0;
  env.getParamInfo(KLO_IntParam_Method, &value, &min, &max, &def);
  EXPECT_EQ((std::vector<int>{value, min, max, def}), (std::vector<int>{5, -1, 9, 1}));
  klo_fake::on("KLOgetdblparaminfo").out(2, 0.5).out(5, 0.25);
  double dv = 0, dmin = 0, dmax = 0, ddef = 0;
  env.getParamInfo(KLO_DoubleParam_MaxTime, &dv, &dmin, &dmax, &ddef);
  EXPECT_EQ(dv, 0.5);
  EXPECT_EQ(ddef, 0.25);
  klo_fake::on("KLOgetstrparaminfo").out(2, std::string("now.log")).out(3, std::string(""));
  std::string current = "?", initial = "?";
  env.getParamInfo(KLO_StringParam_LogFile, current, initial);
  EXPECT_EQ(current, "now.log");
  EXPECT_EQ(initial, "");
  EXPECT_EQ(klo_fake::strs()[2], "KLOgetstrparaminfo(ptr, \"LogFile\", ptr, ptr)");
}

TEST_F(Environment, ResetIgnoresFailuresWhileFilesAreChecked) {
  KLOEnv env;
  klo_fake::reset();
  klo_fake::on("KLOresetparams").status(-1);
  EXPECT_NO_THROW(env.resetParams());
  klo_fake::on("KLOreadparams").status(-3001);
  EXPECT_EQ(thrown([&] { env.readParams("missing.prm"); }).getErrorCode(), -3001);
  env.writeParams("out.prm");
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOresetparams(ptr)", "KLOreadparams(ptr, \"missing.prm\")",
                   "KLOexplainerror(-3001)", "KLOwriteparams(ptr, \"out.prm\")"}));
}

TEST_F(Environment, ErrorMessageIsTheLibrarysLastError) {
  KLOEnv env;
  klo_fake::errorMessage("Unknown parameter \"Foo\"");
  EXPECT_EQ(env.getErrorMsg(), "Unknown parameter \"Foo\"");
}

// --- by-name setting: integer, then double, then string attempt ------------

TEST_F(Environment, ByNameIntegerTextStopsAtTheIntegerAttempt) {
  KLOEnv env;
  klo_fake::reset();
  env.set("MIP/MaxNodes", "12");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOsetintparam(ptr, \"MIP/MaxNodes\", 12)"}));
}

TEST_F(Environment, ByNameDecimalTextArrivesWholeAtTheDoubleAttempt) {
  KLOEnv env;
  klo_fake::reset();
  klo_fake::on("KLOsetintparam", "MaxTime").status(-1006);
  env.set("MaxTime", "1.5");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOsetintparam(ptr, \"MaxTime\", 1)",
                                     "KLOsetdblparam(ptr, \"MaxTime\", 1.5)"}));
}

TEST_F(Environment, ByNameDecimalTextTruncatesForAnIntegerParameter) {
  KLOEnv env;
  klo_fake::reset();
  env.set("Presolve", "3.7");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOsetintparam(ptr, \"Presolve\", 3)"}));
}

TEST_F(Environment, ByNameTextEndsInTheStringAttempt) {
  KLOEnv env;
  klo_fake::reset();
  klo_fake::on("KLOsetintparam").status(-1006);
  klo_fake::on("KLOsetdblparam").status(-1006);
  env.set("LogFile", "abc.log");
  // No leading number: both numeric reads fail and pass 0.
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOsetintparam(ptr, \"LogFile\", 0)", "KLOsetdblparam(ptr, \"LogFile\", 0)",
                   "KLOsetstrparam(ptr, \"LogFile\", \"abc.log\")"}));
}

TEST_F(Environment, ByNameUnknownNameRaisesTheStringAttemptsError) {
  KLOEnv env;
  klo_fake::on("KLOsetintparam").status(-1005);
  klo_fake::on("KLOsetdblparam").status(-1005);
  klo_fake::on("KLOsetstrparam").status(-1004);
  EXPECT_EQ(thrown([&] { env.set("NoSuchThing", "1"); }).getErrorCode(), -1004);
}

// --- environments lent by a model ------------------------------------------

TEST_F(Environment, LentEnvironmentIsNotFreedAndDiesWithItsModel) {
  KLOEnv env;
  auto model = std::make_unique<KLOModel>(env);
  {
    KLOEnv lent = model->getEnv();
    klo_fake::reset();
  }
  EXPECT_TRUE(klo_fake::calls().empty());  // no KLOfreeenv
  KLOEnv lent = model->getEnv();
  model.reset();
  klo_fake::reset();
  KLOException e = thrown([&] { lent.get(KLO_IntParam_Method); });
  EXPECT_EQ(e.getErrorCode(), -100000);
  EXPECT_EQ(e.getMessage(), "Environment associated model has been released.");
  EXPECT_EQ(thrown([&] { lent.getErrorMsg(); }).getErrorCode(), -100000);
  EXPECT_EQ(thrown([&] { lent.set("Method", "1"); }).getErrorCode(), -100000);
  EXPECT_EQ(thrown([&] { lent.resetParams(); }).getErrorCode(), -100000);
  EXPECT_EQ(thrown([&] { lent.message("x"); }).getErrorCode(), -100000);
  EXPECT_TRUE(klo_fake::calls().empty());
}

TEST_F(Environment, AssignmentCopiesOnlyTheLibraryPointer) {
  KLOEnv owner;
  KLOModel model(owner);
  KLOEnv lent = model.getEnv();
  lent = owner;  // lent now speaks to owner's environment but keeps its flag
  klo_fake::reset();
  lent.set(KLO_IntParam_Method, 1);
  owner.set(KLO_IntParam_Method, 2);
  const auto calls = klo_fake::calls();
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_EQ(calls[0].pointer(0), calls[1].pointer(0));
}

TEST_F(Environment, MovedEnvironmentIsFreedOnce) {
  {
    KLOEnv first(true);
    KLOEnv second(std::move(first));
  }
  EXPECT_EQ(klo_fake::functions(), (std::vector<std::string>{"KLOemptyenv", "KLOfreeenv"}));
}

}  // namespace
