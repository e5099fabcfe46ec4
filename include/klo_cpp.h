/// @file klo_cpp.h
/// The object layer of the klo optimisation library.
///
/// An application makes a KLOEnv, builds a KLOModel on it from variables,
/// expressions and constraints, optimises it and reads the results through
/// typed attributes.  Every object here is a thin owner of a solver-library
/// handle (klo_c.h) or a value; the solver library does all numerical work.
///
/// Errors: every failure is a KLOException carrying the solver library's
/// status code and its explanation text.  The codes raised by this layer
/// itself are:
///   -100000  the environment's model has been destroyed ("Environment
///            associated model has been released.")
///   -2003    a removed (or unknown) variable or PSD variable, or a term
///            index outside an expression
///   -2002    a removed (or unknown) constraint of any kind
///   -2       the library could not copy a model
///   -3       an invalid argument: a column term index outside the column,
///            a quadratic comparison given to addConstr ("For quadratic
///            constraint using KLOModel::addQConstr.") or to
///            addGenConstrIndicator
///   -5001    a callback asked for an information code it cannot read that
///            way
/// Except for the released-environment error and the two quadratic
/// refusals, the texts of these come from the library (KLOexplainerror).
/// An operation on an empty, default-constructed handle raises the handle's
/// removed-element code with a message saying that the handle is empty.
///
/// Threads: nothing is locked.  One model, and every expression that shares
/// term storage with another, is used from one thread at a time.
#ifndef KLO_CPP_H
#define KLO_CPP_H

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class KLOEnv;
class KLOModel;
class KLOMatrix;
class KLOLinExpr;
class KLOColumn;
class KLOCallback;

namespace klo_detail {
struct Access;  // the object layer's own access to handles and models
}

// ===========================================================================
// Errors
// ===========================================================================

/// The one exception type of the object layer: a message and the status
/// code of the failure (a solver-library code, or one of the codes listed at
/// the top of this header).
class KLOException {
 public:
  /// An exception with an empty message.
  explicit KLOException(int code);
  /// An exception with the given message and code.
  KLOException(std::string message, int code);

  /// A copy of the message.
  std::string getMessage() const;
  /// The status code.
  int getErrorCode() const;

 private:
  std::string message_;
  std::int32_t code_;
};

// ===========================================================================
// Attribute and parameter names
//
// Each enumerator's value is its row in the name table beside it; the typed
// get and set operations pass that row's text to the solver library.  The
// meaning, type and level of every attribute and parameter is documented in
// klo_c.h under its name.  Near-duplicate names (NumConss and NumConstrs,
// ObjConst and ObjCon, ...) are separate rows that the library treats as
// synonyms.
// ===========================================================================

/// Integer attributes (names in INT_ATTRNAMES).
enum KLO_IntAttr {
  KLO_IntAttr_MinSense = 0,
  KLO_IntAttr_ModelSense = 1,
  KLO_IntAttr_HasSolution = 2,
  KLO_IntAttr_HasPrimalRay = 3,
  KLO_IntAttr_HasDualRay = 4,
  KLO_IntAttr_NumVars = 5,
  KLO_IntAttr_NumConss = 6,
  KLO_IntAttr_NumConstrs = 7,
  KLO_IntAttr_NumQConstrs = 8,
  KLO_IntAttr_NumSOS = 9,
  KLO_IntAttr_NumGenConstrs = 10,
  KLO_IntAttr_NumEnts = 11,
  KLO_IntAttr_NumNZs = 12,
  KLO_IntAttr_SPX_NumIters = 13,
  KLO_IntAttr_IPM_NumIters = 14,
  KLO_IntAttr_IsInteger = 15,
  KLO_IntAttr_IISVar = 16,
  KLO_IntAttr_IISConstr = 17,
  KLO_IntAttr_IISCol = 18,
  KLO_IntAttr_IISRow = 19,
  KLO_IntAttr_ColBasis = 20,
  KLO_IntAttr_RowBasis = 21,
  KLO_IntAttr_GenConstrType = 22,
  KLO_IntAttr_Status = 23,
  KLO_IntAttr_Dim = 24,
  KLO_IntAttr_NumPsdVars = 25,
  KLO_IntAttr_NumPsdConstrs = 26,
  KLO_IntAttr_SolCount = 27,
  KLO_IntAttr_NumObj = 28,
  KLO_IntAttr_ObjNPriority = 29,
  KLO_IntAttr_NumContVars = 30,
  KLO_IntAttr_NumIntVars = 31,
  KLO_IntAttr_NumBinVars = 32
};

/// Double attributes (names in DBL_ATTRNAMES).
enum KLO_DoubleAttr {
  KLO_DoubleAttr_ObjConst = 0,
  KLO_DoubleAttr_ObjCon = 1,
  KLO_DoubleAttr_PrimalObjVal = 2,
  KLO_DoubleAttr_ObjVal = 3,
  KLO_DoubleAttr_PoolNObjVal = 4,
  KLO_DoubleAttr_DualObjVal = 5,
  KLO_DoubleAttr_PresolverTime = 6,
  KLO_DoubleAttr_SolverTime = 7,
  KLO_DoubleAttr_SolutionTime = 8,
  KLO_DoubleAttr_MIP_GapAbs = 9,
  KLO_DoubleAttr_MIP_GapRel = 10,
  KLO_DoubleAttr_LB = 11,
  KLO_DoubleAttr_UB = 12,
  KLO_DoubleAttr_Obj = 13,
  KLO_DoubleAttr_LHS = 14,
  KLO_DoubleAttr_RHS = 15,
  KLO_DoubleAttr_QCLHS = 16,
  KLO_DoubleAttr_QCRHS = 17,
  KLO_DoubleAttr_PrimalSoln = 18,
  KLO_DoubleAttr_X = 19,
  KLO_DoubleAttr_PoolNX = 20,
  KLO_DoubleAttr_Xn = 21,
  KLO_DoubleAttr_Start = 22,
  KLO_DoubleAttr_DualSoln = 23,
  KLO_DoubleAttr_Activity = 24,
  KLO_DoubleAttr_ReducedCost = 25,
  KLO_DoubleAttr_RC = 26,
  KLO_DoubleAttr_PsdCLHS = 27,
  KLO_DoubleAttr_PsdCRHS = 28,
  KLO_DoubleAttr_ObjN = 29,
  KLO_DoubleAttr_ObjNCon = 30,
  KLO_DoubleAttr_ObjNVal = 31,
  KLO_DoubleAttr_ObjNWeight = 32,
  KLO_DoubleAttr_ObjNRelTol = 33,
  KLO_DoubleAttr_ObjNAbsTol = 34
};

/// String attributes (names in STR_ATTRNAMES).
enum KLO_StringAttr {
  KLO_StringAttr_ProbName = 0,
  KLO_StringAttr_ModelName = 1,
  KLO_StringAttr_RowName = 2,
  KLO_StringAttr_ConstrName = 3,
  KLO_StringAttr_QCName = 4,
  KLO_StringAttr_ColName = 5,
  KLO_StringAttr_VarName = 6,
  KLO_StringAttr_PsdVarName = 7,
  KLO_StringAttr_PsdCName = 8,
  KLO_StringAttr_GenConstrName = 9
};

/// Matrix attributes of PSD variables (names in MAT_ATTRNAMES).
enum KLO_MatAttr { KLO_MatAttr_PsdX = 0, KLO_MatAttr_PsdObj = 1 };

/// The char attribute: always the library's "VType", whatever the value.
enum KLO_CharAttr { KLO_CharAttr_VType = 0 };

/// Integer parameters (names in INT_PARNAMES).
enum KLO_IntParam {
  KLO_IntParam_Method = 0,
  KLO_IntParam_PostScaling = 1,
  KLO_IntParam_Presolve = 2,
  KLO_IntParam_Dualization = 3,
  KLO_IntParam_OutputFlag = 4,
  KLO_IntParam_LogToConsole = 5,
  KLO_IntParam_NumThreads = 6,
  KLO_IntParam_EnableNetworkFlow = 7,
  KLO_IntParam_EnableStochasticLP = 8,
  KLO_IntParam_NumericFocus = 9,
  KLO_IntParam_SPX_ColumnGeneration = 10,
  KLO_IntParam_SPX_CrashStart = 11,
  KLO_IntParam_SPX_MaxIterations = 12,
  KLO_IntParam_SPX_PrimalPricing = 13,
  KLO_IntParam_SPX_DualPricing = 14,
  KLO_IntParam_IPM_MaxIterations = 15,
  KLO_IntParam_IPM_NumericFocus = 16,
  KLO_IntParam_MIP_LevelCuts = 17,
  KLO_IntParam_MIP_LevelHeurs = 18,
  KLO_IntParam_MIP_LevelProbing = 19,
  KLO_IntParam_MIP_LevelStrong = 20,
  KLO_IntParam_MIP_LevelSubmip = 21,
  KLO_IntParam_MIP_MaxNodes = 22,
  KLO_IntParam_MIP_RootParallelism = 23,
  KLO_IntParam_MIP_AutoConfiguration = 24,
  KLO_IntParam_MIP_MaxSols = 25,
  KLO_IntParam_MIP_AllowDualPresolve = 26,
  KLO_IntParam_MIP_EnableLazyConstr = 27,
  KLO_IntParam_MIP_Disconnected = 28,
  KLO_IntParam_MIP_DetectDisconnectedComponents = 29,
  KLO_IntParam_MIP_SolutionPoolSize = 30,
  KLO_IntParam_MIP_MaxStallingNodes = 31,
  KLO_IntParam_MIP_SolutionNumber = 32,
  KLO_IntParam_MIP_Static = 33,
  KLO_IntParam_PDHG_ComputePreference = 34,
  KLO_IntParam_PDHG_Device = 35,
  KLO_IntParam_PDHG_MaxIterations = 36,
  KLO_IntParam_SolutionTarget = 37,
  KLO_IntParam_ObjNumber = 38
};

/// Double parameters (names in DBL_PARNAMES).
enum KLO_DoubleParam {
  KLO_DoubleParam_MaxTime = 0,
  KLO_DoubleParam_PresolveTolerance = 1,
  KLO_DoubleParam_SPX_PrimalTolerance = 2,
  KLO_DoubleParam_SPX_DualTolerance = 3,
  KLO_DoubleParam_IPM_PrimalTolerance = 4,
  KLO_DoubleParam_IPM_DualTolerance = 5,
  KLO_DoubleParam_IPM_GapTolerance = 6,
  KLO_DoubleParam_MIP_IntegerTolerance = 7,
  KLO_DoubleParam_MIP_ObjectiveTolerance = 8,
  KLO_DoubleParam_MIP_GapAbs = 9,
  KLO_DoubleParam_MIP_GapRel = 10,
  KLO_DoubleParam_MIP_LinearizationBigM = 11,
  KLO_DoubleParam_MIP_Cutoff = 12,
  KLO_DoubleParam_MIP_Heuristics = 13,
  KLO_DoubleParam_MIP_NoRelHeurWork = 14,
  KLO_DoubleParam_PDHG_DualTolerance = 15,
  KLO_DoubleParam_PDHG_GapTolerance = 16,
  KLO_DoubleParam_PDHG_PrimalTolerance = 17
};

/// The string parameter: always the library's "LogFile", whatever the value.
enum KLO_StringParam { KLO_StringParam_LogFile = 0 };

/// Library names of the integer attributes, indexed by KLO_IntAttr.
extern const char* const INT_ATTRNAMES[33];
/// Library names of the double attributes, indexed by KLO_DoubleAttr.
extern const char* const DBL_ATTRNAMES[35];
/// Library names of the string attributes, indexed by KLO_StringAttr.
extern const char* const STR_ATTRNAMES[10];
/// Library names of the matrix attributes, indexed by KLO_MatAttr.
extern const char* const MAT_ATTRNAMES[2];
/// Library names of the integer parameters, indexed by KLO_IntParam.
extern const char* const INT_PARNAMES[39];
/// Library names of the double parameters, indexed by KLO_DoubleParam.
extern const char* const DBL_PARNAMES[18];

// ===========================================================================
// Sparse matrices
// ===========================================================================

/// Entry storage shared by KLOMatrix values: nnz flattened row-major
/// positions (row * cols + col) and their values.  Either array may belong
/// to the caller (borrowed), in which case it is never freed and must
/// outlive every matrix sharing the storage.
struct KLOSparseStorage {
  /// Bit 0: the index array is borrowed; bit 1: the value array is.
  enum Kind : std::uint8_t { OwnsBoth = 0, BorrowsIndices = 1, BorrowsValues = 2, BorrowsBoth = 3 };

  /// Allocates both arrays (contents undefined).
  explicit KLOSparseStorage(int nnz);
  /// Borrows indices, allocates the values.
  KLOSparseStorage(int nnz, int* indices);
  /// Borrows values, allocates the indices.
  KLOSparseStorage(int nnz, double* values);
  /// Borrows both arrays.
  KLOSparseStorage(int nnz, int* indices, double* values);
  /// Frees the owned arrays.
  ~KLOSparseStorage();
  KLOSparseStorage(const KLOSparseStorage&) = delete;
  KLOSparseStorage& operator=(const KLOSparseStorage&) = delete;

  std::uint8_t kind;  ///< the Kind: which arrays are borrowed
  int nnz;            ///< number of entries
  int* indices;       ///< positions, row * cols + col
  double* values;     ///< values, parallel to indices
};

/// A sparse matrix value: dimensions plus shared entry storage.  Copies
/// share the storage (writes through indices() or data() show in every
/// copy); copy() and the arithmetic make new storage.  Nothing is
/// validated: positions may be unsorted, repeated or out of range.
class KLOMatrix {
 public:
  /// 0 x 0, no entries.
  KLOMatrix();
  /// rows x cols with room for nnz entries, to be filled through
  /// indices() and data().
  KLOMatrix(int rows, int cols, int nnz);
  /// Over the caller's positions; the values are allocated, unfilled.
  KLOMatrix(int rows, int cols, int nnz, int* indices);
  /// Over the caller's values; the positions are allocated, unfilled.
  KLOMatrix(int rows, int cols, int nnz, double* values);
  /// Over the caller's positions and values.
  KLOMatrix(int rows, int cols, int nnz, int* indices, double* values);

  /// Number of stored entries.
  int nonzeros() const;
  /// The stored positions (row * cols + col).
  int* indices() const;
  /// The stored values, parallel to indices().
  double* data() const;
  /// Number of rows.
  int rows() const;
  /// Number of columns.
  int cols() const;

  /// A deep copy owning its arrays, entries in their current order.
  KLOMatrix copy() const;
  /// Entry-wise sum; both operands are sorted in place first.  Zero sums
  /// stay as explicit entries; dimensions are taken from this matrix and
  /// not compared.
  KLOMatrix operator+(const KLOMatrix& other) const;
  /// Entry-wise difference, as operator+.
  KLOMatrix operator-(const KLOMatrix& other) const;
  /// Every value times d (zeros kept).
  KLOMatrix operator*(double d) const;
  /// Every value divided by d.
  KLOMatrix operator/(double d) const;

  /// Wraps flattened positions and values as they are.
  static KLOMatrix coo(int rows, int cols, int nnz, int* indices, double* values);
  /// Keeps the values; position k = rowIdx[k] * cols + colIdx[k].
  static KLOMatrix coo(int rows, int cols, int nnz, int* rowIdx, int* colIdx, double* values);
  /// Compressed rows: rowStart has one element per row (the last row runs
  /// to nnz); keeps the values.
  static KLOMatrix csr(int rows, int cols, int nnz, int* rowStart, int* colIdx, double* values);
  /// Compressed columns: colStart has one element per column; the group
  /// of column rows-1 runs to nnz; keeps the values.
  static KLOMatrix csc(int rows, int cols, int nnz, int* colStart, int* rowIdx, double* values);
  /// All rows * cols values of the caller's row-major array (kept).
  static KLOMatrix dense(int rows, int cols, double* values);
  /// All rows * cols values copied from the list; throws
  /// std::out_of_range "data array expects more elements" when it is short.
  static KLOMatrix dense(int rows, int cols, std::initializer_list<double> values);
  /// Entry k at (rowIdx[k], colIdx[k]) with values[k]; throws
  /// std::out_of_range when a row or column list is shorter than values.
  static KLOMatrix sparse(int rows, int cols, std::initializer_list<int> rowIdx,
                          std::initializer_list<int> colIdx, std::initializer_list<double> values);
  /// No entries.
  static KLOMatrix zero(int rows, int cols);
  /// Every position stored with 1.0.
  static KLOMatrix ones(int rows, int cols);
  /// Every position stored with value; no entries when value == 0.0.
  static KLOMatrix full(int rows, int cols, double value);
  /// n x n identity.
  static KLOMatrix identity(int n);

 private:
  int rows_;
  int cols_;
  std::shared_ptr<KLOSparseStorage> storage_;
};

/// m * d.
KLOMatrix operator*(double d, KLOMatrix m);
/// Puts the stored entries in ascending position order (then value), in
/// place: every matrix sharing the storage, and borrowed caller arrays, see
/// the new order.  Already ordered entries are left untouched.
void sort(const KLOMatrix& m);
/// Writes "KLOMatrix(rows, cols)" and the entries: a dense grid when every
/// position is stored, else "(row, col) = value" lines; large matrices are
/// abbreviated with "...".
std::ostream& operator<<(std::ostream& os, KLOMatrix m);
/// Characters that x takes with default stream formatting.
int length(double x);
/// Characters that x takes with default stream formatting.
int length(int x);

// ===========================================================================
// Environment
// ===========================================================================

/// A solver-library environment: parameters and log.  Models are made from
/// it.  An environment obtained from KLOModel::getEnv() views the model's
/// own environment, does not own it, and refuses every operation once the
/// model is destroyed (code -100000).
class KLOEnv {
 public:
  /// Creates an environment: started at once, or, with empty true, left
  /// unstarted so that parameters can be set before start().
  explicit KLOEnv(bool empty = false);
  /// Creates and starts an environment logging to logFile.
  explicit KLOEnv(const char* logFile);
  /// Creates and starts an environment logging to logFile.
  explicit KLOEnv(const std::string& logFile);
  /// Views an existing library environment (not owned) whose validity is
  /// tied to the released flag.
  KLOEnv(void* libraryEnvironment, std::shared_ptr<bool> released);
  /// Takes over other's library environment and its ownership.  There is
  /// no copy constructor: two owners would free one library environment
  /// twice.
  KLOEnv(KLOEnv&& other) noexcept;
  /// Copies only the library environment pointer: this object keeps its
  /// own ownership duty and released flag.
  KLOEnv& operator=(const KLOEnv& other);
  /// Frees the library environment if this object created it.
  ~KLOEnv();

  /// Starts an environment made with KLOEnv(true).
  void start();
  /// Writes text to the library's log (failures are ignored).
  void message(const std::string& text);

  /// @{
  /// Reads and writes parameters by enumerator; the library refuses
  /// values out of range (klo_c.h lists each parameter's range).
  int get(KLO_IntParam param) const;
  double get(KLO_DoubleParam param) const;
  std::string get(KLO_StringParam param) const;
  void set(KLO_IntParam param, int value);
  void set(KLO_DoubleParam param, double value);
  void set(KLO_StringParam param, const std::string& value);
  /// @}
  /// Sets a parameter given by name from text: tried as an integer, then
  /// as a double, then as a string; only the string attempt's failure is
  /// reported.  So "3.7" given to an integer parameter sets 3.
  void set(const std::string& name, const std::string& value);

  /// @{
  /// Current value, minimum, maximum and default of a parameter.
  void getParamInfo(KLO_IntParam param, int* value, int* min, int* max, int* def) const;
  void getParamInfo(KLO_DoubleParam param, double* value, double* min, double* max,
                    double* def) const;
  /// @}
  /// Current value and default of the string parameter.
  void getParamInfo(KLO_StringParam param, std::string& value, std::string& def) const;

  /// Every parameter back to its default (failures are ignored).
  void resetParams();
  /// Writes the parameters to a parameter file (KLOwriteparams).
  void writeParams(const std::string& file);
  /// Reads a parameter file into this environment (KLOreadparams).
  void readParams(const std::string& file);
  /// The library's text of this environment's last error.
  std::string getErrorMsg() const;

 private:
  friend class KLOModel;
  void* env_;
  bool owned_;
  std::shared_ptr<bool> released_;

  void* live() const;
};

// ===========================================================================
// Handles of model elements
//
// A handle names one element of a model.  All copies of a handle share one
// identity record holding the library model and the element's index; the
// model renumbers the record when earlier elements are removed and marks a
// removed element with the complement of its last index (index 5 becomes
// -6).  Attribute access on a removed element raises -2003 (variables, PSD
// variables) or -2002 (constraints).  Handles do not outlive their model's
// library model: use after the model is destroyed is undefined.
// ===========================================================================

/// Identity record of a variable.
struct KLOVarID {
  void* model;         ///< the library model (KLOmodel) of the element
  std::int32_t index;  ///< its current index; negative once removed
};
/// Identity record of a linear constraint.
struct KLOConstrID {
  void* model;         ///< the library model (KLOmodel) of the element
  std::int32_t index;  ///< its current index; negative once removed
};
/// Identity record of a quadratic constraint.
struct KLOQConstrID {
  void* model;         ///< the library model (KLOmodel) of the element
  std::int32_t index;  ///< its current index; negative once removed
};
/// Identity record of a PSD variable.
struct KLOPsdVarID {
  void* model;         ///< the library model (KLOmodel) of the element
  std::int32_t index;  ///< its current index; negative once removed
};
/// Identity record of a PSD constraint.
struct KLOPsdConstrID {
  void* model;         ///< the library model (KLOmodel) of the element
  std::int32_t index;  ///< its current index; negative once removed
};
/// Identity record of a general constraint.
struct KLOGenConstrID {
  void* model;         ///< the library model (KLOmodel) of the element
  std::int32_t index;  ///< its current index; negative once removed
};
/// Identity record of an SOS constraint.
struct KLOSOSID {
  void* model;         ///< the library model (KLOmodel) of the element
  std::int32_t index;  ///< its current index; negative once removed
};

/// A variable.  Attributes: int, char ("VType"), double, string.
class KLOVar {
 public:
  /// An empty handle; every operation on it throws.
  KLOVar() = default;
  /// The current index (negative once removed).
  int index() const;
  /// True when both handles share one identity record.
  bool sameAs(KLOVar other) const;
  /// Reads (get) or writes (set) an attribute of this element; the
  /// enumerator gives the library name.  An empty or removed handle throws.
  /// @{
  int get(KLO_IntAttr attr) const;
  char get(KLO_CharAttr attr) const;
  double get(KLO_DoubleAttr attr) const;
  std::string get(KLO_StringAttr attr) const;
  void set(KLO_IntAttr attr, int value) const;
  void set(KLO_CharAttr attr, char value) const;
  void set(KLO_DoubleAttr attr, double value) const;
  void set(KLO_StringAttr attr, const std::string& value) const;
  /// @}

 private:
  friend struct klo_detail::Access;
  std::shared_ptr<KLOVarID> id_;
};

/// A linear constraint (a row).  Attributes: int, char (named "VType" like
/// the variable's), double, string.
class KLOConstr {
 public:
  /// An empty handle; every operation on it throws.
  KLOConstr() = default;
  /// The current index (negative once removed).
  int index() const;
  /// True when both handles share one identity record.
  bool sameAs(KLOConstr other) const;
  /// Reads (get) or writes (set) an attribute of this element; the
  /// enumerator gives the library name.  An empty or removed handle throws.
  /// @{
  int get(KLO_IntAttr attr) const;
  char get(KLO_CharAttr attr) const;
  double get(KLO_DoubleAttr attr) const;
  std::string get(KLO_StringAttr attr) const;
  void set(KLO_IntAttr attr, int value) const;
  void set(KLO_CharAttr attr, char value) const;
  void set(KLO_DoubleAttr attr, double value) const;
  void set(KLO_StringAttr attr, const std::string& value) const;
  /// @}

 private:
  friend struct klo_detail::Access;
  std::shared_ptr<KLOConstrID> id_;
};

/// A quadratic constraint.  Attributes: double, string.
class KLOQConstr {
 public:
  /// An empty handle; every operation on it throws.
  KLOQConstr() = default;
  /// The current index (negative once removed).
  int index() const;
  /// True when both handles share one identity record.
  bool sameAs(KLOQConstr other) const;
  /// Reads (get) or writes (set) an attribute of this element; the
  /// enumerator gives the library name.  An empty or removed handle throws.
  /// @{
  double get(KLO_DoubleAttr attr) const;
  std::string get(KLO_StringAttr attr) const;
  void set(KLO_DoubleAttr attr, double value) const;
  void set(KLO_StringAttr attr, const std::string& value) const;
  /// @}

 private:
  friend struct klo_detail::Access;
  std::shared_ptr<KLOQConstrID> id_;
};

/// A positive-semidefinite matrix variable.  Attributes: int, string,
/// matrix.
class KLOPsdVar {
 public:
  /// An empty handle; every operation on it throws.
  KLOPsdVar() = default;
  /// The current index (negative once removed).
  int index() const;
  /// True when both handles share one identity record.
  bool sameAs(KLOPsdVar other) const;
  /// Reads (get) or writes (set) an attribute of this element; the
  /// enumerator gives the library name.  An empty or removed handle throws.
  /// @{
  int get(KLO_IntAttr attr) const;
  std::string get(KLO_StringAttr attr) const;
  /// Reads the matrix in two library calls: its shape, then its entries.
  KLOMatrix get(KLO_MatAttr attr) const;
  void set(KLO_IntAttr attr, int value) const;
  void set(KLO_StringAttr attr, const std::string& value) const;
  void set(KLO_MatAttr attr, const KLOMatrix& value) const;
  /// @}

 private:
  friend struct klo_detail::Access;
  std::shared_ptr<KLOPsdVarID> id_;
};

/// A PSD constraint.  Attributes: double, string.
class KLOPsdConstr {
 public:
  /// An empty handle; every operation on it throws.
  KLOPsdConstr() = default;
  /// The current index (negative once removed).
  int index() const;
  /// True when both handles share one identity record.
  bool sameAs(KLOPsdConstr other) const;
  /// Reads (get) or writes (set) an attribute of this element; the
  /// enumerator gives the library name.  An empty or removed handle throws.
  /// @{
  double get(KLO_DoubleAttr attr) const;
  std::string get(KLO_StringAttr attr) const;
  void set(KLO_DoubleAttr attr, double value) const;
  void set(KLO_StringAttr attr, const std::string& value) const;
  /// @}

 private:
  friend struct klo_detail::Access;
  std::shared_ptr<KLOPsdConstrID> id_;
};

/// A general (indicator) constraint.  Attributes: int, string.
class KLOGenConstr {
 public:
  /// An empty handle; every operation on it throws.
  KLOGenConstr() = default;
  /// The current index (negative once removed).
  int index() const;
  /// True when both handles share one identity record.
  bool sameAs(KLOGenConstr other) const;
  /// Reads (get) or writes (set) an attribute of this element; the
  /// enumerator gives the library name.  An empty or removed handle throws.
  /// @{
  int get(KLO_IntAttr attr) const;
  std::string get(KLO_StringAttr attr) const;
  void set(KLO_IntAttr attr, int value) const;
  void set(KLO_StringAttr attr, const std::string& value) const;
  /// @}

 private:
  friend struct klo_detail::Access;
  std::shared_ptr<KLOGenConstrID> id_;
};

/// An SOS constraint.  Attributes: int.
class KLOSOS {
 public:
  /// An empty handle; every operation on it throws.
  KLOSOS() = default;
  /// The current index (negative once removed).
  int index() const;
  /// True when both handles share one identity record.
  bool sameAs(KLOSOS other) const;
  /// Reads (get) or writes (set) an attribute of this element; the
  /// enumerator gives the library name.  An empty or removed handle throws.
  /// @{
  int get(KLO_IntAttr attr) const;
  void set(KLO_IntAttr attr, int value) const;
  /// @}

 private:
  friend struct klo_detail::Access;
  std::shared_ptr<KLOSOSID> id_;
};

// ===========================================================================
// Copy-on-write vectors
// ===========================================================================

/// The term storage of expressions: a logical size over a buffer that
/// copies share.  A copy costs one shared-pointer copy; a copy pays for a
/// buffer of its own only when it reads or changes an element of a shared
/// buffer, or appends to a buffer another sharer has extended.  Element
/// access always makes the buffer private, even for reading.  Instances:
/// double, KLOVar, KLOPsdVar, KLOMatrix.  Not for concurrent use.
template <class T>
class Vec {
 public:
  /// Size 0 over a fresh buffer.
  Vec();
  /// Shares other's buffer with other's size.
  Vec(const Vec& other);
  /// Shares other's buffer with other's size.
  Vec& operator=(const Vec& other);

  /// The logical size.
  int size() const { return n; }
  /// Appends x: in place when this Vec ends where the buffer ends (even if
  /// shared), otherwise after making the buffer private.
  void push_back(const T& x);
  /// Removes element i; later elements move down.  Throws -2003 when i is
  /// outside 0 .. size()-1.
  void remove(int i);
  /// Makes the buffer private and exactly size() long.
  void copyOnWrite();
  /// Throws -2003 unless 0 <= i < size().
  void checkId(int i) const;
  /// Replaces the buffer by a private copy of v.
  void setVec(std::vector<T> v);
  /// Element i after checkId(i) and copyOnWrite().
  T& operator[](int i);
  /// Size 0 and no buffer; the next append or copy-on-write makes a fresh
  /// one.
  void clear();

  /// The buffer (null after clear()), for inspecting how copies share.
  const std::vector<T>* buffer() const { return vec.get(); }
  /// Number of Vecs sharing the buffer (0 after clear()).
  long useCount() const { return vec.use_count(); }

 private:
  friend class KLOLinExpr;
  friend class KLOQuadExpr;
  friend class KLOPsdExpr;
  friend struct klo_detail::Access;
  std::int32_t n;
  std::shared_ptr<std::vector<T>> vec;

  /// Size 0 and no buffer, as after clear(): the expressions' own, so that
  /// one that never gets terms never allocates a buffer.
  explicit Vec(std::nullptr_t) : n(0) {}
};

// ===========================================================================
// Linear expressions and columns
// ===========================================================================

/// constant + sum of coefficient * variable terms.  Terms are never merged:
/// a variable may occur several times.  Copies share term storage (cheap
/// whatever the length).  Positional access outside 0 .. size()-1 throws
/// -2003.
class KLOLinExpr {
 public:
  /// A constant expression (also the conversion from double).
  KLOLinExpr(double constant = 0.0);
  /// The single term coeff * var, kept even when coeff is 0 (also the
  /// conversion from KLOVar).
  KLOLinExpr(KLOVar var, double coeff = 1.0);
  /// Shares e's terms.
  KLOLinExpr(const KLOLinExpr& e);
  ~KLOLinExpr();
  /// Shares e's terms.
  KLOLinExpr& operator=(const KLOLinExpr& e);

  /// Number of terms.
  int size() const;
  /// The variable of term i (not checked).
  KLOVar getVar(int i) const;
  /// The coefficient of term i (not checked).
  double getCoeff(int i) const;
  /// The constant.
  double getConstant() const;
  /// Adds c to the constant.
  void addConstant(double c);
  /// constant + sum of coefficient * "X" of the variable, in term order.
  double getValue() const;
  /// Appends coeffs[i] * vars[i] for i < count, skipping zero
  /// coefficients; nothing when count < 1.
  void addTerms(const double* coeffs, const KLOVar* vars, int count);

  /// Adds e's constant and appends e's terms (e += e doubles e).
  void operator+=(const KLOLinExpr& e);
  /// Appends the term 1.0 * x (the same as += KLOLinExpr(x), without the
  /// temporary).
  void operator+=(const KLOVar& x);
  /// Appends the term -1.0 * x.
  void operator-=(const KLOVar& x);
  /// Subtracts e's constant and appends e's terms negated.
  void operator-=(const KLOLinExpr& e);
  /// Scales the constant and every coefficient.
  void operator*=(double d);
  /// Divides the constant and every coefficient (no check for zero).
  void operator/=(double d);
  /// A copy of this expression, then += e.  (Not const on purpose: a const
  /// left operand goes to the free operator+, which does the same, and
  /// the two never compete for one call.)
  KLOLinExpr operator+(const KLOLinExpr& e);
  /// A copy of this expression, then -= e.
  KLOLinExpr operator-(const KLOLinExpr& e);
  /// A copy of this expression, then += x (no temporary expression).
  KLOLinExpr operator+(const KLOVar& x);
  /// A copy of this expression, then -= x.
  KLOLinExpr operator-(const KLOVar& x);

  /// Removes term i.
  void remove(int i);
  /// Removes every term of variable v (same identity record), keeping the
  /// order of the others.
  void remove(KLOVar v);
  /// Constant 0, no terms.
  void clear();

 private:
  double constant_;
  std::unique_ptr<Vec<double>> coeffs_;
  std::unique_ptr<Vec<KLOVar>> vars_;

  friend struct klo_detail::Access;
  void append(const KLOLinExpr& e, double sign);
  void appendTerm(double coeff, const KLOVar& var);
};

/// The constraints a new variable appears in, with its coefficients.
/// Terms are never merged.
class KLOColumn {
 public:
  /// Number of terms.
  int size() const;
  /// The constraint of term i (not checked).
  KLOConstr getConstr(int i) const;
  /// The coefficient of term i (not checked).
  double getCoeff(int i) const;
  /// Appends a term (zero coefficients are kept).
  void addTerm(double coeff, KLOConstr constr);
  /// addTerm for each i < count; nothing when count < 1.
  void addTerms(const double* coeffs, const KLOConstr* constrs, int count);
  /// Removes term i; throws -3 when i is outside the column.
  void remove(int i);
  /// Removes every term of constraint c, keeping the order of the others.
  void remove(KLOConstr c);
  /// Removes every term.
  void clear();

 private:
  std::vector<double> coeffs_;
  std::vector<KLOConstr> constrs_;
};

/// Merges terms of equal handle index, in place: the result holds each
/// index once, in ascending index order, with the coefficients summed
/// (zero sums kept) and the handle of the index's last occurrence.  This is
/// what every term list goes through before it reaches the library.
template <class C, class H>
void combineLikeTerms(std::vector<C>& coeffs, std::vector<H>& handles) {
  const std::size_t n = coeffs.size();
  if (n == 0) return;
  std::map<int, std::pair<C, H>> merged;
  for (std::size_t k = n; k-- > 0;) {
    const int idx = handles[k].index();
    auto found = merged.find(idx);
    if (found == merged.end()) {
      merged.emplace(idx, std::make_pair(coeffs[k], handles[k]));
    } else {
      found->second.first = found->second.first + coeffs[k];
    }
    coeffs.pop_back();
    handles.pop_back();
  }
  for (auto& entry : merged) {
    coeffs.push_back(entry.second.first);
    handles.push_back(entry.second.second);
  }
}

// ===========================================================================
// Quadratic expressions
// ===========================================================================

/// A linear expression plus quadratic terms coefficient * var1 * var2.
/// Terms are never merged: x * y and y * x are two terms.  Copies share
/// term storage.  Positional access outside 0 .. size()-1 throws -2003.
class KLOQuadExpr {
 public:
  /// A constant expression (also the conversion from double).
  KLOQuadExpr(double constant = 0.0);
  /// The linear term coeff * var, kept even when coeff is 0 (also the
  /// conversion from KLOVar).
  KLOQuadExpr(KLOVar var, double coeff = 1.0);
  /// e as linear part, sharing its terms (also the conversion).
  KLOQuadExpr(const KLOLinExpr& e);
  /// Shares q's terms.
  KLOQuadExpr(const KLOQuadExpr& q);
  ~KLOQuadExpr();
  /// Shares q's terms.
  KLOQuadExpr& operator=(const KLOQuadExpr& q);

  /// Number of quadratic terms.
  int size() const;
  /// First variable of quadratic term i.
  KLOVar getVar1(int i) const;
  /// Second variable of quadratic term i.
  KLOVar getVar2(int i) const;
  /// Coefficient of quadratic term i.
  double getCoeff(int i) const;
  /// A copy of the linear part (with the constant).
  KLOLinExpr getLinExpr() const;
  /// The linear part's value plus coeff * "X"(var1) * "X"(var2) of every
  /// quadratic term.
  double getValue() const;
  /// Adds c to the constant.
  void addConstant(double c);
  /// Appends the linear term coeff * var unless coeff is 0.
  void addTerm(double coeff, KLOVar var);
  /// Appends coeff * var1 * var2 unless coeff is 0.
  void addTerm(double coeff, KLOVar var1, KLOVar var2);
  /// Linear terms, as KLOLinExpr::addTerms (zero coefficients skipped).
  void addTerms(const double* coeffs, const KLOVar* vars, int count);
  /// addTerm(coeffs[i], vars1[i], vars2[i]) for i < count.
  void addTerms(const double* coeffs, const KLOVar* vars1, const KLOVar* vars2, int count);
  /// The linear part += e.
  void add(KLOLinExpr e);

  /// Adds q's linear part and appends q's quadratic terms (q += q doubles
  /// q).
  void operator+=(const KLOQuadExpr& q);
  /// Subtracts q's linear part and appends q's quadratic terms negated.
  void operator-=(const KLOQuadExpr& q);
  /// Scales the constant and every linear and quadratic coefficient.
  void operator*=(double d);
  /// Divides the constant and every coefficient (no check for zero).
  void operator/=(double d);
  /// A copy of this expression, then += q (not const, as for KLOLinExpr).
  KLOQuadExpr operator+(const KLOQuadExpr& q);
  /// A copy of this expression, then -= q.
  KLOQuadExpr operator-(const KLOQuadExpr& q);

  /// Removes quadratic term i.
  void remove(int i);
  /// Removes every quadratic term holding v in either slot and every
  /// linear term of v.
  void remove(KLOVar v);
  /// Constant 0, no terms.
  void clear();

 private:
  KLOLinExpr linear_;
  std::unique_ptr<Vec<double>> coeffs_;
  std::unique_ptr<Vec<KLOVar>> vars1_;
  std::unique_ptr<Vec<KLOVar>> vars2_;

  friend struct klo_detail::Access;
  void append(const KLOQuadExpr& q, double sign);
  void appendTerm(double coeff, const KLOVar& var1, const KLOVar& var2);
  void reserve(std::size_t terms);
  void scale(double d, bool divide);
  friend KLOQuadExpr operator*(const KLOLinExpr& a, const KLOLinExpr& b);
  friend KLOQuadExpr operator*(KLOVar x, const KLOLinExpr& e);
};

/// Merges quadratic terms with the same (var1, var2) index pair, as given,
/// in place: the result is in ascending order of index1 * 2^32 + index2,
/// each term stored with the larger-index variable first, coefficients
/// summed (zero sums kept).  x * y and y * x stay two terms.  This is what
/// quadratic terms go through before they reach the library.
void combineLikeQTerms(std::vector<double>& coeffs, std::vector<KLOVar>& vars1,
                       std::vector<KLOVar>& vars2);

// ===========================================================================
// Semidefinite expressions
// ===========================================================================

/// A linear expression plus terms <M, X>: the inner product of a symmetric
/// coefficient matrix M, stored as one triangle, with a PSD variable X.
/// Copies share term storage.  Positional access outside 0 .. size()-1
/// throws -2003.
class KLOPsdExpr {
 public:
  /// A constant expression.
  explicit KLOPsdExpr(double constant = 0.0);
  /// e as linear part.
  explicit KLOPsdExpr(const KLOLinExpr& e);
  /// The single term <M, X>.
  KLOPsdExpr(KLOPsdVar X, KLOMatrix M);
  /// Shares P's terms.
  KLOPsdExpr(const KLOPsdExpr& P);
  ~KLOPsdExpr();
  /// Shares P's terms.
  KLOPsdExpr& operator=(const KLOPsdExpr& P);

  /// Number of PSD terms.
  int size() const;
  /// The PSD variable of term i (not checked).
  KLOPsdVar getPsdVar(int i) const;
  /// The matrix of term i (not checked; shares its storage).
  KLOMatrix getCoeff(int i) const;
  /// A copy of the linear part (with the constant).
  KLOLinExpr getLinExpr() const;
  /// The linear part's value plus, for every term, the inner product of
  /// its matrix with the variable's "PsdX" (an off-diagonal entry counts
  /// for itself and its mirror image).  "PsdX" is read as its upper
  /// triangle, so only upper-triangle entries of the matrices count.
  double getValue() const;
  /// Appends <M, X>; M is not checked.
  void addTerm(const KLOMatrix& M, KLOPsdVar X);
  /// Linear terms, as KLOLinExpr::addTerms.
  void addTerms(const double* coeffs, const KLOVar* vars, int count);

  /// Appends P's PSD terms (sharing their matrices), then adds its linear
  /// part.
  void operator+=(const KLOPsdExpr& P);
  /// Appends P's PSD terms with negated copies of their matrices, then
  /// subtracts its linear part.
  void operator-=(const KLOPsdExpr& P);
  /// Adds e, x or c to the linear part, or subtracts it.
  /// @{
  void operator+=(const KLOLinExpr& e);
  void operator-=(const KLOLinExpr& e);
  void operator+=(const KLOVar& x);
  void operator-=(const KLOVar& x);
  void operator+=(double c);
  void operator-=(double c);
  /// @}
  /// @{
  /// A copy of this expression, then the compound operation.
  KLOPsdExpr operator+(const KLOPsdExpr& P) const;
  KLOPsdExpr operator-(const KLOPsdExpr& P) const;
  KLOPsdExpr operator+(const KLOLinExpr& e) const;
  KLOPsdExpr operator-(const KLOLinExpr& e) const;
  KLOPsdExpr operator+(const KLOVar& x) const;
  KLOPsdExpr operator-(const KLOVar& x) const;
  KLOPsdExpr operator+(double c) const;
  KLOPsdExpr operator-(double c) const;
  /// @}

  /// Removes PSD term i.
  void remove(int i);
  /// Removes every PSD term of X (same identity record).
  void remove(KLOPsdVar X);
  /// Constant 0, no terms.
  void clear();

 private:
  KLOLinExpr linear_;
  std::unique_ptr<Vec<KLOMatrix>> coeffs_;
  std::unique_ptr<Vec<KLOPsdVar>> vars_;

  void append(const KLOPsdExpr& P, bool negate);
  friend KLOPsdExpr operator-(const KLOPsdExpr& P);
};

// ===========================================================================
// Operators and temporary constraints
//
// Every operator returns a new expression built from cheap copies of its
// operands; terms are appended in order and never merged.  Multiplying by
// the scalar 0.0 gives an empty expression (the member *= keeps the terms
// with zero coefficients); dividing by 0.0 is not checked.
// ===========================================================================

/// A comparison "expr sense 0" made by <=, == or >=, where expr is the left
/// side minus the right side (its constant is the negated right-hand
/// constant).  sense is '<', '=' or '>'.  Models accept it in addConstr,
/// addQConstr and addGenConstrIndicator.
struct KLOTempConstr {
  char sense;        ///< '<', '=' or '>'
  KLOQuadExpr expr;  ///< left side minus right side
};

/// 1.0 * x + 1.0 * y (two terms even when x and y are one variable).
KLOLinExpr operator+(KLOVar x, KLOVar y);
/// 1.0 * x - 1.0 * y.
KLOLinExpr operator-(KLOVar x, KLOVar y);
/// @{
/// x + c.
KLOLinExpr operator+(KLOVar x, double c);
KLOLinExpr operator+(double c, KLOVar x);
/// @}
/// x - c.
KLOLinExpr operator-(KLOVar x, double c);
/// c - x.
KLOLinExpr operator-(double c, KLOVar x);
/// -1.0 * x.
KLOLinExpr operator-(KLOVar x);
/// @{
/// d * x; empty when d is 0.0.
KLOLinExpr operator*(double d, KLOVar x);
KLOLinExpr operator*(KLOVar x, double d);
/// @}
/// (1.0 / d) * x.
KLOLinExpr operator/(KLOVar x, double d);
/// a + b and a - b: a's terms, then b's (negated for -), and the
/// constants combined; +a is a copy of a.
/// @{
KLOLinExpr operator+(const KLOLinExpr& a, const KLOLinExpr& b);
KLOLinExpr operator-(const KLOLinExpr& a, const KLOLinExpr& b);
KLOLinExpr operator+(const KLOLinExpr& a);
/// @}
/// Constant and coefficients negated.
KLOLinExpr operator-(const KLOLinExpr& a);
/// @{
/// Constant and coefficients times d; empty when d is 0.0.
KLOLinExpr operator*(const KLOLinExpr& a, double d);
KLOLinExpr operator*(double d, const KLOLinExpr& a);
/// @}
/// Constant and coefficients divided by d.
KLOLinExpr operator/(const KLOLinExpr& a, double d);
/// The quadratic term 1.0 * x * y.
KLOQuadExpr operator*(KLOVar x, KLOVar y);
/// @{
/// c * x * v for every term c * v of e, then e's constant k as k * x (x is
/// always the first variable).
KLOQuadExpr operator*(KLOVar x, const KLOLinExpr& e);
KLOQuadExpr operator*(const KLOLinExpr& e, KLOVar x);
/// @}
/// Every term of a times every term of b (zero products kept), then the
/// linear cross terms with the constants (zero products dropped), then
/// the product of the constants.
KLOQuadExpr operator*(const KLOLinExpr& a, const KLOLinExpr& b);
/// p + q and p - q: p's terms, then q's (negated for -), and the
/// constants combined; +p is a copy of p.
/// @{
KLOQuadExpr operator+(const KLOQuadExpr& p, const KLOQuadExpr& q);
KLOQuadExpr operator-(const KLOQuadExpr& p, const KLOQuadExpr& q);
KLOQuadExpr operator+(const KLOQuadExpr& p);
/// @}
/// Constant, linear and quadratic coefficients negated.
KLOQuadExpr operator-(const KLOQuadExpr& p);
/// @{
/// Every coefficient and the constant times d; empty when d is 0.0.
KLOQuadExpr operator*(const KLOQuadExpr& p, double d);
KLOQuadExpr operator*(double d, const KLOQuadExpr& p);
/// @}
/// Every coefficient and the constant divided by d.
KLOQuadExpr operator/(const KLOQuadExpr& p, double d);
/// @{
/// The PSD term <M, X>.
KLOPsdExpr operator*(const KLOMatrix& M, KLOPsdVar X);
KLOPsdExpr operator*(KLOPsdVar X, const KLOMatrix& M);
/// @}
/// Linear part and every matrix negated (new matrices).
KLOPsdExpr operator-(const KLOPsdExpr& P);
/// e + P, x + P and c + P: P with e, x or c added to its linear part;
/// with -, P negated (new matrices) and then the same.
/// @{
KLOPsdExpr operator+(const KLOLinExpr& e, const KLOPsdExpr& P);
KLOPsdExpr operator-(const KLOLinExpr& e, const KLOPsdExpr& P);
KLOPsdExpr operator+(KLOVar x, const KLOPsdExpr& P);
KLOPsdExpr operator-(KLOVar x, const KLOPsdExpr& P);
KLOPsdExpr operator+(double c, const KLOPsdExpr& P);
KLOPsdExpr operator-(double c, const KLOPsdExpr& P);
/// @}
/// a - b <= 0.
KLOTempConstr operator<=(const KLOQuadExpr& a, const KLOQuadExpr& b);
/// a - b == 0.
KLOTempConstr operator==(const KLOQuadExpr& a, const KLOQuadExpr& b);
/// a - b >= 0.
KLOTempConstr operator>=(const KLOQuadExpr& a, const KLOQuadExpr& b);
/// The same comparisons for linear sides and for variables: the same
/// constraint, without making each side a quadratic expression first.
KLOTempConstr operator<=(const KLOLinExpr& a, const KLOLinExpr& b);
KLOTempConstr operator==(const KLOLinExpr& a, const KLOLinExpr& b);
KLOTempConstr operator>=(const KLOLinExpr& a, const KLOLinExpr& b);
KLOTempConstr operator<=(const KLOLinExpr& a, double b);
KLOTempConstr operator==(const KLOLinExpr& a, double b);
KLOTempConstr operator>=(const KLOLinExpr& a, double b);
KLOTempConstr operator<=(double a, const KLOLinExpr& b);
KLOTempConstr operator==(double a, const KLOLinExpr& b);
KLOTempConstr operator>=(double a, const KLOLinExpr& b);
KLOTempConstr operator<=(KLOVar a, KLOVar b);
KLOTempConstr operator==(KLOVar a, KLOVar b);
KLOTempConstr operator>=(KLOVar a, KLOVar b);

// ===========================================================================
// Expression printing
//
// Variables print by "VarName" (read for every term).  Numbers use the
// default 6-significant-digit format whatever the stream's settings; a
// coefficient of 1 is not printed unless the name is empty; zero
// coefficients are not printed.  Example: "2 * x - y + 3".  A quadratic
// expression prints its quadratic terms and then its linear text with no
// separator: x*y + 2x + 1 prints "x * y2 * x + 1", and one with no
// quadratic terms loses the first character of its linear text.
// ===========================================================================

/// Appends " + |coeff| * name1 * name2" (sign as coeff's; factors left out
/// as described above) to ss; nothing when coeff is 0.
void outputTerm(std::stringstream& ss, double coeff, std::string name1, std::string name2);
/// Prints the expression as described above.
/// @{
std::ostream& operator<<(std::ostream& os, KLOLinExpr e);
std::ostream& operator<<(std::ostream& os, KLOQuadExpr q);
/// @}

// ===========================================================================
// Model
// ===========================================================================

/// A model of the solver library, with one vector of handles per element
/// kind kept in step with it.  Arrays returned by the bulk operations and
/// the array getters are made with new[] and belong to the caller.
class KLOModel {
 public:
  /// @{
  /// An empty model on env.
  explicit KLOModel(const KLOEnv* env);
  explicit KLOModel(const KLOEnv& env);
  /// @}
  /// @{
  /// A model read from a model file.
  KLOModel(const KLOEnv* env, const std::string& file);
  KLOModel(const KLOEnv& env, const std::string& file);
  /// @}
  /// An independent copy (new handles, not sameAs other's); throws -2
  /// when the library cannot copy.
  KLOModel(const KLOModel& other);
  /// Does nothing: models are not assignable in effect.
  KLOModel& operator=(const KLOModel& other);
  /// Frees the library model; environments from getEnv() stop working.
  ~KLOModel();

  /// Rebuilds the handle vectors from the library's counts, with fresh
  /// records (handles held elsewhere are no longer updated).  Needed after
  /// read(), which does not do it itself.
  void sync();

  /// Solves the model (KLOoptimize); results are read as attributes.
  void optimize();
  /// Irreducible infeasible subsystem ("IISVar", "IISConstr").
  void computeIIS();
  /// Reads a file into this model (model, parameters, start, basis).
  void read(const std::string& file);
  /// Writes the model, or a result, to a file chosen by its extension
  /// (KLOwrite).
  void write(const std::string& file);
  /// Discards results (level 1 also start values and user bases).
  void reset(int level);
  /// A relaxed copy: integrality, SOS and indicators dropped.
  KLOModel relax() const;
  /// Feasibility relaxation with unit penalties on what may be relaxed
  /// (bounds if vrelax, rows if crelax).  Returns the relaxation measure
  /// when minrelax is set, else 0.0.  The library gets one bound penalty
  /// per variable and one row penalty per row, all alike: it cannot know
  /// an array's length, so none may be shorter than its count.
  double feasRelax(int type, bool minrelax, bool vrelax, bool crelax);
  /// Feasibility relaxation with per-element penalties for the given
  /// variables and constraints (all others may not be relaxed).
  double feasRelax(int type, bool minrelax, int nvars, const KLOVar* vars, const double* lbpen,
                   const double* ubpen, int ncons, const KLOConstr* cons, const double* rhspen);
  /// A view of the model's own environment, usable while this model lives.
  KLOEnv getEnv() const;
  /// A new, unowned library environment, empty when the library has an
  /// environment for objective index, started otherwise.
  KLOEnv getMultiobjEnv(int index) const;
  /// Frees the library's per-objective environments (failures ignored).
  void discardMultiobjEnvs();

  // --- attributes of the whole model (klo_c.h tells which are settable) --
  /// Reads (get) or writes (set) an attribute of the model.
  /// @{
  int get(KLO_IntAttr attr) const;
  double get(KLO_DoubleAttr attr) const;
  std::string get(KLO_StringAttr attr) const;
  void set(KLO_IntAttr attr, int value);
  void set(KLO_DoubleAttr attr, double value);
  void set(KLO_StringAttr attr, const std::string& value);
  /// @}

  // --- element attributes over arrays of handles -----------------------
  // get: a new[] array of count values, element i from handle i.
  // set: handle i gets value i; a failure stops there.
  /// Reads (get) or writes (set) one attribute of several elements, as
  /// described above.
  /// @{
  int* get(KLO_IntAttr attr, const KLOVar* vars, int count) const;
  char* get(KLO_CharAttr attr, const KLOVar* vars, int count) const;
  double* get(KLO_DoubleAttr attr, const KLOVar* vars, int count) const;
  std::string* get(KLO_StringAttr attr, const KLOVar* vars, int count) const;
  void set(KLO_IntAttr attr, const KLOVar* vars, const int* values, int count);
  void set(KLO_CharAttr attr, const KLOVar* vars, const char* values, int count);
  void set(KLO_DoubleAttr attr, const KLOVar* vars, const double* values, int count);
  void set(KLO_StringAttr attr, const KLOVar* vars, const std::string* values, int count);

  int* get(KLO_IntAttr attr, const KLOConstr* constrs, int count) const;
  char* get(KLO_CharAttr attr, const KLOConstr* constrs, int count) const;
  double* get(KLO_DoubleAttr attr, const KLOConstr* constrs, int count) const;
  std::string* get(KLO_StringAttr attr, const KLOConstr* constrs, int count) const;
  void set(KLO_IntAttr attr, const KLOConstr* constrs, const int* values, int count);
  void set(KLO_CharAttr attr, const KLOConstr* constrs, const char* values, int count);
  void set(KLO_DoubleAttr attr, const KLOConstr* constrs, const double* values, int count);
  void set(KLO_StringAttr attr, const KLOConstr* constrs, const std::string* values, int count);

  double* get(KLO_DoubleAttr attr, const KLOQConstr* constrs, int count) const;
  std::string* get(KLO_StringAttr attr, const KLOQConstr* constrs, int count) const;
  void set(KLO_DoubleAttr attr, const KLOQConstr* constrs, const double* values, int count);
  void set(KLO_StringAttr attr, const KLOQConstr* constrs, const std::string* values, int count);

  int* get(KLO_IntAttr attr, const KLOGenConstr* constrs, int count) const;
  std::string* get(KLO_StringAttr attr, const KLOGenConstr* constrs, int count) const;
  void set(KLO_StringAttr attr, const KLOGenConstr* constrs, const std::string* values, int count);

  int* get(KLO_IntAttr attr, const KLOPsdVar* vars, int count) const;
  std::string* get(KLO_StringAttr attr, const KLOPsdVar* vars, int count) const;
  KLOMatrix* get(KLO_MatAttr attr, const KLOPsdVar* vars, int count) const;
  void set(KLO_IntAttr attr, const KLOPsdVar* vars, const int* values, int count);
  void set(KLO_StringAttr attr, const KLOPsdVar* vars, std::string* values, int count);
  void set(KLO_MatAttr attr, const KLOPsdVar* vars, const KLOMatrix* values, int count);

  double* get(KLO_DoubleAttr attr, const KLOPsdConstr* constrs, int count) const;
  std::string* get(KLO_StringAttr attr, const KLOPsdConstr* constrs, int count) const;
  void set(KLO_DoubleAttr attr, const KLOPsdConstr* constrs, const double* values, int count);
  void set(KLO_StringAttr attr, const KLOPsdConstr* constrs, const std::string* values, int count);
  /// @}

  // --- parameters of the model's own environment (fetched afresh for each
  // call; the environment given to the constructor is not affected) -------
  /// Reads (get) or writes (set) a parameter of the model's own
  /// environment.
  /// @{
  int get(KLO_IntParam param) const;
  double get(KLO_DoubleParam param) const;
  std::string get(KLO_StringParam param) const;
  void set(KLO_IntParam param, int value);
  void set(KLO_DoubleParam param, double value);
  void set(KLO_StringParam param, const std::string& value);
  /// @}
  /// Sets a parameter by name from text: as an integer, then as a double,
  /// then as a string.  Unlike KLOEnv::set, the double attempt reads on
  /// after the integer attempt's characters from the text written twice,
  /// so "1.5" arrives at a double parameter as 0.51.
  void set(const std::string& name, const std::string& value);

  // --- variables ----------------------------------------------------------
  /// Adds a variable with no column entries.
  KLOVar addVar(double lb, double ub, double obj, char vtype, const std::string& name = "");
  /// Appends a handle without adding a library variable (a placeholder).
  KLOVar addVar();
  /// Adds a variable with entries coeffs[i] in constrs[i] (0.0 each when
  /// coeffs is null).
  KLOVar addVar(double lb, double ub, double obj, char vtype, int numnz, const KLOConstr* constrs,
                const double* coeffs, const std::string& name = "");
  /// Adds a variable with the column's entries; the column must not name a
  /// constraint twice.  A removed constraint raises -2002.
  KLOVar addVar(double lb, double ub, double obj, char vtype, const KLOColumn& col,
                const std::string& name = "");
  /// Adds numvars variables of type vtype with default bounds.
  KLOVar* addVars(int numvars, char vtype);
  /// Adds numvars variables; any array may be null for the defaults.
  KLOVar* addVars(const double* lb, const double* ub, const double* obj, const char* vtype,
                  const std::string* names, int numvars);
  /// Adds numvars variables with columns (duplicates merged); any array
  /// may be null.
  KLOVar* addVars(const double* lb, const double* ub, const double* obj, const char* vtype,
                  const std::string* names, const KLOColumn* cols, int numvars);
  /// The variable of index i; -2003 when i < 0.
  KLOVar getVar(int i) const;
  /// A new[] array of copies of every variable handle.
  KLOVar* getVars() const;
  /// The variable of that name; -2003 when there is none.
  KLOVar getVarByName(const std::string& name) const;
  /// Deletes v; later variables move down and v's index becomes the
  /// complement of its old one.
  void remove(KLOVar v);
  /// The variable's column entries in the library's order.
  KLOColumn getCol(KLOVar v) const;

  // --- linear constraints -------------------------------------------------
  // Every row, linear, quadratic or PSD, appends one handle to each of the
  // three constraint vectors (getConstrs, the quadratic and the PSD ones);
  // removing a row shrinks all three.  Sense characters: '>' greater or
  // equal, '=' equal, anything else less or equal.  A right-hand side or
  // bound of magnitude 1e20 or more is infinite; the expression's
  // constant is moved into the finite bounds only.  Terms of one
  // variable are merged (zero sums kept) and a removed variable raises
  // -2003 before the library is called.  A failed add adds nothing.

  /// @{
  /// lhs sense rhs.
  KLOConstr addConstr(const KLOLinExpr& lhs, char sense, const KLOLinExpr& rhs,
                      const std::string& name = "");
  KLOConstr addConstr(const KLOLinExpr& lhs, char sense, double rhs, const std::string& name = "");
  KLOConstr addConstr(const KLOLinExpr& lhs, char sense, KLOVar rhs, const std::string& name = "");
  KLOConstr addConstr(KLOVar lhs, char sense, KLOVar rhs, const std::string& name = "");
  KLOConstr addConstr(KLOVar lhs, char sense, double rhs, const std::string& name = "");
  /// @}
  /// A comparison made with <=, == or >=.  One with quadratic terms is
  /// refused with -3 ("For quadratic constraint using
  /// KLOModel::addQConstr."): addQConstr takes those.
  KLOConstr addConstr(const KLOTempConstr& tc, const std::string& name = "");
  /// Appends the three handles of a row without adding a library row (a
  /// placeholder, as addVar()).
  KLOConstr addConstr();
  /// lower <= expr <= upper.
  KLOConstr addRange(const KLOLinExpr& expr, double lower, double upper,
                     const std::string& name = "");
  /// count empty rows with the library's default sense and right-hand
  /// side.
  KLOConstr* addConstrs(int count);
  /// Row i: exprs[i] senses[i] rhs[i], in one library call.  exprs,
  /// senses, rhs and names may each be null (no terms, the library's
  /// defaults, no names).  Returns a new[] array of the count handles.
  KLOConstr* addConstrs(const KLOLinExpr* exprs, const char* senses, const double* rhs,
                        const std::string* names, int count);
  /// Row i: lower[i] <= exprs[i] <= upper[i], in one library call.
  KLOConstr* addRanges(const KLOLinExpr* exprs, const double* lower, const double* upper,
                       const std::string* names, int count);
  /// The constraint of index i; -2002 when there is none.
  KLOConstr getConstr(int i) const;
  /// The model's own array of linear-constraint handles (not a copy:
  /// valid until the next row is added or removed; do not free).
  KLOConstr* getConstrs();
  /// The constraint of that name; -2002 when there is none.
  KLOConstr getConstrByName(const std::string& name) const;
  /// Deletes the row of c; its linear, quadratic and PSD handles become
  /// the complement of its index and later rows move down.
  void remove(KLOConstr c);
  /// Sets the coefficient of v in c (0 removes it).
  void chgCoeff(KLOConstr c, KLOVar v, double value);
  /// chgCoeff for each i < count; stops at the first failure.
  void chgCoeffs(const KLOConstr* constrs, const KLOVar* vars, const double* values, int count);
  /// The coefficient of v in c (0 when absent).
  double getCoeff(KLOConstr c, KLOVar v) const;
  /// The row's linear terms in the library's order (constant 0; bounds
  /// are attributes of the constraint).
  KLOLinExpr getRow(KLOConstr c) const;

  // --- quadratic constraints ----------------------------------------------
  /// A comparison made with <=, == or >=, with or without quadratic
  /// terms.  Quadratic terms go through combineLikeQTerms, linear ones
  /// through combineLikeTerms; a removed variable raises -2003.  Returns
  /// the row's quadratic handle.
  KLOQConstr addQConstr(const KLOTempConstr& tc, const std::string& name = "");
  /// expr sense rhs; a finite rhs is reduced by expr's constant.
  KLOQConstr addQConstr(const KLOQuadExpr& expr, char sense, double rhs,
                        const std::string& name = "");
  /// The row's linear and quadratic terms in the library's order
  /// (constant 0).  A removed or foreign handle raises -2002.
  KLOQuadExpr getQCRow(KLOQConstr qc) const;
  /// Deletes qc's row, as remove(KLOConstr).
  void remove(KLOQConstr qc);

  // --- PSD variables and constraints --------------------------------------
  /// Adds a dim x dim PSD matrix variable.
  KLOPsdVar addPsdVar(int dim, const std::string& name = "");
  /// The PSD variable of index i; -2003 when there is none.
  KLOPsdVar getPsdVar(int i) const;
  /// Deletes X (its terms leave every row and the objective); later PSD
  /// variables move down and X's index becomes the complement of its old
  /// one.
  void remove(KLOPsdVar X);
  /// expr sense rhs over linear and PSD terms.  Terms of one PSD variable
  /// are merged by summing their matrices, each first moved onto its upper
  /// triangle as the library reads it (so terms written in either triangle,
  /// or whole, add up; a variable's only matrix goes as given); a removed
  /// variable or PSD variable raises -2003.
  /// Returns the row's PSD handle.
  KLOPsdConstr addPsdConstr(const KLOPsdExpr& expr, char sense, double rhs,
                            const std::string& name = "");
  /// lower <= expr <= upper over linear and PSD terms.
  KLOPsdConstr addRangePsdConstr(const KLOPsdExpr& expr, double lower, double upper,
                                 const std::string& name = "");
  /// The PSD-constraint handle of row i; -2002 when there is none.
  KLOPsdConstr getPsdConstr(int i) const;
  /// Deletes the row of c, as remove(KLOConstr).
  void remove(KLOPsdConstr c);

  // --- SOS constraints -----------------------------------------------------
  /// Adds an SOS set of type 1 or 2 (klo_c.h: KLO_SOS_TYPE1, _TYPE2) over
  /// len variables with their weights (null: 1, 2, ...).  A removed
  /// variable raises -2003.
  KLOSOS addSOS(const KLOVar* vars, const double* weights, int len, int type);
  /// Reads an SOS set: members into vars, weights into weights, the type
  /// into *type (each may be null); returns the number of members.  Pass
  /// null arrays first to learn how long they must be.  A removed SOS
  /// raises -2002.
  int getSOS(KLOSOS sos, KLOVar* vars, double* weights, int* type) const;
  /// Deletes sos; later sets move down.
  void remove(KLOSOS sos);

  // --- indicator constraints ----------------------------------------------
  /// binvar == binval implies the linear comparison tc (binvar must be
  /// binary, binval 0 or 1).  Quadratic terms are refused with -3.
  KLOGenConstr addGenConstrIndicator(KLOVar binvar, int binval, const KLOTempConstr& tc,
                                     const std::string& name = "");
  /// binvar == binval implies expr sense rhs (a finite rhs is reduced by
  /// expr's constant).
  KLOGenConstr addGenConstrIndicator(KLOVar binvar, int binval, const KLOLinExpr& expr, char sense,
                                     double rhs, const std::string& name = "");
  /// Reads an indicator constraint; every output may be null.  *expr gets
  /// the linear terms (constant 0) and *rhs the right-hand side.  A removed
  /// constraint raises -2002.
  void getGenConstrIndicator(KLOGenConstr gc, KLOVar* binvar, int* binval, KLOLinExpr* expr,
                             char* sense, double* rhs) const;
  /// Deletes gc; later general constraints move down.
  void remove(KLOGenConstr gc);

  // --- objectives ---------------------------------------------------------
  // setObjective first clears the old objective: the quadratic terms,
  // every variable's "Obj" and every PSD variable's "PsdObj"; then sets
  // "ModelSense" unless sense is 0 (1 minimise, -1 maximise), the new
  // terms (repeated variables add up) and "ObjCon".  A failure part-way
  // leaves the objective partly replaced.

  /// Replaces the objective by expr, as described above.
  void setObjective(const KLOLinExpr& expr, int sense = 0);
  /// The objective 1.0 * x (without this, a lone variable would convert
  /// to a linear and a quadratic expression alike).
  void setObjective(KLOVar x, int sense = 0);
  /// Quadratic terms are added one library call a term, as given.
  void setObjective(const KLOQuadExpr& expr, int sense = 0);
  /// The PSD terms, merged per PSD variable as in addPsdConstr, become
  /// "PsdObj".
  void setObjective(const KLOPsdExpr& expr, int sense = 0);
  /// Sets objective index of a multi-objective model with its priority,
  /// weight, tolerances and name.  The library's refusal is not reported.
  void setObjectiveN(const KLOLinExpr& expr, int index, int priority, double weight, double abstol,
                     double reltol, const std::string& name);
  /// The objective: quadratic terms, the variables with a non-zero "Obj",
  /// and "ObjCon".
  KLOQuadExpr getObjective() const;

  // --- callbacks ----------------------------------------------------------
  /// Registers cb (owned by the caller, kept alive while the model can
  /// solve; null unregisters) to run during optimize().
  void setCallback(KLOCallback* cb);

 private:
  friend struct klo_detail::Access;
  void* model_;
  std::vector<KLOVar> vars_;
  std::vector<KLOSOS> sos_;
  std::vector<KLOGenConstr> genconstrs_;
  std::vector<KLOConstr> constrs_;
  std::vector<KLOQConstr> qconstrs_;
  std::vector<KLOPsdVar> psdvars_;
  std::vector<KLOPsdConstr> psdconstrs_;
  std::shared_ptr<bool> released_;
  KLOCallback* callback_ = nullptr;

  KLOVar appendVar();
  KLOSOS addSOS();
  KLOGenConstr addGenConstr();
  KLOPsdVar appendPsdVar();
  int rowOf(const KLOQConstr& qc) const;
  int rowOf(const KLOPsdConstr& pc) const;
  void clearObjective(int sense);
  double feasRelaxWith(int type, bool minrelax, const double* lbpen, const double* ubpen,
                       const double* rhspen);
  void* env() const;
};

// ===========================================================================
// Callbacks
// ===========================================================================

/// Base of user callbacks that speak in KLOVar handles.  Derive, override
/// callback() and register the object with KLOModel::setCallback.  The
/// library calls callback() at each of its where-codes (klo_c.h) during
/// optimize(); the operations below are for use inside callback() only.
///
/// A solution proposed with setSolution is submitted when callback()
/// returns (or earlier by useSolution); slots not set keep the marker
/// KLO_CB_NOVALUE, which the library completes.  abort() stops the solve
/// when callback() returns.  An exception thrown by callback() stops the
/// solve (status interrupted, the best solution kept) and then leaves
/// optimize() as itself.
class KLOCallback {
 public:
  /// Fills a fresh proposal and marks "no value" in getSolution.
  static constexpr double KLO_CB_NOVALUE = -1.23457e+88;

  KLOCallback();
  virtual ~KLOCallback();
  KLOCallback(const KLOCallback&) = delete;
  KLOCallback& operator=(const KLOCallback&) = delete;

  /// The user's code; the default does nothing.
  virtual void callback();

  /// An integer information code of klo_c.h (KLO_CBINFO_...): 200-202 or
  /// 306-312.  Any other code raises -5001.
  int getIntInfo(int what);
  /// A double information code: 300-302, 316 and 317 and the integer
  /// ones above.  Any other code raises -5001.
  double getDoubleInfo(int what);
  /// The text of a text information code: 305, the log line at
  /// KLO_CB_MESSAGE.  Any other code raises -5001.
  std::string getStringInfo(int what);
  /// v's value in the new incumbent (where-code KLO_CB_MIPSOL), or
  /// KLO_CB_NOVALUE when the library offers none here.
  double getSolution(KLOVar v);
  /// A new[] array of getSolution(vars[k]) for k < n.
  double* getSolution(const KLOVar* vars, int n);
  /// v's value in the node relaxation (KLO_CB_MIPNODE), or KLO_CB_NOVALUE.
  double getNodeRel(KLOVar v);
  /// A new[] array of getNodeRel(vars[k]) for k < n.
  double* getNodeRel(const KLOVar* vars, int n);
  /// Proposes x for v (submitted when callback() returns).  A variable
  /// outside the model raises -2003.
  void setSolution(KLOVar v, double x);
  /// Proposes x[k] for vars[k], k < n.
  void setSolution(const KLOVar* vars, const double* x, int n);
  /// Submits the proposal now; *objOut gets its objective when accepted.
  /// Returns 1000 (and calls nothing) when nothing was proposed since the
  /// last submission, else the library's result: 0 accepted, positive a
  /// refusal (KLO_CB_REJECTED, ...); negative results raise.
  int useSolution(double* objOut);
  /// Asks to branch on v at value (dir: klo_c.h, KLOcbbranch).  A removed
  /// variable raises -2003; returns the library's non-negative result.
  int addBranch(KLOVar v, double value, int dir);
  /// Adds the cut expr sense rhs (like terms merged, a finite rhs reduced
  /// by expr's constant).  A removed variable raises -2003.
  int addCut(const KLOLinExpr& expr, char sense, double rhs);
  /// Stops the solve when callback() returns.
  void abort();

 protected:
  /// For KLOCallbackP: the index-based variant.
  explicit KLOCallback(bool byVariable);

  /// The current where-code (klo_c.h, KLO_CB_...).
  int where = 0;
  /// The library model being solved.
  const void* model = nullptr;
  /// The library's data of the current invocation.
  void* cbdata = nullptr;
  /// The proposal of this invocation: one value per variable.
  std::unique_ptr<double[]> solution;
  /// Its length.
  int numVars = 0;
  /// Something was proposed since the last submission.
  bool solutionSet = false;
  /// abort() was called in this invocation.
  bool aborted = false;
  /// True for KLOCallback, false for KLOCallbackP.
  const bool byVariable;

  /// The library array for an array code (null when not available).
  template <class T>
  const T* infoArray(int what);
  /// Proposes x for column index (-2003 outside the model).
  void propose(int index, double x);
  /// Element index of the library's array for code what; KLO_CB_NOVALUE
  /// when the library has none here, -2003 outside the model.
  double columnValue(int what, int index);

 private:
  friend class KLOModel;
  // The function registered with the library: fills this object's fields
  // for one invocation, runs callback(), submits a pending proposal and
  // returns 11 (stop) after abort(), else 0.
  static int cbfn(const void* model, void* cbdata, int where, const void* usrdata);
  void begin(const void* model, void* cbdata, int where);
};

/// Base of user callbacks that speak in column indices (the model's
/// variable indices).  Indices and information codes are passed to the
/// library as they are; a proposal index outside the model raises -2003.
class KLOCallbackP : public KLOCallback {
 public:
  KLOCallbackP();
  ~KLOCallbackP() override;

  /// Element index of the library's int array for code what.
  int getIntInfoAt(int index, int what);
  /// Element index of the library's double array for code what.
  double getDoubleInfoAt(int index, int what);
  /// Column index's value in the new incumbent (KLO_CB_NOVALUE when the
  /// library offers none here).
  double getSolution(int index);
  /// A new[] array of getSolution(indices[k]) for k < n.
  double* getSolution(int* indices, int n);
  /// Column index's value in the node relaxation.
  double getNodeRel(int index);
  /// A new[] array of getNodeRel(indices[k]) for k < n.
  double* getNodeRel(int* indices, int n);
  /// Proposes x for column index.
  void setSolution(int index, double x);
  /// Proposes x[k] for column indices[k], k < n.
  void setSolution(int* indices, double* x, int n);
  /// Asks to branch on column index at value.
  int addBranch(int index, double value, int dir);
  /// Adds the cut sum values[k] x[indices[k]] sense rhs, as given.
  int addCut(int* indices, double* values, int n, char sense, double rhs);
};

#endif  // KLO_CPP_H
