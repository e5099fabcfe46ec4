#include "solve/trim_result.h"

#include <vector>

namespace klo {
namespace {

template <class T>
void cutTo(std::vector<T>& v, std::size_t n) {
  if (v.size() > n) v.resize(n);
}

}  // namespace

void trimResult(engine::Result& r, std::size_t cols, std::size_t rows) {
  cutTo(r.x, cols);
  cutTo(r.reducedCosts, cols);
  cutTo(r.colBasis, cols);
  cutTo(r.primalRay, cols);
  for (engine::PoolSolution& s : r.pool) cutTo(s.x, cols);
  cutTo(r.duals, rows);
  cutTo(r.activities, rows);
  cutTo(r.rowBasis, rows);
  cutTo(r.dualRay, rows);
}

}  // namespace klo
