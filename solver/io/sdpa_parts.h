// What an SDPA file gives, kept as read (counts, block sizes, the c vector
// and every entry with its line) and turned into a ModelData once the whole
// file is read: the entries are sorted there, so the file may list them in
// any order, and a repeated one is found.
#pragma once

#include <string>
#include <vector>

#include "store/model_data.h"

namespace klo {

// Entry (row, col) of block `block` of matrix `matrix`, all numbered as in
// the file (matrix 0 is the objective, the others from 1).
struct SdpaEntry {
  int matrix, block, row, col;
  double value;
  int line;
};

struct SdpaParts {
  std::vector<int> blocks;  // sizes: s > 0 a matrix block, -s a diagonal one
  std::vector<double> c;    // one right-hand side a constraint
  std::vector<SdpaEntry> entries;

  // Throws KLO_ERROR_FILE_READ "path:line: ..." for an entry that repeats
  // an earlier one.
  ModelData build(const std::string& path);
};

}  // namespace klo
