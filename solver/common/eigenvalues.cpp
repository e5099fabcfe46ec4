#include "common/eigenvalues.h"

#include <algorithm>

extern "C" void dsyev_(const char* jobz, const char* uplo, const int* n, double* a, const int* lda,
                       double* w, double* work, const int* lwork, int* info);

namespace klo {

std::vector<double> symmetricEigenvalues(std::vector<double> a, int k) {
  std::vector<double> eig(k);
  if (k == 0) return eig;
  int info = 0, lwork = -1;
  double size = 0;
  dsyev_("N", "L", &k, a.data(), &k, eig.data(), &size, &lwork, &info);
  lwork = std::max(1, static_cast<int>(size));
  std::vector<double> work(lwork);
  dsyev_("N", "L", &k, a.data(), &k, eig.data(), work.data(), &lwork, &info);
  if (info != 0) eig.clear();
  return eig;
}

}  // namespace klo
