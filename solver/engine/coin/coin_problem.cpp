#include "engine/coin/coin_problem.h"

#include <CoinFinite.hpp>

#include <vector>

#include "klo_c.h"

namespace klo::engine {

CoinPackedMatrix packedMatrix(const Problem& p) {
  const int majors = p.columnMajor ? p.numCols() : p.numRows();
  const int minors = p.columnMajor ? p.numRows() : p.numCols();
  std::vector<int> lengths(majors);
  for (int k = 0; k < majors; ++k) lengths[k] = p.start[k + 1] - p.start[k];
  return CoinPackedMatrix(p.columnMajor, minors, majors, static_cast<CoinBigIndex>(p.index.size()),
                          p.value.data(), p.index.data(), p.start.data(), lengths.data());
}

std::vector<double> coinBounds(const std::vector<double>& bounds) {
  std::vector<double> out(bounds);
  for (double& b : out) {
    if (b >= KLO_INFINITY) b = COIN_DBL_MAX;
    if (b <= -KLO_INFINITY) b = -COIN_DBL_MAX;
  }
  return out;
}

}  // namespace klo::engine
