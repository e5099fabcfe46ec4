#include "solve/settings_from_params.h"

namespace klo {
namespace {

void lpSettings(engine::Settings& s, const ParamSet& p) {
  s.method = static_cast<engine::LpMethod>(p.getInt("Method"));
  s.presolve = p.getInt("Presolve");
  s.maxSimplexIterations = p.getInt("SPX/MaxIterations");
  s.primalTolerance = p.getDbl("SPX/PrimalTolerance");
  s.dualTolerance = p.getDbl("SPX/DualTolerance");
  s.maxBarrierIterations = p.getInt("IPM/MaxIterations");
  s.ipmPrimalTolerance = p.getDbl("IPM/PrimalTolerance");
  s.ipmDualTolerance = p.getDbl("IPM/DualTolerance");
  s.ipmGapTolerance = p.getDbl("IPM/GapTolerance");
}

void mipSettings(engine::Settings& s, const ParamSet& p) {
  s.maxNodes = p.getInt("MIP/MaxNodes");
  s.maxSolutions = p.getInt("MIP/MaxSols");
  s.gapAbs = p.getDbl("MIP/GapAbs");
  s.gapRel = p.getDbl("MIP/GapRel");
  s.cutoff = p.getDbl("MIP/Cutoff");
  s.integerTolerance = p.getDbl("MIP/IntegerTolerance");
  s.levelCuts = p.getInt("MIP/LevelCuts");
  s.levelHeurs = p.getInt("MIP/LevelHeurs");
  s.levelProbing = p.getInt("MIP/LevelProbing");
  s.levelStrong = p.getInt("MIP/LevelStrong");
  s.maxStallingNodes = p.getInt("MIP/MaxStallingNodes");
  s.objectiveTolerance = p.getDbl("MIP/ObjectiveTolerance");
  s.solutionPoolSize = p.getInt("MIP/SolutionPoolSize");
  s.lazyConstraints = p.getInt("MIP/EnableLazyConstr") != 0;
}

// Parameters that the library applies itself, whatever the engine.
bool libraryParameter(const std::string& name) {
  for (const char* own : {"OutputFlag", "LogToConsole", "LogFile", "ObjNumber",
                          "MIP/SolutionNumber", "MIP/LinearizationBigM"})
    if (name == own) return true;
  return false;
}

}  // namespace

engine::Settings settingsFromParams(KLOenv& env) {
  const ParamSet& p = env.params;
  engine::Settings s;
  lpSettings(s, p);
  mipSettings(s, p);
  s.maxTime = p.getDbl("MaxTime");
  s.nonconvexLocal = p.getInt("NonConvex") != 0;
  s.started = std::chrono::steady_clock::now();
  s.numThreads = p.getInt("NumThreads");
  // With nowhere to write, the engine need not format its messages at all.
  const bool console = p.getInt("LogToConsole") != 0;
  const bool file = !p.getStr("LogFile").empty();
  s.logLevel = p.getInt("OutputFlag") != 0 && (console || file) ? 1 : 0;
  for (auto& [name, value] : p.nonDefaults())
    if (!libraryParameter(name)) s.changedParameters.emplace_back(name, value);
  KLOenv* e = &env;
  s.log = [e](const std::string& line) { e->message(line); };
  return s;
}

}  // namespace klo
