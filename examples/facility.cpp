// Capacitated facility location: decide which warehouses to open (each has
// a fixed cost and a capacity) and which open warehouse serves each
// customer, at the least total cost.  A mixed-integer program written with
// the expression operators: rows are comparisons such as `load <= cap`.
#include <klo_cpp.h>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

const int kFacilities = 4;
const int kCustomers = 8;
const double kFixedCost[kFacilities] = {100, 120, 90, 110};
const double kCapacity[kFacilities] = {50, 60, 40, 55};
const double kDemand[kCustomers] = {12, 15, 9, 20, 11, 14, 8, 16};
// kServeCost[f][c]: cost of serving customer c from facility f.
const double kServeCost[kFacilities][kCustomers] = {
    {8, 12, 20, 25, 14, 9, 30, 18},
    {22, 7, 10, 12, 26, 19, 11, 15},
    {15, 20, 6, 18, 8, 24, 13, 21},
    {27, 16, 23, 7, 19, 12, 17, 9},
};

}  // namespace

int main() {
  try {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    KLOModel model(env);

    // open[f] = 1 when facility f is opened; assign[f][c] = 1 when f
    // serves customer c.  'B' makes a variable binary.
    KLOVar open[kFacilities];
    KLOVar assign[kFacilities][kCustomers];
    for (int f = 0; f < kFacilities; ++f) {
      open[f] = model.addVar(0, 1, 0, 'B', "open" + std::to_string(f));
      for (int c = 0; c < kCustomers; ++c)
        assign[f][c] =
            model.addVar(0, 1, 0, 'B', "assign" + std::to_string(f) + "_" + std::to_string(c));
    }

    // Each customer is served by exactly one facility.
    for (int c = 0; c < kCustomers; ++c) {
      KLOLinExpr servedBy;
      for (int f = 0; f < kFacilities; ++f) servedBy += assign[f][c];
      model.addConstr(servedBy == 1, "serve" + std::to_string(c));
    }
    // A facility's load stays within its capacity, and is 0 when it is
    // closed.  The second family (assign <= open) is implied, but it
    // makes the LP relaxation much tighter, so the search is shorter.
    for (int f = 0; f < kFacilities; ++f) {
      KLOLinExpr load;
      for (int c = 0; c < kCustomers; ++c) {
        load += kDemand[c] * assign[f][c];
        model.addConstr(assign[f][c] <= open[f]);
      }
      model.addConstr(load <= kCapacity[f] * open[f], "capacity" + std::to_string(f));
    }

    KLOLinExpr cost;
    for (int f = 0; f < kFacilities; ++f) {
      cost += kFixedCost[f] * open[f];
      for (int c = 0; c < kCustomers; ++c) cost += kServeCost[f][c] * assign[f][c];
    }
    model.setObjective(cost, 1);  // 1: minimise

    model.optimize();
    if (model.get(KLO_IntAttr_Status) != 1) {
      std::printf("not solved (status %d)\n", model.get(KLO_IntAttr_Status));
      return 1;
    }

    // Binary values come back as doubles within the integrality
    // tolerance of 0 or 1: compare with 0.5.
    for (int f = 0; f < kFacilities; ++f) {
      if (open[f].get(KLO_DoubleAttr_X) < 0.5) {
        std::printf("facility %d closed\n", f);
        continue;
      }
      std::printf("facility %d open, serves:", f);
      for (int c = 0; c < kCustomers; ++c)
        if (assign[f][c].get(KLO_DoubleAttr_X) > 0.5) std::printf(" %d", c);
      std::printf("\n");
    }
    std::printf("total cost: %g\n", model.get(KLO_DoubleAttr_ObjVal));
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
