// What a model asks of an engine, and what each engine declares it can
// take.  The chooser (solve/chooser.h) matches the two; adapters never
// choose.
#pragma once

#include <vector>

#include "engine/problem.h"

namespace klo::engine {

// The parts of a problem beyond linear rows over continuous columns, one
// bit each.
enum Feature : unsigned {
  kIntegers = 1u << 0,        // integer or binary columns
  kSos = 1u << 1,             // SOS sets
  kSemicontinuous = 1u << 2,  // semi-continuous or semi-integer columns
  kQuadObjective = 1u << 3,
  kQuadRows = 1u << 4,
  kPsd = 1u << 5,  // PSD variables (and their terms)
  kIndicators = 1u << 6,
};
constexpr unsigned kFeatureCount = 7;

// The features p has.
unsigned featuresOf(const Problem& p);
// How messages name a single feature ("quadratic objective terms").
const char* featureName(Feature f);

struct Capabilities {
  unsigned features = 0;  // the Feature bits it takes
  // Results it gives besides the solution and its objective.
  bool duals = false;  // row duals and reduced costs
  bool rays = false;   // Farkas certificates and unbounded directions
  bool basis = false;  // basis statuses, and warm starts from one
  bool pool = false;   // several solutions, best first
  // Takes nonconvex models, giving locally optimal answers (the chooser
  // hands it one only when "NonConvex" asks for that).
  bool local = false;
  // The parameters (klo_c.h names) it honours.
  std::vector<const char*> parameters;
  // Coefficients, and finite bounds, of these magnitudes or more are
  // refused before it sees them.
  double coefficientLimit = KLO_INFINITY;
  double boundLimit = KLO_INFINITY;

  bool takes(unsigned wanted) const { return (wanted & ~features) == 0; }
};

}  // namespace klo::engine
