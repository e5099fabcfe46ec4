// The fake's state and its one recorder: every function of klo_c.h hands its
// arguments to Engine::call, which records the call and answers it from the
// matching script.
#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "arg.h"
#include "klo_fake.h"

namespace klo_fake {

// How a call was answered.
struct Reply {
  int status = 0;
  const Script* script = nullptr;  // the script that matched, if any
};

struct Engine {
  static Engine& instance();

  // Records function(args...), writes the scripted out-values and gives
  // the scripted status.
  Reply call(const char* function, std::initializer_list<Arg> args);
  // What a pointer-returning function returns: the scripted pointer, else
  // fallback.
  static const void* returned(const Reply& reply, const void* fallback);
  // A fresh handle address, distinct from the recent ones; callers never
  // dereference it.
  static const void* fresh();
  // The environment of a model (num -1) or of one of its objectives,
  // fresh on first use and the same afterwards.
  const void* environmentOf(const void* model, int num);
  // A copy of text that stays valid until reset.
  const char* keep(std::string text);

  std::vector<Call> calls;
  std::map<std::string, Script> scripts;
  std::map<std::pair<std::string, std::string>, Script> namedScripts;
  std::map<int, std::string> explanations;
  std::string errorText;
  Registered callback;
  Kept kept;
  std::map<std::pair<const void*, int>, const void*> environments;

 private:
  Script* match(const std::string& function, std::initializer_list<Arg> args);
  static Value recorded(const Arg& arg, std::size_t pos, const Script* script);
  void writeOutputs(std::initializer_list<Arg> args, const Script* script, std::size_t k);
};

// The one-line forms the C functions are written in.
inline int status(const char* function, std::initializer_list<Arg> args) {
  return Engine::instance().call(function, args).status;
}

template <class Handle>
Handle* handle(const char* function, std::initializer_list<Arg> args, const void* fallback) {
  const Reply reply = Engine::instance().call(function, args);
  return static_cast<Handle*>(const_cast<void*>(Engine::returned(reply, fallback)));
}

}  // namespace klo_fake
