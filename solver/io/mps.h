// MPS files (fixed and free format, plain or gzip-compressed), read and
// written through CoinUtils' CoinMpsIO.  Sections: ROWS, COLUMNS with
// integer markers, RHS (the objective row's entry is minus the objective
// constant), RANGES, BOUNDS, SOS, QUADOBJ and OBJSENSE.
#pragma once

#include <string>

#include "store/model_data.h"

namespace klo {

// Throws KLO_ERROR_FILE_OPEN, or KLO_ERROR_FILE_READ with the file and line.
ModelData readMps(const std::string& path);
// Throws KLO_ERROR_FILE_WRITE, or KLO_ERROR_NOT_SUPPORTED for parts that
// MPS cannot hold (quadratic or PSD rows, PSD variables, indicators, more
// than one objective).
void writeMps(const std::string& path, const ModelData& d);

}  // namespace klo
