// PSD coefficient matrices in the library's reading, moved onto their
// upper triangle, so that terms of one PSD variable can be merged by
// summing their matrices whichever triangle each was written in.
#pragma once

#include "klo_cpp.h"

namespace klo_detail {

// M as the library reads it (repeated positions add up; an off-diagonal
// entry whose mirror is not given stands for both; a pair given both ways
// and equal is one entry), stored as its upper triangle in new storage.
// False, M untouched, when the library would refuse M: not square, a
// position outside it, or a pair given both ways with different values.
bool foldToUpper(KLOMatrix& M);

}  // namespace klo_detail
