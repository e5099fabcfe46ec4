// What a user callback sees and may do during a solve.  Adapters fill a
// CallbackContext at each callback location; the C functions KLOcbget,
// KLOcbsolution, KLOcbcut and KLOcbbranch are thin wrappers over the
// callback... functions below, with the context as their cbdata.
#pragma once

#include <chrono>
#include <cmath>
#include <functional>

#include "klo_c.h"

namespace klo::engine {

// Implemented by the engine running the search: the requests a callback
// may make.  Each returns 0 (accepted) or a KLO_CB_... refusal.
class CallbackActions {
 public:
  virtual ~CallbackActions() = default;
  // x: one value per column, KLO_UNDEFINED for values the engine completes.
  virtual int proposeSolution(const double* x, double* objective) = 0;
  virtual int addCut(int len, const int* ind, const double* val, char sense, double rhs) = 0;
  virtual int branch(int column, double value, int dir) = 0;
};

struct CallbackContext {
  int where = 0;  // KLO_CB_...
  int numVars = 0;
  int numRows = 0;
  int numIntVars = 0;
  std::chrono::steady_clock::time_point started = std::chrono::steady_clock::now();

  // Search state, in the model's sense.  objBest is +-KLO_INFINITY (the
  // model's sense) while there is no incumbent.
  double objBest = KLO_INFINITY;
  double objBound = -KLO_INFINITY;
  long long nodeCount = 0;
  long long nodeLeft = 0;
  long long solCount = 0;
  long long iterCount = 0;
  long long cutCount = 0;
  int nodeDepth = 0;
  int nodeStatus = 0;  // KLO_STATUS_... of the node relaxation
  // KLO_CB_BARRIER: the iterate's objectives (NaN where not known).
  double barrierPrimal = std::nan("");
  double barrierDual = std::nan("");
  // KLO_CB_SIMPLEX: the current basis's objective.
  double simplexObjective = std::nan("");
  // KLO_CB_PRESOLVE: what presolve removed.
  int presolveColsRemoved = 0;
  int presolveRowsRemoved = 0;

  // Arrays in the model's column numbering, null when not available here.
  const double* solution = nullptr;        // KLO_CB_MIPSOL: the new incumbent
  const double* nodeRelaxation = nullptr;  // KLO_CB_MIPNODE
  const double* nodeLower = nullptr;       // KLO_CB_MIPNODE
  const double* nodeUpper = nullptr;       // KLO_CB_MIPNODE
  const int* isInteger = nullptr;          // MIP locations
  const char* message = nullptr;           // KLO_CB_MESSAGE: the log line

  CallbackActions* actions = nullptr;  // null where nothing may be submitted
  // Cuts are taken at KLO_CB_MIPSOL too, as lazy constraints.
  bool lazyConstraints = false;

  // Seconds since the solve started.
  double runtime() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
  }
};

// The user's function: returns KLO_CB_STOP (11) to stop the solve, 0 to go on.
using Callback = std::function<int(CallbackContext& ctx)>;

// Raises KLO_CB_PRESOLVE on ctx with what presolve removed; true when the
// callback asks to stop.
// Inline: the engines' modules call it and do not link this file.
inline bool raisePresolve(const Callback& cb, CallbackContext& ctx, int colsRemoved,
                          int rowsRemoved) {
  ctx.where = KLO_CB_PRESOLVE;
  ctx.presolveColsRemoved = colsRemoved;
  ctx.presolveRowsRemoved = rowsRemoved;
  return cb(ctx) == KLO_CB_STOP;
}

// KLOcbget: reads information code what (KLO_CBINFO_...) at location where
// (which must be the context's) into result, an int, double or array
// pointer as klo_c.h documents.  Returns 0 or a KLO_ERROR_... code.
int callbackGet(const CallbackContext& ctx, int where, int what, void* result);

// KLOcbsolution: proposes a solution; *objective (may be null) receives its
// objective when accepted.
int callbackSolution(CallbackContext& ctx, const double* x, double* objective);

// KLOcbcut: adds the cut  sum val[k] x[ind[k]]  sense  rhs  at
// KLO_CB_MIPNODE, or a lazy constraint at KLO_CB_MIPSOL when enabled.
int callbackCut(CallbackContext& ctx, int len, const int* ind, const double* val, char sense,
                double rhs);

// KLOcbbranch: asks to branch on column at value (KLO_CB_MIPNODE).
int callbackBranch(CallbackContext& ctx, int column, double value, int dir);

}  // namespace klo::engine
