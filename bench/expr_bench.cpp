// Linear expressions: copies cost the same whatever the length, appends
// grow linearly, and evaluation against a solved model of the solver
// library.
//
//   expr_bench --benchmark_counters_tabular=true
//
// "per_term" is the time per appended or evaluated term.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "klo_cpp.h"

namespace {

constexpr int kMillion = 1000000;
constexpr int kVars = 1000;

// A solved model of kVars bounded variables, kept for the whole run.
struct Solved {
  KLOEnv env;
  KLOModel model;
  std::unique_ptr<KLOVar[]> vars;
  std::string failure;  // why there is no solution, if there is none

  Solved() : env(true), model((quiet(env), env)) {
    vars.reset(model.addVars(kVars, 'C'));
    for (int i = 0; i < kVars; ++i) vars[i].set(KLO_DoubleAttr_Obj, 1.0);
    try {
      model.optimize();
    } catch (const KLOException& e) {
      failure = "optimize failed: " + e.getMessage();
    }
  }

  static void quiet(KLOEnv& env) {
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
  }
};

Solved& solved() {
  static Solved s;
  return s;
}

KLOLinExpr withTerms(int n) {
  KLOLinExpr e;
  const KLOVar* vars = solved().vars.get();
  for (int i = 0; i < n; ++i) e += KLOLinExpr(vars[i % kVars], 1.0 + i % 7);
  return e;
}

void perTerm(benchmark::State& state, double terms) {
  state.counters["per_term"] = benchmark::Counter(
      terms, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_CopyLinExpr(benchmark::State& state) {
  const KLOLinExpr e = withTerms(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    KLOLinExpr copy(e);
    benchmark::DoNotOptimize(copy);
  }
}
BENCHMARK(BM_CopyLinExpr)->Arg(1)->Arg(kMillion);

// Builds e from nothing by state.range(0) appends of step(e).
template <class Step>
void appendTerms(benchmark::State& state, Step step) {
  for (auto _ : state) {
    KLOLinExpr e;
    for (int i = 0; i < state.range(0); ++i) step(e);
    benchmark::DoNotOptimize(e);
  }
  perTerm(state, static_cast<double>(state.range(0)));
}

// With a variable, appended as the term (1.0, x) directly.
void BM_AppendVarPlusEquals(benchmark::State& state) {
  const KLOVar x = solved().vars[0];
  appendTerms(state, [&](KLOLinExpr& e) { e += x; });
}
// With a variable converted to a one-term expression every time (what
// e += x cost before it had an overload of its own).
void BM_AppendVarAsExprPlusEquals(benchmark::State& state) {
  const KLOVar x = solved().vars[0];
  appendTerms(state, [&](KLOLinExpr& e) { e += KLOLinExpr(x); });
}
void BM_AppendVarSum(benchmark::State& state) {
  const KLOVar x = solved().vars[0];
  appendTerms(state, [&](KLOLinExpr& e) { e = e + x; });
}

// With a one-term expression made once.
void BM_AppendTermPlusEquals(benchmark::State& state) {
  const KLOLinExpr t(solved().vars[0], 2.0);
  appendTerms(state, [&](KLOLinExpr& e) { e += t; });
}
void BM_AppendTermSum(benchmark::State& state) {
  const KLOLinExpr t(solved().vars[0], 2.0);
  appendTerms(state, [&](KLOLinExpr& e) { e = e + t; });
}

BENCHMARK(BM_AppendVarPlusEquals)->Arg(kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AppendVarAsExprPlusEquals)->Arg(kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AppendVarSum)->Arg(kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AppendTermPlusEquals)->Arg(kMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AppendTermSum)->Arg(kMillion)->Unit(benchmark::kMillisecond);

void BM_GetValue(benchmark::State& state) {
  if (!solved().failure.empty()) {
    state.SkipWithError(solved().failure.c_str());
    return;
  }
  const KLOLinExpr e = withTerms(static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(e.getValue());
  perTerm(state, static_cast<double>(state.range(0)));
}
BENCHMARK(BM_GetValue)->Arg(kMillion)->Unit(benchmark::kMillisecond);

// The library call that getValue makes per term, with a bound in place of
// the solution value: a stand-in while no solution can be had.
void BM_ElementAttributeRead(benchmark::State& state) {
  const KLOVar* vars = solved().vars.get();
  for (auto _ : state) {
    double sum = 0.0;
    for (int i = 0; i < state.range(0); ++i) sum += vars[i % kVars].get(KLO_DoubleAttr_UB);
    benchmark::DoNotOptimize(sum);
  }
  perTerm(state, static_cast<double>(state.range(0)));
}
BENCHMARK(BM_ElementAttributeRead)->Arg(kMillion)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
