#include "common/text_file.h"

#include <sys/stat.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "common/error.h"
#include "common/text.h"
#include "klo_c.h"

namespace klo {

namespace {

// The text's expected size, so that reading fills one buffer instead of
// growing it by copies: a plain file's size, or the size a gzip file records
// in its last four bytes (modulo 2^32; capped by the format's best ratio so
// that a forged trailer cannot reserve gigabytes).
size_t sizeHint(const std::string& path) {
  FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) return 0;
  unsigned char b[4] = {0, 0, 0, 0};
  bool gz = std::fread(b, 1, 2, f) == 2 && b[0] == 0x1f && b[1] == 0x8b;
  long stored = std::fseek(f, 0, SEEK_END) == 0 ? std::ftell(f) : 0;
  size_t hint = stored > 0 ? static_cast<size_t>(stored) : 0;
  if (gz && hint >= 18 && std::fseek(f, -4, SEEK_END) == 0 && std::fread(b, 1, 4, f) == 4) {
    size_t recorded = b[0] | b[1] << 8 | b[2] << 16 | static_cast<size_t>(b[3]) << 24;
    hint = std::min(recorded, hint * 1032);
  }
  std::fclose(f);
  return hint;
}

// Files and pipes only: a directory cannot be read as text, and a device
// (/dev/zero) would be read without end.
void refuseNonFile(const std::string& path) {
  struct stat st {};
  if (stat(path.c_str(), &st) != 0) return;  // gzopen says why
  if (S_ISDIR(st.st_mode)) fail(KLO_ERROR_FILE_OPEN, "\"" + path + "\" is a directory");
  if (S_ISCHR(st.st_mode) || S_ISBLK(st.st_mode))
    fail(KLO_ERROR_FILE_OPEN, "\"" + path + "\" is a device, not a file");
}

// Follows the length of the line being read across chunks.
class LineLimit {
 public:
  explicit LineLimit(const std::string& path) : path_(path) {}
  void add(const char* data, size_t n) {
    const char* end = data + n;
    for (const char* p = data; p < end;) {
      const char* nl = static_cast<const char*>(std::memchr(p, '\n', end - p));
      const size_t run = (nl ? nl : end) - p;
      if (current_ + run > KLO_MAX_LINE_LENGTH)
        fail(KLO_ERROR_FILE_READ, path_ + ":" + std::to_string(line_) + ": line longer than " +
                                      std::to_string(KLO_MAX_LINE_LENGTH) + " bytes");
      current_ = nl ? 0 : current_ + run;
      line_ += nl ? 1 : 0;
      p = nl ? nl + 1 : end;
    }
  }

 private:
  const std::string& path_;
  size_t current_ = 0;
  long long line_ = 1;
};

}  // namespace

std::string readTextFile(const std::string& path) {
  refuseNonFile(path);
  gzFile f = gzopen(path.c_str(), "rb");  // reads plain files unchanged
  if (!f) fail(KLO_ERROR_FILE_OPEN, "Cannot open \"" + path + "\": " + std::strerror(errno));
  std::string text;
  text.reserve(sizeHint(path));
  std::vector<char> buf(1 << 16);
  LineLimit limit(path);
  int n;
  try {
    while ((n = gzread(f, buf.data(), static_cast<unsigned>(buf.size()))) > 0) {
      limit.add(buf.data(), static_cast<size_t>(n));
      text.append(buf.data(), n);
    }
  } catch (...) {
    gzclose(f);
    throw;
  }
  // A stream cut short ends without a negative count: only the error
  // state tells.
  int err = Z_OK;
  const std::string detail = gzerror(f, &err);
  gzclose(f);
  if (n < 0 || (err != Z_OK && err != Z_STREAM_END))
    fail(KLO_ERROR_FILE_READ, "Cannot read \"" + path + "\": " + detail);
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

}  // namespace klo
