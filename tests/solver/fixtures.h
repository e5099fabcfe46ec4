// Shared fixtures of the solver library's tests: temporary files, a quiet
// environment, and a model with builders and readers of its attributes.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "common/error.h"
#include "klo_c.h"

namespace klotest {

// A file path in the test's own temporary folder, removed afterwards.
class TempFile {
 public:
  explicit TempFile(const std::string& suffix) {
    static int counter = 0;
    path_ = ::testing::TempDir() + "klo_" + std::to_string(::getpid()) + "_" +
            std::to_string(counter++) + suffix;
    std::remove(path_.c_str());
  }
  ~TempFile() { std::remove(path_.c_str()); }
  const std::string& path() const { return path_; }
  const char* c_str() const { return path_.c_str(); }
  void write(const std::string& text) const { std::ofstream(path_, std::ios::binary) << text; }
  std::string read() const {
    std::ifstream in(path_);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
  }

 private:
  std::string path_;
};

// The library's error thrown by f, which must throw one.
inline klo::Error thrown(const std::function<void()>& f) {
  try {
    f();
  } catch (const klo::Error& e) {
    return e;
  }
  ADD_FAILURE() << "accepted";
  return klo::Error{KLO_OK, ""};
}

// Each value within tol of the one wanted.
inline void expectNear(const std::vector<double>& got, const std::vector<double>& want,
                       double tol) {
  ASSERT_EQ(got.size(), want.size());
  for (size_t k = 0; k < got.size(); ++k) EXPECT_NEAR(got[k], want[k], tol) << "at " << k;
}

// A started environment that keeps the console quiet.
class EnvTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(KLOemptyenv(&env), KLO_OK);
    ASSERT_EQ(KLOsetintparam(env, "LogToConsole", 0), KLO_OK);
    ASSERT_EQ(KLOstartenv(env), KLO_OK);
  }
  void TearDown() override { KLOfreeenv(env); }
  std::string lastError() const { return KLOgeterrormsg(env); }
  // m written to a file of the suffix and read back into a new model (the
  // caller frees it); the written text goes to text.
  KLOmodel* throughFile(KLOmodel* m, const std::string& suffix, std::string* text = nullptr) {
    TempFile file(suffix);
    EXPECT_EQ(KLOwrite(m, file.c_str()), KLO_OK) << KLOgeterrormsg(KLOgetenv(m));
    KLOmodel* back = nullptr;
    EXPECT_EQ(KLOreadmodel(env, file.c_str(), &back), KLO_OK) << suffix << ": " << lastError();
    if (text) *text = file.read();
    return back;
  }

  KLOenv* env = nullptr;
};

// EnvTest with a model (empty at first), its builders and readers.
class ModelTest : public EnvTest {
 protected:
  void SetUp() override {
    EnvTest::SetUp();
    fresh();
  }
  void TearDown() override {
    KLOfreemodel(model);
    EnvTest::TearDown();
  }
  // Replaces the model by an empty one.
  void fresh() {
    KLOfreemodel(model);
    model = nullptr;
    ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
  }
  // Replaces the model by a shared instance read from its file.
  void readInstance(const std::string& file) {
    KLOfreemodel(model);
    model = nullptr;
    const std::string path = std::string(KLO_INSTANCES_DIR) + "/" + file;
    ASSERT_EQ(KLOreadmodel(env, path.c_str(), &model), KLO_OK) << lastError();
  }
  // The last error of the model's environment.
  std::string modelError() const { return KLOgeterrormsg(KLOgetenv(model)); }

  int intAttr(const char* name) const {
    int v = -12345;
    EXPECT_EQ(KLOgetintattr(model, name, &v), KLO_OK) << name;
    return v;
  }
  std::vector<int> intAttrs(std::initializer_list<const char*> names) const {
    std::vector<int> v;
    for (const char* name : names) v.push_back(intAttr(name));
    return v;
  }
  double dbl(const char* name) const {
    double v = -12345;
    EXPECT_EQ(KLOgetdblattr(model, name, &v), KLO_OK) << name << ": " << modelError();
    return v;
  }
  double dblAt(const char* name, int element) const {
    double v = -12345;
    EXPECT_EQ(KLOgetdblattrelement(model, name, element, &v), KLO_OK) << name;
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

  // Adds n continuous variables x0 .. x(n-1) with bounds [0, 10].
  void addVars(int n) {
    for (int j = 0; j < n; ++j) {
      std::string name = "x" + std::to_string(j);
      ASSERT_EQ(KLOaddvar(model, 0, nullptr, nullptr, 0.0, 0.0, 10.0, 'C', name.c_str()), KLO_OK);
    }
  }
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
    for (const auto& t : terms) ind.push_back(t.first), val.push_back(t.second);
    const int beg = 0;
    EXPECT_EQ(KLOaddconstrs(model, 1, static_cast<int>(ind.size()), &beg, ind.data(), val.data(),
                            &sense, &rhs, nullptr),
              KLO_OK);
    return m;
  }
  void sense(int s) { ASSERT_EQ(KLOsetintattr(model, "ModelSense", s), KLO_OK); }
  void optimize() { ASSERT_EQ(KLOoptimize(model), KLO_OK) << modelError(); }

  KLOmodel* model = nullptr;
};

}  // namespace klotest
