// The checked-call rule: library statuses become KLOExceptions carrying the
// library's own code and text.
#include "env/check.h"
#include "fake_fixture.h"

namespace {

class CheckedCall : public FakeTest {};

TEST(KLOExceptionValue, HoldsMessageAndCode) {
  KLOException bare(-7);
  EXPECT_EQ(bare.getMessage(), "");
  EXPECT_EQ(bare.getErrorCode(), -7);
  KLOException full("some text", 42);
  EXPECT_EQ(full.getMessage(), "some text");
  EXPECT_EQ(full.getErrorCode(), 42);
}

TEST_F(CheckedCall, NonZeroStatusCarriesTheLibrarysCodeAndText) {
  klo_fake::explain(1001, "explanation of one thousand and one");
  KLOException e = thrown([] { klo_detail::check(1001); });
  EXPECT_EQ(e.getErrorCode(), 1001);
  EXPECT_EQ(e.getMessage(), "explanation of one thousand and one");
  EXPECT_EQ(klo_fake::strs(), std::vector<std::string>{"KLOexplainerror(1001)"});
}

TEST_F(CheckedCall, NegativeStatusIsRaisedUnchanged) {
  KLOException e = thrown([] { klo_detail::check(-1005); });
  EXPECT_EQ(e.getErrorCode(), -1005);
  EXPECT_EQ(e.getMessage(), "fake error -1005");
}

TEST_F(CheckedCall, ZeroStatusPassesWithoutAskingForAText) {
  EXPECT_NO_THROW(klo_detail::check(0));
  EXPECT_TRUE(klo_fake::calls().empty());
}

TEST_F(CheckedCall, OwnFaultsUseTheLibrarysWording) {
  klo_fake::explain(-2003, "Invalid variable index");
  KLOException e = thrown([] { klo_detail::raise(-2003); });
  EXPECT_EQ(e.getErrorCode(), -2003);
  EXPECT_EQ(e.getMessage(), "Invalid variable index");
}

TEST_F(CheckedCall, SubmissionsFailOnlyOnNegativeStatuses) {
  EXPECT_EQ(klo_detail::checkSubmission(0), 0);
  EXPECT_EQ(klo_detail::checkSubmission(2), 2);
  EXPECT_TRUE(klo_fake::calls().empty());
  klo_fake::explain(-5002, "not in a callback");
  KLOException e = thrown([] { klo_detail::checkSubmission(-5002); });
  EXPECT_EQ(e.getErrorCode(), -5002);
  EXPECT_EQ(e.getMessage(), "not in a callback");
}

}  // namespace
