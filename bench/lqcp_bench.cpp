// Building one linear-quadratic control model two ways: through the object
// layer's operators and through the C interface's bulk calls (KLOaddvars,
// KLOaddqpterms, KLOaddconstrs).  Only the build is timed, not the solve.
//
// The model, a heat equation on [0, 1] steered from its right end over N
// time steps of length dt = 1/N on N points of spacing h = 1/N: states
// y[i][j] in [0, 1], controls u[i] in [-1, 1]; minimise
// sum w (y[i][j] - t[j])^2 + a sum u[i]^2 with w = dt h, a = 0.001 and
// target t[j] = (1 - (j h)^2) / 2; rows y[0][j] = 0 and, for i >= 1, the
// implicit step (y[i][j] - y[i-1][j]) / dt = (y[i][j-1] - 2 y[i][j] +
// y[i][j+1]) / h^2, where y[i][-1] is 0 and y[i][N] is the control u[i].
// N x N rows linking neighbours, a quadratic objective over every variable.
// Both builds give the same variables in the same order (y row by row,
// then u) and the same rows.
//
//   lqcp_bench --benchmark_counters_tabular=true
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "build_counters.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "quiet_env.h"

namespace {

constexpr double kControlWeight = 0.001;

struct Grid {
  int n;
  double dt() const { return 1.0 / n; }
  double h() const { return 1.0 / n; }
  double weight() const { return dt() * h(); }
  double target(int j) const { return (1.0 - j * h() * j * h()) / 2; }
  int y(int i, int j) const { return i * n + j; }
  int u(int i) const { return n * n + i; }
  int vars() const { return n * n + n; }
};

// --- the object layer ------------------------------------------------------

void buildWithOperators(KLOModel& model, Grid g) {
  const int n = g.n;
  std::vector<KLOVar> y(static_cast<std::size_t>(n) * n), u(static_cast<std::size_t>(n));
  for (KLOVar& v : y) v = model.addVar(0, 1, 0, 'C');
  for (KLOVar& v : u) v = model.addVar(-1, 1, 0, 'C');
  auto at = [&](int i, int j) { return y[static_cast<std::size_t>(g.y(i, j))]; };

  KLOQuadExpr objective;
  for (int i = 0; i < n; ++i)
    for (int j = 0; j < n; ++j)
      objective += g.weight() * (at(i, j) - g.target(j)) * (at(i, j) - g.target(j));
  for (const KLOVar& c : u) objective += kControlWeight * c * c;
  model.setObjective(objective, 1);

  const double h2 = g.h() * g.h();
  for (int j = 0; j < n; ++j) model.addConstr(at(0, j) == 0);
  for (int i = 1; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      KLOLinExpr neighbours = -2 * at(i, j);
      if (j > 0) neighbours += at(i, j - 1);
      neighbours += j + 1 < n ? at(i, j + 1) : u[static_cast<std::size_t>(i)];
      model.addConstr((at(i, j) - at(i - 1, j)) / g.dt() == neighbours / h2);
    }
  }
}

// --- the C interface -------------------------------------------------------

void addVariables(KLOmodel* model, Grid g) {
  const std::size_t total = static_cast<std::size_t>(g.vars());
  std::vector<double> obj(total, 0.0), lb(total, 0.0), ub(total, 1.0);
  for (int i = 0; i < g.n; ++i) {
    for (int j = 0; j < g.n; ++j)
      obj[static_cast<std::size_t>(g.y(i, j))] = -2 * g.weight() * g.target(j);
    lb[static_cast<std::size_t>(g.u(i))] = -1.0;
  }
  check(KLOaddvars(model, g.vars(), 0, nullptr, nullptr, nullptr, obj.data(), lb.data(), ub.data(),
                   nullptr, nullptr));
}

void setObjective(KLOmodel* model, Grid g) {
  std::vector<int> q(static_cast<std::size_t>(g.vars()));
  std::vector<double> qval(q.size(), g.weight());
  double constant = 0.0;
  for (int k = 0; k < g.vars(); ++k) q[static_cast<std::size_t>(k)] = k;
  for (int i = 0; i < g.n; ++i) {
    for (int j = 0; j < g.n; ++j) constant += g.weight() * g.target(j) * g.target(j);
    qval[static_cast<std::size_t>(g.u(i))] = kControlWeight;
  }
  check(KLOaddqpterms(model, g.vars(), q.data(), q.data(), qval.data()));
  check(KLOsetdblattr(model, "ObjCon", constant));
  check(KLOsetintattr(model, "ModelSense", 1));
}

void addRows(KLOmodel* model, Grid g) {
  const int n = g.n;
  const double dt = g.dt(), h2 = g.h() * g.h();
  std::vector<int> beg, ind;
  std::vector<double> val;
  beg.reserve(static_cast<std::size_t>(n) * n);
  ind.reserve(static_cast<std::size_t>(n) * n * 4);
  val.reserve(ind.capacity());
  auto term = [&](int col, double coeff) {
    ind.push_back(col);
    val.push_back(coeff);
  };
  for (int j = 0; j < n; ++j) {
    beg.push_back(static_cast<int>(ind.size()));
    term(g.y(0, j), 1.0);
  }
  // Ascending column order within each row: y[i-1][j], y[i][j-1], y[i][j],
  // y[i][j+1] (or u[i], the highest).
  for (int i = 1; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      beg.push_back(static_cast<int>(ind.size()));
      term(g.y(i - 1, j), -1.0 / dt);
      if (j > 0) term(g.y(i, j - 1), -1.0 / h2);
      term(g.y(i, j), 1.0 / dt + 2.0 / h2);
      term(j + 1 < n ? g.y(i, j + 1) : g.u(i), -1.0 / h2);
    }
  }
  const std::vector<char> sense(beg.size(), '=');
  const std::vector<double> rhs(beg.size(), 0.0);
  check(KLOaddconstrs(model, static_cast<int>(beg.size()), static_cast<int>(ind.size()), beg.data(),
                      ind.data(), val.data(), sense.data(), rhs.data(), nullptr));
}

KLOmodel* buildInBulk(Grid g) {
  KLOmodel* model = quietModel("lqcp");
  addVariables(model, g);
  setObjective(model, g);
  addRows(model, g);
  return model;
}

// --- the benchmarks --------------------------------------------------------

void BM_LqcpWithOperators(benchmark::State& state) {
  const Grid g{static_cast<int>(state.range(0))};
  for (auto _ : state) {
    auto model = std::make_unique<KLOModel>(quietEnv());
    buildWithOperators(*model, g);
    state.PauseTiming();
    buildCounters(state, *model);
    model.reset();
    state.ResumeTiming();
  }
}

void BM_LqcpInBulk(benchmark::State& state) {
  const Grid g{static_cast<int>(state.range(0))};
  for (auto _ : state) {
    KLOmodel* model = buildInBulk(g);
    state.PauseTiming();
    buildCounters(state, model);
    KLOfreemodel(model);
    state.ResumeTiming();
  }
}

}  // namespace

// The grid sizes N, the same for both ways of building.
static void gridSizes(benchmark::internal::Benchmark* b) {
  for (int n : {25, 50, 75, 100, 300}) b->Arg(n);
  b->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_LqcpWithOperators)->Apply(gridSizes);
BENCHMARK(BM_LqcpInBulk)->Apply(gridSizes);

BENCHMARK_MAIN();
