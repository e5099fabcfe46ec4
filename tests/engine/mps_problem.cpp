#include <CoinMpsIO.hpp>
#include <CoinPackedMatrix.hpp>
#include <stdexcept>

#include "problem_builder.h"

namespace klo::engine::test {
namespace {

std::vector<double> ourBounds(const double* v, int n, double coinInf) {
  std::vector<double> out(v, v + n);
  for (double& b : out) {
    if (b >= coinInf) b = kInf;
    if (b <= -coinInf) b = -kInf;
  }
  return out;
}

}  // namespace

Problem readMpsProblem(const std::string& path) {
  CoinMpsIO mps;
  mps.messageHandler()->setLogLevel(0);
  if (mps.readMps(path.c_str(), "") != 0) throw std::runtime_error("cannot read " + path);
  Problem p;
  const int n = mps.getNumCols(), m = mps.getNumRows();
  const double inf = mps.getInfinity();
  p.obj.assign(mps.getObjCoefficients(), mps.getObjCoefficients() + n);
  p.colLower = ourBounds(mps.getColLower(), n, inf);
  p.colUpper = ourBounds(mps.getColUpper(), n, inf);
  for (int j = 0; j < n; ++j) p.colType.push_back(mps.isInteger(j) ? 'I' : 'C');
  p.rowLower = ourBounds(mps.getRowLower(), m, inf);
  p.rowUpper = ourBounds(mps.getRowUpper(), m, inf);
  CoinPackedMatrix byCol(*mps.getMatrixByCol());
  byCol.removeGaps();
  p.columnMajor = true;
  p.start.assign(byCol.getVectorStarts(), byCol.getVectorStarts() + n + 1);
  p.index.assign(byCol.getIndices(), byCol.getIndices() + byCol.getNumElements());
  p.value.assign(byCol.getElements(), byCol.getElements() + byCol.getNumElements());
  p.objConstant = -mps.objectiveOffset();
  return p;
}

}  // namespace klo::engine::test
