#include "env/params.h"

#include <sstream>

#include "env/check.h"
#include "env/names.h"
#include "klo_c.h"

namespace klo_detail {
namespace {

KLOenv* lib(void* env) { return static_cast<KLOenv*>(env); }

}  // namespace

int getParam(void* env, KLO_IntParam param) {
  int value = 0;
  check(KLOgetintparam(lib(env), name(param), &value));
  return value;
}

double getParam(void* env, KLO_DoubleParam param) {
  double value = 0.0;
  check(KLOgetdblparam(lib(env), name(param), &value));
  return value;
}

std::string getParam(void* env, KLO_StringParam param) {
  char buffer[kStringBuffer] = {};
  check(KLOgetstrparam(lib(env), name(param), buffer));
  return buffer;
}

void setParam(void* env, KLO_IntParam param, int value) {
  check(KLOsetintparam(lib(env), name(param), value));
}

void setParam(void* env, KLO_DoubleParam param, double value) {
  check(KLOsetdblparam(lib(env), name(param), value));
}

void setParam(void* env, KLO_StringParam param, const std::string& value) {
  check(KLOsetstrparam(lib(env), name(param), value.c_str()));
}

void setByName(const std::function<void*()>& env, const std::string& name, const std::string& value,
               Retry retry) {
  std::stringstream text;
  text << value;
  int asInt = 0;
  text >> asInt;
  if (KLOsetintparam(lib(env()), name.c_str(), asInt) == 0) return;
  if (retry == Retry::Rewind) {
    // A failed integer read leaves the stream failed, so a text without
    // a leading number reaches the double attempt as 0.0.
    text.seekg(0);
    if (text) text.seekp(0);
  } else {
    // Kept as it has always behaved: "1.5" arrives as 0.51.
    text.clear();
  }
  text << value;
  double asDouble = 0.0;
  text >> asDouble;
  if (KLOsetdblparam(lib(env()), name.c_str(), asDouble) == 0) return;
  check(KLOsetstrparam(lib(env()), name.c_str(), value.c_str()));
}

}  // namespace klo_detail
