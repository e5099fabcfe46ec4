// Shared pieces of the solving tests: small models built through the C
// interface, and readers of the result attributes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "test_support.h"

namespace klotest {

class SolveTest : public ModelTest {
 protected:
  // Adds a variable; returns its index.
  int var(double obj, double lb, double ub, char type = 'C') {
    int n = intAttr("NumVars");
    EXPECT_EQ(KLOaddvar(model, 0, nullptr, nullptr, obj, lb, ub, type, nullptr), KLO_OK);
    return n;
  }
  // Adds the row  sum coef x  sense  rhs; returns its index.
  int row(const std::vector<std::pair<int, double>>& terms, char sense, double rhs) {
    int m = intAttr("NumConstrs");
    std::vector<int> ind;
    std::vector<double> val;
    for (const auto& t : terms) {
      ind.push_back(t.first);
      val.push_back(t.second);
    }
    const int beg = 0;
    EXPECT_EQ(KLOaddconstrs(model, 1, static_cast<int>(ind.size()), &beg, ind.data(), val.data(),
                            &sense, &rhs, nullptr),
              KLO_OK);
    return m;
  }
  void sense(int s) { ASSERT_EQ(KLOsetintattr(model, "ModelSense", s), KLO_OK); }
  void optimize() { ASSERT_EQ(KLOoptimize(model), KLO_OK) << modelError(); }
  double dbl(const char* name) const {
    double v = -12345;
    EXPECT_EQ(KLOgetdblattr(model, name, &v), KLO_OK) << name << ": " << modelError();
    return v;
  }
  std::vector<double> dblArray(const char* name, int n) const {
    std::vector<double> v(n, -12345);
    EXPECT_EQ(KLOgetdblattrarray(model, name, 0, n, v.data()), KLO_OK) << name;
    return v;
  }
  std::vector<int> intArray(const char* name, int n) const {
    std::vector<int> v(n, -12345);
    EXPECT_EQ(KLOgetintattrarray(model, name, 0, n, v.data()), KLO_OK) << name;
    return v;
  }
  void setInt(const char* param, int v) {
    ASSERT_EQ(KLOsetintparam(KLOgetenv(model), param, v), KLO_OK) << param;
  }
  void setDbl(const char* param, double v) {
    ASSERT_EQ(KLOsetdblparam(KLOgetenv(model), param, v), KLO_OK) << param;
  }
  // Replaces the model by a shared instance read from its file.
  void readInstance(const std::string& file) {
    KLOfreemodel(model);
    model = nullptr;
    const std::string path = std::string(KLO_INSTANCES_DIR) + "/" + file;
    ASSERT_EQ(KLOreadmodel(env, path.c_str(), &model), KLO_OK) << lastError();
  }
};

}  // namespace klotest
