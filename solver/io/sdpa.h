// SDPA sparse files (".dat-s", plain or gzip-compressed): the semidefinite
// program  maximise tr(F0 Y)  subject to  tr(Fi Y) = ci (i = 1..m),
// Y >= 0 block-diagonal.  A matrix block of size s is a PSD variable of
// dimension s; a diagonal block (size -s) is s variables in [0, infinity).
// Row i is tr(Fi Y) = ci; F0 is the objective ("PsdObj" and "Obj").  SDPA
// lists the upper triangle of each symmetric block, as the store keeps it,
// so entries carry over unscaled.
#pragma once

#include <cstddef>
#include <string>

#include "store/model_data.h"

namespace klo {

// The most variables the diagonal blocks of a file of textBytes may hold:
// they cost memory but no bytes of the file, and a few bytes must not ask
// for gigabytes.  The writer keeps to it too, so that what it writes reads.
size_t sdpaDiagonalLimit(size_t textBytes);

// Throws KLO_ERROR_FILE_OPEN, or KLO_ERROR_FILE_READ with the file and line.
ModelData readSdpa(const std::string& path);
// Throws KLO_ERROR_FILE_WRITE, or KLO_ERROR_NOT_SUPPORTED for a model of
// another shape (naming the part SDPA cannot hold).  A minimised model is
// written with its objective negated, since SDPA maximises.
void writeSdpa(const std::string& path, const ModelData& d);

}  // namespace klo
