// A text picture of everything a model holds: two models are the same when
// their snapshots are equal.
#pragma once

#include <string>

#include "klo_c.h"

namespace klotest {

struct SnapshotOptions {
  bool names = true;      // include element names
  bool modelName = true;  // include the model's name
};

std::string snapshot(KLOmodel* model, SnapshotOptions options = {});

// Whether two snapshots agree, numbers within a relative tolerance.
bool sameNumbers(const std::string& a, const std::string& b, double relTol);

}  // namespace klotest
