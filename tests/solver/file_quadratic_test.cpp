// Quadratic parts in model files: every term survives MPS -> LP -> MPS and
// LP -> MPS -> LP, compared through the C interface (KLOgetq and
// KLOgetqconstr via the snapshot); ".qps" files are MPS files.
#include <functional>
#include <string>
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

using klotest::snapshot;
using klotest::TempFile;

struct QuadModel {
  const char* what;
  std::function<void(KLOmodel*)> build;  // on variables x, y, t
};

void check(int status) { EXPECT_EQ(status, KLO_OK); }

const std::vector<QuadModel> kModels = {
    {"objective with off-diagonal terms",
     [](KLOmodel* m) {
       // 3x^2 - 2xy + 0.5yt + y^2 + x - t, a linear row beside it
       const int r[] = {0, 0, 1, 1}, c[] = {0, 1, 2, 1};
       const double v[] = {3, -2, 0.5, 1};
       check(KLOaddqpterms(m, 4, r, c, v));
       check(KLOsetdblattrelement(m, "Obj", 0, 1));
       check(KLOsetdblattrelement(m, "Obj", 2, -1));
       const int li[] = {0, 1};
       const double lv[] = {1, 1};
       check(KLOaddrangeconstr(m, 2, li, lv, 1, KLO_INFINITY, "sum"));
     }},
    {"quadratic row with a linear part and a range",
     [](KLOmodel* m) {
       // -1 <= 3x - y + x^2 + 4xy + 0.25t^2 <= 4
       const int li[] = {0, 1}, qr[] = {0, 0, 2}, qc[] = {0, 1, 2};
       const double lv[] = {3, -1}, qv[] = {1, 4, 0.25};
       check(KLOaddqconstr(m, 2, li, lv, 3, qr, qc, qv, '<', 4, "ranged"));
       check(KLOsetdblattrelement(m, "QCLHS", 0, -1));
     }},
    {"cone row",
     [](KLOmodel* m) {
       // x^2 + y^2 - t^2 <= 0
       const int q[] = {0, 1, 2};
       const double qv[] = {1, 1, -1};
       check(KLOaddqconstr(m, 0, nullptr, nullptr, 3, q, q, qv, '<', 0, "cone"));
       check(KLOsetdblattrelement(m, "Obj", 2, 1));
     }},
    {"maximisation with a constant and an equality row",
     [](KLOmodel* m) {
       // max x + y - x^2 - xy - 2y^2 + 7, with x + t^2 = 2
       check(KLOsetintattr(m, "ModelSense", KLO_MAXIMIZE));
       check(KLOsetdblattr(m, "ObjCon", 7));
       const int r[] = {0, 0, 1}, c[] = {0, 1, 1};
       const double v[] = {-1, -1, -2};
       check(KLOaddqpterms(m, 3, r, c, v));
       check(KLOsetdblattrelement(m, "Obj", 0, 1));
       check(KLOsetdblattrelement(m, "Obj", 1, 1));
       const int li[] = {0}, q[] = {2};
       const double lv[] = {1}, qv[] = {1};
       check(KLOaddqconstr(m, 1, li, lv, 1, q, q, qv, '=', 2, "eq"));
     }},
};

class QuadraticFiles : public klotest::EnvTest {
 protected:
  // A model with x free, y in [-3, 5], t >= 0 and the case's parts.
  KLOmodel* build(const QuadModel& q) {
    KLOmodel* m = nullptr;
    EXPECT_EQ(KLOnewmodel(env, &m, "quad", 0, nullptr, nullptr, nullptr, nullptr, nullptr), KLO_OK);
    const double lb[] = {-KLO_INFINITY, -3, 0}, ub[] = {KLO_INFINITY, 5, KLO_INFINITY};
    const char* names[] = {"x", "y", "t"};
    EXPECT_EQ(KLOaddvars(m, 3, 0, nullptr, nullptr, nullptr, nullptr, lb, ub, nullptr, names),
              KLO_OK);
    q.build(m);
    return m;
  }

  // Writes m to a file of the suffix and reads it back (the caller frees
  // the copy); the written text goes to text.
  KLOmodel* throughFile(KLOmodel* m, const std::string& suffix, std::string& text) {
    TempFile file(suffix);
    EXPECT_EQ(KLOwrite(m, file.c_str()), KLO_OK) << KLOgeterrormsg(KLOgetenv(m));
    KLOmodel* back = nullptr;
    EXPECT_EQ(KLOreadmodel(env, file.c_str(), &back), KLO_OK) << suffix << ": " << lastError();
    text = file.read();
    return back;
  }

  // Through each suffix in turn, every model read compared with the
  // original; the first and the last file, of one format, are one text.
  void chain(KLOmodel* original, const std::vector<std::string>& suffixes) {
    const std::string expected = snapshot(original);
    KLOmodel* current = original;
    std::string first, text;
    for (const std::string& suffix : suffixes) {
      SCOPED_TRACE(suffix);
      KLOmodel* next = throughFile(current, suffix, text);
      if (current != original) KLOfreemodel(current);
      current = next;
      ASSERT_NE(current, nullptr);
      EXPECT_EQ(snapshot(current), expected);
      if (first.empty()) first = text;
    }
    if (current != original) KLOfreemodel(current);
    EXPECT_EQ(text, first);
  }
};

TEST_F(QuadraticFiles, EveryTermSurvivesBothChains) {
  for (const QuadModel& q : kModels) {
    SCOPED_TRACE(q.what);
    KLOmodel* m = build(q);
    chain(m, {".mps", ".lp", ".mps"});
    chain(m, {".lp", ".mps", ".lp"});
    KLOfreemodel(m);
  }
}

// ".qps" is MPS by another name, compressed or not, for reading and
// writing.
TEST_F(QuadraticFiles, QpsFilesAreMpsFiles) {
  KLOmodel* m = build(kModels[0]);
  std::string mps, qps;
  KLOfreemodel(throughFile(m, ".mps", mps));
  KLOfreemodel(throughFile(m, ".qps", qps));
  EXPECT_EQ(qps, mps);
  KLOmodel* back = throughFile(m, ".qps.gz", qps);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(snapshot(back), snapshot(m));
  KLOfreemodel(back);
  KLOfreemodel(m);
}

}  // namespace
