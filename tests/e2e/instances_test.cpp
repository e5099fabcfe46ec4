// A few small shared instances (LP, MIP, QP, SDP, an infeasible SDP) read
// through the object layer and solved by the solver library: the objective
// of the index, and the answer checked again from what the handles give
// back, so that the check depends on the reader and the engines only
// through what the model holds.  (Every instance is swept through the C
// interface by the solver tests.)
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "instance_index.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "quiet_env.h"

namespace {

using klotest::Instance;

klotest::Instance find(const std::vector<Instance>& all, const std::string& name) {
  for (const Instance& i : all)
    if (i.name == name) return i;
  ADD_FAILURE() << name << " is not in the index";
  return {};
}

std::vector<Instance> chosen() {
  const std::vector<Instance> top = klotest::readIndex(), qp = klotest::readIndex("QP", "qp");
  const std::vector<Instance> sdp = klotest::readSdpIndex();
  return {find(top, "afiro"), find(top, "p0033"),  find(qp, "hs35"),
          find(qp, "qafiro"), find(sdp, "truss1"), find(sdp, "infd1")};
}

// Residuals of 1e-6 relative to the magnitude of their terms.
double tolerance(double scale) { return 1e-6 * std::max(1.0, scale); }

// <C, X> of two upper triangles: an off-diagonal entry stands for itself
// and its mirror.
double innerProduct(const KLOMatrix& c, const KLOMatrix& x) {
  std::vector<double> dense(static_cast<size_t>(x.rows()) * x.cols(), 0.0);
  for (int k = 0; k < x.nonzeros(); ++k) dense[x.indices()[k]] = x.data()[k];
  double sum = 0.0;
  for (int k = 0; k < c.nonzeros(); ++k) {
    const int p = c.indices()[k];
    sum += (p / c.cols() == p % c.cols() ? 1.0 : 2.0) * c.data()[k] * dense[p];
  }
  return sum;
}

class E2eInstances : public testing::TestWithParam<Instance>, protected QuietEnv {
 protected:
  std::unique_ptr<KLOModel> model;

  void SetUp() override {
    model = std::make_unique<KLOModel>(env, klotest::instancePath(GetParam()));
    model->optimize();
  }

  // Bounds and integrality of every variable, "X" read through its handle.
  void expectVariablesWithinBounds() const {
    const double intTol = model->get(KLO_DoubleParam_MIP_IntegerTolerance);
    std::unique_ptr<KLOVar[]> vars(model->getVars());
    for (int j = 0; j < model->get(KLO_IntAttr_NumVars); ++j) {
      const double x = vars[j].get(KLO_DoubleAttr_X);
      const double lb = vars[j].get(KLO_DoubleAttr_LB), ub = vars[j].get(KLO_DoubleAttr_UB);
      EXPECT_GE(x, lb - tolerance(std::fabs(lb))) << j;
      EXPECT_LE(x, ub + tolerance(std::fabs(ub))) << j;
      if (vars[j].get(KLO_CharAttr_VType) != 'C') {
        EXPECT_LE(std::fabs(x - std::round(x)), intTol) << j;
      }
    }
  }

  // Every row's activity, summed from getRow's terms and the handles' "X",
  // lies within "LHS" and "RHS" and matches the library's "Activity".
  void expectRowsSatisfied() const {
    for (int i = 0; i < model->get(KLO_IntAttr_NumConstrs); ++i) {
      const KLOConstr c = model->getConstr(i);
      const KLOLinExpr row = model->getRow(c);
      double activity = 0, scale = 0;
      for (int k = 0; k < row.size(); ++k) {
        const double term = row.getCoeff(k) * row.getVar(k).get(KLO_DoubleAttr_X);
        activity += term;
        scale = std::max(scale, std::fabs(term));
      }
      const double tol = tolerance(std::max(scale, std::fabs(activity)));
      const double lhs = c.get(KLO_DoubleAttr_LHS), rhs = c.get(KLO_DoubleAttr_RHS);
      EXPECT_GE(activity, lhs - tol - tolerance(std::fabs(lhs))) << i;
      EXPECT_LE(activity, rhs + tol + tolerance(std::fabs(rhs))) << i;
      EXPECT_NEAR(c.get(KLO_DoubleAttr_Activity), activity, tol) << i;
    }
  }

  // The objective again: the linear and quadratic parts through
  // getObjective, the PSD part through "PsdObj" and "PsdX".
  double objectiveAgain() const {
    double again = model->getObjective().getValue();
    for (int k = 0; k < model->get(KLO_IntAttr_NumPsdVars); ++k) {
      const KLOPsdVar v = model->getPsdVar(k);
      again += innerProduct(v.get(KLO_MatAttr_PsdObj), v.get(KLO_MatAttr_PsdX));
    }
    return again;
  }
};

TEST_P(E2eInstances, SolvesToTheKnownObjectiveWithAFeasibleSolution) {
  const Instance& known = GetParam();
  if (known.kind == "INFEASIBLE") {
    EXPECT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_INFEASIBLE);
    return;
  }
  EXPECT_EQ(model->get(KLO_IntAttr_IsInteger), known.mip() ? 1 : 0);
  ASSERT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_OPTIMAL);
  const double obj = model->get(KLO_DoubleAttr_ObjVal);
  double allowed = known.reltol * std::max(1.0, std::fabs(known.objective));
  if (known.mip()) {  // within the gap the search may stop at
    allowed += std::max(model->get(KLO_DoubleParam_MIP_GapAbs),
                        model->get(KLO_DoubleParam_MIP_GapRel) * std::fabs(known.objective));
    EXPECT_LE(model->get(KLO_DoubleAttr_DualObjVal), known.objective + allowed);
  }
  EXPECT_NEAR(obj, known.objective, allowed);
  EXPECT_NEAR(objectiveAgain(), obj, tolerance(std::fabs(obj)));
  expectVariablesWithinBounds();
  if (model->get(KLO_IntAttr_NumPsdVars) == 0) expectRowsSatisfied();
}

INSTANTIATE_TEST_SUITE_P(Shared, E2eInstances, testing::ValuesIn(chosen()), klotest::instanceName);

}  // namespace
