// Which engine solves a problem: the model's class from its features and
// the convexity of its quadratic parts, and the first engine whose
// declaration takes them.  Every solve path (KLOoptimize, objective
// passes, IIS, feasibility relaxation) asks here.
#pragma once

#include <vector>

#include "engine/engine.h"

namespace klo {

enum class ModelClass {
  LP,        // linear, continuous
  MIP,       // linear with integers, SOS, semi-continuous or indicator parts
  QP,        // quadratic objective, linear rows, continuous
  QCQP,      // quadratic rows, continuous
  MIQP,      // integer parts together with quadratic terms (objective or rows)
  SDP,       // PSD variables with linear everything else
  Other,     // PSD variables together with integer or quadratic parts
  Nonconvex  // a quadratic part that is not convex (solve/convexity.h)
};

// The class by features alone, quadratic parts taken as convex.
ModelClass classify(unsigned features);
// The class of p, its quadratic parts checked for convexity.
ModelClass classify(const engine::Problem& p);
const char* className(ModelClass c);  // "LP", "MIP", "QP", ...

// The first of `from` that takes p.  Otherwise throws
// KLO_ERROR_NOT_SUPPORTED: "<what>: the model has <feature>, which no
// engine of this library solves" for a feature no engine takes at all, or
// "... has <feature> together with <feature>, which ..." when each is
// taken but no engine takes them together.  A nonconvex p is refused with
// KLO_ERROR_NONCONVEX naming its first nonconvex part, unless `local`;
// then only engines that declare local answers are considered.
const engine::EngineEntry& chooseEngine(
    const engine::Problem& p, const char* what, bool local = false,
    const std::vector<engine::EngineEntry>& from = engine::engines());

// Writes a log line for each of s.changedParameters that e does not
// honour.
void logUnusedParameters(const engine::EngineEntry& e, const engine::Settings& s);

}  // namespace klo
