// Whole-file text input and output, gzip-compressed when the name ends in
// ".gz" (reading detects compression by content).
#pragma once

#include <string>

namespace klo {

// Throws KLO_ERROR_FILE_OPEN or KLO_ERROR_FILE_READ.
std::string readTextFile(const std::string& path);
// Throws KLO_ERROR_FILE_WRITE.
void writeTextFile(const std::string& path, const std::string& text);

// A private temporary file for libraries that only write to named files,
// removed when the object goes: in memory where the system allows.
class TempPath {
 public:
  TempPath();
  ~TempPath();
  TempPath(const TempPath&) = delete;
  TempPath& operator=(const TempPath&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
  int fd_ = -1;  // of the in-memory file, kept open to keep it alive
};

}  // namespace klo
