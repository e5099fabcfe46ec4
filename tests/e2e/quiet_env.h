// The environment every end-to-end test solves in: started, log off.
#pragma once

#include "klo_cpp.h"

struct QuietEnv {
  KLOEnv env{true};
  QuietEnv() {
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
  }
};
