// Environments, error texts and the log.
#include <cstring>
#include <set>

#include "test_support.h"

namespace {

using klotest::TempFile;

TEST(Environment, EmptyEnvironmentRefusesModelsUntilStarted) {
  KLOenv* env = nullptr;
  ASSERT_EQ(KLOemptyenv(&env), KLO_OK);
  ASSERT_NE(env, nullptr);
  KLOmodel* model = nullptr;
  EXPECT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_ENV_NOT_STARTED);
  EXPECT_EQ(model, nullptr);
  EXPECT_NE(std::string(KLOgeterrormsg(env)).find("started"), std::string::npos);
  ASSERT_EQ(KLOstartenv(env), KLO_OK);
  EXPECT_NE(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_ENV_NOT_STARTED);
  KLOfreemodel(model);
  EXPECT_EQ(KLOfreeenv(env), KLO_OK);
}

TEST(Environment, NullArgumentsAreRefused) {
  EXPECT_EQ(KLOemptyenv(nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOloadenv(nullptr, nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOstartenv(nullptr), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOmsg(nullptr, "x"), KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOfreeenv(nullptr), KLO_OK);  // like free(NULL)
  EXPECT_STREQ(KLOgeterrormsg(nullptr), "");
}

TEST(Environment, LastErrorIsKeptPerEnvironment) {
  KLOenv* a = nullptr;
  KLOenv* b = nullptr;
  ASSERT_EQ(KLOemptyenv(&a), KLO_OK);
  ASSERT_EQ(KLOemptyenv(&b), KLO_OK);
  EXPECT_STREQ(KLOgeterrormsg(a), "");
  EXPECT_EQ(KLOsetintparam(a, "NoSuchThing", 1), KLO_ERROR_UNKNOWN_PARAMETER);
  EXPECT_NE(std::string(KLOgeterrormsg(a)).find("NoSuchThing"), std::string::npos);
  EXPECT_STREQ(KLOgeterrormsg(b), "");
  KLOfreeenv(a);
  KLOfreeenv(b);
}

TEST(Environment, LoadEnvWithUnwritableLogFileFails) {
  KLOenv* env = nullptr;
  EXPECT_EQ(KLOloadenv(&env, "/nonexistent/dir/klo.log"), KLO_ERROR_FILE_OPEN);
  ASSERT_NE(env, nullptr) << "the environment is handed out so its error can be read";
  EXPECT_NE(std::string(KLOgeterrormsg(env)).find("/nonexistent/dir/klo.log"), std::string::npos);
  KLOfreeenv(env);
}

const int kCodes[] = {
    KLO_OK,
    KLO_ERROR_INTERNAL,
    KLO_ERROR_OUT_OF_MEMORY,
    KLO_ERROR_INVALID_ARGUMENT,
    KLO_ERROR_NULL_ARGUMENT,
    KLO_ERROR_NOT_SUPPORTED,
    KLO_ERROR_DATA_NOT_AVAILABLE,
    KLO_ERROR_ENV_NOT_STARTED,
    KLO_ERROR_BUSY,
    KLO_ERROR_UNKNOWN_ATTRIBUTE,
    KLO_ERROR_ATTRIBUTE_TYPE,
    KLO_ERROR_ATTRIBUTE_LEVEL,
    KLO_ERROR_ATTRIBUTE_READONLY,
    KLO_ERROR_UNKNOWN_PARAMETER,
    KLO_ERROR_PARAMETER_TYPE,
    KLO_ERROR_PARAMETER_RANGE,
    KLO_ERROR_INDEX_OUT_OF_RANGE,
    KLO_ERROR_INVALID_CONSTR,
    KLO_ERROR_INVALID_VAR,
    KLO_ERROR_INVALID_PSDVAR,
    KLO_ERROR_INVALID_SOS,
    KLO_ERROR_INVALID_GENCONSTR,
    KLO_ERROR_INVALID_OBJECTIVE,
    KLO_ERROR_FILE_OPEN,
    KLO_ERROR_FILE_READ,
    KLO_ERROR_FILE_WRITE,
    KLO_ERROR_FILE_FORMAT,
    KLO_ERROR_CALLBACK_INFO,
    KLO_ERROR_NOT_IN_CALLBACK,
    KLO_ERROR_CALLBACK_WHERE,
    KLO_CB_REJECTED,
    KLO_CB_NOT_IMPROVING,
    KLO_CB_IGNORED,
};

TEST(ExplainError, EveryCodeHasItsOwnText) {
  std::set<std::string> texts;
  for (int code : kCodes) {
    const char* text = KLOexplainerror(code);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::string(text).find("Unknown error code"), std::string::npos) << code;
    EXPECT_TRUE(texts.insert(text).second) << "duplicate text for " << code;
  }
}

TEST(ExplainError, TextsAreThoseOfTheHeader) {
  EXPECT_STREQ(KLOexplainerror(KLO_ERROR_INVALID_VAR), "Invalid variable index");
  EXPECT_STREQ(KLOexplainerror(KLO_ERROR_INVALID_CONSTR), "Invalid constraint index");
  EXPECT_STREQ(KLOexplainerror(KLO_ERROR_OUT_OF_MEMORY),
               "Out of memory, or the model could not be copied");
  EXPECT_STREQ(KLOexplainerror(KLO_ERROR_CALLBACK_INFO), "Unknown callback information code");
  EXPECT_STREQ(KLOexplainerror(KLO_OK), "Success");
}

TEST(ExplainError, UnknownCodesNameTheNumber) {
  EXPECT_STREQ(KLOexplainerror(1001), "Unknown error code 1001");
  EXPECT_STREQ(KLOexplainerror(-424242), "Unknown error code -424242");
}

class Log : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(KLOloadenv(&env, log.c_str()), KLO_OK); }
  void TearDown() override { KLOfreeenv(env); }
  TempFile log{".log"};
  KLOenv* env = nullptr;
};

TEST_F(Log, MessagesAreAppendedToTheLogFile) {
  ASSERT_EQ(KLOsetintparam(env, "LogToConsole", 0), KLO_OK);
  EXPECT_EQ(KLOmsg(env, "first line"), KLO_OK);
  EXPECT_EQ(KLOmsg(env, "second line"), KLO_OK);
  EXPECT_EQ(log.read(), "first line\nsecond line\n");
  EXPECT_EQ(KLOmsg(env, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(Log, ExistingContentIsKept) {
  KLOfreeenv(env);
  log.write("earlier\n");
  ASSERT_EQ(KLOloadenv(&env, log.c_str()), KLO_OK);
  ASSERT_EQ(KLOsetintparam(env, "LogToConsole", 0), KLO_OK);
  ASSERT_EQ(KLOmsg(env, "later"), KLO_OK);
  EXPECT_EQ(log.read(), "earlier\nlater\n");
}

TEST_F(Log, OutputFlagZeroSilencesTheFile) {
  ASSERT_EQ(KLOsetintparam(env, "OutputFlag", 0), KLO_OK);
  ASSERT_EQ(KLOmsg(env, "hidden"), KLO_OK);
  EXPECT_EQ(log.read(), "");
}

TEST_F(Log, ConsoleGetsMessagesOnlyWhenBothFlagsAreOn) {
  ::testing::internal::CaptureStdout();
  KLOmsg(env, "to console");
  KLOsetintparam(env, "LogToConsole", 0);
  KLOmsg(env, "file only");
  KLOsetintparam(env, "LogToConsole", 1);
  KLOsetintparam(env, "OutputFlag", 0);
  KLOmsg(env, "nowhere");
  std::string out = ::testing::internal::GetCapturedStdout();
  EXPECT_EQ(out, "to console\n");
  EXPECT_EQ(log.read(), "to console\nfile only\n");
}

TEST_F(Log, ChangingLogFileRedirectsAndEmptyStops) {
  ASSERT_EQ(KLOsetintparam(env, "LogToConsole", 0), KLO_OK);
  TempFile second(".log");
  ASSERT_EQ(KLOsetstrparam(env, "LogFile", second.c_str()), KLO_OK);
  KLOmsg(env, "moved");
  ASSERT_EQ(KLOsetstrparam(env, "LogFile", ""), KLO_OK);
  KLOmsg(env, "dropped");
  EXPECT_EQ(log.read(), "");
  EXPECT_EQ(second.read(), "moved\n");
}

TEST_F(Log, UnwritableLogFileIsRefusedAndKeepsTheOldOne) {
  ASSERT_EQ(KLOsetintparam(env, "LogToConsole", 0), KLO_OK);
  EXPECT_EQ(KLOsetstrparam(env, "LogFile", "/nonexistent/dir/x.log"), KLO_ERROR_FILE_OPEN);
  char file[512];
  ASSERT_EQ(KLOgetstrparam(env, "LogFile", file), KLO_OK);
  EXPECT_EQ(std::string(file), log.path());
  KLOmsg(env, "still here");
  EXPECT_EQ(log.read(), "still here\n");
}

}  // namespace
