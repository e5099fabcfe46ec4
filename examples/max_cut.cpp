// Max-cut of a random graph by its semidefinite relaxation and hyperplane
// rounding.
//
// A cut gives each node a side s_i = +-1 and cuts the edges with
// s_i s_j = -1, so its size is the sum over edges of (1 - s_i s_j) / 2.
// Replacing s s' by a PSD matrix X with unit diagonal relaxes this to
//   max sum over edges (1 - X_ij) / 2  subject to  X_ii = 1, X PSD,
// whose optimum bounds every cut from above.  Rounding: factor X = V V'
// (row i of V is a unit vector for node i), draw a random hyperplane
// through the origin and put each node on the side its vector falls.  An
// edge is then cut with probability angle(v_i, v_j) / pi, at least 0.878
// times its share (1 - X_ij) / 2 of the bound, so a rounding cuts at least
// 0.878 times the bound in expectation; the best of many does better.
#include <klo_cpp.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <random>
#include <utility>
#include <vector>

namespace {

const int kNodes = 24;
const double kEdgeProbability = 0.3;
const unsigned kSeed = 20261123;
const int kRoundings = 50;
const double kGuarantee = 0.878;
const double kPi = std::acos(-1.0);

using Edges = std::vector<std::pair<int, int>>;
using Matrix = std::vector<std::vector<double>>;

// Uniform in [0, 1) from the generator's raw output, so the graph is the
// same with every standard library.
double uniform(std::mt19937& rng) { return rng() / 4294967296.0; }

// A standard normal draw (Box-Muller), for direction-free hyperplanes.
double normal(std::mt19937& rng) {
  const double u = 1.0 - uniform(rng);  // in (0, 1]: the log stays finite
  return std::sqrt(-2.0 * std::log(u)) * std::cos(2.0 * kPi * uniform(rng));
}

Edges randomGraph(std::mt19937& rng) {
  Edges edges;
  for (int i = 0; i < kNodes; ++i)
    for (int j = i + 1; j < kNodes; ++j)
      if (uniform(rng) < kEdgeProbability) edges.emplace_back(i, j);
  return edges;
}

// Solves the relaxation; returns its optimum and fills x with "PsdX".
double solveRelaxation(const Edges& edges, Matrix& x) {
  KLOEnv env(true);
  env.set(KLO_IntParam_OutputFlag, 0);
  env.start();
  KLOModel model(env);
  const KLOPsdVar X = model.addPsdVar(kNodes, "X");
  for (int i = 0; i < kNodes; ++i)
    model.addPsdConstr(KLOMatrix::sparse(kNodes, kNodes, {i}, {i}, {1.0}) * X, '=', 1);

  // Each edge's -X_ij / 2 as -1/4 on one triangle entry, which stands for
  // (i, j) and (j, i).
  KLOMatrix weights(kNodes, kNodes, static_cast<int>(edges.size()));
  for (std::size_t k = 0; k < edges.size(); ++k) {
    weights.indices()[k] = edges[k].first * kNodes + edges[k].second;
    weights.data()[k] = -0.25;
  }
  model.setObjective(weights * X + edges.size() / 2.0, -1);
  model.optimize();
  if (model.get(KLO_IntAttr_Status) != 1)
    throw KLOException("relaxation not solved to optimality", model.get(KLO_IntAttr_Status));

  const KLOMatrix solution = X.get(KLO_MatAttr_PsdX);  // the upper triangle
  x.assign(kNodes, std::vector<double>(kNodes, 0.0));
  for (int k = 0; k < solution.nonzeros(); ++k) {
    const int r = solution.indices()[k] / kNodes, c = solution.indices()[k] % kNodes;
    x[r][c] = x[c][r] = solution.data()[k];
  }
  return model.get(KLO_DoubleAttr_ObjVal);
}

// Cholesky factor L (X = L L') of x plus a small shift: the relaxation's
// optimum is usually singular, and the shift keeps every pivot positive
// without moving the vectors noticeably.
Matrix factor(const Matrix& x) {
  const double shift = 1e-7;
  Matrix l(kNodes, std::vector<double>(kNodes, 0.0));
  for (int j = 0; j < kNodes; ++j) {
    double d = x[j][j] + shift;
    for (int k = 0; k < j; ++k) d -= l[j][k] * l[j][k];
    l[j][j] = std::sqrt(std::max(d, shift));
    for (int i = j + 1; i < kNodes; ++i) {
      double s = x[i][j];
      for (int k = 0; k < j; ++k) s -= l[i][k] * l[j][k];
      l[i][j] = s / l[j][j];
    }
  }
  return l;
}

// The cut of one random hyperplane with normal r: node i's side is the
// sign of v_i . r.
int roundOnce(const Matrix& v, const Edges& edges, std::mt19937& rng) {
  std::vector<double> r(kNodes);
  for (double& ri : r) ri = normal(rng);
  std::vector<bool> side(kNodes);
  for (int i = 0; i < kNodes; ++i) {
    double dot = 0;
    for (int k = 0; k < kNodes; ++k) dot += v[i][k] * r[k];
    side[i] = dot >= 0;
  }
  int cut = 0;
  for (const auto& e : edges) cut += side[e.first] != side[e.second];
  return cut;
}

}  // namespace

int main() {
  try {
    std::mt19937 rng(kSeed);
    const Edges edges = randomGraph(rng);
    Matrix x;
    const double bound = solveRelaxation(edges, x);
    const Matrix v = factor(x);
    int best = 0;
    for (int k = 0; k < kRoundings; ++k) best = std::max(best, roundOnce(v, edges, rng));

    std::printf("graph: %d nodes, %zu edges\n", kNodes, edges.size());
    std::printf("SDP bound: %.4f\n", bound);
    std::printf("best cut of %d roundings: %d edges (%.4f of the bound)\n", kRoundings, best,
                best / bound);
    // A cut above the bound would mean a wrong relaxation optimum.
    const bool holds = best <= bound + 1e-6 && best >= kGuarantee * bound;
    std::printf("%.3f * bound <= cut <= bound: %s\n", kGuarantee, holds ? "holds" : "FAILS");
    return holds ? 0 : 1;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
