#include "options.h"

namespace klo_cl {

namespace {

bool isHelp(const std::string& a) { return a == "--help" || a == "-h" || a == "-?"; }

bool isParamFile(const std::string& a) {
  return a.size() > 4 && a.compare(a.size() - 4, 4, ".prm") == 0;
}

void addSetting(Options& o, const std::string& arg, std::size_t eq) {
  std::string name = arg.substr(0, eq);
  std::string value = arg.substr(eq + 1);
  if (name.empty()) throw UsageError("missing parameter name in '" + arg + "'");
  if (value.empty()) throw UsageError("missing value for parameter " + name);
  if (name == "ResultFile")
    o.resultFiles.push_back(value);
  else
    o.parameters.emplace_back(name, value);
}

}  // namespace

Options parseCommandLine(const std::vector<std::string>& args) {
  Options o;
  for (const std::string& arg : args) {
    if (isHelp(arg)) {
      o.help = true;
    } else if (std::size_t eq = arg.find('='); eq != std::string::npos) {
      addSetting(o, arg, eq);
    } else if (isParamFile(arg)) {
      o.parameters.emplace_back(kParamFile, arg);
    } else if (!arg.empty() && arg[0] == '-') {
      throw UsageError("unknown option " + arg);
    } else if (o.modelFile.empty()) {
      o.modelFile = arg;
    } else {
      throw UsageError("more than one model file: " + o.modelFile + " and " + arg);
    }
  }
  if (!o.help && o.modelFile.empty()) throw UsageError("no model file given");
  return o;
}

}  // namespace klo_cl
