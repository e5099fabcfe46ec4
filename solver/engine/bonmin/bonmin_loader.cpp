// The MINLP engine lives in its own library, libklo_bonmin (Bonmin brings
// Cbc, Cgl and Ipopt), loaded on the first solve that needs it.
#include "engine/engine.h"
#include "engine/module_loader.h"

namespace klo::engine {
namespace {

std::unique_ptr<Engine> makeBonminEngine() {
  return makeModuleEngine(
      EngineModule{"libklo_bonmin.so", "klo_new_bonmin_engine", "the MINLP engine"});
}

}  // namespace

// Declared here, in the library itself, so that choosing an engine never
// loads the module.
EngineEntry bonminEntry() {
  Capabilities caps;
  caps.features = kIntegers | kQuadObjective | kQuadRows;
  caps.pool = true;  // its incumbents
  // For a nonconvex model B-BB is a heuristic whose answer is locally
  // optimal with its integer values fixed, as Ipopt's answers are: the
  // chooser hands it one only when "NonConvex" asks for a local optimum.
  caps.local = true;
  caps.parameters = {"MaxTime",    "MIP/MaxNodes", "MIP/MaxSols",          "MIP/GapAbs",
                     "MIP/GapRel", "MIP/Cutoff",   "MIP/IntegerTolerance", "MIP/SolutionPoolSize"};
  return EngineEntry{"Bonmin", caps, makeBonminEngine};
}

}  // namespace klo::engine
