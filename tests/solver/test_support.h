// Shared fixtures of the conformance tests of the C interface.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

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
  void write(const std::string& text) const { std::ofstream(path_) << text; }
  std::string read() const {
    std::ifstream in(path_);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
  }

 private:
  std::string path_;
};

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

  KLOenv* env = nullptr;
};

// EnvTest with an empty model.
class ModelTest : public EnvTest {
 protected:
  void SetUp() override {
    EnvTest::SetUp();
    ASSERT_EQ(KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
              KLO_OK);
  }
  void TearDown() override {
    KLOfreemodel(model);
    EnvTest::TearDown();
  }
  // The last error of the model's environment.
  std::string modelError() const { return KLOgeterrormsg(KLOgetenv(model)); }
  int intAttr(const char* name) const {
    int v = -12345;
    EXPECT_EQ(KLOgetintattr(model, name, &v), KLO_OK) << name;
    return v;
  }
  double dblAt(const char* name, int element) const {
    double v = -12345;
    EXPECT_EQ(KLOgetdblattrelement(model, name, element, &v), KLO_OK) << name;
    return v;
  }
  // Adds n continuous variables x0 .. x(n-1) with bounds [0, 10].
  void addVars(int n) {
    for (int j = 0; j < n; ++j) {
      std::string name = "x" + std::to_string(j);
      ASSERT_EQ(KLOaddvar(model, 0, nullptr, nullptr, 0.0, 0.0, 10.0, 'C', name.c_str()), KLO_OK);
    }
  }

  KLOmodel* model = nullptr;
};

}  // namespace klotest
