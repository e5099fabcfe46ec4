// Objectives: the clearing order, accumulation of repeated variables,
// quadratic and PSD terms, multiple objectives and reading back.
#include "expr_fixture.h"

namespace {

class Objective : public ExprTest {};

TEST_F(Objective, ClearsEverythingThenAccumulatesRepeatedVariables) {
  klo_fake::on("KLOgetintattrelement", "Dim").out(3, 2LL);
  // The second read of x's "Obj" sees the first write.
  klo_fake::on("KLOgetdblattrelement", "Obj").outs(3, {0.0, 1.0});
  model->setObjective(x + x + 4, 0);
  EXPECT_EQ(
      klo_fake::strs(),
      (Calls{"KLOdelq(ptr)", "KLOsetdblattrelement(ptr, \"Obj\", 0, 0)",
             "KLOsetdblattrelement(ptr, \"Obj\", 1, 0)", "KLOsetdblattrelement(ptr, \"Obj\", 2, 0)",
             "KLOgetintattrelement(ptr, \"Dim\", 0, ptr)",
             "KLOsetmatattrelement(ptr, \"PsdObj\", 0, 0, 2, 2, [], [])",
             "KLOgetdblattrelement(ptr, \"Obj\", 0, ptr)",
             "KLOsetdblattrelement(ptr, \"Obj\", 0, 1)",
             "KLOgetdblattrelement(ptr, \"Obj\", 0, ptr)",
             "KLOsetdblattrelement(ptr, \"Obj\", 0, 2)", "KLOsetdblattr(ptr, \"ObjCon\", 4)"}));
}

TEST_F(Objective, QuadraticTermsOneCallEachAsGivenAfterTheSense) {
  model->setObjective(x * y + 2 * (y * x) + z * z - 1, -1);
  const Calls calls = klo_fake::strs();
  const Calls tail(calls.begin() + 6, calls.end());
  EXPECT_EQ(tail,
            (Calls{"KLOsetintattr(ptr, \"ModelSense\", -1)", "KLOaddqpterms(ptr, 1, [0], [1], [1])",
                   "KLOaddqpterms(ptr, 1, [1], [0], [2])", "KLOaddqpterms(ptr, 1, [2], [2], [1])",
                   "KLOsetdblattr(ptr, \"ObjCon\", -1)"}));
}

TEST_F(Objective, AFailedClearStopsBeforeAnyChange) {
  klo_fake::on("KLOdelq").status(-1001);
  EXPECT_EQ(thrown([&] { model->setObjective(x, 1); }).getErrorCode(), -1001);
  EXPECT_EQ(klo_fake::functions(), (std::vector<std::string>{"KLOdelq", "KLOexplainerror"}));
}

TEST_F(Objective, PsdTermsOfOneVariableAreSummed) {
  KLOPsdExpr P = KLOMatrix::sparse(2, 2, {0}, {0}, {1.0}) * X;
  P += KLOMatrix::sparse(2, 2, {0, 1}, {0, 1}, {2.0, 3.0}) * X;
  model->setObjective(P, 1);
  const auto sets = klo_fake::callsOf("KLOsetmatattrelement");
  ASSERT_EQ(sets.size(), 2u);
  EXPECT_EQ(sets[1].str(), "KLOsetmatattrelement(ptr, \"PsdObj\", 0, 2, 2, 2, [0, 3], [3, 3])");
}

TEST_F(Objective, OtherObjectivesPassTermsUnmergedAndIgnoreRefusals) {
  klo_fake::on("KLOsetobjectiven").status(-1001);
  model->setObjectiveN(x + 2 * y + x + 5, 1, 3, 0.5, 1e-6, 1e-4, "cost");
  model->setObjectiveN(KLOLinExpr(), 0, 0, 1, 0, 0, "");
  EXPECT_EQ(klo_fake::strs(),
            (Calls{"KLOsetobjectiven(ptr, 1, 3, 0.5, 1e-06, 0.0001, \"cost\", "
                   "5, 3, [0, 1, 0], [1, 2, 1])",
                   "KLOsetobjectiven(ptr, 0, 0, 1, 0, 0, \"\", 0, 0, null, null)"}));
}

TEST_F(Objective, ReadBackSkipsZeroObjectiveCoefficients) {
  klo_fake::on("KLOgetq")
      .outs(1, {1LL})
      .outs(2, {klo_fake::Null{}, std::vector<int>{2}})
      .outs(3, {klo_fake::Null{}, std::vector<int>{0}})
      .outs(4, {klo_fake::Null{}, std::vector<double>{1.5}});
  klo_fake::on("KLOgetdblattrelement", "Obj").outs(3, {0.0, -2.0, 0.0});
  klo_fake::on("KLOgetdblattr", "ObjCon").out(2, 7.0);
  EXPECT_EQ(quad(model->getObjective()), "1.5*2*0 | -2*1 +7");
}

TEST_F(Objective, FreshModelReadsBackEmpty) { EXPECT_EQ(quad(model->getObjective()), "| +0"); }

}  // namespace
