// The Lovasz theta of a graph: the optimum of the semidefinite program
//   max <J, X>  subject to  tr X = 1,  X_ij = 0 on every edge ij,  X PSD
// (J the all-ones matrix).  It lies between the size of the largest
// independent set and the fewest cliques that cover the nodes, and unlike
// either it can be computed in polynomial time.
//
// Known values: the 5-cycle has theta sqrt 5 = 2.2361 (between its
// independence number 2 and clique cover 3); the Petersen graph has theta
// 4, equal to its independence number.
#include <klo_cpp.h>

#include <cmath>
#include <cstdio>
#include <iostream>
#include <utility>
#include <vector>

namespace {

using Edges = std::vector<std::pair<int, int>>;

struct Graph {
  const char* name;
  int nodes;
  Edges edges;
  double knownTheta;
};

Edges cycle(int n, int offset) {
  Edges e;
  for (int i = 0; i < n; ++i) e.emplace_back(offset + i, offset + (i + 1) % n);
  return e;
}

// The Petersen graph: an outer 5-cycle, an inner pentagram (i to i + 2)
// and spokes from outer node i to inner node i.
Edges petersen() {
  Edges e = cycle(5, 0);
  for (int i = 0; i < 5; ++i) {
    e.emplace_back(5 + i, 5 + (i + 2) % 5);
    e.emplace_back(i, 5 + i);
  }
  return e;
}

double theta(const KLOEnv& env, const Graph& g) {
  KLOModel model(env);
  const int n = g.nodes;
  const KLOPsdVar X = model.addPsdVar(n, "X");
  model.addPsdConstr(KLOMatrix::identity(n) * X, '=', 1, "trace");
  // One triangle entry (i, j) stands for X_ij and X_ji.
  for (const auto& e : g.edges)
    model.addPsdConstr(KLOMatrix::sparse(n, n, {e.first}, {e.second}, {1.0}) * X, '=', 0);
  model.setObjective(KLOMatrix::ones(n, n) * X, -1);  // J given whole
  model.optimize();
  if (model.get(KLO_IntAttr_Status) != 1)
    throw KLOException("not solved to optimality", model.get(KLO_IntAttr_Status));
  return model.get(KLO_DoubleAttr_ObjVal);
}

}  // namespace

int main() {
  try {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    const Graph graphs[] = {{"5-cycle", 5, cycle(5, 0), std::sqrt(5.0)},
                            {"Petersen graph", 10, petersen(), 4.0}};
    bool allMatch = true;
    for (const Graph& g : graphs) {
      const double value = theta(env, g);
      const bool match = std::fabs(value - g.knownTheta) <= 1e-6 * g.knownTheta;
      allMatch = allMatch && match;
      std::printf("theta of the %s: %.6f (known %.6f, %s)\n", g.name, value, g.knownTheta,
                  match ? "matches" : "DIFFERS");
    }
    return allMatch ? 0 : 1;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
