#include "solve/iis.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "common/error.h"
#include "common/status_text.h"
#include "klo_c.h"
#include "solve/answer_check.h"
#include "solve/checked_solve.h"
#include "solve/chooser.h"
#include "solve/optimize.h"
#include "solve/parity_proof.h"
#include "solve/problem_from_model.h"
#include "solve/reformulation.h"
#include "solve/settings_from_params.h"

namespace klo {
namespace {

constexpr int kMaxNodesPerCheck = 10000;

// One finite bound of a model row or column, and the places of the
// rewritten problem that hold it, with what each takes when it is dropped.
struct Bound {
  bool row;
  int index;
  bool upper;
  std::vector<std::pair<double*, double>> drops;
  std::vector<double> kept;
};

// What a check found.
enum class Verdict { Infeasible, Feasible, Unknown };

class IisSearch {
 public:
  IisSearch(engine::Problem p, const Reformulation& f, engine::Settings s, double bigM)
      : p_(std::move(p)), f_(f), s_(std::move(s)), bigM_(bigM) {
    std::fill(p_.obj.begin(), p_.obj.end(), 0.0);  // feasibility only
    p_.startValues.clear();
    // A binary's bounds count where they narrow [0, 1], and return to it
    // when dropped; as 'I' the engine sees them (it keeps 'B' in [0, 1]).
    for (int j = 0; j < p_.numCols(); ++j) {
      binary_.push_back(p_.colType[j] == KLO_BINARY);
      if (!binary_[j]) continue;
      p_.colType[j] = KLO_INTEGER;
      p_.colLower[j] = std::max(p_.colLower[j], 0.0);
      p_.colUpper[j] = std::min(p_.colUpper[j], 1.0);
    }
    s_.logLevel = 0;  // hundreds of small solves: no log
    // Without some of their bounds, integer programs can branch for ever:
    // a check that hits this limit proves nothing and keeps its bound.
    s_.maxNodes = std::min(s_.maxNodes, kMaxNodesPerCheck);
  }

  // The members; the problem must be infeasible.
  std::vector<Bound> run() {
    const Verdict first = check();
    if (first == Verdict::Feasible)
      fail(KLO_ERROR_INVALID_ARGUMENT, "KLOcomputeIIS: the model is feasible");
    if (first == Verdict::Unknown)
      fail(KLO_ERROR_INVALID_ARGUMENT,
           std::string("KLOcomputeIIS: the model could not be proven infeasible (") +
               statusText(lastStatus_) + ")");
    std::vector<Bound> candidates = fromCertificate();
    std::vector<Bound> members;
    for (size_t k = 0; k < candidates.size(); ++k) {
      Bound& b = candidates[k];
      if (s_.timeLeft() <= 0) {  // out of time: the rest stay, unproven
        members.insert(members.end(), candidates.begin() + k, candidates.end());
        minimal_ = false;
        break;
      }
      drop(b);
      const Verdict v = check();
      if (v == Verdict::Infeasible) continue;  // not needed
      restore(b);
      members.push_back(b);
      if (v == Verdict::Unknown) minimal_ = false;
    }
    return members;
  }

  // Whether every member was proven needed.
  bool minimal() const { return minimal_; }

 private:
  void drop(Bound& b) {
    b.kept.clear();
    for (auto& [at, dropped] : b.drops) {
      b.kept.push_back(*at);
      *at = dropped;
    }
  }
  void restore(Bound& b) {
    for (size_t k = 0; k < b.drops.size(); ++k) *b.drops[k].first = b.kept[k];
  }

  Verdict check() {
    if (!p_.isMip()) return solved(p_);
    if (rowWithoutIntegerSolution(p_) >= 0) return Verdict::Infeasible;
    engine::Problem relaxed = p_;  // infeasible without integrality: cheap proof
    std::fill(relaxed.colType.begin(), relaxed.colType.end(), KLO_CONTINUOUS);
    relaxed.sos.clear();
    if (solved(relaxed) == Verdict::Infeasible) return Verdict::Infeasible;
    return solved(p_);
  }

  // A feasibility solve of q.
  Verdict solved(const engine::Problem& q) {
    engine::Result r = checkedSolve(q, s_, {}, "KLOcomputeIIS");
    lastStatus_ = r.status;
    if (!q.isMip()) {
      p_.colBasis = r.colBasis;  // the next check starts from here
      p_.rowBasis = r.rowBasis;
      ray_ = r.dualRay;
    }
    if (r.status == KLO_STATUS_INFEASIBLE || r.status == KLO_STATUS_INF_OR_UNBD)
      return Verdict::Infeasible;
    return r.hasSolution && passesCheck(r, s_) ? Verdict::Feasible : Verdict::Unknown;
  }

  std::vector<Bound> allBounds() {
    std::vector<Bound> out;
    auto add = [&](bool row, int k, double lo, double up) {
      if (lo > -KLO_INFINITY) out.push_back(Bound{row, k, false, {}, {}});
      if (up < KLO_INFINITY) out.push_back(Bound{row, k, true, {}, {}});
    };
    for (int i = 0; i < f_.modelRows; ++i) add(true, i, p_.rowLower[i], p_.rowUpper[i]);
    std::vector<const Switch*> switchOf(f_.modelCols, nullptr);
    for (const Switch& s : f_.switches) switchOf[s.column] = &s;
    for (int j = 0; j < f_.modelCols; ++j)
      if (switchOf[j])
        add(false, j, switchOf[j]->lower, switchOf[j]->upper);
      else if (binary_[j])
        add(false, j, p_.colLower[j] > 0 ? 1.0 : -KLO_INFINITY,
            p_.colUpper[j] < 1 ? 0.0 : KLO_INFINITY);
      else
        add(false, j, p_.colLower[j], p_.colUpper[j]);
    for (Bound& b : out) b.drops = b.row ? rowDrops(b) : columnDrops(b, switchOf[b.index]);
    return out;
  }

  std::vector<std::pair<double*, double>> rowDrops(const Bound& b) {
    if (b.upper) return {{&p_.rowUpper[b.index], KLO_INFINITY}};
    return {{&p_.rowLower[b.index], -KLO_INFINITY}};
  }

  // A switched column [a, b] (solve/semicontinuous.h) is 0 or in [a, b].
  // Its bound on the side of 0 goes with its switch row: then it is
  // anything up to b (from a) or down to a (from b).  The far bound becomes
  // what an infinite one is, +-bigM, in the column and its switch row.
  std::vector<std::pair<double*, double>> columnDrops(const Bound& b, const Switch* s) {
    const int j = b.index;
    if (!s) {
      if (b.upper) return {{&p_.colUpper[j], binary_[j] ? 1.0 : KLO_INFINITY}};
      return {{&p_.colLower[j], binary_[j] ? 0.0 : -KLO_INFINITY}};
    }
    const bool positive = s->lower > 0;  // else s->upper < 0
    const int nearRow = positive ? s->row : s->row + 1, farRow = positive ? s->row + 1 : s->row;
    if (b.upper != positive) {  // the near bound
      if (b.upper) return {{&p_.colUpper[j], KLO_INFINITY}, {&p_.rowUpper[nearRow], KLO_INFINITY}};
      return {{&p_.colLower[j], -KLO_INFINITY}, {&p_.rowLower[nearRow], -KLO_INFINITY}};
    }
    double* zCoef = &p_.value[p_.start[farRow] + 1];  // the row is x - bound z
    if (b.upper) return {{&p_.colUpper[j], bigM_}, {zCoef, -bigM_}};
    return {{&p_.colLower[j], -bigM_}, {zCoef, bigM_}};
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
    for (Bound& b : all) {
      const double w = b.row ? ray_[b.index] : -combined[b.index];
      const bool needed = std::fabs(w) > 1e-9 && (w > 0) != b.upper;
      (needed ? used : unused).push_back(b);
    }
    for (Bound& b : unused) drop(b);
    if (check() == Verdict::Infeasible) return used;
    for (Bound& b : unused) restore(b);
    return all;
  }

  engine::Problem p_;
  const Reformulation& f_;
  engine::Settings s_;
  double bigM_;
  std::vector<double> ray_;
  std::vector<bool> binary_;  // per column of p_: was 'B'
  int lastStatus_ = KLO_STATUS_UNSTARTED;
  bool minimal_ = true;
};

void addMember(std::vector<int>& v, int k, bool upper) {
  v[k] |= upper ? KLO_IIS_UPPER : KLO_IIS_LOWER;
}

}  // namespace

void computeIis(KLOmodel& m) {
  BusyModel busy(m, "KLOcomputeIIS");
  const engine::Settings s = settingsFromParams(m.env);  // "MaxTime" counts from here
  engine::Problem p = problemFromModel(m.data);
  const double bigM = m.env.params.getDbl("MIP/LinearizationBigM");
  // Dropped bounds would break an M taken from them: indicators take the
  // form without M.
  const Reformulation f = reformulate(p, bigM, false);
  chooseEngine(p, "KLOcomputeIIS");  // refuses before any work
  IisSearch search(std::move(p), f, s, bigM);
  const std::vector<Bound> members = search.run();
  std::vector<int> cols(m.data.numVars(), KLO_IIS_NONE), rows(m.data.numRows(), KLO_IIS_NONE);
  for (const Bound& b : members) addMember(b.row ? rows : cols, b.index, b.upper);
  m.results.iisCol.swap(cols);
  m.results.iisRow.swap(rows);
  m.results.iisMinimal = search.minimal() ? 1 : 0;
}

}  // namespace klo
