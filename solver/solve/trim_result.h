// Results of a problem with extra columns or rows (analyses, objective
// passes), cut back to the model's own.
#pragma once

#include <cstddef>

#include "engine/result.h"

namespace klo {

// Keeps the first cols entries of every per-column array (pool included)
// and the first rows of every per-row array; the extras come last.
void trimResult(engine::Result& r, std::size_t cols, std::size_t rows);

}  // namespace klo
