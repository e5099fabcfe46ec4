// Models the C interface accepts but the engines abort on: each solve ends
// with a clear status or code, as an LP and as a MIP, and the process lives.
// (Crossed row bounds are not something engines abort on, but Clp's
// presolve called such a row optimal.)
#include <functional>
#include <string>

#include "solve_fixture.h"

namespace klotest {
namespace {

class SolveLimits : public SolveTest {};

TEST_F(SolveLimits, WhatEnginesAbortOnIsDecidedOrRefusedFirst) {
  struct Case {
    const char* what;
    std::function<void()> spoil;
    int code;    // of KLOoptimize
    int status;  // after it, when it succeeds
  };
  const Case cases[] = {
      {"row with lower bound +infinity",
       [this] {
         row({{0, 1}}, '>', 1e30);
       },
       KLO_OK, KLO_STATUS_INFEASIBLE},
      {"row with upper bound -infinity",
       [this] {
         row({{0, 1}}, '<', -1e30);
       },
       KLO_OK, KLO_STATUS_INFEASIBLE},
      {"row with crossed bounds",
       [this] {
         const int ind[] = {0};
         const double val[] = {1};
         ASSERT_EQ(KLOaddrangeconstr(model, 1, ind, val, 2, 1, nullptr), KLO_OK);
       },
       KLO_OK, KLO_STATUS_INFEASIBLE},
      {"column fixed at -infinity", [this] { var(1, -1e30, -1e30); }, KLO_OK,
       KLO_STATUS_INFEASIBLE},
      {"column fixed at +infinity", [this] { var(1, 1e30, 1e30); }, KLO_OK, KLO_STATUS_INFEASIBLE},
      {"integer column fixed at 0.5", [this] { var(0, 0.5, 0.5, 'I'); }, KLO_OK,
       KLO_STATUS_INFEASIBLE},
      {"objective coefficient 1e30", [this] { var(1e30, 0, 1); }, KLO_ERROR_NOT_SUPPORTED,
       KLO_STATUS_UNSTARTED},
      {"matrix entry 1e30",
       [this] {
         row({{0, 1e30}}, '<', 1);
       },
       KLO_ERROR_NOT_SUPPORTED, KLO_STATUS_UNSTARTED},
  };
  for (char type : {'C', 'I'}) {
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.what) + (type == 'C' ? " (LP)" : " (MIP)"));
      KLOfreemodel(model);
      ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
                KLO_OK);
      var(1, 0, 10, type);
      c.spoil();
      EXPECT_EQ(KLOoptimize(model), c.code) << modelError();
      EXPECT_EQ(intAttr("Status"), c.status);
      if (c.code != KLO_OK) {  // the coefficient is named
        EXPECT_NE(modelError().find("is 1e+30, beyond what"), std::string::npos) << modelError();
      }
    }
  }
}

}  // namespace
}  // namespace klotest
