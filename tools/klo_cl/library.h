// The solver library as klo_cl uses it: through its C interface, so that it
// can read every attribute by name, with owners that free what they hold
// and one failure type that carries the library's code.
#pragma once

#include <klo_c.h>

#include <stdexcept>
#include <string>

namespace klo_cl {

// A library call that failed: its code and the library's detail.
struct LibraryError : std::runtime_error {
  LibraryError(int code, const std::string& detail);
  int code;
};

// Throws LibraryError for a non-zero status, with env's last error message.
void check(KLOenv* env, int status);

struct Environment {
  Environment();  // an environment not yet started
  ~Environment() { KLOfreeenv(env); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  KLOenv* env = nullptr;
};

struct Model {
  Model(KLOenv* env, const std::string& file);  // reads the model
  ~Model() { KLOfreemodel(model); }
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;
  KLOenv* env() const { return KLOgetenv(model); }
  KLOmodel* model = nullptr;
};

}  // namespace klo_cl
