#include "progress.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include "library.h"

namespace klo_cl {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// A double the callback may not have here (a barrier without a dual
// objective), or the library's infinity (no incumbent yet): NaN then.
double infoOrNaN(void* cbdata, int where, int what) {
  double v = kNaN;
  if (KLOcbget(cbdata, where, what, &v) != 0 || std::fabs(v) >= KLO_INFINITY) return kNaN;
  return v;
}

double attrOrNaN(KLOmodel* model, const char* name) {
  double v = kNaN;
  return KLOgetdblattr(model, name, &v) == 0 ? v : kNaN;
}

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

// |incumbent - bound| relative to the incumbent, as a percentage.
double gapPercent(double best, double bound) {
  if (std::isnan(best) || std::isnan(bound)) return kNaN;
  if (best == bound) return 0;
  return best == 0 ? kNaN : 100 * std::fabs(best - bound) / std::fabs(best);
}

std::string figure(double v, const char* format) {
  if (std::isnan(v)) return "none";
  char text[64];
  std::snprintf(text, sizeof text, format, v);
  return text;
}

}  // namespace

ProgressRecorder::ProgressRecorder(KLOmodel* model) : model_(model) {
  check(KLOgetenv(model), KLOsetcallbackfunc(model, &ProgressRecorder::onCallback, this));
}

ProgressRecorder::~ProgressRecorder() { KLOsetcallbackfunc(model_, nullptr, nullptr); }

int ProgressRecorder::onCallback(const void*, void* cbdata, int where, const void* self) {
  auto* recorder = const_cast<ProgressRecorder*>(static_cast<const ProgressRecorder*>(self));
  if (where == KLO_CB_MIP || where == KLO_CB_MIPSOL)
    recorder->recordSearch(cbdata, where);
  else if (where == KLO_CB_SIMPLEX || where == KLO_CB_BARRIER)
    recorder->recordIteration(cbdata, where);
  return 0;
}

// Keeps a row only when the incumbent or the bound moved, so that a long
// search gives a table of its events rather than of its nodes.
void ProgressRecorder::recordSearch(void* cbdata, int where) {
  const std::array<double, 3> row = {infoOrNaN(cbdata, where, KLO_CBINFO_RUNTIME),
                                     infoOrNaN(cbdata, where, KLO_CBINFO_OBJBEST),
                                     infoOrNaN(cbdata, where, KLO_CBINFO_OBJBOUND)};
  if (!search_.empty() && same(search_.back()[1], row[1]) && same(search_.back()[2], row[2]))
    return;
  search_.push_back(row);
}

void ProgressRecorder::recordIteration(void* cbdata, int where) {
  if (where == KLO_CB_SIMPLEX) {
    simplex_.push_back(
        {double(simplex_.size() + 1), infoOrNaN(cbdata, where, KLO_CBINFO_SPX_OBJVAL)});
  } else {
    barrier_.push_back({double(barrier_.size() + 1),
                        infoOrNaN(cbdata, where, KLO_CBINFO_BARRIER_PRIMOBJ),
                        infoOrNaN(cbdata, where, KLO_CBINFO_BARRIER_DUALOBJ)});
  }
}

Progress ProgressRecorder::mipResult() const {
  Progress p{"",     "time (s)", "objective", true, {"time_s", "incumbent", "bound", "gap_percent"},
             {1, 2}, {}};
  for (const auto& [t, best, bound] : search_)
    p.rows.push_back({t, best, bound, gapPercent(best, bound)});
  // The final figures, which the last callback may not have seen.
  double best = attrOrNaN(model_, "ObjVal");
  double bound = attrOrNaN(model_, "DualObjVal");
  p.rows.push_back({attrOrNaN(model_, "SolutionTime"), best, bound, gapPercent(best, bound)});
  p.title = "MIP search: incumbent " + figure(best, "%.10g") + ", bound " + figure(bound, "%.10g") +
            ", gap " + figure(gapPercent(best, bound), "%.3g%%");
  return p;
}

Progress ProgressRecorder::result() const {
  int integer = 0;
  if (KLOgetintattr(model_, "IsInteger", &integer) == 0 && integer) return mipResult();
  if (!barrier_.empty()) {
    Progress p{"Barrier: " + std::to_string(barrier_.size()) + " iterations",
               "iteration",
               "objective",
               false,
               {"iteration", "primal_objective", "dual_objective"},
               {1, 2},
               {}};
    bool known = false;
    for (const auto& [i, primal, dual] : barrier_) {
      p.rows.push_back({i, primal, dual});
      known |= !std::isnan(primal) || !std::isnan(dual);
    }
    // The LP barrier reports its iterations but not their objectives.
    if (!known) p.title += " (the engine reported no objectives)";
    return p;
  }
  Progress p{"Simplex: " + std::to_string(simplex_.size()) + " iterations",
             "iteration",
             "objective",
             false,
             {"iteration", "objective"},
             {1},
             {}};
  for (const auto& [i, objective] : simplex_) p.rows.push_back({i, objective});
  return p;
}

}  // namespace klo_cl
