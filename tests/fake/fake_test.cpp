// The recording test double itself: what it records (arguments by content,
// in order, in a readable form), how it answers (statuses, out-values,
// returned pointers, texts, fresh handles, the registered callback), and
// that it defines every function klo_c.h declares.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "klo_c.h"
#include "klo_fake.h"

namespace {

using klo_fake::on;
using klo_fake::Value;
using Strs = std::vector<std::string>;

// Each test starts from a reset fake with an environment and a model made
// through it, and no recorded calls.
class Fake : public ::testing::Test {
 protected:
  void SetUp() override {
    klo_fake::reset();
    KLOloadenv(&env, nullptr);
    KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr);
    klo_fake::reset();
  }
  void TearDown() override { klo_fake::reset(); }

  static const klo_fake::Call& last() { return klo_fake::calls().back(); }

  KLOenv* env = nullptr;
  KLOmodel* model = nullptr;
};

TEST_F(Fake, ArgumentsAreRecordedByContentInAReadableForm) {
  std::vector<int> ind{0, 1};
  std::vector<double> val{1, 2};
  KLOaddrangeconstr(model, 2, ind.data(), val.data(), -KLO_INFINITY, 5, "c");
  ind[0] = 9;  // the record is a copy, not a view of the caller's memory
  EXPECT_EQ(last().pointer(0), model);
  EXPECT_EQ(last().ints(2), (std::vector<int>{0, 1}));
  EXPECT_EQ(last().doubles(3), val);
  EXPECT_EQ(last().real(4), -KLO_INFINITY);
  EXPECT_EQ(last().text(6), "c");
  // Null arrays differ from empty ones; a null name is recorded as "".
  const double obj[] = {1, 2.5}, ub[] = {KLO_INFINITY, 0.1};
  const char vtype[] = {'C', 'B'};
  const char* names[] = {"x", nullptr};
  KLOaddvars(model, 2, 0, nullptr, nullptr, nullptr, obj, nullptr, ub, vtype, names);
  const int none[1] = {7};
  KLOdelvars(model, 0, none);
  KLOdelvars(model, 0, nullptr);
  KLOsetstrattr(model, "ModelName", nullptr);
  KLOsetcharattrelement(model, "VType", 3, 'I');
  KLOaddvar(model, 0, nullptr, nullptr, 0, 0, 1, 'B', "b \"q\"");
  const int psdvar[] = {0, 1}, mbeg[] = {0, 1, 3}, mind[] = {0, 0, 3};
  const double mval[] = {1, 2, 3};  // entries counted by the last offset
  KLOaddrangepsdconstr(model, 0, nullptr, nullptr, 2, psdvar, mbeg, mind, mval, 1, 1, "p");
  int value = 0, data = 0;
  KLOgetintattr(model, "NumVars", &value);
  KLOgetintattr(model, "NumVars", nullptr);
  KLOcbget(&data, KLO_CB_MIPNODE, KLO_CBINFO_NUMVARS, &value);
  EXPECT_EQ(klo_fake::strs(),
            (Strs{R"(KLOaddrangeconstr(ptr, 2, [0, 1], [1, 2], -1e+20, 5, "c"))",
                  "KLOaddvars(ptr, 2, 0, null, null, null, [1, 2.5], null, "
                  "[1e+20, 0.1], ['C', 'B'], [\"x\", \"\"])",
                  "KLOdelvars(ptr, 0, [])", "KLOdelvars(ptr, 0, null)",
                  R"(KLOsetstrattr(ptr, "ModelName", null))",
                  R"(KLOsetcharattrelement(ptr, "VType", 3, 'I'))",
                  R"(KLOaddvar(ptr, 0, null, null, 0, 0, 1, 'B', "b "q""))",
                  "KLOaddrangepsdconstr(ptr, 0, null, null, 2, [0, 1], [0, 1, 3], "
                  "[0, 0, 3], [1, 2, 3], 1, 1, \"p\")",
                  R"(KLOgetintattr(ptr, "NumVars", ptr))", R"(KLOgetintattr(ptr, "NumVars", null))",
                  "KLOcbget(ptr, 5, 200, ptr)"}));
  const auto& calls = klo_fake::calls();
  EXPECT_EQ(calls[4].pointer(2), nullptr);
  EXPECT_EQ(calls[8].pointer(2), &value);
  EXPECT_EQ(calls[10].pointer(0), &data);
  EXPECT_EQ(klo_fake::functions()[2], "KLOdelvars");
  ASSERT_EQ(klo_fake::callsOf("KLOgetintattr").size(), 2u);
  EXPECT_EQ(klo_fake::callsOf("KLOgetintattr")[1].str(), klo_fake::strs()[9]);
  // Typed access refuses another kind.
  EXPECT_EQ(calls[5].integer(2), 3);
  EXPECT_THROW(calls[5].real(2), std::logic_error);
  EXPECT_THROW(calls[5].text(0), std::logic_error);
  EXPECT_THROW(calls[5].pointer(1), std::logic_error);
  EXPECT_THROW(calls[5].integer(3), std::logic_error);
}

TEST_F(Fake, DoublesPrintInTheFewestDigitsThatReadBack) {
  const double values[] = {5,    KLO_INFINITY,  0.1,
                           -0.5, 1.0 / 3,       KLO_UNDEFINED,
                           1e-7, 123456789.125, std::nextafter(1.0, 2.0),
                           -0.0};
  for (double v : values) {
    KLOsetdblparam(env, "MaxTime", v);
    const std::string s = last().str();
    const std::string printed = s.substr(s.rfind(", ") + 2, s.size() - s.rfind(", ") - 3);
    EXPECT_EQ(std::stod(printed), v) << printed;
    EXPECT_EQ(std::signbit(std::stod(printed)), std::signbit(v)) << printed;
  }
  KLOsetdblparam(env, "MaxTime", std::numeric_limits<double>::infinity());
  const Strs strs = klo_fake::strs();
  EXPECT_EQ(
      (Strs{strs[0], strs[1], strs[2], strs[4], strs[8], strs[10]}),
      (Strs{R"(KLOsetdblparam(ptr, "MaxTime", 5))", R"(KLOsetdblparam(ptr, "MaxTime", 1e+20))",
            R"(KLOsetdblparam(ptr, "MaxTime", 0.1))",
            R"(KLOsetdblparam(ptr, "MaxTime", 0.3333333333333333))",
            R"(KLOsetdblparam(ptr, "MaxTime", 1.0000000000000002))",
            R"(KLOsetdblparam(ptr, "MaxTime", inf))"}));
}

TEST_F(Fake, ArraysWithoutACountAreReadOnlyWithAScriptedLength) {
  const double pen[] = {1, 2, 3};
  double obj = 0;
  KLOfeasrelax(model, 0, 0, pen, pen, nullptr, &obj);
  on("KLOfeasrelax").arrayLength(3, 3).arrayLength(4, 2).arrayLength(5, 1);
  KLOfeasrelax(model, 0, 0, pen, pen, nullptr, &obj);
  EXPECT_EQ(klo_fake::strs(), (Strs{"KLOfeasrelax(ptr, 0, 0, ptr, ptr, null, ptr)",
                                    "KLOfeasrelax(ptr, 0, 0, [1, 2, 3], [1, 2], null, ptr)"}));
}

TEST_F(Fake, StatusesFollowTheCallsAndTheMoreSpecificScriptWins) {
  int value = 7;
  char buffer[8] = "keep";
  const char* textP = "keep";  // unscripted calls succeed and write nothing
  EXPECT_EQ(KLOgetintattr(model, "NumVars", &value) + KLOgetstrparam(env, "LogFile", buffer) +
                KLOgetstrattr(model, "ModelName", &textP),
            0);
  EXPECT_EQ(value, 7);
  EXPECT_STREQ(buffer, "keep");
  EXPECT_STREQ(textP, "keep");
  on("KLOoptimize").statuses({-1, 0, 3});
  on("KLOwrite").status(-3003);
  std::vector<int> got;
  for (int k = 0; k < 4; ++k) got.push_back(KLOoptimize(model));
  got.push_back(KLOwrite(model, "a.lp"));
  got.push_back(KLOwrite(model, "b.lp"));
  got.push_back(KLOcomputeIIS(model));
  EXPECT_EQ(got, (std::vector<int>{-1, 0, 3, 3, -3003, -3003, 0}));  // the last one repeats
  // A script for one name wins as a whole and counts its own calls.
  on("KLOgetintattr").statuses({-1001, -1002});
  on("KLOgetintattr", "NumVars").statuses({0, -6}).out(2, 3);
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

TEST_F(Fake, OutValuesReachTheCallersMemoryByTheirType) {
  on("KLOgetdblattr").out(2, 2.5);
  on("KLOgetcharattrelement").out(3, 'I');
  on("KLOgetstrparam").out(2, std::string(511, 'x'));
  on("KLOgetstrattr").out(2, "name");
  on("KLOgetvars").out(1, 3).out(2, std::vector<int>{0, 2}).out(3, std::vector<int>{4, 5, 6});
  on("KLOgetvars").out(4, std::vector<double>{0.5, -1, 1e20});
  on("KLOgetcharattrarray").out(4, std::vector<char>{'C', 'B'});
  on("KLOgetintparaminfo").out(2, 1).out(3, -1).out(4, 2).out(5, -1);
  on("KLOgetconstrbyname").outs(2, {Value(4LL), Value(-1LL)});
  double real = 0;
  char type = 0, buffer[512], types[2] = {};
  const char* textP = nullptr;
  int numnz = 0, beg[2] = {}, ind[3] = {}, value = 0, max = 0;
  double val[3] = {};
  KLOgetdblattr(model, "ObjVal", &real);
  KLOgetcharattrelement(model, "VType", 0, &type);
  KLOgetstrparam(env, "LogFile", buffer);
  KLOgetstrattr(model, "ModelName", &textP);
  KLOgetvars(model, &numnz, beg, ind, val, 0, 2);
  KLOgetcharattrarray(model, "VType", 0, 2, types);
  EXPECT_EQ(KLOgetintparaminfo(env, "Method", &value, nullptr, &max, nullptr), 0);
  EXPECT_EQ(KLOgetvars(model, nullptr, nullptr, nullptr, nullptr, 0, 2), 0);  // null: unwritten
  EXPECT_EQ(real, 2.5);
  EXPECT_EQ(type, 'I');
  EXPECT_EQ(std::string(buffer), std::string(511, 'x'));
  on("KLOgetstrattr").out(2, "changed");  // the text handed out stays valid
  EXPECT_STREQ(textP, "name");
  EXPECT_EQ(numnz, 3);
  EXPECT_EQ(std::vector<int>(beg, beg + 2), (std::vector<int>{0, 2}));
  EXPECT_EQ(std::vector<int>(ind, ind + 3), (std::vector<int>{4, 5, 6}));
  EXPECT_EQ(std::vector<double>(val, val + 3), (std::vector<double>{0.5, -1, 1e20}));
  EXPECT_EQ(std::string(types, 2), "CB");
  EXPECT_EQ(value * 10 + max, 12);
  std::vector<int> got;  // per-call outs repeat the last one
  for (const char* name : {"a", "b", "c"}) {
    int index = 99;
    KLOgetconstrbyname(model, name, &index);
    got.push_back(index);
  }
  EXPECT_EQ(got, (std::vector<int>{4, -1, -1}));
  on("KLOgetintattr").out(2, "text");  // a value of the wrong type is reported
  EXPECT_THROW(KLOgetintattr(model, "NumVars", &value), std::logic_error);
}

TEST_F(Fake, CallbackResultsAreWrittenByTheirType) {
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

TEST_F(Fake, HandlesAreFreshAndDistinctUnlessScripted) {
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
  int anything = 0;
  on("KLOnewmodel").out(1, klo_fake::Null{}).status(-2);
  on("KLOcopymodel").returns(nullptr);
  on("KLOgetenv").returns(&anything);
  EXPECT_EQ(KLOnewmodel(env, &m1, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr), -2);
  EXPECT_EQ(m1, nullptr);
  EXPECT_EQ(KLOcopymodel(model), nullptr);
  EXPECT_EQ(static_cast<const void*>(KLOgetenv(model)), &anything);
}

int stopAtMipsol(const void*, void*, int where, const void* usrdata) {
  return where == KLO_CB_MIPSOL ? *static_cast<const int*>(usrdata) : 0;
}

TEST_F(Fake, TextsAndTheCallbackAreScriptedAndResetForgetsAll) {
  EXPECT_STREQ(KLOexplainerror(-77), "fake error -77");
  EXPECT_STREQ(KLOgeterrormsg(env), "");
  EXPECT_EQ(klo_fake::registeredCallback().fn, nullptr);
  on("KLOoptimize").status(-1);
  on("KLOgetintattr", "NumVars").out(2, 5);
  klo_fake::explain(-1, "Invalid argument");
  klo_fake::errorMessage("Unknown attribute name: \"Foo\"");
  EXPECT_STREQ(KLOexplainerror(-1), "Invalid argument");
  EXPECT_STREQ(KLOgeterrormsg(env), "Unknown attribute name: \"Foo\"");
  EXPECT_EQ(klo_fake::strs()[0], "KLOexplainerror(-77)");
  int stop = KLO_CB_STOP;
  KLOsetcallbackfunc(model, stopAtMipsol, &stop);
  const klo_fake::Registered cb = klo_fake::registeredCallback();
  ASSERT_EQ(cb.fn, &stopAtMipsol);
  EXPECT_EQ(cb.fn(model, nullptr, KLO_CB_MIPSOL, cb.usrdata), KLO_CB_STOP);
  on("KLOsetcallbackfunc").status(KLO_ERROR_BUSY);  // refused: the old one stays
  KLOsetcallbackfunc(model, nullptr, nullptr);
  EXPECT_EQ(klo_fake::registeredCallback().usrdata, &stop);
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

// Every function declared in klo_c.h is defined by the fake: the table takes
// each one's address (so the program links only if the fake defines it),
// and the test checks it against the header's declarations.
#define F(f) \
  { #f, reinterpret_cast < const void*>(&f) }
// clang-format off
const std::pair<const char*, const void*> kDefined[] = {
    F(KLOemptyenv), F(KLOloadenv), F(KLOstartenv), F(KLOfreeenv), F(KLOmsg), F(KLOgeterrormsg),
    F(KLOexplainerror), F(KLOexplainstatus), F(KLOgetintparam), F(KLOgetdblparam),
    F(KLOgetstrparam), F(KLOsetintparam), F(KLOsetdblparam), F(KLOsetstrparam),
    F(KLOgetintparaminfo), F(KLOgetdblparaminfo), F(KLOgetstrparaminfo), F(KLOresetparams),
    F(KLOreadparams), F(KLOwriteparams), F(KLOnewmodel), F(KLOreadmodel), F(KLOcopymodel),
    F(KLOfreemodel), F(KLOread), F(KLOwrite), F(KLOrelaxmodel), F(KLOoptimize),
    F(KLOcomputeIIS), F(KLOfeasrelax), F(KLOreset), F(KLOgetenv), F(KLOgetmultiobjenv),
    F(KLOdiscardmultiobjenvs), F(KLOsetcallbackfunc), F(KLOaddvar), F(KLOaddvars),
    F(KLOdelvars), F(KLOgetvars), F(KLOgetvarbyname), F(KLOaddconstrs), F(KLOaddrangeconstr),
    F(KLOaddrangeconstrs), F(KLOdelconstrs), F(KLOgetconstrs), F(KLOgetconstrbyname),
    F(KLOsetconstrcoeff), F(KLOgetconstrcoeff), F(KLOaddqconstr), F(KLOgetqconstr),
    F(KLOaddqpterms), F(KLOgetq), F(KLOdelq), F(KLOaddpsdvar), F(KLOdelpsdvars),
    F(KLOaddrangepsdconstr), F(KLOaddsos), F(KLOdelsos), F(KLOgetsos),
    F(KLOaddgenconstrIndicator), F(KLOgetgenconstrIndicator), F(KLOdelgenconstrs),
    F(KLOsetobjectiven), F(KLOgetintattr), F(KLOsetintattr), F(KLOgetdblattr), F(KLOsetdblattr),
    F(KLOgetstrattr), F(KLOsetstrattr), F(KLOgetintattrelement), F(KLOsetintattrelement),
    F(KLOgetdblattrelement), F(KLOsetdblattrelement), F(KLOgetcharattrelement),
    F(KLOsetcharattrelement), F(KLOgetstrattrelement), F(KLOsetstrattrelement),
    F(KLOgetintattrarray), F(KLOsetintattrarray), F(KLOgetdblattrarray), F(KLOsetdblattrarray),
    F(KLOgetcharattrarray), F(KLOsetcharattrarray), F(KLOgetmatattrelement),
    F(KLOsetmatattrelement), F(KLOcbget), F(KLOcbsolution), F(KLOcbsolutionp), F(KLOcbcut),
    F(KLOcbcutp), F(KLOcbbranch), F(KLOcbbranchp)};
// clang-format on
#undef F

// The names of the functions klo_c.h declares, outside comments (which
// mention functions too): every identifier starting with "KLO" and a letter
// that is followed by '('.
std::set<std::string> declaredFunctions() {
  const auto path = std::filesystem::path(__FILE__).parent_path() / ".." / ".." / "include";
  std::ifstream in(path / "klo_c.h");
  EXPECT_TRUE(in) << "cannot open the header";
  std::stringstream text;
  text << in.rdbuf();
  const std::string all = text.str();
  std::string code;
  for (std::size_t k = 0; k < all.size();) {
    if (all.compare(k, 2, "/*") == 0) {
      k = std::min(all.find("*/", k + 2), all.size() - 2) + 2;
    } else if (all.compare(k, 2, "//") == 0) {
      k = std::min(all.find('\n', k), all.size());
    } else {
      code += all[k++];
    }
  }
  const auto word = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
  std::set<std::string> names;
  for (std::size_t k = code.find("KLO"); k != std::string::npos; k = code.find("KLO", k + 1)) {
    if (k > 0 && word(code[k - 1])) continue;
    std::size_t end = k;
    while (end < code.size() && word(code[end])) ++end;
    const std::size_t paren = code.find_first_not_of(" \t\n", end);
    if (std::isalpha(static_cast<unsigned char>(code[k + 3])) && paren != std::string::npos &&
        code[paren] == '(') {
      names.insert(code.substr(k, end - k));
    }
  }
  return names;
}

TEST(Completeness, TheFakeDefinesEveryFunctionOfTheHeader) {
  std::set<std::string> defined;
  for (const auto& [name, address] : kDefined) {
    EXPECT_NE(address, nullptr) << name;
    EXPECT_TRUE(defined.insert(name).second) << name << " listed twice";
  }
  const std::set<std::string> declared = declaredFunctions();
  EXPECT_GT(declared.size(), 80u) << "the header was not read";
  EXPECT_EQ(declared, defined);
}

}  // namespace
