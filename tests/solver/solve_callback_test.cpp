// The user's callback through the C interface: what it sees, how it stops
// a solve, and that the model cannot be changed or solved from inside it.
#include <cmath>
#include <string>
#include <vector>

#include "solve_fixture.h"

namespace klotest {
namespace {

struct Seen {
  KLOmodel* model = nullptr;
  int numVars = 0;
  std::vector<double> incumbents;    // objectives at KLO_CB_MIPSOL
  std::vector<double> lastSolution;  // the last incumbent's values
  int simplexCalls = 0;
  int nodeCalls = 0;
  int optimizeInside = 0;  // KLOoptimize from inside
  int changeInside = 0;    // a change from inside
  int freeInside = 0;      // KLOfreemodel from inside
  bool stopAtFirstIncumbent = false;
  int badGets = 0;  // information refused at the wrong location
};

int recorder(const void* model, void* cbdata, int where, const void* usrdata) {
  Seen& s = *static_cast<Seen*>(const_cast<void*>(usrdata));
  EXPECT_EQ(model, s.model);
  int n = 0;
  EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_NUMVARS, &n), KLO_OK);
  EXPECT_EQ(n, s.numVars);
  if (where == KLO_CB_SIMPLEX) {
    ++s.simplexCalls;
    const double* x = nullptr;
    if (KLOcbget(cbdata, where, KLO_CBINFO_SOLUTION_IDX, &x) != KLO_OK) ++s.badGets;
  }
  if (where == KLO_CB_MIPNODE) ++s.nodeCalls;
  if (where != KLO_CB_MIPSOL) return 0;
  double obj = 0;
  EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_OBJBEST, &obj), KLO_OK);
  const double* x = nullptr;
  EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_SOLUTION_IDX, &x), KLO_OK);
  if (x) s.lastSolution.assign(x, x + n);
  s.incumbents.push_back(obj);
  KLOmodel* m = const_cast<KLOmodel*>(static_cast<const KLOmodel*>(model));
  s.optimizeInside = KLOoptimize(m);
  s.changeInside = KLOsetdblattrelement(m, "UB", 0, 0.0);
  s.freeInside = KLOfreemodel(m);
  return s.stopAtFirstIncumbent ? KLO_CB_STOP : 0;
}

class SolveCallback : public SolveTest {
 protected:
  void registerRecorder() {
    seen.model = model;
    seen.numVars = intAttr("NumVars");
    ASSERT_EQ(KLOsetcallbackfunc(model, recorder, &seen), KLO_OK);
  }
  Seen seen;
};

TEST_F(SolveCallback, IncumbentsAreSeenAndTheModelStaysLocked) {
  readInstance("p0033.mps.gz");
  setInt("Presolve", 0);
  registerRecorder();
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  ASSERT_FALSE(seen.incumbents.empty());
  for (size_t k = 1; k < seen.incumbents.size(); ++k)
    EXPECT_LE(seen.incumbents[k], seen.incumbents[k - 1] + 1e-9) << "improving (minimising)";
  EXPECT_NEAR(seen.incumbents.back(), dbl("ObjVal"), 1e-6);
  std::vector<double> x = dblArray("X", seen.numVars);
  ASSERT_EQ(seen.lastSolution.size(), x.size());
  for (size_t j = 0; j < x.size(); ++j) EXPECT_NEAR(seen.lastSolution[j], x[j], 1e-6);
  EXPECT_EQ(seen.optimizeInside, KLO_ERROR_BUSY);
  EXPECT_EQ(seen.changeInside, KLO_ERROR_BUSY);
  EXPECT_EQ(seen.freeInside, KLO_ERROR_BUSY);
  EXPECT_NEAR(dblAt("UB", 0), 1.0, 0) << "the change from inside was refused";
}

TEST_F(SolveCallback, ReturningStopInterruptsWithTheIncumbentKept) {
  readInstance("stein27.mps.gz");
  setInt("Presolve", 0);
  seen.stopAtFirstIncumbent = true;
  registerRecorder();
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED);
  ASSERT_EQ(seen.incumbents.size(), 1u);
  ASSERT_EQ(intAttr("HasSolution"), 1);
  EXPECT_NEAR(dbl("ObjVal"), seen.incumbents[0], 1e-6);
}

TEST_F(SolveCallback, SimplexIterationsReachTheCallback) {
  readInstance("afiro.mps.gz");
  setInt("Presolve", 0);
  registerRecorder();
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  EXPECT_GT(seen.simplexCalls, 0);
  EXPECT_EQ(seen.badGets, seen.simplexCalls) << "no incumbent during the simplex method";
}

int stopper(const void*, void*, int where, const void*) {
  return where == KLO_CB_SIMPLEX ? KLO_CB_STOP : 0;
}

TEST_F(SolveCallback, StopDuringTheSimplexMethod) {
  readInstance("25fv47.mps.gz");
  setInt("Presolve", 0);
  ASSERT_EQ(KLOsetcallbackfunc(model, stopper, nullptr), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED);
  EXPECT_LE(intAttr("SPX/NumIters"), 5);
}

// KLO_CB_PRESOLVE once per engine run, with what presolve removed (some of
// afiro; nothing for a MIP with a callback, which runs without it), and
// KLO_CB_POLLING from the library's own thread, where a stop ends the solve.
struct Raised {
  std::vector<std::pair<int, int>> presolve;  // columns, rows removed
  std::vector<double> pollTimes;
  int stopAtPoll = 0;  // stop at this poll (0: never)
};

int raisedRecorder(const void*, void* cbdata, int where, const void* usrdata) {
  Raised& r = *static_cast<Raised*>(const_cast<void*>(usrdata));
  if (where == KLO_CB_PRESOLVE) {
    int cols = -1, rows = -1;
    EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_PRE_COLDEL, &cols), KLO_OK);
    EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_PRE_ROWDEL, &rows), KLO_OK);
    r.presolve.emplace_back(cols, rows);
  }
  if (where != KLO_CB_POLLING) return 0;
  double t = -1;
  EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_RUNTIME, &t), KLO_OK);
  EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_OBJBEST, &t), KLO_ERROR_CALLBACK_WHERE);
  r.pollTimes.push_back(t);
  return static_cast<int>(r.pollTimes.size()) == r.stopAtPoll ? KLO_CB_STOP : 0;
}

TEST_F(SolveCallback, PresolveIsReportedOnce) {
  struct Case {
    const char* file;
    int presolve;
    bool removes;
  };
  for (const Case& c : {Case{"afiro.mps.gz", -1, true}, Case{"afiro.mps.gz", 0, false},
                        Case{"p0033.mps.gz", -1, false}}) {
    readInstance(c.file);
    setInt("Presolve", c.presolve);
    Raised r;
    ASSERT_EQ(KLOsetcallbackfunc(model, raisedRecorder, &r), KLO_OK);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
    ASSERT_EQ(r.presolve.size(), 1u) << c.file;
    EXPECT_EQ(r.presolve[0].first + r.presolve[0].second > 0, c.removes) << c.file;
  }
}

TEST_F(SolveCallback, PollingRunsAndCanStopTheSolve) {
  readInstance("stein27.mps.gz");
  Raised r;
  r.stopAtPoll = 3;
  ASSERT_EQ(KLOsetcallbackfunc(model, raisedRecorder, &r), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED);
  ASSERT_GE(r.pollTimes.size(), 3u);
  for (size_t k = 1; k < r.pollTimes.size(); ++k) EXPECT_GT(r.pollTimes[k], r.pollTimes[k - 1]);
}

// The log's lines at KLO_CB_MESSAGE: their text, and a stop asked there.
struct Messages {
  std::vector<std::string> lines;
  int simplexCalls = 0;
  int textAtSimplex = KLO_OK;  // KLOcbget of the text away from KLO_CB_MESSAGE
  bool stop = false;
};

int messageRecorder(const void*, void* cbdata, int where, const void* usrdata) {
  Messages& m = *static_cast<Messages*>(const_cast<void*>(usrdata));
  const char* text = nullptr;
  if (where == KLO_CB_SIMPLEX) {
    ++m.simplexCalls;
    m.textAtSimplex = KLOcbget(cbdata, where, KLO_CBINFO_MSG_STRING, &text);
  }
  if (where != KLO_CB_MESSAGE) return 0;
  EXPECT_EQ(KLOcbget(cbdata, where, KLO_CBINFO_MSG_STRING, &text), KLO_OK);
  if (text) m.lines.emplace_back(text);
  return m.stop ? KLO_CB_STOP : 0;
}

TEST_F(SolveCallback, LogLinesReachTheCallbackWithTheConsoleOff) {
  readInstance("afiro.mps.gz");  // the fixture's environment prints nowhere
  Messages m;
  ASSERT_EQ(KLOsetcallbackfunc(model, messageRecorder, &m), KLO_OK);
  optimize();
  EXPECT_EQ(intAttr("Status"), KLO_STATUS_OPTIMAL);
  ASSERT_FALSE(m.lines.empty());
  for (const std::string& line : m.lines) EXPECT_EQ(line.find('\n'), std::string::npos) << line;
  EXPECT_GT(m.simplexCalls, 0);
  EXPECT_EQ(m.textAtSimplex, KLO_ERROR_CALLBACK_WHERE);
}

TEST_F(SolveCallback, OutputFlagZeroRaisesNoMessages) {
  readInstance("afiro.mps.gz");
  setInt("OutputFlag", 0);
  setInt("Presolve", 0);
  Messages m;
  ASSERT_EQ(KLOsetcallbackfunc(model, messageRecorder, &m), KLO_OK);
  optimize();
  EXPECT_TRUE(m.lines.empty());
  EXPECT_GT(m.simplexCalls, 0) << "the other locations still are";
}

TEST_F(SolveCallback, StopAskedAtAMessageInterruptsTheSolve) {
  for (const char* instance : {"25fv47.mps.gz", "stein27.mps.gz"}) {
    readInstance(instance);
    setInt("Presolve", 0);
    Messages m;
    m.stop = true;
    ASSERT_EQ(KLOsetcallbackfunc(model, messageRecorder, &m), KLO_OK);
    optimize();
    EXPECT_EQ(intAttr("Status"), KLO_STATUS_INTERRUPTED) << instance;
    EXPECT_EQ(m.lines.size(), 1u) << "no message after the stop: " << instance;
  }
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
  EXPECT_EQ(KLOcbget(nullptr, KLO_CB_MIP, KLO_CBINFO_NUMVARS, &n), KLO_ERROR_NULL_ARGUMENT);
  readInstance("afiro.mps.gz");
  ASSERT_EQ(KLOsetcallbackfunc(model, keeper, nullptr), KLO_OK);
  optimize();
  ASSERT_NE(kept, nullptr);
  EXPECT_EQ(KLOcbget(kept, KLO_CB_SIMPLEX, KLO_CBINFO_NUMVARS, &n), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbsolution(kept, x, nullptr), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbsolutionp(kept, x, nullptr), KLO_ERROR_NOT_IN_CALLBACK);
  const int ind[] = {0};
  EXPECT_EQ(KLOcbcut(kept, 1, ind, x, '<', 1), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbcutp(kept, 1, ind, x, '<', 1), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbbranch(kept, 0, 0.5, 0), KLO_ERROR_NOT_IN_CALLBACK);
  EXPECT_EQ(KLOcbbranchp(kept, 0, 0.5, 0), KLO_ERROR_NOT_IN_CALLBACK);
}

}  // namespace
}  // namespace klotest
