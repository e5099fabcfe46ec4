// Convexity of quadratic parts: model in, class out, and the refusal that
// names the part.
#include "solve/convexity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "common/error.h"
#include "solve/chooser.h"

namespace klotest {
namespace {

using klo::ModelClass;
using klo::engine::Problem;
using klo::engine::QuadTerms;

// Three columns in [0, 10], no rows; `row` adds one with the given
// bounds, linear part and quadratic terms.
Problem threeColumns() {
  Problem p;
  p.obj = {1, 1, 1};
  p.colLower = {0, 0, 0};
  p.colUpper = {10, 10, 10};
  p.colType = {'C', 'C', 'C'};
  p.columnMajor = false;
  return p;
}

void row(Problem& p, double lo, double up, std::vector<double> linear, QuadTerms q) {
  const int r = p.numRows();
  for (int j = 0; j < 3; ++j)
    if (linear[j] != 0) {
      p.index.push_back(j);
      p.value.push_back(linear[j]);
    }
  p.start.push_back(static_cast<int>(p.index.size()));
  p.rowLower.push_back(lo);
  p.rowUpper.push_back(up);
  p.quadRows.push_back({r, std::move(q), "r" + std::to_string(r)});
}

constexpr double kInf = KLO_INFINITY;

TEST(Convexity, ModelInClassOut) {
  struct Case {
    const char* name;
    std::function<void(Problem&)> make;
    ModelClass cls;
  };
  const Case cases[] = {
      {"LP", [](Problem&) {}, ModelClass::LP},
      {"MIP", [](Problem& p) { p.colType[0] = 'I'; }, ModelClass::MIP},
      {"min x0^2 + x1^2",
       [](Problem& p) {
         p.objQuad = {{0, 1}, {0, 1}, {1, 1}};
       },
       ModelClass::QP},
      {"min (x0 - x1)^2, singular",
       [](Problem& p) {
         p.objQuad = {{0, 0, 1}, {0, 1, 1}, {1, -2, 1}};
       },
       ModelClass::QP},
      {"max -x0^2",
       [](Problem& p) {
         p.sense = -1;
         p.objQuad = {{0}, {0}, {-1}};
       },
       ModelClass::QP},
      {"max x0^2",
       [](Problem& p) {
         p.sense = -1;
         p.objQuad = {{0}, {0}, {1}};
       },
       ModelClass::Nonconvex},
      {"min x0 x1",
       [](Problem& p) {
         p.objQuad = {{0}, {1}, {1}};
       },
       ModelClass::Nonconvex},
      {"min x0^2 + 3 x0 x1 + x1^2 (eigenvalues 2.5, -0.5)",
       [](Problem& p) {
         p.objQuad = {{0, 0, 1}, {0, 1, 1}, {1, 3, 1}};
       },
       ModelClass::Nonconvex},
      {"x0^2 + x1^2 <= 4",
       [](Problem& p) {
         row(p, -kInf, 4, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
       },
       ModelClass::QCQP},
      {"-x0^2 + x1 >= -4",
       [](Problem& p) {
         row(p, -4, kInf, {0, 1, 0}, {{0}, {0}, {-1}});
       },
       ModelClass::QCQP},
      {"x0^2 + x1^2 >= 1",
       [](Problem& p) {
         row(p, 1, kInf, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
       },
       ModelClass::Nonconvex},
      {"x0^2 + x1^2 == 1",
       [](Problem& p) {
         row(p, 1, 1, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
       },
       ModelClass::Nonconvex},
      {"cone x0^2 + x1^2 - x2^2 <= 0, x2 >= 0",
       [](Problem& p) {
         row(p, -kInf, 0, {0, 0, 0}, {{0, 1, 2}, {0, 1, 2}, {1, 1, -1}});
       },
       ModelClass::QCQP},
      {"the same cone with x2 >= -1",
       [](Problem& p) {
         p.colLower[2] = -1;
         row(p, -kInf, 0, {0, 0, 0}, {{0, 1, 2}, {0, 1, 2}, {1, 1, -1}});
       },
       ModelClass::Nonconvex},
      {"cone as >=: x2^2 - x0^2 >= 1 (sqrt(x0^2 + 1) <= x2)",
       [](Problem& p) {
         row(p, 1, kInf, {0, 0, 0}, {{0, 2}, {0, 2}, {-1, 1}});
       },
       ModelClass::QCQP},
      {"hyperboloid x0^2 - x2^2 <= 1",
       [](Problem& p) {
         row(p, -kInf, 1, {0, 0, 0}, {{0, 2}, {0, 2}, {1, -1}});
       },
       ModelClass::Nonconvex},
      {"(x0 + 1)^2 - x2^2 <= 0 written x0^2 + 2 x0 - x2^2 <= -1",
       [](Problem& p) {
         row(p, -kInf, -1, {2, 0, 0}, {{0, 2}, {0, 2}, {1, -1}});
       },
       ModelClass::QCQP},
      {"x0^2 + 2 x0 - x2^2 <= 0 (hyperboloid after completing the square)",
       [](Problem& p) {
         row(p, -kInf, 0, {2, 0, 0}, {{0, 2}, {0, 2}, {1, -1}});
       },
       ModelClass::Nonconvex},
      {"rotated cone x0^2 <= x1 x2",
       [](Problem& p) {
         row(p, -kInf, 0, {0, 0, 0}, {{0, 1}, {0, 2}, {1, -1}});
       },
       ModelClass::QCQP},
      {"x0^2 <= x1 x2 with a linear term on x1",
       [](Problem& p) {
         row(p, -kInf, 0, {0, 1, 0}, {{0, 1}, {0, 2}, {1, -1}});
       },
       ModelClass::Nonconvex},
      {"mixed-integer convex",
       [](Problem& p) {
         p.colType[1] = 'B';
         row(p, -kInf, 4, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
       },
       ModelClass::MIQP},
      {"mixed-integer nonconvex",
       [](Problem& p) {
         p.colType[1] = 'B';
         p.objQuad = {{0}, {1}, {1}};
       },
       ModelClass::Nonconvex},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Problem p = threeColumns();
    c.make(p);
    EXPECT_EQ(klo::classify(p), c.cls) << klo::className(klo::classify(p));
  }
}

// A Gram matrix B'B of n columns is positive semidefinite, of rank 3 here;
// less a small multiple of the identity it is not.  Both are one dense block.
TEST(Convexity, DenseBlocksAreFactorisedWithATolerance) {
  const int n = 40;
  QuadTerms gram, shifted;
  for (int i = 0; i < n; ++i)
    for (int j = i; j < n; ++j) {
      double v = 0;
      for (int k = 0; k < 3; ++k) v += std::sin(i + 7.0 * k) * std::sin(j + 7.0 * k);
      const double term = i == j ? v : 2 * v;  // x'Mx lists each pair once
      gram.row.push_back(i), gram.col.push_back(j), gram.val.push_back(term);
      shifted.row.push_back(i), shifted.col.push_back(j);
      shifted.val.push_back(i == j ? term - 1e-2 : term);
    }
  EXPECT_TRUE(klo::semidefinite(gram, 1));
  EXPECT_FALSE(klo::semidefinite(gram, -1));
  EXPECT_FALSE(klo::semidefinite(shifted, 1));
}

// A chain of 10000 coupled columns is never made dense: the smoothing
// matrix (2 on the diagonal, -1 beside it) passes as diagonally dominant;
// one that is not is refused as too large to check, not factorised.
TEST(Convexity, LargeBlocksAreNotMadeDense) {
  const int n = 10000;
  QuadTerms smooth, weak;
  for (int i = 0; i < n; ++i) {
    for (QuadTerms* q : {&smooth, &weak})
      q->row.push_back(i), q->col.push_back(i), q->val.push_back(q == &smooth ? 2 : 0.5);
    if (i + 1 < n)
      for (QuadTerms* q : {&smooth, &weak})
        q->row.push_back(i), q->col.push_back(i + 1), q->val.push_back(-2);  // -x_i x_{i+1} twice
  }
  EXPECT_TRUE(klo::semidefinite(smooth, 1));
  try {
    klo::semidefinite(weak, 1);
    ADD_FAILURE() << "accepted";
  } catch (const klo::Error& e) {
    EXPECT_EQ(e.code, KLO_ERROR_NOT_SUPPORTED);
    EXPECT_NE(e.message.find("too large to check"), std::string::npos) << e.message;
  }
}

TEST(Convexity, RefusalNamesThePartUnlessALocalAnswerIsAskedFor) {
  Problem p = threeColumns();
  row(p, -kInf, 4, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
  row(p, 1, kInf, {0, 0, 0}, {{0, 1}, {0, 1}, {1, 1}});
  try {
    klo::chooseEngine(p, "KLOoptimize");
    ADD_FAILURE() << "accepted";
  } catch (const klo::Error& e) {
    EXPECT_EQ(e.code, KLO_ERROR_NONCONVEX);
    EXPECT_NE(e.message.find("KLOoptimize: row \"r1\" is not convex"), std::string::npos)
        << e.message;
    EXPECT_NE(e.message.find("\"NonConvex\""), std::string::npos) << e.message;
  }
  klo::engine::EngineEntry local{"Local", {}, nullptr}, global{"Global", {}, nullptr};
  local.caps.features = global.caps.features = klo::engine::kQuadRows;
  local.caps.local = true;
  EXPECT_STREQ(klo::chooseEngine(p, "x", true, {global, local}).name, "Local");
  p.quadRows.pop_back();
  EXPECT_STREQ(klo::chooseEngine(p, "x", true, {global, local}).name, "Global");
}

}  // namespace
}  // namespace klotest
