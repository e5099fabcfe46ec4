// Changes to the data of a model.  Each operation checks all of its
// arguments before it changes anything (throwing klo::Error), so that a
// failed call leaves the model as it was.  Array arguments follow klo_c.h:
// bulk forms take begin offsets into shared index/value arrays.
#pragma once

#include <vector>

#include "store/checks.h"
#include "store/model_data.h"

namespace klo {

// A bulk argument: element k owns entries beg[k] .. beg[k+1]-1 (the last
// one up to nnz) of the index and value arrays.
struct Bulk {
  int n = 0;
  int nnz = 0;
  const int* beg = nullptr;
  const int* ind = nullptr;
  const double* val = nullptr;
  // Checks counts, arrays and offsets; val may be null unless needValues.
  void check(const char* what, bool needValues = true) const;
  int first(int k) const { return nnz == 0 ? 0 : beg[k]; }
  int end(int k) const { return nnz == 0 ? 0 : (k + 1 < n ? beg[k + 1] : nnz); }
};

// Variables.  Null obj, lb, ub, type or names give the defaults (0, 0,
// infinity, 'C', empty); column entries name rows.
struct NewVars {
  Bulk cols;
  const double* obj = nullptr;
  const double* lb = nullptr;
  const double* ub = nullptr;
  const char* type = nullptr;
  const char* const* names = nullptr;
};
void addVars(ModelData& d, const NewVars& v);
void deleteVars(ModelData& d, int n, const int* ind);
void setVarType(ModelData& d, int j, char type);
void setVarBound(ModelData& d, int j, bool upper, double value);
// The bound a variable of this type may have ('B' clips to [0, 1]).
double clipBound(char type, bool upper, double value);

// Rows.  lower/upper are required; names may be null.
void addRows(ModelData& d, const Bulk& rows, const double* lower, const double* upper,
             const char* const* names);
// Appends a row whose parts were built and checked already.
void appendRow(ModelData& d, Row row, const char* name);
void deleteRows(ModelData& d, int n, const int* ind);
void setRowBound(ModelData& d, int i, bool upper, double value);
void setCoeff(ModelData& d, int row, int var, double value);

// Quadratic objective.
void addObjQuad(ModelData& d, int n, const int* row, const int* col, const double* val);

// PSD variables; their terms in rows are built with makePsdTerms.
void addPsdVar(ModelData& d, int dim, const char* name);
void deletePsdVars(ModelData& d, int n, const int* ind);
std::vector<PsdTerm> makePsdTerms(const ModelData& d, int numpsd, const int* psdvar,
                                  const int* mbeg, const int* mind, const double* mval);
void setPsdObj(ModelData& d, int k, int nnz, int nrows, int ncols, const int* ind,
               const double* val);

// SOS sets (weights may be null: 1, 2, ... in member order).
void addSos(ModelData& d, const Bulk& sets, const int* types);
void deleteSos(ModelData& d, int n, const int* ind);

// Indicator constraints.
void addIndicator(ModelData& d, const char* name, int binVar, int binVal, int n, const int* ind,
                  const double* val, char sense, double rhs);
void deleteIndicators(ModelData& d, int n, const int* ind);

// Objectives: objective index (created with the ones before it) becomes
// constant + sum val x[ind].
struct ObjectiveSpec {
  int index = 0;
  int priority = 0;
  double weight = 1.0, absTol = 0.0, relTol = 0.0;
  const char* name = nullptr;
  double constant = 0.0;
  int n = 0;
  const int* ind = nullptr;
  const double* val = nullptr;
};
void setObjective(ModelData& d, const ObjectiveSpec& s);

// Deletion indices: each in range for count elements of kind.
void checkIndices(const ModelData& d, Kind kind, int n, const int* ind);

}  // namespace klo
