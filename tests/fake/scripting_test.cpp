// How the fake answers: statuses, out-values, returned pointers, texts,
// fresh handles and the registered callback.
#include <cstring>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "fake_fixture.h"

namespace {

using klo_fake::on;
using klo_fake::Value;

TEST_F(FakeTest, UnscriptedCallsSucceedAndWriteNothing) {
  int value = 7;
  char buffer[8] = "keep";
  const char* textP = "keep";
  EXPECT_EQ(KLOgetintattr(model, "NumVars", &value), 0);
  EXPECT_EQ(KLOgetstrparam(env, "LogFile", buffer), 0);
  EXPECT_EQ(KLOgetstrattr(model, "ModelName", &textP), 0);
  EXPECT_EQ(value, 7);
  EXPECT_STREQ(buffer, "keep");
  EXPECT_STREQ(textP, "keep");
}

TEST_F(FakeTest, StatusesFollowTheCallsAndTheLastOneRepeats) {
  on("KLOoptimize").statuses({-1, 0, 3});
  on("KLOwrite").status(-3003);
  std::vector<int> got;
  for (int k = 0; k < 4; ++k) got.push_back(KLOoptimize(model));
  EXPECT_EQ(got, (std::vector<int>{-1, 0, 3, 3}));
  EXPECT_EQ(KLOwrite(model, "a.lp"), -3003);
  EXPECT_EQ(KLOwrite(model, "b.lp"), -3003);
  EXPECT_EQ(KLOcomputeIIS(model), 0);
}

TEST_F(FakeTest, AScriptForOneNameWinsAndCountsItsOwnCalls) {
  on("KLOgetintattr").statuses({-1001, -1002});
  on("KLOgetintattr", "NumVars").statuses({0, -6}).out(2, 3);
  int value = 0;
  EXPECT_EQ(KLOgetintattr(model, "NumConstrs", &value), -1001);
  EXPECT_EQ(KLOgetintattr(model, "NumVars", &value), 0);
  EXPECT_EQ(value, 3);
  EXPECT_EQ(KLOgetintattr(model, "Status", &value), -1002);
  EXPECT_EQ(KLOgetintattr(model, "NumVars", &value), -6);
  // The name is the first string argument, whatever its position.
  on("KLOaddgenconstrIndicator", "ind").status(-3);
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "ind", 0, 1, 0, nullptr, nullptr, '<', 1), -3);
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "other", 0, 1, 0, nullptr, nullptr, '<', 1), 0);
}

TEST_F(FakeTest, OutValuesReachTheCallersMemory) {
  on("KLOgetdblattr").out(2, 2.5);
  on("KLOgetcharattrelement").out(3, 'I');
  on("KLOgetstrparam").out(2, std::string(511, 'x'));
  on("KLOgetstrattr").out(2, "name");
  double real = 0;
  char type = 0;
  char buffer[512];
  const char* textP = nullptr;
  KLOgetdblattr(model, "ObjVal", &real);
  KLOgetcharattrelement(model, "VType", 0, &type);
  KLOgetstrparam(env, "LogFile", buffer);
  KLOgetstrattr(model, "ModelName", &textP);
  EXPECT_EQ(real, 2.5);
  EXPECT_EQ(type, 'I');
  EXPECT_EQ(std::string(buffer), std::string(511, 'x'));
  on("KLOgetstrattr").out(2, "changed");  // the text handed out stays valid
  EXPECT_STREQ(textP, "name");
}

TEST_F(FakeTest, ArraysAreCopiedIntoTheCallersArrays) {
  on("KLOgetvars").out(1, 3).out(2, std::vector<int>{0, 2}).out(3, std::vector<int>{4, 5, 6});
  on("KLOgetvars").out(4, std::vector<double>{0.5, -1, 1e20});
  on("KLOgetcharattrarray").out(4, std::vector<char>{'C', 'B'});
  int numnz = 0;
  int beg[2] = {}, ind[3] = {};
  double val[3] = {};
  char types[2] = {};
  KLOgetvars(model, &numnz, beg, ind, val, 0, 2);
  KLOgetcharattrarray(model, "VType", 0, 2, types);
  EXPECT_EQ(numnz, 3);
  EXPECT_EQ(std::vector<int>(beg, beg + 2), (std::vector<int>{0, 2}));
  EXPECT_EQ(std::vector<int>(ind, ind + 3), (std::vector<int>{4, 5, 6}));
  EXPECT_EQ(std::vector<double>(val, val + 3), (std::vector<double>{0.5, -1, 1e20}));
  EXPECT_EQ(std::string(types, 2), "CB");
}

TEST_F(FakeTest, NothingIsWrittenThroughANullOutput) {
  on("KLOgetintparaminfo").out(2, 1).out(3, -1).out(4, 2).out(5, -1);
  int value = 0, max = 0;
  EXPECT_EQ(KLOgetintparaminfo(env, "Method", &value, nullptr, &max, nullptr), 0);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(max, 2);
  on("KLOgetvars").out(2, std::vector<int>{0, 1}).out(4, std::vector<double>{1, 2});
  EXPECT_EQ(KLOgetvars(model, nullptr, nullptr, nullptr, nullptr, 0, 2), 0);
}

TEST_F(FakeTest, PerCallOutsRepeatTheLastOne) {
  on("KLOgetconstrbyname").outs(2, {Value(4LL), Value(-1LL)});
  std::vector<int> got;
  for (const char* name : {"a", "b", "c"}) {
    int index = 99;
    KLOgetconstrbyname(model, name, &index);
    got.push_back(index);
  }
  EXPECT_EQ(got, (std::vector<int>{4, -1, -1}));
}

TEST_F(FakeTest, AScriptedValueOfTheWrongTypeIsReported) {
  on("KLOgetintattr").out(2, "text");
  int value = 0;
  EXPECT_THROW(KLOgetintattr(model, "NumVars", &value), std::logic_error);
}

TEST_F(FakeTest, EnvironmentsAndModelsAreFreshAndDistinct) {
  KLOenv *e1 = nullptr, *e2 = nullptr;
  KLOmodel *m1 = nullptr, *m2 = nullptr, *m3 = nullptr;
  KLOemptyenv(&e1);
  KLOloadenv(&e2, "log.txt");
  KLOnewmodel(e1, &m1, nullptr, 0, nullptr, nullptr, nullptr, nullptr, nullptr);
  KLOreadmodel(e1, "a.mps", &m2);
  KLOrelaxmodel(m1, &m3);
  KLOmodel* copy = KLOcopymodel(m1);
  KLOenv* own = KLOgetenv(m1);
  KLOenv* objective = KLOgetmultiobjenv(m1, 0);
  const std::set<const void*> handles{env, model, e1, e2, m1, m2, m3, copy, own, objective};
  EXPECT_EQ(handles.size(), 10u);
  EXPECT_EQ(handles.count(nullptr), 0u);
  EXPECT_EQ(KLOgetenv(m1), own);  // a model keeps its environment
  EXPECT_NE(KLOgetenv(m2), own);
  EXPECT_EQ(KLOgetenv(nullptr), nullptr);
}

TEST_F(FakeTest, ScriptedHandlesAndReturnsReplaceFreshOnes) {
  int anything = 0;
  on("KLOnewmodel").out(1, klo_fake::Null{}).status(-2);
  on("KLOcopymodel").returns(nullptr);
  on("KLOgetenv").returns(&anything);
  KLOmodel* m = model;
  EXPECT_EQ(KLOnewmodel(env, &m, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr), -2);
  EXPECT_EQ(m, nullptr);
  EXPECT_EQ(KLOcopymodel(model), nullptr);
  EXPECT_EQ(static_cast<const void*>(KLOgetenv(model)), &anything);
}

TEST_F(FakeTest, CallbackResultsAreWrittenByTheirType) {
  on("KLOcbget")
      .outs(3, {Value(12LL), Value(0.25), Value(std::vector<double>{1.5, 2}),
                Value(std::vector<int>{0, 1}), Value(klo_fake::Null{})});
  int count = 0;
  double runtime = 0;
  const double* solution = nullptr;
  const int* isInteger = nullptr;
  const double* missing = &runtime;
  KLOcbget(nullptr, KLO_CB_MIPSOL, KLO_CBINFO_NUMVARS, &count);
  KLOcbget(nullptr, KLO_CB_MIPSOL, KLO_CBINFO_RUNTIME, &runtime);
  KLOcbget(nullptr, KLO_CB_MIPSOL, KLO_CBINFO_SOLUTION, &solution);
  KLOcbget(nullptr, KLO_CB_MIPSOL, KLO_CBINFO_ISINTEGER, &isInteger);
  KLOcbget(nullptr, KLO_CB_MIPSOL, KLO_CBINFO_NODEREL, &missing);
  EXPECT_EQ(count, 12);
  EXPECT_EQ(runtime, 0.25);
  ASSERT_NE(solution, nullptr);
  EXPECT_EQ(std::vector<double>(solution, solution + 2), (std::vector<double>{1.5, 2}));
  ASSERT_NE(isInteger, nullptr);
  EXPECT_EQ(isInteger[1], 1);
  EXPECT_EQ(missing, nullptr);
}

TEST_F(FakeTest, ErrorTextsAreScriptedOrGeneric) {
  klo_fake::explain(-3, "Invalid argument");
  EXPECT_STREQ(KLOexplainerror(-3), "Invalid argument");
  EXPECT_STREQ(KLOexplainerror(-77), "fake error -77");
  EXPECT_STREQ(KLOgeterrormsg(env), "");
  klo_fake::errorMessage("Unknown attribute name: \"Foo\"");
  EXPECT_STREQ(KLOgeterrormsg(env), "Unknown attribute name: \"Foo\"");
  EXPECT_EQ(klo_fake::strs()[0], "KLOexplainerror(-3)");
}

int stopAtMipsol(const void*, void*, int where, const void* usrdata) {
  return where == KLO_CB_MIPSOL ? *static_cast<const int*>(usrdata) : 0;
}

TEST_F(FakeTest, TheRegisteredCallbackCanBeDriven) {
  EXPECT_EQ(klo_fake::registeredCallback().fn, nullptr);
  int stop = KLO_CB_STOP;
  KLOsetcallbackfunc(model, stopAtMipsol, &stop);
  const klo_fake::Registered cb = klo_fake::registeredCallback();
  ASSERT_EQ(cb.fn, &stopAtMipsol);
  EXPECT_EQ(cb.fn(model, nullptr, KLO_CB_MIPSOL, cb.usrdata), KLO_CB_STOP);
  on("KLOsetcallbackfunc").status(KLO_ERROR_BUSY);  // refused: the old one stays
  KLOsetcallbackfunc(model, nullptr, nullptr);
  EXPECT_EQ(klo_fake::registeredCallback().usrdata, &stop);
}

TEST_F(FakeTest, ResetForgetsCallsScriptsTextsAndTheCallback) {
  on("KLOoptimize").status(-1);
  on("KLOgetintattr", "NumVars").out(2, 5);
  klo_fake::explain(-1, "boom");
  klo_fake::errorMessage("detail");
  int usr = 0;
  KLOsetcallbackfunc(model, stopAtMipsol, &usr);
  klo_fake::reset();
  EXPECT_TRUE(klo_fake::calls().empty());
  int value = 0;
  EXPECT_EQ(KLOoptimize(model), 0);
  EXPECT_EQ(KLOgetintattr(model, "NumVars", &value), 0);
  EXPECT_EQ(value, 0);
  EXPECT_STREQ(KLOexplainerror(-1), "fake error -1");
  EXPECT_STREQ(KLOgeterrormsg(env), "");
  EXPECT_EQ(klo_fake::registeredCallback().fn, nullptr);
  EXPECT_EQ(klo_fake::calls().size(), 4u);
}

}  // namespace
