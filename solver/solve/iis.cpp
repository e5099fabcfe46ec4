#include "solve/iis.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "common/error.h"
#include "common/status_text.h"
#include "klo_c.h"
#include "solve/checked_solve.h"
#include "solve/chooser.h"
#include "solve/optimize.h"
#include "solve/problem_from_model.h"
#include "solve/settings_from_params.h"

namespace klo {
namespace {

constexpr int kMaxNodesPerCheck = 10000;

// One finite bound of a row or a column.
struct Bound {
  bool row;
  int index;
  bool upper;
};

class IisSearch {
 public:
  IisSearch(engine::Problem p, engine::Settings s) : p_(std::move(p)), s_(std::move(s)) {
    std::fill(p_.obj.begin(), p_.obj.end(), 0.0);  // feasibility only
    p_.startValues.clear();
    for (char& t : p_.colType)
      if (t == 'B') t = 'I';  // binaries keep [0, 1] in the engine whatever the bounds
    s_.logLevel = 0;          // hundreds of small solves: no log
    // Without some of their bounds, integer programs can branch for ever:
    // a check that hits this limit proves nothing and keeps its bound.
    s_.maxNodes = std::min(s_.maxNodes, kMaxNodesPerCheck);
  }

  // The members; the problem must be infeasible.
  std::vector<Bound> run() {
    const int status = check();
    if (status == KLO_STATUS_OPTIMAL)
      fail(KLO_ERROR_INVALID_ARGUMENT, "KLOcomputeIIS: the model is feasible");
    if (!proven(status))
      fail(KLO_ERROR_INVALID_ARGUMENT,
           std::string("KLOcomputeIIS: the model could not be proven infeasible (") +
               statusText(status) + ")");
    std::vector<Bound> candidates = fromCertificate();
    std::vector<Bound> members;
    for (const Bound& b : candidates) {
      const double kept = value(b);
      value(b) = b.upper ? KLO_INFINITY : -KLO_INFINITY;
      if (proven(check())) continue;  // not needed
      value(b) = kept;
      members.push_back(b);
    }
    return members;
  }

 private:
  double& value(const Bound& b) {
    if (b.row) return b.upper ? p_.rowUpper[b.index] : p_.rowLower[b.index];
    return b.upper ? p_.colUpper[b.index] : p_.colLower[b.index];
  }

  static bool proven(int status) {
    return status == KLO_STATUS_INFEASIBLE || status == KLO_STATUS_INF_OR_UNBD;
  }

  // The status of a feasibility solve of the problem as it stands.
  int check() {
    engine::Result r = checkedSolve(p_, s_, {}, "KLOcomputeIIS");
    p_.colBasis = r.colBasis;  // the next check starts from here
    p_.rowBasis = r.rowBasis;
    ray_ = r.dualRay;
    return r.status;
  }

  std::vector<Bound> allBounds() const {
    std::vector<Bound> out;
    auto add = [&](bool row, int k, double lo, double up) {
      if (lo > -KLO_INFINITY) out.push_back(Bound{row, k, false});
      if (up < KLO_INFINITY) out.push_back(Bound{row, k, true});
    };
    for (int i = 0; i < p_.numRows(); ++i) add(true, i, p_.rowLower[i], p_.rowUpper[i]);
    for (int j = 0; j < p_.numCols(); ++j) add(false, j, p_.colLower[j], p_.colUpper[j]);
    return out;
  }

  // An LP's Farkas certificate names the bounds it combines: rows with a
  // non-zero multiplier and the columns of the combined row.  The others
  // are dropped at once when the rest is still infeasible.
  std::vector<Bound> fromCertificate() {
    std::vector<Bound> all = allBounds();
    if (ray_.empty() || p_.isMip()) return all;
    std::vector<double> combined(p_.numCols(), 0.0);
    for (int i = 0; i < p_.numRows(); ++i)
      for (int k = p_.start[i]; k < p_.start[i + 1]; ++k)
        combined[p_.index[k]] += ray_[i] * p_.value[k];
    std::vector<Bound> used, unused;
    for (const Bound& b : all) {
      const double w = b.row ? ray_[b.index] : -combined[b.index];
      const bool needed = std::fabs(w) > 1e-9 && (w > 0) != b.upper;
      (needed ? used : unused).push_back(b);
    }
    std::vector<double> kept;
    for (const Bound& b : unused) {
      kept.push_back(value(b));
      value(b) = b.upper ? KLO_INFINITY : -KLO_INFINITY;
    }
    if (proven(check())) return used;
    for (size_t k = 0; k < unused.size(); ++k) value(unused[k]) = kept[k];
    return all;
  }

  engine::Problem p_;
  engine::Settings s_;
  std::vector<double> ray_;
};

void addMember(std::vector<int>& v, int k, bool upper) {
  v[k] |= upper ? KLO_IIS_UPPER : KLO_IIS_LOWER;
}

}  // namespace

void computeIis(KLOmodel& m) {
  BusyModel busy(m, "KLOcomputeIIS");
  engine::Problem p = problemFromModel(m.data);
  chooseEngine(p, "KLOcomputeIIS");  // refuses before any work
  p.columnMajor = false;
  IisSearch search(std::move(p), settingsFromParams(m.env));
  const std::vector<Bound> members = search.run();
  std::vector<int> cols(m.data.numVars(), KLO_IIS_NONE), rows(m.data.numRows(), KLO_IIS_NONE);
  for (const Bound& b : members) addMember(b.row ? rows : cols, b.index, b.upper);
  m.results.iisCol.swap(cols);
  m.results.iisRow.swap(rows);
}

}  // namespace klo
