// The SDPLIB instances read through the object layer and solved: the
// status and objective of the published answer, and the objective again
// from what the handles give back: "PsdObj" and "PsdX" of each PSD variable
// (as KLOMatrix values, upper triangles) and "Obj" and "X" of each variable.
// The four largest (several seconds each) are solved through the C
// interface only (solver tests), the engine work being the same.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "instance_index.h"
#include "klo_c.h"
#include "klo_cpp.h"

namespace {

using klotest::Instance;

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

class E2eSdp : public ::testing::TestWithParam<Instance> {};

TEST_P(E2eSdp, ReachesThePublishedAnswer) {
  const Instance& inst = GetParam();
  KLOEnv env(true);
  env.set(KLO_IntParam_OutputFlag, 0);
  env.start();
  KLOModel model(env, klotest::instancePath(inst));
  model.optimize();
  const int status = model.get(KLO_IntAttr_Status);
  if (inst.kind != "SDP") {
    EXPECT_EQ(status, inst.kind == "INFEASIBLE" ? KLO_STATUS_INFEASIBLE : KLO_STATUS_UNBOUNDED);
    return;
  }
  // Roughly known optima (a loose published tolerance) may be suboptimal.
  ASSERT_TRUE(status == KLO_STATUS_OPTIMAL ||
              (inst.reltol > 1e-6 && status == KLO_STATUS_SUBOPTIMAL))
      << status;
  const double obj = model.get(KLO_DoubleAttr_ObjVal);
  const double scale = std::max(1.0, std::fabs(inst.objective));
  EXPECT_NEAR(obj, inst.objective, inst.reltol * scale);
  double again = 0.0;
  for (int k = 0; k < model.get(KLO_IntAttr_NumPsdVars); ++k) {
    const KLOPsdVar v = model.getPsdVar(k);
    again += innerProduct(v.get(KLO_MatAttr_PsdObj), v.get(KLO_MatAttr_PsdX));
  }
  std::unique_ptr<KLOVar[]> vars(model.getVars());
  for (int j = 0; j < model.get(KLO_IntAttr_NumVars); ++j)
    again += vars[j].get(KLO_DoubleAttr_Obj) * vars[j].get(KLO_DoubleAttr_X);
  EXPECT_NEAR(again, obj, 1e-9 * scale);
}

std::vector<Instance> quickOnes() {
  std::vector<Instance> out;
  for (const Instance& i : klotest::readSdpIndex())
    if (i.name != "thetaG11" && i.name != "maxG11" && i.name.rfind("mcp500", 0) != 0)
      out.push_back(i);
  return out;
}

INSTANTIATE_TEST_SUITE_P(Sdplib, E2eSdp, ::testing::ValuesIn(quickOnes()), klotest::instanceName);

}  // namespace
