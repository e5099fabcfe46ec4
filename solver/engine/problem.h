// The problem an engine solves: a plain copy of the model, built from the
// store before a solve.  Engines never see the store or the C interface;
// everything they need is here, in the model's own sense and numbering.
#ifndef KLO_SOLVER_ENGINE_PROBLEM_H
#define KLO_SOLVER_ENGINE_PROBLEM_H

#include <vector>

namespace klo::engine {

// Bounds at or beyond this magnitude are infinite.
constexpr double kInfinity = 1e20;
// A start value (or result) that was not set.
constexpr double kUndefined = 1e101;

struct SosSet {
  int type = 1;                 // 1: at most one member non-zero; 2: two consecutive
  std::vector<int> members;     // column indices
  std::vector<double> weights;  // order the members; one per member
};

struct Problem {
  // Columns: objective coefficient, bounds, type ('C', 'B', 'I').
  std::vector<double> obj;
  std::vector<double> colLower;
  std::vector<double> colUpper;
  std::vector<char> colType;

  // Rows: rowLower <= a_i x <= rowUpper.
  std::vector<double> rowLower;
  std::vector<double> rowUpper;

  // The linear matrix in compressed form: major k (a column when
  // columnMajor, else a row) owns entries start[k] .. start[k+1]-1 of
  // index/value.  start has one entry per major plus one.
  bool columnMajor = true;
  std::vector<int> start{0};
  std::vector<int> index;
  std::vector<double> value;

  int sense = 1;  // 1 minimise, -1 maximise
  double objConstant = 0.0;

  std::vector<SosSet> sos;

  // Optional: MIP start (one value per column, kUndefined for unset ones),
  // empty for none.
  std::vector<double> startValues;
  // Optional warm start (KLO_BASIS_... codes).  Empty for none.  Shorter
  // than the problem when columns or rows were added since the basis was
  // taken: added columns start at a finite bound, added rows basic.
  std::vector<int> colBasis;
  std::vector<int> rowBasis;

  int numCols() const { return static_cast<int>(obj.size()); }
  int numRows() const { return static_cast<int>(rowLower.size()); }
  // True when the problem has integer or binary columns or SOS sets.
  bool isMip() const;
};

// Throws klo::Error (KLO_ERROR_INVALID_ARGUMENT) naming the first
// inconsistency: array sizes, indices out of range, bad types, NaN.
void checkProblem(const Problem& p);

}  // namespace klo::engine

#endif
