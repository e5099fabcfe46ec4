// klo_fake: a recording test double of the C interface in klo_c.h.
//
// Every function of klo_c.h is implemented: each call is recorded in order
// (function name and arguments: arrays by content, strings by value,
// pointers as pointers) and answered from a script (status, values written
// through output pointers, returned pointers, error texts).  Unit tests of
// the object layer reset it, script it, run code and assert the calls.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace klo_fake {

// One recorded argument.  Null pointers and null arrays are Null; other
// pointers (environments, models, output addresses) are Pointer.
struct Null {
  bool operator==(const Null&) const { return true; }
};
struct Pointer {
  const void* address;
  bool operator==(const Pointer& o) const { return address == o.address; }
};
using Value = std::variant<Null, Pointer, long long, double, char, std::string, std::vector<int>,
                           std::vector<double>, std::vector<char>, std::vector<std::string>>;

struct Call {
  std::string function;
  std::vector<Value> args;

  // Readable form used in assertions, e.g.
  //   KLOaddrangeconstr(ptr, 2, [0, 1], [1, 2], -1e+20, 5, "c")
  // Pointers print as ptr, null pointers and arrays as null, doubles with
  // up to 17 significant digits, strings quoted.
  std::string str() const;

  // Typed access to argument i; throws std::logic_error on a type mismatch.
  long long integer(std::size_t i) const;
  double real(std::size_t i) const;
  const std::string& text(std::size_t i) const;
  const void* pointer(std::size_t i) const;  // null for Null
  const std::vector<int>& ints(std::size_t i) const;
  const std::vector<double>& doubles(std::size_t i) const;
};

// Forget every recorded call and every script.
void reset();

// The calls since the last reset, in order.
const std::vector<Call>& calls();
// Their function names, in order.
std::vector<std::string> functions();
// Their readable forms, in order.
std::vector<std::string> strs();
// The calls of one function.
std::vector<Call> callsOf(const std::string& function);

// Scripted behaviour of one function, or of the calls of a function whose
// first string argument (the attribute or parameter name) equals a name.
// The more specific script wins.  Unscripted calls return 0, write nothing
// through output pointers, and hand out fresh distinct environment and model
// pointers (KLOemptyenv, KLOloadenv, KLOnewmodel, KLOreadmodel,
// KLOcopymodel, KLOrelaxmodel, KLOgetenv, KLOgetmultiobjenv).
//
// Details:
//  - The more specific script wins as a whole: a call that matches
//    on(fn, name) takes its status, outs and returns from it alone, and
//    counts as a call of that script only.
//  - Fresh handles are written through the handle outputs unless that output
//    is scripted, whatever the status.  KLOgetenv(model) and
//    KLOgetmultiobjenv(model, num) give the same environment each time for
//    the same arguments (null for a null model).
//  - A null entry of a names array is recorded as "".
//  - KLOsetcallbackfunc registers the callback only when its status is 0.
//  - A scripted value that cannot be written through the argument's C type
//    (a string through an int*, say) throws std::logic_error.
class Script {
 public:
  // Status of every call.
  Script& status(int s);
  // Status of the k-th call (from 0) matched by this script; calls past the
  // end of the list get the last entry.
  Script& statuses(std::vector<int> s);
  // Value written through the output pointer argument at position pos
  // (0-based over all arguments) on every call; ignored when that pointer
  // is null.  Arrays are copied element by element into the pointed-to
  // memory, strings into a char buffer (or, for a `const char**`, a
  // pointer to text kept by the fake).
  Script& out(std::size_t pos, Value v);
  // The same, per call: call k writes values[k] (the last one repeats).
  Script& outs(std::size_t pos, std::vector<Value> values);
  // Pointer returned by a pointer-returning function (KLOcopymodel,
  // KLOgetenv, KLOgetmultiobjenv); nullptr makes it return null.
  Script& returns(const void* p);
  // Length of the array argument at position pos where the interface does
  // not carry it (the penalties of KLOfeasrelax, the proposal of
  // KLOcbsolution and KLOcbsolutionp).  Without it such an array is
  // recorded as a Pointer, since the fake cannot know how much it may read.
  Script& arrayLength(std::size_t pos, std::size_t n);

 private:
  friend struct Engine;
  std::vector<int> statuses_;
  std::vector<std::pair<std::size_t, std::vector<Value>>> outs_;
  bool returnsSet_ = false;
  const void* returns_ = nullptr;
  std::size_t matched_ = 0;
  std::vector<std::pair<std::size_t, std::size_t>> lengths_;
};

Script& on(const std::string& function);
Script& on(const std::string& function, const std::string& name);

// Text returned by KLOexplainerror(code); unscripted codes give
// "fake error <code>".
void explain(int code, const std::string& text);
// Text returned by KLOgeterrormsg for every environment.
void errorMessage(const std::string& text);

// The callback registered by the last KLOsetcallbackfunc, so that tests can
// drive it as the library would.
struct Registered {
  int (*fn)(const void*, void*, int, const void*) = nullptr;
  void* usrdata = nullptr;
};
Registered registeredCallback();

}  // namespace klo_fake
