// What the file-reading fuzz targets share: the bytes as a file of a given
// extension, and a library environment that stays quiet.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "klo_c.h"

namespace klo_fuzz {

// A file holding data, named with the suffix (".mps", ".prm", ...), removed
// when the object goes.
class DataFile {
 public:
  DataFile(const uint8_t* data, size_t size, const std::string& suffix);
  ~DataFile();
  DataFile(const DataFile&) = delete;
  DataFile& operator=(const DataFile&) = delete;
  const char* path() const { return path_.c_str(); }

 private:
  std::string path_;
};

// A started environment with output off, made once per process.
KLOenv* quietEnv();

// Aborts (a finding) when the library broke its contract: a failure code
// that is not one of klo_c.h's, or a failure without a message.
void expectClean(KLOenv* env, int status);

}  // namespace klo_fuzz
