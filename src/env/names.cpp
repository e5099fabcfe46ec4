#include "klo_cpp.h"

#include <iterator>

const char* const INT_ATTRNAMES[33] = {
    "MinSense",     "ModelSense",    "HasSolution", "HasPrimalRay",  "HasDualRay",
    "NumVars",      "NumConss",      "NumConstrs",  "NumQConstrs",   "NumSOS",
    "NumGenConstrs", "NumEnts",      "NumNZs",      "SPX/NumIters",  "IPM/NumIters",
    "IsInteger",    "IISVar",        "IISConstr",   "IISCol",        "IISRow",
    "ColBasis",     "RowBasis",      "GenConstrType", "Status",      "Dim",
    "NumPsdVars",   "NumPsdConstrs", "SolCount",    "NumObj",        "ObjNPriority",
    "NumContVars",  "NumIntVars",    "NumBinVars"};

const char* const DBL_ATTRNAMES[35] = {
    "ObjConst",    "ObjCon",      "PrimalObjVal", "ObjVal",      "PoolNObjVal",
    "DualObjVal",  "PresolverTime", "SolverTime", "SolutionTime", "MIP/GapAbs",
    "MIP/GapRel",  "LB",          "UB",           "Obj",         "LHS",
    "RHS",         "QCLHS",       "QCRHS",        "PrimalSoln",  "X",
    "PoolNX",      "Xn",          "Start",        "DualSoln",    "Activity",
    "ReducedCost", "RC",          "PsdCLHS",      "PsdCRHS",     "ObjN",
    "ObjNCon",     "ObjNVal",     "ObjNWeight",   "ObjNRelTol",  "ObjNAbsTol"};

const char* const STR_ATTRNAMES[10] = {"ProbName", "ModelName", "RowName",    "ConstrName",
                                       "QCName",   "ColName",   "VarName",    "PsdVarName",
                                       "PsdCName", "GenConstrName"};

const char* const MAT_ATTRNAMES[2] = {"PsdX", "PsdObj"};

const char* const INT_PARNAMES[39] = {
    "Method",
    "PostScaling",
    "Presolve",
    "Dualization",
    "OutputFlag",
    "LogToConsole",
    "NumThreads",
    "EnableNetworkFlow",
    "EnableStochasticLP",
    "NumericFocus",
    "SPX/ColumnGeneration",
    "SPX/CrashStart",
    "SPX/MaxIterations",
    "SPX/PrimalPricing",
    "SPX/DualPricing",
    "IPM/MaxIterations",
    "IPM/NumericFocus",
    "MIP/LevelCuts",
    "MIP/LevelHeurs",
    "MIP/LevelProbing",
    "MIP/LevelStrong",
    "MIP/LevelSubmip",
    "MIP/MaxNodes",
    "MIP/RootParallelism",
    "MIP/AutoConfiguration",
    "MIP/MaxSols",
    "MIP/AllowDualPresolve",
    "MIP/EnableLazyConstr",
    "MIP/Disconnected",
    "MIP/DetectDisconnectedComponents",
    "MIP/SolutionPoolSize",
    "MIP/MaxStallingNodes",
    "MIP/SolutionNumber",
    "MIP/Static",
    "PDHG/ComputePreference",
    "PDHG/Device",
    "PDHG/MaxIterations",
    "SolutionTarget",
    "ObjNumber"};

const char* const DBL_PARNAMES[18] = {
    "MaxTime",           "PresolveTolerance",    "SPX/PrimalTolerance",
    "SPX/DualTolerance", "IPM/PrimalTolerance",  "IPM/DualTolerance",
    "IPM/GapTolerance",  "MIP/IntegerTolerance", "MIP/ObjectiveTolerance",
    "MIP/GapAbs",        "MIP/GapRel",           "MIP/LinearizationBigM",
    "MIP/Cutoff",        "MIP/Heuristics",       "MIP/NoRelHeurWork",
    "PDHG/DualTolerance", "PDHG/GapTolerance",   "PDHG/PrimalTolerance"};

// Every enumerator indexes its table: the last one must be the last row.
static_assert(std::size(INT_ATTRNAMES) == KLO_IntAttr_NumBinVars + 1);
static_assert(std::size(DBL_ATTRNAMES) == KLO_DoubleAttr_ObjNAbsTol + 1);
static_assert(std::size(STR_ATTRNAMES) == KLO_StringAttr_GenConstrName + 1);
static_assert(std::size(MAT_ATTRNAMES) == KLO_MatAttr_PsdObj + 1);
static_assert(std::size(INT_PARNAMES) == KLO_IntParam_ObjNumber + 1);
static_assert(std::size(DBL_PARNAMES) == KLO_DoubleParam_PDHG_PrimalTolerance + 1);
