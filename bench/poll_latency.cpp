// How often KLO_CB_POLLING comes, and how soon a stop asked there ends the
// solve: each model file is solved with a callback that stops at the first
// poll after the given number of seconds.  Prints the largest gap between
// polls and the time from the stop to KLOoptimize's return.
//
// usage: poll_latency seconds model-file...   (use a release build)
#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "klo_c.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Polls {
  double stopAfter = 0.5;
  double last = -1, largestGap = 0;
  bool stopped = false;
  Clock::time_point stoppedAt;
};

int stopLater(const void*, void* cbdata, int where, const void* usrdata) {
  if (where != KLO_CB_POLLING) return 0;
  Polls& p = *static_cast<Polls*>(const_cast<void*>(usrdata));
  double t = 0;
  KLOcbget(cbdata, where, KLO_CBINFO_RUNTIME, &t);
  if (p.last >= 0 && t - p.last > p.largestGap) p.largestGap = t - p.last;
  p.last = t;
  if (p.stopped || t < p.stopAfter) return 0;
  p.stopped = true;
  p.stoppedAt = Clock::now();
  return KLO_CB_STOP;
}

void measure(KLOenv* env, const char* file, double stopAfter) {
  KLOmodel* m = nullptr;
  if (KLOreadmodel(env, file, &m) != 0) {
    std::printf("%-40s cannot read: %s\n", file, KLOgeterrormsg(env));
    return;
  }
  Polls p;
  p.stopAfter = stopAfter;
  KLOsetcallbackfunc(m, stopLater, &p);
  const int rc = KLOoptimize(m);
  const double afterStop = std::chrono::duration<double>(Clock::now() - p.stoppedAt).count();
  int status = 0;
  KLOgetintattr(m, "Status", &status);
  if (p.stopped)
    std::printf("%-40s rc %d status %2d  largest gap %.3f s  stop to return %.3f s\n", file, rc,
                status, p.largestGap, afterStop);
  else
    std::printf("%-40s rc %d status %2d  largest gap %.3f s  finished before the stop\n", file, rc,
                status, p.largestGap);
  KLOfreemodel(m);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s seconds model-file...\n", argv[0]);
    return 2;
  }
  KLOenv* env = nullptr;
  if (KLOloadenv(&env, nullptr) != 0) return 1;
  KLOsetintparam(env, "OutputFlag", 0);
  for (int k = 2; k < argc; ++k) measure(env, argv[k], std::atof(argv[1]));
  KLOfreeenv(env);
  return 0;
}
