// Adjustments of MPS text before CoinMpsIO reads it: what it ignores
// (OBJSENSE), what it cannot detect (free format without the FREE marker)
// and what it does not read (QMATRIX). Text that needs no adjustment passes
// through uncopied.
#pragma once

#include <string>

namespace klo {

// The sense given by an OBJSENSE section: -1 for MAX..., 1 otherwise.
int objectiveSense(const std::string& text);
// The text with the OBJSENSE section turned into comment lines (CoinMpsIO
// misreads its one-line form "OBJSENSE MAX").
std::string withoutObjsense(std::string text);
// The text with "FREE" on its NAME card, so that CoinMpsIO reads it as
// free format.
std::string markedFree(const std::string& text);
// The text with a QMATRIX section (both triangles of Q) turned into the
// QUADOBJ section (one triangle) that CoinMpsIO reads; dropped mirror
// entries become comment lines so that line numbers stay right.
std::string qmatrixAsQuadobj(std::string text);

}  // namespace klo
