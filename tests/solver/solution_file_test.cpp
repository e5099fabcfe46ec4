// Solution files, written from results as a solve leaves them.
#include "io/side_files.h"
#include "store/edit.h"
#include "test_support.h"

namespace {

TEST(SolutionFile, ObjectiveAndOneValuePerVariable) {
  klo::ModelData d;
  klo::NewVars v;
  const char* names[] = {"x", ""};
  v.cols.n = 2;
  v.names = names;
  klo::addVars(d, v);
  klotest::TempFile sol(".sol");
  klo::writeSolutionFile(sol.path(), d, 1.5, {0.25, -3});
  EXPECT_EQ(sol.read(), "# Objective value = 1.5\nx 0.25\nC1 -3\n");
}

}  // namespace
