// Quadratic products and adding rows: one row at a time from comparisons
// against one bulk call, on the solver library's own model store.
//
//   model_bench --benchmark_counters_tabular=true
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "klo_cpp.h"
#include "quiet_env.h"

namespace {

constexpr int kVars = 1000;
constexpr int kRowTerms = 10;

// A model of kVars continuous variables.
struct Columns {
  KLOModel model{quietEnv()};
  std::unique_ptr<KLOVar[]> vars{model.addVars(kVars, 'C')};
};

KLOLinExpr spread(const KLOVar* vars, int terms, int offset) {
  KLOLinExpr e(1.0);
  for (int i = 0; i < terms; ++i) e += KLOLinExpr(vars[(offset + 7 * i) % kVars], 1.0 + i % 5);
  return e;
}

void BM_ProductOfLinearExpressions(benchmark::State& state) {
  Columns c;
  const int n = static_cast<int>(state.range(0));
  const KLOLinExpr a = spread(c.vars.get(), n, 0);
  const KLOLinExpr b = spread(c.vars.get(), n, 3);
  for (auto _ : state) {
    KLOQuadExpr q = a * b;
    benchmark::DoNotOptimize(q);
  }
  state.counters["per_term"] =
      benchmark::Counter(static_cast<double>(n) * n, benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}
BENCHMARK(BM_ProductOfLinearExpressions)->Arg(1000)->Unit(benchmark::kMillisecond);

// count rows of kRowTerms terms each.
std::vector<KLOLinExpr> rows(const KLOVar* vars, int count) {
  std::vector<KLOLinExpr> out;
  out.reserve(static_cast<std::size_t>(count));
  for (int r = 0; r < count; ++r) out.push_back(spread(vars, kRowTerms, r));
  return out;
}

void perRow(benchmark::State& state) {
  state.counters["per_row"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_AddConstrFromComparisons(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto c = std::make_unique<Columns>();
    const std::vector<KLOLinExpr> exprs = rows(c->vars.get(), static_cast<int>(state.range(0)));
    state.ResumeTiming();
    for (const KLOLinExpr& e : exprs) c->model.addConstr(e <= 10.0);
    state.PauseTiming();
    c.reset();
    state.ResumeTiming();
  }
  perRow(state);
}
BENCHMARK(BM_AddConstrFromComparisons)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

void BM_AddConstrsInBulk(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const std::vector<char> senses(static_cast<std::size_t>(count), '<');
  const std::vector<double> rhs(senses.size(), 10.0);
  for (auto _ : state) {
    state.PauseTiming();
    auto c = std::make_unique<Columns>();
    const std::vector<KLOLinExpr> exprs = rows(c->vars.get(), count);
    state.ResumeTiming();
    std::unique_ptr<KLOConstr[]> added(
        c->model.addConstrs(exprs.data(), senses.data(), rhs.data(), nullptr, count));
    state.PauseTiming();
    added.reset();
    c.reset();
    state.ResumeTiming();
  }
  perRow(state);
}
BENCHMARK(BM_AddConstrsInBulk)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

}  // namespace

BENCHMARK_MAIN();
