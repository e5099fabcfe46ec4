// Rows of every kind and the objective: senses to bounds, constants into
// finite bounds, merged terms, the bulk forms, the shared row numbering,
// reading back, removal with renumbering, and the objective's clearing order.
#include "fixture.h"

namespace {

using Rows = ExprTest;

TEST_F(Rows, LinearRowsMergeTermsAndMoveConstantsIntoFiniteBounds) {
  model->addConstr(x, '<', 5.0);
  model->addConstr(x, '>', 5.0);
  model->addConstr(x, '=', 5.0, "eq");
  model->addConstr(x, 'L', 5.0);
  model->addRange(2 * x + 3, 1, 1e20);
  model->addRange(2 * x + 3, -1e21, 1e20);
  model->addConstr(2 * x + 3 * y <= 10);
  model->addConstr(x + 4 >= 2 * y);
  model->addConstr(x + y, '=', x + 1);  // holds exactly when y = 1
  model->addConstr(z, '<', z);
  model->addConstr(y + z, '>', x);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddrangeconstr(ptr, 1, [0], [1], -1e+20, 5, \"\")",
                   "KLOaddrangeconstr(ptr, 1, [0], [1], 5, 1e+20, \"\")",
                   "KLOaddrangeconstr(ptr, 1, [0], [1], 5, 5, \"eq\")",
                   "KLOaddrangeconstr(ptr, 1, [0], [1], -1e+20, 5, \"\")",
                   "KLOaddrangeconstr(ptr, 1, [0], [2], -2, 1e+20, \"\")",
                   "KLOaddrangeconstr(ptr, 1, [0], [2], -1e+21, 1e+20, \"\")",
                   "KLOaddrangeconstr(ptr, 2, [0, 1], [2, 3], -1e+20, 1e+01, \"\")",
                   "KLOaddrangeconstr(ptr, 2, [0, 1], [1, -2], -4, 1e+20, \"\")",
                   "KLOaddrangeconstr(ptr, 2, [0, 1], [0, 1], 1, 1, \"\")",
                   "KLOaddrangeconstr(ptr, 1, [2], [0], -1e+20, 0, \"\")",
                   "KLOaddrangeconstr(ptr, 3, [0, 1, 2], [-1, 1, 1], 0, 1e+20, \"\")"}));
}

TEST_F(Rows, BulkFormsShiftFiniteRightHandSidesRowByRow) {
  const KLOLinExpr rows[] = {x + y + x + 2, KLOLinExpr(-1.0), z - 1};
  const char senses[] = {'<', '>', 'Q'};
  const double rhs[] = {10, 1e20, -1e20};
  const std::string names[] = {"a", "b", "c"};
  std::unique_ptr<KLOConstr[]> added(model->addConstrs(rows, senses, rhs, names, 3));
  const double lower[] = {0, -1e30, 5};
  const double upper[] = {1e20, 3, 5};
  std::unique_ptr<KLOConstr[]> ranges(model->addRanges(rows, lower, upper, nullptr, 3));
  std::unique_ptr<KLOConstr[]> empty(model->addConstrs(2));
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddconstrs(ptr, 3, 3, [0, 2, 2], [0, 1, 2], [2, 1, 1], ['<', '>', 'Q'], "
                   "[8, 1e+20, -1e+20], [\"a\", \"b\", \"c\"])",
                   "KLOaddrangeconstrs(ptr, 3, 3, [0, 2, 2], [0, 1, 2], [2, 1, 1], "
                   "[-2, -1e+30, 6], [1e+20, 4, 6], null)",
                   "KLOaddconstrs(ptr, 2, 0, null, null, null, null, null, null)"}));
  EXPECT_EQ((Ints{added[2].index(), ranges[0].index(), empty[1].index()}), (Ints{2, 3, 7}));
  EXPECT_EQ(model->getConstrs(), Access::constrs(*model).data());
  EXPECT_EQ(indices(Access::psdconstrs(*model)), (Ints{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(Rows, RefusedOrFailedRowsAddNoHandles) {
  KLOVar gone = z;
  model->remove(gone);
  klo_fake::reset();
  const KLOLinExpr rows[] = {x + y, gone + 0.0};
  EXPECT_EQ(failure([&] { model->addConstr(x * y <= 1, "q"); }),
            "-3 For quadratic constraint using KLOModel::addQConstr.");
  EXPECT_EQ(code([&] { model->addConstr(x + gone, '<', 1.0); }), -2003);
  EXPECT_EQ(code([&] { model->addConstrs(rows, "<<", nullptr, nullptr, 2); }), -2003);
  EXPECT_EQ(code([&] { model->addQConstr(x * gone <= 1); }), -2003);
  EXPECT_EQ(code([&] { model->addGenConstrIndicator(x, 1, x * y <= 1); }), -3);
  EXPECT_EQ(klo_fake::functions(), (Calls(3, "KLOexplainerror")));  // refused before the library
  klo_fake::on("KLOaddrangeconstr").status(-1001);
  klo_fake::on("KLOaddqconstr").status(-1001);
  EXPECT_EQ(code([&] { model->addConstr(x, '<', 1.0); }), -1001);
  EXPECT_EQ(code([&] { model->addQConstr(x * y <= 1); }), -1001);
  EXPECT_TRUE(Access::constrs(*model).empty());
  EXPECT_TRUE(Access::qconstrs(*model).empty());
  EXPECT_TRUE(Access::genconstrs(*model).empty());
}

TEST_F(Rows, QuadraticRowsMergeTermsAndJoinTheRowNumbering) {
  model->addConstr(x, '<', 1.0);
  const KLOQConstr q = model->addQConstr(x * y + 2 * (x * y) + y * x + z + z + 1 <= 5, "q");
  model->addQConstr(x * x, '>', 1e20);
  EXPECT_EQ(klo_fake::strs()[1],
            "KLOaddqconstr(ptr, 1, [2], [2], 2, [1, 1], [0, 0], [3, 1], '<', 4, \"q\")");
  EXPECT_EQ(klo_fake::strs()[2],
            "KLOaddqconstr(ptr, 0, null, null, 1, [0], [0], [1], '>', 1e+20, \"\")");
  EXPECT_TRUE(q.sameAs(Access::qconstrs(*model)[1]));
  EXPECT_EQ(indices(Access::constrs(*model)), (Ints{0, 1, 2}));
  EXPECT_EQ(indices(Access::psdconstrs(*model)), (Ints{0, 1, 2}));
}

TEST_F(Rows, RowsReadBackTheirOwnRowInTheLibrarysOrder) {
  script(klo_fake::on("KLOgetconstrs"), {{1, 3LL}, {3, Ints{2, 0, 2}}, {4, Doubles{1.5, -1, 0}}});
  EXPECT_EQ(lin(model->getRow(model->addConstr())), "1.5*2 -1*0 +0");
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetconstrs(ptr, ptr, null, null, null, 0, 1)",
                                     "KLOgetconstrs(ptr, ptr, ptr, ptr, ptr, 0, 1)"}));
  auto rows = readModel(3, 2);
  script(klo_fake::on("KLOgetqconstr"), {{2, 1LL}, {5, 1LL}},
         {{3, Ints{2}}, {4, Doubles{-1}}, {6, Ints{1}}, {7, Ints{0}}, {8, Doubles{2.5}}});
  // Handle of row 1, numbered 2: the row read is 1.
  EXPECT_EQ(quad(rows->getQCRow(Access::qconstrs(*rows)[1])), "2.5*1*0 | -1*2 +0");
  EXPECT_EQ(klo_fake::calls()[0].integer(1), 1);
  klo_fake::reset();  // an index one past the last variable is refused
  klo_fake::on("KLOgetqconstr").out(2, 1LL).out(3, Ints{3});
  EXPECT_EQ(code([&] { rows->getQCRow(Access::qconstrs(*rows)[0]); }), -2003);
}

TEST_F(Rows, RemovingARowRenumbersAllThreeHandleKinds) {
  auto three = readModel(0, 3);
  const std::vector<KLOConstr> rows = Access::constrs(*three);
  const std::vector<KLOQConstr> qrows = Access::qconstrs(*three);
  const std::vector<KLOPsdConstr> prows = Access::psdconstrs(*three);
  three->remove(rows[1]);
  EXPECT_EQ((Ints{rows[2].index(), qrows[2].index(), prows[2].index()}), (Ints{1, 1, 1}));
  EXPECT_EQ((Ints{rows[1].index(), qrows[1].index(), prows[1].index()}), (Ints{-2, -2, -2}));
  EXPECT_EQ(indices(Access::constrs(*three)), (Ints{0, 1}));
  EXPECT_EQ(Access::qconstrs(*three).size(), 2u);
  EXPECT_EQ(Access::psdconstrs(*three).size(), 2u);
  EXPECT_EQ(code([&] { rows[1].get(KLO_DoubleAttr_RHS); }), -2002);
  auto fresh = readModel(0, 3);
  const KLOQConstr q1 = Access::qconstrs(*fresh)[1];
  ASSERT_EQ(q1.index(), 2);  // a fresh quadratic record is numbered one past its row
  fresh->remove(q1);         // quadratic and PSD handles remove their own row
  fresh->remove(Access::psdconstrs(*fresh)[0]);
  EXPECT_EQ(q1.index(), -2);
  EXPECT_EQ(code([&] { fresh->remove(q1); }), -2002);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOdelconstrs(ptr, 1, [1])", "KLOdelconstrs(ptr, 1, [0])",
                                     "KLOexplainerror(-2002)"}));
}

TEST_F(Rows, LookupsAndCoefficients) {
  auto rows = readModel(2, 2);
  klo_fake::on("KLOgetconstrbyname").outs(2, {1LL, -1LL});
  EXPECT_TRUE(rows->getConstrByName("c1").sameAs(Access::constrs(*rows)[1]));
  EXPECT_EQ(code([&] { rows->getConstrByName("none"); }), -2002);
  EXPECT_EQ(code([&] { rows->getConstr(-1); }), -2002);
  klo_fake::reset();
  klo_fake::on("KLOsetconstrcoeff").statuses({0, -1002});
  const KLOConstr* c = rows->getConstrs();
  const KLOVar* v = Access::vars(*rows).data();
  const KLOConstr cs[] = {c[0], c[1], c[0]};
  const KLOVar vs[] = {v[1], v[0], v[0]};
  const double values[] = {1.5, 2.5, 3.5};
  EXPECT_EQ(code([&] { rows->chgCoeffs(cs, vs, values, 3); }), -1002);
  EXPECT_EQ(klo_fake::callsOf("KLOsetconstrcoeff").size(), 2u);
  klo_fake::on("KLOgetconstrcoeff").out(3, 4.25);
  EXPECT_EQ(rows->getCoeff(c[1], v[0]), 4.25);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOsetconstrcoeff(ptr, 0, 1, 1.5)", "KLOsetconstrcoeff(ptr, 1, 0, 2.5)",
                   "KLOexplainerror(-1002)", "KLOgetconstrcoeff(ptr, 1, 0, ptr)"}));
}

// The matrices of X are summed, the entry (1, 0) moved to its mirror
// position 1 in the upper triangle.
TEST_F(Rows, PsdRowsSumMatricesPerVariable) {
  KLOPsdExpr P = KLOMatrix::sparse(2, 2, {0}, {0}, {1.0}) * X + 2 * x + 3;
  P += KLOMatrix::sparse(2, 2, {1}, {0}, {4.0}) * X;
  const KLOPsdConstr c = model->addPsdConstr(P, '>', 5.0, "p");
  model->addRangePsdConstr(KLOPsdExpr(x + 1), -1e20, 2.0);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddrangepsdconstr(ptr, 1, [0], [2], 1, [0], [0, 2], [0, 1], [1, 4], 2, "
                   "1e+20, \"p\")",
                   "KLOaddrangepsdconstr(ptr, 1, [0], [1], 0, null, [0], null, null, -1e+20, 1, "
                   "\"\")"}));
  EXPECT_TRUE(c.sameAs(model->getPsdConstr(0)));
  EXPECT_EQ(Access::constrs(*model).size(), 2u);
  EXPECT_EQ(code([&] { model->getPsdConstr(2); }), -2002);
}

TEST_F(Rows, PsdVariablesAddAndRemoveWithRenumbering) {
  const KLOPsdVar Y = model->addPsdVar(3, "Y");
  EXPECT_EQ(Y.index(), 1);
  model->remove(X);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddpsdvar(ptr, 3, \"Y\")", "KLOdelpsdvars(ptr, 1, [0])"}));
  EXPECT_EQ(Y.index(), 0);
  EXPECT_EQ(X.index(), -1);
  EXPECT_TRUE(model->getPsdVar(0).sameAs(Y));
  EXPECT_EQ(code([&] { model->getPsdVar(1); }), -2003);
  EXPECT_EQ(code([&] { model->addPsdConstr(X * KLOMatrix::identity(2), '<', 1); }), -2003);
}

TEST_F(Rows, SosSetsAddReadAndRemove) {
  const KLOVar members[] = {z, x};
  const double weights[] = {1.0, 2.0};
  const KLOSOS first = model->addSOS(members, weights, 2, 1);
  const KLOSOS second = model->addSOS(members, nullptr, 2, 2);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddsos(ptr, 1, 2, [1], [0], [2, 0], [1, 2])",
                                     "KLOaddsos(ptr, 1, 2, [2], [0], [2, 0], null)"}));
  klo_fake::reset();
  script(klo_fake::on("KLOgetsos"), {{1, 2LL}},
         {{2, Ints{2}}, {4, Ints{2, 0}}, {5, Doubles{1, 2}}});
  EXPECT_EQ(model->getSOS(second, nullptr, nullptr, nullptr), 2);
  KLOVar read[2];
  double w[2];
  int type = 0;
  EXPECT_EQ(model->getSOS(second, read, w, &type), 2);
  EXPECT_TRUE(read[0].sameAs(z));
  EXPECT_EQ(w[1], 2.0);
  EXPECT_EQ(type, 2);
  model->remove(first);
  EXPECT_EQ(second.index(), 0);
  EXPECT_EQ(code([&] { model->getSOS(first, nullptr, nullptr, nullptr); }), -2002);
}

TEST_F(Rows, IndicatorsTakeLinearComparisonsAndReadBack) {
  const KLOGenConstr g = model->addGenConstrIndicator(z, 1, x + x + 2 <= y, "ind");
  model->addGenConstrIndicator(z, 0, 2 * y, '=', 1e20);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddgenconstrIndicator(ptr, \"ind\", 2, 1, 2, [0, 1], [2, -1], '<', -2)",
                   "KLOaddgenconstrIndicator(ptr, \"\", 2, 0, 1, [1], [2], '=', 1e+20)"}));
  klo_fake::reset();
  script(klo_fake::on("KLOgetgenconstrIndicator"),
         {{2, 2LL}, {3, 1LL}, {4, 1LL}, {7, '>'}, {8, 4.5}}, {{5, Ints{0}}, {6, Doubles{3}}});
  KLOVar bin;
  int value = 0;
  KLOLinExpr expr;
  char sense = 0;
  double rhs = 0;
  model->getGenConstrIndicator(g, &bin, &value, &expr, &sense, &rhs);
  EXPECT_TRUE(bin.sameAs(z));
  EXPECT_EQ(value, 1);
  EXPECT_EQ(lin(expr), "3*0 +0");
  EXPECT_EQ(num(sense) + " " + num(rhs), "> 4.5");
  model->remove(g);
  EXPECT_EQ(klo_fake::strs().back(), "KLOdelgenconstrs(ptr, 1, [0])");
  EXPECT_EQ(g.index(), -1);
  EXPECT_EQ(indices(Access::genconstrs(*model)), (Ints{0}));
}

TEST_F(Rows, ObjectiveClearsEverythingThenAccumulatesRepeatedVariables) {
  klo_fake::on("KLOgetintattrelement", "Dim").out(3, 2LL);
  // The second read of x's "Obj" sees the first write.
  klo_fake::on("KLOgetdblattrelement", "Obj").outs(3, {0.0, 1.0});
  model->setObjective(x + x + 4, 0);
  const Calls clear = {"KLOdelq(ptr)",
                       "KLOsetdblattrelement(ptr, \"Obj\", 0, 0)",
                       "KLOsetdblattrelement(ptr, \"Obj\", 1, 0)",
                       "KLOsetdblattrelement(ptr, \"Obj\", 2, 0)",
                       "KLOgetintattrelement(ptr, \"Dim\", 0, ptr)",
                       "KLOsetmatattrelement(ptr, \"PsdObj\", 0, 0, 2, 2, [], [])"};
  Calls expected = clear;
  expected.insert(
      expected.end(),
      {"KLOgetdblattrelement(ptr, \"Obj\", 0, ptr)", "KLOsetdblattrelement(ptr, \"Obj\", 0, 1)",
       "KLOgetdblattrelement(ptr, \"Obj\", 0, ptr)", "KLOsetdblattrelement(ptr, \"Obj\", 0, 2)",
       "KLOsetdblattr(ptr, \"ObjCon\", 4)"});
  EXPECT_EQ(klo_fake::strs(), expected);
  klo_fake::reset();
  klo_fake::on("KLOgetintattrelement", "Dim").out(3, 2LL);
  model->setObjective(x * y + 2 * (y * x) + z * z - 1, -1);  // one call each, as given
  expected = clear;
  expected.insert(expected.end(),
                  {"KLOsetintattr(ptr, \"ModelSense\", -1)", "KLOaddqpterms(ptr, 1, [0], [1], [1])",
                   "KLOaddqpterms(ptr, 1, [1], [0], [2])", "KLOaddqpterms(ptr, 1, [2], [2], [1])",
                   "KLOsetdblattr(ptr, \"ObjCon\", -1)"});
  EXPECT_EQ(klo_fake::strs(), expected);
  klo_fake::reset();
  klo_fake::on("KLOdelq").status(-1001);  // a failed clear stops before any change
  EXPECT_EQ(code([&] { model->setObjective(x, 1); }), -1001);
  EXPECT_EQ(klo_fake::functions(), (Calls{"KLOdelq", "KLOexplainerror"}));
}

TEST_F(Rows, ObjectivesOfEveryKind) {
  KLOPsdExpr P = KLOMatrix::sparse(2, 2, {0}, {0}, {1.0}) * X;
  P += KLOMatrix::sparse(2, 2, {0, 1}, {0, 1}, {2.0, 3.0}) * X;
  model->setObjective(P, 1);  // terms of one variable are summed
  const auto sets = klo_fake::callsOf("KLOsetmatattrelement");
  ASSERT_EQ(sets.size(), 2u);
  EXPECT_EQ(sets[1].str(), "KLOsetmatattrelement(ptr, \"PsdObj\", 0, 2, 2, 2, [0, 3], [3, 3])");
  klo_fake::reset();
  klo_fake::on("KLOsetobjectiven").status(-1001);  // refusals are ignored
  model->setObjectiveN(x + 2 * y + x + 5, 1, 3, 0.5, 1e-6, 1e-4, "cost");
  model->setObjectiveN(KLOLinExpr(), 0, 0, 1, 0, 0, "");
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOsetobjectiven(ptr, 1, 3, 0.5, 1e-06, 0.0001, \"cost\", "
                   "5, 3, [0, 1, 0], [1, 2, 1])",
                   "KLOsetobjectiven(ptr, 0, 0, 1, 0, 0, \"\", 0, 0, null, null)"}));
  klo_fake::reset();
  EXPECT_EQ(quad(model->getObjective()), "| +0");
  script(klo_fake::on("KLOgetq"), {{1, 1LL}}, {{2, Ints{2}}, {3, Ints{0}}, {4, Doubles{1.5}}});
  klo_fake::on("KLOgetdblattrelement", "Obj").outs(3, {0.0, -2.0, 0.0});
  klo_fake::on("KLOgetdblattr", "ObjCon").out(2, 7.0);
  EXPECT_EQ(quad(model->getObjective()), "1.5*2*0 | -2*1 +7");  // zero coefficients skipped
}

}  // namespace
