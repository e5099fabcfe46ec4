// KLOModel: construction and synchronisation of the handle vectors, copies,
// relaxations, environments, and variables added, looked up, removed (with
// renumbering) and read back.
#include "fixture.h"

namespace {

using Model = FakeTest;

TEST_F(Model, ConstructionSynchronisesWithTheOffByOneQuadraticRecords) {
  {
    KLOModel byPointer(&env);
    KLOModel byReference(env);
    EXPECT_EQ(Access::vars(byReference).size(), 0u);
  }
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOnewmodel(ptr, ptr, null, 0, null, null, null, null, null)",
                                     "KLOnewmodel(ptr, ptr, null, 0, null, null, null, null, null)",
                                     "KLOfreemodel(ptr)", "KLOfreemodel(ptr)"}));
  EXPECT_EQ(klo_fake::calls()[1].pointer(0), klo_fake::calls()[0].pointer(0));
  klo_fake::reset();
  scriptCounts(3, 2, 1, 2, 1);
  KLOModel model(env, "small.lp");
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOreadmodel(ptr, \"small.lp\", ptr)", "KLOgetintattr(ptr, \"NumVars\", ptr)",
             "KLOgetintattr(ptr, \"NumConstrs\", ptr)", "KLOgetintattr(ptr, \"NumPsdVars\", ptr)",
             "KLOgetintattr(ptr, \"NumSOS\", ptr)", "KLOgetintattr(ptr, \"NumGenConstrs\", ptr)"}));
  const std::vector<Ints> synced = {
      indices(Access::vars(model)),       indices(Access::constrs(model)),
      indices(Access::psdconstrs(model)), indices(Access::qconstrs(model)),
      indices(Access::psdvars(model)),    indices(Access::sos(model)),
      indices(Access::genconstrs(model))};
  EXPECT_EQ(synced, (std::vector<Ints>{{0, 1, 2}, {0, 1}, {0, 1}, {1, 2}, {0}, {0, 1}, {0}}));
  klo_fake::reset();
  klo_fake::on("KLOgetintattr").status(-1001);
  EXPECT_EQ(code([&] { KLOModel broken(&env, "broken.mps"); }), -1001);
  EXPECT_EQ(klo_fake::functions().front() + " " + klo_fake::functions().back(),
            "KLOreadmodel KLOfreemodel");  // frees what the library made
}

TEST_F(Model, CopiesHaveTheirOwnHandlesAndAssignmentChangesNothing) {
  auto source = readModel(2, 1);
  scriptCounts(2, 1);
  {
    KLOModel copy(*source);
    EXPECT_EQ(klo_fake::functions().front(), "KLOcopymodel");
    EXPECT_EQ(indices(Access::vars(copy)), (Ints{0, 1}));
    EXPECT_FALSE(Access::vars(copy)[0].sameAs(Access::vars(*source)[0]));
    EXPECT_NE(Access::model(copy), Access::model(*source));
  }
  klo_fake::reset();
  klo_fake::on("KLOcopymodel").returns(nullptr);
  klo_fake::explain(-2, "Out of memory, or the model could not be copied");
  EXPECT_EQ(failure([&] { KLOModel copy(*source); }),
            "-2 Out of memory, or the model could not be copied");
  EXPECT_EQ(klo_fake::functions(), (Calls{"KLOcopymodel", "KLOexplainerror"}));
  auto target = readModel(5, 3);
  const KLOVar before = Access::vars(*source)[1];
  *source = *target;
  EXPECT_TRUE(klo_fake::calls().empty());
  EXPECT_EQ(Access::vars(*source).size(), 2u);
  EXPECT_TRUE(Access::vars(*source)[1].sameAs(before));
  EXPECT_NE(Access::model(*target), Access::model(*source));
  source.reset();
  EXPECT_EQ(before.index(), 1);  // handles outlive the model with their last index
}

TEST_F(Model, WholeModelOperationsAndEnvironments) {
  KLOModel model(env);
  klo_fake::reset();
  int ownEnvironment = 0;
  klo_fake::on("KLOgetenv").returns(&ownEnvironment);
  klo_fake::on("KLOdiscardmultiobjenvs").status(-1);  // ignored
  model.optimize();
  model.computeIIS();
  model.read("start.mst");
  model.write("out.lp");
  model.reset(1);
  model.getEnv().set(KLO_IntParam_Method, 1);
  {
    KLOEnv first = model.getMultiobjEnv(0);  // fresh and unowned when the library has none
    klo_fake::on("KLOgetmultiobjenv").returns(nullptr);
    KLOEnv second = model.getMultiobjEnv(7);
  }
  model.discardMultiobjEnvs();
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOoptimize(ptr)", "KLOcomputeIIS(ptr)", "KLOread(ptr, \"start.mst\")",
             "KLOwrite(ptr, \"out.lp\")", "KLOreset(ptr, 1)", "KLOgetenv(ptr)",
             "KLOsetintparam(ptr, \"Method\", 1)", "KLOgetmultiobjenv(ptr, 0)", "KLOemptyenv(ptr)",
             "KLOgetmultiobjenv(ptr, 7)", "KLOloadenv(ptr, null)", "KLOdiscardmultiobjenvs(ptr)"}));
  EXPECT_EQ(klo_fake::calls()[6].pointer(0), &ownEnvironment);
  klo_fake::on("KLOoptimize").status(-5);
  EXPECT_EQ(code([&] { model.optimize(); }), -5);
}

TEST_F(Model, RelaxReplacesTheCopysModelAndSyncsTwice) {
  auto model = readModel(2, 3);
  scriptCounts(2, 3);
  const KLOModel relaxed = model->relax();
  const auto calls = klo_fake::calls();
  ASSERT_EQ(calls.size(), 13u);
  EXPECT_EQ(calls[0].function + calls[6].function + calls[7].function,
            "KLOcopymodelKLOfreemodelKLOrelaxmodel");
  EXPECT_NE(calls[6].pointer(0), Access::model(relaxed));
  EXPECT_EQ(calls[7].pointer(0), Access::model(*model));
  // The PSD-constraint vector is not emptied by sync: the second one
  // appends behind the first.
  EXPECT_EQ(indices(Access::psdconstrs(relaxed)), (Ints{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(indices(Access::constrs(relaxed)), (Ints{0, 1, 2}));
  klo_fake::reset();
  scriptCounts(2, 3);
  klo_fake::on("KLOrelaxmodel").status(-3);
  EXPECT_EQ(code([&] { model->relax(); }), -3);
  EXPECT_EQ(klo_fake::callsOf("KLOfreemodel").size(), 1u);  // the copy, once
}

TEST_F(Model, FeasRelaxGivesEachArrayItsOwnCountAndPlacesPenaltiesByIndex) {
  KLOModel empty(env);
  klo_fake::reset();
  empty.feasRelax(0, true, true, false);
  EXPECT_EQ(klo_fake::strs().back(), "KLOfeasrelax(ptr, 0, 1, null, null, null, ptr)");
  auto model = readModel(3, 2);
  scriptCounts(3, 2);
  klo_fake::on("KLOfeasrelax").arrayLength(3, 3).arrayLength(4, 3).arrayLength(5, 2).out(6, 7.5);
  EXPECT_EQ(model->feasRelax(0, false, true, true), 0.0);
  EXPECT_EQ(model->feasRelax(1, true, false, true), 7.5);
  const auto& vars = Access::vars(*model);
  const KLOVar some[] = {vars[2], vars[0]};
  const double lb[] = {1, 2}, ub[] = {3, 4}, rhs[] = {5};
  const KLOConstr cons[] = {Access::constrs(*model)[1]};
  model->feasRelax(0, false, 2, some, lb, ub, 1, cons, rhs);
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOgetintattr(ptr, \"NumVars\", ptr)", "KLOgetintattr(ptr, \"NumConstrs\", ptr)",
             "KLOfeasrelax(ptr, 0, 0, [1, 1, 1], [1, 1, 1], [1, 1], ptr)",
             "KLOgetintattr(ptr, \"NumVars\", ptr)", "KLOgetintattr(ptr, \"NumConstrs\", ptr)",
             "KLOfeasrelax(ptr, 1, 1, [1e+20, 1e+20, 1e+20], [1e+20, 1e+20, 1e+20], "
             "[1, 1], ptr)",
             "KLOgetintattr(ptr, \"NumVars\", ptr)", "KLOgetintattr(ptr, \"NumConstrs\", ptr)",
             "KLOfeasrelax(ptr, 0, 0, [2, 1e+20, 1], [4, 1e+20, 3], [1e+20, 5], ptr)"}));
  const KLOVar gone = vars[1];
  model->remove(gone);
  klo_fake::reset();
  scriptCounts(2, 2);
  EXPECT_EQ(code([&] { model->feasRelax(0, false, 1, &gone, lb, ub, 0, nullptr, nullptr); }),
            -2003);
  EXPECT_TRUE(klo_fake::callsOf("KLOfeasrelax").empty());
}

TEST_F(Model, VariablesAreAddedInEveryFormWithNamesNeverNull) {
  auto model = readModel(1, 3);
  const auto& rows = Access::constrs(*model);
  KLOColumn col;
  col.addTerm(2.0, rows[2]);
  col.addTerm(-2.0, rows[0]);
  col.addTerm(2.0, rows[0]);
  const double coeffs[] = {4.0, 5.0};
  const KLOConstr two[] = {rows[1], rows[0]}, three[] = {rows[2], rows[0], rows[1]};
  const KLOVar x = model->addVar(0.0, 4.5, 1.5, 'I', "x");
  model->addVar(-1.0, 1e20, 0.0, 'C');
  model->addVar(0, 1, 0, 'C', 3, three, nullptr, "z");  // no coefficients: zeros
  model->addVar(0, 1, 0, 'C', col);                     // merged and sorted
  model->addVar(0, 1, 0, 'C', 2, two, coeffs);
  model->addVar(0, 1, 0, 'C', KLOColumn());
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOaddvar(ptr, 0, null, null, 1.5, 0, 4.5, 'I', \"x\")",
                                     "KLOaddvar(ptr, 0, null, null, 0, -1, 1e+20, 'C', \"\")",
                                     "KLOaddvar(ptr, 3, [0, 1, 2], [0, 0, 0], 0, 0, 1, 'C', \"z\")",
                                     "KLOaddvar(ptr, 2, [0, 2], [0, 2], 0, 0, 1, 'C', \"\")",
                                     "KLOaddvar(ptr, 2, [0, 1], [5, 4], 0, 0, 1, 'C', \"\")",
                                     "KLOaddvar(ptr, 0, null, null, 0, 0, 1, 'C', \"\")"}));
  EXPECT_EQ(x.index(), 1);
  EXPECT_TRUE(Access::vars(*model)[1].sameAs(x));
  klo_fake::reset();
  KLOColumn cols[3];
  cols[0].addTerm(1.0, rows[2]);
  cols[0].addTerm(1.0, rows[0]);
  cols[2].addTerm(2.0, rows[1]);
  cols[2].addTerm(-2.0, rows[1]);  // merged into one explicit zero
  const double lb[] = {0, 0, 1}, ub[] = {1, 2, 3}, obj[] = {1, 0, 0};
  const char types[] = {'C', 'I', 'B'};
  const std::string names[] = {"a", "", "c"};
  std::unique_ptr<KLOVar[]> added(model->addVars(lb, ub, obj, types, names, cols, 3));
  delete[] model->addVars(nullptr, nullptr, nullptr, nullptr, nullptr, 2);
  std::unique_ptr<KLOVar[]> none(model->addVars(0, 'B'));
  std::unique_ptr<KLOVar[]> binaries(model->addVars(3, 'B'));
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOaddvars(ptr, 3, 3, [0, 2, 2], [0, 2, 1], [1, 1, 0], [1, 0, 0], "
                   "[0, 0, 1], [1, 2, 3], ['C', 'I', 'B'], [\"a\", \"\", \"c\"])",
                   "KLOaddvars(ptr, 2, 0, null, null, null, null, null, null, null, null)",
                   "KLOaddvars(ptr, 0, 0, null, null, null, null, null, null, null, null)",
                   "KLOaddvars(ptr, 3, 0, null, null, null, null, null, null, ['B', 'B', "
                   "'B'], null)"}));
  EXPECT_EQ((Ints{added[0].index(), added[2].index()}), (Ints{7, 9}));
  EXPECT_NE(none, nullptr);
  EXPECT_EQ(binaries[2].index(), 14);
  EXPECT_TRUE(binaries[0].sameAs(Access::vars(*model)[12]));
  klo_fake::reset();
  const KLOVar placeholder = model->addVar();  // advances only the handle vector
  EXPECT_EQ(placeholder.index(), 15);
  EXPECT_EQ(Access::vars(*model).size(), 16u);
  EXPECT_TRUE(klo_fake::calls().empty());
}

TEST_F(Model, FailedOrRefusedAddsAppendNothing) {
  auto model = readModel(0, 2);
  const KLOConstr gone = Access::constrs(*model)[0];
  model->remove(gone);
  klo_fake::reset();
  KLOColumn col;
  col.addTerm(1.0, Access::constrs(*model)[0]);
  col.addTerm(1.0, gone);
  EXPECT_EQ(code([&] { model->addVar(0, 1, 0, 'C', col); }), -2002);
  EXPECT_EQ(code([&] { model->addVars(nullptr, nullptr, nullptr, nullptr, nullptr, &col, 1); }),
            -2002);
  EXPECT_EQ(klo_fake::functions(), (Calls{"KLOexplainerror", "KLOexplainerror"}));
  klo_fake::on("KLOaddvar").status(-3);
  klo_fake::on("KLOaddvars").status(-3);
  EXPECT_EQ(code([&] { model->addVar(0, 1, 0, 'Q', "bad"); }), -3);
  EXPECT_EQ(code([&] { model->addVars(2, 'Q'); }), -3);
  EXPECT_TRUE(Access::vars(*model).empty());
}

TEST_F(Model, VariablesAreLookedUpByIndexAndName) {
  auto model = readModel(3, 0);
  EXPECT_TRUE(model->getVar(1).sameAs(Access::vars(*model)[1]));
  EXPECT_EQ(code([&] { model->getVar(-1); }), -2003);
  EXPECT_EQ(code([&] { model->getVar(3); }), -2003);
  klo_fake::on("KLOgetvarbyname", "y").out(2, 2LL);
  klo_fake::on("KLOgetvarbyname", "nobody").out(2, -1LL);
  EXPECT_TRUE(model->getVarByName("y").sameAs(Access::vars(*model)[2]));
  EXPECT_EQ(code([&] { model->getVarByName("nobody"); }), -2003);
  klo_fake::on("KLOgetvarbyname").status(-4);
  EXPECT_EQ(code([&] { model->getVarByName("z"); }), -4);
  std::unique_ptr<KLOVar[]> vars(model->getVars());
  EXPECT_TRUE(vars[2].sameAs(Access::vars(*model)[2]));
  model.reset();
  EXPECT_EQ(vars[2].index(), 2);  // the copies keep their records alive
}

TEST_F(Model, RemovingAVariableRenumbersTheOthersAndMarksItNegative) {
  auto model = readModel(5, 0);
  const std::vector<KLOVar> before = Access::vars(*model);
  model->remove(before[2]);
  model->remove(before[0]);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOdelvars(ptr, 1, [2])", "KLOdelvars(ptr, 1, [0])"}));
  EXPECT_EQ(indices(before), (Ints{-1, 0, -3, 1, 2}));
  EXPECT_EQ(indices(Access::vars(*model)), (Ints{0, 1, 2}));
  EXPECT_TRUE(Access::vars(*model)[1].sameAs(before[3]));
  EXPECT_EQ(code([&] { before[2].get(KLO_DoubleAttr_X); }), -2003);
  klo_fake::reset();
  klo_fake::on("KLOdelvars").status(-2003);  // twice: the library refuses the negative index
  EXPECT_EQ(code([&] { model->remove(before[2]); }), -2003);
  EXPECT_EQ(klo_fake::strs().front(), "KLOdelvars(ptr, 1, [-3])");
  EXPECT_EQ(code([&] { model->remove(before[1]); }), -2003);  // failed: nothing changes
  EXPECT_EQ(indices(before), (Ints{-1, 0, -3, 1, 2}));
  auto other = readModel(3, 0);
  EXPECT_EQ(code([&] { model->remove(Access::vars(*other)[0]); }), -2003);
  EXPECT_TRUE(klo_fake::callsOf("KLOdelvars").empty());  // foreign: refused before the library
  EXPECT_EQ(Access::vars(*model).size(), 3u);
}

TEST_F(Model, ColumnsComeBackInTheLibrarysOrder) {
  auto model = readModel(2, 3);
  const KLOColumn empty = model->getCol(Access::vars(*model)[1]);
  EXPECT_EQ(empty.size(), 0);
  script(klo_fake::on("KLOgetvars"),
         {{1, 2LL}, {2, Ints{0, 1}}, {3, Ints{2, 0}}, {4, Doubles{1.5, -1}}});
  const KLOColumn col = model->getCol(Access::vars(*model)[0]);
  EXPECT_EQ(klo_fake::strs(), (Calls{"KLOgetvars(ptr, ptr, null, null, null, 1, 1)",
                                     "KLOgetvars(ptr, ptr, null, null, null, 1, 1)",
                                     "KLOgetvars(ptr, ptr, null, null, null, 0, 1)",
                                     "KLOgetvars(ptr, ptr, ptr, ptr, ptr, 0, 1)"}));
  ASSERT_EQ(col.size(), 2);
  EXPECT_TRUE(col.getConstr(0).sameAs(Access::constrs(*model)[2]));
  EXPECT_EQ(col.getCoeff(1), -1.0);
}

TEST_F(Model, CombiningLikeTermsSortsSumsAndKeepsTheLastHandle) {
  auto model = readModel(8, 1);
  const auto& vars = Access::vars(*model);
  const KLOVar seven = vars[7];
  std::vector<double> coeffs{1, 2, 4};
  std::vector<KLOVar> handles{vars[7], vars[3], seven};
  combineLikeTerms(coeffs, handles);
  EXPECT_EQ(coeffs, (Doubles{2, 5}));
  EXPECT_EQ(indices(handles), (Ints{3, 7}));
  EXPECT_TRUE(handles[1].sameAs(seven));
  coeffs = {2.0, -2.0};
  std::vector<KLOConstr> rows(2, Access::constrs(*model)[0]);
  combineLikeTerms(coeffs, rows);
  EXPECT_EQ(coeffs, Doubles{0.0});  // zero sums stay
  coeffs.clear(), handles.clear();
  combineLikeTerms(coeffs, handles);
  EXPECT_TRUE(coeffs.empty());
}

}  // namespace
