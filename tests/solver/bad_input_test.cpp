// Bad input on every kind of function: each case gets its own code and a
// message, and leaves the model exactly as it was.
#include <functional>
#include <string>
#include <vector>

#include "model_snapshot.h"
#include "test_support.h"

namespace {

struct BadCall {
  const char* what;
  int code;
  std::function<int(KLOmodel*)> call;
};

const int kInd2[] = {0, 1};
const int kBadVar[] = {0, 3};
const double kVal2[] = {1, 2};
const double kNaN2[] = {1, NAN};
const double kInf2[] = {1, INFINITY};
const double kHuge2[] = {1e308, 1e308};
const int kSwapped2[] = {1, 0};
const int kSame2[] = {1, 1};
const int kBeg1[] = {0};
const char kLess[] = {'<'};
const double kRhs1[] = {1};

class BadInput : public klotest::ModelTest {
 protected:
  void SetUp() override {
    ModelTest::SetUp();
    addVars(3);
    ASSERT_EQ(KLOsetcharattrelement(model, "VType", 2, 'B'), KLO_OK);
    const int ind[] = {0, 1};
    const double val[] = {1, 1};
    ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, val, 0, 4, "r"), KLO_OK);
    ASSERT_EQ(KLOaddpsdvar(model, 2, "P"), KLO_OK);
    ASSERT_EQ(KLOaddgenconstrIndicator(model, "g", 2, 1, 2, kInd2, kVal2, '<', 1), KLO_OK);
  }
};

const std::vector<BadCall> kCases = {
    // null pointers where an array is required
    {"addvars without index array", KLO_ERROR_NULL_ARGUMENT,
     [](KLOmodel* m) {
       return KLOaddvars(m, 1, 2, kBeg1, nullptr, kVal2, nullptr, nullptr, nullptr, nullptr,
                         nullptr);
     }},
    {"addconstrs without column indices", KLO_ERROR_NULL_ARGUMENT,
     [](KLOmodel* m) {
       return KLOaddconstrs(m, 1, 2, kBeg1, nullptr, kVal2, nullptr, kRhs1, nullptr);
     }},
    {"addqpterms without values", KLO_ERROR_NULL_ARGUMENT,
     [](KLOmodel* m) { return KLOaddqpterms(m, 1, kInd2, kInd2, nullptr); }},
    {"delvars without indices", KLO_ERROR_NULL_ARGUMENT,
     [](KLOmodel* m) { return KLOdelvars(m, 1, nullptr); }},
    {"getconstrs without count", KLO_ERROR_NULL_ARGUMENT,
     [](KLOmodel* m) { return KLOgetconstrs(m, nullptr, nullptr, nullptr, nullptr, 0, 1); }},
    {"set string attribute to null", KLO_ERROR_NULL_ARGUMENT,
     [](KLOmodel* m) { return KLOsetstrattr(m, "ModelName", nullptr); }},
    {"null model", KLO_ERROR_NULL_ARGUMENT,
     [](KLOmodel*) { return KLOaddvar(nullptr, 0, nullptr, nullptr, 0, 0, 1, 'C', "x"); }},
    // indices out of range, with each kind's code
    {"row entry names a missing variable", KLO_ERROR_INVALID_VAR,
     [](KLOmodel* m) { return KLOaddrangeconstr(m, 2, kBadVar, kVal2, 0, 1, "bad"); }},
    {"column entry names a missing row", KLO_ERROR_INVALID_CONSTR,
     [](KLOmodel* m) { return KLOaddvar(m, 2, kBadVar, kVal2, 0, 0, 1, 'C', "bad"); }},
    {"delete a missing row", KLO_ERROR_INVALID_CONSTR,
     [](KLOmodel* m) { return KLOdelconstrs(m, 2, kBadVar); }},
    {"delete a missing PSD variable", KLO_ERROR_INVALID_PSDVAR,
     [](KLOmodel* m) { return KLOdelpsdvars(m, 2, kBadVar); }},
    {"delete a missing SOS", KLO_ERROR_INVALID_SOS,
     [](KLOmodel* m) { return KLOdelsos(m, 1, kInd2); }},
    {"delete a missing general constraint", KLO_ERROR_INVALID_GENCONSTR,
     [](KLOmodel* m) {
       const int missing[] = {1};  // the model has one
       return KLOdelgenconstrs(m, 1, missing);
     }},
    {"attribute of a missing variable", KLO_ERROR_INVALID_VAR,
     [](KLOmodel* m) { return KLOsetdblattrelement(m, "Obj", 3, 1.0); }},
    {"attribute array past the end", KLO_ERROR_INVALID_CONSTR,
     [](KLOmodel* m) { return KLOsetdblattrarray(m, "RHS", 0, 2, kVal2); }},
    {"negative objective index", KLO_ERROR_INVALID_OBJECTIVE,
     [](KLOmodel* m) { return KLOsetobjectiven(m, -1, 0, 1, 0, 0, "o", 0, 0, nullptr, nullptr); }},
    // negative counts and broken offsets
    {"negative variable count", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       return KLOaddvars(m, -1, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                         nullptr);
     }},
    {"negative non-zero count", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddrangeconstr(m, -2, kInd2, kVal2, 0, 1, "bad"); }},
    {"begin offsets out of order", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       const int beg[] = {1, 0};
       const double lo[] = {0, 0}, up[] = {1, 1};
       return KLOaddrangeconstrs(m, 2, 2, beg, kInd2, kVal2, lo, up, nullptr);
     }},
    // NaN anywhere, infinite coefficients
    {"NaN coefficient", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddrangeconstr(m, 2, kInd2, kNaN2, 0, 1, "bad"); }},
    {"infinite coefficient", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddrangeconstr(m, 2, kInd2, kInf2, 0, 1, "bad"); }},
    {"NaN bound", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddvar(m, 0, nullptr, nullptr, 0, NAN, 1, 'C', "bad"); }},
    {"infinite objective coefficient", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOsetdblattrelement(m, "Obj", 0, -INFINITY); }},
    {"NaN right-hand side", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       const double rhs[] = {NAN};
       return KLOaddconstrs(m, 1, 2, kBeg1, kInd2, kVal2, kLess, rhs, nullptr);
     }},
    {"NaN objective constant", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOsetdblattr(m, "ObjCon", NAN); }},
    {"NaN quadratic coefficient", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       return KLOaddqconstr(m, 0, nullptr, nullptr, 2, kInd2, kInd2, kNaN2, '<', 1, "bad");
     }},
    {"infinite quadratic coefficient", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       return KLOaddqconstr(m, 2, kInd2, kVal2, 2, kInd2, kInd2, kInf2, '<', 1, "bad");
     }},
    {"quadratic term of a missing variable", KLO_ERROR_INVALID_VAR,
     [](KLOmodel* m) {
       return KLOaddqconstr(m, 2, kInd2, kVal2, 2, kInd2, kBadVar, kVal2, '<', 1, "bad");
     }},
    {"NaN quadratic objective coefficient", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddqpterms(m, 2, kInd2, kInd2, kNaN2); }},
    {"infinite quadratic objective coefficient", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddqpterms(m, 2, kInd2, kInd2, kInf2); }},
    // finite coefficients of one term whose sum is not
    {"x0 x1 and x1 x0 summing past the largest double", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddqpterms(m, 2, kInd2, kSwapped2, kHuge2); }},
    {"a repeated entry summing past the largest double", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddrangeconstr(m, 2, kSame2, kHuge2, 0, 1, "bad"); }},
    {"NaN PSD objective entry", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOsetmatattrelement(m, "PsdObj", 0, 2, 2, 2, kInd2, kNaN2); }},
    // unknown letters
    {"unknown variable type", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddvar(m, 0, nullptr, nullptr, 0, 0, 1, 'Z', "bad"); }},
    {"unknown type in an array", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       const char t[] = {'I', 'x'};
       return KLOsetcharattrarray(m, "VType", 0, 2, t);
     }},
    {"unknown SOS type", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       const int type = 0;
       return KLOaddsos(m, 1, 2, &type, kBeg1, kInd2, kVal2);
     }},
    // attributes: unknown, wrong kind, wrong level, read-only
    {"unknown attribute", KLO_ERROR_UNKNOWN_ATTRIBUTE,
     [](KLOmodel* m) { return KLOsetintattr(m, "Bogus", 1); }},
    {"attribute of another type", KLO_ERROR_ATTRIBUTE_TYPE,
     [](KLOmodel* m) { return KLOsetintattr(m, "ObjCon", 1); }},
    {"element attribute at model level", KLO_ERROR_ATTRIBUTE_LEVEL,
     [](KLOmodel* m) { return KLOsetdblattr(m, "LB", 1); }},
    {"model attribute at element level", KLO_ERROR_ATTRIBUTE_LEVEL,
     [](KLOmodel* m) { return KLOsetdblattrelement(m, "ObjCon", 0, 1); }},
    {"read-only attribute", KLO_ERROR_ATTRIBUTE_READONLY,
     [](KLOmodel* m) { return KLOsetintattr(m, "NumVars", 9); }},
    {"value out of an attribute's range", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOsetintattr(m, "ModelSense", 2); }},
    // other refusals
    {"indicator on a continuous variable", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOaddgenconstrIndicator(m, "g", 0, 1, 2, kInd2, kVal2, '<', 1); }},
    {"an indicator's binary made continuous", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOsetcharattrelement(m, "VType", 2, 'C'); }},
    {"objective index far beyond the others", KLO_ERROR_INVALID_OBJECTIVE,
     [](KLOmodel* m) {
       return KLOsetobjectiven(m, 50000000, 0, 1, 0, 0, "far", 0, 0, nullptr, nullptr);
     }},
    {"infinite SOS weight", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       const int type[] = {KLO_SOS_TYPE1};
       const double weight[] = {1, 1e30};
       return KLOaddsos(m, 1, 2, type, kBeg1, kInd2, weight);
     }},
    {"PSD matrix of the wrong shape", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) { return KLOsetmatattrelement(m, "PsdObj", 0, 2, 3, 3, kInd2, kVal2); }},
    {"PSD objective whose mirror entries differ", KLO_ERROR_INVALID_ARGUMENT,
     [](KLOmodel* m) {
       const int mirrored[] = {1, 2};  // (0,1) and (1,0) of a 2 x 2 matrix
       return KLOsetmatattrelement(m, "PsdObj", 0, 2, 2, 2, mirrored, kVal2);
     }},
};

TEST_F(BadInput, EveryCaseHasItsCodeAMessageAndChangesNothing) {
  std::string before = klotest::snapshot(model);
  for (const BadCall& c : kCases) {
    SCOPED_TRACE(c.what);
    KLOsetintattr(model, "Marker", 0);  // a message that the call must replace
    EXPECT_EQ(c.call(model), c.code);
    if (std::string(c.what) != "null model") {  // no environment to hold a message
      EXPECT_EQ(modelError().find("Marker"), std::string::npos) << modelError();
    }
    EXPECT_EQ(klotest::snapshot(model), before);
  }
}

TEST_F(BadInput, MessagesNameTheOffendingValue) {
  EXPECT_EQ(KLOaddrangeconstr(model, 2, kBadVar, kVal2, 0, 1, "bad"), KLO_ERROR_INVALID_VAR);
  EXPECT_NE(modelError().find("index 3"), std::string::npos) << modelError();
  EXPECT_EQ(KLOaddvar(model, 0, nullptr, nullptr, 0, 0, 1, 'Z', "bad"), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_NE(modelError().find("'Z'"), std::string::npos) << modelError();
  EXPECT_EQ(KLOsetintattr(model, "Bogus", 1), KLO_ERROR_UNKNOWN_ATTRIBUTE);
  EXPECT_NE(modelError().find("Bogus"), std::string::npos) << modelError();
  EXPECT_EQ(KLOaddrangeconstr(model, 2, kInd2, kInf2, 0, 1, "bad"), KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_NE(modelError().find("inf"), std::string::npos) << modelError();
}

}  // namespace
