// KLOEnv: which library calls each constructor and operation makes, the
// checked-call rule behind every KLOException, the name tables, setting by
// name (through an environment or a model) and environments lent by a model.
#include <functional>
#include <set>

#include "env/check.h"
#include "env/names.h"
#include "fixture.h"

namespace {

using Environment = FakeTest;

TEST_F(Environment, ConstructorsMakeAndFreeOneLibraryEnvironment) {
  { KLOEnv empty(true); }
  { KLOEnv loaded(false); }
  { KLOEnv logged("run.log"); }
  { KLOEnv other(std::string("other.log")); }
  {
    KLOEnv first(true);
    KLOEnv second(std::move(first));  // freed once
  }
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOemptyenv(ptr)", "KLOfreeenv(ptr)", "KLOloadenv(ptr, null)",
                                     "KLOfreeenv(ptr)", "KLOloadenv(ptr, \"run.log\")",
                                     "KLOfreeenv(ptr)", "KLOloadenv(ptr, \"other.log\")",
                                     "KLOfreeenv(ptr)", "KLOemptyenv(ptr)", "KLOfreeenv(ptr)"}));
  klo_fake::reset();
  klo_fake::on("KLOloadenv").status(-7);
  klo_fake::explain(-7, "not started");
  EXPECT_EQ(failure([] { KLOEnv failed; }), "-7 not started");
  EXPECT_EQ(klo_fake::functions(), (Calls{"KLOloadenv", "KLOfreeenv", "KLOexplainerror"}));
}

TEST_F(Environment, OperationsAndParametersUseTheTableNames) {
  klo_fake::on("KLOmsg").status(-1);  // a failing log write is ignored
  klo_fake::on("KLOresetparams").status(-1);
  klo_fake::on("KLOreadparams").status(-3001);  // while files are checked
  klo_fake::on("KLOgetintparam").out(2, 12LL);
  klo_fake::on("KLOgetdblparam").out(2, 2.5);
  klo_fake::on("KLOgetstrparam").out(2, std::string("solver.log"));
  env.start();
  env.message("hello");
  env.resetParams();
  EXPECT_EQ(code([&] { env.readParams("missing.prm"); }), -3001);
  env.writeParams("out.prm");
  EXPECT_EQ(env.get(KLO_IntParam_MIP_MaxNodes), 12);
  EXPECT_EQ(env.get(KLO_DoubleParam_MIP_GapAbs), 2.5);
  EXPECT_EQ(env.get(KLO_StringParam_LogFile), "solver.log");
  env.set(KLO_IntParam_Presolve, 0);
  env.set(static_cast<KLO_DoubleParam>(9), 1e-3);
  env.set(KLO_StringParam_LogFile, "x.log");
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOstartenv(ptr)", "KLOmsg(ptr, \"hello\")", "KLOresetparams(ptr)",
             "KLOreadparams(ptr, \"missing.prm\")", "KLOexplainerror(-3001)",
             "KLOwriteparams(ptr, \"out.prm\")", "KLOgetintparam(ptr, \"MIP/MaxNodes\", ptr)",
             "KLOgetdblparam(ptr, \"MIP/GapAbs\", ptr)", "KLOgetstrparam(ptr, \"LogFile\", ptr)",
             "KLOsetintparam(ptr, \"Presolve\", 0)", "KLOsetdblparam(ptr, \"MIP/GapAbs\", 0.001)",
             "KLOsetstrparam(ptr, \"LogFile\", \"x.log\")"}));
  klo_fake::errorMessage("Unknown parameter \"Foo\"");
  EXPECT_EQ(env.getErrorMsg(), "Unknown parameter \"Foo\"");
}

TEST_F(Environment, ParameterInfoPassesTheCallersPointersThrough) {
  klo_fake::on("KLOgetintparaminfo").out(2, 5LL).out(3, -1LL).out(4, 9LL).out(5, 1LL);
  klo_fake::on("KLOgetdblparaminfo").out(2, 0.5).out(3, -0.5).out(4, 1.5).out(5, 0.25);
  klo_fake::on("KLOgetstrparaminfo").out(2, std::string("now.log")).out(3, std::string(""));
  int i[4] = {};
  double d[4] = {};
  std::string current = "?", initial = "?";
  env.getParamInfo(KLO_IntParam_Method, &i[0], &i[1], &i[2], &i[3]);
  env.getParamInfo(KLO_DoubleParam_MaxTime, &d[0], &d[1], &d[2], &d[3]);
  env.getParamInfo(KLO_StringParam_LogFile, current, initial);
  EXPECT_EQ(Ints(i, i + 4), (Ints{5, -1, 9, 1}));
  EXPECT_EQ(Doubles(d, d + 4), (Doubles{0.5, -0.5, 1.5, 0.25}));
  EXPECT_EQ(current + "|" + initial, "now.log|");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetintparaminfo(ptr, \"Method\", ptr, ptr, ptr, ptr)",
                                     "KLOgetdblparaminfo(ptr, \"MaxTime\", ptr, ptr, ptr, ptr)",
                                     "KLOgetstrparaminfo(ptr, \"LogFile\", ptr, ptr)"}));
}

// Setting by name tries an integer, then a double, then a string parameter;
// statuses scripts those attempts, and the error of the last one is raised.
struct ByName {
  ByName(const char* n, const char* t, std::vector<int> s, Calls c)
      : name(n), text(t), statuses(std::move(s)), calls(std::move(c)) {}
  const char *name, *text;
  std::vector<int> statuses;
  Calls calls;
};

void expectByName(const ByName& c, const std::function<void()>& set) {
  klo_fake::reset();
  const char* functions[] = {"KLOsetintparam", "KLOsetdblparam", "KLOsetstrparam"};
  for (std::size_t k = 0; k < c.statuses.size(); ++k)
    klo_fake::on(functions[k]).status(c.statuses[k]);
  EXPECT_EQ(FakeTest::code(set), c.statuses.size() == 3 ? c.statuses[2] : 0) << c.name;
  EXPECT_EQ(klo_fake::strs(), c.calls) << c.name;
}

TEST_F(Environment, ByNameSettingStopsAtTheFirstAttemptThatTakes) {
  const ByName cases[] = {
      ByName("MIP/MaxNodes", "12", {}, {"KLOsetintparam(ptr, \"MIP/MaxNodes\", 12)"}),
      ByName("MaxTime", "1.5", {-1006},
             {"KLOsetintparam(ptr, \"MaxTime\", 1)", "KLOsetdblparam(ptr, \"MaxTime\", 1.5)"}),
      ByName("Presolve", "3.7", {}, {"KLOsetintparam(ptr, \"Presolve\", 3)"}),
      // No leading number: both numeric reads fail and pass 0.
      ByName("LogFile", "abc.log", {-1006, -1006},
             {"KLOsetintparam(ptr, \"LogFile\", 0)", "KLOsetdblparam(ptr, \"LogFile\", 0)",
              "KLOsetstrparam(ptr, \"LogFile\", \"abc.log\")"}),
      ByName("NoSuchThing", "1", {-1005, -1005, -1004},
             {"KLOsetintparam(ptr, \"NoSuchThing\", 1)", "KLOsetdblparam(ptr, \"NoSuchThing\", 1)",
              "KLOsetstrparam(ptr, \"NoSuchThing\", \"1\")", "KLOexplainerror(-1004)"})};
  for (const ByName& c : cases) expectByName(c, [&] { env.set(c.name, c.text); });
}

// The model's own by-name setting fetches the environment for each attempt
// and reads the double on from where the integer read stopped.
TEST_F(Environment, ModelByNameSettingFetchesTheEnvironmentEachTime) {
  KLOModel model(env);
  const std::string get = "KLOgetenv(ptr)";
  const ByName cases[] = {
      ByName("MIP/MaxNodes", "12", {}, {get, "KLOsetintparam(ptr, \"MIP/MaxNodes\", 12)"}),
      ByName("MaxTime", "1.5", {-1006},
             {get, "KLOsetintparam(ptr, \"MaxTime\", 1)", get,
              "KLOsetdblparam(ptr, \"MaxTime\", 0.51)"}),
      ByName("MaxTime", "10", {-1006},
             {get, "KLOsetintparam(ptr, \"MaxTime\", 10)", get,
              "KLOsetdblparam(ptr, \"MaxTime\", 1e+01)"}),
      ByName(
          "LogFile", "run.log", {-1006, -1006, -1005},
          {get, "KLOsetintparam(ptr, \"LogFile\", 0)", get, "KLOsetdblparam(ptr, \"LogFile\", 0)",
           get, "KLOsetstrparam(ptr, \"LogFile\", \"run.log\")", "KLOexplainerror(-1005)"})};
  for (const ByName& c : cases) expectByName(c, [&] { model.set(c.name, c.text); });
}

TEST_F(Environment, LentEnvironmentIsNotFreedAndDiesWithItsModel) {
  auto model = std::make_unique<KLOModel>(env);
  {
    KLOEnv lent = model->getEnv();
    klo_fake::reset();
  }
  EXPECT_TRUE(klo_fake::calls().empty());  // no KLOfreeenv
  KLOEnv lent = model->getEnv();
  KLOEnv reassigned = model->getEnv();
  reassigned = env;  // speaks to env's library environment but keeps its flag
  reassigned.set(KLO_IntParam_Method, 1);
  env.set(KLO_IntParam_Method, 2);
  const auto sets = klo_fake::callsOf("KLOsetintparam");
  EXPECT_EQ(sets[0].pointer(0), sets[1].pointer(0));
  model.reset();
  klo_fake::reset();
  EXPECT_EQ(failure([&] { lent.get(KLO_IntParam_Method); }),
            "-100000 Environment associated model has been released.");
  EXPECT_EQ(code([&] { lent.getErrorMsg(); }), -100000);
  EXPECT_EQ(code([&] { lent.set("Method", "1"); }), -100000);
  EXPECT_EQ(code([&] { lent.resetParams(); }), -100000);
  EXPECT_EQ(code([&] { lent.message("x"); }), -100000);
  EXPECT_TRUE(klo_fake::calls().empty());
}

TEST_F(Environment, StatusesBecomeExceptionsWithTheLibrarysCodeAndText) {
  EXPECT_EQ(failure([] { throw KLOException(-7); }), "-7 ");
  EXPECT_NO_THROW(klo_detail::check(0));
  EXPECT_EQ(klo_detail::checkSubmission(0), 0);
  EXPECT_EQ(klo_detail::checkSubmission(2), 2);  // only negative submissions fail
  EXPECT_TRUE(klo_fake::calls().empty());        // success asks for no text
  klo_fake::explain(1001, "explanation of one thousand and one");
  klo_fake::explain(-2003, "Invalid variable index");
  klo_fake::explain(-5002, "not in a callback");
  EXPECT_EQ(failure([] { klo_detail::check(1001); }), "1001 explanation of one thousand and one");
  EXPECT_EQ(failure([] { klo_detail::check(-1005); }), "-1005 fake error -1005");
  EXPECT_EQ(failure([] { klo_detail::raise(-2003); }), "-2003 Invalid variable index");
  EXPECT_EQ(failure([] { klo_detail::checkSubmission(-5002); }), "-5002 not in a callback");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOexplainerror(1001)", "KLOexplainerror(-1005)",
                                     "KLOexplainerror(-2003)", "KLOexplainerror(-5002)"}));
}

TEST(Names, EnumeratorsNameTheirTableRow) {
  using klo_detail::name;
  const std::vector<std::pair<const char*, std::string>> cases = {
      {name(KLO_IntAttr_NumVars), "NumVars"},
      {name(static_cast<KLO_IntAttr>(32)), "NumBinVars"},
      {name(KLO_IntAttr_SPX_NumIters), "SPX/NumIters"},
      {name(static_cast<KLO_DoubleParam>(9)), "MIP/GapAbs"},  // both a parameter
      {name(static_cast<KLO_DoubleAttr>(9)), "MIP/GapAbs"},   // and an attribute
      {name(KLO_DoubleAttr_MIP_GapRel), "MIP/GapRel"},
      {name(KLO_DoubleParam_MIP_GapRel), "MIP/GapRel"},
      {name(KLO_IntAttr_NumConss), "NumConss"},  // near duplicates keep their rows
      {name(KLO_IntAttr_NumConstrs), "NumConstrs"},
      {name(KLO_DoubleAttr_PrimalSoln), "PrimalSoln"},
      {name(static_cast<KLO_DoubleAttr>(19)), "X"},
      {name(KLO_StringAttr_ProbName), "ProbName"},
      {name(KLO_StringAttr_ModelName), "ModelName"},
      {name(KLO_DoubleAttr_ObjNAbsTol), "ObjNAbsTol"},  // last rows
      {name(KLO_StringAttr_GenConstrName), "GenConstrName"},
      {name(KLO_MatAttr_PsdObj), "PsdObj"},
      {name(KLO_IntParam_ObjNumber), "ObjNumber"},
      {name(KLO_DoubleParam_PDHG_PrimalTolerance), "PDHG/PrimalTolerance"}};
  for (const auto& [got, expected] : cases) EXPECT_EQ(got, expected);
  EXPECT_EQ(KLO_IntAttr_NumVars, 5);
  for (int v : {0, 1, 7, -3}) {  // one fixed name whatever the value
    EXPECT_STREQ(name(static_cast<KLO_CharAttr>(v)), "VType");
    EXPECT_STREQ(name(static_cast<KLO_StringParam>(v)), "LogFile");
  }
}

// A row typed twice would make two enumerators name one attribute.
template <std::size_t N>
void expectDistinctRows(const char* const (&table)[N]) {
  std::set<std::string> seen;
  for (const char* row : table) EXPECT_TRUE(seen.insert(row).second) << row << " appears twice";
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
