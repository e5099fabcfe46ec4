// The merge of duplicate quadratic terms that runs before quadratic terms
// reach the library.
#include <cstdint>
#include <map>
#include <tuple>

#include "klo_cpp.h"

void combineLikeQTerms(std::vector<double>& coeffs, std::vector<KLOVar>& vars1,
                       std::vector<KLOVar>& vars2) {
  std::map<std::int64_t, std::tuple<double, KLOVar, KLOVar>> merged;
  for (std::size_t i = 0; i < coeffs.size(); ++i) {
    const int a = vars1[i].index();
    const int b = vars2[i].index();
    // Keyed by the pair as given, so x*y and y*x stay apart; the stored
    // pair puts the larger index first.
    const std::int64_t key = static_cast<std::int64_t>(static_cast<std::uint64_t>(a) << 32) +
                             static_cast<std::int64_t>(b);
    auto found = merged.find(key);
    if (found != merged.end()) {
      std::get<0>(found->second) += coeffs[i];
    } else if (b > a) {
      merged.emplace(key, std::make_tuple(coeffs[i], vars2[i], vars1[i]));
    } else {
      merged.emplace(key, std::make_tuple(coeffs[i], vars1[i], vars2[i]));
    }
  }
  coeffs.clear();
  vars1.clear();
  vars2.clear();
  for (const auto& entry : merged) {
    coeffs.push_back(std::get<0>(entry.second));
    vars1.push_back(std::get<1>(entry.second));
    vars2.push_back(std::get<2>(entry.second));
  }
}
