// What a model-building benchmark reports besides its time: the size of the
// model it built (both ways of building must agree) and the process's peak
// resident size, for memory per nonzero.  The peak never falls within one
// process: run one size per process to read it for that size.
#pragma once

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "klo_c.h"
#include "klo_cpp.h"

inline void peakCounter(benchmark::State& state) {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["peakMB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
}

inline void buildCounters(benchmark::State& state, KLOmodel* model) {
  const char* const counts[] = {"NumVars", "NumConstrs", "NumQConstrs", "NumNZs"};
  const char* const names[] = {"vars", "rows", "qrows", "nzs"};
  for (int k = 0; k < 4; ++k) {
    int value = 0;
    KLOgetintattr(model, counts[k], &value);
    state.counters[names[k]] = value;
  }
  peakCounter(state);
}

inline void buildCounters(benchmark::State& state, const KLOModel& model) {
  state.counters["vars"] = model.get(KLO_IntAttr_NumVars);
  state.counters["rows"] = model.get(KLO_IntAttr_NumConstrs);
  state.counters["qrows"] = model.get(KLO_IntAttr_NumQConstrs);
  state.counters["nzs"] = model.get(KLO_IntAttr_NumNZs);
  peakCounter(state);
}
