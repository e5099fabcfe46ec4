// The environment behind the opaque KLOenv: parameters, log, last error.
#pragma once

#include <string>

#include "env/log.h"
#include "env/param_set.h"
#include "klo_c.h"

struct KLOenv {
  klo::ParamSet params;
  klo::LogSink log;
  bool started = false;
  // Set for the environment a model owns (and those of its objectives):
  // KLOfreeenv refuses it, the model frees it.
  bool ownedByModel = false;
  std::string lastError;

  // Writes one line to the log as "OutputFlag", "LogToConsole" and "LogFile"
  // say.
  void message(const std::string& line);
  // Sets "LogFile" and redirects the log (the file must be writable).
  void setLogFile(const std::string& path);
  // Sets a parameter from text, keeping the log in step with "LogFile".
  void setParamText(const std::string& name, const std::string& text);
  // Replaces every parameter, keeping the log in step.
  void replaceParams(const klo::ParamSet& p);
};
