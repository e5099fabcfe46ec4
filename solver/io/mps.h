// MPS files (fixed and free format, plain or gzip-compressed), read and
// written by the library's own code.  Sections: NAME, OBJSENSE, ROWS (the
// first N row is the objective; later N rows are dropped with their
// entries), COLUMNS with integer markers, RHS (the objective row's entry is
// minus the objective constant), RANGES, BOUNDS (UP, LO, FX, FR, MI, PL,
// BV, LI, UI, SC), SOS (S1/S2 with "column weight" or "column:weight"),
// QUADOBJ and QMATRIX (objective), QSECTION and QCMATRIX (a row's
// quadratic terms), ENDATA.
#pragma once

#include <string>

#include "store/model_data.h"

namespace klo {

// Throws KLO_ERROR_FILE_OPEN, or KLO_ERROR_FILE_READ with the file and line.
ModelData readMps(const std::string& path);
// Throws KLO_ERROR_FILE_WRITE, or KLO_ERROR_NOT_SUPPORTED for parts that
// MPS cannot hold (PSD rows and variables, indicators, semi-integer
// variables, more than one objective, a row whose lower bound is above its
// upper one).
void writeMps(const std::string& path, const ModelData& d);

}  // namespace klo
