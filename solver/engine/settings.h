// The parameters an engine honours, as typed fields (the C layer maps the
// named parameters onto them), and the log sink engines write to.
// clang-format off
//  parameter               field                 Clp (LP, QP)      Cbc (MIP)            Ipopt
//  "Method"                method                yes               root LP: no          -
//  "Presolve"              presolve              ClpPresolve       0: presolve and      -
//                                                                  preprocessing off
//  "MaxTime"               maxTime               wall clock        wall clock           wall clock
//  "SPX/MaxIterations"     maxSimplexIterations  yes               no                   -
//  "SPX/PrimalTolerance"   primalTolerance       yes               yes (its LPs)        -
//  "SPX/DualTolerance"     dualTolerance         yes               yes (its LPs)        -
//  "IPM/MaxIterations"     maxBarrierIterations  LP barrier        no                   yes
//  "IPM/PrimalTolerance"   ipmPrimalTolerance    LP barrier        no                   yes
//  "IPM/DualTolerance"     ipmDualTolerance      LP barrier        no                   yes
//  "IPM/GapTolerance"      ipmGapTolerance       no (fixed rule)   no                   yes
//  "MIP/MaxNodes"          maxNodes              -                 yes                  -
//  "MIP/MaxSols"           maxSolutions          -                 yes                  -
//  "MIP/GapAbs"            gapAbs                -                 yes ("-allowableGap")
//  "MIP/GapRel"            gapRel                -                 yes ("-ratioGap", without the constant)
//  "MIP/Cutoff"            cutoff                -                 yes                  -
//  "MIP/IntegerTolerance"  integerTolerance      -                 yes                  -
//  "MIP/LevelCuts"         levelCuts             -                 0 off, 1 root, 2 and -1 default, 3 every node
//  "MIP/LevelHeurs"        levelHeurs            -                 0 off, 1 rounding and pump, 2 and -1 default,
//                                                                  3 adds RENS, RINS, DINS, proximity
//  "MIP/LevelProbing"      levelProbing          -                 0 off, 1 root, 2 and -1 default, 3 every node
//  "MIP/LevelStrong"       levelStrong           -                 0 pseudo-costs only, 1 5 candidates, 2 and -1
//                                                                  default, 3 50 candidates trusted after 20
//  "MIP/MaxStallingNodes"  maxStallingNodes      -                 yes (our event handler; node limit status)
//  "MIP/ObjectiveTolerance" objectiveTolerance   -                 the cutoff increment, when above Cbc's own
//  "MIP/SolutionPoolSize"  solutionPoolSize      -                 yes                  -
//  "MIP/EnableLazyConstr"  lazyConstraints       -                 yes (with a callback)
//  "NumThreads"            numThreads            no (serial)       > 1: Cbc's threads, unless a callback is set
//  "NonConvex"             nonconvexLocal        the chooser: engines declaring local answers only
//  "OutputFlag", "LogToConsole", "LogFile": the C layer's log; here logLevel and log.
// clang-format on
#pragma once

#include <algorithm>
#include <chrono>
#include <climits>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "klo_c.h"

namespace klo::engine {

// Receives one line of log text, without the trailing newline.
using LogSink = std::function<void(const std::string& line)>;

enum class LpMethod { Automatic = -1, Primal = 0, Dual = 1, Barrier = 2 };

struct Settings {
  // LP
  LpMethod method = LpMethod::Automatic;  // automatic is dual simplex
  int presolve = -1;                      // -1 automatic, 0 off, 1 on
  int maxSimplexIterations = INT_MAX;
  double primalTolerance = 1e-7;
  double dualTolerance = 1e-7;
  int maxBarrierIterations = 500;
  double ipmPrimalTolerance = 1e-8;
  double ipmDualTolerance = 1e-8;
  double ipmGapTolerance = 1e-8;  // accepted; Clp's barrier has a fixed gap rule

  // MIP
  int maxNodes = INT_MAX;
  int maxSolutions = INT_MAX;
  double gapAbs = 1e-6;
  double gapRel = 1e-4;
  double cutoff = KLO_INFINITY;  // in the model's sense; +-1e20: none
  double integerTolerance = 1e-6;
  int levelCuts = -1;                // -1 automatic, 0 off .. 3 aggressive
  int levelHeurs = -1;               // -1 automatic, 0 off .. 3 aggressive
  int levelProbing = -1;             // -1 automatic, 0 off .. 3 aggressive
  int levelStrong = -1;              // -1 automatic, 0 off .. 3 aggressive
  int maxStallingNodes = -1;         // nodes without a better incumbent; -1: no limit
  double objectiveTolerance = 1e-6;  // the least improvement of an incumbent
  int solutionPoolSize = 10;
  // Cuts given at KLO_CB_MIPSOL are lazy constraints: the candidate the
  // callback sees is rejected while it violates one.
  bool lazyConstraints = false;

  // A nonconvex model gets a locally optimal answer ("NonConvex" 1)
  // instead of a refusal.
  bool nonconvexLocal = false;

  // Both
  double maxTime = KLO_INFINITY;  // wall-clock seconds, counted from started
  // When the operation began (KLOoptimize, KLOcomputeIIS, ...): every
  // engine run of it shares one clock, so that loading an engine, building
  // its problem and running it again count against "MaxTime" too.
  std::chrono::steady_clock::time_point started = std::chrono::steady_clock::now();
  int numThreads = -1;  // -1 automatic

  // Log: level 0 silences the engine entirely; 1 gives the usual progress
  // and summary; higher levels pass more of the engine's own messages.
  int logLevel = 1;
  double progressInterval = 1.0;  // seconds between MIP progress lines
  LogSink log;

  // The engine parameters set away from their defaults, (name, value as
  // text): what the chosen engine does not honour is said in the log.
  std::vector<std::pair<std::string, std::string>> changedParameters;

  // Seconds left of "MaxTime" (KLO_INFINITY without a limit, 0 when spent).
  double timeLeft() const {
    if (maxTime >= KLO_INFINITY) return KLO_INFINITY;
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - started;
    return std::max(0.0, maxTime - spent.count());
  }
};

}  // namespace klo::engine
