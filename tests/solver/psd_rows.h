// The PSD terms of every row as text, read from the store: the C interface
// has no getter for them, and file round trips must keep them.
#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "store/model.h"

namespace klotest {

inline std::string psdRows(KLOmodel* m) {
  std::ostringstream out;
  out.precision(17);
  for (size_t i = 0; i < m->data.rows.size(); ++i) {
    const klo::Row& r = m->data.rows[i];
    if (!r.hasPsd()) continue;
    std::vector<klo::PsdTerm> terms = r.nl->psd;  // in the order of their PSD variables
    std::sort(terms.begin(), terms.end(),
              [](const klo::PsdTerm& a, const klo::PsdTerm& b) { return a.psdVar < b.psdVar; });
    for (const klo::PsdTerm& t : terms) {
      out << "row " << i << " psd " << t.psdVar << ":";
      for (int k = 0; k < t.mat.size(); ++k) out << " " << t.mat.pos[k] << "=" << t.mat.val[k];
      out << "\n";
    }
  }
  return out.str();
}

}  // namespace klotest
