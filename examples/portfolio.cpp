// Markowitz portfolio: split a budget between four assets so that the
// expected return reaches a target at the least variance.  A quadratic
// program: the variance w'Sw is a KLOQuadExpr objective, the return target
// and the budget are linear rows.
//
// The answer, worked out from the optimality conditions: with every weight
// positive and the return row binding, 2Sw = lambda*mu + nu*1 together
// with mu'w = 0.11 and 1'w = 1 is a linear system in (w, lambda, nu),
// whose solution is
//   w = (87956, 70558, 64806, 67405) / 290725
//     = (0.302540, 0.242697, 0.222912, 0.231851),
//   lambda = 1.466567 (>= 0, as a binding >= row needs), nu = -0.089318,
// variance 5233357/145362500 = 0.0360021 (standard deviation 0.189742).
// The objective is convex and these multipliers satisfy its conditions,
// so this point is the optimum.
#include <klo_cpp.h>

#include <cmath>
#include <cstdio>
#include <iostream>

namespace {

const int kAssets = 4;
const char* const kName[kAssets] = {"bonds", "utilities", "industrials", "technology"};
const double kMeanReturn[kAssets] = {0.08, 0.10, 0.12, 0.15};
const double kCovariance[kAssets][kAssets] = {
    {0.040, 0.006, 0.002, 0.000},
    {0.006, 0.090, 0.010, 0.012},
    {0.002, 0.010, 0.160, 0.020},
    {0.000, 0.012, 0.020, 0.250},
};
const double kTargetReturn = 0.11;

}  // namespace

int main() {
  try {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    KLOModel model(env);

    // weight[i]: the share of the budget in asset i (no short sales).
    KLOVar weight[kAssets];
    for (int i = 0; i < kAssets; ++i) weight[i] = model.addVar(0, 1, 0, 'C', kName[i]);

    KLOLinExpr budget, expectedReturn;
    KLOQuadExpr variance;
    for (int i = 0; i < kAssets; ++i) {
      budget += weight[i];
      expectedReturn += kMeanReturn[i] * weight[i];
      for (int j = 0; j < kAssets; ++j) variance += kCovariance[i][j] * weight[i] * weight[j];
    }
    model.addConstr(budget == 1, "budget");
    const KLOConstr target = model.addConstr(expectedReturn >= kTargetReturn, "return");
    model.setObjective(variance, 1);  // 1: minimise

    model.optimize();
    if (model.get(KLO_IntAttr_Status) != 1) {
      std::printf("not solved (status %d)\n", model.get(KLO_IntAttr_Status));
      return 1;
    }
    for (int i = 0; i < kAssets; ++i)
      std::printf("%-12s %.4f\n", kName[i], weight[i].get(KLO_DoubleAttr_X));
    std::printf("expected return: %.4f\n", target.get(KLO_DoubleAttr_Activity));
    std::printf("variance: %.6f (standard deviation %.4f)\n", variance.getValue(),
                std::sqrt(variance.getValue()));
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
