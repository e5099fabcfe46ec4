// The part of the linear-constraint operations that variables and
// attributes need: lookup and removal with renumbering of the row's three
// handles.
#include <vector>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"
#include "model/records.h"

namespace {

// Drops entry k of a row vector, moving the later entries down.
template <class H>
void dropRow(std::vector<H>& row, int k) {
    if (k < 0 || k >= static_cast<int>(row.size())) return;
    klo_detail::renumber(row[k], ~k);
    for (int i = k; i + 1 < static_cast<int>(row.size()); ++i) {
        row[i] = row[i + 1];
        klo_detail::renumber(row[i], i);
    }
    row.pop_back();
}

}  // namespace

KLOConstr KLOModel::getConstr(int i) const {
    if (i < 0 || i >= static_cast<int>(constrs_.size())) klo_detail::raise(-2002);
    return constrs_[i];
}

void KLOModel::remove(KLOConstr c) {
    if (klo_detail::record(c).model != model_) klo_detail::raise(-2002);
    const int k = c.index();
    klo_detail::check(KLOdelconstrs(static_cast<KLOmodel*>(model_), 1, &k));
    if (k < 0) return;  // the library refuses removed rows; nothing to renumber
    klo_detail::renumber(c, ~k);
    dropRow(constrs_, k);
    dropRow(qconstrs_, k);
    dropRow(psdconstrs_, k);
}
