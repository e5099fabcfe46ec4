// The user's callback through the C interface: what it sees where, how it
// stops a solve, that the model cannot be changed or solved from inside it;
// and the MIP engine, loaded on the first MIP solve only.
#include <fstream>
#include <string>
#include <vector>

#include "fixtures.h"

namespace klotest {
namespace {

// What a callback saw, and what it is to do.
struct Seen {
  KLOmodel* model = nullptr;
  int numVars = 0;
  std::vector<double> incumbents;             // objectives at KLO_CB_MIPSOL
  std::vector<double> lastSolution;           // the last incumbent's values
  std::vector<std::pair<int, int>> presolve;  // columns, rows removed
  std::vector<double> pollTimes;
  std::vector<std::string> lines;  // at KLO_CB_MESSAGE
  int simplexCalls = 0;
  int badGets = 0;  // solution or message text refused at KLO_CB_SIMPLEX
  int optimizeInside = 0, changeInside = 0, freeInside = 0;  // codes from inside
  int stopAt = -1;     // the location where to stop (-1: nowhere)
  int stopAtPoll = 0;  // stop at this poll (0: never)
};

void atMipSol(Seen& s, void* cbdata, const void* model) {
  double obj = 0;
  EXPECT_EQ(KLOcbget(cbdata, KLO_CB_MIPSOL, KLO_CBINFO_OBJBEST, &obj), KLO_OK);
  const double* x = nullptr;
  EXPECT_EQ(KLOcbget(cbdata, KLO_CB_MIPSOL, KLO_CBINFO_SOLUTION_IDX, &x), KLO_OK);
  if (x) s.lastSolution.assign(x, x + s.numVars);
  s.incumbents.push_back(obj);
  KLOmodel* m = const_cast<KLOmodel*>(static_cast<const KLOmodel*>(model));
  s.optimizeInside = KLOoptimize(m);
  s.changeInside = KLOsetdblattrelement(m, "UB", 0, 0.0);
  s.freeInside = KLOfreemodel(m);
}

int recorder(const void* model, void* cbdata, int where, const void* usrdata) {
  Seen& s = *static_cast<Seen*>(const_cast<void*>(usrdata));
  EXPECT_EQ(model, s.model);
  int n = 0;
  EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_NUMVARS, &n), KLO_OK);
  EXPECT_EQ(n, s.numVars);
  const char* text = nullptr;
  const double* x = nullptr;
  double t = -1;
  switch (where) {
    case KLO_CB_SIMPLEX:
      ++s.simplexCalls;
      s.badGets += KLOcbget(cbdata, where, KLO_CBINFO_SOLUTION_IDX, &x) != KLO_OK;
      s.badGets +=
          KLOcbget(cbdata, where, KLO_CBINFO_MSG_STRING, &text) == KLO_ERROR_CALLBACK_WHERE;
      break;
    case KLO_CB_MIPSOL: atMipSol(s, cbdata, model); break;
    case KLO_CB_PRESOLVE: {
      int cols = -1, rows = -1;
      EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_PRE_COLDEL, &cols), KLO_OK);
      EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_PRE_ROWDEL, &rows), KLO_OK);
      s.presolve.emplace_back(cols, rows);
      break;
    }
    case KLO_CB_POLLING:
      EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_RUNTIME, &t), KLO_OK);
      EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_OBJBEST, &t), KLO_ERROR_CALLBACK_WHERE);
      s.pollTimes.push_back(t);
      if (static_cast<int>(s.pollTimes.size()) == s.stopAtPoll) return KLO_CB_STOP;
      break;
    case KLO_CB_MESSAGE:
      EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_MSG_STRING, &text), KLO_OK);
      if (text) s.lines.emplace_back(text);
      break;
  }
  return where == s.stopAt ? KLO_CB_STOP : 0;
}

class SolveCallback : public ModelTest {
 protected:
  // Reads the instance and solves it with the recorder and parameters.
  void solve(const char* instance, int presolve = 0, int outputFlag = 1) {
    readInstance(instance);
    setInt("Presolve", presolve);
    setInt("OutputFlag", outputFlag);
    seen.model = model;
    seen.numVars = intAttr("NumVars");
    ASSERT_EQ(KLOsetcallbackfunc(model, recorder, &seen), KLO_OK);
    optimize();
  }
  Seen seen;
};

TEST_F(SolveCallback, IncumbentsAreSeenAndTheModelStaysLocked) {
  solve("p0033.mps.gz", -1);  // a MIP with a callback runs without presolve
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  ASSERT_FALSE(seen.incumbents.empty());
  for (size_t k = 1; k < seen.incumbents.size(); ++k)
    EXPECT_LE(seen.incumbents[k], seen.incumbents[k - 1] + 1e-9) << "improving (minimising)";
  EXPECT_NEAR(seen.incumbents.back(), dbl("ObjVal"), 1e-6);
  expectNear(seen.lastSolution, dblArray("X", seen.numVars), 1e-6);
  EXPECT_EQ(seen.optimizeInside, KLO_ERROR_BUSY);
  EXPECT_EQ(seen.changeInside, KLO_ERROR_BUSY);
  EXPECT_EQ(seen.freeInside, KLO_ERROR_BUSY);
  EXPECT_EQ(dblAt("UB", 0), 1.0) << "the change from inside was refused";
  EXPECT_EQ(seen.presolve, (std::vector<std::pair<int, int>>{{0, 0}})) << "once, nothing removed";
}

TEST_F(SolveCallback, ReturningStopInterruptsWithTheIncumbentKept) {
  seen.stopAt = KLO_CB_MIPSOL;
  solve("stein27.mps.gz");
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED);
  ASSERT_EQ(seen.incumbents.size(), 1u);
  ASSERT_EQ(intAttr("HasSolution"), 1);
  EXPECT_NEAR(dbl("ObjVal"), seen.incumbents[0], 1e-6);
}

// Log lines reach the callback with the console off, without their line
// ends; the simplex method's calls neither have an incumbent nor a text.
TEST_F(SolveCallback, SimplexIterationsMessagesAndPresolveReachTheCallback) {
  solve("afiro.mps.gz", -1);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_GT(seen.simplexCalls, 0);
  EXPECT_EQ(seen.badGets, 2 * seen.simplexCalls);
  ASSERT_FALSE(seen.lines.empty());
  for (const std::string& line : seen.lines) EXPECT_EQ(line.find('\n'), std::string::npos);
  ASSERT_EQ(seen.presolve.size(), 1u);
  EXPECT_GT(seen.presolve[0].first + seen.presolve[0].second, 0) << "presolve removed some";
  seen = Seen();
  solve("afiro.mps.gz", 0);
  EXPECT_EQ(seen.presolve, (std::vector<std::pair<int, int>>{{0, 0}}));
  seen = Seen();
  solve("afiro.mps.gz", 0, 0);
  EXPECT_TRUE(seen.lines.empty()) << "no messages with OutputFlag 0";
  EXPECT_GT(seen.simplexCalls, 0) << "the other locations still are";
}

// A stop asked during the simplex method, at a message, or at a poll from
// the library's own thread ends the solve there.
TEST_F(SolveCallback, StopAskedAnywhereInterruptsTheSolve) {
  seen.stopAt = KLO_CB_SIMPLEX;
  solve("25fv47.mps.gz");
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED);
  EXPECT_LE(intAttr("SPX/NumIters"), 5);
  for (const char* instance : {"25fv47.mps.gz", "stein27.mps.gz"}) {
    seen = Seen();
    seen.stopAt = KLO_CB_MESSAGE;
    solve(instance);
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED) << instance;
    EXPECT_EQ(seen.lines.size(), 1u) << "no message after the stop: " << instance;
  }
  seen = Seen();
  seen.stopAtPoll = 3;
  solve("stein27.mps.gz", -1);
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED);
  ASSERT_GE(seen.pollTimes.size(), 3u);
  for (size_t k = 1; k < seen.pollTimes.size(); ++k)
    EXPECT_GT(seen.pollTimes[k], seen.pollTimes[k - 1]);
}

// Kept past its callback, cbdata is refused rather than followed.
void* kept = nullptr;
int keeper(const void*, void* cbdata, int, const void*) {
  kept = cbdata;
  return 0;
}

TEST_F(SolveCallback, CallbackFunctionsOutsideACallbackAreRefused) {
  int n = 0;
  const double x[] = {0};
  const int ind[] = {0};
  EXPECT_EQ(KLOcbget(nullptr, KLO_CB_MIP, KLO_CBINFO_NUMVARS, &n), KLO_ERROR_NULL_ARGUMENT);
  readInstance("afiro.mps.gz");
  ASSERT_EQ(KLOsetcallbackfunc(model, keeper, nullptr), KLO_OK);
  optimize();
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(KLOcbget(kept, KLO_CB_SIMPLEX, KLO_CBINFO_NUMVARS, &n), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbsolution(kept, x, nullptr), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbsolutionp(kept, x, nullptr), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbcut(kept, 1, ind, x, '<', 1), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbcutp(kept, 1, ind, x, '<', 1), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbbranch(kept, 0, 0.5, 0), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbbranchp(kept, 0, 0.5, 0), KLO_ERROR_NOT_IN_CALLBACK);
}

bool mipEngineLoaded() {
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);)
    if (line.find("libklo_cbc.so") != std::string::npos) return true;
  return false;
}

// The MIP engine is a library of its own: an LP-only process never maps it.
// Each case runs in a fresh process (a death test re-executing the binary),
// since other tests of this binary load the engine; it exits with 0 when
// max x + y, x + y <= 3 is solved and the engine mapped as expected.
TEST_F(SolveCallback, AnLpLeavesTheMipEngineUnloadedAndAMipLoadsIt) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto solveAndCheck = [this](char type, bool expectLoaded) {
    sense(KLO_MAXIMIZE);
    row({{var(1, 0, 2, type), 1}, {var(1, 0, 2, type), 1}}, '<', 3);
    optimize();
    std::exit(dbl("ObjVal") == 3 && mipEngineLoaded() == expectLoaded ? 0 : 1);
  };
  EXPECT_EXIT(solveAndCheck('C', false), ::testing::ExitedWithCode(0), "");
  EXPECT_EXIT(solveAndCheck('I', true), ::testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace klotest
