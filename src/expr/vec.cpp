// Copy-on-write term storage.  Instantiated for the four element types the
// expressions use.
#include <utility>

#include "env/check.h"
#include "klo_c.h"
#include "klo_cpp.h"

template <class T>
Vec<T>::Vec() : n(0), vec(std::make_shared<std::vector<T>>()) {}

template <class T>
Vec<T>::Vec(const Vec& other) : n(other.n), vec(other.vec) {}

template <class T>
Vec<T>& Vec<T>::operator=(const Vec& other) {
  n = other.n;
  vec = other.vec;
  return *this;
}

// A buffer made for a Vec that had none has room for a few elements: most
// expressions are short, and the first appends then allocate once.
constexpr std::size_t kFirstRoom = 4;

template <class T>
void Vec<T>::copyOnWrite() {
  if (!vec) {
    vec = std::make_shared<std::vector<T>>();
    vec->reserve(kFirstRoom);
    return;
  }
  if (vec.use_count() > 1) {
    vec = std::make_shared<std::vector<T>>(vec->begin(), vec->begin() + n);
    return;
  }
  vec->resize(static_cast<std::size_t>(n));
}

template <class T>
void Vec<T>::push_back(const T& x) {
  // A buffer that ends where this Vec ends takes the element in place even
  // when shared: the other sharers never look past their own sizes.
  if (!vec || static_cast<std::size_t>(n) != vec->size()) copyOnWrite();
  vec->push_back(x);
  ++n;
}

template <class T>
void Vec<T>::checkId(int i) const {
  if (i < 0 || i >= n) klo_detail::raise(KLO_ERROR_INVALID_VAR);
}

template <class T>
T& Vec<T>::operator[](int i) {
  checkId(i);
  copyOnWrite();
  return (*vec)[static_cast<std::size_t>(i)];
}

template <class T>
void Vec<T>::remove(int i) {
  checkId(i);
  copyOnWrite();
  vec->erase(vec->begin() + i);
  --n;
}

template <class T>
void Vec<T>::setVec(std::vector<T> v) {
  n = static_cast<std::int32_t>(v.size());
  vec = std::make_shared<std::vector<T>>(std::move(v));
}

template <class T>
void Vec<T>::clear() {
  vec.reset();
  n = 0;
}

template class Vec<double>;
template class Vec<KLOVar>;
template class Vec<KLOPsdVar>;
template class Vec<KLOMatrix>;
