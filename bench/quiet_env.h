// The benchmarks' environment: one per process, log off, so that timings
// measure the work and not the console.
#pragma once

#include "klo_cpp.h"

inline KLOEnv& quietEnv() {
  static KLOEnv env = [] {
    KLOEnv e(true);
    e.set(KLO_IntParam_OutputFlag, 0);
    e.start();
    return e;
  }();
  return env;
}
