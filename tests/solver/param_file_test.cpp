// Parameter files: round trip, comments, malformed lines.
#include "test_support.h"

namespace {

using klotest::TempFile;
using ParamFile = klotest::EnvTest;

TEST_F(ParamFile, WriteThenReadRestoresTheChangedValues) {
  TempFile prm(".prm");
  TempFile log(".log");
  ASSERT_EQ(KLOsetintparam(env, "MIP/MaxNodes", 1234), KLO_OK);
  ASSERT_EQ(KLOsetdblparam(env, "MIP/GapRel", 0.1), KLO_OK);  // not exact in binary
  ASSERT_EQ(KLOsetdblparam(env, "MIP/Cutoff", -1e20), KLO_OK);
  ASSERT_EQ(KLOsetstrparam(env, "LogFile", log.c_str()), KLO_OK);
  ASSERT_EQ(KLOwriteparams(env, prm.c_str()), KLO_OK);

  KLOenv* other = nullptr;
  ASSERT_EQ(KLOemptyenv(&other), KLO_OK);
  ASSERT_EQ(KLOreadparams(other, prm.c_str()), KLO_OK) << KLOgeterrormsg(other);
  int nodes = 0, console = 0;
  double gap = 0, cutoff = 0;
  char file[512];
  EXPECT_EQ(KLOgetintparam(other, "MIP/MaxNodes", &nodes), KLO_OK);
  EXPECT_EQ(nodes, 1234);
  EXPECT_EQ(KLOgetdblparam(other, "MIP/GapRel", &gap), KLO_OK);
  EXPECT_EQ(gap, 0.1);
  EXPECT_EQ(KLOgetdblparam(other, "MIP/Cutoff", &cutoff), KLO_OK);
  EXPECT_EQ(cutoff, -1e20);
  EXPECT_EQ(KLOgetstrparam(other, "LogFile", file), KLO_OK);
  EXPECT_EQ(std::string(file), log.path());
  // The fixture's LogToConsole 0 differs from the default too.
  EXPECT_EQ(KLOgetintparam(other, "LogToConsole", &console), KLO_OK);
  EXPECT_EQ(console, 0);
  KLOfreeenv(other);
}

TEST_F(ParamFile, OnlyNonDefaultValuesAreWritten) {
  TempFile prm(".prm");
  ASSERT_EQ(KLOsetintparam(env, "Method", 2), KLO_OK);
  ASSERT_EQ(KLOwriteparams(env, prm.c_str()), KLO_OK);
  std::string text = prm.read();
  EXPECT_NE(text.find("Method 2"), std::string::npos);
  EXPECT_NE(text.find("LogToConsole 0"), std::string::npos);
  EXPECT_EQ(text.find("MaxTime"), std::string::npos);
}

TEST_F(ParamFile, CommentsBlankLinesAndSpacingAreAccepted) {
  TempFile prm(".prm");
  prm.write("# a comment\n\n   Method   1   # trailing comment\n\tMIP/GapAbs\t0.5\r\n");
  ASSERT_EQ(KLOreadparams(env, prm.c_str()), KLO_OK) << lastError();
  int method = 0;
  double gap = 0;
  EXPECT_EQ(KLOgetintparam(env, "Method", &method), KLO_OK);
  EXPECT_EQ(method, 1);
  EXPECT_EQ(KLOgetdblparam(env, "MIP/GapAbs", &gap), KLO_OK);
  EXPECT_EQ(gap, 0.5);
}

struct BadLine {
  const char* line;
  const char* detail;  // a word the message must contain
};

TEST_F(ParamFile, MalformedLineNamesFileAndLineAndChangesNothing) {
  const BadLine cases[] = {
      {"Bogus 1", "Bogus"},       {"Method", "no value"},
      {"Method 1.5", "integer"},  {"Method 7", "outside"},
      {"MaxTime abc", "number"},  {"MaxTime 1 2", "number"},
      {"MaxTime nan", "outside"}, {"Method 99999999999", "integer"},
  };
  for (const BadLine& c : cases) {
    SCOPED_TRACE(c.line);
    TempFile prm(".prm");
    prm.write(std::string("Presolve 0\n# comment\n") + c.line + "\n");
    EXPECT_EQ(KLOreadparams(env, prm.c_str()), KLO_ERROR_FILE_READ);
    EXPECT_NE(lastError().find(prm.path() + ":3"), std::string::npos) << lastError();
    EXPECT_NE(lastError().find(c.detail), std::string::npos) << lastError();
    int presolve = 0;
    ASSERT_EQ(KLOgetintparam(env, "Presolve", &presolve), KLO_OK);
    EXPECT_EQ(presolve, -1) << "the good first line was applied";
  }
}

TEST_F(ParamFile, MissingOrUnwritableFileIsReported) {
  EXPECT_EQ(KLOreadparams(env, "/nonexistent/dir/x.prm"), KLO_ERROR_FILE_OPEN);
  EXPECT_NE(lastError().find("/nonexistent/dir/x.prm"), std::string::npos);
  EXPECT_EQ(KLOwriteparams(env, "/nonexistent/dir/x.prm"), KLO_ERROR_FILE_WRITE);
  EXPECT_EQ(KLOreadparams(env, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

}  // namespace
