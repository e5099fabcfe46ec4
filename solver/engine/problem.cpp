#include "engine/problem.h"

#include <cmath>
#include <string>

#include "common/error.h"
#include "klo_c.h"

namespace klo::engine {

bool Problem::isMip() const {
  if (!sos.empty()) return true;
  for (char t : colType)
    if (t != 'C') return true;
  return false;
}

namespace {

// Messages are built only on failure: these checks run over every entry.
[[noreturn]] void reject(const std::string& what) {
  fail(KLO_ERROR_INVALID_ARGUMENT, "engine problem: " + what);
}

void require(bool ok, const char* what) {
  if (!ok) reject(what);
}

void checkValues(const std::vector<double>& v, const char* name) {
  for (size_t k = 0; k < v.size(); ++k)
    if (std::isnan(v[k])) reject(std::string(name) + "[" + std::to_string(k) + "] is NaN");
}

void checkMatrix(const Problem& p) {
  const size_t majors = p.columnMajor ? p.obj.size() : p.rowLower.size();
  const int minors = p.columnMajor ? p.numRows() : p.numCols();
  require(p.start.size() == majors + 1, "matrix start needs one entry per major plus one");
  require(p.start.front() == 0 && p.start.back() == static_cast<int>(p.index.size()) &&
              p.index.size() == p.value.size(),
          "matrix start does not match the entries");
  for (size_t k = 0; k + 1 < p.start.size(); ++k)
    if (p.start[k] > p.start[k + 1]) reject("matrix start decreases at " + std::to_string(k));
  for (int i : p.index) require(i >= 0 && i < minors, "matrix index out of range");
  checkValues(p.value, "matrix value");
}

void checkSos(const Problem& p) {
  for (const SosSet& s : p.sos) {
    require(s.type == 1 || s.type == 2, "SOS type must be 1 or 2");
    require(s.members.size() == s.weights.size(), "SOS needs one weight per member");
    for (int j : s.members) require(j >= 0 && j < p.numCols(), "SOS member out of range");
    checkValues(s.weights, "SOS weight");
  }
}

}  // namespace

void checkProblem(const Problem& p) {
  const size_t n = p.obj.size();
  require(p.colLower.size() == n && p.colUpper.size() == n && p.colType.size() == n,
          "column arrays differ in size");
  require(p.rowUpper.size() == p.rowLower.size(), "row arrays differ in size");
  require(p.sense == 1 || p.sense == -1, "sense must be 1 or -1");
  for (char t : p.colType) require(t == 'C' || t == 'B' || t == 'I', "column type not C, B or I");
  require(p.startValues.empty() || p.startValues.size() == n, "start values need one per column");
  require(p.colBasis.size() <= n && p.rowBasis.size() <= p.rowLower.size(),
          "basis longer than the problem");
  for (const std::vector<int>* basis : {&p.colBasis, &p.rowBasis})
    for (int code : *basis)
      if (code < KLO_BASIS_LOWER || code > KLO_BASIS_FIXED)
        reject("basis code " + std::to_string(code) + " is not a KLO_BASIS_... value");
  require(!std::isnan(p.objConstant), "objective constant is NaN");
  checkValues(p.obj, "obj");
  checkValues(p.colLower, "colLower");
  checkValues(p.colUpper, "colUpper");
  checkValues(p.rowLower, "rowLower");
  checkValues(p.rowUpper, "rowUpper");
  checkValues(p.startValues, "startValues");
  checkMatrix(p);
  checkSos(p);
}

}  // namespace klo::engine
