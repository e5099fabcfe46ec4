// The small files that go with a model: start values (".mst"), solutions
// (".sol", read back as start values) and bases (".bas", the MPS basis
// format).
#pragma once

#include <string>
#include <vector>

#include "store/model_data.h"

namespace klo {

// ".mst" and ".sol" alike: "name value" a line, '#' comments.  Variables
// not named keep their start values.  Unknown names and bad values throw
// KLO_ERROR_FILE_READ with the line.
std::vector<double> readStartFile(const std::string& path, const ModelData& d);
// ".mst" with the values given (KLO_UNDEFINED ones left out).
void writeStartFile(const std::string& path, const ModelData& d, const std::vector<double>& x);

// ".sol": the objective value in a comment, then "name value" a line.
void writeSolutionFile(const std::string& path, const ModelData& d, double objective,
                       const std::vector<double>& x);

struct Basis {
  std::vector<int> cols, rows;  // KLO_BASIS_...
};
// ".bas": XU/XL pair a basic column with a row at its upper/lower bound,
// UL/LL a column at its upper/lower bound; SB marks a superbasic element.
// Unnamed elements are at their lower bound (columns) or basic (rows).
Basis readBasisFile(const std::string& path, const ModelData& d);
void writeBasisFile(const std::string& path, const ModelData& d, const Basis& b);

}  // namespace klo
