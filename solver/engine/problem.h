// The problem an engine solves: a plain copy of the model, built from the
// store before a solve (solve/problem_from_model.h).  Engines never see the
// store or the C interface; everything they need is here, in the model's
// own sense and numbering.
//
//   minimise or maximise  c'x + sum_t q_t x_i(t) x_j(t) + sum_k <C_k, X_k> + constant
//   subject to            rowLower_r <= a_r'x + quadratic terms of r + sum_k <A_rk, X_k>
//                                    <= rowUpper_r,
//                         colLower <= x <= colUpper, column types, SOS sets,
//                         indicator rows, X_k positive semidefinite.
//
// Quadratic terms (objective and rows) list each pair once with i <= j; a
// term adds val * x_i * x_j, with no factor 1/2: 3 x0^2 + 2 x0 x1 is the
// terms (0, 0, 3) and (0, 1, 2).
//
// Symmetric matrices (the objective and row coefficients of a PSD variable
// of dimension n) hold the upper triangle: position p = r * n + c with
// r <= c.  An off-diagonal entry stands for itself and its mirror, so
// <C, X> = sum_r C_rr X_rr + 2 sum_{r<c} C_rc X_rc.
#pragma once

#include <string>
#include <vector>

#include "klo_c.h"

namespace klo::engine {

struct SosSet {
  int type = 1;                 // 1: at most one member non-zero; 2: two consecutive
  std::vector<int> members;     // column indices
  std::vector<double> weights;  // order the members; one per member
};

struct QuadTerms {
  std::vector<int> row, col;  // row[t] <= col[t]
  std::vector<double> val;
  int size() const { return static_cast<int>(val.size()); }
};

// The quadratic terms of one row.
struct QuadRow {
  int row = 0;
  QuadTerms terms;
  std::string name;  // the row's name, for messages ("" when it has none)
};

struct SymMatrix {
  std::vector<int> pos;  // r * dim + c, r <= c
  std::vector<double> val;
};

struct PsdVar {
  int dim = 0;
  SymMatrix obj;
};

// <mat, X_psdVar> in row `row`.
struct PsdTerm {
  int row = 0;
  int psdVar = 0;
  SymMatrix mat;
};

// x[binVar] == binVal implies  sum val[k] x[ind[k]]  sense  rhs.
struct IndicatorRow {
  int binVar = 0;
  int binVal = 1;
  std::vector<int> ind;
  std::vector<double> val;
  char sense = '<';  // '<', '>' or '='
  double rhs = 0.0;
};

struct Problem {
  // Columns: objective coefficient, bounds, type ('C', 'B', 'I', and 'S'
  // semi-continuous or 'N' semi-integer: 0 or a value within the bounds).
  std::vector<double> obj;
  std::vector<double> colLower;
  std::vector<double> colUpper;
  std::vector<char> colType;

  // Rows: rowLower <= a_i x (+ quadratic and PSD terms) <= rowUpper.
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

  QuadTerms objQuad;
  std::vector<QuadRow> quadRows;  // at most one per row, by increasing row
  std::vector<PsdVar> psdVars;
  std::vector<PsdTerm> psdTerms;
  std::vector<SosSet> sos;
  std::vector<IndicatorRow> indicators;

  // Optional: MIP start (one value per column, KLO_UNDEFINED for unset
  // ones), empty for none.
  std::vector<double> startValues;
  // Optional warm start (KLO_BASIS_... codes).  Empty for none.  Shorter
  // than the problem when columns or rows were added since the basis was
  // taken: added columns start at a finite bound, added rows basic.
  std::vector<int> colBasis;
  std::vector<int> rowBasis;

  int numCols() const { return static_cast<int>(obj.size()); }
  int numRows() const { return static_cast<int>(rowLower.size()); }
  // True when the problem has integer, binary, semi-continuous or
  // semi-integer columns, SOS sets or indicator rows.
  bool isMip() const;
  // True when only linear terms remain (no quadratic or PSD parts).
  bool isLinear() const { return objQuad.size() == 0 && quadRows.empty() && psdVars.empty(); }
};

// Throws klo::Error (KLO_ERROR_INVALID_ARGUMENT) naming the first
// inconsistency: array sizes, indices out of range, bad types, NaN, SOS
// sets with infinite or repeated weights or repeated members.
void checkProblem(const Problem& p);

// Throws klo::Error (KLO_ERROR_NOT_SUPPORTED) for what `engine` cannot
// take, naming it: the first finite bound of magnitude `bounds` or more,
// the first coefficient (objective, matrix, quadratic, PSD, indicator) of
// magnitude `coefficients` or more, or an integer column with a finite
// bound beyond 2^53.
void checkLimits(const Problem& p, double coefficients, double bounds, const std::string& engine);

}  // namespace klo::engine
