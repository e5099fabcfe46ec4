// The shared instances: each reads with the dimensions of index.csv and
// survives a write and read in both formats.
#include <vector>

#include "instance_index.h"
#include "model_snapshot.h"
#include "test_support.h"

namespace {

using klotest::Instance;
using klotest::instancesDir;

using Instances = klotest::EnvTest;

TEST_F(Instances, EveryInstanceReadsWithItsDimensionsAndRoundTrips) {
  std::vector<Instance> all = klotest::readIndex();
  ASSERT_GE(all.size(), 50u) << "index.csv not found in " << instancesDir();
  for (const Instance& inst : all) {
    SCOPED_TRACE(inst.name);
    KLOmodel* m = nullptr;
    std::string path = instancesDir() + "/" + inst.file;
    ASSERT_EQ(KLOreadmodel(env, path.c_str(), &m), KLO_OK) << lastError();
    int rows = 0, cols = 0, ints = 0;
    KLOgetintattr(m, "NumConstrs", &rows);
    KLOgetintattr(m, "NumVars", &cols);
    KLOgetintattr(m, "NumIntVars", &ints);
    EXPECT_EQ(rows, inst.rows);
    EXPECT_EQ(cols, inst.cols);
    EXPECT_EQ(ints, inst.integers);
    // LP names may not start with a digit or a '.': compare without names.
    for (const char* suffix : {".mps", ".lp"}) {
      bool names = std::string(suffix) == ".mps";
      std::string original = klotest::snapshot(m, {names, true});
      klotest::TempFile file(suffix);
      ASSERT_EQ(KLOwrite(m, file.c_str()), KLO_OK) << KLOgeterrormsg(KLOgetenv(m));
      KLOmodel* back = nullptr;
      ASSERT_EQ(KLOreadmodel(env, file.c_str(), &back), KLO_OK) << suffix << ": " << lastError();
      std::string reread = klotest::snapshot(back, {names, true});
      EXPECT_TRUE(klotest::sameNumbers(reread, original, 1e-14)) << suffix << "\n" << reread;
      KLOfreemodel(back);
    }
    KLOfreemodel(m);
  }
}

}  // namespace
