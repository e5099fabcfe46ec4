// LP files (plain or gzip-compressed), read and written by the library's
// own code: CoinLpIO crashes on malformed input.
#pragma once

#include <string>

#include "store/model_data.h"

namespace klo {

// Throws KLO_ERROR_FILE_OPEN, or KLO_ERROR_FILE_READ with the file and line.
ModelData readLp(const std::string& path);
// Throws KLO_ERROR_FILE_WRITE, or KLO_ERROR_NOT_SUPPORTED for PSD parts.
void writeLp(const std::string& path, const ModelData& d);

}  // namespace klo
