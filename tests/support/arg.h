// Argument adapters of the fake: each C argument becomes an Arg that says how
// it is recorded and, for output pointers, how a scripted value is written
// through it.  The functions of klo_c.h list their arguments as Args.
#pragma once

#include <cstddef>
#include <deque>
#include <utility>

#include "klo_c.h"
#include "klo_fake.h"

namespace klo_fake {

// Memory the fake keeps alive for pointers it hands out (texts behind a
// `const char**`, arrays behind a KLOcbget result) until reset.
using Kept = std::deque<Value>;

// Writes a scripted value through an output pointer of one C type.
using Writer = void (*)(void* target, const Value& value, Kept& kept);
// Makes the recorded array of an argument once its length is known.
using ArrayMaker = Value (*)(const void* data, std::size_t length);

struct Arg {
  Value value = Null{};          // the recorded form
  void* target = nullptr;        // output pointer (null: not written)
  Writer write = nullptr;        // set for output arguments
  bool makesHandle = false;      // unscripted, receives a fresh handle
  ArrayMaker unsized = nullptr;  // array whose length a script supplies

  explicit Arg(Value v) : value(std::move(v)) {}
  Arg(int v) : value(static_cast<long long>(v)) {}
  Arg(double v) : value(v) {}
  Arg(char v) : value(v) {}
  Arg(KLOenv* p);
  Arg(KLOmodel* p);
};

// An opaque pointer (callback data, user data, function pointer).
Arg ptr(const void* p);
// A C string, recorded by value.
Arg text(const char* s);
// An input array of n entries, recorded by content (Null for a null array).
Arg array(const int* p, int n);
Arg array(const double* p, int n);
Arg array(const char* p, int n);
// An array of n C strings (a null entry is recorded as "").
Arg names(const char* const* p, int n);
// An array whose length the interface does not carry (Script::arrayLength).
Arg unsized(const double* p);

// Output pointers, recorded as Pointer before anything is written.
Arg out(int* p);          // an int, or an int array copied into caller memory
Arg out(double* p);       // a double, or a double array
Arg out(char* p);         // a char, a char array, or a text with its NUL
Arg out(const char** p);  // a pointer to text kept by the fake
Arg out(void* p);         // a KLOcbget result: int, double, or an array pointer
Arg out(KLOenv** p);      // a handle; unscripted a fresh one
Arg out(KLOmodel** p);

}  // namespace klo_fake
