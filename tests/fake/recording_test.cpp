// What the fake records: arguments by content, in order, in a readable form.
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "fake_fixture.h"

namespace {

using klo_fake::Call;

// The last recorded call.
const Call& last() { return klo_fake::calls().back(); }

TEST_F(FakeTest, ArraysAreRecordedByContentWithTheirCounts) {
  std::vector<int> ind{0, 1};
  std::vector<double> val{1, 2};
  KLOaddrangeconstr(model, 2, ind.data(), val.data(), -KLO_INFINITY, 5, "c");
  ind[0] = 9;  // the record is a copy, not a view of the caller's memory
  EXPECT_EQ(last().str(), R"(KLOaddrangeconstr(ptr, 2, [0, 1], [1, 2], -1e+20, 5, "c"))");
  EXPECT_EQ(last().pointer(0), model);
  EXPECT_EQ(last().ints(2), (std::vector<int>{0, 1}));
  EXPECT_EQ(last().doubles(3), val);
  EXPECT_EQ(last().real(4), -KLO_INFINITY);
  EXPECT_EQ(last().text(6), "c");
}

TEST_F(FakeTest, NullArraysDifferFromEmptyOnes) {
  const double obj[] = {1, 2.5};
  const double ub[] = {KLO_INFINITY, 0.1};
  const char vtype[] = {'C', 'B'};
  const char* names[] = {"x", nullptr};
  KLOaddvars(model, 2, 0, nullptr, nullptr, nullptr, obj, nullptr, ub, vtype, names);
  EXPECT_EQ(last().str(),
            "KLOaddvars(ptr, 2, 0, null, null, null, [1, 2.5], null, "
            "[1e+20, 0.1], ['C', 'B'], [\"x\", \"\"])");
  const int none[1] = {7};
  KLOdelvars(model, 0, none);
  KLOdelvars(model, 0, nullptr);
  EXPECT_EQ(klo_fake::strs()[1], "KLOdelvars(ptr, 0, [])");
  EXPECT_EQ(klo_fake::strs()[2], "KLOdelvars(ptr, 0, null)");
}

TEST_F(FakeTest, DoublesPrintInTheFewestDigitsThatReadBack) {
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
  EXPECT_EQ(klo_fake::strs()[0], R"(KLOsetdblparam(ptr, "MaxTime", 5))");
  EXPECT_EQ(klo_fake::strs()[1], R"(KLOsetdblparam(ptr, "MaxTime", 1e+20))");
  EXPECT_EQ(klo_fake::strs()[2], R"(KLOsetdblparam(ptr, "MaxTime", 0.1))");
  EXPECT_EQ(klo_fake::strs()[4], R"(KLOsetdblparam(ptr, "MaxTime", 0.3333333333333333))");
  EXPECT_EQ(klo_fake::strs()[8], R"(KLOsetdblparam(ptr, "MaxTime", 1.0000000000000002))");
  KLOsetdblparam(env, "MaxTime", std::numeric_limits<double>::infinity());
  EXPECT_EQ(last().str(), R"(KLOsetdblparam(ptr, "MaxTime", inf))");
}

TEST_F(FakeTest, StringsAndCharsAreQuotedAndNullStringsAreNull) {
  KLOsetstrattr(model, "ModelName", nullptr);
  KLOsetcharattrelement(model, "VType", 3, 'I');
  KLOaddvar(model, 0, nullptr, nullptr, 0, 0, 1, 'B', "b \"q\"");
  EXPECT_EQ(klo_fake::strs(),
            (std::vector<std::string>{R"(KLOsetstrattr(ptr, "ModelName", null))",
                                      R"(KLOsetcharattrelement(ptr, "VType", 3, 'I'))",
                                      R"(KLOaddvar(ptr, 0, null, null, 0, 0, 1, 'B', "b "q""))"}));
  EXPECT_EQ(klo_fake::calls()[0].pointer(2), nullptr);
}

TEST_F(FakeTest, OutputsAndOpaquePointersAreRecordedAsAddresses) {
  int value = 0;
  KLOgetintattr(model, "NumVars", &value);
  KLOgetintattr(model, "NumVars", nullptr);
  int data = 0;
  KLOcbget(&data, KLO_CB_MIPNODE, KLO_CBINFO_NUMVARS, &value);
  EXPECT_EQ(klo_fake::calls()[0].pointer(2), &value);
  EXPECT_EQ(klo_fake::strs()[1], R"(KLOgetintattr(ptr, "NumVars", null))");
  EXPECT_EQ(klo_fake::calls()[2].pointer(0), &data);
  EXPECT_EQ(klo_fake::strs()[2], "KLOcbget(ptr, 5, 200, ptr)");
}

TEST_F(FakeTest, TypedAccessRefusesAnotherKind) {
  KLOsetintattr(model, "ModelSense", -1);
  EXPECT_EQ(last().integer(2), -1);
  EXPECT_THROW(last().real(2), std::logic_error);
  EXPECT_THROW(last().text(0), std::logic_error);
  EXPECT_THROW(last().pointer(1), std::logic_error);
  EXPECT_THROW(last().integer(3), std::logic_error);
}

TEST_F(FakeTest, ArraysWithoutACountAreReadOnlyWithAScriptedLength) {
  const double pen[] = {1, 2, 3};
  double obj = 0;
  KLOfeasrelax(model, 0, 0, pen, pen, nullptr, &obj);
  EXPECT_EQ(last().str(), "KLOfeasrelax(ptr, 0, 0, ptr, ptr, null, ptr)");
  klo_fake::on("KLOfeasrelax").arrayLength(3, 3).arrayLength(4, 2).arrayLength(5, 1);
  KLOfeasrelax(model, 0, 0, pen, pen, nullptr, &obj);
  EXPECT_EQ(last().str(), "KLOfeasrelax(ptr, 0, 0, [1, 2, 3], [1, 2], null, ptr)");
}

TEST_F(FakeTest, PsdMatrixEntriesAreCountedByTheLastOffset) {
  const int psdvar[] = {0, 1}, mbeg[] = {0, 1, 3}, mind[] = {0, 0, 3};
  const double mval[] = {1, 2, 3};
  KLOaddrangepsdconstr(model, 0, nullptr, nullptr, 2, psdvar, mbeg, mind, mval, 1, 1, "p");
  EXPECT_EQ(last().str(),
            "KLOaddrangepsdconstr(ptr, 0, null, null, 2, [0, 1], [0, 1, 3], "
            "[0, 0, 3], [1, 2, 3], 1, 1, \"p\")");
}

TEST_F(FakeTest, CallsAreListedInOrderAndByFunction) {
  KLOoptimize(model);
  KLOsetintparam(env, "Presolve", 0);
  KLOoptimize(nullptr);
  EXPECT_EQ(klo_fake::functions(),
            (std::vector<std::string>{"KLOoptimize", "KLOsetintparam", "KLOoptimize"}));
  const auto solves = klo_fake::callsOf("KLOoptimize");
  ASSERT_EQ(solves.size(), 2u);
  EXPECT_EQ(solves[1].str(), "KLOoptimize(null)");
}

}  // namespace
