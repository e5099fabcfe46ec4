/**
 * @file klo_c.h
 * The flat C interface of the klo solver library.
 *
 * Every function returns an int status: 0 (KLO_OK) on success, a negative
 * error code on failure.  Positive codes are non-fatal refusals and are
 * returned only by the callback submission functions (KLOcbsolution,
 * KLOcbcut, KLOcbbranch and their index variants).  The exceptions are the
 * functions that return pointers: KLOexplainerror, KLOexplainstatus,
 * KLOgeterrormsg, KLOcopymodel, KLOgetenv and KLOgetmultiobjenv.
 *
 * A failed call changes nothing: adding 100 rows of which one names a bad
 * variable adds none.  KLOgeterrormsg(env) gives the last error of an
 * environment with its detail (which name, which index, which file line);
 * errors of a model are recorded in the model's own environment
 * (KLOgetenv(model)).
 *
 * Conventions
 *  - The model (or environment) comes first, then names as C strings, then
 *    counts with their arrays.  Bulk forms take begin-offset arrays: element
 *    k of a bulk argument owns the entries beg[k] .. beg[k+1]-1 (the last one
 *    up to the total count) of the index and value arrays.
 *  - A null array means "defaults" where the documentation says so (for
 *    example null bounds give the default bounds, null names give empty
 *    names); a null array where data is required is KLO_ERROR_NULL_ARGUMENT.
 *  - KLO_INFINITY (1e20): bounds at or beyond +-1e20 are infinite.
 *  - Sense characters: '>' greater-or-equal, '=' equal, any other character
 *    less-or-equal.
 *  - NaN is refused everywhere (KLO_ERROR_INVALID_ARGUMENT); infinite
 *    coefficients are refused, infinite bounds are not.
 *  - Variables, rows, PSD variables, SOS sets, general constraints and
 *    objectives are numbered from 0 in the order they were added; deleting
 *    an element renumbers the later ones of its kind down.
 *  - One row numbering for linear, quadratic and PSD constraints: a row has
 *    bounds [lower, upper], a linear part, and optionally quadratic terms and
 *    PSD terms.  "NumConstrs" counts all rows; "NumQConstrs" and
 *    "NumPsdConstrs" count the rows that have quadratic or PSD terms.
 *  - Matrices (PSD coefficients, "PsdX", "PsdObj") are passed as a count of
 *    stored entries, a row and a column count, and parallel arrays of
 *    row-major flattened positions (row * cols + col) and values; repeated
 *    positions add up.  A symmetric matrix is given as one triangle (an
 *    off-diagonal entry stands for itself and its mirror image) or whole
 *    (an entry and its mirror equal); one whose entry and mirror differ is
 *    not symmetric and is refused (KLO_ERROR_INVALID_ARGUMENT).
 *  - Strings returned through a `const char **` point into the library and
 *    stay valid until the next call on the same model.
 */
#ifndef KLO_C_H
#define KLO_C_H

#ifdef __cplusplus
extern "C" {
#endif

/* The library is built with hidden symbols; what this header declares is
 * its interface. */
#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

/** Opaque environment: parameters, log, last error. */
typedef struct KLOenv KLOenv;
/** Opaque model: variables, rows, objectives, results. */
typedef struct KLOmodel KLOmodel;

/* ------------------------------------------------------------------------
 * Numbers
 * ------------------------------------------------------------------------ */

/** Bounds of this magnitude or more are infinite. */
#define KLO_INFINITY 1e20
/** Value of "Start" and of results that have not been set. */
#define KLO_UNDEFINED 1e101

/* ------------------------------------------------------------------------
 * Status codes (the texts are those of KLOexplainerror)
 * ------------------------------------------------------------------------ */

#define KLO_OK 0 /**< "Success" */

/* General */
#define KLO_ERROR_INTERNAL -1      /**< "Internal error in the solver library" */
#define KLO_ERROR_OUT_OF_MEMORY -2 /**< "Out of memory, or the model could not be copied" */
/** "Invalid argument" (NaN, negative count, bad type or sense letter, infinite coefficient) */
#define KLO_ERROR_INVALID_ARGUMENT -3
#define KLO_ERROR_NULL_ARGUMENT -4 /**< "Null pointer given for a required argument" */
/** "The model uses a feature that no engine of this library supports" */
#define KLO_ERROR_NOT_SUPPORTED -5
/** "No solution information is available" (no solve yet, or the solve found none) */
#define KLO_ERROR_DATA_NOT_AVAILABLE -6
#define KLO_ERROR_ENV_NOT_STARTED -7 /**< "The environment has not been started" */
/** "The model is being solved" (a model function called from its own callback) */
#define KLO_ERROR_BUSY -8
/** "The model is not convex": a quadratic objective or row that is not
 *  convex (the detail names it), refused unless "NonConvex" is 1 */
#define KLO_ERROR_NONCONVEX -9

/* Attributes and parameters */
#define KLO_ERROR_UNKNOWN_ATTRIBUTE -1001 /**< "Unknown attribute name" */
/** "The attribute is of another type" (int, double, char, string, matrix) */
#define KLO_ERROR_ATTRIBUTE_TYPE -1002
/** "The attribute belongs to the other level" (model versus element) */
#define KLO_ERROR_ATTRIBUTE_LEVEL -1003
#define KLO_ERROR_ATTRIBUTE_READONLY -1004 /**< "The attribute cannot be set" */
#define KLO_ERROR_UNKNOWN_PARAMETER -1005  /**< "Unknown parameter name" */
#define KLO_ERROR_PARAMETER_TYPE -1006     /**< "The parameter is of another type" */
#define KLO_ERROR_PARAMETER_RANGE -1007    /**< "Parameter value out of range" */

/* Element indices */
#define KLO_ERROR_INDEX_OUT_OF_RANGE -2001 /**< "Index out of range" (any other element kind) */
#define KLO_ERROR_INVALID_CONSTR -2002     /**< "Invalid constraint index" */
#define KLO_ERROR_INVALID_VAR -2003        /**< "Invalid variable index" */
#define KLO_ERROR_INVALID_PSDVAR -2004     /**< "Invalid PSD variable index" */
#define KLO_ERROR_INVALID_SOS -2005        /**< "Invalid SOS index" */
#define KLO_ERROR_INVALID_GENCONSTR -2006  /**< "Invalid general constraint index" */
#define KLO_ERROR_INVALID_OBJECTIVE -2007  /**< "Invalid objective index" */

/* Files */
#define KLO_ERROR_FILE_OPEN -3001 /**< "Cannot open the file" */
/** "Malformed file" (the detail names the file and line) */
#define KLO_ERROR_FILE_READ -3002
#define KLO_ERROR_FILE_WRITE -3003  /**< "Cannot write the file" */
#define KLO_ERROR_FILE_FORMAT -3004 /**< "Unknown file format" (by its extension) */

/* Callbacks */
#define KLO_ERROR_CALLBACK_INFO -5001   /**< "Unknown callback information code" */
#define KLO_ERROR_NOT_IN_CALLBACK -5002 /**< "Called outside a running callback" */
#define KLO_ERROR_CALLBACK_WHERE -5003  /**< "Not available at this callback location" */
/** "The callback threw an exception": recorded (with the exception's text
 *  when it has one) when KLOoptimize throws again what the callback threw */
#define KLO_ERROR_CALLBACK_EXCEPTION -5004

/* Positive refusals of the callback submission functions */
/** "The proposed solution is infeasible and was not used" */
#define KLO_CB_REJECTED 1
/** "The proposed solution is not better than the incumbent" */
#define KLO_CB_NOT_IMPROVING 2
/** "The request cannot be used at this point of the search" */
#define KLO_CB_IGNORED 3

/* ------------------------------------------------------------------------
 * Optimisation status (integer attribute "Status")
 * ------------------------------------------------------------------------ */

#define KLO_STATUS_UNSTARTED 0       /**< no solve since the model last changed */
#define KLO_STATUS_OPTIMAL 1         /**< optimal (MIP: within "MIP/GapAbs" or "MIP/GapRel") */
#define KLO_STATUS_INFEASIBLE 2      /**< proven infeasible */
#define KLO_STATUS_UNBOUNDED 3       /**< proven unbounded */
#define KLO_STATUS_INF_OR_UNBD 4     /**< infeasible or unbounded, not told apart */
#define KLO_STATUS_NUMERICAL 5       /**< stopped on numerical trouble */
#define KLO_STATUS_NODE_LIMIT 6      /**< "MIP/MaxNodes" reached */
#define KLO_STATUS_TIME_LIMIT 7      /**< "MaxTime" reached */
#define KLO_STATUS_SOLUTION_LIMIT 8  /**< "MIP/MaxSols" reached */
#define KLO_STATUS_ITERATION_LIMIT 9 /**< "SPX/MaxIterations" or "IPM/MaxIterations" reached */
#define KLO_STATUS_INTERRUPTED 10    /**< stopped by a callback */
#define KLO_STATUS_CUTOFF 11         /**< no solution better than "MIP/Cutoff" */
/** The engine called its answer optimal, but the answer failed the library's
 *  check (see "MaxPrimalViolation" and the other figures) even after a
 *  clean-up; the answer with the smallest violations is kept. */
#define KLO_STATUS_SUBOPTIMAL 12
/** A nonconvex model solved with "NonConvex" 1: the answer is a local
 *  optimum (it passed the same check), with no proof that none is better. */
#define KLO_STATUS_LOCALLY_OPTIMAL 13
/* With a limit status the best solution found so far stays readable
 * ("HasSolution" tells whether there is one). */

/* ------------------------------------------------------------------------
 * Basis status ("ColBasis" of a variable, "RowBasis" of a row).  A row's
 * status describes its activity: a binding <= row is at its upper bound.
 * ------------------------------------------------------------------------ */

#define KLO_BASIS_LOWER 0      /**< nonbasic at the lower bound */
#define KLO_BASIS_BASIC 1      /**< basic */
#define KLO_BASIS_UPPER 2      /**< nonbasic at the upper bound */
#define KLO_BASIS_SUPERBASIC 3 /**< nonbasic between its bounds (free) */
#define KLO_BASIS_FIXED 4      /**< nonbasic, lower and upper bound equal */

/* ------------------------------------------------------------------------
 * Element kinds
 * ------------------------------------------------------------------------ */

/* Variable types ("VType"): 'C' continuous, 'B' binary (bounds clipped to
 * [0, 1]), 'I' integer, 'S' semi-continuous, 'N' semi-integer.  A
 * semi-continuous variable with bounds [lb, ub] is 0 or in [lb, ub]; a
 * semi-integer one is 0 or an integer in [lb, ub].  When [lb, ub] holds 0
 * this is plain [lb, ub]. */
#define KLO_CONTINUOUS 'C' /**< continuous */
#define KLO_BINARY 'B'     /**< binary: integer in [0, 1] */
#define KLO_INTEGER 'I'    /**< integer */
#define KLO_SEMICONT 'S'   /**< semi-continuous: 0 or in [lb, ub] */
#define KLO_SEMIINT 'N'    /**< semi-integer: 0 or an integer in [lb, ub] */

/* SOS types */
#define KLO_SOS_TYPE1 1 /**< at most one member non-zero */
#define KLO_SOS_TYPE2 2 /**< at most two consecutive members non-zero */

/* General constraint types ("GenConstrType") */
#define KLO_GENCONSTR_INDICATOR 0 /**< binary variable = value implies a linear row */

/* Model sense ("ModelSense") */
#define KLO_MINIMIZE 1  /**< minimise the objective */
#define KLO_MAXIMIZE -1 /**< maximise the objective */

/* "IISVar"/"IISCol" and "IISConstr"/"IISRow": which bounds of the element
 * belong to the irreducible infeasible subsystem. */
#define KLO_IIS_NONE 0  /**< not in the subsystem */
#define KLO_IIS_LOWER 1 /**< its lower bound is */
#define KLO_IIS_UPPER 2 /**< its upper bound is */
#define KLO_IIS_BOTH 3  /**< both bounds are (or, for an equality row, the row) */

/* ------------------------------------------------------------------------
 * Callbacks
 *
 * The library calls the registered function at these locations ("where")
 * during KLOoptimize.  The function receives the model being solved, the
 * per-call data to pass to the KLOcb... functions, the where-code and the
 * user data given to KLOsetcallbackfunc.  Returning KLO_CB_STOP (11) stops
 * the solve with status KLO_STATUS_INTERRUPTED; 0 continues.
 * ------------------------------------------------------------------------ */

#define KLO_CB_POLLING 0  /**< periodic call; nothing to read but runtime */
#define KLO_CB_PRESOLVE 1 /**< after presolve */
#define KLO_CB_SIMPLEX 2  /**< during the simplex method */
#define KLO_CB_MIP 3      /**< progress of the branch and bound search */
#define KLO_CB_MIPSOL 4   /**< a new incumbent was found */
/** a node relaxation was solved: cuts, branches and solutions may be submitted */
#define KLO_CB_MIPNODE 5
#define KLO_CB_MESSAGE 6 /**< a line was written to the log */
#define KLO_CB_BARRIER 7 /**< during the interior-point method */

/** Return value of a callback that stops the solve. */
#define KLO_CB_STOP 11

/* Information codes for KLOcbget ("what").  Single values are written to
 * an int or double; arrays are returned as a pointer into the library
 * (resultP is then the address of a `const double *` or `const int *`),
 * valid until the callback returns, or null when not available. */
#define KLO_CBINFO_NUMVARS 200    /**< int: number of variables of the model */
#define KLO_CBINFO_NUMCONSTRS 201 /**< int: number of rows */
#define KLO_CBINFO_NUMINTVARS 202 /**< int: number of integer and binary variables */
/** double: objective of the incumbent (KLO_INFINITY, in the model's sense, when none) */
#define KLO_CBINFO_OBJBEST 300
#define KLO_CBINFO_OBJBOUND 301 /**< double: best bound */
#define KLO_CBINFO_RUNTIME 302  /**< double: seconds since KLOoptimize began */
/** double array: the new incumbent (KLO_CB_MIPSOL), one value per variable */
#define KLO_CBINFO_SOLUTION_IDX 303
/** double array: the node relaxation (KLO_CB_MIPNODE), one value per variable */
#define KLO_CBINFO_NODEREL_IDX 304
/** const char *: the log line, without its newline (KLO_CB_MESSAGE) */
#define KLO_CBINFO_MSG_STRING 305
#define KLO_CBINFO_NODECOUNT 306  /**< int: nodes explored */
#define KLO_CBINFO_NODELEFT 307   /**< int: open nodes */
#define KLO_CBINFO_SOLCOUNT 308   /**< int: solutions found */
#define KLO_CBINFO_ITERCOUNT 309  /**< int: simplex iterations so far */
#define KLO_CBINFO_CUTCOUNT 310   /**< int: cuts applied so far */
#define KLO_CBINFO_NODEDEPTH 311  /**< int: depth of the current node */
#define KLO_CBINFO_NODESTATUS 312 /**< int: status of the node relaxation (KLO_STATUS_...) */
#define KLO_CBINFO_NODELB 313     /**< double array: lower bounds of the current node */
#define KLO_CBINFO_NODEUB 314     /**< double array: upper bounds of the current node */
#define KLO_CBINFO_ISINTEGER 315  /**< int array: 1 for integer columns, 0 for the others */
#define KLO_CBINFO_SOLUTION 316   /**< double array: as 303, for the handle-based callback */
#define KLO_CBINFO_NODEREL 317    /**< double array: as 304, for the handle-based callback */
/** double: objective of the current interior-point iterate (KLO_CB_BARRIER) */
#define KLO_CBINFO_BARRIER_PRIMOBJ 318
/** double: dual objective of the current interior-point iterate (KLO_CB_BARRIER, SDP engine) */
#define KLO_CBINFO_BARRIER_DUALOBJ 319
/** int: columns that presolve removed (KLO_CB_PRESOLVE) */
#define KLO_CBINFO_PRE_COLDEL 320
/** int: rows that presolve removed (KLO_CB_PRESOLVE) */
#define KLO_CBINFO_PRE_ROWDEL 321
/** double: objective of the current basis, in the model's sense (KLO_CB_SIMPLEX) */
#define KLO_CBINFO_SPX_OBJVAL 322
/* The index variant (codes 303, 304 and the *p functions) addresses the
 * same columns as the model. */

/** The callback function registered with KLOsetcallbackfunc. */
typedef int (*KLOcallbackfn)(const void* model, void* cbdata, int where, const void* usrdata);

/* ------------------------------------------------------------------------
 * Parameters (environment settings), by name.  Type, default, range.
 *
 * int parameters
 *   "Method"              -1    [-1, 2]  LP algorithm: -1 automatic (dual simplex),
 *                                        0 primal simplex, 1 dual simplex, 2 barrier
 *   "PostScaling"         -1    [-1, 1]  scaling of the problem: -1 automatic, 0 off, 1 on
 *   "Presolve"            -1    [-1, 1]  presolve: -1 automatic, 0 off, 1 on
 *   "Dualization"         -1    [-1, 1]  solve the dual problem: -1 automatic, 0 no, 1 yes
 *   "OutputFlag"           1    [0, 1]   0 silences the log entirely
 *   "LogToConsole"         1    [0, 1]   0 keeps the log off the console
 *   "NumThreads"          -1    [-1, 128] threads: -1 automatic
 *   "EnableNetworkFlow"    0    [0, 1]   network simplex for network LPs
 *   "EnableStochasticLP"   0    [0, 1]   detect stochastic LP structure
 *   "NumericFocus"         0    [0, 3]   care taken with numerics (3 most)
 *   "SPX/ColumnGeneration" 0    [0, 1]   simplex column generation
 *   "SPX/CrashStart"       0    [0, 1]   crash starting basis
 *   "SPX/MaxIterations"    2147483647 [0, 2147483647] simplex iteration limit
 *   "SPX/PrimalPricing"   -1    [-1, 3]  -1 automatic, 0 Dantzig, 1 partial,
 *                                        2 steepest edge, 3 devex
 *   "SPX/DualPricing"     -1    [-1, 3]  -1 automatic, 0 Dantzig, 1 partial,
 *                                        2 steepest edge, 3 devex
 *   "IPM/MaxIterations"   500   [0, 2147483647] interior-point iteration limit
 *   "IPM/NumericFocus"     0    [0, 1]   care taken with numerics in the interior-point method
 *   "MIP/LevelCuts"       -1    [-1, 3]  cut generation: -1 automatic, 0 off .. 3 aggressive
 *   "MIP/LevelHeurs"      -1    [-1, 3]  primal heuristics: -1 automatic, 0 off .. 3 aggressive
 *   "MIP/LevelProbing"    -1    [-1, 3]  probing: -1 automatic, 0 off .. 3 aggressive
 *   "MIP/LevelStrong"     -1    [-1, 3]  strong branching: -1 automatic, 0 off .. 3 aggressive
 *   "MIP/LevelSubmip"     -1    [-1, 3]  sub-MIP heuristics: -1 automatic, 0 off .. 3 aggressive
 *   "MIP/MaxNodes"        2147483647 [0, 2147483647] node limit
 *   "MIP/RootParallelism" -1    [-1, 64] parallel root processing
 *   "MIP/AutoConfiguration" -1  [-1, 1]  automatic tuning of the search
 *   "MIP/MaxSols"         2147483647 [1, 2147483647] stop after this many solutions
 *   "MIP/AllowDualPresolve" -1  [-1, 1]  dual reductions in presolve
 *   "MIP/EnableLazyConstr" 0    [0, 1]   lazy constraints from callbacks
 *   "MIP/Disconnected"    -1    [-1, 1]  solve disconnected components apart
 *   "MIP/DetectDisconnectedComponents" -1 [-1, 1] detect disconnected components
 *   "MIP/SolutionPoolSize" 10   [1, 1000] solutions kept in the pool
 *   "MIP/MaxStallingNodes" -1   [-1, 2147483647] stop after this many nodes
 *                                       without improvement (-1: no limit)
 *   "MIP/SolutionNumber"   0    [0, 2147483647] pool solution read by "Xn",
 *                                       "PoolNX" and "PoolNObjVal"
 *   "MIP/Static"           0    [0, 1]   static search (no dynamic changes)
 *   "PDHG/ComputePreference" -1 [-1, 1]  first-order method preference
 *   "PDHG/Device"         -1    [-1, 1]  device of the first-order method
 *   "PDHG/MaxIterations"  2147483647 [0, 2147483647] first-order iteration limit
 *   "SolutionTarget"      -1    [-1, 1]  -1 automatic, 0 basic solution, 1 any optimal solution
 *   "ObjNumber"            0    [0, 2147483647] objective addressed by "ObjN..." attributes
 *   "NonConvex"            0    [0, 1]   a model with a quadratic part that is not convex:
 *                                        0 refuses it (KLO_ERROR_NONCONVEX, naming the row
 *                                        or the objective), 1 solves it to a local optimum
 *                                        ("Status" KLO_STATUS_LOCALLY_OPTIMAL)
 *
 * double parameters
 *   "MaxTime"              1e20  [0, 1e20]  wall-clock limit in seconds
 *   "PresolveTolerance"    1e-9  [0, 1]     tolerance of presolve reductions
 *   "SPX/PrimalTolerance"  1e-7  [1e-10, 1e-2] simplex primal feasibility tolerance
 *   "SPX/DualTolerance"    1e-7  [1e-10, 1e-2] simplex dual feasibility tolerance
 *   "IPM/PrimalTolerance"  1e-8  [1e-12, 1]  interior-point primal tolerance
 *   "IPM/DualTolerance"    1e-8  [1e-12, 1]  interior-point dual tolerance
 *   "IPM/GapTolerance"     1e-8  [1e-12, 1]  interior-point relative gap tolerance
 *   "MIP/IntegerTolerance" 1e-6  [1e-9, 0.5] integrality tolerance
 *   "MIP/ObjectiveTolerance" 1e-6 [0, 1e20]  minimal improvement of the incumbent
 *   "MIP/GapAbs"           1e-6  [0, 1e20]  stop when bound and incumbent differ by no more
 *   "MIP/GapRel"           1e-4  [0, 1e20]  stop when the relative gap is no larger
 *   "MIP/LinearizationBigM" 1e5  [0, 1e20]  largest big-M of an indicator constraint
 *                                           (beyond it: a slack and an SOS1 set), and
 *                                           the infinite bound of a semi-continuous
 *                                           or semi-integer variable
 *   "MIP/Cutoff"           1e20  [-1e20, 1e20] ignore solutions not better than this
 *                                           (in the model's sense; +-1e20: none)
 *   "MIP/Heuristics"       0.05  [0, 1]     share of effort spent in heuristics
 *   "MIP/NoRelHeurWork"    0     [0, 1e20]  effort of heuristics run before the root relaxation
 *   "PDHG/DualTolerance"   1e-4  [0, 1]     first-order dual tolerance
 *   "PDHG/GapTolerance"    1e-4  [0, 1]     first-order gap tolerance
 *   "PDHG/PrimalTolerance" 1e-4  [0, 1]     first-order primal tolerance
 *
 * string parameters (at most 511 characters)
 *   "LogFile"              ""    file the log is appended to ("" for none)
 *
 * Which parameters each engine honours is documented with KLOoptimize.
 * ------------------------------------------------------------------------ */

/* ------------------------------------------------------------------------
 * Attributes, by name.  Type, level (model, or the element kind whose
 * index the element functions take), access, meaning.  Names on one line
 * are synonyms and give the same values.
 *
 * int
 *   "ModelSense"                model  set  1 minimise, -1 maximise
 *   "MinSense"                  model  set  1 when minimising, 0 when maximising
 *   "HasSolution"               model  get  1 when a solution can be read
 *   "HasPrimalRay"              model  get  1 when an unbounded ray can be read
 *   "HasDualRay"                model  get  1 when an infeasibility certificate can be read
 *   "NumVars"                   model  get  number of variables
 *   "NumConss", "NumConstrs"    model  get  number of rows
 *   "NumQConstrs"               model  get  rows with quadratic terms
 *   "NumSOS"                    model  get  SOS sets
 *   "NumGenConstrs"             model  get  general constraints
 *   "NumEnts"                   model  get  entries of the model: linear, quadratic (rows and
 *                                           objective) and PSD coefficient entries
 *   "NumNZs"                    model  get  non-zeros of the linear constraint matrix
 *   "SPX/NumIters"              model  get  simplex iterations of the last solve
 *   "IPM/NumIters"              model  get  interior-point iterations of the last solve
 *   "IsInteger"                 model  get  1 when the model has integer variables, SOS or
 *                                           indicator constraints
 *   "IISVar", "IISCol"          var    get  KLO_IIS_... membership after KLOcomputeIIS
 *   "IISConstr", "IISRow"       row    get  KLO_IIS_... membership after KLOcomputeIIS
 *   "IISMinimal"                model  get  1 when KLOcomputeIIS proved its set irreducible,
 *                                           0 when not (time or node limit reached)
 *   "ColBasis"                  var    set  KLO_BASIS_... of the last LP solve; set: warm start
 *   "RowBasis"                  row    set  KLO_BASIS_... of the last LP solve; set: warm start
 *   "GenConstrType"             gen    get  KLO_GENCONSTR_...
 *   "Status"                    model  get  KLO_STATUS_... of the last solve
 *   "Dim"                       psdvar get  dimension of a PSD variable
 *   "NumPsdVars"                model  get  PSD variables
 *   "NumPsdConstrs"             model  get  rows with PSD terms
 *   "SolCount"                  model  get  solutions in the pool
 *   "NumObj"                    model  get  objectives of a multi-objective model
 *   "ObjNPriority"              model  set  priority of objective "ObjNumber"
 *   "NumContVars"               model  get  continuous variables
 *   "NumIntVars"                model  get  integer variables (binaries included)
 *   "NumBinVars"                model  get  binary variables
 *
 * double
 *   "ObjConst", "ObjCon"        model  set  constant of the objective
 *   "PrimalObjVal", "ObjVal"    model  get  objective value of the solution
 *   "PoolNObjVal"               model  get  objective of pool solution "MIP/SolutionNumber"
 *   "DualObjVal"                model  get  dual objective (LP); best bound (MIP)
 *   "PresolverTime"             model  get  seconds spent in presolve
 *   "SolverTime"                model  get  seconds spent in the engine
 *   "SolutionTime"              model  get  seconds of the whole KLOoptimize
 *   "MIP/GapAbs"                model  get  |incumbent - bound| at the end of the search
 *   "MIP/GapRel"                model  get  the same divided by max(1e-10, |incumbent|)
 *   "LB", "UB"                  var    set  bounds
 *   "Obj"                       var    set  linear objective coefficient
 *   "LHS", "RHS"                row    set  row bounds (lower, upper)
 *   "QCLHS", "QCRHS"            row    set  the same, for rows with quadratic terms
 *   "PsdCLHS", "PsdCRHS"        row    set  the same, for rows with PSD terms
 *   "PrimalSoln", "X"           var    get  value in the solution
 *   "PoolNX", "Xn"              var    get  value in pool solution "MIP/SolutionNumber"
 *   "Start"                     var    set  MIP start value (KLO_UNDEFINED when unset)
 *   "DualSoln"                  row    get  dual value of the row
 *   "Activity"                  row    get  value of the row's expression in the solution
 *   "ReducedCost", "RC"         var    get  reduced cost
 *   "ObjN"                      var    set  coefficient in objective "ObjNumber"
 *   "ObjNCon"                   model  set  constant of objective "ObjNumber"
 *   "ObjNVal"                   model  get  value of objective "ObjNumber" in the solution
 *   "ObjNWeight"                model  set  weight of objective "ObjNumber"
 *   "ObjNRelTol", "ObjNAbsTol"  model  set  degradation allowed for objective "ObjNumber"
 *   "MaxBoundViolation"         model  get  largest violation of a variable bound by the
 *                                           solution, divided by max(1, |that bound|)
 *   "MaxConstrViolation"        model  get  the same for row bounds (linear, quadratic and PSD
 *                                           terms of the row counted), divided by the row's
 *                                           largest term when that is larger
 *   "MaxPrimalViolation"        model  get  the larger of the two
 *   "MaxIntViolation"           model  get  largest distance of an integer variable from the
 *                                           nearest integer
 *   "MaxSOSViolation"           model  get  largest value of an SOS member outside the members
 *                                           the set allows to be non-zero
 *   "MaxDualViolation"          model  get  continuous models: largest reduced cost of the
 *                                           wrong sign for where its variable stands, row
 *                                           duals of the wrong sign included (see KLOoptimize)
 *   "ComplViolation"            model  get  continuous models: sum of each dual times the
 *                                           distance to the bound it belongs to, divided by
 *                                           max(1, |objective|) (the relative duality gap)
 *
 * char
 *   "VType"                     var    set  KLO_CONTINUOUS, KLO_BINARY, KLO_INTEGER, ...
 *
 * string
 *   "ProbName", "ModelName"     model  set  name of the model
 *   "RowName", "ConstrName"     row    set  name of a row
 *   "QCName"                    row    set  the same, for rows with quadratic terms
 *   "PsdCName"                  row    set  the same, for rows with PSD terms
 *   "ColName", "VarName"        var    set  name of a variable
 *   "PsdVarName"                psdvar set  name of a PSD variable
 *   "GenConstrName"             gen    set  name of a general constraint
 *
 * matrix
 *   "PsdX"                      psdvar get  value of the PSD variable in the solution
 *   "PsdObj"                    psdvar set  objective coefficient matrix of the PSD variable
 *
 * Reading a solution attribute when there is none gives
 * KLO_ERROR_DATA_NOT_AVAILABLE.
 *
 * Behaviour in detail
 *  - Results ("X", "RC", "DualSoln", "Activity", "ObjVal", "DualObjVal",
 *    "PoolN...", "MIP/Gap...", the times, "SPX/NumIters", "IPM/NumIters",
 *    "PsdX", "ObjNVal", "Max...Violation") and "IISVar"/"IISConstr" give
 *    KLO_ERROR_DATA_NOT_AVAILABLE until a solve (or KLOcomputeIIS) provides
 *    them.  "Status" (0 before any solve), "HasSolution", "HasPrimalRay",
 *    "HasDualRay" and "SolCount" can always be read.
 *  - Every change to the model discards the results of the last solve
 *    ("Status" returns to KLO_STATUS_UNSTARTED), except changes of names,
 *    of "Start" and of "ColBasis"/"RowBasis".
 *  - "ColBasis"/"RowBasis" read the statuses set by the user, else those of
 *    the last solve, else give KLO_ERROR_DATA_NOT_AVAILABLE.  Setting one
 *    element starts from those statuses (or from all variables at their
 *    lower bound and all rows basic); values outside 0 .. 4 are refused.
 *  - "VType" of the binary variable of an indicator constraint cannot
 *    change from 'B' (KLO_ERROR_INVALID_ARGUMENT).
 *  - "VType" 'B' clips the bounds to [0, 1], and "LB"/"UB" of a binary stay
 *    within [0, 1].  Bounds at or beyond +-1e20 read back as +-1e20; NaN
 *    bounds are refused, infinite "Obj"/"ObjCon" coefficients too.
 *  - "NumContVars" counts types 'C' and 'S', "NumIntVars" 'B', 'I' and
 *    'N'; "IsInteger" is 1 for any type other than 'C'.  "NumEnts" also
 *    counts the entries of "PsdObj".
 *  - The row attributes "LHS"/"RHS", "QCLHS"/"QCRHS" and "PsdCLHS"/"PsdCRHS"
 *    (and the row names) are synonyms that apply to every row.
 *  - Objectives: objective 0 is the model's own ("Obj", "ObjCon" and the
 *    quadratic objective terms), so "NumObj" is at least 1; KLOsetobjectiven
 *    adds the others.  "ObjN", "ObjNCon", "ObjNPriority", "ObjNWeight",
 *    "ObjNRelTol", "ObjNAbsTol" and "ObjNVal" address objective "ObjNumber"
 *    (a parameter of the model's environment); a number that is not an
 *    objective gives KLO_ERROR_INVALID_OBJECTIVE.  "ModelSense" accepts 1
 *    and -1 only, "MinSense" 1 and 0.
 *  - "PsdObj" and "PsdX" are dim x dim matrices read back as their upper
 *    triangle (positions r * dim + c with r <= c), entries summed and zeros
 *    dropped.
 *  - Names may be empty and need not be unique: KLOgetvarbyname and
 *    KLOgetconstrbyname find the lowest index with that name (never an empty
 *    name).  Strings read are valid until that name changes.
 * ------------------------------------------------------------------------ */

/* ========================================================================
 * Environment
 * ======================================================================== */

/** Creates an environment that is not started yet, so that parameters can
 *  be set before KLOstartenv.  *envP receives it (also on some failures, in
 *  which case it must still be freed with KLOfreeenv). */
int KLOemptyenv(KLOenv** envP);

/** Creates and starts an environment.  logfilename: file the log is
 *  appended to ("LogFile"), or null for none. */
int KLOloadenv(KLOenv** envP, const char* logfilename);

/** Starts an environment made by KLOemptyenv. */
int KLOstartenv(KLOenv* env);

/** Frees an environment.  Models made from it keep their own copies and
 *  stay usable.  The environment of a model (KLOgetenv, KLOgetmultiobjenv)
 *  is freed with its model: freeing it here gives KLO_ERROR_INVALID_ARGUMENT. */
int KLOfreeenv(KLOenv* env);

/** Writes a line of text to the environment's log. */
int KLOmsg(KLOenv* env, const char* message);

/** Text of the last error of the environment, with its detail ("" when
 *  none).  Never null; valid until the next call on the environment. */
const char* KLOgeterrormsg(KLOenv* env);

/** Plain text of a status code (see the list above); a generic text naming
 *  the number for unknown codes.  Never null; the text is static. */
const char* KLOexplainerror(int code);

/** Returns the plain text of an optimisation status (the "Status"
 *  attribute): "optimal", "infeasible", "time limit reached", ...; "unknown
 *  status" for a number that is none of KLO_STATUS_...  The text belongs to
 *  the library and stays valid. */
const char* KLOexplainstatus(int status);

/* ========================================================================
 * Parameters (see the list above)
 * ======================================================================== */

/** Reads an int parameter into *valueP. */
int KLOgetintparam(KLOenv* env, const char* paramname, int* valueP);
/** Reads a double parameter into *valueP. */
int KLOgetdblparam(KLOenv* env, const char* paramname, double* valueP);
/** Copies a string parameter into value, a buffer of at least 512 bytes. */
int KLOgetstrparam(KLOenv* env, const char* paramname, char* value);

/** Sets an int parameter; values outside the range give KLO_ERROR_PARAMETER_RANGE. */
int KLOsetintparam(KLOenv* env, const char* paramname, int value);
/** Sets a double parameter; NaN or values outside the range are refused. */
int KLOsetdblparam(KLOenv* env, const char* paramname, double value);
/** Sets a string parameter (at most 511 characters). */
int KLOsetstrparam(KLOenv* env, const char* paramname, const char* value);

/** Current value, minimum, maximum and default of an int parameter; any
 *  of the four pointers may be null. */
int KLOgetintparaminfo(KLOenv* env, const char* paramname, int* valueP, int* minP, int* maxP,
                       int* defP);
/** The same for a double parameter. */
int KLOgetdblparaminfo(KLOenv* env, const char* paramname, double* valueP, double* minP,
                       double* maxP, double* defP);
/** Current value and default of a string parameter, each into a buffer of
 *  at least 512 bytes (either may be null). */
int KLOgetstrparaminfo(KLOenv* env, const char* paramname, char* valueP, char* defP);

/** Sets every parameter back to its default. */
int KLOresetparams(KLOenv* env);
/** Reads a parameter file: one "name value" pair a line, '#' starts a comment. */
int KLOreadparams(KLOenv* env, const char* filename);
/** Writes the parameters that differ from their defaults to a parameter file. */
int KLOwriteparams(KLOenv* env, const char* filename);

/* ========================================================================
 * Models
 * ======================================================================== */

/** Creates a model with numvars initial variables.  Pname, obj, lb, ub,
 *  vtype and varnames may be null (empty name, objective 0, bounds
 *  [0, KLO_INFINITY], type 'C', empty names).  The model gets its own copy
 *  of env, so its parameters can differ from env's. */
int KLOnewmodel(KLOenv* env, KLOmodel** modelP, const char* Pname, int numvars, const double* obj,
                const double* lb, const double* ub, const char* vtype, const char* const* varnames);

/** The longest line a file read by the library may have, in bytes: a
 *  longer one gives KLO_ERROR_FILE_READ instead of being read into memory
 *  without end. */
#define KLO_MAX_LINE_LENGTH (64 * 1024 * 1024)

/** Reads a model file (".mps", ".qps" (an MPS file), ".lp", ".dat-s" (an
 *  SDPA sparse file), optionally ".gz" compressed) into a new model.  Every file the library reads
 *  (models, parameters, starts, bases, solutions) must be a file or a
 *  pipe: a directory or a device gives KLO_ERROR_FILE_OPEN.  A
 *  compressed file whose data or trailer (checksum, length) is damaged or
 *  cut short gives KLO_ERROR_FILE_READ,
 *  and so does a line longer than KLO_MAX_LINE_LENGTH.  MPS files may be
 *  fixed or free format (names of any length, with blanks only in fixed
 *  format), with NAME, OBJSENSE, ROWS, COLUMNS with integer markers, RHS,
 *  RANGES, BOUNDS (UP, LO, FX, FR, MI, PL, BV, LI, UI, SC), SOS (S1 and S2
 *  sets), QUADOBJ and QMATRIX (one triangle or all of Q in the objective's
 *  1/2 x'Qx), QSECTION and QCMATRIX (all of a row's Q in x'Qx) and
 *  ENDATA.  The first N row is the objective; later N rows are dropped
 *  with their entries.  An integer column without bounds, or with bounds
 *  [0, 1], becomes binary; a negative UP bound on a column whose lower
 *  bound is not given makes that bound -infinity.  Numbers are decimals
 *  read whole and finite ("1e", ".", "inf" or "1e400" are malformed);
 *  bounds at or beyond 1e20 are infinite.  A malformed file gives
 *  KLO_ERROR_FILE_READ with "file:line: what was expected, what was found"
 *  as the message; an MPS file that repeats a row name, or whose column
 *  entries are not all together, is malformed ("file:line: row "name"
 *  occurs twice").
 *
 *  An SDPA sparse file is the semidefinite program  maximise tr(F0 Y)
 *  subject to tr(Fi Y) = ci (i = 1..m), Y positive semidefinite and
 *  block-diagonal; it becomes a maximised model ("ModelSense" -1) whose
 *  matrix blocks (positive sizes) are PSD variables of that dimension, in
 *  order, and whose diagonal blocks (negative sizes -s) are s variables in
 *  [0, infinity) each, numbered in block order.  Row i is the equality
 *  tr(Fi Y) = ci: the entries of Fi in a matrix block make that row's PSD
 *  term for the block's variable, those in a diagonal block its linear
 *  coefficients; F0 gives "PsdObj" and "Obj".  The file lists the upper
 *  triangle of each block (row <= column, from 1), which is what the
 *  library keeps, so entries are taken unscaled and the model's objective
 *  is tr(F0 Y).  Comment lines starting with '"' or '*' may come first;
 *  then mDIM, nBLOCK, the block sizes and the m numbers ci, each on a line
 *  of its own, and one entry "matrix block row column value" a line, in
 *  any order.  Numbers may be separated by blanks, commas, braces and
 *  parentheses; after a line's numbers, a word that cannot start a number
 *  begins a remark ("3 = mDIM").  Malformed, with the line: counts below 1
 *  or not integers, a block size of 0 or a matrix block above 46340, a
 *  c vector of the wrong length or with a value at or beyond 1e20, a file
 *  that ends before its c vector, a matrix number outside 0..m, a block
 *  number outside 1..nBLOCK, an index outside its block, an entry below
 *  the diagonal, an off-diagonal entry in a diagonal block, a value that
 *  is no finite number, and an entry given twice.  The diagonal blocks
 *  together may hold at most 2^20 variables or one per byte of the file,
 *  whichever is more. */
int KLOreadmodel(KLOenv* env, const char* filename, KLOmodel** modelP);

/** Deep, independent copy of a model and its environment; null on failure. */
KLOmodel* KLOcopymodel(KLOmodel* model);

/** Frees a model. */
int KLOfreemodel(KLOmodel* model);

/** Reads a file into an existing model, by its extension: ".prm"
 *  parameters, ".mst" start values, ".sol" a solution as start values,
 *  ".bas" basis, ".mps"/".qps"/".lp"/".dat-s" (optionally ".gz") replaces
 *  the model's contents.  ".mst" and ".sol" files hold "name value" a line
 *  ('#' starts a comment); variables not named keep their start values; a
 *  malformed line or an unknown name gives KLO_ERROR_FILE_READ with the
 *  file and line, and the model is not changed. */
int KLOread(KLOmodel* model, const char* filename);

/** Writes a file, by its extension: ".mps", ".qps" (MPS), ".lp", ".dat-s"
 *  (SDPA; each optionally ".gz") the model, ".prm" parameters, ".mst" start
 *  values (after a solve that found a solution, that solution; otherwise
 *  the start values set, those not set left out), ".sol" the solution,
 *  ".bas" the basis (MPS basis format).  Reading a model file back gives the
 *  same model.  Names that a format cannot hold (empty, repeated, with
 *  blanks or operator characters, or read as numbers or keywords in LP
 *  files) are replaced by generated ones: "C<j>" for variables, "R<i>" for
 *  rows.  MPS cannot hold PSD rows or variables, indicators, semi-integer
 *  variables, several objectives or a row whose lower bound is above its
 *  upper one (quadratic rows go to QCMATRIX sections), LP files no PSD
 *  variables or several objectives.  SDPA files hold the models that
 *  KLOreadmodel reads from them: one objective without constant or
 *  quadratic terms, variables in [0, infinity) of type 'C', every row an
 *  equality with a finite right-hand side and without quadratic terms, at
 *  least one row and one variable or PSD variable, no SOS or indicator
 *  constraints, and no more variables than a file of its length may hold
 *  (see KLOreadmodel); they are written as the PSD variables' matrix blocks in
 *  order and one diagonal block of all variables, without names.  A
 *  minimised model is written with its objective negated (SDPA
 *  maximises), so that it reads back as a maximised model with the same
 *  optimal points and the optimal value negated.  Models that a format
 *  cannot hold give KLO_ERROR_NOT_SUPPORTED, naming the part, and no file
 *  is written.  ".sol" and ".bas" need a
 *  solution or a basis (KLO_ERROR_DATA_NOT_AVAILABLE otherwise). */
int KLOwrite(KLOmodel* model, const char* filename);

/** Makes a relaxed copy in *relaxedP: integer and binary variables become
 *  continuous, SOS and indicator constraints are dropped. */
int KLOrelaxmodel(KLOmodel* model, KLOmodel** relaxedP);

/** Solves the model (see "Status" and the result attributes).
 *
 *  Engines.  Each engine declares what it can take (integer variables, SOS
 *  sets, quadratic terms, PSD variables, ...) and which parameters it
 *  honours; the first engine that takes everything the model has solves
 *  it, in the order Clp, Cbc.  A parameter set away from its default that
 *  the chosen engine does not honour is named in the log ("Clp does not
 *  use parameter ...").  A model without integer or binary variables and
 *  without SOS sets is a linear program, solved by Clp: dual simplex by default,
 *  "Method" 0 primal simplex, 1 dual simplex, 2 barrier followed by a
 *  crossover to a basic solution.  A model with integer or binary
 *  variables or SOS sets (type 1 and 2) is solved by Cbc with its cut
 *  generators and heuristics, starting from "Start" when values are set;
 *  that engine is the library libklo_cbc, installed beside libklo and
 *  loaded on the first MIP solve (KLO_ERROR_NOT_SUPPORTED when it cannot
 *  be loaded).
 *  A model with several objectives (KLOsetobjectiven) is solved in passes:
 *  objectives of equal priority are blended by their weights, higher
 *  priorities first, and each later pass keeps the earlier passes'
 *  objectives within their "ObjNAbsTol"/"ObjNRelTol" of the value reached;
 *  "ObjVal" is then the value of objective 0, "ObjNVal" that of each
 *  objective, and "DualSoln", "RC", "DualObjVal" and the gaps are those of
 *  the last pass.  Semi-continuous and semi-integer
 *  variables are solved by Cbc through a binary switch each, with an
 *  infinite bound taken as "MIP/LinearizationBigM".  Indicator
 *  constraints "z = v implies a'x sense b" are solved by Cbc as rows: an
 *  equality as its two inequalities, each a big-M row whose M comes from
 *  the bounds of its variables (tightened by rows of one term) when M is at
 *  most "MIP/LinearizationBigM", else a row with a slack variable that an
 *  SOS1 set with the binary (or its complement, a binary of its own) keeps
 *  at 0 while the indicator is active; one whose binary is fixed by its
 *  bounds is a plain row or nothing.  Added variables and rows are not
 *  seen in results or callbacks, and the answer check measures the
 *  indicators themselves.
 *
 *  Answer check.  No answer is called optimal before it is measured on the
 *  model itself (its own variables and rows, unscaled, after the engine's
 *  presolve is undone): "MaxBoundViolation", "MaxConstrViolation",
 *  "MaxIntViolation", "MaxSOSViolation", and for continuous models
 *  "MaxDualViolation" and "ComplViolation".  A row's violation is divided
 *  by the largest of 1, the bound and the row's largest term |a_ij x_j|.
 *  A dual in the minimisation sense pairs with the bound its sign points
 *  to (>= 0 the lower bound, <= 0 the upper one).  Row duals are first cut
 *  to the signs their row's finite bounds allow; each reduced cost d_j =
 *  g_j - sum_i y_i (gradient of row i)_j, g the objective's gradient, is
 *  then recomputed from them, and one that points at an infinite bound
 *  counts ("MaxDualViolation") divided by max(1, |g_j|, the largest
 *  |y_i a_ij|).  Each dual times the distance of its variable or row from
 *  the bound it pairs with adds to the duality gap, whose ratio to
 *  max(1, |objective|) is "ComplViolation": an interior point's answer is
 *  judged as a vertex's is.  "Optimal" needs the primal and SOS figures within 10 times
 *  "SPX/PrimalTolerance", the integrality figure within 10 times
 *  "MIP/IntegerTolerance" and the dual figures within 10 times
 *  "SPX/DualTolerance" (the engines apply their tolerances to scaled
 *  problems).  An LP answer that fails is cleaned up: the solve continues
 *  from its final basis without presolve, at tolerances 100 times tighter,
 *  with primal simplex and then with dual simplex (iterations add up); when
 *  no answer passes, "Status" is KLO_STATUS_SUBOPTIMAL and the answer with
 *  the smallest violations is kept.  Each step is written to the log.
 *
 *  Results.  After a solve "Status" holds its outcome; with a limit status
 *  the best solution found so far stays readable ("HasSolution").  LPs
 *  give "X", "RC", "DualSoln", "Activity", "ColBasis", "RowBasis",
 *  "DualObjVal" (the dual objective), "SPX/NumIters", "IPM/NumIters", and
 *  "HasDualRay" when infeasible or "HasPrimalRay" when unbounded.  MIPs
 *  give "X", "Activity", "DualObjVal" (the best bound), "MIP/GapAbs",
 *  "MIP/GapRel", "SolCount" and the pool ("Xn", "PoolNObjVal", best first,
 *  at most "MIP/SolutionPoolSize" solutions, chosen by
 *  "MIP/SolutionNumber"); an LP's solution is its pool solution 0.
 *
 *  Signs of duals and reduced costs, for minimisation and maximisation
 *  alike: the dual of a row is the rate at which the optimal objective
 *  changes when the row's active bound is raised; the reduced cost of a
 *  variable is d_j = c_j - sum_i y_i a_ij, the rate for its active bound.
 *  Minimising, a binding >= row has a dual >= 0, a binding <= row a dual
 *  <= 0, a variable at its lower bound a reduced cost >= 0; maximising, all
 *  these signs flip.  In both senses c = A'y + d.
 *
 *  Warm starts.  The basis an LP solve ends with is kept through later
 *  changes of bounds, objective, rows and variables (deletions keep it in
 *  step; added variables start at a bound, added rows basic), and the next
 *  LP solve starts from it, without presolve.  A basis set through
 *  "ColBasis"/"RowBasis" (or a ".bas" file) takes its place for the next
 *  solve.  KLOreset forgets the kept basis.
 *
 *  Quadratic models.  Quadratic parts must be convex (see "NonConvex" and
 *  KLO_ERROR_NONCONVEX): a minimised objective's terms positive
 *  semidefinite, a maximised one's negative semidefinite, a <= row's
 *  positive and a >= row's negative semidefinite, a row with two finite
 *  bounds linear; rows of cone form (sum of squares <= t^2, or <= t*u, with
 *  t, u >= 0) count as convex.  Each coupled block of terms is checked by
 *  its eigenvalues, allowing 1e-5 of the largest below 0; a block of more
 *  than 4000 columns passes when diagonally dominant and is otherwise
 *  refused as too large to check (KLO_ERROR_NOT_SUPPORTED).  A quadratic
 *  objective over linear rows is solved by Clp's barrier (with presolve);
 *  an answer failing the check falls back to Clp's primal QP method at
 *  tolerances 100 times tighter, then to Ipopt, and the first that passes
 *  is kept (each step logged).  Quadratic rows go to Ipopt (an
 *  interior-point method; "IPM/..." parameters, "MaxTime"), whose answers
 *  are checked in the same way, duals of quadratic rows included (the
 *  gradient of a row's terms enters its reduced costs).  Quadratic models
 *  give "X", "Activity", "DualSoln", "RC", "DualObjVal" (the Wolfe dual)
 *  and "IPM/NumIters" or "SPX/NumIters"; no basis and no rays.  Models
 *  with integer variables and quadratic parts go to Bonmin (branch and
 *  bound over Ipopt's relaxations): "X", "Activity", "DualObjVal" (the
 *  bound), "MIP/GapAbs", "MIP/GapRel", its incumbents as the pool; it
 *  honours "MaxTime", "MIP/MaxNodes", "MIP/MaxSols", "MIP/GapAbs",
 *  "MIP/GapRel", "MIP/Cutoff", "MIP/IntegerTolerance" and
 *  "MIP/SolutionPoolSize".  Its search raises KLO_CB_MIP (each node) and
 *  KLO_CB_MIPSOL (each incumbent), where KLOcbsolution proposes solutions
 *  and KLO_CB_STOP stops; it raises no KLO_CB_MIPNODE (so no cuts or
 *  branching from a callback, and no lazy constraints) and takes no SOS
 *  sets or MIP starts.
 *
 *  Semidefinite models.  A model with PSD variables and continuous
 *  variables, linear rows and PSD terms in rows and objective (no integers,
 *  no quadratic parts) is solved by CSDP, a primal-dual interior-point
 *  method, in the module libklo_csdp (loaded on the first such solve).
 *  The model is handed over in block form: each PSD variable a matrix
 *  block; each variable with a finite lower bound l as l + s (s >= 0, in
 *  one diagonal block of nonnegative scalars), with only an upper bound u
 *  as u - s, a free one as the difference of two, a finite upper bound
 *  beside a lower one by one more row; each inequality row with a slack
 *  scalar; a row without finite bounds is left out.  Results: "X", "PsdX",
 *  "ObjVal", "DualObjVal", "DualSoln" (with the PSD terms' dual slack
 *  matrices counted in the answer check), "RC", "Activity",
 *  "IPM/NumIters"; no basis, no rays.  Statuses: KLO_STATUS_OPTIMAL (after
 *  the check, which includes the smallest eigenvalue of each "PsdX" and of
 *  each dual slack matrix), KLO_STATUS_INFEASIBLE and
 *  KLO_STATUS_UNBOUNDED from the engine's certificates,
 *  KLO_STATUS_SUBOPTIMAL for its "partial success" (a solution short of
 *  full accuracy) or an answer that fails the check after a second run at
 *  100 times tighter tolerances, KLO_STATUS_ITERATION_LIMIT,
 *  KLO_STATUS_TIME_LIMIT, KLO_STATUS_INTERRUPTED, and KLO_STATUS_NUMERICAL
 *  for its numerical failures (and for a claimed success whose primal and
 *  dual objectives disagree, as on unbounded problems without an
 *  improving direction).  It honours "MaxTime", "IPM/MaxIterations",
 *  "IPM/PrimalTolerance", "IPM/DualTolerance" and "IPM/GapTolerance"
 *  (relative, 1e-8 by default), and raises KLO_CB_BARRIER each iteration
 *  with KLO_CBINFO_BARRIER_PRIMOBJ and KLO_CBINFO_BARRIER_DUALOBJ.
 *  Its progress goes to the log, one line per iteration; nothing reaches
 *  stdout, and no parameter file of the working directory is read.
 *
 *  Parameters honoured (LP: Clp; MIP: Cbc):
 *    "Method"                LP; the MIP's root relaxation uses Cbc's own choice
 *    "Presolve"              LP: Clp's presolve (skipped on a warm start);
 *                            MIP: 0 turns presolve and preprocessing off
 *    "MaxTime"               both, wall-clock seconds from the start of the call,
 *                            every pass and clean-up included (KLO_STATUS_TIME_LIMIT)
 *    "SPX/MaxIterations"     LP (KLO_STATUS_ITERATION_LIMIT)
 *    "SPX/PrimalTolerance", "SPX/DualTolerance"  both (the MIP's LPs too)
 *    "IPM/MaxIterations", "IPM/PrimalTolerance", "IPM/DualTolerance"  barrier
 *    "MIP/MaxNodes", "MIP/MaxSols", "MIP/GapAbs", "MIP/GapRel",
 *    "MIP/Cutoff", "MIP/IntegerTolerance", "MIP/SolutionPoolSize"  MIP
 *    "MIP/LevelCuts"         MIP: 0 off, 1 root only, -1 and 2 default, 3 every node
 *    "MIP/LevelHeurs"        MIP: 0 off, 1 rounding and pump, -1 and 2 default,
 *                            3 adds the neighbourhood searches
 *    "MIP/EnableLazyConstr"  MIP with a callback: cuts given at KLO_CB_MIPSOL are
 *                            lazy constraints
 *    "NumThreads"            MIP: more than 1 runs Cbc's threads, except with a
 *                            callback (which runs on one thread); LP: serial
 *    "OutputFlag", "LogToConsole", "LogFile"  where the engines' log goes:
 *                            messages, a MIP progress line each second (time,
 *                            nodes, incumbent, bound, gap) and a summary line
 *    "MIP/LinearizationBigM"  the switch of a semi-continuous or semi-integer
 *                            variable with an infinite bound; the largest M of
 *                            an indicator constraint
 *    "MIP/LevelProbing"      MIP: 0 off, 1 root only, -1 and 2 default, 3 every node
 *    "MIP/LevelStrong"       MIP: 0 pseudo-costs only, 1 five candidates, -1 and 2
 *                            default, 3 fifty candidates trusted after 20 branches
 *    "MIP/MaxStallingNodes"  MIP: stops (KLO_STATUS_NODE_LIMIT) after this many
 *                            nodes without a better incumbent; -1 no limit
 *    "MIP/ObjectiveTolerance"  MIP: a new incumbent must improve by this much
 *                            (Cbc keeps a larger step it derives from an
 *                            integral objective)
 *  Accepted and not used, each with its reason (setting one away from its
 *  default writes a line saying so to the log):
 *    "PostScaling", "NumericFocus", "IPM/NumericFocus": Clp scales once
 *      and has no numerical-care mode beyond its tolerances;
 *    "Dualization": Clp solves the model as given ("Method" picks dual
 *      simplex instead);
 *    "EnableNetworkFlow": Clp's network method needs a pure network matrix,
 *      which the library does not detect;
 *    "EnableStochasticLP": there is no engine for stochastic programs;
 *    "SPX/ColumnGeneration", "SPX/CrashStart", "SPX/PrimalPricing",
 *      "SPX/DualPricing": Clp's own pricing and starting basis are used;
 *    "IPM/GapTolerance" for LPs: Clp's barrier has a fixed gap rule (the
 *      quadratic and semidefinite engines use it);
 *    "PresolveTolerance": Clp's presolve tolerances are fixed;
 *    "MIP/LevelSubmip": Cbc's sub-MIP heuristics are the neighbourhood
 *      searches that "MIP/LevelHeurs" 3 turns on;
 *    "MIP/Heuristics", "MIP/NoRelHeurWork": Cbc has no effort budget for
 *      heuristics ("MIP/LevelHeurs" chooses which run);
 *    "MIP/RootParallelism", "MIP/AutoConfiguration", "MIP/Static",
 *      "MIP/Disconnected", "MIP/DetectDisconnectedComponents",
 *      "MIP/AllowDualPresolve": Cbc has no such modes;
 *    "SolutionTarget": LP solutions are always basic;
 *    the "PDHG/..." parameters: no first-order method yet.
 *  "MIP/SolutionNumber" and "ObjNumber" choose what attributes read.  The
 *  parameters of the model's own environment apply to every pass of a
 *  multi-objective solve.
 *
 *  Callbacks (KLOsetcallbackfunc) are called at KLO_CB_SIMPLEX (each
 *  simplex iteration, with KLO_CBINFO_SPX_OBJVAL), KLO_CB_BARRIER (each
 *  barrier iteration, with KLO_CBINFO_BARRIER_PRIMOBJ and, where the
 *  engine has it, KLO_CBINFO_BARRIER_DUALOBJ), KLO_CB_MIP (search
 *  progress), KLO_CB_MIPSOL (each new incumbent), KLO_CB_MIPNODE (node
 *  relaxations; the root and the nodes Cbc solves inside its own LP
 *  solver are not all seen) and KLO_CB_MESSAGE (each line the engines write
 *  to the log, KLO_CBINFO_MSG_STRING; raised whenever "OutputFlag" is 1,
 *  even with "LogToConsole" 0 and no "LogFile"; a stop asked there takes
 *  effect at the next of the other locations), KLO_CB_PRESOLVE (once
 *  per LP or MIP engine run, when its presolve is done, with
 *  KLO_CBINFO_PRE_COLDEL and KLO_CBINFO_PRE_ROWDEL; 0 and 0 when presolve
 *  is off or, for a MIP with a callback, not run) and KLO_CB_POLLING (from
 *  a thread of the library's own, every 0.05 s while the solve runs, with
 *  only the counts and KLO_CBINFO_RUNTIME to read).  Calls of the function
 *  never overlap, whichever thread makes them.  A stop asked anywhere
 *  (polling included) reaches the engine at its next callback location.
 *  With a callback the MIP runs without preprocessing, so that the
 *  callback sees the model's own columns.
 *  A C++ exception thrown by the callback function stops the solve as a
 *  stop would (status KLO_STATUS_INTERRUPTED, the best solution kept; the
 *  engines never see the exception); once the results are stored,
 *  KLOoptimize throws that same exception to its caller, with
 *  KLO_ERROR_CALLBACK_EXCEPTION and the exception's text recorded as the
 *  environment's last error.
 *  During the solve the model is busy: changing, freeing or solving it
 *  from its callback gives KLO_ERROR_BUSY.  A failed KLOoptimize leaves
 *  the model, and the results of an earlier solve, as they were. */
int KLOoptimize(KLOmodel* model);

/** Computes an irreducible infeasible subsystem of an infeasible model
 *  (see "IISVar" and "IISConstr"): bounds of rows and variables that cannot
 *  all hold, each of them needed for that.  Found by dropping the bounds
 *  one at a time (each drop a feasibility solve), starting from those an
 *  LP's infeasibility certificate uses.  Integrality, SOS sets, indicator
 *  constraints and semi-continuity are kept and are not members
 *  themselves; a binary variable's bounds are members only where they
 *  narrow [0, 1], and return to it when dropped; a semi-continuous
 *  variable's dropped bound is what an infinite one is (see KLOoptimize).
 *  A check of an integer program is settled first by cheap proofs (its LP
 *  relaxation infeasible; a row of integer terms whose range holds no
 *  multiple of their gcd, as 2x + 2y = 5), else by a search; one that
 *  cannot settle within 10000 nodes keeps its bound, and when "MaxTime"
 *  (for the whole computation) runs out the bounds not yet tried stay:
 *  the subsystem is then infeasible but not proven irreducible, and
 *  "IISMinimal" is 0 (1 otherwise).  A feasible model, or one
 *  that cannot be proven infeasible, gives KLO_ERROR_INVALID_ARGUMENT;
 *  features without an engine KLO_ERROR_NOT_SUPPORTED.  The model and
 *  its solution are not changed; no callback is called. */
int KLOcomputeIIS(KLOmodel* model);

/** Feasibility relaxation.  Finds the smallest violation of bounds and rows,
 *  weighted by the penalties (null arrays or penalties of KLO_INFINITY mean
 *  "may not be relaxed"), measured by relaxobjtype: 0 sum of weighted
 *  violations, 1 sum of weighted squared violations, 2 number of violated
 *  bounds and rows.  With minrelax non-zero the original objective is then
 *  optimised among the minimally relaxed points.  The model itself is not
 *  changed; the relaxed solution becomes its solution ("X", "Activity"
 *  of the model's own rows, "Status"; "ObjVal" is the violation measure, or
 *  with minrelax the model's objective), and *feasobjP (may be null)
 *  receives the minimal violation measure, KLO_INFINITY when no relaxed
 *  point was found ("Status" says why).
 *  relaxobjtype 1 needs a quadratic engine: KLO_ERROR_NOT_SUPPORTED.
 *  relaxobjtype 2 counts with one binary per relaxable bound, for
 *  violations up to "MIP/LinearizationBigM".  Negative or NaN penalties and
 *  other relaxobjtype values give KLO_ERROR_INVALID_ARGUMENT.  The
 *  relaxation keeps integrality, SOS sets, indicator constraints (in the
 *  form without big-M, which relaxed bounds would break) and
 *  semi-continuity: a semi-continuous variable's bounds are relaxed while
 *  it is away from 0, which it stays at while off; only objective 0 is used
 *  with minrelax; no callback is called; no basis is kept from it.
 *  A non-null lbpen or ubpen holds one entry per variable ("NumVars"), a
 *  non-null rhspen one per row ("NumConstrs"): the library cannot know an
 *  array's length and reads that many entries. */
int KLOfeasrelax(KLOmodel* model, int relaxobjtype, int minrelax, const double* lbpen,
                 const double* ubpen, const double* rhspen, double* feasobjP);

/** Discards results: clearall 0 the solution, basis and statistics;
 *  1 also the start values and bases set by the user. */
int KLOreset(KLOmodel* model, int clearall);

/** The model's own environment (null for a null model). */
KLOenv* KLOgetenv(KLOmodel* model);

/** The environment of objective num of a multi-objective model, a copy of
 *  the model's made on first use and freed with the model (null, with the
 *  error recorded in the model's environment, when num is not an
 *  objective). */
KLOenv* KLOgetmultiobjenv(KLOmodel* model, int num);

/** Frees the environments made by KLOgetmultiobjenv. */
int KLOdiscardmultiobjenvs(KLOmodel* model);

/** Registers the callback function and its user data (cb null: none). */
int KLOsetcallbackfunc(KLOmodel* model, KLOcallbackfn cb, void* usrdata);

/* ========================================================================
 * Variables
 * ======================================================================== */

/** Adds one variable with numnz entries (rows vind, values vval) in its
 *  column.  varname may be null (empty name). */
int KLOaddvar(KLOmodel* model, int numnz, const int* vind, const double* vval, double obj,
              double lb, double ub, char vtype, const char* varname);

/** Adds numvars variables.  Column k holds the entries vbeg[k] ..
 *  vbeg[k+1]-1 of vind/vval (vbeg, vind, vval null when numnz is 0).  obj,
 *  lb, ub, vtype and varnames may each be null (defaults as KLOnewmodel). */
int KLOaddvars(KLOmodel* model, int numvars, int numnz, const int* vbeg, const int* vind,
               const double* vval, const double* obj, const double* lb, const double* ub,
               const char* vtype, const char* const* varnames);

/** Deletes numdel variables (their terms go everywhere: rows, quadratic
 *  terms, SOS, indicators, objectives; an indicator constraint whose binary
 *  variable goes is deleted with it).  Repeated indices are allowed. */
int KLOdelvars(KLOmodel* model, int numdel, const int* ind);

/** Column entries of variables start .. start+len-1.  *numnzP receives the
 *  number of entries; with non-null arrays vbeg receives len offsets and
 *  vind/vval the rows and values (arrays may be null to ask the count). */
int KLOgetvars(KLOmodel* model, int* numnzP, int* vbeg, int* vind, double* vval, int start,
               int len);

/** Index of the variable named name into *indexP, or -1 when there is none
 *  (not an error). */
int KLOgetvarbyname(KLOmodel* model, const char* name, int* indexP);

/* ========================================================================
 * Rows (linear constraints)
 * ======================================================================== */

/** Adds numconstrs rows sense[k] rhs[k] over the entries cbeg[k] to
 *  cbeg[k+1]-1 of cind/cval.  sense, rhs and constrnames may be null
 *  (senses '<', right-hand sides 0, empty names). */
int KLOaddconstrs(KLOmodel* model, int numconstrs, int numnz, const int* cbeg, const int* cind,
                  const double* cval, const char* sense, const double* rhs,
                  const char* const* constrnames);

/** Adds the row lower <= sum cval[k] x[cind[k]] <= upper. */
int KLOaddrangeconstr(KLOmodel* model, int numnz, const int* cind, const double* cval, double lower,
                      double upper, const char* constrname);

/** Adds numconstrs rows lower[k] <= row k <= upper[k] (layout as
 *  KLOaddconstrs).  A null lower (upper) array leaves that side unbounded. */
int KLOaddrangeconstrs(KLOmodel* model, int numconstrs, int numnz, const int* cbeg, const int* cind,
                       const double* cval, const double* lower, const double* upper,
                       const char* const* constrnames);

/** Deletes numdel rows (of any kind: linear, quadratic, PSD). */
int KLOdelconstrs(KLOmodel* model, int numdel, const int* ind);

/** Linear entries of rows start .. start+len-1 (layout as KLOgetvars). */
int KLOgetconstrs(KLOmodel* model, int* numnzP, int* cbeg, int* cind, double* cval, int start,
                  int len);

/** Index of the row named name, or -1 when there is none (not an error). */
int KLOgetconstrbyname(KLOmodel* model, const char* name, int* indexP);

/** Sets the coefficient of variable var in row constr (0 removes it). */
int KLOsetconstrcoeff(KLOmodel* model, int constr, int var, double value);

/** Reads the coefficient of variable var in row constr (0 when absent). */
int KLOgetconstrcoeff(KLOmodel* model, int constr, int var, double* valueP);

/* ========================================================================
 * Quadratic rows and the quadratic objective.  Quadratic terms are
 * q * x[row] * x[col]; terms (i, j) and (j, i) add up.
 * ======================================================================== */

/** Adds a row  sum lval x[lind] + sum qval x[qrow] x[qcol]  sense  rhs. */
int KLOaddqconstr(KLOmodel* model, int numlnz, const int* lind, const double* lval, int numqnz,
                  const int* qrow, const int* qcol, const double* qval, char sense, double rhs,
                  const char* constrname);

/** Linear and quadratic entries of row constr.  Counts go to *numlnzP and
 *  *numqnzP; arrays may be null to ask the counts. */
int KLOgetqconstr(KLOmodel* model, int constr, int* numlnzP, int* lind, double* lval, int* numqnzP,
                  int* qrow, int* qcol, double* qval);

/** Adds terms to the quadratic objective (the objective is c'x + sum of
 *  q x[row] x[col], no factor 1/2). */
int KLOaddqpterms(KLOmodel* model, int numqnz, const int* qrow, const int* qcol,
                  const double* qval);

/** The quadratic objective terms (arrays may be null to ask the count). */
int KLOgetq(KLOmodel* model, int* numqnzP, int* qrow, int* qcol, double* qval);

/** Removes every quadratic objective term. */
int KLOdelq(KLOmodel* model);

/* ========================================================================
 * Positive-semidefinite variables and rows
 * ======================================================================== */

/** Adds a dim x dim symmetric positive-semidefinite matrix variable. */
int KLOaddpsdvar(KLOmodel* model, int dim, const char* name);

/** Deletes numdel PSD variables (their terms go from every row and the
 *  objective). */
int KLOdelpsdvars(KLOmodel* model, int numdel, const int* ind);

/** Adds the row  lower <= sum cval x[cind] + sum_k <M_k, X[psdvar[k]]> <= upper.
 *  Matrix k (dimension of its PSD variable) holds the entries mbeg[k] ..
 *  mbeg[k+1]-1 of mind (flattened positions) and mval.  mbeg has numpsd + 1
 *  entries: mbeg[numpsd] is the total number of matrix entries. */
int KLOaddrangepsdconstr(KLOmodel* model, int numnz, const int* cind, const double* cval,
                         int numpsd, const int* psdvar, const int* mbeg, const int* mind,
                         const double* mval, double lower, double upper, const char* constrname);

/* ========================================================================
 * SOS and general constraints
 * ======================================================================== */

/** Adds numsos SOS sets of types[k] (KLO_SOS_TYPE1 or 2) with members
 *  ind[beg[k]] .. and their weights (which order the members).  Members and
 *  weights of one set must be distinct; null weights give 1, 2, ... */
int KLOaddsos(KLOmodel* model, int numsos, int nummembers, const int* types, const int* beg,
              const int* ind, const double* weight);

/** Deletes numdel SOS sets. */
int KLOdelsos(KLOmodel* model, int numdel, const int* ind);

/** SOS sets start .. start+len-1: types, begin offsets, members, weights
 *  (arrays may be null to ask the member count). */
int KLOgetsos(KLOmodel* model, int* nummembersP, int* types, int* beg, int* ind, double* weight,
              int start, int len);

/** Adds the indicator constraint  x[binvar] = binval  implies
 *  sum val x[ind]  sense  rhs.  binval is 0 or 1; binvar must be binary
 *  (KLO_ERROR_INVALID_ARGUMENT otherwise).  How it is solved: see
 *  KLOoptimize. */
int KLOaddgenconstrIndicator(KLOmodel* model, const char* name, int binvar, int binval, int nvars,
                             const int* ind, const double* val, char sense, double rhs);

/** Reads indicator constraint genconstr (arrays may be null to ask *nvarsP). */
int KLOgetgenconstrIndicator(KLOmodel* model, int genconstr, int* binvarP, int* binvalP,
                             int* nvarsP, int* ind, double* val, char* senseP, double* rhsP);

/** Deletes numdel general constraints. */
int KLOdelgenconstrs(KLOmodel* model, int numdel, const int* ind);

/* ========================================================================
 * Multiple objectives
 * ======================================================================== */

/** The most objectives a model may have: KLOsetobjectiven refuses an index
 *  of KLO_MAX_OBJECTIVES or more (KLO_ERROR_INVALID_OBJECTIVE) rather than
 *  allocating every objective up to it. */
#define KLO_MAX_OBJECTIVES 1000

/** Sets objective index (creating it, and the ones before it, when new) of
 *  a multi-objective model: constant + sum lval x[lind], with its priority,
 *  weight, tolerances and name.  Objectives are optimised in falling
 *  priority; equal priorities are blended by weight.  index is below
 *  KLO_MAX_OBJECTIVES. */
int KLOsetobjectiven(KLOmodel* model, int index, int priority, double weight, double abstol,
                     double reltol, const char* name, double constant, int lnz, const int* lind,
                     const double* lval);

/* ========================================================================
 * Attributes (see the list above)
 * ======================================================================== */

/* Whole-model attributes.  A name of the other level gives
 * KLO_ERROR_ATTRIBUTE_LEVEL, of another type KLO_ERROR_ATTRIBUTE_TYPE, a
 * read-only one given to a set function KLO_ERROR_ATTRIBUTE_READONLY. */

/** Reads a whole-model int attribute into *valueP. */
int KLOgetintattr(KLOmodel* model, const char* attrname, int* valueP);
/** Sets a whole-model int attribute. */
int KLOsetintattr(KLOmodel* model, const char* attrname, int newvalue);
/** Reads a whole-model double attribute into *valueP. */
int KLOgetdblattr(KLOmodel* model, const char* attrname, double* valueP);
/** Sets a whole-model double attribute. */
int KLOsetdblattr(KLOmodel* model, const char* attrname, double newvalue);
/** Reads a whole-model string attribute: *valueP receives a pointer to the
 *  library's text. */
int KLOgetstrattr(KLOmodel* model, const char* attrname, const char** valueP);
/** Sets a whole-model string attribute. */
int KLOsetstrattr(KLOmodel* model, const char* attrname, const char* newvalue);

/* Element attributes: element is the index within the attribute's kind
 * (variable, row, PSD variable, general constraint); an index out of range
 * gives that kind's KLO_ERROR_INVALID_... code. */

/** Reads an int attribute of one element. */
int KLOgetintattrelement(KLOmodel* model, const char* attrname, int element, int* valueP);
/** Sets an int attribute of one element. */
int KLOsetintattrelement(KLOmodel* model, const char* attrname, int element, int newvalue);
/** Reads a double attribute of one element. */
int KLOgetdblattrelement(KLOmodel* model, const char* attrname, int element, double* valueP);
/** Sets a double attribute of one element. */
int KLOsetdblattrelement(KLOmodel* model, const char* attrname, int element, double newvalue);
/** Reads a char attribute ("VType") of one element. */
int KLOgetcharattrelement(KLOmodel* model, const char* attrname, int element, char* valueP);
/** Sets a char attribute ("VType") of one element. */
int KLOsetcharattrelement(KLOmodel* model, const char* attrname, int element, char newvalue);
/** Reads a string attribute of one element: *valueP receives a pointer to
 *  the library's text. */
int KLOgetstrattrelement(KLOmodel* model, const char* attrname, int element, const char** valueP);
/** Sets a string attribute of one element. */
int KLOsetstrattrelement(KLOmodel* model, const char* attrname, int element, const char* newvalue);

/* Array forms: elements start .. start+len-1 of an element attribute, in
 * one call.  A failed set changes no element. */

/** Reads an int element attribute of len elements into values. */
int KLOgetintattrarray(KLOmodel* model, const char* attrname, int start, int len, int* values);
/** Sets an int element attribute of len elements from values. */
int KLOsetintattrarray(KLOmodel* model, const char* attrname, int start, int len,
                       const int* values);
/** Reads a double element attribute of len elements into values. */
int KLOgetdblattrarray(KLOmodel* model, const char* attrname, int start, int len, double* values);
/** Sets a double element attribute of len elements from values. */
int KLOsetdblattrarray(KLOmodel* model, const char* attrname, int start, int len,
                       const double* values);
/** Reads a char element attribute of len elements into values. */
int KLOgetcharattrarray(KLOmodel* model, const char* attrname, int start, int len, char* values);
/** Sets a char element attribute of len elements from values. */
int KLOsetcharattrarray(KLOmodel* model, const char* attrname, int start, int len,
                        const char* values);

/** Matrix attribute of a PSD variable.  *nnzP, *nrowsP and *ncolsP receive
 *  the shape; with non-null ind and val the flattened positions and values
 *  are copied too (call first with nulls to size the arrays). */
int KLOgetmatattrelement(KLOmodel* model, const char* attrname, int element, int* nnzP, int* nrowsP,
                         int* ncolsP, int* ind, double* val);
/** Sets a matrix attribute from nnz entries (positions ind, values val). */
int KLOsetmatattrelement(KLOmodel* model, const char* attrname, int element, int nnz, int nrows,
                         int ncols, const int* ind, const double* val);

/* ========================================================================
 * Inside a running callback (cbdata as passed to the callback function)
 *
 * cbdata is valid only while the callback that received it runs: null
 * gives KLO_ERROR_NULL_ARGUMENT, a cbdata kept past its callback (or
 * passed from another thread) KLO_ERROR_NOT_IN_CALLBACK.  A request that
 * does not belong to the callback's location gives
 * KLO_ERROR_CALLBACK_WHERE, an unknown information code
 * KLO_ERROR_CALLBACK_INFO.  The "...p" (index) variants behave as the
 * others: both address the model's own columns.
 * ======================================================================== */

/** Reads information code what (KLO_CBINFO_...) into *resultP: an int, a
 *  double, or a pointer to an array, as the code says. */
int KLOcbget(void* cbdata, int where, int what, void* resultP);

/** Proposes a solution (one value per variable; KLO_UNDEFINED, NaN or any
 *  other value of magnitude KLO_INFINITY or more marks a value to be
 *  completed by the library).  *objP receives its objective when it
 *  was accepted.  Positive results are refusals (KLO_CB_...). */
int KLOcbsolution(void* cbdata, const double* solution, double* objP);
/** The same, for the index-based callback. */
int KLOcbsolutionp(void* cbdata, const double* solution, double* objP);

/** Adds the cut  sum cutval x[cutind]  cutsense  cutrhs  at KLO_CB_MIPNODE,
 *  or a lazy constraint at KLO_CB_MIPSOL when "MIP/EnableLazyConstr" is 1
 *  (without it the result there is KLO_CB_IGNORED and the search goes on);
 *  elsewhere KLO_ERROR_CALLBACK_WHERE. */
int KLOcbcut(void* cbdata, int cutlen, const int* cutind, const double* cutval, char cutsense,
             double cutrhs);
/** The same, for the index-based callback. */
int KLOcbcutp(void* cbdata, int cutlen, const int* cutind, const double* cutval, char cutsense,
              double cutrhs);

/** Asks to branch on variable index at value: dir < 0 explores the down
 *  branch (x <= floor(value)) first, dir > 0 the up branch, 0 lets the
 *  library choose. */
int KLOcbbranch(void* cbdata, int index, double value, int dir);
/** The same, for the index-based callback. */
int KLOcbbranchp(void* cbdata, int index, double value, int dir);

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#ifdef __cplusplus
}
#endif

#endif /* KLO_C_H */
