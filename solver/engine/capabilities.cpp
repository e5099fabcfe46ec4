#include "engine/capabilities.h"

#include "klo_c.h"

namespace klo::engine {

unsigned featuresOf(const Problem& p) {
  unsigned f = 0;
  for (char t : p.colType) {
    if (t == KLO_BINARY || t == KLO_INTEGER) f |= kIntegers;
    if (t == KLO_SEMICONT || t == KLO_SEMIINT) f |= kSemicontinuous;
  }
  if (!p.sos.empty()) f |= kSos;
  if (p.objQuad.size() > 0) f |= kQuadObjective;
  if (!p.quadRows.empty()) f |= kQuadRows;
  if (!p.psdVars.empty()) f |= kPsd;
  if (!p.indicators.empty()) f |= kIndicators;
  return f;
}

const char* featureName(Feature f) {
  switch (f) {
    case kIntegers: return "integer variables";
    case kSos: return "SOS constraints";
    case kSemicontinuous: return "semi-continuous or semi-integer variables";
    case kQuadObjective: return "quadratic objective terms";
    case kQuadRows: return "quadratic constraints";
    case kPsd: return "PSD variables";
    case kIndicators: return "indicator constraints";
  }
  return "unknown feature";
}

}  // namespace klo::engine
