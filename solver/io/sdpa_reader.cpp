// Reads SDPA sparse files into SdpaParts, line by line: comment lines ('"'
// or '*' first) before the counts; mDIM, nBLOCK, the block sizes and the c
// vector, each on a line of its own; then one entry "matrix block row
// column value" a line.  Numbers are separated by blanks, commas, braces or
// parentheses ("{1, 2}"); the first word that cannot start a number begins
// a remark ("2 = mDIM"), which is not read.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <vector>

#include "common/text.h"
#include "common/text_file.h"
#include "io/mps_lines.h"
#include "io/sdpa.h"
#include "io/sdpa_parts.h"
#include "klo_c.h"

namespace klo {
namespace {

constexpr std::array<bool, 256> separators() {
  std::array<bool, 256> t{};
  for (unsigned char c : {' ', '\t', '\r', '\v', '\f', ',', '{', '}', '(', ')'}) t[c] = true;
  return t;
}
constexpr std::array<bool, 256> kSeparator = separators();

bool separator(char c) { return kSeparator[static_cast<unsigned char>(c)]; }

bool startsNumber(char c) { return (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.'; }

// Matrix blocks keep positions row * size + column in an int.
constexpr int kMaxMatrixBlock = 46340;

class SdpaReader {
 public:
  SdpaReader(std::string_view text, const std::string& path) : text_(text), path_(path) {}

  ModelData read() {
    int m = count("the number of constraints (mDIM)");
    comments_ = false;
    int n = count("the number of blocks (nBLOCK)");
    blockSizes(n);
    cVector(m);
    while (nextLine()) entry();
    return parts_.build(path_);
  }

 private:
  [[noreturn]] void bad(const std::string& what) const { failAt(path_, number_, what); }

  // The next line with content, split into the numbers before its remark.
  bool nextLine() {
    while (pos_ < text_.size()) {
      const char* start = text_.data() + pos_;
      const void* nl = std::memchr(start, '\n', text_.size() - pos_);
      size_t len = nl ? static_cast<const char*>(nl) - start : text_.size() - pos_;
      line_ = std::string_view(start, len);
      pos_ += len + 1;
      ++number_;
      size_t b = 0;
      while (b < len && separator(line_[b])) ++b;
      if (b == len || (comments_ && (line_[b] == '"' || line_[b] == '*'))) continue;
      split(b);
      return true;
    }
    return false;
  }

  void split(size_t i) {
    words_.clear();
    while (i < line_.size() && startsNumber(line_[i])) {
      size_t b = i;
      while (i < line_.size() && !separator(line_[i])) ++i;
      words_.push_back(line_.substr(b, i - b));
      while (i < line_.size() && separator(line_[i])) ++i;
    }
  }

  void need(const char* what) {
    if (nextLine()) return;
    failAt(path_, std::max(1, number_),
           std::string("expected ") + what + ", found the end of the file");
  }

  int integer(std::string_view w) const {
    int v = 0;
    if (w.size() > 1 && w[0] == '+' && w[1] != '-') w.remove_prefix(1);  // from_chars takes no '+'
    auto [end, ec] = std::from_chars(w.data(), w.data() + w.size(), v);
    if (ec != std::errc() || end != w.data() + w.size())
      bad("expected an integer, found " + quoted(w));
    return v;
  }

  double value(std::string_view w) const {
    double v = 0;
    if (!parseDouble(w, v)) bad("expected a number, found " + quoted(w));
    return v;
  }

  int count(const char* what) {
    need(what);
    if (words_.size() != 1) bad(std::string("expected ") + what + ", found " + quoted(line_));
    int v = integer(words_[0]);
    if (v < 1) bad(std::string("expected ") + what + " above 0, found " + quoted(words_[0]));
    return v;
  }

  void blockSizes(int n) {
    need("the block sizes");
    if (words_.size() != static_cast<size_t>(n))
      bad("expected " + std::to_string(n) + " block sizes, found " + quoted(line_));
    size_t diagonal = 0, limit = sdpaDiagonalLimit(text_.size());
    for (std::string_view w : words_) {
      int s = integer(w);
      if (s == 0) bad("expected a block size other than 0, found " + quoted(w));
      if (s > kMaxMatrixBlock)
        bad("matrix block size " + std::string(w) + " is above " + std::to_string(kMaxMatrixBlock));
      if (s < 0) diagonal += static_cast<size_t>(-static_cast<long long>(s));
      if (diagonal > limit)
        bad("the diagonal blocks hold more than " + std::to_string(limit) + " variables");
      parts_.blocks.push_back(s);
    }
  }

  void cVector(int m) {
    need("the c vector");
    if (words_.size() != static_cast<size_t>(m))
      bad("expected a c vector of length " + std::to_string(m) + ", found " + quoted(line_));
    for (std::string_view w : words_) {
      double v = value(w);
      if (std::abs(v) >= KLO_INFINITY)
        bad("right-hand side " + quoted(w) + " is not below 1e20, which stands for infinity");
      parts_.c.push_back(v);
    }
  }

  // An index of a kind, between lo and hi.
  int index(std::string_view w, const char* kind, int lo, int hi) const {
    int v = integer(w);
    if (v < lo || v > hi)
      bad("expected a " + std::string(kind) + " number from " + std::to_string(lo) + " to " +
          std::to_string(hi) + ", found " + quoted(w));
    return v;
  }

  void entry() {
    if (words_.size() != 5)
      bad("expected an entry \"matrix block row column value\", found " + quoted(line_));
    SdpaEntry e;
    e.matrix = index(words_[0], "matrix", 0, static_cast<int>(parts_.c.size()));
    e.block = index(words_[1], "block", 1, static_cast<int>(parts_.blocks.size()));
    int size = parts_.blocks[e.block - 1], dim = size < 0 ? -size : size;
    e.row = index(words_[2], "row", 1, dim);
    e.col = index(words_[3], "column", 1, dim);
    e.value = value(words_[4]);
    e.line = number_;
    if (e.row > e.col)
      bad("entry (" + std::string(words_[2]) + ", " + std::string(words_[3]) +
          ") is below the diagonal (SDPA lists the upper triangle)");
    if (size < 0 && e.row != e.col)
      bad("entry (" + std::string(words_[2]) + ", " + std::string(words_[3]) +
          ") is off the diagonal of diagonal block " + std::string(words_[1]));
    parts_.entries.push_back(e);
  }

  std::string_view text_;
  const std::string& path_;
  size_t pos_ = 0;
  int number_ = 0;
  bool comments_ = true;  // before mDIM only
  std::string_view line_;
  std::vector<std::string_view> words_;
  SdpaParts parts_;
};

}  // namespace

size_t sdpaDiagonalLimit(size_t textBytes) { return std::max(size_t{1} << 20, textBytes); }

ModelData readSdpa(const std::string& path) {
  const std::string text = readTextFile(path);
  return SdpaReader(text, path).read();
}

}  // namespace klo
