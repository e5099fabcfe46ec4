#include "env/environment.h"

void KLOenv::message(const std::string& line) {
  if (params.getInt("OutputFlag") == 0) return;
  log.write(line, params.getInt("LogToConsole") != 0, true);
}

void KLOenv::setLogFile(const std::string& path) {
  klo::ParamSet next = params;
  next.setStr("LogFile", path);
  log.open(path);
  params = next;
}

void KLOenv::setParamText(const std::string& name, const std::string& text) {
  klo::ParamSet next = params;
  next.setFromText(name, text);
  replaceParams(next);
}

void KLOenv::replaceParams(const klo::ParamSet& p) {
  const std::string& path = p.getStr("LogFile");
  if (path != params.getStr("LogFile")) log.open(path);
  params = p;
}
