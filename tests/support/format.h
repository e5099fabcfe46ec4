// Readable forms of recorded values, shared by Call::str and the fake's
// error messages.
#pragma once

#include <string>

#include "klo_fake.h"

namespace klo_fake {

// A value as Call::str prints it: ptr, null, 3, 0.1, 'C', "x", [1, 2].
std::string format(const Value& v);
// A double with the fewest significant digits (up to 17) that read back
// as the same number.
std::string formatDouble(double d);
// What kind of value v holds ("int", "double array", ...), for messages.
const char* kindName(const Value& v);

}  // namespace klo_fake
