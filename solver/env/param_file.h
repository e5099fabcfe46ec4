// Parameter files (".prm"): one "name value" pair a line, '#' starts a
// comment, blank lines are ignored.
#pragma once

#include <string>

#include "env/param_set.h"

namespace klo {

// base with the file's settings applied.  Any malformed line, unknown name or
// bad value throws KLO_ERROR_FILE_READ naming the file and line.
ParamSet readParamFile(const std::string& path, const ParamSet& base);
// Writes the parameters that differ from their defaults.
void writeParamFile(const std::string& path, const ParamSet& params);

}  // namespace klo
