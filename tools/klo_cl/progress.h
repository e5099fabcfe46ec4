// The progress of a solve as its callbacks report it, kept as a table for
// the plot: a MIP's incumbent and bound against time, a barrier run's
// primal and dual objectives or a simplex run's objective per iteration.
#pragma once

#include <klo_c.h>

#include <array>
#include <string>
#include <vector>

namespace klo_cl {

// A table of the run.  Column 0 is the horizontal axis; `plotted` lists the
// columns drawn against it.  NaN marks a value not known at that point.
struct Progress {
  std::string title;
  std::string xLabel;
  std::string yLabel;
  bool steps = false;  // values hold until the next row (a MIP's search)
  std::vector<std::string> columns;
  std::vector<int> plotted;
  std::vector<std::vector<double>> rows;
};

// Registers a callback on the model for as long as it lives and records
// what the solve reports.
class ProgressRecorder {
 public:
  explicit ProgressRecorder(KLOmodel* model);
  ~ProgressRecorder();
  ProgressRecorder(const ProgressRecorder&) = delete;
  ProgressRecorder& operator=(const ProgressRecorder&) = delete;

  // What was seen, a MIP's table ending with the model's final figures.
  Progress result() const;

 private:
  static int onCallback(const void* model, void* cbdata, int where, const void* self);
  void recordSearch(void* cbdata, int where);
  void recordIteration(void* cbdata, int where);
  Progress mipResult() const;

  KLOmodel* model_;
  std::vector<std::array<double, 3>> search_;   // seconds, incumbent, bound
  std::vector<std::array<double, 3>> barrier_;  // iteration, primal, dual
  std::vector<std::array<double, 2>> simplex_;  // iteration, objective
};

}  // namespace klo_cl
