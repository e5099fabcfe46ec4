// Identity records behind handles: which record type and removed-element
// code belong to each handle class, and the checked way to reach a record.
#pragma once

#include <vector>

#include "klo_c.h"
#include "klo_cpp.h"
#include "model/access.h"

namespace klo_detail {

template <class H>
struct HandleTraits;

#define KLO_HANDLE_TRAITS(Handle, Record, Code)  \
  template <>                                    \
  struct HandleTraits<Handle> {                  \
    using ID = Record;                           \
    static constexpr const char* name = #Handle; \
    static constexpr int removedCode = Code;     \
  }

KLO_HANDLE_TRAITS(KLOVar, KLOVarID, KLO_ERROR_INVALID_VAR);
KLO_HANDLE_TRAITS(KLOPsdVar, KLOPsdVarID, KLO_ERROR_INVALID_VAR);
KLO_HANDLE_TRAITS(KLOConstr, KLOConstrID, KLO_ERROR_INVALID_CONSTR);
KLO_HANDLE_TRAITS(KLOQConstr, KLOQConstrID, KLO_ERROR_INVALID_CONSTR);
KLO_HANDLE_TRAITS(KLOPsdConstr, KLOPsdConstrID, KLO_ERROR_INVALID_CONSTR);
KLO_HANDLE_TRAITS(KLOGenConstr, KLOGenConstrID, KLO_ERROR_INVALID_CONSTR);
KLO_HANDLE_TRAITS(KLOSOS, KLOSOSID, KLO_ERROR_INVALID_CONSTR);

#undef KLO_HANDLE_TRAITS

// Raised for any use of a default-constructed handle.
[[noreturn]] void emptyHandle(const char* handleClass, int code);

template <class H>
typename HandleTraits<H>::ID& record(const H& h) {
  const auto& id = Access::id(h);
  if (!id) emptyHandle(HandleTraits<H>::name, HandleTraits<H>::removedCode);
  return *id;
}

// A handle over a fresh record: the only way records come to exist.
template <class H>
H newHandle(void* model, int index) {
  return Access::make<H, typename HandleTraits<H>::ID>(model, index);
}

// Moves a handle to a new index (renumbering and removal).
template <class H>
void renumber(const H& h, int index) {
  record(h).index = index;
}

// Drops entry k of a handle vector: the removed record gets the complement
// of k and the later entries move down with their records renumbered.  An
// index outside the vector changes nothing.
template <class H>
void dropAt(std::vector<H>& handles, int k) {
  if (k < 0 || k >= static_cast<int>(handles.size())) return;
  renumber(handles[static_cast<std::size_t>(k)], ~k);
  for (std::size_t i = static_cast<std::size_t>(k); i + 1 < handles.size(); ++i) {
    handles[i] = handles[i + 1];
    renumber(handles[i], static_cast<int>(i));
  }
  handles.pop_back();
}

}  // namespace klo_detail
