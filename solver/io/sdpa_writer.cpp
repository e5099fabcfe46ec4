// Writes SDPA sparse files that readSdpa reads back to the same model: the
// PSD variables as matrix blocks in their order, then the linear variables
// as one diagonal block; numbers with the fewest digits that read back
// exactly.
#include <cmath>
#include <string>

#include "common/error.h"
#include "common/text.h"
#include "common/text_file.h"
#include "io/sdpa.h"
#include "klo_c.h"

namespace klo {
namespace {

// The first part of d that an SDPA file cannot hold, or null.
const char* unsupported(const ModelData& d) {
  if (d.objectives.size() > 1) return "several objectives";
  if (d.objectives[0].constant != 0) return "an objective constant";
  if (d.qobj.size() > 0) return "quadratic objective terms";
  if (!d.sos.empty()) return "SOS constraints";
  if (!d.indicators.empty()) return "indicator constraints";
  for (int j = 0; j < d.numVars(); ++j) {
    if (d.type[j] != 'C') return "integer, binary or semi-continuous variables";
    if (d.lb[j] != 0 || d.ub[j] < KLO_INFINITY)
      return "variables with bounds other than [0, infinity)";
  }
  for (const Row& r : d.rows) {
    if (r.hasQuad()) return "quadratic rows";
    if (r.lower != r.upper || std::abs(r.lower) >= KLO_INFINITY)
      return "rows other than equalities with a finite right-hand side";
  }
  if (d.rows.empty()) return "a model without rows";
  if (d.psdVars.empty() && d.numVars() == 0) return "a model without variables";
  return nullptr;
}

class SdpaWriter {
 public:
  explicit SdpaWriter(const ModelData& d)
      : d_(d), diagonal_(static_cast<int>(d.psdVars.size()) + 1) {}

  std::string text() {
    int blocks = static_cast<int>(d_.psdVars.size()) + (d_.numVars() > 0 ? 1 : 0);
    out_ = std::to_string(d_.numRows()) + "\n" + std::to_string(blocks) + "\n";
    for (const PsdVar& v : d_.psdVars) out_ += std::to_string(v.dim) + " ";
    if (d_.numVars() > 0) out_ += std::to_string(-d_.numVars());
    out_ += "\n";
    for (const Row& r : d_.rows) out_ += formatDouble(r.lower) + " ";
    out_ += "\n";
    // SDPA maximises: a minimised objective goes negated.
    double sign = d_.sense == 1 ? -1 : 1;
    for (size_t k = 0; k < d_.psdVars.size(); ++k)
      matrix(0, static_cast<int>(k), d_.psdVars[k].obj, sign);
    for (int j = 0; j < d_.numVars(); ++j)
      if (d_.obj()[j] != 0) entry(0, diagonal_, j, j, sign * d_.obj()[j]);
    for (int i = 0; i < d_.numRows(); ++i) row(i + 1, d_.rows[i]);
    return std::move(out_);
  }

 private:
  void row(int i, const Row& r) {
    if (r.hasPsd())
      for (const PsdTerm& t : r.nl->psd) matrix(i, t.psdVar, t.mat, 1);
    for (int k = 0; k < r.lin.size(); ++k)
      entry(i, diagonal_, r.lin.ind[k], r.lin.ind[k], r.lin.val[k]);
  }

  void matrix(int i, int psdVar, const SymMatrix& m, double sign) {
    int dim = d_.psdVars[psdVar].dim;
    for (int k = 0; k < m.size(); ++k)
      entry(i, psdVar + 1, m.pos[k] / dim, m.pos[k] % dim, sign * m.val[k]);
  }

  // Rows and columns from 0, written from 1.
  void entry(int matrix, int block, int r, int c, double v) {
    out_ += std::to_string(matrix) + " " + std::to_string(block) + " " + std::to_string(r + 1) +
            " " + std::to_string(c + 1) + " " + formatDouble(v) + "\n";
  }

  const ModelData& d_;
  int diagonal_;  // the number of the diagonal block
  std::string out_;
};

}  // namespace

void writeSdpa(const std::string& path, const ModelData& d) {
  if (const char* what = unsupported(d))
    fail(KLO_ERROR_NOT_SUPPORTED, "Cannot write \"" + path + "\": SDPA files cannot hold " + what);
  std::string text = SdpaWriter(d).text();
  if (static_cast<size_t>(d.numVars()) > sdpaDiagonalLimit(text.size()))
    fail(KLO_ERROR_NOT_SUPPORTED, "Cannot write \"" + path + "\": " + std::to_string(d.numVars()) +
                                      " variables are more than SDPA files of this length hold "
                                      "(one per byte, or 2^20)");
  writeTextFile(path, text);
}

}  // namespace klo
