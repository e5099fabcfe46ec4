// Builds small engine problems row by row for the tests.
#pragma once

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/engine.h"

namespace klo::engine::test {

constexpr double kInf = 1e20;

class ProblemBuilder {
 public:
  explicit ProblemBuilder(int sense = 1) {
    p_.sense = sense;
    p_.columnMajor = false;
  }
  int col(double obj, double lower, double upper, char type = 'C') {
    p_.obj.push_back(obj);
    p_.colLower.push_back(lower);
    p_.colUpper.push_back(upper);
    p_.colType.push_back(type);
    return p_.numCols() - 1;
  }
  int row(const std::vector<std::pair<int, double>>& terms, double lower, double upper) {
    for (const auto& t : terms) {
      p_.index.push_back(t.first);
      p_.value.push_back(t.second);
    }
    p_.start.push_back(static_cast<int>(p_.index.size()));
    p_.rowLower.push_back(lower);
    p_.rowUpper.push_back(upper);
    return p_.numRows() - 1;
  }
  // Adds v * x_i * x_j to the objective (i <= j, no factor 1/2).
  void objQuad(int i, int j, double v) {
    p_.objQuad.row.push_back(i);
    p_.objQuad.col.push_back(j);
    p_.objQuad.val.push_back(v);
  }
  // Adds v * x_i * x_j to row r (rows with quadratic terms are added in
  // increasing order).
  void rowQuad(int r, int i, int j, double v) {
    if (p_.quadRows.empty() || p_.quadRows.back().row != r)
      p_.quadRows.push_back(QuadRow{r, {}, ""});
    QuadTerms& t = p_.quadRows.back().terms;
    t.row.push_back(i);
    t.col.push_back(j);
    t.val.push_back(v);
  }
  // A PSD variable of dimension dim; entries of its objective and of its
  // terms in rows are (r, c, value) with r <= c, upper triangle.
  using Entries = std::vector<std::tuple<int, int, double>>;
  int psdVar(int dim, const Entries& obj = {}) {
    p_.psdVars.push_back(PsdVar{dim, symmetric(dim, obj)});
    return static_cast<int>(p_.psdVars.size()) - 1;
  }
  void psdTerm(int row, int var, const Entries& e) {
    p_.psdTerms.push_back(PsdTerm{row, var, symmetric(p_.psdVars[var].dim, e)});
  }
  static SymMatrix symmetric(int dim, const Entries& e) {
    SymMatrix m;
    for (const auto& [r, c, v] : e) {
      m.pos.push_back(r * dim + c);
      m.val.push_back(v);
    }
    return m;
  }
  void sos(int type, const std::vector<int>& members, const std::vector<double>& weights) {
    p_.sos.push_back(SosSet{type, members, weights});
  }
  Problem& problem() { return p_; }

 private:
  Problem p_;
};

// Settings that keep the engine quiet, with the log collected in lines.
inline Settings quietSettings(std::vector<std::string>* lines = nullptr) {
  Settings s;
  s.logLevel = lines ? 1 : 0;
  if (lines) s.log = [lines](const std::string& l) { lines->push_back(l); };
  return s;
}

// Reads an MPS file (optionally gzipped) with CoinMpsIO into a Problem.
Problem readMpsProblem(const std::string& path);
// The shared instance of that name (index.csv's name column).
Problem readInstance(const std::string& name);

// max 10a + 13b + 7c + 8d + 4e  s.t.  3a + 4b + 2c + 3d + e <= 7, binary.
// The sets that fit: a+b 23, b+d 21, a+d+e 22, a+c+e 21, b+c+e 24 (weight
// 7), c+d+e 19 -> optimum b, c, e with 24; without b, a+d+e with 22.
Problem knapsack();

}  // namespace klo::engine::test
