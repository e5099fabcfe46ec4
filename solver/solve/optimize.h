// KLOoptimize's work: refuse what no engine solves, build the engine's
// problem and settings from the model, solve, write the results back.
#pragma once

#include "store/model.h"

namespace klo {

// Throws klo::Error on failure, leaving m as it was (results of an earlier
// solve included).  The model is busy meanwhile: its own callback cannot
// change it, free it or solve it again.
void optimize(KLOmodel& m);

// Marks a model busy for the lifetime of the object; throws KLO_ERROR_BUSY
// when it is busy already.
class BusyModel {
 public:
  BusyModel(KLOmodel& m, const char* what);
  ~BusyModel() { m_.busy = false; }
  BusyModel(const BusyModel&) = delete;
  BusyModel& operator=(const BusyModel&) = delete;

 private:
  KLOmodel& m_;
};

}  // namespace klo
