#include "engine/problem.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"

namespace klo::engine {

bool Problem::isMip() const {
  if (!sos.empty() || !indicators.empty()) return true;
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

void checkQuad(const QuadTerms& q, int numCols) {
  require(q.row.size() == q.val.size() && q.col.size() == q.val.size(),
          "quadratic term arrays differ in size");
  for (int t = 0; t < q.size(); ++t)
    require(q.row[t] >= 0 && q.row[t] <= q.col[t] && q.col[t] < numCols,
            "quadratic term indices out of range or below the diagonal");
  checkValues(q.val, "quadratic term");
}

void checkSym(const SymMatrix& m, int dim) {
  require(m.pos.size() == m.val.size(), "matrix arrays differ in size");
  for (int pos : m.pos)
    require(pos >= 0 && pos < dim * dim && pos / dim <= pos % dim,
            "matrix position out of range or below the diagonal");
  checkValues(m.val, "matrix value");
}

void checkNonlinear(const Problem& p) {
  checkQuad(p.objQuad, p.numCols());
  int previous = -1;
  for (const QuadRow& q : p.quadRows) {
    require(q.row > previous && q.row < p.numRows(), "quadratic rows out of order or range");
    previous = q.row;
    checkQuad(q.terms, p.numCols());
  }
  for (const PsdVar& v : p.psdVars) {
    require(v.dim > 0 && v.dim <= 46340, "PSD dimension out of range");  // dim * dim fits an int
    checkSym(v.obj, v.dim);
  }
  for (const PsdTerm& t : p.psdTerms) {
    require(t.row >= 0 && t.row < p.numRows(), "PSD term row out of range");
    require(t.psdVar >= 0 && t.psdVar < static_cast<int>(p.psdVars.size()),
            "PSD term variable out of range");
    checkSym(t.mat, p.psdVars[t.psdVar].dim);
  }
}

void checkIndicators(const Problem& p) {
  for (const IndicatorRow& r : p.indicators) {
    require(r.binVar >= 0 && r.binVar < p.numCols(), "indicator variable out of range");
    require(r.binVal == 0 || r.binVal == 1, "indicator value must be 0 or 1");
    require(r.sense == '<' || r.sense == '>' || r.sense == '=', "indicator sense not <, > or =");
    require(r.ind.size() == r.val.size(), "indicator arrays differ in size");
    for (int j : r.ind) require(j >= 0 && j < p.numCols(), "indicator term out of range");
    checkValues(r.val, "indicator coefficient");
    require(!std::isnan(r.rhs), "indicator right-hand side is NaN");
  }
}

void checkSos(const Problem& p) {
  for (const SosSet& s : p.sos) {
    require(s.type == 1 || s.type == 2, "SOS type must be 1 or 2");
    require(s.members.size() == s.weights.size(), "SOS needs one weight per member");
    for (int j : s.members) require(j >= 0 && j < p.numCols(), "SOS member out of range");
    checkValues(s.weights, "SOS weight");
    for (double w : s.weights) require(std::fabs(w) < KLO_INFINITY, "SOS weight is infinite");
    std::vector<int> members = s.members;
    std::vector<double> weights = s.weights;
    std::sort(members.begin(), members.end());
    std::sort(weights.begin(), weights.end());
    require(std::adjacent_find(members.begin(), members.end()) == members.end(),
            "SOS member repeated");
    require(std::adjacent_find(weights.begin(), weights.end()) == weights.end(),
            "SOS weight repeated");
  }
}

// The first coefficient of magnitude limit or more: what it is ("" when
// there is none) and its value.
std::string tooLarge(const Problem& p, double limit, double& value) {
  auto big = [&](double v) { return std::fabs(v) >= limit ? (value = v, true) : false; };
  for (int j = 0; j < p.numCols(); ++j)
    if (big(p.obj[j])) return "the objective coefficient of column " + std::to_string(j);
  for (size_t e = 0; e < p.value.size(); ++e) {
    if (!big(p.value[e])) continue;
    const int major =
        static_cast<int>(std::upper_bound(p.start.begin(), p.start.end(), static_cast<int>(e)) -
                         p.start.begin() - 1);
    const int row = p.columnMajor ? p.index[e] : major, col = p.columnMajor ? major : p.index[e];
    return "the matrix entry of row " + std::to_string(row) + ", column " + std::to_string(col);
  }
  for (int t = 0; t < p.objQuad.size(); ++t)
    if (big(p.objQuad.val[t])) return "a quadratic objective term";
  for (const QuadRow& q : p.quadRows)
    for (double v : q.terms.val)
      if (big(v)) return "a quadratic term of row " + std::to_string(q.row);
  for (const PsdTerm& t : p.psdTerms)
    for (double v : t.mat.val)
      if (big(v)) return "a PSD coefficient of row " + std::to_string(t.row);
  for (const PsdVar& v : p.psdVars)
    for (double c : v.obj.val)
      if (big(c)) return "a PSD objective coefficient";
  for (size_t k = 0; k < p.indicators.size(); ++k)
    for (double v : p.indicators[k].val)
      if (big(v)) return "a coefficient of indicator " + std::to_string(k);
  return "";
}

// The first finite bound of magnitude limit or more, named; "" when none.
std::string boundTooLarge(const Problem& p, double limit, double& value) {
  auto big = [&](double b) {
    return std::fabs(b) >= limit && std::fabs(b) < KLO_INFINITY ? (value = b, true) : false;
  };
  for (int j = 0; j < p.numCols(); ++j)
    if (big(p.colLower[j]) || big(p.colUpper[j])) return "a bound of column " + std::to_string(j);
  for (int i = 0; i < p.numRows(); ++i)
    if (big(p.rowLower[i]) || big(p.rowUpper[i])) return "a bound of row " + std::to_string(i);
  return "";
}

}  // namespace

void checkLimits(const Problem& p, double coefficients, double bounds, const std::string& engine) {
  double value = 0.0;
  std::string what = boundTooLarge(p, bounds, value);
  double limit = bounds;
  if (what.empty()) {
    what = tooLarge(p, coefficients, value);
    limit = coefficients;
  }
  if (!what.empty())
    fail(KLO_ERROR_NOT_SUPPORTED, what + " is " + formatDouble(value) + ", beyond what " + engine +
                                      " takes (magnitudes below " + formatDouble(limit) + ")");
  // Beyond 2^53 every double is an integer: a search cannot branch there.
  constexpr double kExactIntegers = 9007199254740992.0;
  for (int j = 0; j < p.numCols(); ++j) {
    if (p.colType[j] == KLO_CONTINUOUS || p.colType[j] == KLO_SEMICONT) continue;
    for (double b : {p.colLower[j], p.colUpper[j]})
      if (std::fabs(b) < KLO_INFINITY && std::fabs(b) >= kExactIntegers)
        fail(KLO_ERROR_NOT_SUPPORTED, "integer column " + std::to_string(j) + " has the bound " +
                                          formatDouble(b) +
                                          ", beyond 2^53 where not every integer is a double");
  }
}

void checkProblem(const Problem& p) {
  const size_t n = p.obj.size();
  require(p.colLower.size() == n && p.colUpper.size() == n && p.colType.size() == n,
          "column arrays differ in size");
  require(p.rowUpper.size() == p.rowLower.size(), "row arrays differ in size");
  require(p.sense == 1 || p.sense == -1, "sense must be 1 or -1");
  for (char t : p.colType)
    require(t == 'C' || t == 'B' || t == 'I' || t == 'S' || t == 'N',
            "column type not C, B, I, S or N");
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
  checkNonlinear(p);
  checkSos(p);
  checkIndicators(p);
}

}  // namespace klo::engine
