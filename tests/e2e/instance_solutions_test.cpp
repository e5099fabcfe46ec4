// Every shared instance, and every convex QP of qp/, read through the
// object layer and solved by the solver library: the objective agrees with
// index.csv (the quadratic one evaluated at the solution), and the solution,
// read through the variable handles, satisfies every bound, every
// integrality requirement and every row.  The rows are read back through
// getRow and their bounds through "LHS"/"RHS", so the check depends on the
// file reader and the engines only through what the model holds.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "instance_index.h"
#include "klo_cpp.h"

namespace {

using klotest::instancePath;
using klotest::readIndex;
using KnownInstance = klotest::Instance;

// Feasibility tolerance for a value whose terms have magnitude scale: the
// engines work to 1e-7 on scaled data, so unscaled residuals of 1e-6
// relative are still a correct solution.
double tolerance(double scale) { return 1e-6 * std::max(1.0, scale); }

class E2eInstances : public ::testing::TestWithParam<KnownInstance> {
 protected:
  KLOEnv env{true};
  std::unique_ptr<KLOModel> model;

  void SetUp() override {
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    model = std::make_unique<KLOModel>(env, instancePath(GetParam()));
    try {
      model->optimize();
    } catch (const KLOException& e) {
      FAIL() << "optimize: " << e.getErrorCode() << " " << model->getEnv().getErrorMsg();
    }
  }

  // The objective against index.csv: LPs and QPs to 1e-6 relative, MIPs
  // within the gap the search was allowed to stop at.
  void expectKnownObjective() const {
    const KnownInstance& known = GetParam();
    ASSERT_EQ(model->get(KLO_IntAttr_Status), 1) << "not solved to optimality";
    const double obj = model->get(KLO_DoubleAttr_ObjVal);
    double allowed = tolerance(std::fabs(known.objective));
    if (known.mip()) {
      const double gapRel = model->get(KLO_DoubleParam_MIP_GapRel);
      const double gapAbs = model->get(KLO_DoubleParam_MIP_GapAbs);
      allowed += std::max(gapAbs, gapRel * std::max(std::fabs(obj), std::fabs(known.objective)));
      // The best bound never passes the optimum (all instances minimise).
      EXPECT_LE(model->get(KLO_DoubleAttr_DualObjVal), known.objective + allowed);
    }
    EXPECT_NEAR(obj, known.objective, allowed);
    // The objective read back from the model, evaluated at the solution.
    EXPECT_NEAR(model->getObjective().getValue(), obj, tolerance(std::fabs(obj)));
  }

  // Bounds and integrality of every variable, "X" read through its handle.
  void expectVariablesWithinBounds() const {
    const double intTol = model->get(KLO_DoubleParam_MIP_IntegerTolerance);
    const int n = model->get(KLO_IntAttr_NumVars);
    std::unique_ptr<KLOVar[]> vars(model->getVars());
    int violations = 0;
    for (int j = 0; j < n && violations < 5; ++j) {
      const KLOVar& v = vars[j];
      const double x = v.get(KLO_DoubleAttr_X);
      const double lb = v.get(KLO_DoubleAttr_LB);
      const double ub = v.get(KLO_DoubleAttr_UB);
      const char type = v.get(KLO_CharAttr_VType);
      const bool ok = x >= lb - tolerance(std::fabs(lb)) && x <= ub + tolerance(std::fabs(ub)) &&
                      (type == 'C' || std::fabs(x - std::round(x)) <= intTol);
      if (!ok) {
        ++violations;
        ADD_FAILURE() << v.get(KLO_StringAttr_VarName) << " = " << x << " outside [" << lb << ", "
                      << ub << "] or not integral (type " << type << ")";
      }
    }
  }

  // Every row's activity, summed from the row's terms and the handles'
  // "X", lies within the row's bounds and matches the library's "Activity".
  void expectRowsSatisfied() const {
    const int m = model->get(KLO_IntAttr_NumConstrs);
    int violations = 0;
    for (int i = 0; i < m && violations < 5; ++i) {
      const KLOConstr c = model->getConstr(i);
      const KLOLinExpr row = model->getRow(c);
      double activity = 0, scale = 0;
      for (int k = 0; k < row.size(); ++k) {
        const double term = row.getCoeff(k) * row.getVar(k).get(KLO_DoubleAttr_X);
        activity += term;
        scale = std::max(scale, std::fabs(term));
      }
      const double lhs = c.get(KLO_DoubleAttr_LHS);
      const double rhs = c.get(KLO_DoubleAttr_RHS);
      const double tol = tolerance(std::max(scale, std::fabs(activity)));
      const bool ok = activity >= lhs - tol - tolerance(std::fabs(lhs)) &&
                      activity <= rhs + tol + tolerance(std::fabs(rhs)) &&
                      std::fabs(c.get(KLO_DoubleAttr_Activity) - activity) <= tol;
      if (!ok) {
        ++violations;
        ADD_FAILURE() << "row " << c.get(KLO_StringAttr_ConstrName) << ": activity " << activity
                      << " (library " << c.get(KLO_DoubleAttr_Activity) << ") outside [" << lhs
                      << ", " << rhs << "]";
      }
    }
  }
};

TEST_P(E2eInstances, SolvesToTheKnownObjectiveWithAFeasibleSolution) {
  EXPECT_EQ(model->get(KLO_IntAttr_IsInteger), GetParam().mip() ? 1 : 0);
  expectKnownObjective();
  if (HasFatalFailure()) return;
  expectVariablesWithinBounds();
  expectRowsSatisfied();
}

INSTANTIATE_TEST_SUITE_P(Shared, E2eInstances, ::testing::ValuesIn(readIndex()),
                         klotest::instanceName);
INSTANTIATE_TEST_SUITE_P(Qp, E2eInstances, ::testing::ValuesIn(readIndex("QP", "qp")),
                         klotest::instanceName);

// The index itself: a missing or unreadable index.csv would otherwise
// leave the suite above with nothing to run.
TEST(E2eInstanceIndex, ListsEveryInstanceWithItsKind) {
  const std::vector<KnownInstance> all = readIndex();
  EXPECT_GE(all.size(), 50u);
  EXPECT_TRUE(std::any_of(all.begin(), all.end(), [](const KnownInstance& k) { return k.mip(); }));
  for (const KnownInstance& k : all) EXPECT_TRUE(std::ifstream(instancePath(k)).good()) << k.file;
}

}  // namespace
