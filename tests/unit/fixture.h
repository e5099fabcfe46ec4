// Shared set-up of the object-layer tests: a fresh test double per test,
// models "read from a file" with scripted element counts (so the handle
// vectors hold handles of every kind), and readers of expressions' terms.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "klo_cpp.h"
#include "klo_fake.h"
#include "model/access.h"

using klo_detail::Access;
using Calls = std::vector<std::string>;
using Ints = std::vector<int>;
using Doubles = std::vector<double>;
using Outs = std::vector<std::pair<std::size_t, klo_fake::Value>>;

// Scripts out-values: `each` on every call, `later` from the second call on
// (the first call of a two-step read asks for sizes, its arrays null).
inline void script(klo_fake::Script& s, const Outs& each, const Outs& later = {}) {
  for (const auto& [pos, v] : each) s.out(pos, v);
  for (const auto& [pos, v] : later) s.outs(pos, {klo_fake::Null{}, v});
}

class FakeTest : public ::testing::Test {
 public:
  // The code and message of the KLOException that f throws, as "code message".
  template <class F>
  static std::string failure(F&& f) {
    try {
      f();
    } catch (const KLOException& e) {
      return std::to_string(e.getErrorCode()) + " " + e.getMessage();
    }
    return "no KLOException thrown";
  }
  // The code of the KLOException that f throws, 0 if it throws none.
  template <class F>
  static int code(F&& f) {
    try {
      f();
    } catch (const KLOException& e) {
      return e.getErrorCode();
    }
    return 0;
  }

 protected:
  // The fake is reset before env is made: a previous test's scripts must not reach it.
  struct Reset {
    Reset() { klo_fake::reset(); }
  } resetFirst;
  KLOEnv env;

  void SetUp() override { klo_fake::reset(); }

  // Scripts the counts that sync() reads.
  static void scriptCounts(int vars, int constrs, int psdVars = 0, int sos = 0, int gen = 0) {
    const char* names[] = {"NumVars", "NumConstrs", "NumPsdVars", "NumSOS", "NumGenConstrs"};
    const int counts[] = {vars, constrs, psdVars, sos, gen};
    for (int k = 0; k < 5; ++k) klo_fake::on("KLOgetintattr", names[k]).out(2, 0LL + counts[k]);
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

// Expressions over three variables x, y, z (indices 0, 1, 2) and a PSD
// variable X, with their terms read back as text.
class ExprTest : public FakeTest {
 protected:
  std::unique_ptr<KLOModel> model;
  KLOVar x, y, z;
  KLOPsdVar X;

  void SetUp() override {
    FakeTest::SetUp();
    model = readModel(3, 0, 1);
    x = Access::vars(*model)[0];
    y = Access::vars(*model)[1];
    z = Access::vars(*model)[2];
    X = Access::psdvars(*model)[0];
  }

  // Linear terms as "coeff*index" strings, then "+constant".
  static std::string lin(const KLOLinExpr& e) {
    std::string out;
    for (int i = 0; i < e.size(); ++i)
      out += num(e.getCoeff(i)) + "*" + std::to_string(e.getVar(i).index()) + " ";
    return out + "+" + num(e.getConstant());
  }

  // Quadratic terms as "coeff*index1*index2" strings, then the linear part.
  static std::string quad(const KLOQuadExpr& q) {
    std::string out;
    for (int i = 0; i < q.size(); ++i) {
      out += num(q.getCoeff(i)) + "*" + std::to_string(q.getVar1(i).index()) + "*" +
             std::to_string(q.getVar2(i).index()) + " ";
    }
    return out + "| " + lin(q.getLinExpr());
  }

  template <class T>
  static std::string num(const T& v) {
    std::ostringstream s;
    s << v;
    return s.str();
  }
};
