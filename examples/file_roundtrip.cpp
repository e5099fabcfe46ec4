// Writes a small model to an LP file and to an MPS file, reads each back
// into a new model with KLOModel(env, file), solves all three and shows
// that they agree.  Files are how models travel between programs (and how
// a model is shown to someone else when it misbehaves).
//
// Usage: file_roundtrip [directory for the files, default "."]
#include <klo_cpp.h>

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>

namespace {

// A workshop makes tables, chairs and shelves (whole units) from wood and
// labour; maximise the profit.
void build(KLOModel& model) {
  KLOVar tables = model.addVar(0, 1e20, 0, 'I', "tables");
  KLOVar chairs = model.addVar(0, 1e20, 0, 'I', "chairs");
  KLOVar shelves = model.addVar(0, 20, 0, 'I', "shelves");  // at most 20 sell
  model.addConstr(6 * tables + 2 * chairs + 3 * shelves <= 120, "wood");
  model.addConstr(4 * tables + 3 * chairs + 2 * shelves <= 100, "labour");
  model.addConstr(chairs - 2 * tables >= 0, "chairs_per_table");     // sold in sets
  model.setObjective(30 * tables + 12 * chairs + 14 * shelves, -1);  // -1: maximise
  model.set(KLO_StringAttr_ModelName, "workshop");
}

// Solves the model and prints its objective and solution, variable by
// variable through the handles the model keeps.
double solveAndShow(KLOModel& model, const char* label) {
  model.optimize();
  const double obj = model.get(KLO_DoubleAttr_ObjVal);
  std::printf("%-10s objective %g:", label, obj);
  std::unique_ptr<KLOVar[]> vars(model.getVars());
  for (int j = 0; j < model.get(KLO_IntAttr_NumVars); ++j)
    std::printf(" %s=%g", vars[j].get(KLO_StringAttr_VarName).c_str(),
                vars[j].get(KLO_DoubleAttr_X));
  std::printf("\n");
  return obj;
}

// True when the copy has the original's variables (found by name, with the
// same type and bounds) and the same solution values.
bool sameSolution(const KLOModel& original, const KLOModel& copy) {
  if (copy.get(KLO_IntAttr_NumVars) != original.get(KLO_IntAttr_NumVars) ||
      copy.get(KLO_IntAttr_NumConstrs) != original.get(KLO_IntAttr_NumConstrs))
    return false;
  std::unique_ptr<KLOVar[]> vars(original.getVars());
  for (int j = 0; j < original.get(KLO_IntAttr_NumVars); ++j) {
    const KLOVar other = copy.getVarByName(vars[j].get(KLO_StringAttr_VarName));
    if (other.get(KLO_CharAttr_VType) != vars[j].get(KLO_CharAttr_VType) ||
        other.get(KLO_DoubleAttr_UB) != vars[j].get(KLO_DoubleAttr_UB) ||
        std::fabs(other.get(KLO_DoubleAttr_X) - vars[j].get(KLO_DoubleAttr_X)) > 1e-6)
      return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const std::string dir = argc > 1 ? argv[1] : ".";
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();

    KLOModel model(env);
    build(model);
    const double obj = solveAndShow(model, "original");

    // The file's extension chooses the format.
    const std::string lpFile = dir + "/workshop.lp";
    const std::string mpsFile = dir + "/workshop.mps";
    model.write(lpFile);
    model.write(mpsFile);
    std::printf("wrote %s and %s\n", lpFile.c_str(), mpsFile.c_str());

    // A model read from a file has handles for all its elements:
    // getVars(), getVarByName() and getConstrs() work at once.
    KLOModel fromLp(env, lpFile);
    KLOModel fromMps(env, mpsFile);
    const double objLp = solveAndShow(fromLp, "from .lp");
    const double objMps = solveAndShow(fromMps, "from .mps");

    const bool agree = std::fabs(objLp - obj) < 1e-6 && std::fabs(objMps - obj) < 1e-6 &&
                       sameSolution(model, fromLp) && sameSolution(model, fromMps);
    std::printf(agree ? "all three agree\n" : "the models differ\n");
    return agree ? 0 : 1;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
