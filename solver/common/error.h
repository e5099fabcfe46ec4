// Internal failure type of the solver library.  Store, file and parameter
// code throws it; the C functions catch it, record the message in the
// environment and return the code.
#pragma once

#include <string>

namespace klo {

struct Error {
  int code;             // a KLO_ERROR_... code of klo_c.h
  std::string message;  // the detail: which name, which index, which file line
};

[[noreturn]] void fail(int code, std::string message);

}  // namespace klo
