#include "engine.h"

#include <algorithm>

namespace klo_fake {
namespace {

// Entry k of a per-call list; calls past its end get the last entry.
template <class T>
const T& nth(const std::vector<T>& items, std::size_t k) {
  return items[std::min(k, items.size() - 1)];
}

// The call's first string argument: the attribute or parameter name.
const std::string* firstText(std::initializer_list<Arg> args) {
  for (const Arg& a : args) {
    if (const auto* s = std::get_if<std::string>(&a.value)) return s;
  }
  return nullptr;
}

}  // namespace

Engine& Engine::instance() {
  static Engine engine;
  return engine;
}

Reply Engine::call(const char* function, std::initializer_list<Arg> args) {
  Script* script = match(function, args);
  const std::size_t k = script != nullptr ? script->matched_++ : 0;
  Call recordedCall{function, {}};
  std::size_t pos = 0;
  for (const Arg& a : args) recordedCall.args.push_back(recorded(a, pos++, script));
  calls.push_back(std::move(recordedCall));
  writeOutputs(args, script, k);
  Reply reply;
  reply.script = script;
  if (script != nullptr && !script->statuses_.empty()) reply.status = nth(script->statuses_, k);
  return reply;
}

Script* Engine::match(const std::string& function, std::initializer_list<Arg> args) {
  if (const std::string* name = firstText(args)) {
    auto named = namedScripts.find({function, *name});
    if (named != namedScripts.end()) return &named->second;
  }
  auto general = scripts.find(function);
  return general != scripts.end() ? &general->second : nullptr;
}

Value Engine::recorded(const Arg& arg, std::size_t pos, const Script* script) {
  const auto* p = std::get_if<Pointer>(&arg.value);
  if (arg.unsized == nullptr || p == nullptr || script == nullptr) return arg.value;
  for (const auto& [at, length] : script->lengths_) {
    if (at == pos) return arg.unsized(p->address, length);
  }
  return arg.value;
}

void Engine::writeOutputs(std::initializer_list<Arg> args, const Script* script, std::size_t k) {
  std::size_t pos = 0;
  for (const Arg& a : args) {
    const std::vector<Value>* values = nullptr;
    if (script != nullptr) {
      for (const auto& [at, v] : script->outs_) {
        if (at == pos && !v.empty()) values = &v;
      }
    }
    if (a.target != nullptr && values != nullptr) {
      a.write(a.target, nth(*values, k), kept);
    } else if (a.target != nullptr && a.makesHandle) {
      a.write(a.target, Pointer{fresh()}, kept);
    }
    ++pos;
  }
}

const void* Engine::returned(const Reply& reply, const void* fallback) {
  if (reply.script != nullptr && reply.script->returnsSet_) return reply.script->returns_;
  return fallback;
}

const void* Engine::fresh() {
  // Handles are addresses inside this arena: distinct for the last 64k
  // handles, never null, never read.
  alignas(16) static unsigned char arena[1 << 20];
  static std::size_t next = 0;
  const void* handle = arena + next;
  next = (next + 16) % sizeof arena;
  return handle;
}

const void* Engine::environmentOf(const void* model, int num) {
  if (model == nullptr) return nullptr;
  auto [it, added] = environments.try_emplace({model, num}, nullptr);
  if (added) it->second = fresh();
  return it->second;
}

const char* Engine::keep(std::string text) {
  kept.emplace_back(std::move(text));
  return std::get<std::string>(kept.back()).c_str();
}

}  // namespace klo_fake
