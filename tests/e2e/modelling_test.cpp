// Models written with the operator algebra and solved by the solver
// library: parameters, rows, objectives and special constraints read back
// as they were given, answers read back through the handles, callbacks
// inside the search, and the feasibility relaxation.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "klo_c.h"
#include "klo_cpp.h"
#include "quiet_env.h"

namespace {

const double kInfinity = 1e20;

// The code a call raises, 0 when it raises nothing.
template <class Call>
int errorCode(Call call) {
  try {
    call();
  } catch (const KLOException& e) {
    return e.getErrorCode();
  }
  return 0;
}

class Modelling : public ::testing::Test, protected QuietEnv {
 protected:
  std::unique_ptr<KLOModel> model;
  KLOVar x, y, z;

  void SetUp() override {
    model = std::make_unique<KLOModel>(env);
    x = model->addVar(0, kInfinity, 0, 'C', "x");
    y = model->addVar(0, kInfinity, 0, 'C', "y");
    z = model->addVar(0, 1, 0, 'B', "z");
  }

  // Solves to optimality, turning a refusal into a readable failure.
  void solve() {
    try {
      model->optimize();
    } catch (const KLOException& e) {
      FAIL() << "optimize: " << e.getErrorCode() << " " << e.getMessage();
    }
    ASSERT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_OPTIMAL);
  }

  static std::string text(const KLOLinExpr& e) {
    std::ostringstream os;
    os << e;
    return os.str();
  }
};

// By name, a value is read as the parameter's type ("0.7" as an integer
// takes the leading 0; a model's "MaxTime" from "1.5" reads 0.51 as the
// library does); refusals carry the library's codes and detail.
TEST_F(Modelling, ParametersByNameInfoAndRefusals) {
  KLOEnv fresh(true);
  fresh.set("MIP/MaxNodes", "12");
  fresh.set("MaxTime", "1.5");
  fresh.set("Presolve", "0.7");
  EXPECT_EQ(fresh.get(KLO_IntParam_MIP_MaxNodes), 12);
  EXPECT_EQ(fresh.get(KLO_DoubleParam_MaxTime), 1.5);
  EXPECT_EQ(fresh.get(KLO_IntParam_Presolve), 0);
  model->set("MaxTime", "1.5");
  EXPECT_EQ(model->get(KLO_DoubleParam_MaxTime), 0.51);
  EXPECT_EQ(env.get(KLO_DoubleParam_MaxTime), 1e20);  // the model has its own copy
  EXPECT_EQ(errorCode([&] { fresh.set("NoSuchParameter", "1"); }), -1005);
  EXPECT_NE(fresh.getErrorMsg().find("NoSuchParameter"), std::string::npos);
  EXPECT_EQ(errorCode([&] { fresh.set(KLO_IntParam_Method, 7); }), -1007);
  EXPECT_EQ(fresh.get(KLO_IntParam_Method), -1);
  fresh.set(KLO_IntParam_Method, 2);
  int value = 0, min = 0, max = 0, def = 0;
  fresh.getParamInfo(KLO_IntParam_Method, &value, &min, &max, &def);
  EXPECT_EQ(value, 2);
  EXPECT_LE(min, def);
  EXPECT_LE(def, max);
  fresh.resetParams();
  EXPECT_EQ(fresh.get(KLO_IntParam_Method), def);
}

TEST_F(Modelling, LentEnvironmentDiesWithItsModelAndVariablesRenumber) {
  KLOEnv lent = model->getEnv();
  lent.set(KLO_DoubleParam_MaxTime, 30.0);
  EXPECT_EQ(model->get(KLO_DoubleParam_MaxTime), 30.0);
  EXPECT_EQ(z.get(KLO_CharAttr_VType), 'B');
  EXPECT_TRUE(model->getVarByName("y").sameAs(y));
  model->remove(x);
  EXPECT_EQ(y.index(), 0);
  EXPECT_EQ(model->get(KLO_IntAttr_NumVars), 2);
  EXPECT_EQ(model->getVarByName("z").get(KLO_DoubleAttr_UB), 1.0);
  model.reset();
  EXPECT_EQ(errorCode([&] { lent.get(KLO_DoubleParam_MaxTime); }), -100000);
}

// max x + y, x + 2y <= 4, 3x + y <= 6: the rows meet at (1.6, 1.2), 2.8.
TEST_F(Modelling, SmallLinearProgramSolvesAtTheVertex) {
  const KLOConstr c1 = model->addConstr(x + 2 * y + 1 <= 5, "c1");
  const KLOConstr c2 = model->addConstr(3 * x + y, '<', 6.0, "c2");
  model->setObjective(x + y, -1);
  solve();
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 2.8, 1e-9);
  EXPECT_NEAR(x.get(KLO_DoubleAttr_X), 1.6, 1e-9);
  EXPECT_NEAR((x + y + 1).getValue(), 3.8, 1e-9);
  EXPECT_EQ(c1.get(KLO_DoubleAttr_RHS), 4.0);
  EXPECT_EQ(c2.get(KLO_DoubleAttr_RHS), 6.0);
}

TEST_F(Modelling, RowsAndObjectivesReadBackMergedAndRenumbered) {
  model->addConstr(x + y + x, '>', 1.0, "a");
  const KLOConstr b = model->addRange(2 * y - 3, -1, 1e20, "b");
  const KLOLinExpr bulk[] = {x - y, y + 1};
  const char senses[] = {'=', '<'};
  const double rhs[] = {0.0, 3.0};
  const std::string names[] = {"c", "d"};
  std::unique_ptr<KLOConstr[]> cd(model->addConstrs(bulk, senses, rhs, names, 2));
  EXPECT_EQ(text(model->getRow(model->getConstrByName("a"))), "2 * x + y");
  EXPECT_EQ(b.get(KLO_DoubleAttr_LHS), 2.0);
  EXPECT_EQ(cd[1].get(KLO_DoubleAttr_RHS), 2.0);
  model->remove(b);
  EXPECT_EQ(model->get(KLO_IntAttr_NumConstrs), 3);
  EXPECT_EQ(cd[0].index(), 1);
  EXPECT_EQ(model->getCoeff(cd[0], y), -1.0);
  model->chgCoeff(cd[0], y, 4.0);
  EXPECT_EQ(text(model->getRow(cd[0])), "x + 4 * y");
  EXPECT_EQ(cd[1].get(KLO_StringAttr_ConstrName), "d");
  const KLOQConstr q = model->addQConstr(x * y + x * y + 3 * x + 1 <= 9, "q");
  const KLOQuadExpr qrow = model->getQCRow(q);
  ASSERT_EQ(qrow.size(), 1);
  EXPECT_EQ(qrow.getCoeff(0), 2.0);
  EXPECT_EQ(qrow.getLinExpr().getCoeff(0), 3.0);
  model->remove(q);
  EXPECT_EQ(model->get(KLO_IntAttr_NumConstrs), 3);
  model->setObjective(x * x + 2 * x * y + 3 * y - 1, 1);
  model->setObjective(2 * x + x + 5, -1);
  const KLOQuadExpr objective = model->getObjective();
  EXPECT_EQ(objective.size(), 0);
  EXPECT_EQ(text(objective.getLinExpr()), "3 * x + 5");
  EXPECT_EQ(model->get(KLO_IntAttr_ModelSense), -1);
}

TEST_F(Modelling, SosIndicatorsAndPsdTermsRoundTrip) {
  const KLOVar members[] = {y, x};
  const double weights[] = {1.0, 2.0};
  const KLOSOS sos = model->addSOS(members, weights, 2, 1);
  KLOVar read[2];
  int type = 0;
  ASSERT_EQ(model->getSOS(sos, read, nullptr, &type), 2);
  EXPECT_TRUE(read[0].sameAs(y));
  EXPECT_EQ(type, 1);
  const KLOGenConstr g = model->addGenConstrIndicator(z, 1, x + y + 1 <= 4, "ind");
  KLOLinExpr expr;
  double rhs = 0;
  char sense = 0;
  model->getGenConstrIndicator(g, nullptr, nullptr, &expr, &sense, &rhs);
  EXPECT_EQ(text(expr), "x + y");
  EXPECT_EQ(sense, '<');
  EXPECT_EQ(rhs, 3.0);
  model->remove(sos);
  EXPECT_EQ(model->get(KLO_IntAttr_NumSOS), 0);
  const KLOPsdVar X = model->addPsdVar(2, "X");
  KLOPsdExpr P = KLOMatrix::sparse(2, 2, {0, 1}, {0, 1}, {1.0, 1.0}) * X + x;
  P += KLOMatrix::sparse(2, 2, {1}, {0}, {0.5}) * X;
  const KLOPsdConstr c = model->addPsdConstr(P, '=', 1.0, "trace");
  EXPECT_EQ(model->getPsdConstr(0).index(), c.index());
  model->setObjective(KLOMatrix::identity(2) * X + 2.0 * KLOMatrix::identity(2) * X, 1);
  const KLOMatrix objective = X.get(KLO_MatAttr_PsdObj);
  ASSERT_EQ(objective.nonzeros(), 2);
  EXPECT_EQ(objective.data()[0], 3.0);
  model->remove(X);
  EXPECT_EQ(model->get(KLO_IntAttr_NumPsdVars), 0);
}

// x and y have no upper bounds, so the indicator takes its slack and SOS
// form: z pays 8 for x + y <= 3 where 10 was open.
TEST_F(Modelling, IndicatorsAreSolved) {
  model->addConstr(x + y <= 10, "cap");
  model->addGenConstrIndicator(z, 1, x + y <= 3, "small");
  model->setObjective(x + y + 8 * z, -1);
  solve();
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 11, 1e-6);
  EXPECT_NEAR(z.get(KLO_DoubleAttr_X), 1, 1e-6);
  EXPECT_LE(x.get(KLO_DoubleAttr_X) + y.get(KLO_DoubleAttr_X), 3 + 1e-6);
}

// Quadratic models on free u, v (and t >= 0); "Activity" and "DualSoln"
// of the first row, and the objective as written, read back.
struct QuadCase {
  const char* what;
  KLOQuadExpr (*build)(KLOModel&, KLOVar u, KLOVar v, KLOVar t);  // the objective
  int sense;
  double u, v, objective, activity, dual;  // dual NaN: not checked
};

TEST_F(Modelling, QuadraticModelsAnswerAsWorkedOut) {
  const double nan = std::nan("");
  const QuadCase cases[] = {
      // min (u-1)^2 + (v-2)^2, u + v <= 2: the projection (0.5, 1.5), 0.5;
      // the optimum (3-b)^2/2 has slope -1 at b = 2.
      {"projection",
       [](KLOModel& m, KLOVar u, KLOVar v, KLOVar) -> KLOQuadExpr {
         m.addConstr(u + v <= 2);
         return (u - 1) * (u - 1) + (v - 2) * (v - 2);
       },
       1, 0.5, 1.5, 0.5, 2, -1},
      // max u + v on (u-1)^2 + v^2 <= 2: (2, 1), 3; the row's activity 1.
      {"disc",
       [](KLOModel& m, KLOVar u, KLOVar v, KLOVar) -> KLOQuadExpr {
         m.addQConstr(u * u + v * v - 2 * u <= 1);
         return u + v;
       },
       -1, 2, 1, 3, 1, nan},
      // min t, u^2 + v^2 <= t^2, u + v >= 2: (1, 1), t = sqrt 2, cone tight.
      {"cone",
       [](KLOModel& m, KLOVar u, KLOVar v, KLOVar t) -> KLOQuadExpr {
         m.addQConstr(u * u + v * v - t * t <= 0);
         m.addConstr(u + v >= 2);
         return 1.0 * t;
       },
       1, 1, 1, std::sqrt(2.0), 0, nan},
      // min (u-2.6)^2 + (v-1.4)^2, u + v <= 3.5, v integer in [0, 5]: the
      // best u for each v is min(2.6, 3.5 - v): v = 1, u = 2.5, 0.17.
      {"integer",
       [](KLOModel& m, KLOVar u, KLOVar v, KLOVar) -> KLOQuadExpr {
         v.set(KLO_CharAttr_VType, 'I');
         v.set(KLO_DoubleAttr_LB, 0);
         v.set(KLO_DoubleAttr_UB, 5);
         m.addConstr(u + v <= 3.5);
         return (u - 2.6) * (u - 2.6) + (v - 1.4) * (v - 1.4);
       },
       1, 2.5, 1, 0.17, 3.5, nan},
  };
  for (const QuadCase& c : cases) {
    SCOPED_TRACE(c.what);
    model = std::make_unique<KLOModel>(env);
    const KLOVar u = model->addVar(-kInfinity, kInfinity, 0, 'C', "u");
    const KLOVar v = model->addVar(-kInfinity, kInfinity, 0, 'C', "v");
    const KLOVar t = model->addVar(0, kInfinity, 0, 'C', "t");
    const KLOQuadExpr objective = c.build(*model, u, v, t);
    model->setObjective(objective, c.sense);
    solve();
    if (HasFatalFailure()) return;
    EXPECT_NEAR(u.get(KLO_DoubleAttr_X), c.u, 1e-6);
    EXPECT_NEAR(v.get(KLO_DoubleAttr_X), c.v, 1e-6);
    EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), c.objective, 1e-6);
    EXPECT_NEAR(objective.getValue(), c.objective, 1e-6);
    EXPECT_NEAR(model->getObjective().getValue(), c.objective, 1e-6);
    // A KLOQConstr is numbered one past its row: its attributes are read
    // through the row's KLOConstr.
    EXPECT_NEAR(model->getConstr(0).get(KLO_DoubleAttr_Activity), c.activity, 1e-6);
    if (!std::isnan(c.dual)) {
      EXPECT_NEAR(model->getConstr(0).get(KLO_DoubleAttr_DualSoln), c.dual, 1e-6);
    }
  }
}

// x, y in [0, 1] and 2x + y >= 4.5: relaxing the bounds costs 0.75 (x up
// to 1.75), relaxing the row 1.5 (the row down to 3); the solution breaks
// them by that much.
TEST_F(Modelling, FeasRelaxPricesWhatEachSwitchAllows) {
  struct Case {
    bool vrelax, crelax;
    double measure;
  };
  for (const Case& c : {Case{true, false, 0.75}, Case{false, true, 1.5}, Case{true, true, 0.75}}) {
    model = std::make_unique<KLOModel>(env);
    const KLOVar a = model->addVar(0, 1, 0, 'C', "a");
    const KLOVar b = model->addVar(0, 1, 0, 'C', "b");
    model->addConstr(2 * a + b >= 4.5, "r");
    EXPECT_NEAR(model->feasRelax(0, true, c.vrelax, c.crelax), c.measure, 1e-7);
    const double av = a.get(KLO_DoubleAttr_X), bv = b.get(KLO_DoubleAttr_X);
    const double broken =
        std::max(0.0, av - 1) + std::max(0.0, bv - 1) + std::max(0.0, 4.5 - (2 * av + bv));
    EXPECT_NEAR(broken, c.measure, 1e-7) << c.vrelax << c.crelax;
  }
}

// A knapsack for the callbacks.
class Knapsack : public Modelling {
 protected:
  void SetUp() override {
    Modelling::SetUp();
    KLOLinExpr weight, value;
    for (int i = 0; i < 6; ++i) {
      items[i] = model->addVar(0, 1, 0, 'B');
      weight += (3.0 + i) * items[i];
      value += (4.0 + 2 * i % 5) * items[i];
    }
    model->addConstr(weight <= 14);
    model->setObjective(value, -1);
  }
  KLOVar items[6];
};

// Stops the search at the first new incumbent.
class StopAtFirstIncumbent : public KLOCallback {
 public:
  int calls = 0, incumbents = 0;
  void callback() override {
    ++calls;
    if (where == KLO_CB_MIPSOL) {
      ++incumbents;
      abort();
    }
  }
};

// Whatever a callback throws stops the search and leaves optimize() as
// itself, with the incumbent kept.
template <class E>
class ThrowAtIncumbent : public KLOCallback {
 public:
  explicit ThrowAtIncumbent(E e) : e_(std::move(e)) {}
  void callback() override {
    if (where == KLO_CB_MIPSOL) throw e_;
  }

 private:
  E e_;
};

TEST_F(Knapsack, CallbacksStopTheSearchAndTheirExceptionsReachTheCaller) {
  StopAtFirstIncumbent stop;
  model->setCallback(&stop);
  model->optimize();
  EXPECT_GT(stop.calls, 0);
  EXPECT_EQ(stop.incumbents, 1);
  EXPECT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_INTERRUPTED);
  ThrowAtIncumbent<KLOException> own(KLOException("mine", -777));
  model->setCallback(&own);
  try {
    model->optimize();
    ADD_FAILURE() << "no exception";
  } catch (const KLOException& e) {
    EXPECT_EQ(e.getErrorCode(), -777);
    EXPECT_EQ(e.getMessage(), "mine");
  }
  EXPECT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_INTERRUPTED);
  ThrowAtIncumbent<std::runtime_error> theirs(std::runtime_error("theirs"));
  model->setCallback(&theirs);
  EXPECT_THROW(model->optimize(), std::runtime_error);
  model->setCallback(nullptr);
  solve();  // the model is not left busy
}

// A cut at an incumbent without lazy constraints is refused with a code
// and the search goes on; log lines are readable as text.
class CutAtIncumbentAndReadLog : public KLOCallback {
 public:
  std::vector<int> cutCodes;
  std::vector<std::string> lines;
  KLOVar v;
  void callback() override {
    if (where == KLO_CB_MIPSOL) cutCodes.push_back(addCut(1.0 * v, '<', 0));
    if (where == KLO_CB_MESSAGE) lines.push_back(getStringInfo(KLO_CBINFO_MSG_STRING));
  }
};

TEST_F(Knapsack, RefusedCutsAndLogText) {
  model->set(KLO_IntParam_OutputFlag, 1);
  model->set(KLO_IntParam_LogToConsole, 0);
  CutAtIncumbentAndReadLog cb;
  cb.v = items[0];
  model->setCallback(&cb);
  solve();
  ASSERT_FALSE(cb.cutCodes.empty());
  for (int code : cb.cutCodes) EXPECT_EQ(code, KLO_CB_IGNORED);
  ASSERT_FALSE(cb.lines.empty());
  EXPECT_NE(cb.lines.back(), "");
  EXPECT_THROW(cb.getStringInfo(KLO_CBINFO_NUMVARS), KLOException);
}

}  // namespace
