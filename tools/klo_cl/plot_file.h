// PlotFile=: the progress of the run as a picture (.svg, .png) or as a
// table (.csv).
#pragma once

#include <string>

#include "progress.h"

namespace klo_cl {

// Throws UsageError unless `path` has one of the plot's extensions and can
// be written, so that a bad name is known before the solve.
void checkPlotFile(const std::string& path);

// Writes the progress to `path`; throws ChartError when it cannot.
void writePlot(const Progress& progress, const std::string& path);

}  // namespace klo_cl
