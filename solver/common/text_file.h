// Whole-file text input and output, gzip-compressed when the name ends in
// ".gz" (reading detects compression by content).
#pragma once

#include <string>

namespace klo {

// Throws KLO_ERROR_FILE_OPEN or KLO_ERROR_FILE_READ.
std::string readTextFile(const std::string& path);
// Throws KLO_ERROR_FILE_WRITE.
void writeTextFile(const std::string& path, const std::string& text);

}  // namespace klo
