// Shared set-up of the object-layer tests: a fresh test double per test and
// a way to catch the layer's exception for inspection.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "klo_cpp.h"
#include "klo_fake.h"

class FakeTest : public ::testing::Test {
 protected:
  void SetUp() override { klo_fake::reset(); }

  // The KLOException that f throws; fails the test if it throws none.
  template <class F>
  static KLOException thrown(F&& f) {
    try {
      f();
    } catch (const KLOException& e) {
      return e;
    }
    ADD_FAILURE() << "no KLOException thrown";
    return KLOException("", 0);
  }

  // The recorded calls' readable forms, then forget them.
  static std::vector<std::string> drain() {
    std::vector<std::string> out = klo_fake::strs();
    klo_fake::reset();
    return out;
  }
};

using Calls = std::vector<std::string>;
