#include "io/mps_lines.h"

#include <array>
#include <cstring>

#include "common/error.h"
#include "klo_c.h"

namespace klo {
namespace {

// What separates fields, as a table: every byte of a file is tested.
constexpr std::array<bool, 256> blanks() {
  std::array<bool, 256> t{};
  for (unsigned char c : {' ', '\t', '\r', '\v', '\f'}) t[c] = true;
  return t;
}
constexpr std::array<bool, 256> kBlank = blanks();

bool blank(char c) { return kBlank[static_cast<unsigned char>(c)]; }

std::string_view trimmed(std::string_view s) {
  size_t b = 0, e = s.size();
  while (b < e && blank(s[b])) ++b;
  while (e > b && blank(s[e - 1])) --e;
  return s.substr(b, e - b);
}

// The fixed-format fields as [begin, end) byte offsets.
constexpr size_t kFixed[MpsLine::kMaxFields][2] = {{1, 3},   {4, 12},  {14, 22},
                                                   {24, 36}, {39, 47}, {49, 61}};

// Whether the bytes of text outside every fixed field are blank.
bool onlyFieldsUsed(std::string_view text) {
  size_t from = 0;
  for (const auto& f : kFixed) {
    for (size_t i = from; i < f[0] && i < text.size(); ++i)
      if (!blank(text[i])) return false;
    from = f[1];
  }
  for (size_t i = from; i < text.size(); ++i)
    if (!blank(text[i])) return false;
  return true;
}

}  // namespace

MpsLines::MpsLines(std::string_view text, bool fixed, const std::string& path)
    : text_(text), fixed_(fixed), path_(path) {}

bool MpsLines::next(MpsLine& line) {
  while (pos_ < text_.size()) {
    const char* start = text_.data() + pos_;
    const void* nl = std::memchr(start, '\n', text_.size() - pos_);
    size_t len = nl ? static_cast<const char*>(nl) - start : text_.size() - pos_;
    std::string_view text(start, len);
    pos_ += len + 1;
    ++number_;
    if (text.empty() || text[0] == '*' || trimmed(text).empty()) continue;
    line.number = number_;
    line.header = !blank(text[0]);
    line.text = text;
    if (line.header || !fixed_)
      split(text, line);
    else
      splitFixed(text, line);
    return true;
  }
  return false;
}

void MpsLines::split(std::string_view text, MpsLine& line) const {
  line.count = 0;
  size_t i = 0;
  while (true) {
    while (i < text.size() && blank(text[i])) ++i;
    if (i == text.size()) return;
    if (line.count == MpsLine::kMaxFields)
      failAt(path_, number_, "expected at most 6 fields, found the line " + quoted(text));
    size_t b = i;
    while (i < text.size() && !blank(text[i])) ++i;
    line.field[line.count++] = text.substr(b, i - b);
    if (line.header) {  // the keyword, then the rest of the line as one field
      std::string_view rest = trimmed(text.substr(i));
      if (!rest.empty()) line.field[line.count++] = rest;
      return;
    }
  }
}

void MpsLines::splitFixed(std::string_view text, MpsLine& line) const {
  size_t end = text.size();
  while (end > 0 && blank(text[end - 1])) --end;
  text = text.substr(0, end);
  if (!onlyFieldsUsed(text))
    failAt(path_, number_,
           "expected fixed-format fields in columns 2-3, 5-12, 15-22, 25-36, 40-47 and 50-61, "
           "found the line " +
               quoted(text));
  line.count = 0;
  for (const auto& f : kFixed) {
    if (f[0] >= text.size()) break;
    std::string_view field = trimmed(text.substr(f[0], f[1] - f[0]));
    if (!field.empty()) line.field[line.count++] = field;
  }
}

void failAt(const std::string& path, int line, const std::string& what) {
  fail(KLO_ERROR_FILE_READ, path + ":" + std::to_string(line) + ": " + what);
}

std::string quoted(std::string_view s) {
  constexpr size_t kShown = 40;
  size_t n = s.size();
  if (n > kShown) {
    n = kShown;
    while (n > 0 && (static_cast<unsigned char>(s[n]) & 0xC0) == 0x80) --n;  // whole UTF-8
  }
  std::string out = "\"";
  for (size_t i = 0; i < n; ++i) {
    unsigned char c = static_cast<unsigned char>(s[i]);
    out += c < 0x20 || c == 0x7f ? '?' : static_cast<char>(c);
  }
  return out + (n < s.size() ? "...\"" : "\"");
}

}  // namespace klo
