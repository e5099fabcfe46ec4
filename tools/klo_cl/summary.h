// The summary klo_cl prints after a solve.
#pragma once

#include <ostream>
#include <string>

class KLOModel;

namespace klo_cl {

// One line on the model just read: its size and kind.
void printModelSize(const KLOModel& model, const std::string& file, std::ostream& out);

// Status, objective, bound and gap (for MIPs), time and iterations.
void printSummary(const KLOModel& model, std::ostream& out);

// The plain word for a value of the "Status" attribute.
const char* statusName(int status);

}  // namespace klo_cl
