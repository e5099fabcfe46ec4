#include "plot_file.h"

#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "chart.h"
#include "options.h"

namespace klo_cl {
namespace {

bool endsWith(const std::string& s, const std::string& tail) {
  return s.size() > tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

Chart toChart(const Progress& p) {
  Chart c{p.title, p.xLabel, p.yLabel, p.steps, {}};
  for (int column : p.plotted) {
    Series s{p.columns[column], {}, {}};
    for (const auto& row : p.rows) {
      s.x.push_back(row[0]);
      s.y.push_back(row[column]);
    }
    c.series.push_back(s);
  }
  return c;
}

void writeCsv(const Progress& p, const std::string& path) {
  std::ofstream out(path);
  for (std::size_t i = 0; i < p.columns.size(); ++i) out << (i ? "," : "") << p.columns[i];
  out << "\n";
  char cell[32];
  for (const auto& row : p.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      std::snprintf(cell, sizeof cell, "%.10g", row[i]);
      out << (i ? "," : "") << (std::isnan(row[i]) ? "" : cell);
    }
    out << "\n";
  }
  out.close();
  if (!out) throw ChartError("cannot write " + path + ": " + std::strerror(errno));
}

}  // namespace

void checkPlotFile(const std::string& path) {
  if (!endsWith(path, ".svg") && !endsWith(path, ".png") && !endsWith(path, ".csv"))
    throw UsageError("PlotFile takes a name ending in .svg, .png or .csv, not '" + path + "'");
  const bool existed = access(path.c_str(), F_OK) == 0;
  std::FILE* f = std::fopen(path.c_str(), "a");  // "a": an existing file stays as it is
  if (!f) throw UsageError("cannot write plot file " + path + ": " + std::strerror(errno));
  std::fclose(f);
  if (!existed) std::remove(path.c_str());
}

void writePlot(const Progress& progress, const std::string& path) {
  if (endsWith(path, ".csv"))
    writeCsv(progress, path);
  else
    drawChart(toChart(progress), path);
}

}  // namespace klo_cl
