// Whole-model attributes.
#include <algorithm>

#include "attr/attr_helpers.h"
#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"
#include "store/checks.h"

namespace klo {
namespace {

constexpr AttrType I = AttrType::Int;
constexpr AttrType D = AttrType::Double;
constexpr Level M = Level::Model;

template <class Pred>
double countRows(const KLOmodel& m, Pred p) {
  return static_cast<double>(std::count_if(m.data.rows.begin(), m.data.rows.end(), p));
}

double countTypes(const KLOmodel& m, const char* types) { return m.data.countTypes(types); }

double numNZs(const KLOmodel& m, int) {
  double n = 0;
  for (const Row& r : m.data.rows) n += r.lin.size();
  return n;
}

double numEnts(const KLOmodel& m, int e) {
  double n = numNZs(m, e) + m.data.qobj.size();
  for (const Row& r : m.data.rows) {
    if (!r.nl) continue;
    n += r.nl->quad.size();
    for (const PsdTerm& t : r.nl->psd) n += t.mat.size();
  }
  for (const PsdVar& v : m.data.psdVars) n += v.obj.size();
  return n;
}

void checkSense(const KLOmodel&, int, double v) {
  if (v != 1 && v != -1)
    fail(KLO_ERROR_INVALID_ARGUMENT, "Model sense " + formatDouble(v) + " is neither 1 nor -1");
}

void checkMinSense(const KLOmodel&, int, double v) {
  if (v != 0 && v != 1)
    fail(KLO_ERROR_INVALID_ARGUMENT, "MinSense " + formatDouble(v) + " is neither 0 nor 1");
}

bool solvedWith(const KLOmodel& m, bool (*has)(const Results&)) {
  return m.results.solved && has(m.results);
}

// Value of objective k at x (the quadratic terms belong to objective 0).
double objectiveAt(const KLOmodel& m, int k, const std::vector<double>& x) {
  const Objective& o = m.data.objectives[k];
  double v = o.constant;
  for (size_t j = 0; j < x.size() && j < o.coef.size(); ++j) v += o.coef[j] * x[j];
  if (k == 0)
    for (int t = 0; t < m.data.qobj.size(); ++t)
      v += m.data.qobj.val[t] * x[m.data.qobj.row[t]] * x[m.data.qobj.col[t]];
  return v;
}

Objective& objN(KLOmodel& m) { return m.data.objectives[objNumber(m)]; }
const Objective& objN(const KLOmodel& m) { return m.data.objectives[objNumber(m)]; }

void checkObjN(const KLOmodel& m, int, double v) {
  objNumber(m);
  checkCoef(v, "Value");
}

void checkObjNTol(const KLOmodel& m, int e, double v) {
  objNumber(m);
  checkNonNegative(m, e, v);
}

void checkObjNPriority(const KLOmodel& m, int, double) { objNumber(m); }

const Violations& primalFigures(const KLOmodel& m) { return solution(m).violations; }

const Violations& dualFigures(const KLOmodel& m) {
  const Violations& v = solution(m).violations;
  if (!v.dualChecked)
    fail(KLO_ERROR_DATA_NOT_AVAILABLE, "The last solve's answer has no duals to check");
  return v;
}

// The answer check's figures (common/violations.h).
void addViolationAttrs(std::vector<AttrDef>& out) {
  auto attr = [&out](const char* name, double (*get)(const KLOmodel&, int)) {
    out.push_back(numAttr(name, D, M, get));
  };
  attr("MaxBoundViolation", [](const KLOmodel& m, int) { return primalFigures(m).bound; });
  attr("MaxConstrViolation", [](const KLOmodel& m, int) { return primalFigures(m).row; });
  attr("MaxPrimalViolation", [](const KLOmodel& m, int) { return primalFigures(m).primal(); });
  attr("MaxIntViolation", [](const KLOmodel& m, int) { return primalFigures(m).integrality; });
  attr("MaxSOSViolation", [](const KLOmodel& m, int) { return primalFigures(m).sos; });
  attr("MaxDualViolation", [](const KLOmodel& m, int) { return dualFigures(m).dual; });
  attr("ComplViolation", [](const KLOmodel& m, int) { return dualFigures(m).complementarity; });
}

}  // namespace

void addModelAttrs(std::vector<AttrDef>& out) {
  auto sense = [](const KLOmodel& m, int) { return double(m.data.sense); };
  auto setSense = [](KLOmodel& m, int, double v) { m.data.sense = static_cast<int>(v); };
  out.push_back(numAttr("ModelSense", I, M, sense, checkSense, setSense));
  out.push_back(numAttr(
      "MinSense", I, M, [](const KLOmodel& m, int) { return m.data.sense == 1 ? 1.0 : 0.0; },
      checkMinSense, [](KLOmodel& m, int, double v) { m.data.sense = v != 0 ? 1 : -1; }));
  out.push_back(numAttr("HasSolution", I, M, [](const KLOmodel& m, int) {
    return solvedWith(m, [](const Results& r) { return r.hasSolution; }) ? 1.0 : 0.0;
  }));
  out.push_back(numAttr("HasPrimalRay", I, M, [](const KLOmodel& m, int) {
    return solvedWith(m, [](const Results& r) { return !r.primalRay.empty(); }) ? 1.0 : 0.0;
  }));
  out.push_back(numAttr("HasDualRay", I, M, [](const KLOmodel& m, int) {
    return solvedWith(m, [](const Results& r) { return !r.dualRay.empty(); }) ? 1.0 : 0.0;
  }));
  out.push_back(
      numAttr("NumVars", I, M, [](const KLOmodel& m, int) { return double(m.data.numVars()); }));
  auto numRows = [](const KLOmodel& m, int) { return double(m.data.numRows()); };
  out.push_back(numAttr("NumConss", I, M, numRows));
  out.push_back(numAttr("NumConstrs", I, M, numRows));
  out.push_back(numAttr("NumQConstrs", I, M, [](const KLOmodel& m, int) {
    return countRows(m, [](const Row& r) { return r.hasQuad(); });
  }));
  out.push_back(numAttr("NumPsdConstrs", I, M, [](const KLOmodel& m, int) {
    return countRows(m, [](const Row& r) { return r.hasPsd(); });
  }));
  out.push_back(
      numAttr("NumSOS", I, M, [](const KLOmodel& m, int) { return double(m.data.sos.size()); }));
  out.push_back(numAttr("NumGenConstrs", I, M,
                        [](const KLOmodel& m, int) { return double(m.data.indicators.size()); }));
  out.push_back(numAttr("NumPsdVars", I, M,
                        [](const KLOmodel& m, int) { return double(m.data.psdVars.size()); }));
  out.push_back(numAttr("NumEnts", I, M, numEnts));
  out.push_back(numAttr("NumNZs", I, M, numNZs));
  out.push_back(
      numAttr("NumContVars", I, M, [](const KLOmodel& m, int) { return countTypes(m, "CS"); }));
  out.push_back(
      numAttr("NumIntVars", I, M, [](const KLOmodel& m, int) { return countTypes(m, "BIN"); }));
  out.push_back(
      numAttr("NumBinVars", I, M, [](const KLOmodel& m, int) { return countTypes(m, "B"); }));
  out.push_back(numAttr("IISMinimal", I, M, [](const KLOmodel& m, int) {
    if (m.results.iisMinimal < 0)
      fail(KLO_ERROR_DATA_NOT_AVAILABLE, "No irreducible infeasible subsystem has been computed");
    return double(m.results.iisMinimal);
  }));
  out.push_back(numAttr("IsInteger", I, M, [](const KLOmodel& m, int) {
    bool mip = countTypes(m, "BINS") > 0 || !m.data.sos.empty() || !m.data.indicators.empty();
    return mip ? 1.0 : 0.0;
  }));
  out.push_back(numAttr("Status", I, M, [](const KLOmodel& m, int) {
    return m.results.solved ? double(m.results.status) : double(KLO_STATUS_UNSTARTED);
  }));
  out.push_back(numAttr("SolCount", I, M, [](const KLOmodel& m, int) {
    if (!m.results.solved || !m.results.hasSolution) return 0.0;
    return double(std::max<size_t>(1, m.results.pool.size()));
  }));
  out.push_back(numAttr("SPX/NumIters", I, M, [](const KLOmodel& m, int) {
    return double(solveResult(m).simplexIterations);
  }));
  out.push_back(numAttr("IPM/NumIters", I, M, [](const KLOmodel& m, int) {
    return double(solveResult(m).barrierIterations);
  }));
  out.push_back(numAttr("NumObj", I, M,
                        [](const KLOmodel& m, int) { return double(m.data.objectives.size()); }));
  out.push_back(numAttr(
      "ObjNPriority", I, M, [](const KLOmodel& m, int) { return double(objN(m).priority); },
      checkObjNPriority,
      [](KLOmodel& m, int, double v) { objN(m).priority = static_cast<int>(v); }));

  auto objCon = [](const KLOmodel& m, int) { return m.data.objectives[0].constant; };
  auto setObjCon = [](KLOmodel& m, int, double v) { m.data.objectives[0].constant = v; };
  out.push_back(numAttr("ObjConst", D, M, objCon, checkFinite, setObjCon));
  out.push_back(numAttr("ObjCon", D, M, objCon, checkFinite, setObjCon));
  auto objVal = [](const KLOmodel& m, int) { return solution(m).objective; };
  out.push_back(numAttr("PrimalObjVal", D, M, objVal));
  out.push_back(numAttr("ObjVal", D, M, objVal));
  out.push_back(numAttr("PoolNObjVal", D, M,
                        [](const KLOmodel& m, int) { return poolSolution(m).objective; }));
  out.push_back(numAttr("DualObjVal", D, M,
                        [](const KLOmodel& m, int) { return solution(m).dualObjective; }));
  out.push_back(numAttr("PresolverTime", D, M,
                        [](const KLOmodel& m, int) { return solveResult(m).presolveTime; }));
  out.push_back(numAttr("SolverTime", D, M,
                        [](const KLOmodel& m, int) { return solveResult(m).solverTime; }));
  out.push_back(numAttr("SolutionTime", D, M, [](const KLOmodel& m, int) {
    solveResult(m);
    return m.results.solutionTime;
  }));
  out.push_back(
      numAttr("MIP/GapAbs", D, M, [](const KLOmodel& m, int) { return solution(m).gapAbs; }));
  out.push_back(
      numAttr("MIP/GapRel", D, M, [](const KLOmodel& m, int) { return solution(m).gapRel; }));
  out.push_back(numAttr(
      "ObjNCon", D, M, [](const KLOmodel& m, int) { return objN(m).constant; }, checkObjN,
      [](KLOmodel& m, int, double v) { objN(m).constant = v; }));
  out.push_back(numAttr("ObjNVal", D, M, [](const KLOmodel& m, int) {
    int k = objNumber(m);
    return objectiveAt(m, k, solution(m).x);
  }));
  out.push_back(numAttr(
      "ObjNWeight", D, M, [](const KLOmodel& m, int) { return objN(m).weight; }, checkObjN,
      [](KLOmodel& m, int, double v) { objN(m).weight = v; }));
  out.push_back(numAttr(
      "ObjNRelTol", D, M, [](const KLOmodel& m, int) { return objN(m).relTol; }, checkObjNTol,
      [](KLOmodel& m, int, double v) { objN(m).relTol = v; }));
  out.push_back(numAttr(
      "ObjNAbsTol", D, M, [](const KLOmodel& m, int) { return objN(m).absTol; }, checkObjNTol,
      [](KLOmodel& m, int, double v) { objN(m).absTol = v; }));

  addViolationAttrs(out);

  auto name = [](const KLOmodel& m, int) -> const std::string& { return m.data.name; };
  auto setName = [](KLOmodel& m, int, const std::string& v) { m.data.name = v; };
  out.push_back(strAttr("ProbName", M, name, setName));
  out.push_back(strAttr("ModelName", M, name, setName));
}

}  // namespace klo
