// A unique_ptr that copies its pointee: keeps rarely used parts of a value
// type (such as the non-linear terms of a row) out of line without giving up
// value semantics.
#pragma once

#include <memory>

namespace klo {

template <class T>
class DeepPtr {
 public:
  DeepPtr() = default;
  DeepPtr(const DeepPtr& o) : p_(o.p_ ? std::make_unique<T>(*o.p_) : nullptr) {}
  DeepPtr(DeepPtr&&) noexcept = default;
  DeepPtr& operator=(const DeepPtr& o) {
    if (this != &o) p_ = o.p_ ? std::make_unique<T>(*o.p_) : nullptr;
    return *this;
  }
  DeepPtr& operator=(DeepPtr&&) noexcept = default;

  explicit operator bool() const { return p_ != nullptr; }
  T* get() const { return p_.get(); }
  T& operator*() const { return *p_; }
  T* operator->() const { return p_.get(); }
  // The pointee, made on first use.
  T& ensure() {
    if (!p_) p_ = std::make_unique<T>();
    return *p_;
  }
  void reset() { p_.reset(); }

 private:
  std::unique_ptr<T> p_;
};

}  // namespace klo
