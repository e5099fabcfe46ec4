// Expressions written to streams: names, signs, dropped unit coefficients
// and the established quadratic forms, byte for byte.
#include <iomanip>

#include "expr_fixture.h"

namespace {

class ExprPrinting : public ExprTest {
 protected:
  // Names handed out by successive "VarName" reads.
  static void names(std::vector<klo_fake::Value> values) {
    klo_fake::reset();
    klo_fake::on("KLOgetstrattrelement", "VarName").outs(3, std::move(values));
  }

  template <class E>
  static std::string print(const E& e) {
    std::ostringstream os;
    os << e;
    return os.str();
  }
};

TEST_F(ExprPrinting, LinearForms) {
  names({"x", "y"});
  EXPECT_EQ(print(2 * x - y + 3), "2 * x - y + 3");
  names({"x"});
  EXPECT_EQ(print(-x + 1), "- x + 1");
  EXPECT_EQ(print(KLOLinExpr()), "");
  EXPECT_EQ(print(KLOLinExpr(-2.0)), "- 2");
  EXPECT_EQ(print(KLOLinExpr(1.0)), "1");
}

TEST_F(ExprPrinting, CoefficientsAsTheDefaultFormatShowsThem) {
  KLOLinExpr zeroed = x + 2 * y;
  zeroed *= 0.0;
  names({"x", "y"});
  EXPECT_EQ(print(zeroed), "");
  names({"x"});
  EXPECT_EQ(print(KLOLinExpr(x, 1.0000001)), "1 * x");
  names({""});
  EXPECT_EQ(print(x + 0.0), "1");
  names({"x"});
  EXPECT_EQ(print(KLOLinExpr(x, 123456789.0)), "1.23457e+08 * x");
}

TEST_F(ExprPrinting, QuadraticFormsKeepTheirJoinedText) {
  names({"x", "y", "x"});
  EXPECT_EQ(print(x * y + 2 * x + 1), "x * y2 * x + 1");
  names({"x"});
  EXPECT_EQ(print(KLOQuadExpr(2 * x + 1)), " * x + 1");
  names({"x", "y", "x"});
  EXPECT_EQ(print(x * y - 2 * x), "x * y- 2 * x");
  names({"x", "y"});
  EXPECT_EQ(print(-3 * (x * y)), "- 3 * x * y");
  EXPECT_EQ(print(KLOQuadExpr()), "");
}

TEST_F(ExprPrinting, CallersStreamStateIsNeitherUsedNorChanged) {
  names({"x"});
  std::ostringstream os;
  os << std::fixed << std::setprecision(2);
  os << 2.5 * x;
  EXPECT_EQ(os.str(), "2.5 * x");
  EXPECT_EQ(os.precision(), 2);
}

TEST_F(ExprPrinting, AFailingNameWritesNothing) {
  klo_fake::on("KLOgetstrattrelement", "VarName").statuses({0, -2003});
  std::ostringstream os;
  EXPECT_EQ(thrown([&] { os << x + y; }).getErrorCode(), -2003);
  EXPECT_EQ(os.str(), "");
}

}  // namespace
