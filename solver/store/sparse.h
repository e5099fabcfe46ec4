// Building and renumbering the sparse pieces of a model (linear rows,
// quadratic terms, symmetric matrices) in their normal form: sorted,
// duplicates summed, zeros dropped.
#pragma once

#include <vector>

#include "store/checks.h"
#include "store/model_data.h"

namespace klo {

// Checks n entries (indices of count elements of kind, finite values) and
// returns them in normal form.  ind/val may be null only when n is 0.
SparseVec makeSparse(int n, const int* ind, const double* val, int count, Kind kind = Kind::Var);
// The same for quadratic terms; (i, j) and (j, i) add up.
QuadTerms makeQuad(int n, const int* row, const int* col, const double* val, int numVars);
// The same for a dim x dim symmetric matrix given by flattened positions.
SymMatrix makeSym(int n, const int* pos, const double* val, int dim);

// Sums of two normal forms.
QuadTerms addQuad(const QuadTerms& a, const QuadTerms& b);
SymMatrix addSym(const SymMatrix& a, const SymMatrix& b);

// Where term (i, j) is or would go in sorted terms q, and adding value
// there (a sum of 0 removes the term).
size_t quadPosition(const QuadTerms& q, int i, int j);
void setQuadAt(QuadTerms& q, size_t at, int i, int j, double value);

// Coefficient of index j in v (0 when absent), and setting it (0 removes).
double coefAt(const SparseVec& v, int j);
void setCoefAt(SparseVec& v, int j, double value);

// Renumbering after a deletion: newIndex[old] is the new index or -1 for a
// deleted element; entries of deleted elements disappear.
void renumber(SparseVec& v, const std::vector<int>& newIndex);
void renumber(QuadTerms& q, const std::vector<int>& newIndex);

// newIndex for deleting the n indices ind (each below count; duplicates
// allowed) from count elements.
std::vector<int> deletionMap(int count, int n, const int* ind);
std::vector<bool> keptFlags(const std::vector<int>& newIndex);

// Keeps the elements of v whose flag is set.
template <class T>
void retain(std::vector<T>& v, const std::vector<bool>& keep) {
  size_t out = 0;
  for (size_t i = 0; i < v.size(); ++i) {
    if (!keep[i]) continue;
    if (out != i) v[out] = std::move(v[i]);  // never move onto itself
    ++out;
  }
  v.resize(out);
}

}  // namespace klo
