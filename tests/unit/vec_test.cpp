// Copy-on-write vectors: how copies share a buffer, when a Vec takes a
// private one, and positional checks.
#include "fake_fixture.h"

namespace {

class VecTest : public FakeTest {
 protected:
  static Vec<double> of(std::initializer_list<double> items) {
    Vec<double> v;
    for (double x : items) v.push_back(x);
    return v;
  }
};

TEST_F(VecTest, AppendToTheLongerSharerGoesInPlace) {
  Vec<double> b = of({1, 2, 3});
  Vec<double> a = b;
  ASSERT_EQ(a.buffer(), b.buffer());
  a.push_back(10);
  EXPECT_EQ(a.size(), 4);
  EXPECT_EQ(b.size(), 3);
  EXPECT_EQ(a.buffer(), b.buffer());
  // b no longer ends where the buffer ends: it copies its three first.
  b.push_back(20);
  EXPECT_NE(a.buffer(), b.buffer());
  EXPECT_EQ(a[3], 10);
  EXPECT_EQ(b[3], 20);
  EXPECT_EQ(b.buffer()->size(), 4u);
}

TEST_F(VecTest, ReadingASharedElementPrivatises) {
  Vec<double> a = of({1, 2});
  Vec<double> b = a;
  const std::vector<double>* shared = a.buffer();
  EXPECT_EQ(b[0], 1);
  EXPECT_NE(b.buffer(), shared);
  EXPECT_EQ(a.buffer(), shared);
  EXPECT_EQ(a.useCount(), 1);
}

TEST_F(VecTest, SoleOwnerTrimsTheBufferToItsSize) {
  Vec<double> a = of({1, 2, 3});
  {
    Vec<double> longer = a;
    longer.push_back(4);
  }
  EXPECT_EQ(a.buffer()->size(), 4u);  // the extra element outlived its appender
  a.copyOnWrite();
  EXPECT_EQ(a.buffer()->size(), 3u);
}

TEST_F(VecTest, PositionsAreChecked) {
  Vec<double> a = of({1, 2, 3});
  klo_fake::explain(-2003, "Invalid variable index");
  KLOException low = thrown([&] { a.checkId(-1); });
  EXPECT_EQ(low.getErrorCode(), -2003);
  EXPECT_EQ(low.getMessage(), "Invalid variable index");
  EXPECT_EQ(thrown([&] { a.checkId(3); }).getErrorCode(), -2003);
  EXPECT_NO_THROW(a.checkId(2));
  EXPECT_EQ(thrown([&] { a.remove(3); }).getErrorCode(), -2003);
  EXPECT_EQ(a.size(), 3);
}

TEST_F(VecTest, RemovingFromASharedBufferLeavesTheOtherIntact) {
  Vec<double> a = of({1, 2, 3});
  Vec<double> b = a;
  b.remove(0);
  EXPECT_EQ(b.size(), 2);
  EXPECT_EQ(b[0], 2);
  EXPECT_EQ(a[0], 1);
  EXPECT_EQ(a.size(), 3);
}

TEST_F(VecTest, ClearedVecHoldsNoBufferUntilItGrows) {
  Vec<double> a = of({1, 2});
  Vec<double> b = a;
  a.clear();
  EXPECT_EQ(a.size(), 0);
  EXPECT_EQ(a.buffer(), nullptr);
  EXPECT_EQ(a.useCount(), 0);
  a.push_back(7);
  EXPECT_EQ(a[0], 7);
  EXPECT_EQ(b[1], 2);
  Vec<double> c;
  c.clear();
  c.copyOnWrite();
  EXPECT_NE(c.buffer(), nullptr);
}

TEST_F(VecTest, SetVecTakesAPrivateCopy) {
  Vec<double> a = of({1});
  Vec<double> b = a;
  std::vector<double> source{4, 5, 6};
  a.setVec(source);
  source[0] = 0;
  EXPECT_EQ(a.size(), 3);
  EXPECT_EQ(a[0], 4);
  EXPECT_EQ(b.size(), 1);
}

TEST_F(VecTest, HandleElementsShareTheirRecords) {
  auto model = std::make_unique<KLOModel>(KLOEnv());
  KLOVar x = model->addVar(0, 1, 0, 'C');
  Vec<KLOVar> vars;
  vars.push_back(x);
  Vec<KLOVar> copy = vars;
  copy.copyOnWrite();
  EXPECT_TRUE(copy[0].sameAs(x));
  Vec<KLOMatrix> mats;
  mats.push_back(KLOMatrix::identity(2));
  EXPECT_EQ(mats[0].nonzeros(), 2);
}

}  // namespace
