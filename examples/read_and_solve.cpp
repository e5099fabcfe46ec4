// Reads a model file (MPS or LP, plain or gzip-compressed), solves it and
// prints the solution through the handles the model makes for every
// variable and row of the file: the non-zero variables and the binding
// rows with their duals.
//
// Usage: read_and_solve model-file
#include <klo_cpp.h>

#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s model-file\n", argv[0]);
    return 2;
  }
  try {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    KLOModel model(env, argv[1]);  // throws (code -3001, -3002, ...) on a bad file
    std::printf("%s: %d variables, %d rows\n", model.get(KLO_StringAttr_ModelName).c_str(),
                model.get(KLO_IntAttr_NumVars), model.get(KLO_IntAttr_NumConstrs));

    model.optimize();
    const int status = model.get(KLO_IntAttr_Status);
    std::printf("status %d\n", status);
    if (model.get(KLO_IntAttr_HasSolution) == 0) return 1;
    std::printf("objective %.10g\n", model.get(KLO_DoubleAttr_ObjVal));

    // getVars() gives a new[] array of handles: own it with unique_ptr.
    std::unique_ptr<KLOVar[]> vars(model.getVars());
    const int n = model.get(KLO_IntAttr_NumVars);
    std::unique_ptr<double[]> x(model.get(KLO_DoubleAttr_X, vars.get(), n));
    std::printf("non-zero variables:\n");
    for (int j = 0; j < n; ++j)
      if (std::fabs(x[j]) > 1e-9)
        std::printf("  %-10s %14.6g\n", vars[j].get(KLO_StringAttr_VarName).c_str(), x[j]);

    // Duals exist for linear programs only (a MIP has none).
    if (model.get(KLO_IntAttr_IsInteger) != 0) return 0;
    std::printf("binding rows (dual != 0):\n");
    KLOConstr* rows = model.getConstrs();  // the model's own array: do not free
    for (int i = 0; i < model.get(KLO_IntAttr_NumConstrs); ++i) {
      const double dual = rows[i].get(KLO_DoubleAttr_DualSoln);
      const double activity = rows[i].get(KLO_DoubleAttr_Activity);
      if (std::fabs(dual) > 1e-9)
        std::printf("  %-10s %14.6g  dual %g\n", rows[i].get(KLO_StringAttr_ConstrName).c_str(),
                    std::fabs(activity) < 1e-9 ? 0.0 : activity, dual);
    }
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
