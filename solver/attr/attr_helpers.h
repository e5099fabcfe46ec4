// Small pieces shared by the attribute definitions.
#ifndef KLO_SOLVER_ATTR_ATTR_HELPERS_H
#define KLO_SOLVER_ATTR_ATTR_HELPERS_H

#include <string>

#include "attr/attributes.h"

namespace klo {

using NumGet = double (*)(const KLOmodel&, int);
using NumCheck = void (*)(const KLOmodel&, int, double);
using NumSet = void (*)(KLOmodel&, int, double);
using StrGet = const std::string& (*)(const KLOmodel&, int);
using StrSet = void (*)(KLOmodel&, int, const std::string&);

inline AttrDef numAttr(const char* name, AttrType type, Level level, NumGet get,
                       NumCheck check = nullptr, NumSet set = nullptr, bool keepsResults = false) {
  AttrDef d{name, type, level};
  d.get = get;
  d.check = check;
  d.set = set;
  d.keepsResults = keepsResults;
  return d;
}

inline AttrDef strAttr(const char* name, Level level, StrGet get, StrSet set) {
  AttrDef d{name, AttrType::String, level};
  d.getStr = get;
  d.setStr = set;
  d.keepsResults = true;  // names do not change the problem
  return d;
}

// Checks shared by setters.
void checkFinite(const KLOmodel&, int, double v);
void checkNotNaN(const KLOmodel&, int, double v);
void checkNonNegative(const KLOmodel&, int, double v);
void checkBasisStatus(const KLOmodel&, int, double v);
void checkNothing(const KLOmodel&, int, double);

// The objective that "ObjNumber" designates (KLO_ERROR_INVALID_OBJECTIVE
// when there is no such objective).
int objNumber(const KLOmodel& m);
// Element k of a result array, or KLO_ERROR_DATA_NOT_AVAILABLE when the
// last solve did not provide that array.
double resultAt(const std::vector<double>& v, int k, const char* what);
// The pool solution that "MIP/SolutionNumber" designates.
const engine::PoolSolution& poolSolution(const KLOmodel& m);

}  // namespace klo

#endif
