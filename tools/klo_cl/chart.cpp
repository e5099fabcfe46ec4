#include "chart.h"

#include <cairo-svg.h>
#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

namespace klo_cl {
namespace {

// The legend sits in the right margin, clear of the lines.
constexpr double kWidth = 760, kHeight = 440;
constexpr double kLeft = 90, kRight = 150, kTop = 44, kBottom = 58;

// Colours that stay apart for colour-blind readers: blue, orange, green.
constexpr double kColours[][3] = {{0.0, 0.45, 0.70}, {0.90, 0.38, 0.0}, {0.0, 0.62, 0.45}};

struct Range {
  double lo = INFINITY, hi = -INFINITY;
  void add(double v) {
    if (!std::isfinite(v)) return;
    lo = std::min(lo, v);
    hi = std::max(hi, v);
  }
  // A range with room around a single value, and [0, 1] when empty.
  void settle() {
    if (lo > hi) lo = 0, hi = 1;
    if (hi - lo <= 1e-12 * std::max(1.0, std::fabs(hi))) {
      const double pad = std::max(1.0, std::fabs(hi) * 0.01);
      lo -= pad, hi += pad;
    }
  }
};

// A tick step of 1, 2 or 5 times a power of ten, giving about five ticks.
double tickStep(const Range& r) {
  const double raw = (r.hi - r.lo) / 5;
  const double unit = std::pow(10.0, std::floor(std::log10(raw)));
  const double f = raw / unit;
  return unit * (f < 1.5 ? 1 : f < 3.5 ? 2 : f < 7.5 ? 5 : 10);
}

struct Frame {
  Range x, y;
  double px(double v) const {
    return kLeft + (v - x.lo) / (x.hi - x.lo) * (kWidth - kLeft - kRight);
  }
  double py(double v) const {
    return kHeight - kBottom - (v - y.lo) / (y.hi - y.lo) * (kHeight - kTop - kBottom);
  }
};

void text(cairo_t* cr, const std::string& s, double x, double y, double alignX, double size) {
  cairo_set_font_size(cr, size);
  cairo_text_extents_t e;
  cairo_text_extents(cr, s.c_str(), &e);
  cairo_move_to(cr, x - alignX * e.width - e.x_bearing, y);
  cairo_show_text(cr, s.c_str());
}

std::string tickLabel(double v, double step) {
  char s[32];
  std::snprintf(s, sizeof s, "%.6g", std::fabs(v) < step * 1e-6 ? 0.0 : v);
  return s;
}

void drawAxes(cairo_t* cr, const Frame& f, const Chart& c) {
  cairo_set_source_rgb(cr, 0, 0, 0);
  cairo_set_line_width(cr, 1);
  cairo_rectangle(cr, kLeft, kTop, kWidth - kLeft - kRight, kHeight - kTop - kBottom);
  cairo_stroke(cr);
  const double xs = tickStep(f.x), ys = tickStep(f.y);
  for (double v = std::ceil(f.x.lo / xs) * xs; v <= f.x.hi + xs * 1e-9; v += xs) {
    cairo_move_to(cr, f.px(v), kHeight - kBottom);
    cairo_line_to(cr, f.px(v), kHeight - kBottom + 5);
    cairo_stroke(cr);
    text(cr, tickLabel(v, xs), f.px(v), kHeight - kBottom + 18, 0.5, 11);
  }
  for (double v = std::ceil(f.y.lo / ys) * ys; v <= f.y.hi + ys * 1e-9; v += ys) {
    cairo_move_to(cr, kLeft - 5, f.py(v));
    cairo_line_to(cr, kLeft, f.py(v));
    cairo_stroke(cr);
    text(cr, tickLabel(v, ys), kLeft - 8, f.py(v) + 4, 1, 11);
  }
  text(cr, c.title, (kLeft + kWidth - kRight) / 2, 26, 0.5, 15);
  text(cr, c.xLabel, (kLeft + kWidth - kRight) / 2, kHeight - 14, 0.5, 13);
  cairo_save(cr);
  cairo_translate(cr, 20, (kTop + kHeight - kBottom) / 2);
  cairo_rotate(cr, -std::acos(0.0));  // a quarter turn anticlockwise
  text(cr, c.yLabel, 0, 0, 0.5, 13);
  cairo_restore(cr);
}

// One series as one path: a line through its points (or steps), broken
// where a value is unknown.
void drawSeries(cairo_t* cr, const Frame& f, const Series& s, bool steps) {
  bool open = false;
  double lastY = 0;
  for (std::size_t i = 0; i < s.x.size(); ++i) {
    if (!std::isfinite(s.y[i])) {
      open = false;
      continue;
    }
    if (!open)
      cairo_move_to(cr, f.px(s.x[i]), f.py(s.y[i]));
    else if (steps)
      cairo_line_to(cr, f.px(s.x[i]), f.py(lastY));
    cairo_line_to(cr, f.px(s.x[i]), f.py(s.y[i]));
    open = true;
    lastY = s.y[i];
  }
  cairo_stroke(cr);
}

void drawLegend(cairo_t* cr, const Chart& c) {
  double y = kTop + 18;
  for (std::size_t i = 0; i < c.series.size(); ++i, y += 18) {
    const double* rgb = kColours[i % 3];
    cairo_set_source_rgb(cr, rgb[0], rgb[1], rgb[2]);
    cairo_rectangle(cr, kWidth - kRight + 12, y - 9, 18, 8);
    cairo_fill(cr);
    cairo_set_source_rgb(cr, 0, 0, 0);
    text(cr, c.series[i].name, kWidth - kRight + 36, y, 0, 12);
  }
}

void draw(cairo_t* cr, const Chart& c) {
  Frame f;
  f.x.add(0);  // time and iterations count from the start
  for (const Series& s : c.series) {
    for (double v : s.x) f.x.add(v);
    for (double v : s.y) f.y.add(v);
  }
  f.x.settle();
  f.y.settle();
  const double pad = (f.y.hi - f.y.lo) * 0.05;
  f.y.lo -= pad, f.y.hi += pad;
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  drawAxes(cr, f, c);
  cairo_save(cr);
  cairo_rectangle(cr, kLeft, kTop, kWidth - kLeft - kRight, kHeight - kTop - kBottom);
  cairo_clip(cr);
  cairo_set_line_width(cr, 2);
  for (std::size_t i = 0; i < c.series.size(); ++i) {
    const double* rgb = kColours[i % 3];
    cairo_set_source_rgb(cr, rgb[0], rgb[1], rgb[2]);
    drawSeries(cr, f, c.series[i], c.steps);
  }
  cairo_restore(cr);
  drawLegend(cr, c);
}

bool endsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

void fail(const std::string& path, cairo_status_t status) {
  throw ChartError("cannot write " + path + ": " + cairo_status_to_string(status));
}

void write(const Chart& chart, const std::string& path) {
  const bool png = endsWith(path, ".png");
  Surface surface(png ? cairo_image_surface_create(CAIRO_FORMAT_RGB24, int(kWidth), int(kHeight))
                      : cairo_svg_surface_create(path.c_str(), kWidth, kHeight),
                  cairo_surface_destroy);
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
    fail(path, cairo_surface_status(surface.get()));
  {
    Context cr(cairo_create(surface.get()), cairo_destroy);
    draw(cr.get(), chart);
    if (cairo_status(cr.get()) != CAIRO_STATUS_SUCCESS) fail(path, cairo_status(cr.get()));
  }
  cairo_status_t status = CAIRO_STATUS_SUCCESS;
  if (png) {
    status = cairo_surface_write_to_png(surface.get(), path.c_str());
  } else {
    cairo_surface_finish(surface.get());  // the SVG is written out here
    status = cairo_surface_status(surface.get());
  }
  if (status != CAIRO_STATUS_SUCCESS) fail(path, status);
}

}  // namespace

void drawChart(const Chart& chart, const std::string& path) {
  write(chart, path);
  // Fonts are loaded once a run: hand back the font caches, so that the
  // leak checker sees none left behind.
  cairo_debug_reset_static_data();
  FcFini();
}

}  // namespace klo_cl
