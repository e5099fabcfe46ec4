// What tests use to drive the fake: reset, the recorded calls, scripts,
// error texts and the registered callback.
#include <algorithm>
#include <iterator>

#include "engine.h"

namespace klo_fake {
namespace {

// Replaces the entry for pos, or adds one.
template <class T>
void setAt(std::vector<std::pair<std::size_t, T>>& entries, std::size_t pos, T value) {
  auto it =
      std::find_if(entries.begin(), entries.end(), [pos](const auto& e) { return e.first == pos; });
  if (it != entries.end()) {
    it->second = std::move(value);
  } else {
    entries.emplace_back(pos, std::move(value));
  }
}

template <class T, class F>
std::vector<T> eachCall(F f) {
  std::vector<T> out;
  const auto& all = calls();
  std::transform(all.begin(), all.end(), std::back_inserter(out), f);
  return out;
}

}  // namespace

Script& Script::status(int s) { return statuses({s}); }

Script& Script::statuses(std::vector<int> s) {
  statuses_ = std::move(s);
  return *this;
}

Script& Script::out(std::size_t pos, Value v) { return outs(pos, {std::move(v)}); }

Script& Script::outs(std::size_t pos, std::vector<Value> values) {
  setAt(outs_, pos, std::move(values));
  return *this;
}

Script& Script::returns(const void* p) {
  returnsSet_ = true;
  returns_ = p;
  return *this;
}

Script& Script::arrayLength(std::size_t pos, std::size_t n) {
  setAt(lengths_, pos, n);
  return *this;
}

void reset() { Engine::instance() = Engine(); }

const std::vector<Call>& calls() { return Engine::instance().calls; }

std::vector<std::string> functions() {
  return eachCall<std::string>([](const Call& c) { return c.function; });
}

std::vector<std::string> strs() {
  return eachCall<std::string>([](const Call& c) { return c.str(); });
}

std::vector<Call> callsOf(const std::string& function) {
  std::vector<Call> out;
  const auto& all = calls();
  std::copy_if(all.begin(), all.end(), std::back_inserter(out),
               [&](const Call& c) { return c.function == function; });
  return out;
}

Script& on(const std::string& function) { return Engine::instance().scripts[function]; }

Script& on(const std::string& function, const std::string& name) {
  return Engine::instance().namedScripts[{function, name}];
}

void explain(int code, const std::string& text) { Engine::instance().explanations[code] = text; }

void errorMessage(const std::string& text) { Engine::instance().errorText = text; }

Registered registeredCallback() { return Engine::instance().callback; }

}  // namespace klo_fake
