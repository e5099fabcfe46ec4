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

// The answering rules the object-layer tests lean on without showing them;
// the plain ones (statuses, out-values, texts, reset) every unit test shows.
TEST_F(Fake, ScriptsAnswerByTheirRules) {
  int value = 7, max = 0;
  EXPECT_EQ(KLOgetintattr(model, "NumVars", &value), 0);  // unscripted: nothing written
  EXPECT_EQ(value, 7);
  // A script for one name wins as a whole and counts its own calls; the
  // last status repeats.
  on("KLOgetintattr").statuses({-1001, -1002});
  on("KLOgetintattr", "NumVars").statuses({0, -6}).out(2, 3);
  std::vector<int> got;
  for (const char* name : {"NumConstrs", "NumVars", "Status", "NumVars", "Status"})
    got.push_back(KLOgetintattr(model, name, &value));
  EXPECT_EQ(got, (std::vector<int>{-1001, 0, -1002, -6, -1002}));
  EXPECT_EQ(value, 3);
  // The name is the first string argument, whatever its position.
  on("KLOaddgenconstrIndicator", "ind").status(-3);
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "ind", 0, 1, 0, nullptr, nullptr, '<', 1), -3);
  EXPECT_EQ(KLOaddgenconstrIndicator(model, "other", 0, 1, 0, nullptr, nullptr, '<', 1), 0);
  // Nothing is written through a null output; texts handed out stay valid;
  // a value of the wrong type is reported.
  on("KLOgetintparaminfo").out(2, 1).out(3, -1).out(4, 2);
  EXPECT_EQ(KLOgetintparaminfo(env, "Method", &value, nullptr, &max, nullptr), 0);
  EXPECT_EQ((std::vector<int>{value, max}), (std::vector<int>{1, 2}));
  const char* textP = nullptr;
  char buffer[512];
  on("KLOgetstrattr").out(2, "name");
  on("KLOgetstrparam").out(2, std::string(511, 'x'));
  KLOgetstrattr(model, "ModelName", &textP);
  KLOgetstrparam(env, "LogFile", buffer);
  on("KLOgetstrattr").out(2, "changed");
  EXPECT_STREQ(textP, "name");
  EXPECT_EQ(std::string(buffer), std::string(511, 'x'));
  on("KLOgetintattr").out(2, "text");
  EXPECT_THROW(KLOgetintattr(model, "Status", &value), std::logic_error);
  // Fresh handles are distinct; a model keeps its environment.
  KLOmodel* read = nullptr;
  KLOreadmodel(env, "a.mps", &read);
  EXPECT_TRUE(read != nullptr && read != model && KLOcopymodel(read) != read);
  EXPECT_EQ(KLOgetenv(read), KLOgetenv(read));
  EXPECT_NE(KLOgetenv(read), KLOgetenv(model));
  EXPECT_EQ(KLOgetenv(nullptr), nullptr);
  // A refused callback registration leaves the previous one.
  int stop = KLO_CB_STOP;
  const KLOcallbackfn fn = [](const void*, void*, int, const void*) { return 0; };
  KLOsetcallbackfunc(model, fn, &stop);
  on("KLOsetcallbackfunc").status(KLO_ERROR_BUSY);
  KLOsetcallbackfunc(model, nullptr, nullptr);
  EXPECT_EQ(klo_fake::registeredCallback().fn, fn);
  EXPECT_EQ(klo_fake::registeredCallback().usrdata, &stop);
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
