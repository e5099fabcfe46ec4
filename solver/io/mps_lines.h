// The lines of an MPS text as fields.  A line starting in column 1 is a
// section header: its keyword and the rest of the line.  Other lines are
// data: free format splits them at blanks; fixed format cuts the columns
// 2-3, 5-12, 15-22, 25-36, 40-47 and 50-61, where names may hold blanks.
// Blank lines and comments ('*' in column 1) are skipped.
#pragma once

#include <string>
#include <string_view>

namespace klo {

struct MpsLine {
  static constexpr int kMaxFields = 6;
  int number = 0;  // counted from 1
  bool header = false;
  std::string_view text;  // the whole line, for messages
  int count = 0;          // fields used; empty fixed-format fields are left out
  std::string_view field[kMaxFields];
};

class MpsLines {
 public:
  // text must outlive the lines read from it.
  MpsLines(std::string_view text, bool fixed, const std::string& path);
  // The next line with content; false at the end of the text.  Throws
  // KLO_ERROR_FILE_READ for a data line with more fields than MPS has.
  bool next(MpsLine& line);
  // The number of the line last read (the last line at the end).
  int number() const { return number_; }

 private:
  void split(std::string_view text, MpsLine& line) const;
  void splitFixed(std::string_view text, MpsLine& line) const;

  std::string_view text_;
  bool fixed_;
  const std::string& path_;
  size_t pos_ = 0;
  int number_ = 0;
};

// Throws KLO_ERROR_FILE_READ "path:line: what".
[[noreturn]] void failAt(const std::string& path, int line, const std::string& what);
// s in double quotes, cut to 40 bytes, control characters shown as '?':
// names and fields in messages stay readable whatever the file holds.
std::string quoted(std::string_view s);

}  // namespace klo
