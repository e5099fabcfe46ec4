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
  if (name == "ResultFile") {
    o.resultFiles.push_back(value);
  } else if (name == "PlotFile") {
    if (!o.plotFile.empty()) throw UsageError("PlotFile given twice");
    o.plotFile = value;
  } else {
    o.parameters.emplace_back(name, value);
  }
}

// The argument after --help names a parameter unless it is a setting or
// another option.
bool isHelpTopic(const std::vector<std::string>& args, std::size_t i) {
  return i + 1 < args.size() && args[i + 1].find('=') == std::string::npos &&
         !args[i + 1].empty() && args[i + 1][0] != '-';
}

}  // namespace

Options parseCommandLine(const std::vector<std::string>& args) {
  Options o;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (isHelp(arg)) {
      o.help = true;
      if (isHelpTopic(args, i)) o.helpParameter = args[++i];
    } else if (arg == "--version") {
      o.version = true;
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
  if (!o.help && !o.version && o.modelFile.empty()) throw UsageError("no model file given");
  return o;
}

}  // namespace klo_cl
