#include "solve/chooser.h"

#include <string>

#include "common/error.h"
#include "engine/log.h"
#include "klo_c.h"

namespace klo {
namespace {

using engine::Feature;

bool has(unsigned features, unsigned f) { return (features & f) != 0; }

// The features of `wanted` that no engine of `from` takes, lowest bit first.
unsigned untaken(unsigned wanted, const std::vector<engine::EngineEntry>& from) {
  unsigned anyTakes = 0;
  for (const engine::EngineEntry& e : from) anyTakes |= e.caps.features;
  return wanted & ~anyTakes;
}

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
  }
  return "unknown";
}

const engine::EngineEntry& chooseEngine(const engine::Problem& p, const char* what,
                                        const std::vector<engine::EngineEntry>& from) {
  const unsigned wanted = engine::featuresOf(p);
  for (const engine::EngineEntry& e : from)
    if (e.caps.takes(wanted)) return e;
  const unsigned missing = untaken(wanted, from);
  const std::string features = missing ? featureList(lowestBit(missing)) : featureList(wanted);
  fail(KLO_ERROR_NOT_SUPPORTED, std::string(what) + ": the model has " + features +
                                    ", which no engine of this library solves");
}

const engine::EngineEntry& chooseEngine(const engine::Problem& p, const char* what) {
  return chooseEngine(p, what, engine::engines());
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
