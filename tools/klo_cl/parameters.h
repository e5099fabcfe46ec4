// Parameters as users type them on the command line: names in any letter
// case, values checked strictly against the parameter's type and range.
#pragma once

#include <klo_c.h>

#include <ostream>
#include <string>

namespace klo_cl {

// Sets parameter `name` of env from the text `value`.  Throws UsageError for
// an unknown name or a value that is not a number of the parameter's type,
// LibraryError when the library refuses the value.
void setParameter(KLOenv* env, const std::string& name, const std::string& value);

// Writes the type, range, default and meaning of parameter `name`; throws
// UsageError for an unknown name.
void describeParameter(KLOenv* env, const std::string& name, std::ostream& out);

// Writes every parameter with its type, default and range.
void listParameters(KLOenv* env, std::ostream& out);

}  // namespace klo_cl
