// Whole-model operations: solving, analyses, files, relaxation.
#include <memory>
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"

using klo_detail::check;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

// Penalties of count elements, all value; null for no elements.
std::unique_ptr<double[]> penalties(int count, double value) {
  if (count <= 0) return nullptr;
  std::unique_ptr<double[]> p(new double[count]);
  for (int i = 0; i < count; ++i) p[i] = value;
  return p;
}

// A penalty slot: a removed or foreign element would write outside the
// arrays, so it is refused instead.
template <class H>
int checkedIndex(const H& h, int count, int code) {
  const int k = h.index();
  if (k < 0 || k >= count) klo_detail::raise(code);
  return k;
}

}  // namespace

void KLOModel::optimize() { check(KLOoptimize(lib(model_))); }

void KLOModel::computeIIS() { check(KLOcomputeIIS(lib(model_))); }

void KLOModel::read(const std::string& file) { check(KLOread(lib(model_), file.c_str())); }

void KLOModel::write(const std::string& file) { check(KLOwrite(lib(model_), file.c_str())); }

void KLOModel::reset(int level) { check(KLOreset(lib(model_), level)); }

KLOModel KLOModel::relax() const {
  KLOModel copy(*this);
  // The copy's own library model is replaced by the relaxed one; it is
  // freed first and forgotten, so that a failure below frees nothing twice.
  KLOfreemodel(lib(copy.model_));
  copy.model_ = nullptr;
  KLOmodel* relaxed = nullptr;
  check(KLOrelaxmodel(lib(model_), &relaxed));
  copy.model_ = relaxed;
  copy.sync();
  return copy;
}

double KLOModel::feasRelaxWith(int type, bool minrelax, const double* lbpen, const double* ubpen,
                               const double* rhspen) {
  double relaxed = 0.0;
  check(KLOfeasrelax(lib(model_), type, minrelax ? 1 : 0, lbpen, ubpen, rhspen, &relaxed));
  return minrelax ? relaxed : 0.0;
}

double KLOModel::feasRelax(int type, bool minrelax, bool vrelax, bool crelax) {
  // Each array as long as its own count: the library cannot know an
  // array's length, so a shorter one would be read past its end.
  const auto bounds = penalties(get(KLO_IntAttr_NumVars), vrelax ? 1.0 : KLO_INFINITY);
  const auto rhs = penalties(get(KLO_IntAttr_NumConstrs), crelax ? 1.0 : KLO_INFINITY);
  return feasRelaxWith(type, minrelax, bounds.get(), bounds.get(), rhs.get());
}

double KLOModel::feasRelax(int type, bool minrelax, int nvars, const KLOVar* vars,
                           const double* lbpen, const double* ubpen, int ncons,
                           const KLOConstr* cons, const double* rhspen) {
  const int numVars = get(KLO_IntAttr_NumVars);
  const int numConstrs = get(KLO_IntAttr_NumConstrs);
  const auto lower = penalties(numVars, KLO_INFINITY);
  const auto upper = penalties(numVars, KLO_INFINITY);
  const auto rhs = penalties(numConstrs, KLO_INFINITY);
  for (int i = 0; i < nvars; ++i) {
    const int k = checkedIndex(vars[i], numVars, KLO_ERROR_INVALID_VAR);
    lower[k] = lbpen[i];
    upper[k] = ubpen[i];
  }
  for (int i = 0; i < ncons; ++i)
    rhs[checkedIndex(cons[i], numConstrs, KLO_ERROR_INVALID_CONSTR)] = rhspen[i];
  return feasRelaxWith(type, minrelax, lower.get(), upper.get(), rhs.get());
}
