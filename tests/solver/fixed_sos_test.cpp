// SOS sets with members that cannot be zero, settled before any engine
// sees them: the problem going in and coming out.
#include "solve/fixed_sos.h"

#include <gtest/gtest.h>

#include <vector>

namespace klotest {
namespace {

using klo::SosSettled;
using klo::engine::Problem;

// Four columns in [0, 5]; those listed in positive start at 1 instead.
Problem fourColumns(int type, std::vector<int> positive) {
  Problem p;
  p.obj.assign(4, 0.0);
  p.colLower.assign(4, 0.0);
  p.colUpper.assign(4, 5.0);
  p.colType.assign(4, 'C');
  for (int j : positive) p.colLower[j] = 1;
  // Weights put the members in the order 0, 1, 2, 3.
  p.sos.push_back({type, {2, 0, 3, 1}, {3, 1, 4, 2}});
  return p;
}

TEST(FixedSos, MembersThatCannotBeZeroDecideTheRest) {
  struct Case {
    const char* what;
    int type;
    std::vector<int> positive;
    SosSettled outcome;
    std::vector<double> upper;  // the columns' upper bounds after
    std::vector<int> keptMembers;
  };
  const Case cases[] = {
      {"none", 1, {}, SosSettled::Unchanged, {5, 5, 5, 5}, {2, 0, 3, 1}},
      {"type 1, one", 1, {2}, SosSettled::Changed, {0, 0, 5, 0}, {}},
      {"type 1, two", 1, {0, 3}, SosSettled::Infeasible, {}, {}},
      {"type 2, one inside", 2, {1}, SosSettled::Changed, {5, 5, 5, 0}, {0, 2}},
      {"type 2, one at the end", 2, {3}, SosSettled::Changed, {0, 0, 5, 5}, {}},
      {"type 2, two neighbours", 2, {1, 2}, SosSettled::Changed, {0, 5, 5, 0}, {}},
      {"type 2, two apart", 2, {0, 2}, SosSettled::Infeasible, {}, {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Problem p = fourColumns(c.type, c.positive);
    ASSERT_EQ(klo::settleFixedSos(p), c.outcome);
    if (c.outcome == SosSettled::Infeasible) continue;
    EXPECT_EQ(p.colUpper, c.upper);
    if (c.keptMembers.empty()) {
      EXPECT_TRUE(p.sos.empty());
      continue;
    }
    ASSERT_EQ(p.sos.size(), 1u);
    EXPECT_EQ(p.sos[0].members, c.keptMembers);
    if (c.outcome == SosSettled::Changed) {
      EXPECT_EQ(p.sos[0].type, 1);
    }
  }
}

}  // namespace
}  // namespace klotest
