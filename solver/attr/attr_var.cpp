// Attributes of single variables.
#include "attr/attr_helpers.h"
#include "common/error.h"
#include "klo_c.h"
#include "store/checks.h"
#include "store/edit.h"

namespace klo {
namespace {

constexpr AttrType D = AttrType::Double;
constexpr Level V = Level::Var;

// The binary of an indicator constraint stays binary: the indicator's
// meaning rests on it.
void checkType(const KLOmodel& m, int j, double v) {
  checkVarType(static_cast<char>(v));
  if (static_cast<char>(v) == KLO_BINARY) return;
  for (size_t g = 0; g < m.data.indicators.size(); ++g)
    if (m.data.indicators[g].binVar == j)
      fail(KLO_ERROR_INVALID_ARGUMENT, "Variable " + std::to_string(j) +
                                           " must stay binary: indicator constraint " +
                                           std::to_string(g) + " depends on it");
}

}  // namespace

void addVarAttrs(std::vector<AttrDef>& out) {
  out.push_back(iisAttr<&Results::iisCol>("IISVar", V));
  out.push_back(iisAttr<&Results::iisCol>("IISCol", V));
  out.push_back(
      basisAttr<&ModelData::colBasis, &Results::colBasis, &ModelData::numVars, KLO_BASIS_LOWER>(
          "ColBasis", V));

  out.push_back(numAttr(
      "LB", D, V, [](const KLOmodel& m, int j) { return m.data.lb[j]; }, checkNotNaN,
      [](KLOmodel& m, int j, double v) { setVarBound(m.data, j, false, v); }));
  out.push_back(numAttr(
      "UB", D, V, [](const KLOmodel& m, int j) { return m.data.ub[j]; }, checkNotNaN,
      [](KLOmodel& m, int j, double v) { setVarBound(m.data, j, true, v); }));
  out.push_back(numAttr(
      "Obj", D, V, [](const KLOmodel& m, int j) { return m.data.objectives[0].coef[j]; },
      checkFinite, [](KLOmodel& m, int j, double v) { m.data.objectives[0].coef[j] = v; }));
  out.push_back(numAttr(
      "ObjN", D, V,
      [](const KLOmodel& m, int j) { return m.data.objectives[objNumber(m)].coef[j]; },
      [](const KLOmodel& m, int j, double v) {
        objNumber(m);
        checkFinite(m, j, v);
      },
      [](KLOmodel& m, int j, double v) { m.data.objectives[objNumber(m)].coef[j] = v; }));
  out.push_back(numAttr(
      "Start", D, V, [](const KLOmodel& m, int j) { return m.data.start[j]; }, checkNotNaN,
      [](KLOmodel& m, int j, double v) { m.data.start[j] = v; }, true));
  auto x = [](const KLOmodel& m, int j) { return resultAt(solution(m).x, j, "primal values"); };
  out.push_back(numAttr("PrimalSoln", D, V, x));
  out.push_back(numAttr("X", D, V, x));
  auto xn = [](const KLOmodel& m, int j) { return resultAt(poolSolution(m).x, j, "pool values"); };
  out.push_back(numAttr("PoolNX", D, V, xn));
  out.push_back(numAttr("Xn", D, V, xn));
  auto rc = [](const KLOmodel& m, int j) {
    return resultAt(solution(m).reducedCosts, j, "reduced costs");
  };
  out.push_back(numAttr("ReducedCost", D, V, rc));
  out.push_back(numAttr("RC", D, V, rc));

  out.push_back(numAttr(
      "VType", AttrType::Char, V, [](const KLOmodel& m, int j) { return double(m.data.type[j]); },
      checkType,
      [](KLOmodel& m, int j, double v) { setVarType(m.data, j, static_cast<char>(v)); }));

  auto name = [](const KLOmodel& m, int j) -> const std::string& { return m.data.varNames.get(j); };
  auto setName = [](KLOmodel& m, int j, const std::string& v) { m.data.varNames.set(j, v); };
  out.push_back(strAttr("ColName", V, name, setName));
  out.push_back(strAttr("VarName", V, name, setName));
}

}  // namespace klo
