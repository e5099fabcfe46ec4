// Which file a name denotes, by its extension.
#pragma once

#include <string>

#include "store/model_data.h"

namespace klo {

enum class FileKind { Mps, Lp, Sdpa, Params, Start, Solution, Basis };

// The kind of path (".gz" is allowed after the model files' extensions only); throws
// KLO_ERROR_FILE_FORMAT for any other name.
FileKind fileKind(const std::string& path);

// A model file (".mps", ".qps" (MPS too), ".lp" or ".dat-s" (SDPA), optionally
// ".gz").
ModelData readModelFile(const std::string& path);
void writeModelFile(const std::string& path, const ModelData& d);

}  // namespace klo
