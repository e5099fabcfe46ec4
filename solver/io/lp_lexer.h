// Tokens of the LP format, with the line each one starts on.
#pragma once

#include <string>
#include <vector>

namespace klo {

struct LpToken {
  enum Kind { Name, Number, Op, End } kind;
  std::string text;  // the name, number or operator ("<=", ">=", "=", "->", "::", ...)
  double value = 0;  // for numbers
  int line = 0;
  bool lineStart = false;  // first token of its line
};

// Splits text into tokens; '\' starts a comment.  Throws
// KLO_ERROR_FILE_READ ("path:line: ...") on characters that belong to no
// token.
std::vector<LpToken> lexLp(const std::string& text, const std::string& path);

}  // namespace klo
