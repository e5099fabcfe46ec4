#include "solve/relaxation_problem.h"

#include <cstddef>
#include <map>

#include "klo_c.h"

namespace klo {
namespace {

using Entries = std::vector<std::pair<int, double>>;

void appendRow(engine::Problem& p, const Entries& entries, double lower, double upper) {
  for (const auto& e : entries) {
    p.index.push_back(e.first);
    p.value.push_back(e.second);
  }
  p.start.push_back(static_cast<int>(p.index.size()));
  p.rowLower.push_back(lower);
  p.rowUpper.push_back(upper);
}

int appendColumn(engine::Problem& p, double obj, double lower, double upper, char type) {
  p.obj.push_back(obj);
  p.colLower.push_back(lower);
  p.colUpper.push_back(upper);
  p.colType.push_back(type);
  return p.numCols() - 1;
}

bool finite(double v) { return v > -KLO_INFINITY && v < KLO_INFINITY; }

}  // namespace

RelaxationProblem::RelaxationProblem(const engine::Problem& base) : base_(base) {}

void RelaxationProblem::relaxRow(int i, double penalty) {
  if (finite(base_.rowLower[i])) violations_.push_back(Violation{i, -1, 1.0, penalty});
  if (finite(base_.rowUpper[i])) violations_.push_back(Violation{i, -1, -1.0, penalty});
}

void RelaxationProblem::relaxBound(int j, bool upper, double penalty) {
  if (finite(upper ? base_.colUpper[j] : base_.colLower[j]))
    violations_.push_back(Violation{-1, j, upper ? -1.0 : 1.0, penalty});
}

engine::Problem RelaxationProblem::build(int objType, double bigM) const {
  const engine::Problem& b = base_;
  engine::Problem p;
  p.columnMajor = false;
  p.obj.assign(b.numCols(), 0.0);
  p.colLower = b.colLower;
  p.colUpper = b.colUpper;
  p.colType = b.colType;
  // The base's rows keep their numbers, so their other parts carry over.
  p.quadRows = b.quadRows;
  p.psdVars = b.psdVars;
  p.psdTerms = b.psdTerms;
  p.sos = b.sos;
  p.indicators = b.indicators;
  std::vector<Entries> rowExtra(b.numRows());
  std::map<int, Entries> boundRows;  // column -> its violation columns
  std::vector<int> measured;
  for (const Violation& v : violations_) {
    const int col = appendColumn(p, objType == 0 ? v.penalty : 0.0, 0.0,
                                 objType == 2 ? bigM : KLO_INFINITY, 'C');
    measured.push_back(col);
    if (v.row >= 0) {
      rowExtra[v.row].emplace_back(col, v.sign);
      continue;
    }
    boundRows[v.col].emplace_back(col, v.sign);
    (v.sign > 0 ? p.colLower[v.col] : p.colUpper[v.col]) =
        v.sign > 0 ? -KLO_INFINITY : KLO_INFINITY;
    if (p.colType[v.col] == 'B') p.colType[v.col] = 'I';  // 'B' would keep [0, 1]
  }
  for (int i = 0; i < b.numRows(); ++i) {
    Entries e;
    for (int k = b.start[i]; k < b.start[i + 1]; ++k) e.emplace_back(b.index[k], b.value[k]);
    e.insert(e.end(), rowExtra[i].begin(), rowExtra[i].end());
    appendRow(p, e, b.rowLower[i], b.rowUpper[i]);
  }
  for (const auto& [j, extra] : boundRows) {
    Entries e{{j, 1.0}};
    e.insert(e.end(), extra.begin(), extra.end());
    const bool lower = p.colLower[j] != b.colLower[j], upper = p.colUpper[j] != b.colUpper[j];
    appendRow(p, e, lower ? b.colLower[j] : -KLO_INFINITY, upper ? b.colUpper[j] : KLO_INFINITY);
  }
  if (objType != 2) return p;
  for (std::size_t k = 0; k < violations_.size(); ++k) {
    const int counter = appendColumn(p, violations_[k].penalty, 0.0, 1.0, 'B');
    appendRow(p, {{measured[k], 1.0}, {counter, -bigM}}, -KLO_INFINITY, 0.0);
  }
  return p;
}

}  // namespace klo
