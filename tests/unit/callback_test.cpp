// Callbacks driven as the library drives them: the trampoline, proposals
// and their submission, abort, information codes, cuts and branches, and
// the index-based variant.
#include <functional>

#include "fixture.h"

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

TEST_F(Callbacks, ProposalsAreSubmittedOnceEarlyOrAfterTheCallback) {
  Probe<KLOCallback> cb;
  std::vector<int> results;
  cb.body = [&](auto& self) {
    results.push_back(self.useSolution(nullptr));  // nothing proposed
    EXPECT_EQ(self.proposal()[2], kNoValue);
  };
  EXPECT_EQ(invoke(cb), 0);
  EXPECT_TRUE(klo_fake::callsOf("KLOcbsolution").empty());
  cb.body = [&](auto& self) {
    self.setSolution(y, 2.5);
    double objective = 0;
    results.push_back(self.useSolution(&objective));
    results.push_back(self.useSolution(&objective));
  };
  EXPECT_EQ(invoke(cb), 0);
  const KLOVar both[] = {z, x};
  const double values[] = {1.0, 3.0};
  cb.body = [&](auto& self) { self.setSolution(both, values, 2); };  // pending
  klo_fake::on("KLOcbsolution").status(1);                           // refused: still no stop
  EXPECT_EQ(invoke(cb), 0);
  EXPECT_EQ(results, (Ints{1000, 0, 1000}));
  const auto submitted = klo_fake::callsOf("KLOcbsolution");
  ASSERT_EQ(submitted.size(), 2u);
  EXPECT_EQ(submitted[0].doubles(1), (Doubles{kNoValue, 2.5, kNoValue}));
  EXPECT_EQ(submitted[1].doubles(1), (Doubles{3.0, kNoValue, 1.0}));
  cb.body = [&](auto& self) { self.abort(); };
  EXPECT_EQ(invoke(cb), 11);
  cb.body = [&](auto& self) { self.setSolution(x, 1.0); };
  klo_fake::on("KLOcbsolution").status(-3);  // negative submission results raise
  EXPECT_EQ(code([&] { invoke(cb); }), -3);
  cb.body = [&](auto& self) { self.setSolution(KLOVar(), 1.0); };
  EXPECT_NE(code([&] { invoke(cb); }), 0);
  model->setCallback(nullptr);
  EXPECT_EQ(klo_fake::strs().back(), "KLOsetcallbackfunc(ptr, null, null)");
}

TEST_F(Callbacks, InformationCodesAreValidatedByTypeAndMissingArraysMarked) {
  Probe<KLOCallback> cb;
  std::vector<int> codes;
  std::vector<double> seen;
  cb.body = [&](auto& self) {
    for (int what : {316, 318, -1, 303}) codes.push_back(code([&] { self.getIntInfo(what); }));
    codes.push_back(code([&] { self.getDoubleInfo(203); }));
    seen = {1.0 * self.getIntInfo(200), self.getDoubleInfo(316), self.getDoubleInfo(310),
            self.getSolution(y)};
    const KLOVar vars[] = {z, x};
    std::unique_ptr<double[]> rel(self.getNodeRel(vars, 2));
    seen.insert(seen.end(), {rel[0], rel[1]});
  };
  klo_fake::on("KLOcbget").outs(3, {7LL, 7.0, 7.0, klo_fake::Null{}, Doubles{1, 2, 3}});
  invoke(cb);
  EXPECT_EQ(codes, (Ints(5, -5001)));
  EXPECT_EQ(seen, (Doubles{7, 7, 7, kNoValue, 3, 1}));
  // Refused codes ask the library nothing; the solution reads 316, the
  // node relaxation 317 once per variable.
  const Calls refused(5, "KLOexplainerror(-5001)");
  Calls expected = {"KLOsetcallbackfunc(ptr, ptr, ptr)", "KLOgetintattr(ptr, \"NumVars\", ptr)"};
  expected.insert(expected.end(), refused.begin(), refused.end());
  for (int what : {200, 316, 310, 316, 317, 317})
    expected.push_back("KLOcbget(ptr, 5, " + std::to_string(what) + ", ptr)");
  EXPECT_EQ(klo_fake::strs(), expected);
}

TEST_F(Callbacks, CutsMergeTermsAndMoveTheConstantIntoFiniteSides) {
  KLOVar gone = model->addVar(0, 1, 0, 'C');
  model->remove(gone);
  Probe<KLOCallback> cb;
  std::vector<int> results;
  cb.body = [&](auto& self) {
    results.push_back(self.addCut(x + 2, '<', 10));
    results.push_back(self.addCut(y + x + y + 2, '>', 1e20));
    results.push_back(self.addBranch(z, 0.5, -1));
    // Removed variables are refused before the library.
    results.push_back(code([&] { self.addBranch(gone, 0.5, 0); }));
    results.push_back(code([&] { self.addCut(x + gone, '<', 1); }));
  };
  klo_fake::on("KLOcbcut").statuses({0, 3});
  klo_fake::on("KLOcbbranch").status(2);
  invoke(cb);
  EXPECT_EQ(results, (Ints{0, 3, 2, -2003, -2003}));
  const auto cuts = klo_fake::callsOf("KLOcbcut");
  ASSERT_EQ(cuts.size(), 2u);
  EXPECT_EQ(cuts[0].str(), "KLOcbcut(ptr, 1, [0], [1], '<', 8)");
  EXPECT_EQ(cuts[1].str(), "KLOcbcut(ptr, 2, [0, 1], [1, 2], '>', 1e+20)");
  EXPECT_EQ(klo_fake::callsOf("KLOcbbranch").size(), 1u);
  EXPECT_EQ(klo_fake::callsOf("KLOcbbranch")[0].str(), "KLOcbbranch(ptr, 2, 0.5, -1)");
}

TEST_F(Callbacks, IndexVariantWritesElementIOfAFreshProposalAndReadsTheIndexCodes) {
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
  EXPECT_EQ(submitted[0].doubles(1), (Doubles{kNoValue, 4.0, kNoValue}));
  EXPECT_EQ(submitted[1].doubles(1), (Doubles{5.0, kNoValue, 6.0}));
  EXPECT_EQ(klo_fake::callsOf("KLOcbget")[0].str(), "KLOcbget(ptr, 5, 200, ptr)");
  EXPECT_TRUE(klo_fake::callsOf("KLOgetintattr").empty());
  cb.body = [&](auto& self) { self.setSolution(3, 1.0); };
  EXPECT_EQ(code([&] { invoke(cb); }), -2003);
  klo_fake::reset();
  std::vector<double> seen;
  cb.body = [&](auto& self) { seen = {self.getSolution(2), self.getDoubleInfoAt(0, 313)}; };
  klo_fake::on("KLOcbget").outs(3, {3LL, Doubles{7, 8, 9}});
  invoke(cb);
  EXPECT_EQ(seen, (Doubles{9, 7}));
  EXPECT_EQ(klo_fake::callsOf("KLOcbget")[1].str(), "KLOcbget(ptr, 5, 303, ptr)");
}

}  // namespace
