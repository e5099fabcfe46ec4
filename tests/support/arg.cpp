#include "arg.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "format.h"

namespace klo_fake {
namespace {

Value pointerValue(const void* p) {
  if (p == nullptr) return Null{};
  return Pointer{p};
}

template <class T>
Value arrayValue(const T* p, int n) {
  if (p == nullptr) return Null{};
  return std::vector<T>(p, p + std::max(n, 0));
}

[[noreturn]] void cannotWrite(const Value& v, const char* type) {
  throw std::logic_error(std::string("klo_fake: a scripted ") + kindName(v) +
                         " cannot be written through " + type);
}

template <class T>
bool copyArray(void* target, const Value& v) {
  const auto* a = std::get_if<std::vector<T>>(&v);
  if (a != nullptr) std::copy(a->begin(), a->end(), static_cast<T*>(target));
  return a != nullptr;
}

// Keeps an array alive and writes its address through a `const T**`.
template <class T>
bool lendArray(void* target, const Value& v, Kept& kept) {
  if (!std::holds_alternative<std::vector<T>>(v)) return false;
  kept.push_back(v);
  *static_cast<const T**>(target) = std::get<std::vector<T>>(kept.back()).data();
  return true;
}

void writeInt(void* target, const Value& v, Kept&) {
  if (const auto* i = std::get_if<long long>(&v)) {
    *static_cast<int*>(target) = static_cast<int>(*i);
  } else if (!copyArray<int>(target, v)) {
    cannotWrite(v, "int*");
  }
}

void writeDouble(void* target, const Value& v, Kept&) {
  if (const auto* d = std::get_if<double>(&v)) {
    *static_cast<double*>(target) = *d;
  } else if (const auto* i = std::get_if<long long>(&v)) {
    *static_cast<double*>(target) = static_cast<double>(*i);
  } else if (!copyArray<double>(target, v)) {
    cannotWrite(v, "double*");
  }
}

void writeChar(void* target, const Value& v, Kept&) {
  if (const auto* c = std::get_if<char>(&v)) {
    *static_cast<char*>(target) = *c;
  } else if (const auto* s = std::get_if<std::string>(&v)) {
    std::copy(s->c_str(), s->c_str() + s->size() + 1, static_cast<char*>(target));
  } else if (!copyArray<char>(target, v)) {
    cannotWrite(v, "char*");
  }
}

void writeText(void* target, const Value& v, Kept& kept) {
  auto* p = static_cast<const char**>(target);
  if (std::holds_alternative<Null>(v)) {
    *p = nullptr;
  } else if (std::holds_alternative<std::string>(v)) {
    kept.push_back(v);
    *p = std::get<std::string>(kept.back()).c_str();
  } else {
    cannotWrite(v, "const char**");
  }
}

// A KLOcbget result: the value's own type decides what the caller's memory
// holds (an int, a double, or a pointer to an array).
void writeResult(void* target, const Value& v, Kept& kept) {
  if (const auto* i = std::get_if<long long>(&v)) {
    *static_cast<int*>(target) = static_cast<int>(*i);
  } else if (const auto* d = std::get_if<double>(&v)) {
    *static_cast<double*>(target) = *d;
  } else if (std::holds_alternative<Null>(v)) {
    *static_cast<const double**>(target) = nullptr;
  } else if (const auto* p = std::get_if<Pointer>(&v)) {
    *static_cast<const void**>(target) = p->address;
  } else if (!lendArray<double>(target, v, kept) && !lendArray<int>(target, v, kept)) {
    cannotWrite(v, "a KLOcbget result");
  }
}

template <class Handle>
void writeHandle(void* target, const Value& v, Kept&) {
  const void* address = nullptr;
  if (const auto* p = std::get_if<Pointer>(&v)) {
    address = p->address;
  } else if (!std::holds_alternative<Null>(v)) {
    cannotWrite(v, "a handle output");
  }
  *static_cast<Handle**>(target) = static_cast<Handle*>(const_cast<void*>(address));
}

Arg output(void* p, Writer write) {
  Arg a(pointerValue(p));
  a.target = p;
  a.write = write;
  return a;
}

Arg handleOutput(void* p, Writer write) {
  Arg a = output(p, write);
  a.makesHandle = true;
  return a;
}

template <class T>
Arg unsizedArray(const T* p) {
  Arg a(pointerValue(p));
  a.unsized = [](const void* data, std::size_t n) -> Value {
    const auto* items = static_cast<const T*>(data);
    return std::vector<T>(items, items + n);
  };
  return a;
}

}  // namespace

Arg::Arg(KLOenv* p) : value(pointerValue(p)) {}
Arg::Arg(KLOmodel* p) : value(pointerValue(p)) {}

Arg ptr(const void* p) { return Arg(pointerValue(p)); }

Arg text(const char* s) {
  if (s == nullptr) return Arg(Null{});
  return Arg(std::string(s));
}

Arg array(const int* p, int n) { return Arg(arrayValue(p, n)); }
Arg array(const double* p, int n) { return Arg(arrayValue(p, n)); }
Arg array(const char* p, int n) { return Arg(arrayValue(p, n)); }

Arg names(const char* const* p, int n) {
  if (p == nullptr) return Arg(Null{});
  std::vector<std::string> v;
  for (int k = 0; k < n; ++k) v.emplace_back(p[k] != nullptr ? p[k] : "");
  return Arg(std::move(v));
}

Arg unsized(const double* p) { return unsizedArray(p); }

Arg out(int* p) { return output(p, writeInt); }
Arg out(double* p) { return output(p, writeDouble); }
Arg out(char* p) { return output(p, writeChar); }
Arg out(const char** p) { return output(p, writeText); }
Arg out(void* p) { return output(p, writeResult); }
Arg out(KLOenv** p) { return handleOutput(p, writeHandle<KLOenv>); }
Arg out(KLOmodel** p) { return handleOutput(p, writeHandle<KLOmodel>); }

}  // namespace klo_fake
