// Models over the test double: one read "from a file" with scripted element
// counts, so that the handle vectors hold handles of every kind.
#pragma once

#include <memory>

#include "fake_fixture.h"
#include "model/access.h"

class ModelTest : public FakeTest {
 protected:
  KLOEnv env;

  void SetUp() override { FakeTest::SetUp(); }

  // Scripts the counts that sync() reads.
  static void scriptCounts(int vars, int constrs, int psdVars = 0, int sos = 0, int gen = 0) {
    klo_fake::on("KLOgetintattr", "NumVars").out(2, static_cast<long long>(vars));
    klo_fake::on("KLOgetintattr", "NumConstrs").out(2, static_cast<long long>(constrs));
    klo_fake::on("KLOgetintattr", "NumPsdVars").out(2, static_cast<long long>(psdVars));
    klo_fake::on("KLOgetintattr", "NumSOS").out(2, static_cast<long long>(sos));
    klo_fake::on("KLOgetintattr", "NumGenConstrs").out(2, static_cast<long long>(gen));
  }

  // A model "read from a file" with the given counts; the calls made so
  // far are forgotten (scripts too).
  std::unique_ptr<KLOModel> readModel(int vars, int constrs, int psdVars = 0, int sos = 0,
                                      int gen = 0) {
    scriptCounts(vars, constrs, psdVars, sos, gen);
    auto model = std::make_unique<KLOModel>(env, "model.mps");
    klo_fake::reset();
    return model;
  }

  template <class H>
  static std::vector<int> indices(const std::vector<H>& handles) {
    std::vector<int> out;
    for (const H& h : handles) out.push_back(h.index());
    return out;
  }
};

using klo_detail::Access;
