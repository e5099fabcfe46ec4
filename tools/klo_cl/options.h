// The command line of klo_cl: parameter settings, result files, the model.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace klo_cl {

// The setting name under which parameter files join the parameters, so
// that files and Name=value settings apply in command-line order.
inline const std::string kParamFile = "ParamFile";

struct Options {
  bool help = false;
  std::string helpParameter;  // --help NAME: that parameter alone
  bool version = false;
  // Name=value, and (kParamFile, path) for a parameter file, in order.
  std::vector<std::pair<std::string, std::string>> parameters;
  std::vector<std::string> resultFiles;  // ResultFile=...
  std::string plotFile;                  // PlotFile=...
  std::string modelFile;
};

// A command line that cannot be used; the message says why.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads `klo_cl [Name=value | file.prm ...] model-file`, `klo_cl --help [NAME]`
// and `klo_cl --version`.
Options parseCommandLine(const std::vector<std::string>& args);

}  // namespace klo_cl
