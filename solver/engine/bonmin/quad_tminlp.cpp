#include "engine/bonmin/quad_tminlp.h"

#include <algorithm>
#include <cmath>

namespace klo::engine {

void integerBounds(const Problem& p, std::vector<double>& lower, std::vector<double>& upper) {
  lower = p.colLower;
  upper = p.colUpper;
  for (int j = 0; j < p.numCols(); ++j) {
    const char type = p.colType[j];
    if (type != 'B' && type != 'I') continue;
    if (type == 'B') {
      lower[j] = std::max(lower[j], 0.0);
      upper[j] = std::min(upper[j], 1.0);
    }
    // A bound a hair off an integer (1 - 1e-12) must not lose that integer.
    lower[j] = std::ceil(lower[j] - 1e-9);
    upper[j] = std::floor(upper[j] + 1e-9);
  }
}

QuadTminlp::QuadTminlp(const Problem& p, const QuadNlp& nlp) : p_(p), nlp_(nlp) {
  integerBounds(p, lower_, upper_);
}

bool QuadTminlp::get_nlp_info(Index& n, Index& m, Index& nnzJac, Index& nnzHes,
                              Ipopt::TNLP::IndexStyleEnum& style) {
  n = nlp_.numCols();
  m = nlp_.numRows();
  nnzJac = nlp_.jacobianSize();
  nnzHes = nlp_.hessianSize();
  style = Ipopt::TNLP::C_STYLE;
  return true;
}

bool QuadTminlp::get_variables_types(Index n, VariableType* types) {
  for (Index j = 0; j < n; ++j) {
    const bool integer = p_.colType[j] == 'B' || p_.colType[j] == 'I';
    const bool binary = integer && lower_[j] == 0.0 && upper_[j] == 1.0;
    types[j] = binary ? BINARY : integer ? INTEGER : CONTINUOUS;
  }
  return true;
}

bool QuadTminlp::get_variables_linearity(Index n, Ipopt::TNLP::LinearityType* types) {
  for (Index j = 0; j < n; ++j)
    types[j] = nlp_.colIsLinear(j) ? Ipopt::TNLP::LINEAR : Ipopt::TNLP::NON_LINEAR;
  return true;
}

bool QuadTminlp::get_constraints_linearity(Index m, Ipopt::TNLP::LinearityType* types) {
  for (Index i = 0; i < m; ++i)
    types[i] = nlp_.rowIsLinear(i) ? Ipopt::TNLP::LINEAR : Ipopt::TNLP::NON_LINEAR;
  return true;
}

bool QuadTminlp::get_bounds_info(Index n, Number* xl, Number* xu, Index m, Number* gl, Number* gu) {
  std::copy(lower_.begin(), lower_.begin() + n, xl);
  std::copy(upper_.begin(), upper_.begin() + n, xu);
  std::copy(p_.rowLower.begin(), p_.rowLower.begin() + m, gl);
  std::copy(p_.rowUpper.begin(), p_.rowUpper.begin() + m, gu);
  return true;
}

bool QuadTminlp::get_starting_point(Index n, bool initX, Number* x, bool initZ, Number*, Number*,
                                    Index, bool initLambda, Number*) {
  if (initZ || initLambda) return false;  // only asked for warm starts of multipliers
  if (!initX) return true;
  const std::vector<double> start = nlp_.startPoint();
  for (Index j = 0; j < n; ++j) x[j] = std::min(std::max(start[j], lower_[j]), upper_[j]);
  return true;
}

bool QuadTminlp::eval_f(Index, const Number* x, bool, Number& f) {
  f = nlp_.objective(x);
  return std::isfinite(f);
}

bool QuadTminlp::eval_grad_f(Index, const Number* x, bool, Number* grad) {
  nlp_.objectiveGradient(x, grad);
  return true;
}

bool QuadTminlp::eval_g(Index, const Number* x, bool, Index, Number* g) {
  nlp_.rowValues(x, g);
  return true;
}

bool QuadTminlp::eval_jac_g(Index, const Number* x, bool, Index, Index, Index* rows, Index* cols,
                            Number* values) {
  nlp_.jacobianCall(x, rows, cols, values);
  return true;
}

bool QuadTminlp::eval_h(Index, const Number*, bool, Number objFactor, Index, const Number* lambda,
                        bool, Index, Index* rows, Index* cols, Number* values) {
  nlp_.hessianCall(objFactor, lambda, rows, cols, values);
  return true;
}

bool QuadTminlp::eval_gi(Index, const Number* x, bool, Index i, Number& gi) {
  gi = nlp_.rowValue(i, x);
  return true;
}

// Structure (cols given, values null) or values (cols null) of row i's
// gradient, in the order of its Jacobian entries.
bool QuadTminlp::eval_grad_gi(Index, const Number* x, bool, Index i, Index& nnz, Index* cols,
                              Number* values) {
  const int first = nlp_.rowJacobianStart(i), end = nlp_.rowJacobianStart(i + 1);
  nnz = end - first;
  if (cols) std::copy(nlp_.jacobianCols().begin() + first, nlp_.jacobianCols().begin() + end, cols);
  if (values) nlp_.rowGradient(i, x, values);
  return true;
}

}  // namespace klo::engine
