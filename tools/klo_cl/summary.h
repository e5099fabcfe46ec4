// What klo_cl prints around a solve.
#pragma once

#include <klo_c.h>

#include <ostream>
#include <string>

namespace klo_cl {

// One line on the model just read: its size and kind.
void printModelSize(KLOmodel* model, const std::string& file, std::ostream& out);

// Status, objective, bound and gap (for MIPs), time, iterations, and the
// answer check's largest violations.
void printSummary(KLOmodel* model, std::ostream& out);

}  // namespace klo_cl
