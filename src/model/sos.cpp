// Special ordered sets.
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/records.h"
#include "model/terms.h"

using klo_detail::check;

namespace {

KLOmodel* lib(void* model) { return static_cast<KLOmodel*>(model); }

}  // namespace

KLOSOS KLOModel::addSOS(const KLOVar* vars, const double* weights, int len, int type) {
  std::vector<int> members;
  for (int i = 0; i < len; ++i)
    members.push_back(klo_detail::liveIndex(vars[i], KLO_ERROR_INVALID_VAR));
  const int beg = 0;
  check(KLOaddsos(lib(model_), 1, len, &type, &beg, members.empty() ? nullptr : members.data(),
                  weights));
  return addSOS();
}

int KLOModel::getSOS(KLOSOS sos, KLOVar* vars, double* weights, int* type) const {
  const int k = klo_detail::liveIndex(sos, KLO_ERROR_INVALID_CONSTR);
  int count = 0;
  check(KLOgetsos(lib(model_), &count, nullptr, nullptr, nullptr, nullptr, k, 1));
  std::vector<int> ind(static_cast<std::size_t>(count));
  std::vector<double> weight(ind.size());
  int sosType = 0, beg = 0;
  check(KLOgetsos(lib(model_), &count, &sosType, &beg, ind.empty() ? nullptr : ind.data(),
                  weight.empty() ? nullptr : weight.data(), k, 1));
  for (int i = 0; i < count && i < static_cast<int>(ind.size()); ++i) {
    if (vars) vars[i] = klo_detail::libraryVar(vars_, ind[static_cast<std::size_t>(i)]);
    if (weights) weights[i] = weight[static_cast<std::size_t>(i)];
  }
  if (type) *type = sosType;
  return count;
}

void KLOModel::remove(KLOSOS sos) {
  if (klo_detail::record(sos).model != model_) klo_detail::raise(KLO_ERROR_INVALID_CONSTR);
  const int k = sos.index();
  check(KLOdelsos(lib(model_), 1, &k));
  klo_detail::dropAt(sos_, k);
}
