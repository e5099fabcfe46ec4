#include "solve/problem_from_model.h"

#include <algorithm>

#include "klo_c.h"

namespace klo {
namespace {

void addRows(engine::Problem& p, const ModelData& d) {
  p.columnMajor = false;  // the store keeps rows: no transposition needed
  size_t nnz = 0;
  for (const Row& r : d.rows) nnz += r.lin.ind.size();
  p.index.reserve(nnz);
  p.value.reserve(nnz);
  p.start.reserve(d.rows.size() + 1);
  p.rowLower.reserve(d.rows.size());
  p.rowUpper.reserve(d.rows.size());
  for (const Row& r : d.rows) {
    p.rowLower.push_back(r.lower);
    p.rowUpper.push_back(r.upper);
    p.index.insert(p.index.end(), r.lin.ind.begin(), r.lin.ind.end());
    p.value.insert(p.value.end(), r.lin.val.begin(), r.lin.val.end());
    p.start.push_back(static_cast<int>(p.index.size()));
  }
}

// Ends a row whose entries were just appended.
void closeRow(engine::Problem& p, double lower, double upper) {
  p.start.push_back(static_cast<int>(p.index.size()));
  p.rowLower.push_back(lower);
  p.rowUpper.push_back(upper);
}

engine::QuadTerms quadTerms(const QuadTerms& q) { return engine::QuadTerms{q.row, q.col, q.val}; }

engine::SymMatrix symMatrix(const SymMatrix& m) { return engine::SymMatrix{m.pos, m.val}; }

// Quadratic and PSD terms of rows, PSD variables, the objective's
// quadratic terms: the store keeps them in the engines' convention already.
void addNonlinear(engine::Problem& p, const ModelData& d) {
  p.objQuad = quadTerms(d.qobj);
  for (int i = 0; i < d.numRows(); ++i) {
    const Row& r = d.rows[i];
    if (r.hasQuad())
      p.quadRows.push_back(engine::QuadRow{i, quadTerms(r.nl->quad), d.rowNames.get(i)});
    if (r.hasPsd())
      for (const PsdTerm& t : r.nl->psd)
        p.psdTerms.push_back(engine::PsdTerm{i, t.psdVar, symMatrix(t.mat)});
  }
  for (const PsdVar& v : d.psdVars) p.psdVars.push_back(engine::PsdVar{v.dim, symMatrix(v.obj)});
}

void addIndicators(engine::Problem& p, const ModelData& d) {
  for (const Indicator& g : d.indicators) {
    const char sense = g.sense == '>' || g.sense == '=' ? g.sense : '<';
    p.indicators.push_back(
        engine::IndicatorRow{g.binVar, g.binVal, g.lin.ind, g.lin.val, sense, g.rhs});
  }
}

void addStart(engine::Problem& p, const ModelData& d) {
  auto set = [](double v) { return v < KLO_UNDEFINED; };
  if (std::none_of(d.start.begin(), d.start.end(), set)) return;
  p.startValues = d.start;
  for (double& v : p.startValues)
    if (!set(v)) v = KLO_UNDEFINED;
}

void addBasis(engine::Problem& p, const ModelData& d) {
  const bool user = !d.colBasis.empty() || !d.rowBasis.empty();
  p.colBasis = user ? d.colBasis : d.lastColBasis;
  p.rowBasis = user ? d.rowBasis : d.lastRowBasis;
}

}  // namespace

engine::Problem problemFromModel(const ModelData& d) {
  engine::Problem p;
  p.obj = d.obj();
  p.colLower = d.lb;
  p.colUpper = d.ub;
  p.colType = d.type;
  addRows(p, d);
  p.sense = d.sense;
  p.objConstant = d.objectives[0].constant;
  addNonlinear(p, d);
  for (const Sos& s : d.sos) p.sos.push_back(engine::SosSet{s.type, s.members, s.weights});
  addIndicators(p, d);
  addStart(p, d);
  addBasis(p, d);
  return p;
}

void appendDenseRow(engine::Problem& p, const std::vector<double>& coef, double lower,
                    double upper) {
  for (size_t j = 0; j < coef.size(); ++j) {
    if (coef[j] == 0.0) continue;
    p.index.push_back(static_cast<int>(j));
    p.value.push_back(coef[j]);
  }
  closeRow(p, lower, upper);
}

void appendSparseRow(engine::Problem& p, const std::vector<std::pair<int, double>>& terms,
                     double lower, double upper) {
  for (const auto& [j, a] : terms) {
    p.index.push_back(j);
    p.value.push_back(a);
  }
  closeRow(p, lower, upper);
}

}  // namespace klo
