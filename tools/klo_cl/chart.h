// A line chart drawn with cairo, as SVG or PNG by the file's extension.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace klo_cl {

struct Series {
  std::string name;
  std::vector<double> x, y;  // NaN in y leaves a gap
};

struct Chart {
  std::string title;
  std::string xLabel;
  std::string yLabel;
  bool steps = false;  // each value holds until the next point
  std::vector<Series> series;
};

// A picture that could not be written; the message names the file and why.
struct ChartError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Draws the chart into `path` (.svg or .png).
void drawChart(const Chart& chart, const std::string& path);

}  // namespace klo_cl
