// A callback that watches a branch-and-bound search: every time the solver
// finds a better integer solution (a new incumbent), the callback prints
// its value and when it was found.  The model is a 0-1 knapsack: pick
// items of the largest total value whose weights fit in the sack.
#include <klo_cpp.h>

#include <cstdio>
#include <iostream>
#include <vector>

namespace {

// Where-codes and information codes of the solver library (klo_c.h).
const int kNewIncumbent = 4;  // KLO_CB_MIPSOL
const int kRuntime = 302;     // KLO_CBINFO_RUNTIME

const int kItems = 40;
const double kCapacity = 500;

// Reports each new incumbent.  A callback derives from KLOCallback and
// overrides callback(); `where` tells which event it is called for.
class IncumbentPrinter : public KLOCallback {
 public:
  IncumbentPrinter(const std::vector<KLOVar>& items, const std::vector<double>& values)
      : items_(items), values_(values) {}

  int found = 0;

  void callback() override {
    if (where != kNewIncumbent) return;
    // getSolution reads the new incumbent through the model's handles.
    double value = 0;
    for (std::size_t i = 0; i < items_.size(); ++i) value += values_[i] * getSolution(items_[i]);
    ++found;
    std::printf("incumbent %d: value %g after %.3f s\n", found, value, getDoubleInfo(kRuntime));
  }

 private:
  std::vector<KLOVar> items_;
  std::vector<double> values_;
};

}  // namespace

int main() {
  try {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    KLOModel model(env);

    // Weights and values from a fixed formula, so every run is the same.
    std::vector<KLOVar> items;
    std::vector<double> values;
    KLOLinExpr weight, value;
    for (int i = 0; i < kItems; ++i) {
      const double w = 20 + (i * 37) % 41;
      const double v = w + (i * 53) % 29;
      items.push_back(model.addVar(0, 1, 0, 'B'));
      values.push_back(v);
      weight += w * items.back();
      value += v * items.back();
    }
    model.addConstr(weight <= kCapacity, "capacity");
    model.setObjective(value, -1);  // maximise

    // Without heuristics and cuts the search finds its incumbents one by
    // one in the tree, which is what this example wants to show.
    model.set(KLO_IntParam_MIP_LevelHeurs, 0);
    model.set(KLO_IntParam_MIP_LevelCuts, 0);

    // The callback object must live until optimize() returns.
    IncumbentPrinter printer(items, values);
    model.setCallback(&printer);
    model.optimize();
    model.setCallback(nullptr);

    std::printf("%d incumbents; optimal value %g\n", printer.found,
                model.get(KLO_DoubleAttr_ObjVal));
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
