// The recorded call: its readable form and typed access to its arguments.
#include <stdexcept>

#include "format.h"
#include "klo_fake.h"

namespace klo_fake {
namespace {

template <class T>
const T& argumentAs(const Call& call, std::size_t i, const char* wanted) {
  if (i >= call.args.size()) {
    throw std::out_of_range("klo_fake: " + call.function + " has no argument " + std::to_string(i));
  }
  const auto* v = std::get_if<T>(&call.args[i]);
  if (v == nullptr) {
    throw std::logic_error("klo_fake: argument " + std::to_string(i) + " of " + call.str() +
                           " is " + kindName(call.args[i]) + ", not " + wanted);
  }
  return *v;
}

}  // namespace

std::string Call::str() const {
  std::string s = function + "(";
  for (std::size_t k = 0; k < args.size(); ++k) {
    if (k > 0) s += ", ";
    s += format(args[k]);
  }
  return s + ")";
}

long long Call::integer(std::size_t i) const { return argumentAs<long long>(*this, i, "int"); }

double Call::real(std::size_t i) const { return argumentAs<double>(*this, i, "double"); }

const std::string& Call::text(std::size_t i) const {
  return argumentAs<std::string>(*this, i, "string");
}

const void* Call::pointer(std::size_t i) const {
  if (i < args.size() && std::holds_alternative<Null>(args[i])) return nullptr;
  return argumentAs<Pointer>(*this, i, "pointer").address;
}

const std::vector<int>& Call::ints(std::size_t i) const {
  return argumentAs<std::vector<int>>(*this, i, "int array");
}

const std::vector<double>& Call::doubles(std::size_t i) const {
  return argumentAs<std::vector<double>>(*this, i, "double array");
}

}  // namespace klo_fake
