// What every row-making operation does to its terms and bounds before the
// library sees them: like terms merged, removed elements refused, the
// expression's constant moved into the finite bounds, senses turned into
// bounds.
#pragma once

#include <string>
#include <vector>

#include "klo_c.h"
#include "klo_cpp.h"

namespace klo_detail {

struct Bounds {
  double lower;
  double upper;
};

// '>' is [rhs, inf], '=' is [rhs, rhs], anything else [-inf, rhs].
Bounds senseToBounds(char sense, double rhs);

// A finite bound less the constant; an infinite (or NaN) bound unchanged.
double shifted(double bound, double constant);

// Linear terms merged by variable (ascending index, zero sums kept), as
// index and value arrays.  A removed variable raises -2003.
struct LinearTerms {
  std::vector<int> ind;
  std::vector<double> val;

  explicit LinearTerms(const KLOLinExpr& e);
  int size() const { return static_cast<int>(ind.size()); }
  const int* indices() const { return ind.empty() ? nullptr : ind.data(); }
  const double* values() const { return val.empty() ? nullptr : val.data(); }
};

// Quadratic terms merged by combineLikeQTerms.  A removed variable raises
// -2003.
struct QuadTerms {
  std::vector<int> row;
  std::vector<int> col;
  std::vector<double> val;

  explicit QuadTerms(const KLOQuadExpr& q);
  int size() const { return static_cast<int>(val.size()); }
};

// The PSD terms of P merged per PSD variable (matrices summed, ascending
// index), into matrices and vars.  The matrices of a variable with several
// terms are first moved onto their upper triangle (upper_triangle.h), so
// that terms written in either triangle, or whole, add up as the library
// reads them one by one; a matrix the library would refuse comes out
// alone, as it was given.  A variable's only matrix goes as given.
void mergePsdTerms(const KLOPsdExpr& P, std::vector<KLOMatrix>& matrices,
                   std::vector<KLOPsdVar>& vars);

// PSD terms merged per PSD variable (matrices summed), flattened as
// KLOaddrangepsdconstr takes them.  A removed PSD variable raises -2003.
struct PsdTerms {
  std::vector<int> var;
  std::vector<int> beg;  // one entry per term plus the total
  std::vector<int> ind;
  std::vector<double> val;

  explicit PsdTerms(const KLOPsdExpr& P);
  int size() const { return static_cast<int>(var.size()); }
};

// The index of a handle that must name a live element, else code.
template <class H>
int liveIndex(const H& h, int code);

// The character data of names[0 .. count-1]; empty for null names.
std::vector<const char*> cNames(const std::string* names, int count);

// A variable named by the library, range-checked against the model's
// handles (-2003) instead of trusted.
KLOVar libraryVar(const std::vector<KLOVar>& vars, int index);

}  // namespace klo_detail
