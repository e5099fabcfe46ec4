#include "env/check.h"

#include "klo_c.h"
#include "klo_cpp.h"

namespace klo_detail {

void raise(int code) { throw KLOException(KLOexplainerror(code), code); }

}  // namespace klo_detail
