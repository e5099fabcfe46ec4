// Entry checks of the model functions: a null model, a model being solved.
#pragma once

#include <type_traits>

#include "capi/guard.h"
#include "klo_c.h"
#include "store/model.h"

namespace klo {

// Runs a function that only reads the model.
template <class F>
int readModel(KLOmodel* m, F&& body) {
  if (!m) return KLO_ERROR_NULL_ARGUMENT;
  return guarded(&m->env, body);
}

// Runs a function that changes the model; on success the results of the
// last solve are discarded, unless the body returns true (a change such as
// a name that leaves the problem as it was).  A failing body has changed
// nothing.
template <class F>
int changeModel(KLOmodel* m, F&& body) {
  if (!m) return KLO_ERROR_NULL_ARGUMENT;
  return guarded(&m->env, [&] {
    if (m->busy) fail(KLO_ERROR_BUSY, "The model cannot be changed while it is being solved");
    if constexpr (std::is_same_v<decltype(body()), bool>) {
      m->changed(body());
    } else {
      body();
      m->changed(false);
    }
  });
}

// Copies a count to *p when p is not null.
template <class T>
void putIf(T* p, T v) {
  if (p) *p = v;
}

}  // namespace klo
