// LP files as other programs write them: spellings of sections and
// relations, comments, statements over several lines.
#include <vector>

#include "test_support.h"

namespace {

class LpDialect : public klotest::EnvTest {
 protected:
  void read(const std::string& text) {
    klotest::TempFile file(".lp");
    file.write(text);
    ASSERT_EQ(KLOreadmodel(env, file.c_str(), &model), KLO_OK) << lastError();
  }
  void TearDown() override {
    KLOfreemodel(model);
    EnvTest::TearDown();
  }
  int intAttr(const char* name) {
    int v = -1;
    EXPECT_EQ(KLOgetintattr(model, name, &v), KLO_OK) << name;
    return v;
  }
  std::vector<double> dbl(const char* name, int n) {
    std::vector<double> v(n);
    EXPECT_EQ(KLOgetdblattrarray(model, name, 0, n, v.data()), KLO_OK) << name;
    return v;
  }
  KLOmodel* model = nullptr;
};

TEST_F(LpDialect, ShortSpellingsCommentsAndLineBreaks) {
  read(
      "\\ a comment line\n"
      "max\n"
      "  3x1 + 2 x2 \\ coefficients glued to names\n"
      "  - x3\n"
      "st\n"
      "  c1: x1 + x2\n"
      "      + x3 =< 10\n"
      "  x1 - x2 => -4\n"
      "  c3: 2 x1 + 3 >= 5\n"
      "  -3 <= x2 - x3 <= 3\n"
      "bound\n"
      "  x3 <= 7\n"
      "  x2 >= -1e30\n"
      "integers\n"
      "  x1\n"
      "end\n");
  EXPECT_EQ(intAttr("ModelSense"), KLO_MAXIMIZE);
  EXPECT_EQ(intAttr("NumVars"), 3);
  EXPECT_EQ(intAttr("NumConstrs"), 4);
  EXPECT_EQ(dbl("Obj", 3), (std::vector<double>{3, 2, -1}));
  // The constant of c3 moves to the right-hand side: 2 x1 >= 2.
  EXPECT_EQ(dbl("LHS", 4), (std::vector<double>{-KLO_INFINITY, -4, 2, -3}));
  EXPECT_EQ(dbl("RHS", 4), (std::vector<double>{10, KLO_INFINITY, KLO_INFINITY, 3}));
  EXPECT_EQ(dbl("UB", 3), (std::vector<double>{KLO_INFINITY, KLO_INFINITY, 7}));
  EXPECT_EQ(dbl("LB", 3), (std::vector<double>{0, -KLO_INFINITY, 0}));
  char t = 0;
  ASSERT_EQ(KLOgetcharattrelement(model, "VType", 0, &t), KLO_OK);
  EXPECT_EQ(t, 'I');
  int index = -1;
  ASSERT_EQ(KLOgetconstrbyname(model, "c3", &index), KLO_OK);
  EXPECT_EQ(index, 2);
}

TEST_F(LpDialect, LongSpellingsAndBinaries) {
  read(
      "Minimize\n obj: x + y\nSubject To\n r: x + y >= 1\nBounds\n 2 >= x\n y <= 1\n"
      "Binary\n b\nSemi-Continuous\n y\nEND\n");
  EXPECT_EQ(intAttr("NumVars"), 3);
  EXPECT_EQ(dbl("UB", 3), (std::vector<double>{2, 1, 1}));
  std::vector<char> t(3);
  ASSERT_EQ(KLOgetcharattrarray(model, "VType", 0, 3, t.data()), KLO_OK);
  EXPECT_EQ(std::string(t.begin(), t.end()), "CSB");
}

// Weights with a sign, as the writer writes negative ones.
TEST_F(LpDialect, SosWeightsMayBeNegative) {
  read("Minimize\n obj: x + y\nSubject To\n r: x + y >= 1\nSOS\n s: S1 :: x:-1 y:+2.5\nEnd\n");
  int n = 0, type = 0, beg = 0, ind[2];
  double w[2];
  ASSERT_EQ(KLOgetsos(model, &n, &type, &beg, ind, w, 0, 1), KLO_OK);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(w[0], -1.0);
  EXPECT_EQ(w[1], 2.5);
}

TEST_F(LpDialect, QuadraticObjectiveWithoutTheHalf) {
  read("Minimize\n obj: [ x^2 + 3 x * y ]\nSubject To\n c: x + y >= 1\nEnd\n");
  int n = 0, r[2], c[2];
  double v[2];
  ASSERT_EQ(KLOgetq(model, &n, r, c, v), KLO_OK);
  ASSERT_EQ(n, 2);
  EXPECT_EQ(v[0], 1.0);
  EXPECT_EQ(v[1], 3.0);
}

}  // namespace
