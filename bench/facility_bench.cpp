// Building one facility-location model two ways: through the object
// layer's operators (a variable at a time, rows written as comparisons) and
// through the C interface's bulk calls (KLOaddvars, KLOaddconstrs, and
// KLOaddqconstr for each quadratic row).  Only the build is timed, not the
// solve.
//
// The model, for a grid of (N+1)^2 customers (i, j) and N facilities f:
// locations y[f] in [0,1]^2, distances s[i][j][f] >= 0, binaries z[i][j][f],
// free offsets r[i][j][f][0..1] and the free largest distance d, minimised;
// each customer is assigned once (sum_f z = 1); s - d + M z = M with
// M = 2 sqrt(2) ties d to the assigned facility; r + y = (i/N, j/N); and
// r0^2 + r1^2 - s^2 <= 0.  Both builds give the same variables and rows in
// the same order: variables y, d, then s, z, r0, r1 per (i, j, f); rows the
// assignment row and the three linear rows per f for each (i, j), then the
// quadratic rows.  The second argument says whether the quadratic rows are
// built at all (0: the linear part only).
//
//   facility_bench --benchmark_counters_tabular=true
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "build_counters.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "quiet_env.h"

namespace {

const double kM = 2 * std::sqrt(2.0);
constexpr int kPerCell = 4;  // s, z, r0, r1

struct Size {
  int n;
  int side() const { return n + 1; }
  long cells() const { return static_cast<long>(side()) * side() * n; }  // (i, j, f)
  // Column of variable k (0 s, 1 z, 2 r0, 3 r1) of cell (i, j, f).
  int col(int i, int j, int f, int k) const {
    return static_cast<int>(2 * n + 1 + ((static_cast<long>(i) * side() + j) * n + f) * kPerCell +
                            k);
  }
  int y(int f, int k) const { return 2 * f + k; }
  int d() const { return 2 * n; }
};

// --- the object layer ------------------------------------------------------

struct CellVars {
  KLOVar s, z, r0, r1;
};

void buildWithOperators(KLOModel& model, Size sz, bool quadratic) {
  const int n = sz.n;
  std::vector<KLOVar> y(static_cast<std::size_t>(2 * n));
  for (int f = 0; f < n; ++f)
    for (int k = 0; k < 2; ++k)
      y[static_cast<std::size_t>(sz.y(f, k))] = model.addVar(0, 1, 0, 'C');
  const KLOVar d = model.addVar(-KLO_INFINITY, KLO_INFINITY, 0, 'C');
  std::vector<CellVars> cell;
  cell.reserve(static_cast<std::size_t>(sz.cells()));
  for (long c = 0; c < sz.cells(); ++c)
    cell.push_back({model.addVar(0, KLO_INFINITY, 0, 'C'), model.addVar(0, 1, 0, 'B'),
                    model.addVar(-KLO_INFINITY, KLO_INFINITY, 0, 'C'),
                    model.addVar(-KLO_INFINITY, KLO_INFINITY, 0, 'C')});
  model.setObjective(d, 1);

  std::size_t c = 0;
  for (int i = 0; i <= n; ++i) {
    for (int j = 0; j <= n; ++j) {
      KLOLinExpr assigned;
      for (int f = 0; f < n; ++f) assigned += cell[c + static_cast<std::size_t>(f)].z;
      model.addConstr(assigned == 1);
      for (int f = 0; f < n; ++f, ++c) {
        const CellVars& v = cell[c];
        model.addConstr(v.s - d + kM * v.z == kM);
        model.addConstr(v.r0 + y[static_cast<std::size_t>(sz.y(f, 0))] == double(i) / n);
        model.addConstr(v.r1 + y[static_cast<std::size_t>(sz.y(f, 1))] == double(j) / n);
      }
    }
  }
  if (!quadratic) return;
  for (const CellVars& v : cell) model.addQConstr(v.r0 * v.r0 + v.r1 * v.r1 - v.s * v.s <= 0);
}

// --- the C interface -------------------------------------------------------

void addVariables(KLOmodel* model, Size sz) {
  const std::size_t total = static_cast<std::size_t>(2 * sz.n + 1 + sz.cells() * kPerCell);
  std::vector<double> obj(total, 0.0), lb(total, 0.0), ub(total, 1.0);
  std::vector<char> type(total, 'C');
  lb[static_cast<std::size_t>(sz.d())] = -KLO_INFINITY;
  ub[static_cast<std::size_t>(sz.d())] = KLO_INFINITY;
  obj[static_cast<std::size_t>(sz.d())] = 1.0;
  for (std::size_t k = static_cast<std::size_t>(sz.d()) + 1; k < total; k += kPerCell) {
    ub[k] = KLO_INFINITY;                   // s
    type[k + 1] = 'B';                      // z
    lb[k + 2] = lb[k + 3] = -KLO_INFINITY;  // r0, r1
    ub[k + 2] = ub[k + 3] = KLO_INFINITY;
  }
  check(KLOaddvars(model, static_cast<int>(total), 0, nullptr, nullptr, nullptr, obj.data(),
                   lb.data(), ub.data(), type.data(), nullptr));
  check(KLOsetintattr(model, "ModelSense", 1));
}

// The linear rows in compressed form.
struct Rows {
  std::vector<int> beg, ind;
  std::vector<double> val, rhs;
  std::vector<char> sense;

  void start(double right) {
    beg.push_back(static_cast<int>(ind.size()));
    sense.push_back('=');
    rhs.push_back(right);
  }
  void term(int col, double coeff) {
    ind.push_back(col);
    val.push_back(coeff);
  }
};

void addLinearRows(KLOmodel* model, Size sz) {
  const int n = sz.n;
  Rows rows;
  const std::size_t count = static_cast<std::size_t>(sz.side() * sz.side() + 3 * sz.cells());
  rows.beg.reserve(count);
  rows.ind.reserve(count * 3);
  rows.val.reserve(count * 3);
  for (int i = 0; i <= n; ++i) {
    for (int j = 0; j <= n; ++j) {
      rows.start(1.0);
      for (int f = 0; f < n; ++f) rows.term(sz.col(i, j, f, 1), 1.0);
      for (int f = 0; f < n; ++f) {
        rows.start(kM);
        rows.term(sz.col(i, j, f, 0), 1.0);
        rows.term(sz.d(), -1.0);
        rows.term(sz.col(i, j, f, 1), kM);
        rows.start(double(i) / n);
        rows.term(sz.col(i, j, f, 2), 1.0);
        rows.term(sz.y(f, 0), 1.0);
        rows.start(double(j) / n);
        rows.term(sz.col(i, j, f, 3), 1.0);
        rows.term(sz.y(f, 1), 1.0);
      }
    }
  }
  check(KLOaddconstrs(model, static_cast<int>(rows.beg.size()), static_cast<int>(rows.ind.size()),
                      rows.beg.data(), rows.ind.data(), rows.val.data(), rows.sense.data(),
                      rows.rhs.data(), nullptr));
}

void addQuadraticRows(KLOmodel* model, Size sz) {
  const double qval[3] = {1.0, 1.0, -1.0};
  for (int i = 0; i <= sz.n; ++i)
    for (int j = 0; j <= sz.n; ++j)
      for (int f = 0; f < sz.n; ++f) {
        const int s = sz.col(i, j, f, 0), r0 = sz.col(i, j, f, 2), r1 = sz.col(i, j, f, 3);
        const int q[3] = {r0, r1, s};
        check(KLOaddqconstr(model, 0, nullptr, nullptr, 3, q, q, qval, '<', 0.0, nullptr));
      }
}

KLOmodel* buildInBulk(Size sz, bool quadratic) {
  KLOmodel* model = quietModel("facility");
  addVariables(model, sz);
  addLinearRows(model, sz);
  if (quadratic) addQuadraticRows(model, sz);
  return model;
}

// --- the benchmarks --------------------------------------------------------

void BM_FacilityWithOperators(benchmark::State& state) {
  const Size sz{static_cast<int>(state.range(0))};
  for (auto _ : state) {
    auto model = std::make_unique<KLOModel>(quietEnv());
    buildWithOperators(*model, sz, state.range(1) != 0);
    state.PauseTiming();
    buildCounters(state, *model);
    model.reset();
    state.ResumeTiming();
  }
}

void BM_FacilityInBulk(benchmark::State& state) {
  const Size sz{static_cast<int>(state.range(0))};
  for (auto _ : state) {
    KLOmodel* model = buildInBulk(sz, state.range(1) != 0);
    state.PauseTiming();
    buildCounters(state, model);
    KLOfreemodel(model);
    state.ResumeTiming();
  }
}

}  // namespace

BENCHMARK(BM_FacilityWithOperators)
    ->ArgsProduct({{25, 50, 75, 100}, {0, 1}})
    ->Unit(benchmark::kSecond);
BENCHMARK(BM_FacilityInBulk)->ArgsProduct({{25, 50, 75, 100}, {0, 1}})->Unit(benchmark::kSecond);

BENCHMARK_MAIN();
