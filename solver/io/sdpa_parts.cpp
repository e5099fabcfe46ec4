#include "io/sdpa_parts.h"

#include <algorithm>
#include <tuple>

#include "io/mps_lines.h"
#include "store/edit.h"

namespace klo {
namespace {

auto key(const SdpaEntry& e) { return std::tie(e.matrix, e.block, e.row, e.col); }

// One matrix Fi as the store keeps it: linear coefficients from the
// diagonal blocks, a PSD term from each matrix block.
struct Placed {
  SparseVec lin;
  std::vector<PsdTerm> psd;
};

// What each block becomes: its PSD variable, or its first linear variable.
struct BlockMap {
  std::vector<int> first;
  std::vector<bool> diagonal;
};

BlockMap addBlocks(ModelData& d, const std::vector<int>& blocks) {
  BlockMap map;
  int linear = 0;
  for (int size : blocks) {
    map.diagonal.push_back(size < 0);
    map.first.push_back(size < 0 ? linear : static_cast<int>(d.psdVars.size()));
    if (size < 0)
      linear -= size;
    else
      addPsdVar(d, size, nullptr);
  }
  NewVars v;  // defaults: continuous in [0, infinity)
  v.cols.n = linear;
  addVars(d, v);
  return map;
}

// The entries [from, to) of one matrix, sorted by block, row and column.
Placed place(const std::vector<SdpaEntry>& e, size_t from, size_t to, const BlockMap& map,
             const ModelData& d) {
  Placed out;
  for (size_t k = from; k < to; ++k) {
    const SdpaEntry& x = e[k];
    if (x.value == 0) continue;  // the store keeps no zeros
    int b = x.block - 1, first = map.first[b];
    if (map.diagonal[b]) {
      out.lin.ind.push_back(first + x.row - 1);
      out.lin.val.push_back(x.value);
      continue;
    }
    if (out.psd.empty() || out.psd.back().psdVar != first) out.psd.push_back({first, {}});
    SymMatrix& m = out.psd.back().mat;
    m.pos.push_back((x.row - 1) * d.psdVars[first].dim + x.col - 1);
    m.val.push_back(x.value);
  }
  return out;
}

void checkRepeats(const std::vector<SdpaEntry>& e, const std::string& path) {
  for (size_t k = 1; k < e.size(); ++k) {
    if (key(e[k]) != key(e[k - 1])) continue;
    failAt(path, e[k].line,
           "entry (" + std::to_string(e[k].row) + ", " + std::to_string(e[k].col) + ") of block " +
               std::to_string(e[k].block) + " of matrix " + std::to_string(e[k].matrix) +
               " is given a second time (first on line " + std::to_string(e[k - 1].line) + ")");
  }
}

}  // namespace

ModelData SdpaParts::build(const std::string& path) {
  // Stable: of two equal entries the earlier line comes first.
  std::stable_sort(entries.begin(), entries.end(),
                   [](const SdpaEntry& a, const SdpaEntry& b) { return key(a) < key(b); });
  checkRepeats(entries, path);
  ModelData d;
  d.sense = -1;
  BlockMap map = addBlocks(d, blocks);
  size_t k = 0;
  for (int i = 0; i <= static_cast<int>(c.size()); ++i) {
    size_t from = k;
    while (k < entries.size() && entries[k].matrix == i) ++k;
    Placed p = place(entries, from, k, map, d);
    if (i == 0) {
      for (int t = 0; t < p.lin.size(); ++t) d.objectives[0].coef[p.lin.ind[t]] = p.lin.val[t];
      for (PsdTerm& t : p.psd) d.psdVars[t.psdVar].obj = std::move(t.mat);
      continue;
    }
    Row r;
    r.lower = r.upper = c[i - 1];
    r.lin = std::move(p.lin);
    if (!p.psd.empty()) r.nl.ensure().psd = std::move(p.psd);
    appendRow(d, std::move(r), nullptr);
  }
  return d;
}

}  // namespace klo
