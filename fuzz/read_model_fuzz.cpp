// Model files from arbitrary bytes: reading gives a model or a clean
// refusal; a model read is written and read back to the same counts, and
// solved within a short limit.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "fuzz_file.h"

namespace {

int count(KLOmodel* m, const char* attr) {
  int v = -1;
  KLOgetintattr(m, attr, &v);
  return v;
}

void roundTrip(KLOmodel* m, const char* suffix) {
  const std::string path = std::string("/tmp/klo_fuzz_back_") + std::to_string(getpid()) + suffix;
  if (KLOwrite(m, path.c_str()) != 0) return;  // a part the format cannot hold
  KLOmodel* back = nullptr;
  klo_fuzz::expectClean(KLOgetenv(m), KLOreadmodel(klo_fuzz::quietEnv(), path.c_str(), &back));
  std::remove(path.c_str());
  if (!back) std::abort();  // what the library wrote it must read
  if (count(back, "NumVars") != count(m, "NumVars") ||
      count(back, "NumConstrs") != count(m, "NumConstrs") ||
      count(back, "NumNZs") != count(m, "NumNZs"))
    std::abort();
  KLOfreemodel(back);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  KLOenv* env = klo_fuzz::quietEnv();
  klo_fuzz::DataFile file(data, size, KLO_FUZZ_SUFFIX);
  KLOmodel* m = nullptr;
  const int status = KLOreadmodel(env, file.path(), &m);
  klo_fuzz::expectClean(env, status);
  if (status != 0) return 0;
  roundTrip(m, KLO_FUZZ_SUFFIX);
  KLOsetdblparam(KLOgetenv(m), "MaxTime", 0.5);
  KLOsetintparam(KLOgetenv(m), "MIP/MaxNodes", 50);
  klo_fuzz::expectClean(KLOgetenv(m), KLOoptimize(m));
  KLOfreemodel(m);
  return 0;
}
