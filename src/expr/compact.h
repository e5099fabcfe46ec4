// Stable removal of every term whose handle shares one identity record,
// from parallel coefficient and handle sequences.
#pragma once

#include <cstddef>
#include <vector>

#include "model/access.h"

namespace klo_detail {

// Returns the number of terms kept; both vectors are cut to it.
template <class C, class H>
std::size_t removeHandle(std::vector<C>& coeffs, std::vector<H>& handles, const H& target) {
  const auto& record = Access::id(target);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < coeffs.size(); ++i) {
    if (Access::id(handles[i]) == record) continue;
    coeffs[kept] = coeffs[i];
    handles[kept] = handles[i];
    ++kept;
  }
  coeffs.resize(kept);
  handles.resize(kept);
  return kept;
}

}  // namespace klo_detail
