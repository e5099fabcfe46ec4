// A Problem as Bonmin's TMINLP: column types and the bounds Bonmin may
// take, with every evaluation from QuadNlp.
#pragma once

#include <BonTMINLP.hpp>

#include <vector>

#include "engine/nlp/quad_nlp.h"
#include "engine/problem.h"

namespace klo::engine {

// The column bounds handed to Bonmin: binary columns clipped to [0, 1] and
// integer bounds rounded inward, so that the bounds of a column that can
// only be 0 or 1 are exactly 0 and 1.  Bounds may cross (an infeasible
// column).
void integerBounds(const Problem& p, std::vector<double>& lower, std::vector<double>& upper);

class QuadTminlp : public Bonmin::TMINLP {
 public:
  using Index = Ipopt::Index;
  using Number = Ipopt::Number;

  QuadTminlp(const Problem& p, const QuadNlp& nlp);

  bool get_nlp_info(Index& n, Index& m, Index& nnzJac, Index& nnzHes,
                    Ipopt::TNLP::IndexStyleEnum& style) override;
  bool get_variables_types(Index n, VariableType* types) override;
  bool get_variables_linearity(Index n, Ipopt::TNLP::LinearityType* types) override;
  bool get_constraints_linearity(Index m, Ipopt::TNLP::LinearityType* types) override;
  bool get_bounds_info(Index n, Number* xl, Number* xu, Index m, Number* gl, Number* gu) override;
  bool get_starting_point(Index n, bool initX, Number* x, bool initZ, Number* zl, Number* zu,
                          Index m, bool initLambda, Number* lambda) override;
  bool eval_f(Index n, const Number* x, bool newX, Number& f) override;
  bool eval_grad_f(Index n, const Number* x, bool newX, Number* grad) override;
  bool eval_g(Index n, const Number* x, bool newX, Index m, Number* g) override;
  bool eval_jac_g(Index n, const Number* x, bool newX, Index m, Index nnz, Index* rows, Index* cols,
                  Number* values) override;
  bool eval_h(Index n, const Number* x, bool newX, Number objFactor, Index m, const Number* lambda,
              bool newLambda, Index nnz, Index* rows, Index* cols, Number* values) override;
  bool eval_gi(Index n, const Number* x, bool newX, Index i, Number& gi) override;
  bool eval_grad_gi(Index n, const Number* x, bool newX, Index i, Index& nnz, Index* cols,
                    Number* values) override;
  // The answer is read from Bonmin's search (Bab) instead.
  void finalize_solution(Bonmin::TMINLP::SolverReturn, Index, const Number*, Number) override {}
  const BranchingInfo* branchingInfo() const override { return nullptr; }
  const SosInfo* sosConstraints() const override { return nullptr; }
  bool hasLinearObjective() override { return !nlp_.hasQuadObjective(); }

 private:
  const Problem& p_;
  const QuadNlp& nlp_;
  std::vector<double> lower_, upper_;
};

}  // namespace klo::engine
