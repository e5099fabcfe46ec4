// Shared fixtures of the conformance tests of the C interface.
#ifndef KLO_TESTS_SOLVER_TEST_SUPPORT_H
#define KLO_TESTS_SOLVER_TEST_SUPPORT_H

#include <gtest/gtest.h>
#include <unistd.h>

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

}  // namespace klotest

#endif
