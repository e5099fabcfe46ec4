// MPS sections as other programs write them.
#include <vector>

#include "test_support.h"

namespace {

class MpsSections : public klotest::EnvTest {
 protected:
  void read(const std::string& text) {
    klotest::TempFile file(".mps");
    file.write(text);
    ASSERT_EQ(KLOreadmodel(env, file.c_str(), &model), KLO_OK) << lastError();
  }
  void TearDown() override {
    KLOfreemodel(model);
    EnvTest::TearDown();
  }
  std::vector<double> dbl(const char* name, int n) {
    std::vector<double> v(n);
    EXPECT_EQ(KLOgetdblattrarray(model, name, 0, n, v.data()), KLO_OK) << name;
    return v;
  }
  KLOmodel* model = nullptr;
};

TEST_F(MpsSections, EveryStandardBoundType) {
  read(
      "NAME bounds\nROWS\n N obj\n L c\nCOLUMNS\n"
      "    up obj 1 c 1\n    lo obj 1 c 1\n    fx obj 1 c 1\n    fr obj 1 c 1\n"
      "    mi obj 1 c 1\n    pl obj 1 c 1\n    bv obj 1 c 1\n    li obj 1 c 1\n"
      "    ui obj 1 c 1\n    sc obj 1 c 1\n"
      "RHS\n    rhs c 10\nBOUNDS\n UP b up 4\n LO b lo -2\n FX b fx 3\n FR b fr\n MI b mi\n"
      " PL b pl\n BV b bv\n LI b li -5\n UI b ui 7\n SC b sc 9\nENDATA\n");
  const std::vector<double> lb = {0, -2, 3, -KLO_INFINITY, -KLO_INFINITY, 0, 0, -5, 0, 0};
  const std::vector<double> ub = {
      4, KLO_INFINITY, 3, KLO_INFINITY, KLO_INFINITY, KLO_INFINITY, 1, KLO_INFINITY, 7, 9};
  EXPECT_EQ(dbl("LB", 10), lb);
  EXPECT_EQ(dbl("UB", 10), ub);
  std::vector<char> types(10);
  ASSERT_EQ(KLOgetcharattrarray(model, "VType", 0, 10, types.data()), KLO_OK);
  EXPECT_EQ(std::string(types.begin(), types.end()), "CCCCCCBIIS");
}

TEST_F(MpsSections, RangesObjectiveConstantAndSense) {
  // RANGES on E rows: R > 0 gives [rhs, rhs + R], R < 0 gives [rhs + R, rhs].
  read(
      "NAME ranges\nOBJSENSE MAX\nROWS\n N obj\n E e1\n E e2\n L l\n G g\nCOLUMNS\n"
      "    x obj 2 e1 1\n    x e2 1 l 1\n    x g 1\n"
      "RHS\n    rhs obj -7.5 e1 1\n    rhs e2 2 l 3\n    rhs g 4\n"
      "RANGES\n    rng e1 2 e2 -2\n    rng l 1 g 1\nENDATA\n");
  EXPECT_EQ(dbl("LHS", 4), (std::vector<double>{1, 0, 2, 4}));
  EXPECT_EQ(dbl("RHS", 4), (std::vector<double>{3, 2, 3, 5}));
  double constant = 0;
  int sense = 0;
  ASSERT_EQ(KLOgetdblattr(model, "ObjCon", &constant), KLO_OK);
  EXPECT_EQ(constant, 7.5) << "the objective row's right-hand side is minus the constant";
  ASSERT_EQ(KLOgetintattr(model, "ModelSense", &sense), KLO_OK);
  EXPECT_EQ(sense, KLO_MAXIMIZE);
}

TEST_F(MpsSections, QmatrixAndQuadobjGiveTheSameObjective) {
  const std::string head =
      "NAME q\nROWS\n N obj\n L c\nCOLUMNS\n    x obj 1 c 1\n    y c 1\nRHS\n    rhs c 1\n";
  // 1/2 (4 x^2 + 2*3 x y + 2 y^2) = 2 x^2 + 3 x y + y^2
  read(head + "QUADOBJ\n    x x 4\n    x y 3\n    y y 2\nENDATA\n");
  int n = 0, r[3], c[3];
  double v[3];
  ASSERT_EQ(KLOgetq(model, &n, r, c, v), KLO_OK);
  std::vector<double> fromQuadobj(v, v + n);
  EXPECT_EQ(fromQuadobj, (std::vector<double>{2, 3, 1}));
  KLOfreemodel(model);
  model = nullptr;
  read(head + "QMATRIX\n    x x 4\n    x y 3\n    y x 3\n    y y 2\nENDATA\n");
  ASSERT_EQ(KLOgetq(model, &n, r, c, v), KLO_OK);
  EXPECT_EQ(std::vector<double>(v, v + n), fromQuadobj);
}

TEST_F(MpsSections, IntegerMarkersAndSets) {
  read(
      "NAME sets\nROWS\n N obj\n L c\nCOLUMNS\n"
      "    M1 'MARKER' 'INTORG'\n    i obj 1 c 1\n    M2 'MARKER' 'INTEND'\n"
      "    x obj 1 c 1\n    y obj 1 c 1\nRHS\n    rhs c 5\nBOUNDS\n UP b i 10\n"
      "SOS\n S2\n    x 1\n    y 2\nENDATA\n");
  char t = 0;
  ASSERT_EQ(KLOgetcharattrelement(model, "VType", 0, &t), KLO_OK);
  EXPECT_EQ(t, 'I');
  int ns = 0, type = 0, nm = 0, members[2];
  ASSERT_EQ(KLOgetintattr(model, "NumSOS", &ns), KLO_OK);
  ASSERT_EQ(ns, 1);
  ASSERT_EQ(KLOgetsos(model, &nm, &type, nullptr, members, nullptr, 0, 1), KLO_OK);
  EXPECT_EQ(type, KLO_SOS_TYPE2);
  EXPECT_EQ(nm, 2);
  EXPECT_EQ(members[1], 2);
}

}  // namespace
