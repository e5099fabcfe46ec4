// A Problem with quadratic parts as the nonlinear-programming engines (Ipopt,
// and Bonmin on top of it) ask for it: values, gradient, sparse Jacobian of
// the rows and sparse Hessian of the Lagrangian, each with a structure
// fixed once.  Written once here for both adapters; it knows nothing of
// their types (plain int and double arrays, 0-based).
//
// The engines minimise, so the objective given is sense * f(x): for a
// maximisation, -f.  The Lagrangian is  objFactor * sense * f(x) +
// sum_i lambda_i g_i(x), whose Hessian is constant in x: every term
// (i <= j, v) adds v x_i x_j, whose second derivatives are 2v on the
// diagonal (i == j) and v off it; only the lower triangle (row >= column)
// is listed, as both engines want.
#pragma once

#include <vector>

#include "engine/problem.h"

namespace klo::engine {

class QuadNlp {
 public:
  explicit QuadNlp(const Problem& p);

  int numCols() const { return n_; }
  int numRows() const { return m_; }
  int jacobianSize() const { return static_cast<int>(jacRow_.size()); }
  int hessianSize() const { return static_cast<int>(hesRow_.size()); }
  bool rowIsLinear(int i) const { return !rowQuad_[static_cast<size_t>(i)]; }
  // False when column j appears in a quadratic term (objective or rows).
  bool colIsLinear(int j) const { return !colQuad_[static_cast<size_t>(j)]; }
  bool hasQuadRows() const { return !rowTerms_.empty(); }
  bool hasQuadObjective() const { return !objTerms_.empty(); }

  // Structures (one entry per Jacobian or Hessian value; the Hessian's lower
  // triangle).
  const std::vector<int>& jacobianRows() const { return jacRow_; }
  const std::vector<int>& jacobianCols() const { return jacCol_; }
  const std::vector<int>& hessianRows() const { return hesRow_; }
  const std::vector<int>& hessianCols() const { return hesCol_; }

  // sense * f(x), constant included.
  double objective(const double* x) const;
  // The gradient of sense * f at x.
  void objectiveGradient(const double* x, double* grad) const;
  // Row activities g(x): linear and quadratic parts.
  void rowValues(const double* x, double* g) const;
  // The Jacobian's values at x, in the order of its structure.
  void jacobian(const double* x, double* values) const;
  // Row i alone: its activity, and its gradient as the columns and values of
  // its Jacobian entries (positions rowJacobianStart(i) .. (i + 1) - 1, the
  // entries of a row being contiguous).
  double rowValue(int i, const double* x) const;
  int rowJacobianStart(int i) const { return jacStart_[static_cast<size_t>(i)]; }
  void rowGradient(int i, const double* x, double* values) const;
  // The Hessian of  objFactor * sense * f + sum_i lambda_i g_i  (lambda may
  // be null: no row terms).
  void hessian(double objFactor, const double* lambda, double* values) const;

  // The two-mode calls of Ipopt's interfaces: the structure into rows and
  // cols when values is null, else the values.
  void jacobianCall(const double* x, int* rows, int* cols, double* values) const;
  void hessianCall(double objFactor, const double* lambda, int* rows, int* cols,
                   double* values) const;

  // A starting point: the start value where the problem gives one (within
  // the column's bounds), else 0 moved into the bounds.
  std::vector<double> startPoint() const;

  // Duals in the convention of result.h from the engine's row multipliers
  // lambda (those of the Lagrangian above, in the minimised sense): y = -sense
  // lambda.
  std::vector<double> duals(const double* lambda) const;
  // Reduced costs in the convention of result.h: the gradient of f at x less
  // sum_i y_i grad g_i(x), in the model's sense; c = J'y + d holds exactly.
  std::vector<double> reducedCosts(const double* x, const std::vector<double>& y) const;

 private:
  struct TermPos {
    int a, b;     // Jacobian positions of d/dx_i and d/dx_j (a == b on the diagonal)
    int i, j;     // columns
    double v;     // coefficient
    int hessian;  // Hessian position
    int row;      // -1: objective
  };

  const Problem& p_;
  int n_ = 0, m_ = 0;
  // The linear matrix by rows.
  std::vector<int> rowStart_, rowCol_;
  std::vector<double> rowVal_;
  std::vector<char> rowQuad_, colQuad_;
  // Jacobian: structure, linear values, positions of the linear entries.
  std::vector<int> jacRow_, jacCol_;
  std::vector<double> jacConst_;
  // Quadratic terms of the rows and the objective with their positions.
  std::vector<TermPos> rowTerms_, objTerms_;
  // Where each row's Jacobian entries and quadratic terms begin (m + 1 each).
  std::vector<int> jacStart_, termStart_;
  std::vector<int> hesRow_, hesCol_;
};

}  // namespace klo::engine
