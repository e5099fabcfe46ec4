// Small pieces shared by the attribute definitions.
#pragma once

#include <string>

#include "attr/attributes.h"
#include "common/error.h"
#include "klo_c.h"

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
const PoolEntry& poolSolution(const KLOmodel& m);

// An IIS membership attribute: the statuses of member Iis of the results.
template <std::vector<int> Results::*Iis>
AttrDef iisAttr(const char* name, Level level) {
  return numAttr(name, AttrType::Int, level, [](const KLOmodel& m, int e) {
    const std::vector<int>& v = m.results.*Iis;
    if (v.empty())
      fail(KLO_ERROR_DATA_NOT_AVAILABLE, "No irreducible infeasible subsystem has been computed");
    return double(v[e]);
  });
}

// A basis status attribute: the statuses the user set (member User of the
// data) or else those of the last solve (member Solved of its result); a
// first set starts from those, or from Fallback for each of the Count()
// elements.
template <std::vector<int> ModelData::*User, std::vector<int> Results::*Solved,
          int (ModelData::*Count)() const, int Fallback>
AttrDef basisAttr(const char* name, Level level) {
  struct Access {
    static const std::vector<int>* known(const KLOmodel& m) {
      if (!(m.data.*User).empty()) return &(m.data.*User);
      if (m.results.solved && !(m.results.*Solved).empty()) return &(m.results.*Solved);
      return nullptr;
    }
    static double get(const KLOmodel& m, int e) {
      const std::vector<int>* b = known(m);
      if (!b) fail(KLO_ERROR_DATA_NOT_AVAILABLE, "No basis is known");
      return double((*b)[e]);
    }
    static void set(KLOmodel& m, int e, double v) {
      std::vector<int>& user = m.data.*User;
      if (user.empty()) {
        const std::vector<int>* b = known(m);
        user = b ? *b : std::vector<int>((m.data.*Count)(), Fallback);
      }
      user[e] = static_cast<int>(v);
    }
  };
  return numAttr(name, AttrType::Int, level, Access::get, checkBasisStatus, Access::set, true);
}

}  // namespace klo
