// The model store through the C interface: models and their environments,
// variables, rows, quadratic and PSD parts, SOS sets, indicators and
// objectives, each added, read back, changed and deleted.
#include <cmath>
#include <vector>

#include "fixtures.h"
#include "model_snapshot.h"
#include "solve/problem_from_model.h"
#include "store/model.h"

namespace klotest {
namespace {

using V = std::vector<double>;
using I = std::vector<int>;
using Models = ModelTest;

TEST_F(Models, NewModelWithInitialVariablesAndDefaults) {
  KLOmodel* m = nullptr;
  const double obj[] = {1, 2, 3};
  const char types[] = {'C', 'B', 'I'};
  const char* names[] = {"a", nullptr, "c"};
  ASSERT_EQ(KLOnewmodel(env, &m, "prob", 3, obj, nullptr, nullptr, types, names), KLO_OK);
  std::swap(m, model);
  EXPECT_EQ(intAttr("NumVars"), 3);
  EXPECT_EQ(dblArray("UB", 3), (V{KLO_INFINITY, 1, KLO_INFINITY})) << "binaries within [0, 1]";
  EXPECT_EQ(dblArray("LB", 3), (V{0, 0, 0}));
  EXPECT_EQ(dblArray("Obj", 3), (V{1, 2, 3}));
  const char* name = nullptr;
  EXPECT_EQ(KLOgetstrattrelement(model, "VarName", 1, &name), KLO_OK);
  EXPECT_STREQ(name, "");
  EXPECT_EQ(KLOgetstrattr(model, "ProbName", &name), KLO_OK);
  EXPECT_STREQ(name, "prob");
  std::swap(m, model);
  KLOfreemodel(m);
  // Refused: nothing is handed out.
  m = reinterpret_cast<KLOmodel*>(0x1);
  const char bad[] = {'C', 'X'};
  EXPECT_EQ(KLOnewmodel(env, &m, "p", 2, nullptr, nullptr, nullptr, bad, nullptr),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(m, nullptr);
  EXPECT_NE(lastError().find("'X'"), std::string::npos);
  EXPECT_EQ(KLOnewmodel(env, &m, "p", -1, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_INVALID_ARGUMENT);
  EXPECT_EQ(KLOnewmodel(env, nullptr, "p", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOnewmodel(nullptr, &m, "p", 0, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(KLOfreemodel(nullptr), KLO_OK);
}

TEST_F(Models, ModelOwnsACopyOfItsEnvironmentAndOutlivesTheOriginal) {
  KLOenv* own = KLOgetenv(model);
  ASSERT_NE(own, nullptr);
  EXPECT_NE(own, env);
  ASSERT_EQ(KLOsetintparam(own, "Method", 2), KLO_OK);
  int v = 0;
  ASSERT_EQ(KLOgetintparam(env, "Method", &v), KLO_OK);
  EXPECT_EQ(v, -1) << "the model's parameters are its own";
  ASSERT_EQ(KLOgetintparam(own, "LogToConsole", &v), KLO_OK);
  EXPECT_EQ(v, 0) << "copied from the environment it was made from";
  EXPECT_EQ(KLOfreeenv(own), KLO_ERROR_INVALID_ARGUMENT) << "freed with its model only";
  EXPECT_EQ(KLOgetenv(nullptr), nullptr);

  KLOenv* other = nullptr;
  ASSERT_EQ(KLOloadenv(&other, nullptr), KLO_OK);
  KLOmodel* m = nullptr;
  ASSERT_EQ(KLOnewmodel(other, &m, "p", 1, nullptr, nullptr, nullptr, nullptr, nullptr), KLO_OK);
  KLOfreeenv(other);
  EXPECT_EQ(KLOaddvar(m, 0, nullptr, nullptr, 1.0, 0, 1, 'C', "y"), KLO_OK);
  EXPECT_EQ(KLOgetintattr(m, "NumVars", &v), KLO_OK);
  EXPECT_EQ(v, 2);
  KLOfreemodel(m);
}

TEST_F(Models, CopyIsDeepAndIndependent) {
  addVars(2);
  const int ind[] = {0, 1};
  const double val[] = {1, 2};
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, val, 1, 5, "r"), KLO_OK);
  ASSERT_EQ(KLOaddpsdvar(model, 2, "P"), KLO_OK);
  setInt("Presolve", 0);
  KLOmodel* copy = KLOcopymodel(model);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(snapshot(copy), snapshot(model));
  int presolve = 1;
  ASSERT_EQ(KLOgetintparam(KLOgetenv(copy), "Presolve", &presolve), KLO_OK);
  EXPECT_EQ(presolve, 0) << "the copy has a copy of the parameters";
  const std::string before = snapshot(model);
  ASSERT_EQ(KLOsetconstrcoeff(copy, 0, 0, 7.0), KLO_OK);
  ASSERT_EQ(KLOsetstrattrelement(copy, "VarName", 1, "renamed"), KLO_OK);
  ASSERT_EQ(KLOaddvar(copy, 0, nullptr, nullptr, 0, 0, 1, 'B', "z"), KLO_OK);
  EXPECT_EQ(snapshot(model), before);
  int index = 0;
  ASSERT_EQ(KLOgetvarbyname(model, "renamed", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  KLOfreemodel(copy);
  EXPECT_EQ(KLOcopymodel(nullptr), nullptr);
}

TEST_F(Models, RelaxDropsIntegralitySosAndIndicators) {
  const char types[] = {'B', 'I', 'S', 'C'};
  const double lb[] = {0, -3, 2, 0}, ub[] = {1, 3, 5, 4};
  ASSERT_EQ(KLOaddvars(model, 4, 0, nullptr, nullptr, nullptr, nullptr, lb, ub, types, nullptr),
            KLO_OK);
  const int type = KLO_SOS_TYPE1, beg = 0, members[] = {1, 3}, ind = 3;
  ASSERT_EQ(KLOaddsos(model, 1, 2, &type, &beg, members, nullptr), KLO_OK);
  const double one = 1;
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "ic", 0, 1, 1, &ind, &one, '<', 2), KLO_OK);
  KLOmodel* relaxed = nullptr;
  ASSERT_EQ(KLOrelaxmodel(model, &relaxed), KLO_OK);
  std::swap(relaxed, model);
  EXPECT_EQ(intAttrs({"IsInteger", "NumSOS", "NumGenConstrs"}), (I{0, 0, 0}));
  char t[4];
  ASSERT_EQ(KLOgetcharattrarray(model, "VType", 0, 4, t), KLO_OK);
  EXPECT_EQ(std::string(t, 4), "CCCC");
  EXPECT_EQ(dblArray("LB", 4), (V{0, -3, 0, 0})) << "a semi-continuous variable may be 0";
  EXPECT_EQ(dblArray("UB", 4), (V{1, 3, 5, 4}));
  std::swap(relaxed, model);
  EXPECT_EQ(intAttr("IsInteger"), 1) << "the original is unchanged";
  KLOfreemodel(relaxed);
  EXPECT_EQ(KLOrelaxmodel(model, nullptr), KLO_ERROR_NULL_ARGUMENT);
}

TEST_F(Models, ResetClearsStartsAndBasesOnlyWithClearAll) {
  addVars(2);
  ASSERT_EQ(KLOsetdblattrelement(model, "Start", 0, 4.0), KLO_OK);
  ASSERT_EQ(KLOsetintattrelement(model, "ColBasis", 1, KLO_BASIS_BASIC), KLO_OK);
  ASSERT_EQ(KLOreset(model, 0), KLO_OK);
  EXPECT_EQ(dblAt("Start", 0), 4.0);
  int basis = -1;
  EXPECT_EQ(KLOgetintattrelement(model, "ColBasis", 1, &basis), KLO_OK);
  EXPECT_EQ(basis, KLO_BASIS_BASIC);
  ASSERT_EQ(KLOreset(model, 1), KLO_OK);
  EXPECT_EQ(dblAt("Start", 0), KLO_UNDEFINED);
  EXPECT_EQ(KLOgetintattrelement(model, "ColBasis", 1, &basis), KLO_ERROR_DATA_NOT_AVAILABLE);
  EXPECT_EQ(KLOreset(model, 2), KLO_ERROR_INVALID_ARGUMENT);
}

TEST_F(Models, ObjectivesAndTheirEnvironments) {
  addVars(2);
  EXPECT_EQ(intAttr("NumObj"), 1) << "the model's own objective";
  const int ind[] = {1, 0};
  const double val[] = {5, 6};
  ASSERT_EQ(KLOsetobjectiven(model, 0, 1, 1, 0, 0, "main", 2.0, 2, ind, val), KLO_OK);
  EXPECT_EQ(dblArray("Obj", 2), (V{6, 5})) << "objective 0 is the model's";
  EXPECT_EQ(dbl("ObjCon"), 2.0);
  EXPECT_EQ(intAttr("NumObj"), 1);
  ASSERT_EQ(KLOsetobjectiven(model, 2, 5, 1.0, 0, 0, "third", 0, 1, ind, val), KLO_OK);
  EXPECT_EQ(intAttr("NumObj"), 3);
  KLOenv* e2 = KLOgetmultiobjenv(model, 2);
  ASSERT_NE(e2, nullptr);
  EXPECT_EQ(KLOgetmultiobjenv(model, 2), e2) << "made once";
  EXPECT_NE(e2, KLOgetenv(model));
  ASSERT_EQ(KLOsetdblparam(e2, "MaxTime", 5.0), KLO_OK);
  double t = 0;
  ASSERT_EQ(KLOgetdblparam(KLOgetenv(model), "MaxTime", &t), KLO_OK);
  EXPECT_EQ(t, 1e20);
  EXPECT_EQ(KLOgetmultiobjenv(model, 3), nullptr);
  EXPECT_EQ(KLOgetmultiobjenv(model, -1), nullptr);
  EXPECT_EQ(KLOdiscardmultiobjenvs(model), KLO_OK);
  EXPECT_NE(KLOgetmultiobjenv(model, 0), nullptr);
}

using Variables = ModelTest;

TEST_F(Variables, ColumnsGoIntoExistingRows) {
  addVars(3);
  const int ind[] = {0, 0};
  const double val[] = {1, 1};
  const char sense[] = {'<', '>'};
  const double rhs[] = {4, 1};
  const int beg[] = {0, 1};
  ASSERT_EQ(KLOaddconstrs(model, 2, 2, beg, ind, val, sense, rhs, nullptr), KLO_OK);
  // y in rows 1 and 0 (out of order, with a duplicate for row 0 that adds
  // up), z in no row.
  const int vbeg[] = {0, 3}, vind[] = {1, 0, 0};
  const double vval[] = {2, 3, 4};
  const char* names[] = {"y", "z"};
  ASSERT_EQ(KLOaddvars(model, 2, 3, vbeg, vind, vval, nullptr, nullptr, nullptr, nullptr, names),
            KLO_OK);
  int nnz = 0, cbeg[4], cind[8];
  double cval[8];
  ASSERT_EQ(KLOgetvars(model, &nnz, cbeg, cind, cval, 0, 4), KLO_OK);
  ASSERT_EQ(nnz, 4);
  EXPECT_EQ(I(cbeg, cbeg + 4), (I{0, 2, 2, 2}));
  EXPECT_EQ(I(cind, cind + 4), (I{0, 1, 0, 1}));
  EXPECT_EQ(V(cval, cval + 4), (V{1, 1, 7, 2}));
  ASSERT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 3, 1), KLO_OK);
  EXPECT_EQ(nnz, 2) << "counted with null arrays";
  ASSERT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 0, 0), KLO_OK);
  EXPECT_EQ(nnz, 0);
  EXPECT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 4, 2), KLO_ERROR_INVALID_VAR);
}

TEST_F(Variables, DeletionRemovesTermsEverywhere) {
  addVars(4);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 3, 'B'), KLO_OK);
  const int ind[] = {0, 1, 2};
  const double val[] = {1, 2, 3};
  ASSERT_EQ(KLOaddrangeconstr(model, 3, ind, val, 0, 9, "lin"), KLO_OK);
  const int qr[] = {1, 0, 2}, qc[] = {1, 2, 2};
  const double qv[] = {1, 4, 5};
  ASSERT_EQ(KLOaddqconstr(model, 2, ind, val, 3, qr, qc, qv, '<', 8, "quad"), KLO_OK);
  ASSERT_EQ(KLOaddqpterms(model, 3, qr, qc, qv), KLO_OK);
  const int type = 1, beg = 0, members[] = {0, 1, 2};
  const double weights[] = {1, 2, 3};
  ASSERT_EQ(KLOaddsos(model, 1, 3, &type, &beg, members, weights), KLO_OK);
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "keep", 3, 1, 2, ind, val, '<', 1), KLO_OK);
  const int obj1[] = {1, 2};
  const double c1[] = {6, 7};
  ASSERT_EQ(KLOsetobjectiven(model, 1, 0, 1, 0, 0, "second", 0, 2, obj1, c1), KLO_OK);

  const int del[] = {1, 1};  // duplicates are harmless
  ASSERT_EQ(KLOdelvars(model, 2, del), KLO_OK);
  EXPECT_EQ(snapshot(model),
            "model 'm'\nvar 0 'x0' C [0, 10] obj 0\nvar 1 'x2' C [0, 10] obj 0\n"
            "var 2 'x3' B [0, 1] obj 0\nrow 0 'lin' [0, 9] 1*x0 3*x1\n"
            "row 1 'quad' [-1e+20, 8] 1*x0 4*x0*x1 5*x1*x1\nsense 1 constant 0\n"
            "q 4*x0*x1\nq 5*x1*x1\nsos1 x0:1 x1:3\nind x2=1 -> 1*x0 < 1\n"
            "psdrows 0 ents 7\nobjectives 2\n");
  int index = -1;
  ASSERT_EQ(KLOgetvarbyname(model, "x2", &index), KLO_OK);
  EXPECT_EQ(index, 1);
  ASSERT_EQ(KLOgetvarbyname(model, "x1", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  EXPECT_EQ(intAttr("NumNZs"), 3);
  setInt("ObjNumber", 1);
  EXPECT_EQ(dblArray("ObjN", 3), (V{0, 7, 0}));
  const int bin[] = {2};
  ASSERT_EQ(KLOdelvars(model, 1, bin), KLO_OK);
  EXPECT_EQ(intAttr("NumGenConstrs"), 0) << "gone with its binary";
  EXPECT_EQ(KLOdelvars(model, 0, nullptr), KLO_OK);
}

TEST_F(Variables, NamesAreFoundAfterRenamesAndDeletes) {
  addVars(5);
  int index = -1;
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 3, "x1"), KLO_OK);
  ASSERT_EQ(KLOgetvarbyname(model, "x1", &index), KLO_OK);
  EXPECT_EQ(index, 1) << "the first of two equal names";
  ASSERT_EQ(KLOsetstrattrelement(model, "VarName", 1, "renamed"), KLO_OK);
  ASSERT_EQ(KLOgetvarbyname(model, "x1", &index), KLO_OK);
  EXPECT_EQ(index, 3) << "the remaining holder of the name";
  ASSERT_EQ(KLOgetvarbyname(model, "x3", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  const int del[] = {0};
  ASSERT_EQ(KLOdelvars(model, 1, del), KLO_OK);
  ASSERT_EQ(KLOgetvarbyname(model, "renamed", &index), KLO_OK);
  EXPECT_EQ(index, 0);
  ASSERT_EQ(KLOgetvarbyname(model, "x4", &index), KLO_OK);
  EXPECT_EQ(index, 3);
  ASSERT_EQ(KLOgetvarbyname(model, "", &index), KLO_OK);
  EXPECT_EQ(index, -1) << "empty names are never found";
}

TEST_F(Variables, TypesAndBounds) {
  addVars(1);
  ASSERT_EQ(KLOsetdblattrelement(model, "LB", 0, -5), KLO_OK);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'B'), KLO_OK);
  EXPECT_EQ(dblAt("LB", 0), 0.0);
  EXPECT_EQ(dblAt("UB", 0), 1.0);
  ASSERT_EQ(KLOsetdblattrelement(model, "UB", 0, 7), KLO_OK);
  EXPECT_EQ(dblAt("UB", 0), 1.0) << "a binary's bounds stay within [0, 1]";
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'I'), KLO_OK);
  ASSERT_EQ(KLOsetdblattrelement(model, "UB", 0, 1e30), KLO_OK);
  EXPECT_EQ(dblAt("UB", 0), KLO_INFINITY) << "bounds beyond 1e20 are infinite";
  ASSERT_EQ(KLOsetdblattrelement(model, "LB", 0, -INFINITY), KLO_OK);
  EXPECT_EQ(dblAt("LB", 0), -KLO_INFINITY);
  EXPECT_EQ(intAttrs({"NumIntVars", "NumBinVars", "NumContVars"}), (I{1, 0, 0}));
}

using Rows = ModelTest;

TEST_F(Rows, SensesAndDefaultsBecomeBounds) {
  addVars(2);
  const int beg[] = {0, 1, 2, 3}, ind[] = {0, 1, 0, 1};
  const double val[] = {1, 1, 1, 1}, rhs[] = {1, 2, 3, 4};
  const char sense[] = {'<', '>', '=', '?'};
  const char* names[] = {"le", "ge", "eq", "other"};
  ASSERT_EQ(KLOaddconstrs(model, 4, 4, beg, ind, val, sense, rhs, names), KLO_OK);
  // Null senses and right-hand sides: (-inf, 0]; a null lower array: open.
  ASSERT_EQ(KLOaddconstrs(model, 1, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
            KLO_OK);
  const double upper[] = {5};
  ASSERT_EQ(KLOaddrangeconstrs(model, 1, 0, nullptr, nullptr, nullptr, nullptr, upper, nullptr),
            KLO_OK);
  const double inf = KLO_INFINITY;
  EXPECT_EQ(dblArray("LHS", 6), (V{-inf, 2, 3, -inf, -inf, -inf}));
  EXPECT_EQ(dblArray("RHS", 6), (V{1, inf, 3, 4, 0, 5}));
  int index = -1;
  ASSERT_EQ(KLOgetconstrbyname(model, "eq", &index), KLO_OK);
  EXPECT_EQ(index, 2);
}

TEST_F(Rows, RangesAndCoefficients) {
  addVars(3);
  const int ind[] = {2, 0, 2};
  const double val[] = {1.5, -1, 0.5};
  ASSERT_EQ(KLOaddrangeconstr(model, 3, ind, val, -1, 1, nullptr), KLO_OK);
  int nnz = 0, cbeg[1], cind[3];
  double cval[3];
  ASSERT_EQ(KLOgetconstrs(model, &nnz, cbeg, cind, cval, 0, 1), KLO_OK);
  ASSERT_EQ(nnz, 2) << "duplicates add up";
  EXPECT_EQ(I(cind, cind + 2), (I{0, 2}));
  EXPECT_EQ(V(cval, cval + 2), (V{-1, 2}));
  ASSERT_EQ(KLOsetconstrcoeff(model, 0, 1, 4.0), KLO_OK);
  ASSERT_EQ(KLOsetconstrcoeff(model, 0, 0, 0.0), KLO_OK);
  double a = -1;
  ASSERT_EQ(KLOgetconstrcoeff(model, 0, 0, &a), KLO_OK);
  EXPECT_EQ(a, 0.0);
  ASSERT_EQ(KLOgetconstrcoeff(model, 0, 1, &a), KLO_OK);
  EXPECT_EQ(a, 4.0);
  EXPECT_EQ(intAttr("NumNZs"), 2);
}

TEST_F(Rows, DeletionRenumbersRowsAndNames) {
  addVars(1);
  for (const char* n : {"a", "b", "c", "d"}) {
    const int ind = 0;
    const double val = 1;
    ASSERT_EQ(KLOaddrangeconstr(model, 1, &ind, &val, 0, 1, n), KLO_OK);
  }
  const int del[] = {2, 0};
  ASSERT_EQ(KLOdelconstrs(model, 2, del), KLO_OK);
  EXPECT_EQ(intAttr("NumConstrs"), 2);
  int index = -1;
  ASSERT_EQ(KLOgetconstrbyname(model, "d", &index), KLO_OK);
  EXPECT_EQ(index, 1);
  ASSERT_EQ(KLOgetconstrbyname(model, "a", &index), KLO_OK);
  EXPECT_EQ(index, -1);
  int nnz = -1;
  ASSERT_EQ(KLOgetvars(model, &nnz, nullptr, nullptr, nullptr, 0, 1), KLO_OK);
  EXPECT_EQ(nnz, 2) << "the column view follows deletions";
}

using Quadratic = ModelTest;

TEST_F(Quadratic, RowAndObjectiveTermsAreMergedIntoOneTriangle) {
  addVars(3);
  const int lind[] = {0};
  const double lval[] = {2};
  // x1*x0 and x0*x1 add up; x2^2 stays on the diagonal.
  const int qr[] = {1, 0, 2}, qc[] = {0, 1, 2};
  const double qv[] = {1.5, 0.5, -1};
  ASSERT_EQ(KLOaddqconstr(model, 1, lind, lval, 3, qr, qc, qv, '>', 3, "q"), KLO_OK);
  EXPECT_EQ(intAttrs({"NumQConstrs", "NumNZs", "NumEnts"}), (I{1, 1, 3}));
  EXPECT_EQ(dblAt("QCLHS", 0), 3.0);
  EXPECT_EQ(dblAt("QCRHS", 0), KLO_INFINITY);
  ASSERT_EQ(KLOaddqpterms(model, 2, qr, qc, qv), KLO_OK);
  ASSERT_EQ(KLOaddqpterms(model, 1, qc, qr, qv), KLO_OK);  // x0*x1 once more
  EXPECT_EQ(snapshot(model, {false, false}),
            "var 0 '' C [0, 10] obj 0\nvar 1 '' C [0, 10] obj 0\nvar 2 '' C [0, 10] obj 0\n"
            "row 0 '' [3, 1e+20] 2*x0 2*x0*x1 -1*x2*x2\nsense 1 constant 0\nq 3.5*x0*x1\n"
            "psdrows 0 ents 4\nobjectives 1\n");
  int nq = -1;
  ASSERT_EQ(KLOdelq(model), KLO_OK);
  ASSERT_EQ(KLOgetq(model, &nq, nullptr, nullptr, nullptr), KLO_OK);
  EXPECT_EQ(nq, 0);
}

TEST_F(Quadratic, PsdRowsAndObjectivesOverSeveralVariables) {
  addVars(1);
  ASSERT_EQ(KLOaddpsdvar(model, 2, "A"), KLO_OK);
  ASSERT_EQ(KLOaddpsdvar(model, 3, "B"), KLO_OK);
  const int cind[] = {0}, psdvar[] = {0, 1};
  const double cval[] = {1};
  // A: entry (1,0) stands for itself and (0,1); B: the diagonal.
  const int mbeg[] = {0, 2, 5}, mind[] = {2, 0, 0, 4, 8};
  const double mval[] = {0.5, 1, 1, 1, 1};
  ASSERT_EQ(KLOaddrangepsdconstr(model, 1, cind, cval, 2, psdvar, mbeg, mind, mval, 1, 1, "trace"),
            KLO_OK);
  const int pos[] = {2, 1, 3};  // given whole: (1,0) and (0,1) are one entry
  const double val[] = {2, 2, 5};
  ASSERT_EQ(KLOsetmatattrelement(model, "PsdObj", 0, 3, 2, 2, pos, val), KLO_OK);
  EXPECT_EQ(snapshot(model, {false, false}),
            "var 0 '' C [0, 10] obj 0\nrow 0 '' [1, 1] 1*x0 psd0: 0=1 1=0.5 psd1: 0=1 4=1 8=1\n"
            "sense 1 constant 0\npsd 0 dim 2 obj 1:2 3:5\npsd 1 dim 3 obj\n"
            "psdrows 1 ents 8\nobjectives 1\n");
  int nnz = 0, nr = 0, nc = 0;
  ASSERT_EQ(KLOgetmatattrelement(model, "PsdObj", 0, &nnz, &nr, &nc, nullptr, nullptr), KLO_OK);
  EXPECT_EQ((I{nr, nc}), (I{2, 2}));
  int index = -1;
  ASSERT_EQ(KLOgetconstrbyname(model, "trace", &index), KLO_OK);
  EXPECT_EQ(index, 0);
  // Deleting A keeps the row with B's terms; deleting B too leaves a linear row.
  const int del[] = {0};
  ASSERT_EQ(KLOdelpsdvars(model, 1, del), KLO_OK);
  EXPECT_EQ(intAttrs({"NumPsdConstrs", "NumEnts"}), (I{1, 1 + 3}));
  const char* name = nullptr;
  ASSERT_EQ(KLOgetstrattrelement(model, "PsdVarName", 0, &name), KLO_OK);
  EXPECT_STREQ(name, "B");
  ASSERT_EQ(KLOdelpsdvars(model, 1, del), KLO_OK);
  EXPECT_EQ(intAttrs({"NumPsdConstrs", "NumConstrs"}), (I{0, 1}));
}

using SetsAndIndicators = ModelTest;

TEST_F(SetsAndIndicators, AreReadBackAsGivenAndDeleted) {
  addVars(4);
  const int types[] = {KLO_SOS_TYPE1, KLO_SOS_TYPE2}, beg[] = {0, 2}, ind[] = {0, 1, 1, 2, 3};
  const double w[] = {1, 2, 10, 20, 30};
  ASSERT_EQ(KLOaddsos(model, 2, 5, types, beg, ind, w), KLO_OK);
  ASSERT_EQ(KLOaddsos(model, 1, 2, types, beg, ind, nullptr), KLO_OK) << "weights 1, 2, ...";
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 0, 'B'), KLO_OK);
  const int gi[] = {1};
  const double gv[] = {2.5};
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "on", 0, 0, 1, gi, gv, '>', 4), KLO_OK);
  EXPECT_EQ(intAttr("IsInteger"), 1);
  EXPECT_EQ(snapshot(model, {false, false}),
            "var 0 '' B [0, 1] obj 0\nvar 1 '' C [0, 10] obj 0\nvar 2 '' C [0, 10] obj 0\n"
            "var 3 '' C [0, 10] obj 0\nsense 1 constant 0\nsos1 x0:1 x1:2\nsos2 x1:10 x2:20 "
            "x3:30\nsos1 x0:1 x1:2\n"
            "ind x0=0 -> 2.5*x1 > 4\npsdrows 0 ents 0\nobjectives 1\n");
  int n = 0, t[1], b[1];
  ASSERT_EQ(KLOgetsos(model, &n, t, b, nullptr, nullptr, 1, 1), KLO_OK);
  EXPECT_EQ((I{n, t[0], b[0]}), (I{3, 2, 0}));
  const char* name = nullptr;
  ASSERT_EQ(KLOgetstrattrelement(model, "GenConstrName", 0, &name), KLO_OK);
  EXPECT_STREQ(name, "on");
  const int del[] = {0};
  ASSERT_EQ(KLOdelsos(model, 1, del), KLO_OK);
  ASSERT_EQ(KLOgetsos(model, &n, t, nullptr, nullptr, nullptr, 0, 1), KLO_OK);
  EXPECT_EQ(t[0], KLO_SOS_TYPE2);
  EXPECT_EQ(intAttr("NumSOS"), 2);
  ASSERT_EQ(KLOdelgenconstrs(model, 1, del), KLO_OK);
  EXPECT_EQ(intAttr("NumGenConstrs"), 0);
}

// The engine's copy of a model carries every part of it, in the
// conventions problem.h documents.
TEST_F(Models, EveryPartReachesTheEngineProblem) {
  addVars(2);
  ASSERT_EQ(KLOsetcharattrelement(model, "VType", 1, 'B'), KLO_OK);
  // Objective x0 + 3 x0^2 + x0 x1: three times x0^2 given as 1 + 2.
  ASSERT_EQ(KLOsetdblattrelement(model, "Obj", 0, 1.0), KLO_OK);
  const int qr[] = {0, 0, 1}, qc[] = {0, 0, 0};
  const double qv[] = {1, 2, 1};
  ASSERT_EQ(KLOaddqpterms(model, 3, qr, qc, qv), KLO_OK);
  // Row 0: x0 + x1 <= 4; row 1: x1 + x0^2 >= 1; row 2: x0 + <M, X> = 2.
  const int ind[] = {0, 1};
  const double one[] = {1, 1};
  ASSERT_EQ(KLOaddrangeconstr(model, 2, ind, one, -KLO_INFINITY, 4, "lin"), KLO_OK);
  const int q0[] = {0};
  ASSERT_EQ(KLOaddqconstr(model, 1, &ind[1], one, 1, q0, q0, one, '>', 1, "quad"), KLO_OK);
  ASSERT_EQ(KLOaddpsdvar(model, 2, "X"), KLO_OK);
  const int psdvar[] = {0}, mbeg[] = {0, 2}, mind[] = {2, 3};  // (1,0) and (1,1)
  const double mval[] = {0.5, 4};
  ASSERT_EQ(KLOaddrangepsdconstr(model, 1, ind, one, 1, psdvar, mbeg, mind, mval, 2, 2, "psd"),
            KLO_OK);
  const int types[] = {KLO_SOS_TYPE1}, sbeg[] = {0};
  ASSERT_EQ(KLOaddsos(model, 1, 2, types, sbeg, ind, nullptr), KLO_OK);
  ASSERT_EQ(KLOaddgenconstrIndicator(model, "ind", 1, 1, 1, ind, one, '<', 3), KLO_OK);

  const klo::engine::Problem p = klo::problemFromModel(model->data);

  klo::engine::checkProblem(p);
  EXPECT_EQ(p.colType, (std::vector<char>{'C', 'B'}));
  EXPECT_EQ(p.obj, (V{1, 0}));
  EXPECT_EQ(p.objQuad.row, (I{0, 0}));
  EXPECT_EQ(p.objQuad.col, (I{0, 1}));
  EXPECT_EQ(p.objQuad.val, (V{3, 1}));
  EXPECT_EQ(p.rowLower, (V{-KLO_INFINITY, 1, 2}));
  ASSERT_EQ(p.quadRows.size(), 1u);
  EXPECT_EQ(p.quadRows[0].row, 1);
  EXPECT_EQ(p.quadRows[0].terms.val, V{1});
  ASSERT_EQ(p.psdVars.size(), 1u);
  EXPECT_EQ(p.psdVars[0].dim, 2);
  ASSERT_EQ(p.psdTerms.size(), 1u);
  EXPECT_EQ(p.psdTerms[0].row, 2);
  EXPECT_EQ(p.psdTerms[0].mat.pos, (I{1, 3})) << "the upper triangle";
  EXPECT_EQ(p.psdTerms[0].mat.val, (V{0.5, 4}));
  ASSERT_EQ(p.sos.size(), 1u);
  EXPECT_EQ(p.sos[0].members, (I{0, 1}));
  ASSERT_EQ(p.indicators.size(), 1u);
  EXPECT_EQ(p.indicators[0].binVar, 1);
  EXPECT_EQ(p.indicators[0].sense, '<');
  EXPECT_EQ(p.indicators[0].rhs, 3);
}

}  // namespace
}  // namespace klotest
