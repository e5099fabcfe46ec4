#include "engine/callback_context.h"

#include <climits>
#include <cmath>

#include "klo_c.h"

namespace klo::engine {

namespace {

bool isMipWhere(int where) {
  return where == KLO_CB_MIP || where == KLO_CB_MIPSOL || where == KLO_CB_MIPNODE;
}

int toInt(long long v) { return v > INT_MAX ? INT_MAX : static_cast<int>(v); }

int putInt(void* result, long long v) {
  *static_cast<int*>(result) = toInt(v);
  return KLO_OK;
}

int putDouble(void* result, double v) {
  *static_cast<double*>(result) = v;
  return KLO_OK;
}

template <class T>
int putArray(void* result, const T* array) {
  if (!array) return KLO_ERROR_CALLBACK_WHERE;
  *static_cast<const T**>(result) = array;
  return KLO_OK;
}

// Information available wherever the search runs.
int getSearchInfo(const CallbackContext& c, int what, void* result) {
  switch (what) {
    case KLO_CBINFO_OBJBEST: return putDouble(result, c.objBest);
    case KLO_CBINFO_OBJBOUND: return putDouble(result, c.objBound);
    case KLO_CBINFO_NODECOUNT: return putInt(result, c.nodeCount);
    case KLO_CBINFO_NODELEFT: return putInt(result, c.nodeLeft);
    case KLO_CBINFO_SOLCOUNT: return putInt(result, c.solCount);
    case KLO_CBINFO_CUTCOUNT: return putInt(result, c.cutCount);
    case KLO_CBINFO_ISINTEGER: return putArray(result, c.isInteger);
    default: return KLO_ERROR_CALLBACK_INFO;
  }
}

int getNodeInfo(const CallbackContext& c, int what, void* result) {
  switch (what) {
    case KLO_CBINFO_NODEREL_IDX:
    case KLO_CBINFO_NODEREL: return putArray(result, c.nodeRelaxation);
    case KLO_CBINFO_NODEDEPTH: return putInt(result, c.nodeDepth);
    case KLO_CBINFO_NODESTATUS: return putInt(result, c.nodeStatus);
    case KLO_CBINFO_NODELB: return putArray(result, c.nodeLower);
    case KLO_CBINFO_NODEUB: return putArray(result, c.nodeUpper);
    default: return KLO_ERROR_CALLBACK_INFO;
  }
}

bool isNodeCode(int what) {
  return what == KLO_CBINFO_NODEREL_IDX || what == KLO_CBINFO_NODEREL ||
         what == KLO_CBINFO_NODEDEPTH || what == KLO_CBINFO_NODESTATUS ||
         what == KLO_CBINFO_NODELB || what == KLO_CBINFO_NODEUB;
}

bool isSearchCode(int what) {
  return what == KLO_CBINFO_OBJBEST || what == KLO_CBINFO_OBJBOUND ||
         what == KLO_CBINFO_NODECOUNT || what == KLO_CBINFO_NODELEFT ||
         what == KLO_CBINFO_SOLCOUNT || what == KLO_CBINFO_CUTCOUNT || what == KLO_CBINFO_ISINTEGER;
}

}  // namespace

int callbackGet(const CallbackContext& c, int where, int what, void* result) {
  if (!result) return KLO_ERROR_NULL_ARGUMENT;
  switch (what) {
    case KLO_CBINFO_NUMVARS: return putInt(result, c.numVars);
    case KLO_CBINFO_NUMCONSTRS: return putInt(result, c.numRows);
    case KLO_CBINFO_NUMINTVARS: return putInt(result, c.numIntVars);
    case KLO_CBINFO_RUNTIME: return putDouble(result, c.runtime());
    case KLO_CBINFO_ITERCOUNT: return putInt(result, c.iterCount);
    default: break;
  }
  if (what == KLO_CBINFO_BARRIER_PRIMOBJ || what == KLO_CBINFO_BARRIER_DUALOBJ) {
    const double v = what == KLO_CBINFO_BARRIER_PRIMOBJ ? c.barrierPrimal : c.barrierDual;
    if (where != c.where || c.where != KLO_CB_BARRIER || std::isnan(v))
      return KLO_ERROR_CALLBACK_WHERE;
    return putDouble(result, v);
  }
  if (what == KLO_CBINFO_SPX_OBJVAL) {
    if (where != c.where || c.where != KLO_CB_SIMPLEX || std::isnan(c.simplexObjective))
      return KLO_ERROR_CALLBACK_WHERE;
    return putDouble(result, c.simplexObjective);
  }
  if (what == KLO_CBINFO_PRE_COLDEL || what == KLO_CBINFO_PRE_ROWDEL) {
    if (where != c.where || c.where != KLO_CB_PRESOLVE) return KLO_ERROR_CALLBACK_WHERE;
    return putInt(result,
                  what == KLO_CBINFO_PRE_COLDEL ? c.presolveColsRemoved : c.presolveRowsRemoved);
  }
  if (what == KLO_CBINFO_MSG_STRING)
    return where == c.where && c.message ? putArray(result, c.message) : KLO_ERROR_CALLBACK_WHERE;
  const bool solutionCode = what == KLO_CBINFO_SOLUTION_IDX || what == KLO_CBINFO_SOLUTION;
  if (!solutionCode && !isNodeCode(what) && !isSearchCode(what)) return KLO_ERROR_CALLBACK_INFO;
  if (where != c.where) return KLO_ERROR_CALLBACK_WHERE;
  if (solutionCode)
    return c.where == KLO_CB_MIPSOL ? putArray(result, c.solution) : KLO_ERROR_CALLBACK_WHERE;
  if (isNodeCode(what))
    return c.where == KLO_CB_MIPNODE ? getNodeInfo(c, what, result) : KLO_ERROR_CALLBACK_WHERE;
  return isMipWhere(c.where) ? getSearchInfo(c, what, result) : KLO_ERROR_CALLBACK_WHERE;
}

int callbackSolution(CallbackContext& c, const double* x, double* objective) {
  if (!x) return KLO_ERROR_NULL_ARGUMENT;
  if (!c.actions || !isMipWhere(c.where)) return KLO_ERROR_CALLBACK_WHERE;
  for (int j = 0; j < c.numVars; ++j)
    if (std::isnan(x[j])) return KLO_ERROR_INVALID_ARGUMENT;
  double obj = 0.0;
  int rc = c.actions->proposeSolution(x, &obj);
  if (rc == KLO_OK && objective) *objective = obj;
  return rc;
}

int callbackCut(CallbackContext& c, int len, const int* ind, const double* val, char sense,
                double rhs) {
  if (len < 0 || std::isnan(rhs)) return KLO_ERROR_INVALID_ARGUMENT;
  if (len > 0 && (!ind || !val)) return KLO_ERROR_NULL_ARGUMENT;
  if (!c.actions || (c.where != KLO_CB_MIPNODE && c.where != KLO_CB_MIPSOL))
    return KLO_ERROR_CALLBACK_WHERE;
  // An incumbent can only be cut off as a lazy constraint: without them
  // the cut is refused and the search goes on.
  if (c.where == KLO_CB_MIPSOL && !c.lazyConstraints) return KLO_CB_IGNORED;
  for (int k = 0; k < len; ++k) {
    if (ind[k] < 0 || ind[k] >= c.numVars) return KLO_ERROR_INVALID_VAR;
    if (!std::isfinite(val[k])) return KLO_ERROR_INVALID_ARGUMENT;
  }
  return c.actions->addCut(len, ind, val, sense, rhs);
}

int callbackBranch(CallbackContext& c, int column, double value, int dir) {
  if (std::isnan(value)) return KLO_ERROR_INVALID_ARGUMENT;
  if (!c.actions || c.where != KLO_CB_MIPNODE) return KLO_ERROR_CALLBACK_WHERE;
  if (column < 0 || column >= c.numVars) return KLO_ERROR_INVALID_VAR;
  return c.actions->branch(column, value, dir);
}

}  // namespace klo::engine
