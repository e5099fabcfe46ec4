#include "callback/info_codes.h"

#include "env/check.h"
#include "klo_c.h"

namespace klo_detail {

namespace {

constexpr int kTableSize = 318;

}  // namespace

const char* infoEntry(int what) {
  if (what < 0 || what >= kTableSize) return "**";
  if ((what >= 200 && what <= 202) || (what >= 306 && what <= 312)) return "im";
  if (what >= 300 && what <= 302) return "dm";
  if (what == 316 || what == 317) return "dv";
  return "**";
}

void checkIntInfo(int what) {
  const char* entry = infoEntry(what);
  if (what < 0 || what >= kTableSize || (entry[0] != 'i' && entry[1] != 'm'))
    raise(KLO_ERROR_CALLBACK_INFO);
}

void checkDoubleInfo(int what) {
  const char* entry = infoEntry(what);
  if (what < 0 || what >= kTableSize || (entry[0] != 'd' && entry[1] != 'm'))
    raise(KLO_ERROR_CALLBACK_INFO);
}

}  // namespace klo_detail
