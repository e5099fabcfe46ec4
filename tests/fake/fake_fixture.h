// Each test starts from a reset fake with an environment and a model made
// through it, and no recorded calls.
#pragma once

#include <gtest/gtest.h>

#include "klo_c.h"
#include "klo_fake.h"

class FakeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    klo_fake::reset();
    KLOloadenv(&env, nullptr);
    KLOnewmodel(env, &model, "m", 0, nullptr, nullptr, nullptr, nullptr, nullptr);
    klo_fake::reset();
  }
  void TearDown() override { klo_fake::reset(); }

  KLOenv* env = nullptr;
  KLOmodel* model = nullptr;
};
