// The diet problem: choose how many servings of each food to eat so that
// the day's nutrients reach their minimums (and calories stay below a
// maximum) at the least cost.  A linear program: it prints the plan, the
// cost, and the dual value of each nutrient row.
#include <klo_cpp.h>

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

namespace {

struct Food {
  const char* name;
  double cost;  // per serving
  double nutrients[3];
};

const char* const kNutrients[3] = {"calories", "protein", "calcium"};
// A day's minimum of each nutrient, and the maximum for calories.
const double kMinimum[3] = {2000, 70, 800};
const double kMaxCalories = 2500;
const double kMaxServings = 6;  // of any one food: some variety

// clang-format off
const std::vector<Food> kFoods = {
    // name      cost   calories protein calcium (mg)
    {"bread",  0.40, {250,     8,      50}},
    {"milk",   0.50, {150,     8,     300}},
    {"cheese", 0.70, {110,     7,     200}},
    {"potato", 0.30, {160,     4,      20}},
    {"fish",   1.50, {200,    22,      30}},
    {"beans",  0.60, {230,    15,      80}},
};
// clang-format on

}  // namespace

int main() {
  try {
    KLOEnv env(true);                     // an unstarted environment ...
    env.set(KLO_IntParam_OutputFlag, 0);  // ... so the log is off from the start
    env.start();
    KLOModel model(env);

    // One continuous variable per food: servings in [0, kMaxServings].
    // Its objective coefficient is the cost of a serving.
    std::vector<KLOVar> servings;
    for (const Food& f : kFoods)
      servings.push_back(model.addVar(0, kMaxServings, f.cost, 'C', f.name));

    // One row per nutrient: sum of servings times content.  Calories are
    // a range (minimum and maximum); the others only have a minimum.
    std::vector<KLOConstr> rows;
    for (int n = 0; n < 3; ++n) {
      KLOLinExpr intake;
      for (std::size_t f = 0; f < kFoods.size(); ++f)
        intake += kFoods[f].nutrients[n] * servings[f];
      if (n == 0)
        rows.push_back(model.addRange(intake, kMinimum[n], kMaxCalories, kNutrients[n]));
      else
        rows.push_back(model.addConstr(intake >= kMinimum[n], kNutrients[n]));
    }

    model.set(KLO_IntAttr_ModelSense, 1);  // minimise the cost
    model.optimize();
    if (model.get(KLO_IntAttr_Status) != 1) {
      std::printf("no optimal diet (status %d)\n", model.get(KLO_IntAttr_Status));
      return 1;
    }

    std::printf("plan:\n");
    for (const KLOVar& v : servings) {
      const double x = v.get(KLO_DoubleAttr_X);
      if (x > 1e-9)
        std::printf("  %-7s %7.4f servings\n", v.get(KLO_StringAttr_VarName).c_str(), x);
    }
    std::printf("cost: %.4f\n", model.get(KLO_DoubleAttr_ObjVal));

    // The dual of a nutrient row is the price of that nutrient at the
    // optimum: how much the cheapest diet's cost rises per extra unit of
    // the requirement.  A requirement that the plan more than meets
    // costs nothing at the margin, so its dual is 0.
    std::printf("nutrient   intake     dual (cost per extra unit)\n");
    for (int n = 0; n < 3; ++n) {
      const KLOConstr& c = rows[n];
      std::printf("  %-8s %9.3f %9.6f\n", c.get(KLO_StringAttr_ConstrName).c_str(),
                  c.get(KLO_DoubleAttr_Activity), c.get(KLO_DoubleAttr_DualSoln));
    }
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
