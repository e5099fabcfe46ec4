// An engine problem with violation columns: a bound or row that may be
// violated gets a column measuring by how much, so that the violations can
// be priced in the objective.
#pragma once

#include <utility>
#include <vector>

#include "engine/problem.h"

namespace klo {

class RelaxationProblem {
 public:
  // base must be row-major (as problemFromModel builds it).
  explicit RelaxationProblem(const engine::Problem& base);

  // Lets row i be violated below its lower bound (activity raised by a
  // violation column), above its upper bound, or both, at price penalty.
  void relaxRow(int i, double penalty);
  // Lets column j leave its lower (upper false) or upper bound.
  void relaxBound(int j, bool upper, double penalty);

  // The problem: the base's columns first, then one per violation (type 2
  // adds a binary per violation that counts it, with violations of at most
  // bigM).  Objective: the sum of penalty * violation (type 0) or of
  // penalty * counter (type 2), minimised, no constant.
  engine::Problem build(int objType, double bigM) const;
  bool empty() const { return violations_.empty(); }

 private:
  struct Violation {
    int row;      // row of the base it enters, or -1 for a column bound
    int col;      // column whose bound it relaxes (row == -1)
    double sign;  // +1 raises the activity (lower bound), -1 lowers it
    double penalty;
  };
  const engine::Problem& base_;
  std::vector<Violation> violations_;
};

}  // namespace klo
