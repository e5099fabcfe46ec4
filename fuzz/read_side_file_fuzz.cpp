// Parameter, start, solution and basis files from arbitrary bytes, read into a small
// model: a clean refusal or a read, never a crash.
#include <cstdlib>

#include "fuzz_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  KLOenv* env = klo_fuzz::quietEnv();
  static KLOmodel* model = [env] {
    const char* names[] = {"x", "y", "z"};
    KLOmodel* m = nullptr;
    if (KLOnewmodel(env, &m, "m", 3, nullptr, nullptr, nullptr, nullptr, names) != 0) std::abort();
    const int ind[] = {0, 1, 2};
    const double val[] = {1, 1, 1};
    if (KLOaddrangeconstr(m, 3, ind, val, 1, 2, "r") != 0) std::abort();
    return m;
  }();
  klo_fuzz::DataFile file(data, size, KLO_FUZZ_SUFFIX);
  klo_fuzz::expectClean(KLOgetenv(model), KLOread(model, file.path()));
  return 0;
}
