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

Problem readInstance(const std::string& name) {
  return readMpsProblem(std::string(KLO_INSTANCES_DIR) + "/" + name + ".mps.gz");
}

Problem knapsack() {
  ProblemBuilder b(-1);
  const double value[] = {10, 13, 7, 8, 4}, weight[] = {3, 4, 2, 3, 1};
  std::vector<std::pair<int, double>> row;
  for (int k = 0; k < 5; ++k) row.emplace_back(b.col(value[k], 0, 1, 'B'), weight[k]);
  b.row(row, -kInf, 7);
  return b.problem();
}

}  // namespace klo::engine::test
