// Engine output goes to the log sink only: nothing at all at level 0;
// progress and a one-line summary at level 1, the engine's own messages
// above it; never anything on stdout.
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

// max x0 + 2 x1, x0 + x1 = 1, x0^2 + 4 x1^2 <= 1 (x1 integer for Bonmin).
Problem qcp(char type) {
  ProblemBuilder b(-1);
  int x0 = b.col(1, 0, kInf), x1 = b.col(2, 0, kInf, type);
  b.row({{x0, 1}, {x1, 1}}, 1, 1);
  int v = b.row({}, -kInf, 1);
  b.rowQuad(v, x0, x0, 1);
  b.rowQuad(v, x1, x1, 4);
  return b.problem();
}

// min <[2 1; 1 2], X> subject to tr X = 1.
Problem sdp() {
  ProblemBuilder b;
  const int X = b.psdVar(2, {{0, 0, 2}, {0, 1, 1}, {1, 1, 2}});
  b.psdTerm(b.row({}, 1, 1), X, {{0, 0, 1}, {1, 1, 1}});
  return b.problem();
}

struct EngineLogCase {
  EngineEntry (*entry)();
  Problem (*problem)();
  const char* summary;  // how the level-1 log ends
  const char* seen;     // a line also there at level 1, or nullptr
};

class EngineLog : public testing::TestWithParam<EngineLogCase> {};

TEST_P(EngineLog, SilentAtLevelZeroAndOnlyInTheSinkAbove) {
  const EngineLogCase& c = GetParam();
  for (int level : {0, 1, 3}) {
    SCOPED_TRACE(testing::Message() << "level " << level);
    std::vector<std::string> lines;
    Settings s = quietSettings(&lines);
    s.logLevel = level;
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    Result r = c.entry().make()->solve(c.problem(), s, {});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(r.status, KLO_STATUS_OPTIMAL);
    if (level == 0) {
      EXPECT_EQ(err, "");
      EXPECT_TRUE(lines.empty());
      continue;
    }
    ASSERT_FALSE(lines.empty());
    for (const std::string& l : lines) EXPECT_EQ(l.find('\n'), std::string::npos);
    if (level == 1) {
      EXPECT_EQ(lines.back().rfind(c.summary, 0), 0u) << lines.back();
    }
    EXPECT_TRUE(anyStartsWith(lines, c.summary));
    if (c.seen) {
      EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const std::string& l) {
        return l.find(c.seen) != std::string::npos;
      }));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Engines, EngineLog,
    testing::Values(EngineLogCase{clpEntry, [] { return readInstance("afiro"); },
                                  "LP optimal, objective -464.753", nullptr},
                    EngineLogCase{cbcEntry, knapsack, "MIP optimal, objective 24", nullptr},
                    EngineLogCase{ipoptEntry, [] { return qcp('C'); }, "QCP optimal",
                                  "iter    objective"},
                    EngineLogCase{bonminEntry, [] { return qcp('I'); }, "MINLP optimal", nullptr},
                    EngineLogCase{csdpEntry, sdp, "SDP optimal", nullptr}),
    [](const testing::TestParamInfo<EngineLogCase>& info) {
      return std::string(info.param.entry().name);
    });

// A line at every node, under the search's header, and the summary.
TEST(EngineLogMip, ProgressLinesAndSummary) {
  std::vector<std::string> lines;
  Settings s = quietSettings(&lines);
  s.progressInterval = 0.0;
  s.maxNodes = 20;
  cbcEntry().make()->solve(readInstance("stein27"), s, {});
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(anyStartsWith(lines, "      Nodes      Left       Incumbent"));
  const size_t progress = std::count_if(lines.begin(), lines.end(), [](const std::string& l) {
    return l.find('%') != std::string::npos && l.back() == 's';
  });
  EXPECT_GE(progress, 10u);
  EXPECT_EQ(lines.back().rfind("MIP node limit reached, objective ", 0), 0u) << lines.back();
  EXPECT_NE(lines.back().find("nodes"), std::string::npos);
}

TEST(EngineLogMip, HigherLevelsAddEngineMessages) {
  const Problem p = readInstance("p0033");
  std::vector<std::string> one, three;
  cbcEntry().make()->solve(p, quietSettings(&one), {});
  Settings s = quietSettings(&three);
  s.logLevel = 3;
  cbcEntry().make()->solve(p, s, {});
  EXPECT_GT(three.size(), one.size() + 10);
}

}  // namespace
}  // namespace klo::engine::test
