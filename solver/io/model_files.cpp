#include "io/model_files.h"

#include "common/error.h"
#include "common/text.h"
#include "io/lp.h"
#include "io/mps.h"
#include "io/sdpa.h"
#include "klo_c.h"

namespace klo {

FileKind fileKind(const std::string& path) {
  std::string p = endsWith(path, ".gz") ? path.substr(0, path.size() - 3) : path;
  bool gz = p.size() != path.size();
  // ".qps" is what MPS files with quadratic sections are often called.
  if (endsWith(p, ".mps") || endsWith(p, ".qps")) return FileKind::Mps;
  if (endsWith(p, ".lp")) return FileKind::Lp;
  if (endsWith(p, ".dat-s")) return FileKind::Sdpa;
  if (!gz) {
    if (endsWith(p, ".prm")) return FileKind::Params;
    if (endsWith(p, ".mst")) return FileKind::Start;
    if (endsWith(p, ".sol")) return FileKind::Solution;
    if (endsWith(p, ".bas")) return FileKind::Basis;
  }
  fail(KLO_ERROR_FILE_FORMAT,
       "Unknown file format of \"" + path +
           "\" (expected .mps, .qps, .lp, .dat-s, optionally .gz, or .prm, .mst, .sol, .bas)");
}

ModelData readModelFile(const std::string& path) {
  switch (fileKind(path)) {
    case FileKind::Mps: return readMps(path);
    case FileKind::Lp: return readLp(path);
    case FileKind::Sdpa: return readSdpa(path);
    default:
      fail(KLO_ERROR_FILE_FORMAT,
           "\"" + path + "\" is not a model file (.mps, .qps, .lp or .dat-s)");
  }
}

void writeModelFile(const std::string& path, const ModelData& d) {
  switch (fileKind(path)) {
    case FileKind::Mps: return writeMps(path, d);
    case FileKind::Lp: return writeLp(path, d);
    case FileKind::Sdpa: return writeSdpa(path, d);
    default:
      fail(KLO_ERROR_FILE_FORMAT,
           "\"" + path + "\" is not a model file (.mps, .qps, .lp or .dat-s)");
  }
}

}  // namespace klo
