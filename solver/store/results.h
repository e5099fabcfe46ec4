// What the last solve or analysis left in a model, read through the result
// attributes.  The solve pipeline fills it; every change to the model
// discards it.
#pragma once

#include <vector>

#include "common/violations.h"
#include "klo_c.h"
#include "store/model_data.h"

namespace klo {

// A solution of the pool.
struct PoolEntry {
  double objective = 0.0;
  std::vector<double> x;
};

struct Results {
  bool solved = false;  // a solve ran since the last change
  int status = KLO_STATUS_UNSTARTED;
  bool hasSolution = false;
  double objective = 0.0;      // of x, constant included
  double dualObjective = 0.0;  // LP: dual objective; MIP: best bound
  double gapAbs = 0.0;
  double gapRel = 0.0;

  // Per variable and per row, in the model's numbering; empty when the
  // solve gave none.  Signs as klo_c.h documents.
  std::vector<double> x, reducedCosts;
  std::vector<double> duals, activities;
  std::vector<int> colBasis, rowBasis;  // KLO_BASIS_...
  std::vector<double> primalRay, dualRay;
  std::vector<PoolEntry> pool;  // best first; the first is x
  std::vector<SymMatrix> psdX;  // one per PSD variable, upper triangle

  long long simplexIterations = 0;
  long long barrierIterations = 0;
  long long nodeCount = 0;
  double presolveTime = 0.0;  // seconds
  double solverTime = 0.0;    // seconds in the engines
  double solutionTime = 0.0;  // seconds of the whole KLOoptimize

  Violations violations;  // the answer check's figures

  // IIS membership (KLO_IIS_...), empty when no IIS was computed.
  std::vector<int> iisCol, iisRow;
  int iisMinimal = -1;  // 1 proven irreducible, 0 not proven, -1 none computed
};

}  // namespace klo
