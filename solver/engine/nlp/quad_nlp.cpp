#include "engine/nlp/quad_nlp.h"

#include <algorithm>
#include <unordered_map>

#include "klo_c.h"

namespace klo::engine {
namespace {

// The Hessian positions, found by (row, column) of the lower triangle.
class HessianIndex {
 public:
  HessianIndex(int n, std::vector<int>& rows, std::vector<int>& cols)
      : n_(n), rows_(rows), cols_(cols) {}
  int at(int i, int j) {
    const int r = std::max(i, j), c = std::min(i, j);
    const long long key = static_cast<long long>(r) * n_ + c;
    auto [it, added] = pos_.emplace(key, static_cast<int>(rows_.size()));
    if (added) {
      rows_.push_back(r);
      cols_.push_back(c);
    }
    return it->second;
  }

 private:
  int n_;
  std::vector<int>& rows_;
  std::vector<int>& cols_;
  std::unordered_map<long long, int> pos_;
};

}  // namespace

QuadNlp::QuadNlp(const Problem& p) : p_(p), n_(p.numCols()), m_(p.numRows()) {
  // The linear matrix by rows, whichever way it came.
  rowStart_.assign(static_cast<size_t>(m_) + 1, 0);
  const int majors = static_cast<int>(p.start.size()) - 1;
  if (p.columnMajor) {
    for (int k = 0; k < majors; ++k)
      for (int e = p.start[k]; e < p.start[k + 1]; ++e) ++rowStart_[p.index[e] + 1];
    for (int i = 0; i < m_; ++i) rowStart_[i + 1] += rowStart_[i];
    rowCol_.resize(static_cast<size_t>(rowStart_[m_]));
    rowVal_.resize(rowCol_.size());
    std::vector<int> fill(rowStart_.begin(), rowStart_.end() - 1);
    for (int k = 0; k < majors; ++k)
      for (int e = p.start[k]; e < p.start[k + 1]; ++e) {
        const int at = fill[p.index[e]]++;
        rowCol_[at] = k;
        rowVal_[at] = p.value[e];
      }
  } else {
    for (int i = 0; i < m_ && i < majors; ++i) rowStart_[i + 1] = p.start[i + 1] - p.start[0];
    for (int i = majors; i < m_; ++i) rowStart_[i + 1] = rowStart_[i];
    rowCol_.assign(p.index.begin() + p.start[0], p.index.begin() + p.start[0] + rowStart_[m_]);
    rowVal_.assign(p.value.begin() + p.start[0], p.value.begin() + p.start[0] + rowStart_[m_]);
  }

  // The Jacobian, row by row: each column of a row once, linear or not.
  HessianIndex hes(n_, hesRow_, hesCol_);
  rowQuad_.assign(static_cast<size_t>(m_), 0);
  std::vector<int> mark(static_cast<size_t>(n_), -1), pos(static_cast<size_t>(n_), 0);
  auto place = [&](int i, int col) {
    if (mark[col] != i) {
      mark[col] = i;
      pos[col] = static_cast<int>(jacRow_.size());
      jacRow_.push_back(i);
      jacCol_.push_back(col);
      jacConst_.push_back(0.0);
    }
    return pos[col];
  };
  size_t q = 0;
  for (int i = 0; i < m_; ++i) {
    jacStart_.push_back(static_cast<int>(jacRow_.size()));
    termStart_.push_back(static_cast<int>(rowTerms_.size()));
    for (int e = rowStart_[i]; e < rowStart_[i + 1]; ++e)
      jacConst_[place(i, rowCol_[e])] += rowVal_[e];
    while (q < p.quadRows.size() && p.quadRows[q].row < i) ++q;
    if (q == p.quadRows.size() || p.quadRows[q].row != i) continue;
    const QuadTerms& t = p.quadRows[q].terms;
    rowQuad_[i] = t.size() > 0;
    for (int k = 0; k < t.size(); ++k) {
      const int a = place(i, t.row[k]), b = place(i, t.col[k]);
      rowTerms_.push_back(
          TermPos{a, b, t.row[k], t.col[k], t.val[k], hes.at(t.row[k], t.col[k]), i});
    }
  }
  jacStart_.push_back(static_cast<int>(jacRow_.size()));
  termStart_.push_back(static_cast<int>(rowTerms_.size()));
  const QuadTerms& o = p.objQuad;
  for (int k = 0; k < o.size(); ++k)
    objTerms_.push_back(
        TermPos{-1, -1, o.row[k], o.col[k], o.val[k], hes.at(o.row[k], o.col[k]), -1});
  colQuad_.assign(static_cast<size_t>(n_), 0);
  for (const std::vector<TermPos>* terms : {&rowTerms_, &objTerms_})
    for (const TermPos& t : *terms) colQuad_[t.i] = colQuad_[t.j] = 1;
}

double QuadNlp::objective(const double* x) const {
  double f = p_.objConstant;
  for (int j = 0; j < n_; ++j) f += p_.obj[j] * x[j];
  for (const TermPos& t : objTerms_) f += t.v * x[t.i] * x[t.j];
  return p_.sense * f;
}

void QuadNlp::objectiveGradient(const double* x, double* grad) const {
  for (int j = 0; j < n_; ++j) grad[j] = p_.sense * p_.obj[j];
  for (const TermPos& t : objTerms_) {
    grad[t.i] += p_.sense * t.v * x[t.j];
    grad[t.j] += p_.sense * t.v * x[t.i];
  }
}

void QuadNlp::rowValues(const double* x, double* g) const {
  for (int i = 0; i < m_; ++i) {
    double v = 0.0;
    for (int e = rowStart_[i]; e < rowStart_[i + 1]; ++e) v += rowVal_[e] * x[rowCol_[e]];
    g[i] = v;
  }
  for (const TermPos& t : rowTerms_) g[t.row] += t.v * x[t.i] * x[t.j];
}

void QuadNlp::jacobian(const double* x, double* values) const {
  std::copy(jacConst_.begin(), jacConst_.end(), values);
  for (const TermPos& t : rowTerms_) {
    // d(v x_i x_j)/dx_i = v x_j and d/dx_j = v x_i; on the diagonal 2 v x_i.
    values[t.a] += t.v * x[t.j];
    values[t.b] += t.v * x[t.i];
  }
}

double QuadNlp::rowValue(int i, const double* x) const {
  double v = 0.0;
  for (int e = rowStart_[i]; e < rowStart_[i + 1]; ++e) v += rowVal_[e] * x[rowCol_[e]];
  for (int k = termStart_[i]; k < termStart_[i + 1]; ++k) {
    const TermPos& t = rowTerms_[k];
    v += t.v * x[t.i] * x[t.j];
  }
  return v;
}

void QuadNlp::rowGradient(int i, const double* x, double* values) const {
  const int first = jacStart_[i];
  std::copy(jacConst_.begin() + first, jacConst_.begin() + jacStart_[i + 1], values);
  for (int k = termStart_[i]; k < termStart_[i + 1]; ++k) {
    const TermPos& t = rowTerms_[k];
    values[t.a - first] += t.v * x[t.j];
    values[t.b - first] += t.v * x[t.i];
  }
}

void QuadNlp::hessian(double objFactor, const double* lambda, double* values) const {
  std::fill(values, values + hessianSize(), 0.0);
  for (const TermPos& t : objTerms_)
    values[t.hessian] += objFactor * p_.sense * (t.i == t.j ? 2.0 : 1.0) * t.v;
  if (!lambda) return;
  for (const TermPos& t : rowTerms_)
    values[t.hessian] += lambda[t.row] * (t.i == t.j ? 2.0 : 1.0) * t.v;
}

std::vector<double> QuadNlp::startPoint() const {
  std::vector<double> x(static_cast<size_t>(n_), 0.0);
  for (int j = 0; j < n_; ++j) {
    const bool given = static_cast<int>(p_.startValues.size()) > j &&
                       p_.startValues[j] > -KLO_INFINITY && p_.startValues[j] < KLO_INFINITY;
    const double v = given ? p_.startValues[j] : 0.0;
    x[j] = std::min(std::max(v, p_.colLower[j]), p_.colUpper[j]);
  }
  return x;
}

std::vector<double> QuadNlp::duals(const double* lambda) const {
  std::vector<double> y(static_cast<size_t>(m_));
  for (int i = 0; i < m_; ++i) y[i] = lambda[i] == 0.0 ? 0.0 : -p_.sense * lambda[i];
  return y;
}

std::vector<double> QuadNlp::reducedCosts(const double* x, const std::vector<double>& y) const {
  std::vector<double> d(static_cast<size_t>(n_));
  objectiveGradient(x, d.data());
  for (double& v : d) v *= p_.sense;  // the model's own gradient
  std::vector<double> jac(jacConst_.size());
  jacobian(x, jac.data());
  for (size_t k = 0; k < jac.size(); ++k) d[jacCol_[k]] -= y[jacRow_[k]] * jac[k];
  return d;
}

void QuadNlp::jacobianCall(const double* x, int* rows, int* cols, double* values) const {
  if (values) return jacobian(x, values);
  std::copy(jacRow_.begin(), jacRow_.end(), rows);
  std::copy(jacCol_.begin(), jacCol_.end(), cols);
}

void QuadNlp::hessianCall(double objFactor, const double* lambda, int* rows, int* cols,
                          double* values) const {
  if (values) return hessian(objFactor, lambda, values);
  std::copy(hesRow_.begin(), hesRow_.end(), rows);
  std::copy(hesCol_.begin(), hesCol_.end(), cols);
}

}  // namespace klo::engine
