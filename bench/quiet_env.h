// The benchmarks' environments: log off, so that timings measure the work
// and not the console; failures of the C interface throw.
#pragma once

#include "klo_c.h"
#include "klo_cpp.h"

// One object-layer environment per process.
inline KLOEnv& quietEnv() {
  static KLOEnv env = [] {
    KLOEnv e(true);
    e.set(KLO_IntParam_OutputFlag, 0);
    e.start();
    return e;
  }();
  return env;
}

inline void check(int status) {
  if (status != 0) throw KLOException(KLOexplainerror(status), status);
}

// A started environment of the C interface, freed with the holder.
struct QuietCEnv {
  KLOenv* env = nullptr;
  QuietCEnv() {
    check(KLOemptyenv(&env));
    check(KLOsetintparam(env, "OutputFlag", 0));
    check(KLOstartenv(env));
  }
  ~QuietCEnv() { KLOfreeenv(env); }
  QuietCEnv(const QuietCEnv&) = delete;
  QuietCEnv& operator=(const QuietCEnv&) = delete;
};

// An empty model of the C interface; it keeps its own copy of the environment.
inline KLOmodel* quietModel(const char* name) {
  const QuietCEnv e;
  KLOmodel* model = nullptr;
  check(KLOnewmodel(e.env, &model, name, 0, nullptr, nullptr, nullptr, nullptr, nullptr));
  return model;
}
