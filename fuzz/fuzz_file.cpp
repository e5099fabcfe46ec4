#include "fuzz_file.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace klo_fuzz {

DataFile::DataFile(const uint8_t* data, size_t size, const std::string& suffix) {
  // One name per process: libFuzzer runs one input at a time.
  path_ = "/tmp/klo_fuzz_" + std::to_string(getpid()) + suffix;
  FILE* f = std::fopen(path_.c_str(), "wb");
  if (!f || std::fwrite(data, 1, size, f) != size) std::abort();
  std::fclose(f);
}

DataFile::~DataFile() { std::remove(path_.c_str()); }

KLOenv* quietEnv() {
  static KLOenv* env = [] {
    KLOenv* e = nullptr;
    if (KLOemptyenv(&e) != 0 || KLOsetintparam(e, "OutputFlag", 0) != 0 || KLOstartenv(e) != 0)
      std::abort();
    return e;
  }();
  return env;
}

void expectClean(KLOenv* env, int status) {
  if (status == 0) return;
  const char* text = KLOexplainerror(status);
  if (status > 0 || std::strncmp(text, "Unknown error code", 18) == 0) {
    std::fprintf(stderr, "undocumented code %d\n", status);
    std::abort();
  }
  if (status == KLO_ERROR_INTERNAL) {
    std::fprintf(stderr, "internal error: %s\n", KLOgeterrormsg(env));
    std::abort();
  }
}

}  // namespace klo_fuzz
