// The shared instances: each reads with the dimensions of index.csv and
// survives a write and read in both formats.  The convex QPs of qp/ keep
// every quadratic term too (the snapshot lists them).
#include <vector>

#include "instance_index.h"
#include "model_snapshot.h"
#include "test_support.h"

namespace {

using klotest::Instance;
using klotest::instancesDir;

class InstanceFiles : public klotest::EnvTest {
 protected:
  // The instance read, with its dimensions checked; null on failure.
  KLOmodel* read(const Instance& inst) {
    KLOmodel* m = nullptr;
    std::string path = klotest::instancePath(inst);
    EXPECT_EQ(KLOreadmodel(env, path.c_str(), &m), KLO_OK) << lastError();
    if (!m) return nullptr;
    int rows = 0, cols = 0, ints = 0;
    KLOgetintattr(m, "NumConstrs", &rows);
    KLOgetintattr(m, "NumVars", &cols);
    KLOgetintattr(m, "NumIntVars", &ints);
    EXPECT_EQ(rows, inst.rows);
    EXPECT_EQ(cols, inst.cols);
    EXPECT_EQ(ints, inst.integers);
    return m;
  }

  // Written as .mps and as .lp, each read back the same.  LP names may not
  // start with a digit or a '.': compare without names there.
  void expectRoundTrips(KLOmodel* m) {
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
  }
};

TEST_F(InstanceFiles, EveryInstanceReadsWithItsDimensionsAndRoundTrips) {
  std::vector<Instance> all = klotest::readIndex();
  ASSERT_GE(all.size(), 50u) << "index.csv not found in " << instancesDir();
  for (const Instance& inst : all) {
    SCOPED_TRACE(inst.name);
    KLOmodel* m = read(inst);
    if (m) expectRoundTrips(m);
    KLOfreemodel(m);
  }
}

class QpInstanceFiles : public InstanceFiles, public ::testing::WithParamInterface<Instance> {};

TEST_P(QpInstanceFiles, ReadsWithItsQuadraticObjectiveAndRoundTrips) {
  KLOmodel* m = read(GetParam());
  ASSERT_NE(m, nullptr);
  int terms = 0;
  EXPECT_EQ(KLOgetq(m, &terms, nullptr, nullptr, nullptr), KLO_OK);
  EXPECT_GT(terms, 0);
  expectRoundTrips(m);
  KLOfreemodel(m);
}

INSTANTIATE_TEST_SUITE_P(Qp, QpInstanceFiles, ::testing::ValuesIn(klotest::readIndex("", "qp")),
                         klotest::instanceName);

TEST(QpInstanceIndex, ListsTheConvexQps) { EXPECT_EQ(klotest::readIndex("QP", "qp").size(), 45u); }

}  // namespace
