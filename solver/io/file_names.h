// Names as a file format needs them: non-empty, unique, without blanks.
#pragma once

#include <string>
#include <vector>

#include "store/name_table.h"

namespace klo {

// The names of table, with a generated prefix+index name wherever a name is
// empty, holds a character that is not allowed, or repeats an earlier one.
std::vector<std::string> fileNames(const NameTable& table, const std::string& prefix,
                                   const std::string& forbidden = "");

}  // namespace klo
