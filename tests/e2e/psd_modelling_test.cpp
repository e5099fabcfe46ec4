// Semidefinite models written with KLOPsdVar, KLOMatrix and KLOPsdExpr and
// solved by the solver library: "ObjVal", "PsdX" (read back through the
// handle), "X" and the rows' "DualSoln".  Each expected answer is worked
// out beside its case.  Bad matrices are refused at the call that adds
// them and leave the model as it was.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "klo_c.h"
#include "klo_cpp.h"
#include "quiet_env.h"

namespace {

const double kTol = 1e-6;

class PsdModelling : public ::testing::Test, protected QuietEnv {
 protected:
  std::unique_ptr<KLOModel> model;

  void SetUp() override { model = std::make_unique<KLOModel>(env); }

  void solveToOptimality() {
    try {
      model->optimize();
    } catch (const KLOException& e) {
      FAIL() << "optimize: " << e.getErrorCode() << " " << e.getMessage();
    }
    ASSERT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_OPTIMAL) << "not solved to optimality";
  }

  // "PsdX" of X as a dense row-major dim x dim array: the library gives the
  // upper triangle, mirrored here.
  static std::vector<double> solution(KLOPsdVar X) {
    const KLOMatrix m = X.get(KLO_MatAttr_PsdX);
    const int n = m.rows();
    std::vector<double> dense(static_cast<std::size_t>(n * n), 0.0);
    for (int k = 0; k < m.nonzeros(); ++k) {
      const int r = m.indices()[k] / n, c = m.indices()[k] % n;
      dense[static_cast<std::size_t>(r * n + c)] = m.data()[k];
      dense[static_cast<std::size_t>(c * n + r)] = m.data()[k];
    }
    return dense;
  }

  // The matrix with a single 1 at (i, j): as one triangle it stands for
  // (i, j) and (j, i), so <E, X> = 2 X_ij off the diagonal.
  static KLOMatrix unit(int n, int i, int j) { return KLOMatrix::sparse(n, n, {i}, {j}, {1.0}); }
};

// min <C, X> subject to lower <= tr X <= upper, X PSD.  For tr X = t the
// least <C, X> is t * lambda_min(C), at X = t v v' (v the unit eigenvector
// of lambda_min), so the optimum takes t = lower when lambda_min > 0 and
// t = upper when it is negative; the row's dual, the rate at which the
// optimum moves with its active bound, is lambda_min.
struct EigenCase {
  const char* what;
  KLOMatrix C;
  double lower, upper;
  double lambdaMin, v0, v1;  // v = (v0, v1), unit length
};

TEST_F(PsdModelling, TraceRowGivesTheSmallestEigenvalue) {
  const double r = 1 / std::sqrt(2.0), s = 1 / std::sqrt(5.0);
  const EigenCase cases[] = {
      // [2 1; 1 2], as its upper triangle: eigenvalues 1 and 3.
      {"one triangle", KLOMatrix::sparse(2, 2, {0, 0, 1}, {0, 1, 1}, {2, 1, 2}), 1, 1, 1, r, -r},
      // [0 2; 2 3] given whole: eigenvalues (3 -+ 5) / 2 = -1, 4; v for -1
      // solves 2 v1 = -v0.  The range [0.5, 2] binds above.
      {"given whole", KLOMatrix::dense(2, 2, {0, 2, 2, 3}), 0.5, 2, -1, 2 * s, -s},
      // diag(1, -3), the lower triangle empty: lambda_min = -3 on e2.
      {"diagonal", KLOMatrix::sparse(2, 2, {0, 1}, {0, 1}, {1, -3}), 1, 1, -3, 0, 1},
  };
  for (const EigenCase& c : cases) {
    SCOPED_TRACE(c.what);
    model = std::make_unique<KLOModel>(env);
    const KLOPsdVar X = model->addPsdVar(2, "X");
    const KLOPsdConstr trace =
        model->addRangePsdConstr(KLOMatrix::identity(2) * X, c.lower, c.upper, "trace");
    model->setObjective(c.C * X, 1);
    solveToOptimality();
    if (HasFatalFailure()) return;
    const double t = c.lambdaMin > 0 ? c.lower : c.upper;
    EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), t * c.lambdaMin, kTol);
    EXPECT_NEAR(trace.get(KLO_DoubleAttr_DualSoln), c.lambdaMin, kTol);
    const std::vector<double> x = solution(X);
    const double v[] = {c.v0, c.v1};
    for (int i = 0; i < 2; ++i)
      for (int j = 0; j < 2; ++j) EXPECT_NEAR(x[i * 2 + j], t * v[i] * v[j], kTol) << i << j;
  }
}

// The Lovasz theta of the 5-cycle, max <J, X> subject to tr X = 1 and
// X_ij = 0 on the edges, is sqrt 5.  The interior-point answer keeps the
// cycle's symmetry: X_ii = 1/5 and, on the non-edges, 1 + 10 b = sqrt 5, so
// b = (sqrt 5 - 1) / 10.  The trace row's dual is sqrt 5 (theta scales
// with the trace).
TEST_F(PsdModelling, LovaszThetaOfTheFiveCycle) {
  const int n = 5;
  const KLOPsdVar X = model->addPsdVar(n, "X");
  const KLOPsdConstr trace = model->addPsdConstr(KLOMatrix::identity(n) * X, '=', 1, "trace");
  for (int i = 0; i < n; ++i) model->addPsdConstr(unit(n, i, (i + 1) % n) * X, '=', 0);
  model->setObjective(KLOMatrix::ones(n, n) * X, -1);  // J given whole
  solveToOptimality();
  if (HasFatalFailure()) return;
  const double theta = std::sqrt(5.0);
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), theta, kTol);
  EXPECT_NEAR(trace.get(KLO_DoubleAttr_DualSoln), theta, kTol);
  const std::vector<double> x = solution(X);
  for (int i = 0; i < n; ++i) {
    EXPECT_NEAR(x[i * n + i], 0.2, kTol);
    EXPECT_NEAR(x[i * n + (i + 1) % n], 0.0, kTol);
    EXPECT_NEAR(x[i * n + (i + 2) % n], (theta - 1) / 10, kTol);
  }
}

// The largest eigenvalue as a linear variable: min t subject to
// t I - C = X, X PSD, t free.  With C = [2 1; 1 2] the optimum is t = 3,
// X = [1 -1; -1 1].  Duals: lambda_max moves by -u_i u_j per unit rise of
// the rhs -C_ij (u = (1, 1)/sqrt 2 its eigenvector), counted twice off the
// diagonal: -0.5 for the two diagonal rows, -1 for the off-diagonal one.
TEST_F(PsdModelling, LinearVariableBoundsTheLargestEigenvalue) {
  const KLOVar t = model->addVar(-1e20, 1e20, 0, 'C', "t");
  const KLOPsdVar X = model->addPsdVar(2, "X");
  const KLOPsdConstr d0 = model->addPsdConstr(unit(2, 0, 0) * X - t, '=', -2);
  const KLOPsdConstr d1 = model->addPsdConstr(unit(2, 1, 1) * X - t, '=', -2);
  const KLOPsdConstr off = model->addPsdConstr(0.5 * unit(2, 0, 1) * X, '=', -1);
  model->setObjective(t, 1);
  solveToOptimality();
  if (HasFatalFailure()) return;
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 3.0, kTol);
  EXPECT_NEAR(t.get(KLO_DoubleAttr_X), 3.0, kTol);
  const std::vector<double> x = solution(X);
  EXPECT_NEAR(x[0], 1.0, kTol);
  EXPECT_NEAR(x[1], -1.0, kTol);
  EXPECT_NEAR(x[3], 1.0, kTol);
  EXPECT_NEAR(d0.get(KLO_DoubleAttr_DualSoln), -0.5, kTol);
  EXPECT_NEAR(d1.get(KLO_DoubleAttr_DualSoln), -0.5, kTol);
  EXPECT_NEAR(off.get(KLO_DoubleAttr_DualSoln), -1.0, kTol);
}

// Terms of one PSD variable add up whichever triangle each is written in,
// or written whole: each pair below is 2 X_01 + 2 X_01 (a single
// off-diagonal entry stands for itself and its mirror), so with unit
// diagonal the row "pair = 2" gives X_01 = 0.5 and the same pair as the
// objective is worth 2.
TEST_F(PsdModelling, TermsWrittenInEitherTriangleAddUp) {
  const struct {
    const char* what;
    KLOMatrix A, B;
  } cases[] = {
      {"upper and lower", unit(2, 0, 1), unit(2, 1, 0)},
      {"whole and upper", KLOMatrix::sparse(2, 2, {0, 1}, {1, 0}, {1, 1}), unit(2, 0, 1)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    model = std::make_unique<KLOModel>(env);
    const KLOPsdVar X = model->addPsdVar(2, "X");
    model->addPsdConstr(unit(2, 0, 0) * X, '=', 1);
    model->addPsdConstr(unit(2, 1, 1) * X, '=', 1);
    const KLOPsdExpr pair = c.A * X + c.B * X;
    model->addPsdConstr(pair, '=', 2);
    model->setObjective(pair, 1);
    solveToOptimality();
    if (HasFatalFailure()) return;
    EXPECT_NEAR(solution(X)[1], 0.5, kTol);
    EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 2.0, kTol);
  }
}

// Bad PSD terms raise at the call that adds them, with the library's code
// and message, and the model keeps its rows and its objective matrix.
struct BadPsdCall {
  const char* what;
  int code;
  void (*call)(KLOModel&, KLOPsdVar X, KLOPsdVar removed);
};

TEST_F(PsdModelling, BadMatricesAreRefusedAtTheCall) {
  const BadPsdCall cases[] = {
      {"row on a removed PSD variable", KLO_ERROR_INVALID_VAR,
       [](KLOModel& m, KLOPsdVar X, KLOPsdVar gone) {
         m.addPsdConstr(KLOMatrix::identity(2) * X + KLOMatrix::identity(2) * gone, '=', 1);
       }},
      {"row with a matrix whose mirror entries differ", KLO_ERROR_INVALID_ARGUMENT,
       [](KLOModel& m, KLOPsdVar X, KLOPsdVar) {
         m.addRangePsdConstr(KLOMatrix::dense(2, 2, {1, 2, 3, 1}) * X, 0, 1);
       }},
      // Summed as given, (0,1) = 2 and (1,0) = 2 would pass as a whole
      // matrix.
      {"row where another term evens out the mirror entries", KLO_ERROR_INVALID_ARGUMENT,
       [](KLOModel& m, KLOPsdVar X, KLOPsdVar) {
         m.addPsdConstr(KLOMatrix::sparse(2, 2, {0, 1}, {1, 0}, {1, 2}) * X + unit(2, 0, 1) * X,
                        '=', 1);
       }},
      {"row with a NaN entry", KLO_ERROR_INVALID_ARGUMENT,
       [](KLOModel& m, KLOPsdVar X, KLOPsdVar) {
         m.addPsdConstr(KLOMatrix::sparse(2, 2, {0}, {1}, {std::nan("")}) * X, '<', 1);
       }},
      {"objective matrix whose mirror entries differ", KLO_ERROR_INVALID_ARGUMENT,
       [](KLOModel&, KLOPsdVar X, KLOPsdVar) {
         X.set(KLO_MatAttr_PsdObj, KLOMatrix::sparse(2, 2, {0, 1}, {1, 0}, {1, -1}));
       }},
      {"objective matrix with a NaN entry", KLO_ERROR_INVALID_ARGUMENT,
       [](KLOModel&, KLOPsdVar X, KLOPsdVar) {
         X.set(KLO_MatAttr_PsdObj, KLOMatrix::full(2, 2, std::nan("")));
       }},
  };
  const KLOPsdVar X = model->addPsdVar(2, "X");
  const KLOPsdVar gone = model->addPsdVar(2, "gone");
  model->remove(gone);
  model->addPsdConstr(KLOMatrix::identity(2) * X, '=', 1, "trace");
  model->setObjective(unit(2, 0, 1) * X, 1);
  for (const BadPsdCall& c : cases) {
    SCOPED_TRACE(c.what);
    try {
      c.call(*model, X, gone);
      ADD_FAILURE() << "accepted";
    } catch (const KLOException& e) {
      EXPECT_EQ(e.getErrorCode(), c.code);
      EXPECT_FALSE(e.getMessage().empty());
    }
    EXPECT_EQ(model->get(KLO_IntAttr_NumConstrs), 1);
    EXPECT_EQ(model->get(KLO_IntAttr_NumPsdVars), 1);
    EXPECT_EQ(model->get(KLO_IntAttr_NumEnts), 2 + 1);  // the trace row and X_01
    const KLOMatrix obj = X.get(KLO_MatAttr_PsdObj);
    ASSERT_EQ(obj.nonzeros(), 1);
    EXPECT_EQ(obj.indices()[0], 1);
    EXPECT_EQ(obj.data()[0], 1.0);
  }
}

}  // namespace
