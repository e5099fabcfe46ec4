// Variables: adding in every form, lookup, removal with renumbering and
// reading columns back; merging of like terms.
#include "model_fixture.h"

namespace {

class Variables : public ModelTest {};

TEST_F(Variables, AddVarPassesTheNameAsTextNeverNull) {
  KLOModel model(env);
  klo_fake::reset();
  KLOVar x = model.addVar(0.0, 4.5, 1.5, 'I', "x");
  KLOVar y = model.addVar(-1.0, 1e20, 0.0, 'C');
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddvar(ptr, 0, null, null, 1.5, 0, 4.5, 'I', \"x\")",
                                     "KLOaddvar(ptr, 0, null, null, 0, -1, 1e+20, 'C', \"\")"}));
  EXPECT_EQ(x.index(), 0);
  EXPECT_EQ(y.index(), 1);
  EXPECT_TRUE(Access::vars(model)[1].sameAs(y));
}

TEST_F(Variables, FailedAddAppendsNothing) {
  KLOModel model(env);
  klo_fake::on("KLOaddvar").status(-3);
  klo_fake::on("KLOaddvars").status(-3);
  EXPECT_EQ(thrown([&] { model.addVar(0, 1, 0, 'Q', "bad"); }).getErrorCode(), -3);
  EXPECT_EQ(thrown([&] { model.addVars(2, 'Q'); }).getErrorCode(), -3);
  EXPECT_TRUE(Access::vars(model).empty());
}

TEST_F(Variables, PlaceholderAdvancesOnlyTheHandleVector) {
  auto model = readModel(4, 0);
  KLOVar v = model->addVar();
  EXPECT_EQ(v.index(), 4);
  EXPECT_EQ(Access::vars(*model).size(), 5u);
  EXPECT_TRUE(klo_fake::calls().empty());
}

TEST_F(Variables, ColumnWithoutCoefficientsHasZeros) {
  auto model = readModel(0, 3);
  const auto& rows = Access::constrs(*model);
  const KLOConstr constrs[] = {rows[2], rows[0], rows[1]};
  model->addVar(0, 1, 0, 'C', 3, constrs, nullptr, "z");
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddvar(ptr, 3, [0, 1, 2], [0, 0, 0], 0, 0, 1, 'C', \"z\")"}));
}

TEST_F(Variables, ColumnTermsAreMergedAndSorted) {
  auto model = readModel(0, 3);
  const auto& rows = Access::constrs(*model);
  KLOColumn col;
  col.addTerm(2.0, rows[2]);
  col.addTerm(-2.0, rows[0]);
  col.addTerm(2.0, rows[0]);
  const double coeffs[] = {4.0, 5.0};
  const KLOConstr single[] = {rows[1], rows[0]};
  model->addVar(0, 1, 0, 'C', col);
  model->addVar(0, 1, 0, 'C', 2, single, coeffs);
  model->addVar(0, 1, 0, 'C', KLOColumn());
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddvar(ptr, 2, [0, 2], [0, 2], 0, 0, 1, 'C', \"\")",
                                     "KLOaddvar(ptr, 2, [0, 1], [5, 4], 0, 0, 1, 'C', \"\")",
                                     "KLOaddvar(ptr, 0, null, null, 0, 0, 1, 'C', \"\")"}));
}

TEST_F(Variables, RemovedConstraintInAColumnIsRefusedBeforeTheLibrary) {
  auto model = readModel(0, 2);
  const KLOConstr gone = Access::constrs(*model)[0];
  model->remove(gone);
  klo_fake::reset();
  KLOColumn col;
  col.addTerm(1.0, Access::constrs(*model)[0]);
  col.addTerm(1.0, gone);
  EXPECT_EQ(thrown([&] { model->addVar(0, 1, 0, 'C', col); }).getErrorCode(), -2002);
  EXPECT_EQ(thrown([&] {
              model->addVars(nullptr, nullptr, nullptr, nullptr, nullptr, &col, 1);
            }).getErrorCode(),
            -2002);
  EXPECT_EQ(klo_fake::functions(),
            (std::vector<std::string>{"KLOexplainerror", "KLOexplainerror"}));
}

TEST_F(Variables, AddVarsOfOneTypeWithDefaults) {
  KLOModel model(env);
  klo_fake::reset();
  std::unique_ptr<KLOVar[]> none(model.addVars(0, 'B'));
  std::unique_ptr<KLOVar[]> three(model.addVars(3, 'B'));
  EXPECT_NE(none, nullptr);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddvars(ptr, 0, 0, null, null, null, null, null, null, null, null)",
                   "KLOaddvars(ptr, 3, 0, null, null, null, null, null, null, ['B', 'B', "
                   "'B'], null)"}));
  EXPECT_EQ(three[2].index(), 2);
  EXPECT_TRUE(three[0].sameAs(Access::vars(model)[0]));
}

TEST_F(Variables, AddVarsWithColumnsAndNames) {
  auto model = readModel(1, 3);
  const auto& rows = Access::constrs(*model);
  KLOColumn cols[3];
  cols[0].addTerm(1.0, rows[2]);
  cols[0].addTerm(1.0, rows[0]);
  cols[2].addTerm(2.0, rows[1]);
  cols[2].addTerm(-2.0, rows[1]);  // merged into one explicit zero
  const double lb[] = {0, 0, 1}, ub[] = {1, 2, 3}, obj[] = {1, 0, 0};
  const char types[] = {'C', 'I', 'B'};
  const std::string names[] = {"a", "", "c"};
  std::unique_ptr<KLOVar[]> added(model->addVars(lb, ub, obj, types, names, cols, 3));
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddvars(ptr, 3, 3, [0, 2, 2], [0, 2, 1], [1, 1, 0], [1, 0, 0], "
                   "[0, 0, 1], [1, 2, 3], ['C', 'I', 'B'], [\"a\", \"\", \"c\"])"}));
  EXPECT_EQ(added[0].index(), 1);
  EXPECT_EQ(added[2].index(), 3);
  klo_fake::reset();
  delete[] model->addVars(nullptr, nullptr, nullptr, nullptr, nullptr, 2);
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddvars(ptr, 2, 0, null, null, null, null, null, null, null, null)"}));
}

TEST_F(Variables, LookupByIndexAndName) {
  auto model = readModel(3, 0);
  EXPECT_TRUE(model->getVar(1).sameAs(Access::vars(*model)[1]));
  EXPECT_EQ(thrown([&] { model->getVar(-1); }).getErrorCode(), -2003);
  EXPECT_EQ(thrown([&] { model->getVar(3); }).getErrorCode(), -2003);
  klo_fake::reset();
  klo_fake::on("KLOgetvarbyname", "y").out(2, 2LL);
  klo_fake::on("KLOgetvarbyname", "nobody").out(2, -1LL);
  EXPECT_TRUE(model->getVarByName("y").sameAs(Access::vars(*model)[2]));
  EXPECT_EQ(thrown([&] { model->getVarByName("nobody"); }).getErrorCode(), -2003);
  klo_fake::on("KLOgetvarbyname").status(-4);
  EXPECT_EQ(thrown([&] { model->getVarByName("z"); }).getErrorCode(), -4);
}

TEST_F(Variables, GetVarsHandsOutOwningCopies) {
  auto model = readModel(3, 0);
  std::unique_ptr<KLOVar[]> vars(model->getVars());
  EXPECT_TRUE(vars[2].sameAs(Access::vars(*model)[2]));
  model.reset();
  EXPECT_EQ(vars[2].index(), 2);  // the copies keep their records alive
}

TEST_F(Variables, RemovingVariableTwoOfFiveRenumbers) {
  auto model = readModel(5, 0);
  const std::vector<KLOVar> before = Access::vars(*model);
  model->remove(before[2]);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOdelvars(ptr, 1, [2])"}));
  EXPECT_EQ(before[3].index(), 2);
  EXPECT_EQ(before[4].index(), 3);
  EXPECT_EQ(before[2].index(), -3);
  EXPECT_EQ(indices(Access::vars(*model)), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_TRUE(Access::vars(*model)[2].sameAs(before[3]));
  EXPECT_EQ(thrown([&] { before[2].get(KLO_DoubleAttr_X); }).getErrorCode(), -2003);
}

TEST_F(Variables, RemovingTwiceLetsTheLibraryRefuseTheNegativeIndex) {
  auto model = readModel(3, 0);
  const KLOVar x = Access::vars(*model)[2];
  model->remove(x);
  klo_fake::reset();
  klo_fake::on("KLOdelvars").status(-2003);
  EXPECT_EQ(thrown([&] { model->remove(x); }).getErrorCode(), -2003);
  EXPECT_EQ(klo_fake::strs().front(), "KLOdelvars(ptr, 1, [-3])");
  EXPECT_EQ(x.index(), -3);
  EXPECT_EQ(Access::vars(*model).size(), 2u);
}

TEST_F(Variables, RemovingTheFirstVariableMarksItMinusOne) {
  auto model = readModel(2, 0);
  const KLOVar first = Access::vars(*model)[0];
  model->remove(first);
  EXPECT_EQ(first.index(), -1);
}

TEST_F(Variables, FailedOrForeignRemovalChangesNothing) {
  auto model = readModel(3, 0);
  auto other = readModel(3, 0);
  const KLOVar x = Access::vars(*model)[1];
  klo_fake::on("KLOdelvars").status(-2003);
  EXPECT_EQ(thrown([&] { model->remove(x); }).getErrorCode(), -2003);
  EXPECT_EQ(x.index(), 1);
  klo_fake::reset();
  EXPECT_EQ(thrown([&] { model->remove(Access::vars(*other)[0]); }).getErrorCode(), -2003);
  EXPECT_TRUE(klo_fake::callsOf("KLOdelvars").empty());
  EXPECT_EQ(Access::vars(*model).size(), 3u);
}

TEST_F(Variables, RemovingARowRenumbersItsThreeHandles) {
  auto model = readModel(0, 3);
  const std::vector<KLOConstr> rows = Access::constrs(*model);
  const std::vector<KLOQConstr> qrows = Access::qconstrs(*model);
  const std::vector<KLOPsdConstr> prows = Access::psdconstrs(*model);
  model->remove(rows[1]);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOdelconstrs(ptr, 1, [1])"}));
  EXPECT_EQ(rows[2].index(), 1);
  EXPECT_EQ(qrows[2].index(), 1);
  EXPECT_EQ(prows[2].index(), 1);
  EXPECT_EQ(rows[1].index(), -2);
  EXPECT_EQ(qrows[1].index(), -2);
  EXPECT_EQ(prows[1].index(), -2);
  EXPECT_EQ(Access::qconstrs(*model).size(), 2u);
}

TEST_F(Variables, EmptyColumnTakesTwoCalls) {
  auto model = readModel(2, 0);
  KLOColumn col = model->getCol(Access::vars(*model)[1]);
  EXPECT_EQ(col.size(), 0);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetvars(ptr, ptr, null, null, null, 1, 1)",
                                     "KLOgetvars(ptr, ptr, null, null, null, 1, 1)"}));
}

TEST_F(Variables, ColumnComesBackInTheLibrarysOrder) {
  auto model = readModel(1, 3);
  klo_fake::on("KLOgetvars")
      .out(1, 2LL)
      .out(2, std::vector<int>{0, 1})
      .out(3, std::vector<int>{2, 0})
      .out(4, std::vector<double>{1.5, -1.0});
  KLOColumn col = model->getCol(Access::vars(*model)[0]);
  EXPECT_EQ(klo_fake::strs()[1], "KLOgetvars(ptr, ptr, ptr, ptr, ptr, 0, 1)");
  ASSERT_EQ(col.size(), 2);
  EXPECT_TRUE(col.getConstr(0).sameAs(Access::constrs(*model)[2]));
  EXPECT_EQ(col.getCoeff(1), -1.0);
}

// --- merging like terms -----------------------------------------------------

TEST_F(Variables, CombineLikeTermsSortsSumsAndKeepsTheLastHandle) {
  auto model = readModel(8, 0);
  const auto& vars = Access::vars(*model);
  KLOVar seven = vars[7];
  std::vector<double> coeffs{1, 2, 4};
  std::vector<KLOVar> handles{vars[7], vars[3], seven};
  combineLikeTerms(coeffs, handles);
  EXPECT_EQ(coeffs, (std::vector<double>{2, 5}));
  ASSERT_EQ(handles.size(), 2u);
  EXPECT_EQ(handles[0].index(), 3);
  EXPECT_TRUE(handles[1].sameAs(seven));
}

TEST_F(Variables, CombineLikeTermsKeepsZeroSumsAndEmptyInput) {
  auto model = readModel(0, 1);
  std::vector<double> coeffs{2.0, -2.0};
  std::vector<KLOConstr> handles(2, Access::constrs(*model)[0]);
  combineLikeTerms(coeffs, handles);
  EXPECT_EQ(coeffs, std::vector<double>{0.0});
  std::vector<double> none;
  std::vector<KLOConstr> noHandles;
  combineLikeTerms(none, noHandles);
  EXPECT_TRUE(none.empty());
}

}  // namespace
