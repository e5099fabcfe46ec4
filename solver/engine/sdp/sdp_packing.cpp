#include "engine/sdp/sdp_packing.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace klo::engine {
namespace {

bool finite(double v) { return std::fabs(v) < KLO_INFINITY; }

// Sorted by block, column, row; repeated entries summed, zeros dropped.
void normalise(std::vector<SdpEntry>& e) {
  std::sort(e.begin(), e.end(), [](const SdpEntry& a, const SdpEntry& b) {
    return std::tie(a.block, a.j, a.i) < std::tie(b.block, b.j, b.i);
  });
  std::vector<SdpEntry> out;
  for (const SdpEntry& x : e) {
    if (!out.empty() && out.back().block == x.block && out.back().i == x.i && out.back().j == x.j)
      out.back().val += x.val;
    else
      out.push_back(x);
  }
  out.erase(std::remove_if(out.begin(), out.end(), [](const SdpEntry& x) { return x.val == 0.0; }),
            out.end());
  e.swap(out);
}

class Packer {
 public:
  explicit Packer(const Problem& p) : p_(p), diag_(static_cast<int>(p.psdVars.size())) {}

  SdpForm run() {
    f_.sense = p_.sense;
    for (const PsdVar& v : p_.psdVars) f_.blockSizes.push_back(v.dim);
    packColumns();
    packRows();
    packObjective();
    for (size_t k = 0; k < extra_.size(); ++k) addConstraint(std::move(extra_[k]), extraRhs_[k]);
    if (scalars_ > 0) {
      f_.diagonalBlock = diag_;
      f_.blockSizes.push_back(scalars_);
    }
    return std::move(f_);
  }

 private:
  int scalar() { return scalars_++; }
  SdpEntry onScalar(int s, double val) const { return SdpEntry{diag_, s, s, val}; }

  // s + t = width: a scalar s kept within [0, width].
  void boundAbove(int s, double width) {
    extra_.push_back({onScalar(s, 1.0), onScalar(scalar(), 1.0)});
    extraRhs_.push_back(width);
  }

  void packColumns() {
    for (int j = 0; j < p_.numCols(); ++j) {
      const double l = p_.colLower[j], u = p_.colUpper[j];
      SdpForm::Column c;
      if (finite(l) && l == u) {
        c.base = l;
      } else if (finite(l)) {
        c.base = l;
        c.plus = scalar();
        if (finite(u)) boundAbove(c.plus, u - l);
      } else if (finite(u)) {
        c.base = u;
        c.minus = scalar();
      } else {
        c.plus = scalar();
        c.minus = scalar();
      }
      f_.columns.push_back(c);
    }
  }

  // Each row's terms over the scalars and the PSD blocks, and the constant
  // the fixed parts of its columns add.
  void gatherRows(std::vector<std::vector<SdpEntry>>& terms, std::vector<double>& shift) const {
    const int majors = static_cast<int>(p_.start.size()) - 1;
    for (int k = 0; k < majors; ++k)
      for (int e = p_.start[k]; e < p_.start[k + 1]; ++e) {
        const int row = p_.columnMajor ? p_.index[e] : k, col = p_.columnMajor ? k : p_.index[e];
        const SdpForm::Column& c = f_.columns[col];
        const double a = p_.value[e];
        if (c.plus >= 0) terms[row].push_back(onScalar(c.plus, a));
        if (c.minus >= 0) terms[row].push_back(onScalar(c.minus, -a));
        shift[row] += a * c.base;
      }
    for (const PsdTerm& t : p_.psdTerms) {
      const int dim = p_.psdVars[t.psdVar].dim;
      for (size_t q = 0; q < t.mat.pos.size(); ++q)
        terms[t.row].push_back(
            SdpEntry{t.psdVar, t.mat.pos[q] / dim, t.mat.pos[q] % dim, t.mat.val[q]});
    }
  }

  void packRows() {
    const int m = p_.numRows();
    std::vector<std::vector<SdpEntry>> terms(m);
    std::vector<double> shift(m, 0.0);
    gatherRows(terms, shift);
    f_.rowConstraint.assign(m, -1);
    for (int r = 0; r < m; ++r) packRow(r, std::move(terms[r]), shift[r]);
  }

  void packRow(int r, std::vector<SdpEntry> e, double shift) {
    const double l = p_.rowLower[r], u = p_.rowUpper[r];
    if (!finite(l) && !finite(u)) return;
    const double lo = l - shift, up = u - shift;
    normalise(e);
    if (finite(l) && l == u) {
      if (e.empty()) {
        if (std::fabs(lo) > 1e-9 * (1.0 + std::fabs(l))) f_.emptyInfeasibleRow = r;
        return;
      }
      f_.rowConstraint[r] = addConstraint(std::move(e), lo);
      return;
    }
    const int slack = scalar();
    e.push_back(onScalar(slack, finite(l) ? -1.0 : 1.0));
    f_.rowConstraint[r] = addConstraint(std::move(e), finite(l) ? lo : up);
    if (finite(l) && finite(u)) boundAbove(slack, u - l);
  }

  void packObjective() {
    const double flip = -p_.sense;
    for (size_t k = 0; k < p_.psdVars.size(); ++k) {
      const PsdVar& v = p_.psdVars[k];
      for (size_t q = 0; q < v.obj.pos.size(); ++q)
        f_.objective.push_back(SdpEntry{static_cast<int>(k), v.obj.pos[q] / v.dim,
                                        v.obj.pos[q] % v.dim, flip * v.obj.val[q]});
    }
    f_.offset = p_.objConstant;
    for (int j = 0; j < p_.numCols(); ++j) {
      const SdpForm::Column& c = f_.columns[j];
      if (c.plus >= 0) f_.objective.push_back(onScalar(c.plus, flip * p_.obj[j]));
      if (c.minus >= 0) f_.objective.push_back(onScalar(c.minus, -flip * p_.obj[j]));
      f_.offset += p_.obj[j] * c.base;
    }
    normalise(f_.objective);
  }

  int addConstraint(std::vector<SdpEntry> e, double rhs) {
    normalise(e);
    f_.constraints.push_back(std::move(e));
    f_.rhs.push_back(rhs);
    return static_cast<int>(f_.rhs.size()) - 1;
  }

  const Problem& p_;
  const int diag_;  // the diagonal block comes after the matrix blocks
  int scalars_ = 0;
  std::vector<std::vector<SdpEntry>> extra_;  // s + t = width rows, added last
  std::vector<double> extraRhs_;
  SdpForm f_;
};

}  // namespace

SdpForm packSdp(const Problem& p) { return Packer(p).run(); }

std::vector<double> unpackColumns(const SdpForm& f, const std::vector<double>& diagonal) {
  std::vector<double> x;
  x.reserve(f.columns.size());
  for (const SdpForm::Column& c : f.columns)
    x.push_back(c.base + (c.plus >= 0 ? diagonal[c.plus] : 0.0) -
                (c.minus >= 0 ? diagonal[c.minus] : 0.0));
  return x;
}

std::vector<double> unpackDuals(const SdpForm& f, const std::vector<double>& y) {
  std::vector<double> duals;
  duals.reserve(f.rowConstraint.size());
  for (int c : f.rowConstraint) duals.push_back(c >= 0 ? -f.sense * y[c] : 0.0);
  return duals;
}

}  // namespace klo::engine
