// Where an environment's log goes: the console and, when "LogFile" is set,
// a file the lines are appended to.
#pragma once

#include <fstream>
#include <string>

namespace klo {

class LogSink {
 public:
  LogSink() = default;
  // A copy writes to the same file but opens its own stream on first use.
  LogSink(const LogSink& o) : path_(o.path_) {}
  LogSink& operator=(const LogSink& o) {
    if (this != &o) setPath(o.path_);
    return *this;
  }

  // Checks that path can be appended to (throws KLO_ERROR_FILE_OPEN) and
  // directs the file part of the log there; "" closes it.
  void open(const std::string& path);
  // Writes line (a newline is added) to the console and/or the file.
  void write(const std::string& line, bool console, bool file);

 private:
  void setPath(const std::string& path);

  std::string path_;
  std::ofstream out_;
};

}  // namespace klo
