// The SDP instances of sdp/index.csv: each reads with its counts
// ("constraints" rows; "size" the PSD dimensions and linear variables
// together, the sum of the file's block sizes) and is written and read
// back to the same model.
#include <string>
#include <vector>

#include "instance_index.h"
#include "model_snapshot.h"
#include "psd_rows.h"
#include "test_support.h"

namespace klotest {
namespace {

int intAttrOf(KLOmodel* m, const char* name) {
  int v = -1;
  EXPECT_EQ(KLOgetintattr(m, name, &v), KLO_OK) << name;
  return v;
}

// The PSD dimensions and the linear variables together.
int size(KLOmodel* m) {
  int n = intAttrOf(m, "NumVars");
  for (int k = 0; k < intAttrOf(m, "NumPsdVars"); ++k) {
    int dim = 0;
    EXPECT_EQ(KLOgetintattrelement(m, "Dim", k, &dim), KLO_OK);
    n += dim;
  }
  return n;
}

using SdpaInstances = EnvTest;

TEST_F(SdpaInstances, EachReadsWithItsCountsAndRoundTrips) {
  const std::vector<Instance> all = readSdpIndex();
  ASSERT_EQ(all.size(), 24u) << "sdp/index.csv not found in " << instancesDir();
  for (const Instance& inst : all) {
    SCOPED_TRACE(inst.name);
    KLOmodel* m = nullptr;
    ASSERT_EQ(KLOreadmodel(env, (instancesDir() + "/" + inst.file).c_str(), &m), KLO_OK)
        << lastError();
    if (inst.rows > 0) {  // 0: not listed (the infeasible and unbounded ones)
      EXPECT_EQ(intAttrOf(m, "NumConstrs"), inst.rows);
      EXPECT_EQ(size(m), inst.cols);
    }
    TempFile file(".dat-s");
    ASSERT_EQ(KLOwrite(m, file.c_str()), KLO_OK) << KLOgeterrormsg(KLOgetenv(m));
    KLOmodel* back = nullptr;
    ASSERT_EQ(KLOreadmodel(env, file.c_str(), &back), KLO_OK) << lastError();
    EXPECT_EQ(snapshot(back), snapshot(m));
    EXPECT_EQ(psdRows(back), psdRows(m));
    KLOfreemodel(back);
    KLOfreemodel(m);
  }
}

}  // namespace
}  // namespace klotest
