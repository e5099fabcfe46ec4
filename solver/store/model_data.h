// The contents of a model as plain data.  The store (model_store.h) keeps
// these invariants when it changes them; file readers build a fresh
// ModelData and file writers read one.
//
// Invariants:
//  - every per-variable vector (lb, ub, type, start, objectives[k].coef) has
//    numVars() entries; every per-row datum lives in rows;
//  - SparseVec indices are sorted, unique, with non-zero values;
//  - quadratic terms are stored with row <= col, sorted, merged;
//  - SymMatrix entries are upper-triangle positions (r <= c, r * dim + c),
//    sorted, merged; an off-diagonal entry stands for itself and its mirror;
//  - objectives[0] is the model's objective ("Obj", "ObjCon"); further
//    entries exist only in multi-objective models.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "common/deep_ptr.h"
#include "klo_c.h"
#include "store/name_table.h"

namespace klo {

struct SparseVec {
  std::vector<int> ind;
  std::vector<double> val;
  int size() const { return static_cast<int>(ind.size()); }
};

// Terms q * x[row] * x[col].
struct QuadTerms {
  std::vector<int> row, col;
  std::vector<double> val;
  int size() const { return static_cast<int>(row.size()); }
};

// A dim x dim symmetric matrix, one triangle stored.
struct SymMatrix {
  std::vector<int> pos;
  std::vector<double> val;
  int size() const { return static_cast<int>(pos.size()); }
};

struct PsdTerm {
  int psdVar;
  SymMatrix mat;
};

// The parts of a row that only quadratic and PSD rows have.
struct RowNonlinear {
  QuadTerms quad;
  std::vector<PsdTerm> psd;
};

// lower <= lin.x + quadratic + PSD terms <= upper (+-1e20: no bound).
struct Row {
  double lower = -KLO_INFINITY;
  double upper = KLO_INFINITY;
  SparseVec lin;
  DeepPtr<RowNonlinear> nl;
  bool hasQuad() const { return nl && nl->quad.size() > 0; }
  bool hasPsd() const { return nl && !nl->psd.empty(); }
};

struct PsdVar {
  int dim = 0;
  std::string name;
  SymMatrix obj;  // "PsdObj"
};

struct Sos {
  int type = 1;
  std::vector<int> members;
  std::vector<double> weights;
};

// x[binVar] = binVal  implies  lin.x  sense  rhs.
struct Indicator {
  std::string name;
  int binVar = 0;
  int binVal = 1;
  SparseVec lin;
  char sense = '<';
  double rhs = 0.0;
};

struct Objective {
  std::vector<double> coef;  // one per variable
  double constant = 0.0;
  int priority = 0;
  double weight = 1.0;
  double absTol = 1e-6;
  double relTol = 0.0;
  std::string name;
};

struct ModelData {
  std::string name;
  int sense = 1;  // 1 minimise, -1 maximise

  // Variables.
  std::vector<double> lb, ub;
  std::vector<char> type;     // 'C', 'B', 'I', 'S', 'N'
  std::vector<double> start;  // 1e101 when unset
  NameTable varNames;

  // Rows (linear, quadratic and PSD share this numbering).
  std::vector<Row> rows;
  NameTable rowNames;

  std::vector<Objective> objectives = std::vector<Objective>(1);
  QuadTerms qobj;  // objective adds sum q x[row] x[col] (no factor 1/2)

  std::vector<PsdVar> psdVars;
  std::vector<Sos> sos;
  std::vector<Indicator> indicators;

  // Basis statuses (KLO_BASIS_...): empty when none is known.
  std::vector<int> colBasis, rowBasis;
  // The basis the last LP solve ended with, kept through changes of the
  // model so that the next solve starts from it.  Deletions keep it in step;
  // elements added since are missing from its end.
  std::vector<int> lastColBasis, lastRowBasis;

  int numVars() const { return static_cast<int>(lb.size()); }
  int numRows() const { return static_cast<int>(rows.size()); }
  // The number of variables whose type is one of types ("BIN": integers).
  int countTypes(const char* types) const {
    int n = 0;
    for (char t : type) n += t != '\0' && std::strchr(types, t) ? 1 : 0;
    return n;
  }
  const std::vector<double>& obj() const { return objectives[0].coef; }
};

}  // namespace klo
