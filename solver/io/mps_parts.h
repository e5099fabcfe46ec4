// What an MPS file has given so far, kept the way its sections give it
// (the matrix by columns, right-hand sides and ranges beside the row types)
// and turned into a ModelData once the whole file is read.  Names are views
// into the file's text, which must outlive the parts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "io/name_index.h"
#include "klo_c.h"
#include "store/model_data.h"

namespace klo {

struct MpsColumn {
  double obj = 0.0;
  double lb = 0.0, ub = KLO_INFINITY;
  bool marked = false;   // between integer markers
  bool integer = false;  // marked, or given an integer bound (BV, LI, UI)
  bool semi = false;     // given an SC bound
  bool lbSet = false;    // a bound entry set the lower bound
  bool bounded = false;  // named by some bound entry
};

struct MpsRow {
  char type = 'L';  // 'L', 'G' or 'E'
  double rhs = 0.0, range = 0.0;
  bool hasRhs = false, hasRange = false, hasQuad = false;
  int lastColumn = -1;  // the last column with an entry here: repeats are refused
};

struct MpsEntry {
  int row, column;
  double value;
};

// Quadratic terms of the objective (row -1) or of a row, as the store
// keeps them: each term once, no factor 1/2.
struct MpsQuad {
  int line = 0;  // of the section's header
  int row = -1;
  std::vector<int> r, c;
  std::vector<double> v;
};

struct MpsSos {
  int line = 0;
  int type = 1;
  std::vector<int> members;
  std::vector<double> weights;
};

struct MpsParts {
  // What a row name stands for besides the index of a row.
  static constexpr int kObjective = -1, kFreeRow = -2, kUnknown = -3;

  // False when the name is taken.  The first N row is the objective,
  // later ones are free rows, dropped with their entries.
  bool addRow(std::string_view name, char type);
  int row(std::string_view name) const;
  // False when the name is taken: a column's entries must be together.
  bool addColumn(std::string_view name, bool marked);
  // The column's index, or -1.
  int column(std::string_view name) const;
  // An entry of the last column; false when it has one in that row.
  bool addEntry(int row, double value);
  // The model, or KLO_ERROR_FILE_READ naming path and line for a set that
  // the store refuses.
  ModelData build(const std::string& path);

  std::string name;
  int sense = 1;
  bool hasObjective = false;
  double objectiveRhs = 0.0;
  bool hasObjectiveRhs = false;
  std::vector<MpsRow> rows;
  std::vector<std::string_view> rowNames, columnNames;
  std::vector<MpsColumn> columns;
  std::vector<MpsEntry> entries;
  std::vector<MpsQuad> quads;
  std::vector<MpsSos> sets;

 private:
  void buildColumns(ModelData& d);
  void buildRows(ModelData& d);
  void buildQuads(ModelData& d, const std::string& path);
  void buildSets(ModelData& d, const std::string& path);

  NameIndex rowIndex_, columnIndex_;
  bool objectiveEntry_ = false;  // the last column has an objective entry
};

}  // namespace klo
