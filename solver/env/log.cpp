#include "env/log.h"

#include <cstdio>

#include "common/error.h"
#include "klo_c.h"

namespace klo {

void LogSink::setPath(const std::string& path) {
  if (out_.is_open()) out_.close();
  path_ = path;
}

void LogSink::open(const std::string& path) {
  if (!path.empty()) {
    std::ofstream probe(path, std::ios::app);
    if (!probe) fail(KLO_ERROR_FILE_OPEN, "Cannot open log file \"" + path + "\" for appending");
  }
  setPath(path);
}

void LogSink::write(const std::string& line, bool console, bool file) {
  if (console) {
    std::fputs(line.c_str(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
  }
  if (file && !path_.empty()) {
    if (!out_.is_open()) out_.open(path_, std::ios::app);
    out_ << line << '\n';
    out_.flush();
  }
}

}  // namespace klo
