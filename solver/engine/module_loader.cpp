#include "engine/module_loader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <map>
#include <mutex>
#include <string>

#include "common/error.h"
#include "klo_c.h"

namespace klo::engine {
namespace {

using Factory = Engine* (*)();

// The directory this library was loaded from (build tree or install prefix).
std::string ownDirectory() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&makeModuleEngine), &info) || !info.dli_fname) return "";
  std::string self = info.dli_fname;
  std::string::size_type slash = self.rfind('/');
  return slash == std::string::npos ? "" : self.substr(0, slash + 1);
}

Factory loadFactory(const EngineModule& m, std::string& error) {
  const std::string beside = ownDirectory() + m.file;
  void* handle = dlopen(beside.c_str(), RTLD_NOW | RTLD_GLOBAL);
  // A module beside this library that fails to load says why, rather than
  // the search by name that follows.
  const char* first = handle ? nullptr : dlerror();
  const std::string besideError = first && access(beside.c_str(), F_OK) == 0 ? first : "";
  if (!handle) handle = dlopen(m.file, RTLD_NOW | RTLD_GLOBAL);
  if (!handle) {
    const char* why = dlerror();
    error = !besideError.empty() ? besideError : why ? why : std::string(m.file) + " not found";
    return nullptr;
  }
  auto factory = reinterpret_cast<Factory>(dlsym(handle, m.entry));
  if (!factory) error = std::string(m.file) + " lacks its entry point";
  return factory;
}

struct Loaded {
  Factory factory = nullptr;
  std::string error;
};

}  // namespace

std::unique_ptr<Engine> makeModuleEngine(const EngineModule& m) {
  static std::mutex mutex;
  static std::map<std::string, Loaded> modules;  // by file; tried once each
  Factory factory = nullptr;
  std::string error;
  {
    std::lock_guard<std::mutex> lock(mutex);
    auto [it, first] = modules.try_emplace(m.file);
    if (first) it->second.factory = loadFactory(m, it->second.error);
    factory = it->second.factory;
    error = it->second.error;
  }
  if (!factory) fail(KLO_ERROR_NOT_SUPPORTED, std::string(m.what) + " cannot be loaded: " + error);
  return std::unique_ptr<Engine>(factory());
}

}  // namespace klo::engine
