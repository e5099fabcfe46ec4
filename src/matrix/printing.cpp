// Stream output of matrices: a dense grid when every position is stored,
// "(row, col) = value" lines otherwise; the middle of large matrices is
// elided with "...".
#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <vector>

#include "klo_cpp.h"

namespace {

constexpr int kMarker = -1;  // stands for the elided middle

// The shown positions 0 .. count-1: all of them when count <= limit, else
// the first and last keep of them around a marker.
std::vector<int> shown(int count, int limit, int keep) {
  std::vector<int> out;
  if (count <= limit) {
    for (int i = 0; i < count; ++i) out.push_back(i);
    return out;
  }
  for (int i = 0; i < keep; ++i) out.push_back(i);
  out.push_back(kMarker);
  for (int i = count - keep; i < count; ++i) out.push_back(i);
  return out;
}

template <class T>
int textLength(T x) {
  std::ostringstream text;
  text << x;
  return static_cast<int>(text.str().size());
}

// The dense layout reads values by array position alone: a matrix whose
// entry count equals rows * cols is taken to be stored in row-major order.
void printDense(std::ostream& os, const KLOMatrix& m) {
  const double* v = m.data();
  const int cols = m.cols();
  const std::vector<int> rows = shown(m.rows(), 10, 5);
  const std::vector<int> columns = shown(cols, 6, 3);
  std::vector<int> width(columns.size(), 0);
  for (std::size_t c = 0; c < columns.size(); ++c) {
    if (columns[c] == kMarker) continue;
    for (int r : rows)
      if (r != kMarker) width[c] = std::max(width[c], length(v[r * cols + columns[c]]));
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    os << std::endl;
    if (rows[i] == kMarker) {
      os << "    ...," << std::endl;
      continue;
    }
    os << "    [";
    for (std::size_t c = 0; c < columns.size(); ++c) {
      if (c > 0) os << ", ";
      if (columns[c] == kMarker)
        os << "...";
      else
        os << std::setw(width[c]) << v[rows[i] * cols + columns[c]];
    }
    os << "]";
    if (i + 1 < rows.size()) os << ",";
  }
  os << std::endl << "]";
}

int rowOf(int position, int cols) {
  if (cols == 0) return 0;
  if (cols == -1) return static_cast<int>(0u - static_cast<unsigned>(position));
  return position / cols;
}

void printSparse(std::ostream& os, const KLOMatrix& m) {
  const int cols = m.cols();
  const std::vector<int> entries = shown(m.nonzeros(), 10, 5);
  if (entries.empty()) {
    os << "]";
    return;
  }
  const int* pos = m.indices();
  const double* val = m.data();
  auto row = [&](int k) { return rowOf(pos[k], cols); };
  auto col = [&](int k) {
    return static_cast<int>(static_cast<unsigned>(pos[k]) -
                            static_cast<unsigned>(row(k)) * static_cast<unsigned>(cols));
  };
  int rowWidth = 0, colWidth = 0, valueWidth = 0;
  for (int k : entries) {
    if (k == kMarker) continue;
    rowWidth = std::max(rowWidth, length(row(k)));
    colWidth = std::max(colWidth, length(col(k)));
    valueWidth = std::max(valueWidth, length(val[k]));
  }
  os << std::endl;
  for (int k : entries) {
    if (k == kMarker) {
      os << "    ..." << std::endl;
      continue;
    }
    os << "    (" << std::setw(rowWidth) << row(k) << ", " << std::setw(colWidth) << col(k)
       << ") = " << std::setw(valueWidth) << val[k] << std::endl;
  }
  os << "]";
}

}  // namespace

int length(double x) { return textLength(x); }

int length(int x) { return textLength(x); }

std::ostream& operator<<(std::ostream& os, KLOMatrix m) {
  os << "KLOMatrix(" << m.rows() << ", " << m.cols() << ")" << std::endl << "[";
  const int positions =
      static_cast<int>(static_cast<unsigned>(m.rows()) * static_cast<unsigned>(m.cols()));
  if (m.nonzeros() != positions)
    printSparse(os, m);
  else if (positions == 0)
    os << "]";  // nothing to lay out
  else
    printDense(os, m);
  return os;
}
