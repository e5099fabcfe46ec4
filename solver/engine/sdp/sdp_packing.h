// A problem with PSD variables in the block form of semidefinite engines:
//
//   maximise <C, Y>  subject to  <A_m, Y> = b_m (m = 0..M-1),  Y PSD,
//
// Y block-diagonal: one matrix block per PSD variable, in order, then one
// diagonal block (if any) of nonnegative scalars.  The scalars are:
//  - a column with a finite lower bound l:  x = l + s  (s >= 0); with a
//    finite upper bound u too, a second scalar t and the row s + t = u - l;
//  - a column with only an upper bound u:   x = u - s;
//  - a free column:                         x = s+ - s-;
//  - a fixed column (l = u) is the constant l and has no scalar;
//  - each row with bounds has a slack:  a x - t = l  (>=),  a x + t = u
//    (<=), and a ranged row  a x - t = l  with  t + t' = u - l;  an
//    equality row has none; a row with no finite bound is left out.
// The objective: <C, Y> = -sense * (model objective - offset).
#pragma once

#include <vector>

#include "engine/problem.h"

namespace klo::engine {

// One entry of a symmetric block, 0-based, i <= j; off the diagonal it
// stands for itself and its mirror.
struct SdpEntry {
  int block = 0;
  int i = 0;
  int j = 0;
  double val = 0.0;
};

struct SdpForm {
  std::vector<int> blockSizes;  // matrix blocks, then the diagonal block
  int diagonalBlock = -1;       // its index, or -1 when there are no scalars
  std::vector<SdpEntry> objective;
  std::vector<std::vector<SdpEntry>> constraints;  // sorted by block, j, i
  std::vector<double> rhs;

  // Back to the model.
  int sense = 1;
  double offset = 0.0;  // model objective = -sense * <C, Y> + offset
  struct Column {
    double base = 0.0;  // x = base + Y_diag[plus] - Y_diag[minus]
    int plus = -1, minus = -1;
  };
  std::vector<Column> columns;
  std::vector<int> rowConstraint;  // the constraint of each row, -1 if none
  // A row whose terms all vanished but whose bounds exclude 0: the problem
  // is infeasible as it stands (-1 when there is none).
  int emptyInfeasibleRow = -1;

  double modelObjective(double sdpValue) const { return -sense * sdpValue + offset; }
};

SdpForm packSdp(const Problem& p);

// The model's x from the diagonal block's values (one per scalar).
std::vector<double> unpackColumns(const SdpForm& f, const std::vector<double>& diagonal);
// The model's row duals (its sign convention, see result.h) from the
// engine's y, one per constraint, in the maximisation form above.
std::vector<double> unpackDuals(const SdpForm& f, const std::vector<double>& y);

}  // namespace klo::engine
