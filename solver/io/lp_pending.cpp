#include "common/error.h"
#include "io/lp.h"
#include "klo_c.h"

namespace klo {

ModelData readLp(const std::string& path) {
  fail(KLO_ERROR_NOT_SUPPORTED, "Reading LP files (\"" + path + "\") is not implemented yet");
}

void writeLp(const std::string& path, const ModelData&) {
  fail(KLO_ERROR_NOT_SUPPORTED, "Writing LP files (\"" + path + "\") is not implemented yet");
}

}  // namespace klo
