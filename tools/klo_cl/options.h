// The command line of klo_cl: parameter settings, result files, the model.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace klo_cl {

struct Options {
  bool help = false;
  std::vector<std::pair<std::string, std::string>> parameters;  // Name=value, in order
  std::vector<std::string> resultFiles;                         // ResultFile=...
  std::string modelFile;
};

// A command line that cannot be used; the message says why.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads `klo_cl [--help] [Name=value ...] model-file`.
Options parseCommandLine(const std::vector<std::string>& args);

}  // namespace klo_cl
