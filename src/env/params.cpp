#include "env/params.h"

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

bool trySetInt(void* env, const std::string& name, int value) {
    return KLOsetintparam(lib(env), name.c_str(), value) == 0;
}

bool trySetDouble(void* env, const std::string& name, double value) {
    return KLOsetdblparam(lib(env), name.c_str(), value) == 0;
}

void setString(void* env, const std::string& name, const std::string& value) {
    check(KLOsetstrparam(lib(env), name.c_str(), value.c_str()));
}

}  // namespace klo_detail
