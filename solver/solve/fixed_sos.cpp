#include "solve/fixed_sos.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace klo {
namespace {

bool cannotBeZero(const engine::Problem& p, int j) {
  return p.colLower[j] > 0 || p.colUpper[j] < 0;
}

// Members in weight order.
std::vector<int> ordered(const engine::SosSet& s) {
  std::vector<std::pair<double, int>> order;
  for (size_t k = 0; k < s.members.size(); ++k) order.emplace_back(s.weights[k], s.members[k]);
  std::sort(order.begin(), order.end());
  std::vector<int> out;
  for (const auto& o : order) out.push_back(o.second);
  return out;
}

// Settles one set; the sets to keep in its place go to kept.
SosSettled settle(engine::Problem& p, const engine::SosSet& s, std::vector<engine::SosSet>& kept) {
  const std::vector<int> order = ordered(s);
  std::vector<size_t> fixed;  // places of members that cannot be zero
  for (size_t k = 0; k < order.size(); ++k)
    if (cannotBeZero(p, order[k])) fixed.push_back(k);
  if (fixed.empty()) {
    kept.push_back(s);
    return SosSettled::Unchanged;
  }
  const size_t first = fixed.front(), last = fixed.back();
  if (fixed.size() > 2 || last - first > (s.type == 2 ? 1u : 0u)) return SosSettled::Infeasible;
  // The members that may still be non-zero: the fixed ones, and for a type
  // 2 set with one fixed member its neighbours.
  const bool neighbours = s.type == 2 && fixed.size() == 1;
  const size_t from = neighbours && first > 0 ? first - 1 : first;
  const size_t to = neighbours ? std::min(first + 1, order.size() - 1) : last;
  for (size_t k = 0; k < order.size(); ++k)
    if (k < from || k > to) p.colLower[order[k]] = p.colUpper[order[k]] = 0.0;
  if (neighbours && from < first && to > first)
    kept.push_back(engine::SosSet{1, {order[from], order[to]}, {1.0, 2.0}});
  return SosSettled::Changed;
}

}  // namespace

SosSettled settleFixedSos(engine::Problem& p) {
  std::vector<engine::SosSet> kept;
  SosSettled outcome = SosSettled::Unchanged;
  for (const engine::SosSet& s : p.sos) {
    const SosSettled one = settle(p, s, kept);
    if (one == SosSettled::Infeasible) return one;
    if (one == SosSettled::Changed) outcome = one;
  }
  if (outcome == SosSettled::Changed) p.sos = std::move(kept);
  return outcome;
}

}  // namespace klo
