#include "io/mps_parts.h"

#include <cmath>
#include <utility>

#include "common/error.h"
#include "io/mps_lines.h"
#include "store/checks.h"
#include "store/edit.h"
#include "store/sparse.h"

namespace klo {
namespace {

char columnType(const MpsColumn& c) {
  if (c.semi) return c.integer ? 'N' : 'S';
  if (!c.integer) return 'C';
  return c.lb == 0 && c.ub == 1 ? 'B' : 'I';
}

// RANGES: |R| below an L row's and above a G row's right-hand side; for
// an E row the sign of R says which side.
void rowBounds(const MpsRow& r, double& lower, double& upper) {
  lower = r.type == 'L' ? -KLO_INFINITY : r.rhs;
  upper = r.type == 'G' ? KLO_INFINITY : r.rhs;
  if (r.hasRange) {
    double width = std::fabs(r.range);
    if (r.type == 'L' || (r.type == 'E' && r.range < 0))
      lower = r.rhs - width;
    else
      upper = r.rhs + width;
  }
  lower = normBound(lower);
  upper = normBound(upper);
}

}  // namespace

bool MpsParts::addRow(std::string_view rowName, char type) {
  int index = type != 'N' ? static_cast<int>(rows.size()) : hasObjective ? kFreeRow : kObjective;
  if (rowIndex_.insert(rowName, index) != NameIndex::kMissing) return false;
  if (type == 'N') {
    hasObjective = true;
    return true;
  }
  rows.push_back(MpsRow{type});
  rowNames.push_back(rowName);
  return true;
}

int MpsParts::row(std::string_view rowName) const {
  int r = rowIndex_.find(rowName);
  return r == NameIndex::kMissing ? kUnknown : r;
}

bool MpsParts::addColumn(std::string_view columnName, bool marked) {
  int index = static_cast<int>(columns.size());
  if (columnIndex_.insert(columnName, index) != NameIndex::kMissing) return false;
  columns.emplace_back();
  columns.back().marked = columns.back().integer = marked;
  columnNames.push_back(columnName);
  objectiveEntry_ = false;
  return true;
}

int MpsParts::column(std::string_view columnName) const {
  int j = columnIndex_.find(columnName);
  return j == NameIndex::kMissing ? -1 : j;
}

bool MpsParts::addEntry(int row, double value) {
  int j = static_cast<int>(columns.size()) - 1;
  if (row == kFreeRow) return true;
  if (row == kObjective) {
    if (std::exchange(objectiveEntry_, true)) return false;
    columns[j].obj = value;
    return true;
  }
  if (std::exchange(rows[row].lastColumn, j) == j) return false;
  if (value != 0.0) entries.push_back({row, j, value});
  return true;
}

ModelData MpsParts::build(const std::string& path) {
  ModelData d;
  d.name = name;
  d.sense = sense;
  d.objectives[0].constant = 0.0 - objectiveRhs;  // no -0 for an absent constant
  buildColumns(d);
  buildRows(d);
  buildQuads(d, path);
  buildSets(d, path);
  return d;
}

void MpsParts::buildColumns(ModelData& d) {
  size_t n = columns.size();
  d.lb.reserve(n);
  d.ub.reserve(n);
  d.type.reserve(n);
  d.objectives[0].coef.reserve(n);
  for (size_t j = 0; j < n; ++j) {
    MpsColumn& c = columns[j];
    if (c.marked && !c.bounded) c.ub = 1.0;  // integers without bounds are binary
    d.lb.push_back(normBound(c.lb));
    d.ub.push_back(normBound(c.ub));
    d.type.push_back(columnType(c));
    d.objectives[0].coef.push_back(c.obj);
  }
  d.varNames.assign(std::vector<std::string>(columnNames.begin(), columnNames.end()));
  d.start.assign(n, KLO_UNDEFINED);
}

// Entries come column by column, so each row's indices arrive sorted.
void MpsParts::buildRows(ModelData& d) {
  d.rows.resize(rows.size());
  std::vector<int> count(rows.size(), 0);
  for (const MpsEntry& e : entries) ++count[e.row];
  for (size_t i = 0; i < rows.size(); ++i) {
    Row& r = d.rows[i];
    rowBounds(rows[i], r.lower, r.upper);
    r.lin.ind.reserve(count[i]);
    r.lin.val.reserve(count[i]);
  }
  d.rowNames.assign(std::vector<std::string>(rowNames.begin(), rowNames.end()));
  for (const MpsEntry& e : entries) {
    d.rows[e.row].lin.ind.push_back(e.column);
    d.rows[e.row].lin.val.push_back(e.value);
  }
}

// Through the store's checks too: two entries of one term may sum past the
// largest double.
void MpsParts::buildQuads(ModelData& d, const std::string& path) {
  for (const MpsQuad& q : quads) {
    QuadTerms terms;
    try {
      terms =
          makeQuad(static_cast<int>(q.v.size()), q.r.data(), q.c.data(), q.v.data(), d.numVars());
    } catch (const Error& e) {
      failAt(path, q.line, e.message);
    }
    if (q.row == kObjective)
      d.qobj = std::move(terms);
    else if (terms.size() > 0)
      d.rows[q.row].nl.ensure().quad = std::move(terms);
  }
}

// Through the store's own checks: a repeated member or weight is refused
// as it is in KLOaddsos.
void MpsParts::buildSets(ModelData& d, const std::string& path) {
  for (const MpsSos& s : sets) {
    int begin = 0;
    Bulk bulk{1, static_cast<int>(s.members.size()), &begin, s.members.data(), s.weights.data()};
    try {
      addSos(d, bulk, &s.type);
    } catch (const Error& e) {
      failAt(path, s.line, e.message);
    }
  }
}

}  // namespace klo
