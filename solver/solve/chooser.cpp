#include "solve/chooser.h"

#include <string>

#include "common/error.h"
#include "engine/log.h"
#include "klo_c.h"
#include "solve/convexity.h"

namespace klo {
namespace {

using engine::Feature;

bool has(unsigned features, unsigned f) { return (features & f) != 0; }

// Names the features of `set`, joined by " together with ".
std::string featureList(unsigned set) {
  std::string out;
  for (unsigned k = 0; k < engine::kFeatureCount; ++k) {
    const unsigned f = 1u << k;
    if (!has(set, f)) continue;
    if (!out.empty()) out += " together with ";
    out += engine::featureName(static_cast<Feature>(f));
  }
  return out;
}

unsigned lowestBit(unsigned set) { return set & (~set + 1); }

// "KLOoptimize: row \"r\" is not convex (...)", naming the part.
[[noreturn]] void refuseNonconvex(const engine::Problem& p, const Convexity& c, const char* what) {
  std::string part = "the objective", rule;
  if (c.row < 0) {
    rule = p.sense > 0 ? "a minimised objective needs positive semidefinite quadratic terms"
                       : "a maximised objective needs negative semidefinite quadratic terms";
  } else {
    std::string name;
    for (const engine::QuadRow& q : p.quadRows)
      if (q.row == c.row) name = q.name;
    part = name.empty() ? "row " + std::to_string(c.row) : "row \"" + name + "\"";
    rule =
        "a <= row needs positive semidefinite quadratic terms, a >= row negative "
        "semidefinite ones, a row with two finite bounds none, unless the row has cone form";
  }
  fail(KLO_ERROR_NONCONVEX, std::string(what) + ": " + part + " is not convex (" + rule +
                                "); set \"NonConvex\" to 1 for a locally optimal solution");
}

// The first engine of `from` that takes p (among those giving local
// answers when localOnly), or the refusal naming what none takes.
const engine::EngineEntry& firstTaking(const engine::Problem& p, const char* what,
                                       const std::vector<engine::EngineEntry>& from,
                                       bool localOnly) {
  const unsigned wanted = engine::featuresOf(p);
  unsigned anyTakes = 0;
  for (const engine::EngineEntry& e : from) {
    if (localOnly && !e.caps.local) continue;
    if (e.caps.takes(wanted)) return e;
    anyTakes |= e.caps.features;
  }
  const unsigned missing = wanted & ~anyTakes;
  const std::string features = missing ? featureList(lowestBit(missing)) : featureList(wanted);
  fail(KLO_ERROR_NOT_SUPPORTED,
       std::string(what) + ": the model has " + features + ", which no engine of this library " +
           (localOnly ? "solves to a local optimum when it is not convex" : "solves"));
}

}  // namespace

ModelClass classify(unsigned f) {
  const bool discrete =
      has(f, engine::kIntegers | engine::kSos | engine::kSemicontinuous | engine::kIndicators);
  const bool quadratic = has(f, engine::kQuadObjective | engine::kQuadRows);
  if (has(f, engine::kPsd)) return discrete || quadratic ? ModelClass::Other : ModelClass::SDP;
  if (quadratic && discrete) return ModelClass::MIQP;
  if (has(f, engine::kQuadRows)) return ModelClass::QCQP;
  if (quadratic) return ModelClass::QP;
  return discrete ? ModelClass::MIP : ModelClass::LP;
}

const char* className(ModelClass c) {
  switch (c) {
    case ModelClass::LP: return "LP";
    case ModelClass::MIP: return "MIP";
    case ModelClass::QP: return "QP";
    case ModelClass::QCQP: return "QCQP";
    case ModelClass::MIQP: return "MIQP";
    case ModelClass::SDP: return "SDP";
    case ModelClass::Other: return "mixed PSD";
    case ModelClass::Nonconvex: return "nonconvex";
  }
  return "unknown";
}

ModelClass classify(const engine::Problem& p) {
  const unsigned f = engine::featuresOf(p);
  if (has(f, engine::kQuadObjective | engine::kQuadRows) && !checkConvexity(p).convex)
    return ModelClass::Nonconvex;
  return classify(f);
}

const engine::EngineEntry& chooseEngine(const engine::Problem& p, const char* what, bool local,
                                        const std::vector<engine::EngineEntry>& from) {
  if (!has(engine::featuresOf(p), engine::kQuadObjective | engine::kQuadRows))
    return firstTaking(p, what, from, false);
  const Convexity c = checkConvexity(p);
  if (c.convex) return firstTaking(p, what, from, false);
  if (!local) refuseNonconvex(p, c, what);
  return firstTaking(p, what, from, true);
}

void logUnusedParameters(const engine::EngineEntry& e, const engine::Settings& s) {
  for (const auto& [name, value] : s.changedParameters) {
    bool used = false;
    for (const char* honoured : e.caps.parameters) used = used || name == honoured;
    if (!used)
      engine::logLine(s, std::string(e.name) + " does not use parameter \"" + name + "\" (set to " +
                             value + ")");
  }
}

}  // namespace klo
