// Bad input on every kind of function: each case gets its own code and a
// message, and leaves the model exactly as it was.
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "fixtures.h"
#include "model_snapshot.h"

namespace klotest {
namespace {

using M = KLOmodel*;

struct BadCall {
  const char* what;
  int code;
  const char* says;  // in the message ("" for any new message)
  std::function<int(M)> call;
};

const int kInd2[] = {0, 1}, kBadVar[] = {0, 3}, kSwapped2[] = {1, 0}, kSame2[] = {1, 1};
const int kBeg1[] = {0}, kOne[] = {1}, kZero[] = {0}, kFour[] = {4}, kType1[] = {1};
const double kVal2[] = {1, 2}, kNaN2[] = {1, NAN}, kInf2[] = {1, INFINITY};
const double kHuge2[] = {1e308, 1e308}, kRhs1[] = {1}, kW1[] = {1};
const char kLess[] = {'<'};

// 100 rows, one of them bad: none may be added.
int hundredRows(M m, int badVar, double badLower) {
  std::vector<int> beg(100), ind(100);
  std::vector<double> val(100, 1.0), lo(100, 0.0), up(100, 1.0);
  for (int k = 0; k < 100; ++k) beg[k] = k, ind[k] = k % 2;
  ind[57] = badVar;
  lo[99] = badLower;
  return KLOaddrangeconstrs(m, 100, 100, beg.data(), ind.data(), val.data(), lo.data(), up.data(),
                            nullptr);
}

const std::vector<BadCall> kCases = {
    // null pointers where an array or a result is required
    {"addvars without index array", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) {
       return KLOaddvars(m, 1, 2, kBeg1, nullptr, kVal2, nullptr, nullptr, nullptr, nullptr,
                         nullptr);
     }},
    {"addconstrs without column indices", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOaddconstrs(m, 1, 2, kBeg1, nullptr, kVal2, nullptr, kRhs1, nullptr); }},
    {"addqpterms without values", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOaddqpterms(m, 1, kInd2, kInd2, nullptr); }},
    {"delvars without indices", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOdelvars(m, 1, nullptr); }},
    {"getconstrs without count", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOgetconstrs(m, nullptr, nullptr, nullptr, nullptr, 0, 1); }},
    {"getvars without count", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOgetvars(m, nullptr, nullptr, nullptr, nullptr, 0, 1); }},
    {"getconstrcoeff without result", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOgetconstrcoeff(m, 0, 0, nullptr); }},
    {"getvarbyname without name", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) {
       int i = 0;
       return KLOgetvarbyname(m, nullptr, &i);
     }},
    {"set string attribute to null", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOsetstrattr(m, "ModelName", nullptr); }},
    {"set a name to null", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOsetstrattrelement(m, "VarName", 0, nullptr); }},
    {"attribute array from null", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOsetdblattrarray(m, "Obj", 0, 2, nullptr); }},
    {"SOS without types", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) { return KLOaddsos(m, 1, 2, nullptr, kBeg1, kInd2, kVal2); }},
    {"PSD row without offsets", KLO_ERROR_NULL_ARGUMENT, "",
     [](M m) {
       return KLOaddrangepsdconstr(m, 0, nullptr, nullptr, 1, kZero, nullptr, kZero, kW1, 0, 1, "");
     }},
    {"null model", KLO_ERROR_NULL_ARGUMENT, "",
     [](M) { return KLOaddvar(nullptr, 0, nullptr, nullptr, 0, 0, 1, 'C', "x"); }},
    // indices out of range, with each kind's code
    {"row entry names a missing variable", KLO_ERROR_INVALID_VAR, "index 3",
     [](M m) { return KLOaddrangeconstr(m, 2, kBadVar, kVal2, 0, 1, "bad"); }},
    {"one of 100 rows names a missing variable", KLO_ERROR_INVALID_VAR, "9",
     [](M m) { return hundredRows(m, 9, 0); }},
    {"column entry names a missing row", KLO_ERROR_INVALID_CONSTR, "",
     [](M m) { return KLOaddvar(m, 2, kBadVar, kVal2, 0, 0, 1, 'C', "bad"); }},
    {"delete a missing variable", KLO_ERROR_INVALID_VAR, "3",
     [](M m) { return KLOdelvars(m, 2, kBadVar); }},
    {"delete a missing row", KLO_ERROR_INVALID_CONSTR, "",
     [](M m) { return KLOdelconstrs(m, 2, kBadVar); }},
    {"delete a missing PSD variable", KLO_ERROR_INVALID_PSDVAR, "",
     [](M m) { return KLOdelpsdvars(m, 2, kBadVar); }},
    {"delete a missing SOS", KLO_ERROR_INVALID_SOS, "", [](M m) { return KLOdelsos(m, 1, kOne); }},
    {"delete a missing general constraint", KLO_ERROR_INVALID_GENCONSTR, "",
     [](M m) { return KLOdelgenconstrs(m, 1, kOne); }},
    {"coefficient of a missing row", KLO_ERROR_INVALID_CONSTR, "",
     [](M m) { return KLOsetconstrcoeff(m, 1, 0, 1.0); }},
    {"coefficient of a missing variable", KLO_ERROR_INVALID_VAR, "",
     [](M m) { return KLOsetconstrcoeff(m, 0, 3, 1.0); }},
    {"quadratic row that is missing", KLO_ERROR_INVALID_CONSTR, "",
     [](M m) {
       int n = 0;
       return KLOgetqconstr(m, 1, &n, nullptr, nullptr, &n, nullptr, nullptr, nullptr);
     }},
    {"SOS that is missing", KLO_ERROR_INVALID_SOS, "",
     [](M m) {
       int n = 0;
       return KLOgetsos(m, &n, nullptr, nullptr, nullptr, nullptr, 0, 1);
     }},
    {"attribute of a missing variable", KLO_ERROR_INVALID_VAR, "",
     [](M m) { return KLOsetdblattrelement(m, "Obj", 3, 1.0); }},
    {"attribute array past the end", KLO_ERROR_INVALID_CONSTR, "",
     [](M m) { return KLOsetdblattrarray(m, "RHS", 0, 2, kVal2); }},
    {"objective of a missing variable", KLO_ERROR_INVALID_VAR, "",
     [](M m) { return KLOsetobjectiven(m, 1, 0, 1, 0, 0, "", 0, 1, kFour, kVal2); }},
    {"negative objective index", KLO_ERROR_INVALID_OBJECTIVE, "",
     [](M m) { return KLOsetobjectiven(m, -1, 0, 1, 0, 0, "o", 0, 0, nullptr, nullptr); }},
    {"objective index far beyond the others", KLO_ERROR_INVALID_OBJECTIVE, "",
     [](M m) { return KLOsetobjectiven(m, 50000000, 0, 1, 0, 0, "", 0, 0, nullptr, nullptr); }},
    {"indicator on a missing variable", KLO_ERROR_INVALID_VAR, "",
     [](M m) { return KLOaddgenconstrIndicator(m, "g", 5, 1, 1, kOne, kW1, '<', 1); }},
    {"SOS member missing", KLO_ERROR_INVALID_VAR, "",
     [](M m) { return KLOaddsos(m, 1, 2, kType1, kBeg1, kBadVar, kVal2); }},
    {"PSD row on a missing PSD variable", KLO_ERROR_INVALID_PSDVAR, "",
     [](M m) {
       return KLOaddrangepsdconstr(m, 0, nullptr, nullptr, 1, kOne, kInd2, kZero, kW1, 0, 1, "");
     }},
    {"PSD objective of a missing PSD variable", KLO_ERROR_INVALID_PSDVAR, "",
     [](M m) { return KLOsetmatattrelement(m, "PsdObj", 1, 1, 2, 2, kZero, kW1); }},
    // negative counts and broken offsets
    {"negative variable count", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       return KLOaddvars(m, -1, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         nullptr);
     }},
    {"negative deletion count", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOdelvars(m, -1, kInd2); }},
    {"negative non-zero count", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddrangeconstr(m, -2, kInd2, kVal2, 0, 1, "bad"); }},
    {"begin offsets out of order", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const int beg[] = {1, 0};
       const double lo[] = {0, 0}, up[] = {1, 1};
       return KLOaddrangeconstrs(m, 2, 2, beg, kInd2, kVal2, lo, up, nullptr);
     }},
    // NaN anywhere, infinite coefficients
    {"NaN coefficient", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddrangeconstr(m, 2, kInd2, kNaN2, 0, 1, "bad"); }},
    {"infinite coefficient", KLO_ERROR_INVALID_ARGUMENT, "inf",
     [](M m) { return KLOaddrangeconstr(m, 2, kInd2, kInf2, 0, 1, "bad"); }},
    {"infinite coefficient set", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetconstrcoeff(m, 0, 0, INFINITY); }},
    {"NaN bound", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddvar(m, 0, nullptr, nullptr, 0, NAN, 1, 'C', "bad"); }},
    {"NaN upper bound of a range row", KLO_ERROR_INVALID_ARGUMENT, "upper bound",
     [](M m) { return KLOaddrangeconstr(m, 2, kInd2, kVal2, 0, NAN, "bad"); }},
    {"NaN lower bound in the last of 100 rows", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return hundredRows(m, 1, NAN); }},
    {"NaN in an array of bounds", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetdblattrarray(m, "LB", 0, 2, kNaN2); }},
    {"infinite objective coefficient", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetdblattrelement(m, "Obj", 0, -INFINITY); }},
    {"NaN right-hand side", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const double rhs[] = {NAN};
       return KLOaddconstrs(m, 1, 2, kBeg1, kInd2, kVal2, kLess, rhs, nullptr);
     }},
    {"NaN objective constant", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetdblattr(m, "ObjCon", NAN); }},
    {"NaN objective weight", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetobjectiven(m, 1, 0, NAN, 0, 0, "", 0, 0, nullptr, nullptr); }},
    {"negative objective tolerance", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetdblattr(m, "ObjNAbsTol", -1); }},
    {"NaN quadratic coefficient", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       return KLOaddqconstr(m, 0, nullptr, nullptr, 2, kInd2, kInd2, kNaN2, '<', 1, "bad");
     }},
    {"infinite quadratic coefficient", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddqconstr(m, 2, kInd2, kVal2, 2, kInd2, kInd2, kInf2, '<', 1, "bad"); }},
    {"quadratic term of a missing variable", KLO_ERROR_INVALID_VAR, "",
     [](M m) { return KLOaddqconstr(m, 2, kInd2, kVal2, 2, kInd2, kBadVar, kVal2, '<', 1, "b"); }},
    {"quadratic objective term of a missing variable", KLO_ERROR_INVALID_VAR, "",
     [](M m) { return KLOaddqpterms(m, 2, kBadVar, kInd2, kVal2); }},
    {"NaN quadratic objective coefficient", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddqpterms(m, 2, kInd2, kInd2, kNaN2); }},
    {"infinite quadratic objective coefficient", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddqpterms(m, 2, kInd2, kInd2, kInf2); }},
    // finite coefficients of one term whose sum is not
    {"x0 x1 and x1 x0 summing past the largest double", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddqpterms(m, 2, kInd2, kSwapped2, kHuge2); }},
    {"a repeated entry summing past the largest double", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddrangeconstr(m, 2, kSame2, kHuge2, 0, 1, "bad"); }},
    // unknown letters and values out of their range
    {"unknown variable type", KLO_ERROR_INVALID_ARGUMENT, "'Z'",
     [](M m) { return KLOaddvar(m, 0, nullptr, nullptr, 0, 0, 1, 'Z', "bad"); }},
    {"lower-case variable type", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetcharattrelement(m, "VType", 0, 'c'); }},
    {"unknown type in an array", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const char t[] = {'I', 'x'};
       return KLOsetcharattrarray(m, "VType", 0, 2, t);
     }},
    {"unknown basis status", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const int basis[] = {KLO_BASIS_BASIC, 7};
       return KLOsetintattrarray(m, "ColBasis", 0, 2, basis);
     }},
    {"unknown SOS type", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const int type[] = {3};
       return KLOaddsos(m, 1, 2, type, kBeg1, kInd2, kVal2);
     }},
    {"SOS member twice", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddsos(m, 1, 2, kType1, kBeg1, kSame2, kVal2); }},
    {"SOS weights equal", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const double same[] = {1, 1};
       return KLOaddsos(m, 1, 2, kType1, kBeg1, kInd2, same);
     }},
    {"infinite SOS weight", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const double weight[] = {1, 1e30};
       return KLOaddsos(m, 1, 2, kType1, kBeg1, kInd2, weight);
     }},
    {"value out of an attribute's range", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetintattr(m, "ModelSense", 0); }},
    {"MinSense out of range", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetintattr(m, "MinSense", 2); }},
    // attributes: unknown, wrong kind, wrong level, read-only
    {"unknown attribute", KLO_ERROR_UNKNOWN_ATTRIBUTE, "Bogus",
     [](M m) { return KLOsetintattr(m, "Bogus", 1); }},
    {"attribute of another type", KLO_ERROR_ATTRIBUTE_TYPE, "",
     [](M m) { return KLOsetintattr(m, "ObjCon", 1); }},
    {"element attribute at model level", KLO_ERROR_ATTRIBUTE_LEVEL, "",
     [](M m) { return KLOsetdblattr(m, "LB", 1); }},
    {"model attribute at element level", KLO_ERROR_ATTRIBUTE_LEVEL, "",
     [](M m) { return KLOsetdblattrelement(m, "ObjCon", 0, 1); }},
    // indicators: binaries only, values 0 and 1
    {"indicator on a continuous variable", KLO_ERROR_INVALID_ARGUMENT, "binary",
     [](M m) { return KLOaddgenconstrIndicator(m, "g", 0, 1, 2, kInd2, kVal2, '<', 1); }},
    {"indicator value 2", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddgenconstrIndicator(m, "g", 2, 2, 1, kOne, kW1, '<', 1); }},
    {"indicator with a NaN right-hand side", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddgenconstrIndicator(m, "g", 2, 1, 1, kOne, kW1, '<', NAN); }},
    {"an indicator's binary made continuous", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetcharattrelement(m, "VType", 2, 'C'); }},
    // PSD matrices
    {"PSD variable of dimension 0", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOaddpsdvar(m, 0, "empty"); }},
    {"PSD row entry outside its matrix", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       return KLOaddrangepsdconstr(m, 0, nullptr, nullptr, 1, kZero, kInd2, kFour, kW1, 0, 1, "");
     }},
    {"PSD row whose mirror entries differ", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const int beg[] = {0, 2}, both[] = {1, 2};
       return KLOaddrangepsdconstr(m, 0, nullptr, nullptr, 1, kZero, beg, both, kVal2, 0, 1, "");
     }},
    {"NaN PSD row entry", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const double nan[] = {NAN};
       return KLOaddrangepsdconstr(m, 0, nullptr, nullptr, 1, kZero, kInd2, kZero, nan, 0, 1, "");
     }},
    {"NaN PSD objective entry", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetmatattrelement(m, "PsdObj", 0, 2, 2, 2, kInd2, kNaN2); }},
    {"PSD matrix of the wrong shape", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) { return KLOsetmatattrelement(m, "PsdObj", 0, 2, 3, 3, kInd2, kVal2); }},
    {"PSD objective whose mirror entries differ", KLO_ERROR_INVALID_ARGUMENT, "",
     [](M m) {
       const int mirrored[] = {1, 2};  // (0,1) and (1,0) of a 2 x 2 matrix
       return KLOsetmatattrelement(m, "PsdObj", 0, 2, 2, 2, mirrored, kVal2);
     }},
};

class BadInput : public ModelTest {
 protected:
  // x0, x1 in [0, 10], x2 binary; r: 0 <= x0 + x1 <= 4; P of order 2; g:
  // x2 = 1 implies x0 + 2 x1 <= 1.
  void SetUp() override {
    ModelTest::SetUp();
    addVars(3);
    ASSERT_EQ(KLOsetcharattrelement(model, "VType", 2, 'B'), KLO_OK);
    const double one[] = {1, 1};
    ASSERT_EQ(KLOaddrangeconstr(model, 2, kInd2, one, 0, 4, "r"), KLO_OK);
    ASSERT_EQ(KLOaddpsdvar(model, 2, "P"), KLO_OK);
    ASSERT_EQ(KLOaddgenconstrIndicator(model, "g", 2, 1, 2, kInd2, kVal2, '<', 1), KLO_OK);
  }
};

TEST_F(BadInput, EveryCaseHasItsCodeAMessageAndChangesNothing) {
  const std::string before = snapshot(model);
  for (const BadCall& c : kCases) {
    SCOPED_TRACE(c.what);
    KLOsetintattr(model, "Marker", 0);  // a message that the call must replace
    EXPECT_EQ(c.call(model), c.code);
    if (std::string(c.what) != "null model") {  // no environment to hold a message
      EXPECT_EQ(modelError().find("Marker"), std::string::npos) << modelError();
      EXPECT_NE(modelError().find(c.says), std::string::npos) << modelError();
    }
    EXPECT_EQ(snapshot(model), before);
  }
}

}  // namespace
}  // namespace klotest
