// Models written with the operator algebra and solved by the solver
// library: rows, objectives and special constraints read back as they were
// given, and callbacks that run inside the search.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "klo_c.h"
#include "klo_cpp.h"

namespace {

class Modelling : public ::testing::Test {
 protected:
  KLOEnv env{true};
  std::unique_ptr<KLOModel> model;
  KLOVar x, y, z;

  void SetUp() override {
    env.set(KLO_IntParam_OutputFlag, 0);
    env.start();
    model = std::make_unique<KLOModel>(env);
    x = model->addVar(0, 1e20, 0, 'C', "x");
    y = model->addVar(0, 1e20, 0, 'C', "y");
    z = model->addVar(0, 1, 0, 'B', "z");
  }

  // Solves, turning a refusal into a readable test failure.
  void solve() {
    try {
      model->optimize();
    } catch (const KLOException& e) {
      FAIL() << "optimize: " << e.getErrorCode() << " " << e.getMessage();
    }
  }

  static std::string text(const KLOLinExpr& e) {
    std::ostringstream os;
    os << e;
    return os.str();
  }
};

// max x + y  s.t.  x + 2y <= 4, 3x + y <= 6: the two rows meet at
// (1.6, 1.2), objective 2.8.
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

TEST_F(Modelling, RowsReadBackMergedAndRenumberedAfterRemoval) {
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
}

TEST_F(Modelling, ObjectivesReplaceEachOtherAndReadBack) {
  model->setObjective(x * x + 2 * x * y + 3 * y - 1, 1);
  model->setObjective(2 * x + x + 5, -1);
  const KLOQuadExpr objective = model->getObjective();
  EXPECT_EQ(objective.size(), 0);
  EXPECT_EQ(text(objective.getLinExpr()), "3 * x + 5");
  EXPECT_EQ(model->get(KLO_IntAttr_ModelSense), -1);
}

TEST_F(Modelling, QuadraticRowsReadBackWithMergedTerms) {
  const KLOQConstr q = model->addQConstr(x * y + x * y + 3 * x + 1 <= 9, "q");
  const KLOQuadExpr row = model->getQCRow(q);
  ASSERT_EQ(row.size(), 1);
  EXPECT_EQ(row.getCoeff(0), 2.0);
  EXPECT_EQ(row.getLinExpr().getCoeff(0), 3.0);
  EXPECT_EQ(model->get(KLO_IntAttr_NumQConstrs), 1);
  model->remove(q);
  EXPECT_EQ(model->get(KLO_IntAttr_NumConstrs), 0);
}

TEST_F(Modelling, SosAndIndicatorsRoundTrip) {
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
}

// x and y have no upper bounds, so the indicator takes its slack and SOS
// form: z pays 8 for x + y <= 3 where 10 was open.
TEST_F(Modelling, IndicatorsAreSolved) {
  model->addConstr(x + y <= 10, "cap");
  model->addGenConstrIndicator(z, 1, x + y <= 3, "small");
  model->setObjective(x + y + 8 * z, -1);
  solve();
  ASSERT_EQ(model->get(KLO_IntAttr_Status), 1) << "not solved to optimality";
  EXPECT_NEAR(model->get(KLO_DoubleAttr_ObjVal), 11, 1e-6);
  EXPECT_NEAR(z.get(KLO_DoubleAttr_X), 1, 1e-6);
  EXPECT_LE(x.get(KLO_DoubleAttr_X) + y.get(KLO_DoubleAttr_X), 3 + 1e-6);
}

TEST_F(Modelling, PsdRowsAndObjectivesReachTheStore) {
  const KLOPsdVar X = model->addPsdVar(2, "X");
  KLOPsdExpr P = KLOMatrix::sparse(2, 2, {0, 1}, {0, 1}, {1.0, 1.0}) * X + x;
  P += KLOMatrix::sparse(2, 2, {1}, {0}, {0.5}) * X;
  const KLOPsdConstr c = model->addPsdConstr(P, '=', 1.0, "trace");
  EXPECT_EQ(model->get(KLO_IntAttr_NumPsdConstrs), 1);
  EXPECT_EQ(model->getPsdConstr(0).index(), c.index());
  model->setObjective(KLOMatrix::identity(2) * X + 2.0 * KLOMatrix::identity(2) * X, 1);
  const KLOMatrix objective = X.get(KLO_MatAttr_PsdObj);
  ASSERT_EQ(objective.nonzeros(), 2);
  EXPECT_EQ(objective.data()[0], 3.0);
  model->remove(X);
  EXPECT_EQ(model->get(KLO_IntAttr_NumPsdVars), 0);
}

// A knapsack whose callback counts its invocations and stops the search
// at the first new incumbent.
class StopAtFirstIncumbent : public KLOCallback {
 public:
  int calls = 0;
  int incumbents = 0;
  void callback() override {
    ++calls;
    if (where == 4) {
      ++incumbents;
      abort();
    }
  }
};

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

TEST_F(Knapsack, CallbackRunsInsideTheSearchAndCanStopIt) {
  StopAtFirstIncumbent cb;
  model->setCallback(&cb);
  solve();
  EXPECT_GT(cb.calls, 0);
  EXPECT_LE(cb.incumbents, 1);
}

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

TEST_F(Knapsack, ExceptionsFromTheCallbackReachTheCaller) {
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
  ThrowAtIncumbent<std::runtime_error> std(std::runtime_error("theirs"));
  model->setCallback(&std);
  EXPECT_THROW(model->optimize(), std::runtime_error);
  model->setCallback(nullptr);
  solve();  // the model is not left busy
  EXPECT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_OPTIMAL);
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
  EXPECT_EQ(model->get(KLO_IntAttr_Status), KLO_STATUS_OPTIMAL);
  ASSERT_FALSE(cb.cutCodes.empty());
  for (int code : cb.cutCodes) EXPECT_EQ(code, KLO_CB_IGNORED);
  ASSERT_FALSE(cb.lines.empty());
  EXPECT_NE(cb.lines.back(), "");
  EXPECT_THROW(cb.getStringInfo(KLO_CBINFO_NUMVARS), KLOException);
}

}  // namespace
