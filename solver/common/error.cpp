#include "common/error.h"

#include <utility>

namespace klo {

void fail(int code, std::string message) { throw Error{code, std::move(message)}; }

}  // namespace klo
