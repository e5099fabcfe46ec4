// Callbacks driven as the library drives them: the trampoline, proposals
// and their submission, abort, information codes, cuts and branches, and
// the index-based variant.
#include <functional>

#include "expr_fixture.h"

namespace {

// Runs a test's body as its callback() and exposes the proposal state.
template <class Base>
class Probe : public Base {
 public:
  std::function<void(Probe&)> body;
  void callback() override {
    if (body) body(*this);
  }
  const double* proposal() const { return this->solution.get(); }
};

class Callbacks : public ExprTest {
 protected:
  static constexpr double kNoValue = KLOCallback::KLO_CB_NOVALUE;

  // One invocation at where-code 5, as the library would make it.
  template <class CB>
  int invoke(CB& cb) {
    model->setCallback(&cb);
    const klo_fake::Registered r = klo_fake::registeredCallback();
    EXPECT_EQ(r.usrdata, static_cast<void*>(&cb));
    klo_fake::on("KLOgetintattr", "NumVars").out(2, 3LL);
    klo_fake::on("KLOcbsolution").arrayLength(1, 3);
    klo_fake::on("KLOcbsolutionp").arrayLength(1, 3);
    static int cbdata;
    return r.fn(Access::model(*model), &cbdata, 5, r.usrdata);
  }
};

TEST_F(Callbacks, NothingProposedSubmitsNothing) {
  Probe<KLOCallback> cb;
  int early = 0;
  cb.body = [&](auto& self) {
    early = self.useSolution(nullptr);
    EXPECT_EQ(self.proposal()[2], kNoValue);
  };
  EXPECT_EQ(invoke(cb), 0);
  EXPECT_EQ(early, 1000);
  EXPECT_TRUE(klo_fake::callsOf("KLOcbsolution").empty());
  model->setCallback(nullptr);
  EXPECT_EQ(klo_fake::strs().back(), "KLOsetcallbackfunc(ptr, null, null)");
}

TEST_F(Callbacks, EarlySubmissionHappensOnce) {
  Probe<KLOCallback> cb;
  int first = -1, second = -1;
  cb.body = [&](auto& self) {
    self.setSolution(y, 2.5);
    double objective = 0;
    first = self.useSolution(&objective);
    second = self.useSolution(&objective);
  };
  EXPECT_EQ(invoke(cb), 0);
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1000);
  const auto submitted = klo_fake::callsOf("KLOcbsolution");
  ASSERT_EQ(submitted.size(), 1u);
  EXPECT_EQ(submitted[0].doubles(1), (std::vector<double>{kNoValue, 2.5, kNoValue}));
}

TEST_F(Callbacks, PendingProposalGoesAfterCallbackAndAbortStops) {
  Probe<KLOCallback> cb;
  const KLOVar both[] = {z, x};
  const double values[] = {1.0, 3.0};
  cb.body = [&](auto& self) { self.setSolution(both, values, 2); };
  klo_fake::on("KLOcbsolution").status(1);  // refused: still no stop
  EXPECT_EQ(invoke(cb), 0);
  EXPECT_EQ(klo_fake::callsOf("KLOcbsolution")[0].doubles(1),
            (std::vector<double>{3.0, kNoValue, 1.0}));
  cb.body = [&](auto& self) { self.abort(); };
  EXPECT_EQ(invoke(cb), 11);
}

TEST_F(Callbacks, NegativeSubmissionResultsRaise) {
  Probe<KLOCallback> cb;
  cb.body = [&](auto& self) { self.setSolution(x, 1.0); };
  klo_fake::on("KLOcbsolution").status(-3);
  EXPECT_EQ(thrown([&] { invoke(cb); }).getErrorCode(), -3);
  cb.body = [&](auto& self) { self.setSolution(KLOVar(), 1.0); };
  EXPECT_NE(thrown([&] { invoke(cb); }).getErrorCode(), 0);
}

TEST_F(Callbacks, InformationCodesAreValidatedByType) {
  Probe<KLOCallback> cb;
  std::vector<int> codes;
  cb.body = [&](auto& self) {
    for (int what : {316, 318, -1, 303}) {
      codes.push_back(thrown([&] { self.getIntInfo(what); }).getErrorCode());
    }
    codes.push_back(thrown([&] { self.getDoubleInfo(203); }).getErrorCode());
    EXPECT_EQ(self.getIntInfo(200), 7);
    EXPECT_EQ(self.getDoubleInfo(316), 7.0);
    EXPECT_EQ(self.getDoubleInfo(310), 7.0);
  };
  klo_fake::on("KLOcbget").outs(3, {7LL, 7.0, 7.0});
  invoke(cb);
  EXPECT_EQ(codes, (std::vector<int>{-5001, -5001, -5001, -5001, -5001}));
  EXPECT_EQ(klo_fake::callsOf("KLOcbget").size(), 3u);
}

TEST_F(Callbacks, SolutionReadsMarkMissingArrays) {
  Probe<KLOCallback> cb;
  std::vector<double> seen;
  cb.body = [&](auto& self) {
    seen.push_back(self.getSolution(y));
    const KLOVar vars[] = {z, x};
    std::unique_ptr<double[]> rel(self.getNodeRel(vars, 2));
    seen.push_back(rel[0]);
    seen.push_back(rel[1]);
  };
  klo_fake::on("KLOcbget").outs(3, {klo_fake::Null{}, std::vector<double>{1, 2, 3}});
  invoke(cb);
  EXPECT_EQ(seen, (std::vector<double>{kNoValue, 3, 1}));
  EXPECT_EQ(klo_fake::callsOf("KLOcbget")[1].str(), "KLOcbget(ptr, 5, 317, ptr)");
}

TEST_F(Callbacks, CutsMergeTermsAndMoveTheConstantIntoFiniteSides) {
  Probe<KLOCallback> cb;
  std::vector<int> results;
  cb.body = [&](auto& self) {
    results.push_back(self.addCut(x + 2, '<', 10));
    results.push_back(self.addCut(y + x + y + 2, '>', 1e20));
    results.push_back(self.addBranch(z, 0.5, -1));
  };
  klo_fake::on("KLOcbcut").statuses({0, 3});
  klo_fake::on("KLOcbbranch").status(2);
  invoke(cb);
  EXPECT_EQ(results, (std::vector<int>{0, 3, 2}));
  EXPECT_EQ(klo_fake::callsOf("KLOcbcut")[0].str(), "KLOcbcut(ptr, 1, [0], [1], '<', 8)");
  EXPECT_EQ(klo_fake::callsOf("KLOcbcut")[1].str(), "KLOcbcut(ptr, 2, [0, 1], [1, 2], '>', 1e+20)");
  EXPECT_EQ(klo_fake::callsOf("KLOcbbranch")[0].str(), "KLOcbbranch(ptr, 2, 0.5, -1)");
}

TEST_F(Callbacks, RemovedVariablesAreRefusedBeforeTheLibrary) {
  KLOVar gone = z;
  model->remove(gone);
  Probe<KLOCallback> cb;
  std::vector<int> codes;
  cb.body = [&](auto& self) {
    codes.push_back(thrown([&] { self.addBranch(gone, 0.5, 0); }).getErrorCode());
    codes.push_back(thrown([&] { self.addCut(x + gone, '<', 1); }).getErrorCode());
  };
  invoke(cb);
  EXPECT_EQ(codes, (std::vector<int>{-2003, -2003}));
  EXPECT_TRUE(klo_fake::callsOf("KLOcbbranch").empty());
  EXPECT_TRUE(klo_fake::callsOf("KLOcbcut").empty());
}

TEST_F(Callbacks, IndexVariantWritesElementIOfAFreshProposal) {
  Probe<KLOCallbackP> cb;
  cb.body = [&](auto& self) { self.setSolution(1, 4.0); };
  // The first read of every invocation is the column count (code 200).
  klo_fake::on("KLOcbget").out(3, 3LL);
  EXPECT_EQ(invoke(cb), 0);
  int indices[] = {0, 2};
  double values[] = {5.0, 6.0};
  cb.body = [&](auto& self) { self.setSolution(indices, values, 2); };
  EXPECT_EQ(invoke(cb), 0);
  const auto submitted = klo_fake::callsOf("KLOcbsolutionp");
  ASSERT_EQ(submitted.size(), 2u);
  EXPECT_EQ(submitted[0].doubles(1), (std::vector<double>{kNoValue, 4.0, kNoValue}));
  EXPECT_EQ(submitted[1].doubles(1), (std::vector<double>{5.0, kNoValue, 6.0}));
  EXPECT_EQ(klo_fake::callsOf("KLOcbget")[0].str(), "KLOcbget(ptr, 5, 200, ptr)");
  EXPECT_TRUE(klo_fake::callsOf("KLOgetintattr").empty());
  cb.body = [&](auto& self) { self.setSolution(3, 1.0); };
  EXPECT_EQ(thrown([&] { invoke(cb); }).getErrorCode(), -2003);
}

TEST_F(Callbacks, IndexVariantReadsTheIndexCodes) {
  Probe<KLOCallbackP> cb;
  std::vector<double> seen;
  cb.body = [&](auto& self) {
    seen.push_back(self.getSolution(2));
    seen.push_back(self.getDoubleInfoAt(0, 313));
  };
  klo_fake::on("KLOcbget").outs(3, {3LL, std::vector<double>{7, 8, 9}});
  invoke(cb);
  EXPECT_EQ(seen, (std::vector<double>{9, 7}));
  EXPECT_EQ(klo_fake::callsOf("KLOcbget")[1].str(), "KLOcbget(ptr, 5, 303, ptr)");
}

}  // namespace
