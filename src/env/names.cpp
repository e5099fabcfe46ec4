#include <iterator>

#include "klo_cpp.h"

// The comments give the rows (enumerator values).
// clang-format off
const char* const INT_ATTRNAMES[33] = {
    "MinSense", "ModelSense", "HasSolution", "HasPrimalRay", "HasDualRay",  // 0-4
    "NumVars", "NumConss", "NumConstrs", "NumQConstrs", "NumSOS",  // 5-9
    "NumGenConstrs", "NumEnts", "NumNZs", "SPX/NumIters", "IPM/NumIters",  // 10-14
    "IsInteger", "IISVar", "IISConstr", "IISCol", "IISRow",  // 15-19
    "ColBasis", "RowBasis", "GenConstrType", "Status", "Dim",  // 20-24
    "NumPsdVars", "NumPsdConstrs", "SolCount", "NumObj", "ObjNPriority",  // 25-29
    "NumContVars", "NumIntVars", "NumBinVars"  // 30-32
};

const char* const DBL_ATTRNAMES[35] = {
    "ObjConst", "ObjCon", "PrimalObjVal", "ObjVal", "PoolNObjVal",  // 0-4
    "DualObjVal", "PresolverTime", "SolverTime", "SolutionTime", "MIP/GapAbs",  // 5-9
    "MIP/GapRel", "LB", "UB", "Obj", "LHS",  // 10-14
    "RHS", "QCLHS", "QCRHS", "PrimalSoln", "X",  // 15-19
    "PoolNX", "Xn", "Start", "DualSoln", "Activity",  // 20-24
    "ReducedCost", "RC", "PsdCLHS", "PsdCRHS", "ObjN",  // 25-29
    "ObjNCon", "ObjNVal", "ObjNWeight", "ObjNRelTol", "ObjNAbsTol"  // 30-34
};

const char* const STR_ATTRNAMES[10] = {
    "ProbName", "ModelName", "RowName", "ConstrName", "QCName",  // 0-4
    "ColName", "VarName", "PsdVarName", "PsdCName", "GenConstrName"  // 5-9
};

const char* const MAT_ATTRNAMES[2] = {
    "PsdX", "PsdObj"  // 0-1
};

const char* const INT_PARNAMES[39] = {
    "Method",  // 0
    "PostScaling",  // 1
    "Presolve",  // 2
    "Dualization",  // 3
    "OutputFlag",  // 4
    "LogToConsole",  // 5
    "NumThreads",  // 6
    "EnableNetworkFlow",  // 7
    "EnableStochasticLP",  // 8
    "NumericFocus",  // 9
    "SPX/ColumnGeneration",  // 10
    "SPX/CrashStart",  // 11
    "SPX/MaxIterations",  // 12
    "SPX/PrimalPricing",  // 13
    "SPX/DualPricing",  // 14
    "IPM/MaxIterations",  // 15
    "IPM/NumericFocus",  // 16
    "MIP/LevelCuts",  // 17
    "MIP/LevelHeurs",  // 18
    "MIP/LevelProbing",  // 19
    "MIP/LevelStrong",  // 20
    "MIP/LevelSubmip",  // 21
    "MIP/MaxNodes",  // 22
    "MIP/RootParallelism",  // 23
    "MIP/AutoConfiguration",  // 24
    "MIP/MaxSols",  // 25
    "MIP/AllowDualPresolve",  // 26
    "MIP/EnableLazyConstr",  // 27
    "MIP/Disconnected",  // 28
    "MIP/DetectDisconnectedComponents",  // 29
    "MIP/SolutionPoolSize",  // 30
    "MIP/MaxStallingNodes",  // 31
    "MIP/SolutionNumber",  // 32
    "MIP/Static",  // 33
    "PDHG/ComputePreference",  // 34
    "PDHG/Device",  // 35
    "PDHG/MaxIterations",  // 36
    "SolutionTarget",  // 37
    "ObjNumber"  // 38
};

const char* const DBL_PARNAMES[18] = {
    "MaxTime",  // 0
    "PresolveTolerance",  // 1
    "SPX/PrimalTolerance",  // 2
    "SPX/DualTolerance",  // 3
    "IPM/PrimalTolerance",  // 4
    "IPM/DualTolerance",  // 5
    "IPM/GapTolerance",  // 6
    "MIP/IntegerTolerance",  // 7
    "MIP/ObjectiveTolerance",  // 8
    "MIP/GapAbs",  // 9
    "MIP/GapRel",  // 10
    "MIP/LinearizationBigM",  // 11
    "MIP/Cutoff",  // 12
    "MIP/Heuristics",  // 13
    "MIP/NoRelHeurWork",  // 14
    "PDHG/DualTolerance",  // 15
    "PDHG/GapTolerance",  // 16
    "PDHG/PrimalTolerance"  // 17
};

// clang-format on

// Every enumerator indexes its table: the last one must be the last row.
static_assert(std::size(INT_ATTRNAMES) == KLO_IntAttr_NumBinVars + 1);
static_assert(std::size(DBL_ATTRNAMES) == KLO_DoubleAttr_ObjNAbsTol + 1);
static_assert(std::size(STR_ATTRNAMES) == KLO_StringAttr_GenConstrName + 1);
static_assert(std::size(MAT_ATTRNAMES) == KLO_MatAttr_PsdObj + 1);
static_assert(std::size(INT_PARNAMES) == KLO_IntParam_ObjNumber + 1);
static_assert(std::size(DBL_PARNAMES) == KLO_DoubleParam_PDHG_PrimalTolerance + 1);
