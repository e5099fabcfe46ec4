// Eigenvalues of dense symmetric matrices (LAPACK's dsyev).
#pragma once

#include <vector>

namespace klo {

// The eigenvalues of the symmetric k x k matrix a (either triangle may be
// read), ascending; empty when LAPACK does not converge.
std::vector<double> symmetricEigenvalues(std::vector<double> a, int k);

}  // namespace klo
