#include "attr/attributes.h"

#include <unordered_map>

#include "common/error.h"
#include "klo_c.h"
#include "store/checks.h"

namespace klo {
namespace {

const char* typeName(AttrType t) {
  switch (t) {
    case AttrType::Int: return "int";
    case AttrType::Double: return "double";
    case AttrType::Char: return "char";
    case AttrType::String: return "string";
    default: return "matrix";
  }
}

Kind kindOf(Level l) {
  switch (l) {
    case Level::Var: return Kind::Var;
    case Level::Row: return Kind::Row;
    case Level::PsdVar: return Kind::PsdVar;
    default: return Kind::GenConstr;
  }
}

const std::unordered_map<std::string, AttrDef>& registry() {
  static const std::unordered_map<std::string, AttrDef> table = [] {
    std::vector<AttrDef> defs;
    addModelAttrs(defs);
    addVarAttrs(defs);
    addRowAttrs(defs);
    addOtherAttrs(defs);
    std::unordered_map<std::string, AttrDef> t;
    for (const AttrDef& d : defs) t.emplace(d.name, d);
    return t;
  }();
  return table;
}

}  // namespace

const AttrDef& findAttr(const std::string& name, AttrType type, bool elementLevel) {
  auto it = registry().find(name);
  if (it == registry().end())
    fail(KLO_ERROR_UNKNOWN_ATTRIBUTE, "Unknown attribute \"" + name + "\"");
  const AttrDef& d = it->second;
  if (d.type != type)
    fail(KLO_ERROR_ATTRIBUTE_TYPE,
         "Attribute \"" + name + "\" is of type " + typeName(d.type) + ", not " + typeName(type));
  if ((d.level != Level::Model) != elementLevel)
    fail(KLO_ERROR_ATTRIBUTE_LEVEL,
         "Attribute \"" + name + "\" is " +
             (elementLevel ? "a whole-model attribute" : "an attribute of single elements"));
  return d;
}

void requireSettable(const AttrDef& def) {
  if (!def.set && !def.setStr && !def.matrixSettable)
    fail(KLO_ERROR_ATTRIBUTE_READONLY, std::string("Attribute \"") + def.name + "\" cannot be set");
}

void checkElement(const KLOmodel& m, const AttrDef& def, int element) {
  checkIndex(m.data, kindOf(def.level), element);
}

void checkElementRange(const KLOmodel& m, const AttrDef& def, int start, int len) {
  checkRange(m.data, kindOf(def.level), start, len);
}

const Results& solveResult(const KLOmodel& m) {
  if (!m.results.solved)
    fail(KLO_ERROR_DATA_NOT_AVAILABLE, "The model has not been solved since it last changed");
  return m.results;
}

const Results& solution(const KLOmodel& m) {
  const Results& r = solveResult(m);
  if (!r.hasSolution) fail(KLO_ERROR_DATA_NOT_AVAILABLE, "The last solve found no solution");
  return r;
}

}  // namespace klo
