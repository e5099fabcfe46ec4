#include "io/lp_lexer.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

#include "common/error.h"
#include "klo_c.h"

namespace klo {
namespace {

bool nameChar(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) ||
         std::strchr("_.!\"#$%&(),;?@{}~'|", c) != nullptr;
}

}  // namespace

std::vector<LpToken> lexLp(const std::string& text, const std::string& path) {
  std::vector<LpToken> out;
  int line = 1;
  bool atStart = true;
  size_t i = 0, n = text.size();
  while (i < n) {
    char c = text[i];
    if (c == '\n') {
      ++line, ++i, atStart = true;
      continue;
    }
    if (std::isspace(static_cast<unsigned char>(c))) {
      ++i;
      continue;
    }
    if (c == '\\') {
      while (i < n && text[i] != '\n') ++i;
      continue;
    }
    LpToken t{LpToken::Op, "", 0, line, atStart};
    atStart = false;
    if (std::isdigit(static_cast<unsigned char>(c)) ||
        (c == '.' && i + 1 < n && std::isdigit(static_cast<unsigned char>(text[i + 1])))) {
      char* end = nullptr;
      t.value = std::strtod(text.c_str() + i, &end);
      size_t len = end - (text.c_str() + i);
      t.kind = LpToken::Number;
      t.text = text.substr(i, len);
      i += len;
    } else if (nameChar(c)) {
      size_t b = i;
      while (i < n && nameChar(text[i])) ++i;
      t.kind = LpToken::Name;
      t.text = text.substr(b, i - b);
    } else {
      static const char* const twoChar[] = {"<=", ">=", "=<", "=>", "->", "::"};
      size_t len = 0;
      for (const char* op : twoChar)
        if (text.compare(i, 2, op) == 0) t.text = op, len = 2;
      if (len == 0 && std::strchr("+-*/^[]:<>=", c)) t.text = std::string(1, c), len = 1;
      if (len == 0)
        fail(KLO_ERROR_FILE_READ, path + ":" + std::to_string(line) + ": unexpected character '" +
                                      std::string(1, c) + "'");
      // One spelling per relation.
      if (t.text == "=<" || t.text == "<") t.text = "<=";
      if (t.text == "=>" || t.text == ">") t.text = ">=";
      i += len;
    }
    out.push_back(t);
  }
  out.push_back({LpToken::End, "", 0, line, true});
  return out;
}

}  // namespace klo
