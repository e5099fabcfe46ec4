// Engine output goes to the log sink only: progress and a summary at level
// 1, the engine's own messages above it, nothing at all at level 0.
#include <gtest/gtest.h>

#include <algorithm>

#include "klo_c.h"
#include "problem_builder.h"

namespace klo::engine::test {
namespace {

bool anyStartsWith(const std::vector<std::string>& lines, const std::string& prefix) {
  return std::any_of(lines.begin(), lines.end(),
                     [&](const std::string& l) { return l.rfind(prefix, 0) == 0; });
}

TEST(EngineLog, MipProgressLinesAndSummary) {
  Problem p = readInstance("stein27");
  std::vector<std::string> lines;
  Settings s = quietSettings(&lines);
  s.progressInterval = 0.0;  // a line at every node
  s.maxNodes = 20;
  cbcEntry().make()->solve(p, s, {});
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(anyStartsWith(lines, "      Nodes      Left       Incumbent"));
  const size_t progress = std::count_if(lines.begin(), lines.end(), [](const std::string& l) {
    return l.find('%') != std::string::npos && l.back() == 's';
  });
  EXPECT_GE(progress, 10u);
  EXPECT_EQ(lines.back().rfind("MIP node limit reached, objective ", 0), 0u) << lines.back();
  EXPECT_NE(lines.back().find("nodes"), std::string::npos);
}

TEST(EngineLog, LpSummary) {
  Problem p = readInstance("afiro");
  std::vector<std::string> lines;
  clpEntry().make()->solve(p, quietSettings(&lines), {});
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.back().rfind("LP optimal, objective -464.753", 0), 0u) << lines.back();
}

TEST(EngineLog, HigherLevelsAddEngineMessages) {
  Problem p = readInstance("p0033");
  std::vector<std::string> one, three;
  Settings s = quietSettings(&one);
  cbcEntry().make()->solve(p, s, {});
  s = quietSettings(&three);
  s.logLevel = 3;
  cbcEntry().make()->solve(p, s, {});
  EXPECT_GT(three.size(), one.size() + 10);
}

TEST(EngineLog, LevelZeroIsSilentInEveryEngine) {
  for (const EngineEntry& e : engines()) {
    for (const char* name : {"afiro", "p0033"}) {
      Problem p = readInstance(name);
      if (!e.caps.takes(featuresOf(p))) continue;
      SCOPED_TRACE(std::string(e.name) + " on " + name);
      std::vector<std::string> lines;
      Settings s = quietSettings(&lines);
      s.logLevel = 0;
      testing::internal::CaptureStdout();
      testing::internal::CaptureStderr();
      Result r = e.make()->solve(p, s, {});
      const std::string out = testing::internal::GetCapturedStdout();
      const std::string err = testing::internal::GetCapturedStderr();
      EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
      EXPECT_TRUE(lines.empty());
      EXPECT_EQ(out, "");
      EXPECT_EQ(err, "");
    }
  }
}

TEST(EngineLog, LevelOneKeepsStdoutClean) {
  Problem p = readInstance("p0033");
  std::vector<std::string> lines;
  testing::internal::CaptureStdout();
  cbcEntry().make()->solve(p, quietSettings(&lines), {});
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_FALSE(lines.empty());
}

}  // namespace
}  // namespace klo::engine::test
