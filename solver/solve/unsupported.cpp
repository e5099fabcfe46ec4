#include "solve/unsupported.h"

#include <string>

#include "common/error.h"
#include "klo_c.h"

namespace klo {
namespace {

// The first feature of d without an engine, or null.
const char* missingFeature(const ModelData& d, Switched semi) {
  if (d.qobj.size() > 0) return "quadratic objective terms";
  for (const Row& r : d.rows) {
    if (r.hasQuad()) return "quadratic constraints";
    if (r.hasPsd()) return "PSD terms in constraints";
  }
  if (!d.psdVars.empty()) return "PSD variables";
  if (!d.indicators.empty()) return "indicator constraints";
  if (semi == Switched::Solved) return nullptr;
  for (char t : d.type) {
    if (t == KLO_SEMICONT) return "semi-continuous variables";
    if (t == KLO_SEMIINT) return "semi-integer variables";
  }
  return nullptr;
}

}  // namespace

void refuseUnsupported(const ModelData& d, const char* what, Switched semi) {
  if (const char* feature = missingFeature(d, semi))
    fail(KLO_ERROR_NOT_SUPPORTED, std::string(what) + ": the model has " + feature +
                                      ", which no engine of this library solves");
}

}  // namespace klo
