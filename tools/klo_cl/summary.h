// The summary klo_cl prints after a solve.
#pragma once

#include <ostream>

class KLOModel;

namespace klo_cl {

// Status, objective, bound and gap (for MIPs), time and iterations.
void printSummary(const KLOModel& model, std::ostream& out);

// The plain word for a value of the "Status" attribute.
const char* statusName(int status);

}  // namespace klo_cl
