#include "library.h"

namespace klo_cl {

LibraryError::LibraryError(int c, const std::string& detail)
    : std::runtime_error(std::string(KLOexplainerror(c)) + " (" + std::to_string(c) + ")" +
                         (detail.empty() ? "" : "\n  " + detail)),
      code(c) {}

void check(KLOenv* env, int status) {
  if (status == 0) return;
  const char* detail = env ? KLOgeterrormsg(env) : nullptr;
  throw LibraryError(status, detail ? detail : "");
}

Environment::Environment() { check(nullptr, KLOemptyenv(&env)); }

Model::Model(KLOenv* e, const std::string& file) {
  check(e, KLOreadmodel(e, file.c_str(), &model));
}

}  // namespace klo_cl
