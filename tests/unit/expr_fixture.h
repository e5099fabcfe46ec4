// Expressions over three variables x, y, z (indices 0, 1, 2) and a PSD
// variable X of a model on the test double, with readers of their terms.
#pragma once

#include <cmath>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "model_fixture.h"

class ExprTest : public ModelTest {
 protected:
  std::unique_ptr<KLOModel> model;
  KLOVar x, y, z;
  KLOPsdVar X;

  void SetUp() override {
    ModelTest::SetUp();
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

  static std::string num(double v) {
    std::ostringstream s;
    s << v;
    return s.str();
  }

  // Solution values handed out by successive "X" reads.
  static void scriptX(std::vector<klo_fake::Value> values) {
    klo_fake::on("KLOgetdblattrelement", "X").outs(3, std::move(values));
  }
};
