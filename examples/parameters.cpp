// Lists every parameter of the solver library with its current value, range
// and default, then changes a few by name, as a user would type them, and
// writes the changed ones to a parameter file.
#include <klo_cpp.h>

#include <cstdio>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
  try {
    KLOEnv env(true);             // deferred start: settings first
    env.set(KLO_IntParam(4), 0);  // "OutputFlag": keep the log quiet
    env.start();

    std::printf("%-34s %12s %12s %12s %12s\n", "int parameter", "value", "min", "max", "default");
    for (int p = 0; p < 39; ++p) {
      int value, min, max, def;
      env.getParamInfo(KLO_IntParam(p), &value, &min, &max, &def);
      std::printf("%-34s %12d %12d %12d %12d\n", INT_PARNAMES[p], value, min, max, def);
    }
    std::printf("\n%-34s %12s %12s %12s %12s\n", "double parameter", "value", "min", "max",
                "default");
    for (int p = 0; p < 18; ++p) {
      double value, min, max, def;
      env.getParamInfo(KLO_DoubleParam(p), &value, &min, &max, &def);
      std::printf("%-34s %12g %12g %12g %12g\n", DBL_PARNAMES[p], value, min, max, def);
    }

    // By name, with the value as text: the library finds the type.
    env.set("MIP/MaxNodes", "5000");
    env.set("MaxTime", "2.5");
    env.set("MIP/GapRel", "1e-6");
    std::string file = argc > 1 ? argv[1] : "changed.prm";
    env.writeParams(file);
    std::printf("\nwrote the changed parameters to %s\n", file.c_str());

    try {
      env.set("NoSuchParameter", "1");
    } catch (const KLOException& e) {
      std::printf("unknown name refused: %s (%d)\n", e.getMessage().c_str(), e.getErrorCode());
    }
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
