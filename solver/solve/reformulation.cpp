#include "solve/reformulation.h"

#include <memory>
#include <utility>

#include "klo_c.h"

namespace klo {
namespace {

// Forwards to the engine's actions, completing proposals with the added
// columns.
class ModelActions : public engine::CallbackActions {
 public:
  ModelActions(engine::CallbackActions& inner, const Reformulation& f) : inner_(inner), f_(f) {}
  int proposeSolution(const double* x, double* objective) override {
    std::vector<double> full(x, x + f_.modelCols);
    full.resize(f_.problemCols, KLO_UNDEFINED);
    f_.complete(full);
    return inner_.proposeSolution(full.data(), objective);
  }
  int addCut(int len, const int* ind, const double* val, char sense, double rhs) override {
    return inner_.addCut(len, ind, val, sense, rhs);
  }
  int branch(int column, double value, int dir) override {
    return inner_.branch(column, value, dir);
  }

 private:
  engine::CallbackActions& inner_;
  const Reformulation& f_;
};

}  // namespace

void Reformulation::complete(std::vector<double>& x) const {
  completeSwitches(switches, x);
  completeIndicatorColumns(indicators, x);
}

Reformulation reformulate(engine::Problem& p, double bigM, bool indicatorBigM) {
  Reformulation f;
  f.modelCols = p.numCols();
  f.modelRows = p.numRows();
  f.switches = switchSemicontinuous(p, bigM);
  f.indicators = linearizeIndicators(p, bigM, indicatorBigM);
  f.problemCols = p.numCols();
  return f;
}

void checkReformulated(const Reformulation& f, engine::Result& r, const engine::Settings& s) {
  checkSwitchedColumns(f.switches, r, s);
  checkIndicators(f.indicators, r, s);
}

engine::Callback modelCallback(engine::Callback cb, const Reformulation& f, const ModelData& d) {
  if (!cb || f.empty()) return cb;
  const int numRows = d.numRows(), numIntVars = d.countTypes("BIN");
  return [cb = std::move(cb), f, numRows, numIntVars](engine::CallbackContext& ctx) {
    engine::CallbackContext shown = ctx;
    shown.numVars = f.modelCols;
    shown.numRows = numRows;
    shown.numIntVars = numIntVars;
    std::unique_ptr<ModelActions> actions;
    if (ctx.actions) actions = std::make_unique<ModelActions>(*ctx.actions, f);
    shown.actions = actions.get();
    return cb(shown);
  };
}

}  // namespace klo
