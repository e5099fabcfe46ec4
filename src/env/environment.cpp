#include <utility>

#include "env/check.h"
#include "env/names.h"
#include "env/params.h"
#include "klo_c.h"
#include "klo_cpp.h"

namespace {

KLOenv* lib(void* env) { return static_cast<KLOenv*>(env); }

// The library may hand out an environment even when it fails; that one is
// freed before the failure is raised, so a failed constructor leaves nothing.
void* checkedEnv(int status, KLOenv* env) {
  if (status != 0 && env) KLOfreeenv(env);
  klo_detail::check(status);
  return env;
}

void* load(const char* logFile) {
  KLOenv* env = nullptr;
  const int status = KLOloadenv(&env, logFile);
  return checkedEnv(status, env);
}

void* create(bool empty) {
  if (!empty) return load(nullptr);
  KLOenv* env = nullptr;
  const int status = KLOemptyenv(&env);
  return checkedEnv(status, env);
}

}  // namespace

KLOEnv::KLOEnv(bool empty)
    : env_(create(empty)), owned_(true), released_(std::make_shared<bool>(false)) {}

KLOEnv::KLOEnv(const char* logFile)
    : env_(load(logFile)), owned_(true), released_(std::make_shared<bool>(false)) {}

KLOEnv::KLOEnv(const std::string& logFile) : KLOEnv(logFile.c_str()) {}

KLOEnv::KLOEnv(void* libraryEnvironment, std::shared_ptr<bool> released)
    : env_(libraryEnvironment), owned_(false), released_(std::move(released)) {}

KLOEnv::KLOEnv(KLOEnv&& other) noexcept
    : env_(other.env_), owned_(other.owned_), released_(other.released_) {
  other.owned_ = false;
}

KLOEnv& KLOEnv::operator=(const KLOEnv& other) {
  env_ = other.env_;
  return *this;
}

KLOEnv::~KLOEnv() {
  if (owned_) KLOfreeenv(lib(env_));
}

void* KLOEnv::live() const {
  if (*released_) throw KLOException("Environment associated model has been released.", -100000);
  return env_;
}

void KLOEnv::start() { klo_detail::check(KLOstartenv(lib(live()))); }

void KLOEnv::message(const std::string& text) { KLOmsg(lib(live()), text.c_str()); }

int KLOEnv::get(KLO_IntParam param) const { return klo_detail::getParam(live(), param); }

double KLOEnv::get(KLO_DoubleParam param) const { return klo_detail::getParam(live(), param); }

std::string KLOEnv::get(KLO_StringParam param) const { return klo_detail::getParam(live(), param); }

void KLOEnv::set(KLO_IntParam param, int value) { klo_detail::setParam(live(), param, value); }

void KLOEnv::set(KLO_DoubleParam param, double value) {
  klo_detail::setParam(live(), param, value);
}

void KLOEnv::set(KLO_StringParam param, const std::string& value) {
  klo_detail::setParam(live(), param, value);
}

void KLOEnv::set(const std::string& name, const std::string& value) {
  void* env = live();
  klo_detail::setByName([env] { return env; }, name, value, klo_detail::Retry::Rewind);
}

void KLOEnv::getParamInfo(KLO_IntParam param, int* value, int* min, int* max, int* def) const {
  klo_detail::check(KLOgetintparaminfo(lib(live()), klo_detail::name(param), value, min, max, def));
}

void KLOEnv::getParamInfo(KLO_DoubleParam param, double* value, double* min, double* max,
                          double* def) const {
  klo_detail::check(KLOgetdblparaminfo(lib(live()), klo_detail::name(param), value, min, max, def));
}

void KLOEnv::getParamInfo(KLO_StringParam param, std::string& value, std::string& def) const {
  char current[klo_detail::kStringBuffer] = {};
  char initial[klo_detail::kStringBuffer] = {};
  klo_detail::check(KLOgetstrparaminfo(lib(live()), klo_detail::name(param), current, initial));
  value = current;
  def = initial;
}

void KLOEnv::resetParams() { KLOresetparams(lib(live())); }

void KLOEnv::writeParams(const std::string& file) {
  klo_detail::check(KLOwriteparams(lib(live()), file.c_str()));
}

void KLOEnv::readParams(const std::string& file) {
  klo_detail::check(KLOreadparams(lib(live()), file.c_str()));
}

std::string KLOEnv::getErrorMsg() const { return KLOgeterrormsg(lib(live())); }
