#include "io/text_file.h"

#include <unistd.h>
#include <zlib.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"

namespace klo {

std::string readTextFile(const std::string& path) {
  gzFile f = gzopen(path.c_str(), "rb");  // reads plain files unchanged
  if (!f) fail(KLO_ERROR_FILE_OPEN, "Cannot open \"" + path + "\": " + std::strerror(errno));
  std::string text;
  std::vector<char> buf(1 << 16);
  int n;
  while ((n = gzread(f, buf.data(), static_cast<unsigned>(buf.size()))) > 0)
    text.append(buf.data(), n);
  int err = 0;
  std::string detail = n < 0 ? gzerror(f, &err) : "";
  gzclose(f);
  if (n < 0) fail(KLO_ERROR_FILE_READ, "Cannot read \"" + path + "\": " + detail);
  return text;
}

void writeTextFile(const std::string& path, const std::string& text) {
  bool ok;
  if (endsWith(path, ".gz")) {
    gzFile f = gzopen(path.c_str(), "wb");
    if (!f) fail(KLO_ERROR_FILE_WRITE, "Cannot write \"" + path + "\"");
    ok = text.empty() || gzwrite(f, text.data(), static_cast<unsigned>(text.size())) > 0;
    ok = gzclose(f) == Z_OK && ok;
  } else {
    FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) fail(KLO_ERROR_FILE_WRITE, "Cannot write \"" + path + "\": " + std::strerror(errno));
    ok = std::fwrite(text.data(), 1, text.size(), f) == text.size();
    ok = std::fclose(f) == 0 && ok;
  }
  if (!ok) fail(KLO_ERROR_FILE_WRITE, "Error writing \"" + path + "\"");
}

TempPath::TempPath() {
  const char* dir = std::getenv("TMPDIR");
  std::string tmpl = std::string(dir && *dir ? dir : "/tmp") + "/klo_XXXXXX";
  std::vector<char> name(tmpl.begin(), tmpl.end());
  name.push_back('\0');
  int fd = mkstemp(name.data());
  if (fd < 0) fail(KLO_ERROR_FILE_WRITE, "Cannot create a temporary file in " + tmpl);
  close(fd);
  path_ = name.data();
}

TempPath::~TempPath() { std::remove(path_.c_str()); }

}  // namespace klo
