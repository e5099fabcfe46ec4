// The model store through the C interface: building a model of 1,000,000
// variables and 8,000,000 non-zeros in bulk against building the same arrays
// in memory; the cost of one element attribute read as the model grows; and
// deleting 1,000 scattered variables from the large model.
#include <benchmark/benchmark.h>
#include <klo_c.h>

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "quiet_env.h"

namespace {

constexpr int kVars = 1000000;
constexpr int kRows = 1000000;
constexpr int kPerRow = 8;

// The rows of the model: kPerRow distinct pseudo-random columns each.
struct RowArrays {
  std::vector<int> beg, ind;
  std::vector<double> val, rhs;
  std::vector<char> sense;
};

RowArrays makeRows(int vars, int rows) {
  RowArrays a;
  a.beg.reserve(rows);
  a.ind.reserve(std::size_t(rows) * kPerRow);
  a.val.reserve(std::size_t(rows) * kPerRow);
  std::uint64_t state = 12345;
  for (int r = 0; r < rows; ++r) {
    a.beg.push_back(int(a.ind.size()));
    int base = int((state = state * 6364136223846793005ULL + 1) >> 33) % vars;
    for (int k = 0; k < kPerRow; ++k) {
      a.ind.push_back((base + k * 7919) % vars);  // distinct within a row
      a.val.push_back(1.0 + k);
    }
  }
  a.rhs.assign(rows, 10.0);
  a.sense.assign(rows, '<');
  return a;
}

KLOmodel* buildModel(KLOenv* env, int vars, const RowArrays& a) {
  KLOmodel* model = nullptr;
  check(KLOnewmodel(env, &model, "bench", 0, nullptr, nullptr, nullptr, nullptr, nullptr));
  std::vector<double> obj(vars, 1.0), ub(vars, 100.0);
  check(KLOaddvars(model, vars, 0, nullptr, nullptr, nullptr, obj.data(), nullptr, ub.data(),
                   nullptr, nullptr));
  check(KLOaddconstrs(model, int(a.rhs.size()), int(a.ind.size()), a.beg.data(), a.ind.data(),
                      a.val.data(), a.sense.data(), a.rhs.data(), nullptr));
  return model;
}

void BM_ArraysOnly(benchmark::State& state) {
  for (auto _ : state) {
    RowArrays a = makeRows(kVars, kRows);
    std::vector<double> obj(kVars, 1.0), ub(kVars, 100.0);
    benchmark::DoNotOptimize(a.ind.data());
    benchmark::DoNotOptimize(obj.data());
  }
}
BENCHMARK(BM_ArraysOnly)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_ArraysAndBulkStore(benchmark::State& state) {
  QuietCEnv e;
  for (auto _ : state) {
    RowArrays a = makeRows(kVars, kRows);
    KLOmodel* model = buildModel(e.env, kVars, a);
    state.PauseTiming();
    KLOfreemodel(model);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_ArraysAndBulkStore)->Unit(benchmark::kMillisecond)->Iterations(3);

// One "UB" read per iteration, on models of growing size: O(1) shows as a
// flat time per read.
void BM_ElementAttribute(benchmark::State& state) {
  QuietCEnv e;
  const int vars = int(state.range(0));
  RowArrays a = makeRows(vars, vars);
  KLOmodel* model = buildModel(e.env, vars, a);
  double v = 0;
  int i = 0;
  for (auto _ : state) {
    KLOgetdblattrelement(model, "UB", i, &v);
    benchmark::DoNotOptimize(v);
    i = (i + 7919) % vars;
  }
  KLOfreemodel(model);
}
BENCHMARK(BM_ElementAttribute)->Arg(1000)->Arg(100000)->Arg(kVars);

void BM_DeleteScatteredVariables(benchmark::State& state) {
  QuietCEnv e;
  RowArrays a = makeRows(kVars, kRows);
  std::vector<int> doomed;
  for (int k = 0; k < 1000; ++k) doomed.push_back(int((std::int64_t(k) * 999983) % kVars));
  for (auto _ : state) {
    state.PauseTiming();
    KLOmodel* model = buildModel(e.env, kVars, a);
    state.ResumeTiming();
    check(KLOdelvars(model, int(doomed.size()), doomed.data()));
    state.PauseTiming();
    KLOfreemodel(model);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_DeleteScatteredVariables)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
