// The attributes of a model and of its elements, by name.  Each attribute
// has a type, a level (the model or one element kind) and accessors; a null
// setter makes it read-only.  Int and char values travel as doubles (exact
// for every value they can take) so that one generic path serves the
// single, element and array forms.
#pragma once

#include <string>
#include <vector>

#include "store/model.h"

namespace klo {

enum class AttrType { Int, Double, Char, String, Matrix };
enum class Level { Model, Var, Row, PsdVar, GenConstr };

struct AttrDef {
  const char* name;
  AttrType type;
  Level level;
  // Numeric (int, double, char) accessors.  check throws when the value is
  // refused and changes nothing; set then cannot fail.
  double (*get)(const KLOmodel& m, int element) = nullptr;
  void (*check)(const KLOmodel& m, int element, double value) = nullptr;
  void (*set)(KLOmodel& m, int element, double value) = nullptr;
  // String accessors.
  const std::string& (*getStr)(const KLOmodel& m, int element) = nullptr;
  void (*setStr)(KLOmodel& m, int element, const std::string& value) = nullptr;
  // Whether a change keeps the results of the last solve (names, starts).
  bool keepsResults = false;
  // Matrix attributes are read and set by their own functions.
  bool matrixSettable = false;
};

// Definitions of each level, gathered by the registry.
void addModelAttrs(std::vector<AttrDef>& out);
void addVarAttrs(std::vector<AttrDef>& out);
void addRowAttrs(std::vector<AttrDef>& out);
void addOtherAttrs(std::vector<AttrDef>& out);

// The attribute called name with the given type and level.  Throws
// KLO_ERROR_UNKNOWN_ATTRIBUTE, KLO_ERROR_ATTRIBUTE_TYPE or
// KLO_ERROR_ATTRIBUTE_LEVEL (elementLevel: any element kind) otherwise.
const AttrDef& findAttr(const std::string& name, AttrType type, bool elementLevel);
// Throws KLO_ERROR_ATTRIBUTE_READONLY when def cannot be set.
void requireSettable(const AttrDef& def);
// Checks element (the index error of the attribute's kind).
void checkElement(const KLOmodel& m, const AttrDef& def, int element);
void checkElementRange(const KLOmodel& m, const AttrDef& def, int start, int len);

// The results of the last solve when it left a solution; throws
// KLO_ERROR_DATA_NOT_AVAILABLE otherwise.
const Results& solution(const KLOmodel& m);
// The results of the last solve when there was one.
const Results& solveResult(const KLOmodel& m);

}  // namespace klo
