#include "env/param_table.h"

#include <unordered_map>

#include "klo_c.h"

namespace klo {
namespace {

constexpr double kIntMax = 2147483647.0;

constexpr ParamType I = ParamType::Int;
constexpr ParamType D = ParamType::Double;

const ParamDef kParams[] = {
    {"Method", I, -1, 2, -1},
    {"PostScaling", I, -1, 1, -1},
    {"Presolve", I, -1, 1, -1},
    {"Dualization", I, -1, 1, -1},
    {"OutputFlag", I, 0, 1, 1},
    {"LogToConsole", I, 0, 1, 1},
    {"NumThreads", I, -1, 128, -1},
    {"EnableNetworkFlow", I, 0, 1, 0},
    {"EnableStochasticLP", I, 0, 1, 0},
    {"NumericFocus", I, 0, 3, 0},
    {"SPX/ColumnGeneration", I, 0, 1, 0},
    {"SPX/CrashStart", I, 0, 1, 0},
    {"SPX/MaxIterations", I, 0, kIntMax, kIntMax},
    {"SPX/PrimalPricing", I, -1, 3, -1},
    {"SPX/DualPricing", I, -1, 3, -1},
    {"IPM/MaxIterations", I, 0, kIntMax, 500},
    {"IPM/NumericFocus", I, 0, 1, 0},
    {"MIP/LevelCuts", I, -1, 3, -1},
    {"MIP/LevelHeurs", I, -1, 3, -1},
    {"MIP/LevelProbing", I, -1, 3, -1},
    {"MIP/LevelStrong", I, -1, 3, -1},
    {"MIP/LevelSubmip", I, -1, 3, -1},
    {"MIP/MaxNodes", I, 0, kIntMax, kIntMax},
    {"MIP/RootParallelism", I, -1, 64, -1},
    {"MIP/AutoConfiguration", I, -1, 1, -1},
    {"MIP/MaxSols", I, 1, kIntMax, kIntMax},
    {"MIP/AllowDualPresolve", I, -1, 1, -1},
    {"MIP/EnableLazyConstr", I, 0, 1, 0},
    {"MIP/Disconnected", I, -1, 1, -1},
    {"MIP/DetectDisconnectedComponents", I, -1, 1, -1},
    {"MIP/SolutionPoolSize", I, 1, 1000, 10},
    {"MIP/MaxStallingNodes", I, -1, kIntMax, -1},
    {"MIP/SolutionNumber", I, 0, kIntMax, 0},
    {"MIP/Static", I, 0, 1, 0},
    {"PDHG/ComputePreference", I, -1, 1, -1},
    {"PDHG/Device", I, -1, 1, -1},
    {"PDHG/MaxIterations", I, 0, kIntMax, kIntMax},
    {"SolutionTarget", I, -1, 1, -1},
    {"ObjNumber", I, 0, kIntMax, 0},
    {"NonConvex", I, 0, 1, 0},
    {"MaxTime", D, 0, KLO_INFINITY, KLO_INFINITY},
    {"PresolveTolerance", D, 0, 1, 1e-9},
    {"SPX/PrimalTolerance", D, 1e-10, 1e-2, 1e-7},
    {"SPX/DualTolerance", D, 1e-10, 1e-2, 1e-7},
    {"IPM/PrimalTolerance", D, 1e-12, 1, 1e-8},
    {"IPM/DualTolerance", D, 1e-12, 1, 1e-8},
    {"IPM/GapTolerance", D, 1e-12, 1, 1e-8},
    {"MIP/IntegerTolerance", D, 1e-9, 0.5, 1e-6},
    {"MIP/ObjectiveTolerance", D, 0, KLO_INFINITY, 1e-6},
    {"MIP/GapAbs", D, 0, KLO_INFINITY, 1e-6},
    {"MIP/GapRel", D, 0, KLO_INFINITY, 1e-4},
    {"MIP/LinearizationBigM", D, 0, KLO_INFINITY, 1e5},
    {"MIP/Cutoff", D, -KLO_INFINITY, KLO_INFINITY, KLO_INFINITY},
    {"MIP/Heuristics", D, 0, 1, 0.05},
    {"MIP/NoRelHeurWork", D, 0, KLO_INFINITY, 0},
    {"PDHG/DualTolerance", D, 0, 1, 1e-4},
    {"PDHG/GapTolerance", D, 0, 1, 1e-4},
    {"PDHG/PrimalTolerance", D, 0, 1, 1e-4},
    {"LogFile", ParamType::String, 0, 0, 0},
};

constexpr int kCount = static_cast<int>(sizeof(kParams) / sizeof(kParams[0]));

}  // namespace

int paramCount() { return kCount; }

const ParamDef& paramDef(int i) { return kParams[i]; }

int findParam(const std::string& name) {
  static const std::unordered_map<std::string, int> index = [] {
    std::unordered_map<std::string, int> m;
    for (int i = 0; i < kCount; ++i) m.emplace(kParams[i].name, i);
    return m;
  }();
  auto it = index.find(name);
  return it == index.end() ? -1 : it->second;
}

}  // namespace klo
