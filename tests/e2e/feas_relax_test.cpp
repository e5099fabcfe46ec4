// The short feasibility relaxation through the object layer on a model with
// more variables than rows: every bound and row gets its penalty.
#include <gtest/gtest.h>

#include <algorithm>

#include "klo_cpp.h"

namespace {

// x, y in [0, 1] and 2x + y >= 4.5: relaxing the bounds costs 0.75 (x up to
// 1.75), relaxing the row costs 1.5 (the row down to 3).
TEST(ShortFeasRelax, PricesWhatEachSwitchAllows) {
  struct Case {
    bool vrelax, crelax;
    double measure;
  };
  for (const Case& c : {Case{true, false, 0.75}, Case{false, true, 1.5}, Case{true, true, 0.75}}) {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    KLOModel model(env);
    const KLOVar x = model.addVar(0, 1, 0, 'C', "x");
    const KLOVar y = model.addVar(0, 1, 0, 'C', "y");
    model.addConstr(2 * x + y >= 4.5, "r");
    EXPECT_NEAR(model.feasRelax(0, true, c.vrelax, c.crelax), c.measure, 1e-7)
        << c.vrelax << c.crelax;
    const double xv = x.get(KLO_DoubleAttr_X), yv = y.get(KLO_DoubleAttr_X);
    const double broken =
        std::max(0.0, xv - 1) + std::max(0.0, yv - 1) + std::max(0.0, 4.5 - (2 * xv + yv));
    EXPECT_NEAR(broken, c.measure, 1e-7) << c.vrelax << c.crelax;
  }
}

}  // namespace
