// Models with quadratic objectives (KLOQuadExpr) and quadratic rows
// (addQConstr) solved by the solver library, their answers read back
// through the handles: "X" of the variables, getValue of the expressions
// as written, "Activity" of the rows.  Each expected answer is worked out
// beside its case.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "klo_cpp.h"

namespace {

const double kTol = 1e-6;
const double kInfinity = 1e20;  // bounds this large are infinite

class QuadraticModelling : public ::testing::Test {
 protected:
  KLOEnv env{true};
  std::unique_ptr<KLOModel> model;
  KLOVar x, y;

  void SetUp() override {
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    model = std::make_unique<KLOModel>(env);
    x = model->addVar(-kInfinity, kInfinity, 0, 'C', "x");
    y = model->addVar(-kInfinity, kInfinity, 0, 'C', "y");
  }

  // Solves and requires an optimal answer, turning a refusal into a
  // readable failure.
  void solveToOptimality() {
    try {
      model->optimize();
    } catch (const KLOException& e) {
      FAIL() << "optimize: " << e.getErrorCode() << " " << model->getEnv().getErrorMsg();
    }
    ASSERT_EQ(model->get(KLO_IntAttr_Status), 1) << "not solved to optimality";
  }
};

// min (x-1)^2 + (y-2)^2  s.t.  x + y <= 2.  The free minimum (1, 2) breaks
// the row, so the answer is its projection onto x + y = 2: (0.5, 1.5),
// objective 0.25 + 0.25 = 0.5.  With the bound b in place of 2 the optimum
// is (3-b)^2/2, whose slope at b = 2 is -1: the row's dual.
TEST_F(QuadraticModelling, ConvexQpLandsOnTheProjection) {
  const KLOQuadExpr distance = (x - 1) * (x - 1) + (y - 2) * (y - 2);
  model->setObjective(distance, 1);
  const KLOConstr row = model->addConstr(x + y <= 2, "budget");
  solveToOptimality();
  if (HasFatalFailure()) return;
  EXPECT_NEAR(x.get(KLO_DoubleAttr_X), 0.5, kTol);
  EXPECT_NEAR(y.get(KLO_DoubleAttr_X), 1.5, kTol);
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 0.5, kTol);
  EXPECT_NEAR(distance.getValue(), 0.5, kTol);
  EXPECT_NEAR(model->getObjective().getValue(), 0.5, kTol);
  EXPECT_NEAR(row.get(KLO_DoubleAttr_Activity), 2.0, kTol);
  EXPECT_NEAR(row.get(KLO_DoubleAttr_DualSoln), -1.0, kTol);
}

// max x + y  s.t.  x^2 + y^2 - 2x <= 1, i.e. (x-1)^2 + y^2 <= 2: a disc of
// radius sqrt(2) around (1, 0), left along (1, 1)/sqrt(2) to (2, 1),
// objective 3.  The row's activity there is 4 + 1 - 4 = 1.
TEST_F(QuadraticModelling, QuadraticRowBindsAtTheFarthestPoint) {
  const KLOQConstr disc = model->addQConstr(x * x + y * y - 2 * x <= 1, "disc");
  model->setObjective(x + y, -1);
  solveToOptimality();
  if (HasFatalFailure()) return;
  EXPECT_NEAR(x.get(KLO_DoubleAttr_X), 2.0, kTol);
  EXPECT_NEAR(y.get(KLO_DoubleAttr_X), 1.0, kTol);
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 3.0, kTol);
  // A KLOQConstr is numbered one past its row, so the row's attributes are
  // read through its KLOConstr.
  EXPECT_NEAR(model->getConstr(0).get(KLO_DoubleAttr_Activity), 1.0, kTol);
  EXPECT_NEAR(model->getQCRow(disc).getValue(), 1.0, kTol);
}

// min t  s.t.  x^2 + y^2 - t^2 <= 0, x + y >= 2, t >= 0: the nearest point
// of the line to the origin is (1, 1), so t = sqrt(2) and the cone row is
// tight (activity 0).
TEST_F(QuadraticModelling, ConeRowGivesTheDistanceToALine) {
  const KLOVar t = model->addVar(0, kInfinity, 1, 'C', "t");
  model->addQConstr(x * x + y * y - t * t <= 0, "cone");
  model->addConstr(x + y >= 2, "line");
  solveToOptimality();
  if (HasFatalFailure()) return;
  EXPECT_NEAR(x.get(KLO_DoubleAttr_X), 1.0, kTol);
  EXPECT_NEAR(y.get(KLO_DoubleAttr_X), 1.0, kTol);
  EXPECT_NEAR(t.get(KLO_DoubleAttr_X), std::sqrt(2.0), kTol);
  EXPECT_NEAR(model->getConstr(0).get(KLO_DoubleAttr_Activity), 0.0, kTol);
}

// min (x - 2.6)^2 + (y - 1.4)^2  s.t.  x + y <= 3.5, y integer in [0, 5].
// For each y the best x is min(2.6, 3.5 - y): y = 0 gives 1.96, y = 1
// (x = 2.5) 0.01 + 0.16 = 0.17, y = 2 (x = 1.5) 1.21 + 0.36 = 1.57, and
// larger y more; so y = 1, x = 2.5, objective 0.17.
TEST_F(QuadraticModelling, IntegerVariableWithAQuadraticObjective) {
  y.set(KLO_CharAttr_VType, 'I');
  y.set(KLO_DoubleAttr_LB, 0);
  y.set(KLO_DoubleAttr_UB, 5);
  const KLOQuadExpr cost = (x - 2.6) * (x - 2.6) + (y - 1.4) * (y - 1.4);
  model->setObjective(cost, 1);
  model->addConstr(x + y <= 3.5, "cap");
  solveToOptimality();
  if (HasFatalFailure()) return;
  EXPECT_NEAR(y.get(KLO_DoubleAttr_X), 1.0, kTol);
  EXPECT_NEAR(x.get(KLO_DoubleAttr_X), 2.5, kTol);
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 0.17, kTol);
  EXPECT_NEAR(cost.getValue(), 0.17, kTol);
}

}  // namespace
