// Cutting stock by column generation (Gilmore and Gomory).  Rolls of width
// 100 are cut into pieces of four widths to meet the demand for each; every
// way of cutting a roll (a pattern) is a column.  There are too many
// patterns to list, so we:
//   1. solve a restricted master LP over a few patterns,
//   2. price: find the pattern whose pieces are worth most at the master's
//      dual prices (a knapsack, solved here as a small MIP with klo),
//   3. if it is worth more than the roll it uses, add it as a new column
//      and re-solve the master, which starts from the previous basis (a
//      warm start: few simplex iterations), and repeat;
//   4. finally solve the master over the patterns found with integer
//      numbers of rolls.
#include <klo_cpp.h>

#include <cmath>
#include <cstdio>
#include <iostream>
#include <vector>

namespace {

const double kRollWidth = 100;
const int kItems = 4;
const double kWidth[kItems] = {45, 36, 31, 14};
const double kDemand[kItems] = {97, 610, 395, 211};

// The pricing problem: choose how many pieces of each width to cut from one
// roll so that their total dual value is largest.
class Pricing {
 public:
  explicit Pricing(const KLOEnv& env) : model_(env) {
    KLOLinExpr width;
    for (int i = 0; i < kItems; ++i) {
      pieces_.push_back(model_.addVar(0, std::floor(kRollWidth / kWidth[i]), 0, 'I'));
      width += kWidth[i] * pieces_[i];
    }
    model_.addConstr(width <= kRollWidth, "roll");
    model_.set(KLO_IntAttr_ModelSense, -1);  // maximise the value of the pieces
    // The default gap (1e-4) could stop short of the best pattern and so
    // end the generation too early: ask for the proven optimum.
    model_.set(KLO_DoubleParam_MIP_GapRel, 0.0);
  }

  // The best pattern at these prices; its value goes to *value.
  std::vector<double> best(const std::vector<double>& prices, double* value) {
    for (int i = 0; i < kItems; ++i) pieces_[i].set(KLO_DoubleAttr_Obj, prices[i]);
    model_.optimize();
    *value = model_.get(KLO_DoubleAttr_ObjVal);
    std::vector<double> pattern;
    for (const KLOVar& v : pieces_) pattern.push_back(std::round(v.get(KLO_DoubleAttr_X)));
    return pattern;
  }

 private:
  KLOModel model_;
  std::vector<KLOVar> pieces_;
};

// A pattern as a column of the master: pattern[i] pieces for demand row i.
KLOColumn columnOf(const std::vector<double>& pattern, const std::vector<KLOConstr>& demand) {
  KLOColumn col;
  for (int i = 0; i < kItems; ++i)
    if (pattern[i] > 0) col.addTerm(pattern[i], demand[i]);
  return col;
}

void printPattern(const std::vector<double>& pattern) {
  for (int i = 0; i < kItems; ++i)
    if (pattern[i] > 0) std::printf(" %gx%g", pattern[i], kWidth[i]);
}

}  // namespace

int main() {
  try {
    KLOEnv env(true);
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();

    // The master: one row per width (pieces cut >= demand), one column per
    // pattern (rolls cut that way), minimise the rolls used.  The rows
    // start empty; columns bring their coefficients.
    KLOModel master(env);
    std::vector<KLOConstr> demand;
    for (int i = 0; i < kItems; ++i)
      demand.push_back(master.addConstr(KLOLinExpr(), '>', kDemand[i]));
    master.set(KLO_IntAttr_ModelSense, 1);

    // Start with the patterns that cut as many pieces of one width as fit.
    std::vector<KLOVar> rolls;
    std::vector<std::vector<double>> patterns;
    for (int i = 0; i < kItems; ++i) {
      std::vector<double> pattern(kItems, 0.0);
      pattern[i] = std::floor(kRollWidth / kWidth[i]);
      rolls.push_back(master.addVar(0, 1e20, 1.0, 'C', columnOf(pattern, demand)));
      patterns.push_back(pattern);
    }

    Pricing pricing(env);
    for (int round = 1;; ++round) {
      master.optimize();
      // "SPX/NumIters" counts the last solve's simplex iterations: after
      // the first round the master starts from the basis it ended with.
      // For comparison, a copy without that basis (reset(1) forgets
      // it) solves from scratch.
      KLOModel cold(master);
      cold.reset(1);
      cold.optimize();
      std::printf("round %d: master LP %.4f rolls, %d simplex iterations (%d from scratch)\n",
                  round, master.get(KLO_DoubleAttr_ObjVal), master.get(KLO_IntAttr_SPX_NumIters),
                  cold.get(KLO_IntAttr_SPX_NumIters));

      std::vector<double> prices;
      for (const KLOConstr& c : demand) prices.push_back(c.get(KLO_DoubleAttr_DualSoln));
      double value = 0;
      const std::vector<double> pattern = pricing.best(prices, &value);
      // A pattern costs one roll; it helps only if its pieces are worth
      // more than that (its reduced cost 1 - value is negative).
      if (value <= 1 + 1e-9) break;
      std::printf("  new pattern worth %.4f:", value);
      printPattern(pattern);
      std::printf("\n");
      rolls.push_back(master.addVar(0, 1e20, 1.0, 'C', columnOf(pattern, demand)));
      patterns.push_back(pattern);
    }
    const double bound = master.get(KLO_DoubleAttr_ObjVal);
    std::printf("LP optimum over all patterns: %.4f rolls\n", bound);

    // Whole rolls: make the columns integer and solve the master as a MIP.
    // Its optimum over these patterns is an upper bound; the LP bound
    // rounded up is a lower bound on any cutting plan.
    for (const KLOVar& v : rolls) v.set(KLO_CharAttr_VType, 'I');
    master.optimize();
    const double used = master.get(KLO_DoubleAttr_ObjVal);
    std::printf("integer plan: %g rolls\n", used);
    for (std::size_t p = 0; p < rolls.size(); ++p) {
      const double n = std::round(rolls[p].get(KLO_DoubleAttr_X));
      if (n < 1) continue;
      std::printf("  %4g rolls cut as", n);
      printPattern(patterns[p]);
      std::printf("\n");
    }
    if (used <= std::ceil(bound - 1e-6))
      std::printf("optimal: no plan uses fewer than %g rolls\n", std::ceil(bound - 1e-6));
    else
      std::printf("at most %g rolls above the best possible\n", used - std::ceil(bound - 1e-6));
    return 0;
  } catch (const KLOException& e) {
    std::cerr << "error " << e.getErrorCode() << ": " << e.getMessage() << "\n";
    return 1;
  }
}
