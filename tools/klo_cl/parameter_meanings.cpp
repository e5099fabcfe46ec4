#include "parameter_meanings.h"

#include <cstring>

namespace klo_cl {
namespace {

struct Meaning {
  const char* name;
  const char* text;
};

const Meaning kMeanings[] = {
    {"Method",
     "LP algorithm: -1 automatic (dual simplex), 0 primal simplex, 1 dual simplex, 2 barrier"},
    {"PostScaling", "scaling of the problem: -1 automatic, 0 off, 1 on (accepted, not used)"},
    {"Presolve", "presolve: -1 automatic, 0 off, 1 on"},
    {"Dualization", "solve the dual problem: -1 automatic, 0 no, 1 yes (accepted, not used)"},
    {"OutputFlag", "0 silences the log entirely"},
    {"LogToConsole", "0 keeps the log off the console"},
    {"NumThreads", "threads of the MIP search: -1 automatic"},
    {"EnableNetworkFlow", "network simplex for network LPs (accepted, not used)"},
    {"EnableStochasticLP", "detect stochastic LP structure (accepted, not used)"},
    {"NumericFocus", "care taken with numerics, 3 most (accepted, not used)"},
    {"SPX/ColumnGeneration", "simplex column generation (accepted, not used)"},
    {"SPX/CrashStart", "crash starting basis (accepted, not used)"},
    {"SPX/MaxIterations", "simplex iteration limit"},
    {"SPX/PrimalPricing",
     "-1 automatic, 0 Dantzig, 1 partial, 2 steepest edge, 3 devex (accepted, not used)"},
    {"SPX/DualPricing",
     "-1 automatic, 0 Dantzig, 1 partial, 2 steepest edge, 3 devex (accepted, not used)"},
    {"IPM/MaxIterations", "interior-point iteration limit"},
    {"IPM/NumericFocus",
     "care taken with numerics in the interior-point method (accepted, not used)"},
    {"MIP/LevelCuts", "cut generation: -1 automatic, 0 off, 1 root only, 2 default, 3 every node"},
    {"MIP/LevelHeurs",
     "primal heuristics: -1 automatic, 0 off, 1 rounding and pump, 2 default, 3 adds neighbourhood "
     "searches"},
    {"MIP/LevelProbing", "probing: -1 automatic, 0 off, 1 root only, 2 default, 3 every node"},
    {"MIP/LevelStrong",
     "strong branching: -1 automatic, 0 pseudo-costs only .. 3 fifty candidates"},
    {"MIP/LevelSubmip", "sub-MIP heuristics (accepted, not used: see MIP/LevelHeurs 3)"},
    {"MIP/MaxNodes", "node limit of the MIP search"},
    {"MIP/RootParallelism", "parallel root processing (accepted, not used)"},
    {"MIP/AutoConfiguration", "automatic tuning of the search (accepted, not used)"},
    {"MIP/MaxSols", "stop after this many solutions"},
    {"MIP/AllowDualPresolve", "dual reductions in presolve (accepted, not used)"},
    {"MIP/EnableLazyConstr", "lazy constraints from callbacks"},
    {"MIP/Disconnected", "solve disconnected components apart (accepted, not used)"},
    {"MIP/DetectDisconnectedComponents", "detect disconnected components (accepted, not used)"},
    {"MIP/SolutionPoolSize", "solutions kept in the pool"},
    {"MIP/MaxStallingNodes",
     "stop after this many nodes without a better incumbent (-1: no limit)"},
    {"MIP/SolutionNumber", "pool solution that ResultFile=.sol and the pool attributes read"},
    {"MIP/Static", "static search, no dynamic changes (accepted, not used)"},
    {"PDHG/ComputePreference", "first-order method preference (accepted, not used)"},
    {"PDHG/Device", "device of the first-order method (accepted, not used)"},
    {"PDHG/MaxIterations", "first-order iteration limit (accepted, not used)"},
    {"SolutionTarget",
     "-1 automatic, 0 basic solution, 1 any optimal solution (LP solutions are basic)"},
    {"ObjNumber", "objective addressed by the per-objective attributes"},
    {"MaxTime", "wall-clock limit of the solve, in seconds"},
    {"PresolveTolerance", "tolerance of presolve reductions (accepted, not used)"},
    {"SPX/PrimalTolerance", "simplex primal feasibility tolerance"},
    {"SPX/DualTolerance", "simplex dual feasibility tolerance"},
    {"IPM/PrimalTolerance", "interior-point primal tolerance"},
    {"IPM/DualTolerance", "interior-point dual tolerance"},
    {"IPM/GapTolerance",
     "interior-point relative gap tolerance (quadratic and semidefinite models)"},
    {"MIP/IntegerTolerance", "integrality tolerance"},
    {"MIP/ObjectiveTolerance", "smallest improvement of the incumbent that counts"},
    {"MIP/GapAbs", "stop when bound and incumbent differ by no more than this"},
    {"MIP/GapRel", "stop when the relative gap between bound and incumbent is no larger"},
    {"MIP/LinearizationBigM",
     "largest big-M of an indicator constraint, and the switch of a semi-continuous variable with "
     "an infinite bound"},
    {"MIP/Cutoff", "ignore solutions not better than this, in the model's sense (+-1e20: none)"},
    {"MIP/Heuristics", "share of effort spent in heuristics (accepted, not used)"},
    {"MIP/NoRelHeurWork", "effort of heuristics before the root relaxation (accepted, not used)"},
    {"PDHG/DualTolerance", "first-order dual tolerance (accepted, not used)"},
    {"PDHG/GapTolerance", "first-order gap tolerance (accepted, not used)"},
    {"PDHG/PrimalTolerance", "first-order primal tolerance (accepted, not used)"},
    {"LogFile", "file the log is appended to (empty for none)"},
};

}  // namespace

const char* parameterMeaning(const char* name) {
  for (const Meaning& m : kMeanings)
    if (std::strcmp(m.name, name) == 0) return m.text;
  return nullptr;
}

}  // namespace klo_cl
