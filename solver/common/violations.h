// How far an answer is from what it claims, in the model's own terms: the
// figures of the answer check (solve/answer_check.h), kept with the results
// and read as attributes.  Every figure is 0 for a perfect answer.
#pragma once

#include <algorithm>

namespace klo {

struct Violations {
  // Primal: each violation divided by max(1, |the bound it violates|), and
  // for a row also by its largest term |a_ij x_j| when that is larger.
  double bound = 0.0;  // column bounds
  double row = 0.0;    // row bounds (linear, quadratic and PSD terms)
  // PSD variables: the most negative eigenvalue of each, divided by
  // max(1, its largest eigenvalue in magnitude).
  double psd = 0.0;
  // Absolute: distance of an integer column from the nearest integer, and
  // the largest non-zero outside what an SOS set allows.
  double integrality = 0.0;
  double sos = 0.0;
  // Dual, for continuous models with duals: the row duals are cut to the
  // sign their row's position allows, the reduced costs recomputed from
  // them; a reduced cost of the wrong sign for its column's position,
  // divided by max(1, the largest term that makes it up); and the sum of
  // each dual times the distance to the bound it pairs with, divided by
  // max(1, |objective|): the relative duality gap of the answer, which no
  // small per-element error can hide.  With PSD variables the dual slack
  // matrices count as reduced costs (solve/psd_check.h).
  double dual = 0.0;
  double complementarity = 0.0;
  bool dualChecked = false;  // the dual figures were computed

  double primal() const { return std::max({bound, row, psd}); }
};

}  // namespace klo
