// The shared shape of the binary operators on expressions: a copy of the
// left operand with the compound operation applied.
#pragma once

namespace klo_detail {

// A copy of a with the operation applied: the shared shape of the binary
// operators on expressions.
template <class E, class R>
E plus(const E& a, const R& b) {
  E result(a);
  result += b;
  return result;
}

template <class E, class R>
E minus(const E& a, const R& b) {
  E result(a);
  result -= b;
  return result;
}

// Scaling by the scalar 0.0 empties the expression; *= would keep the
// terms with zero coefficients.
template <class E>
E times(const E& a, double d) {
  if (d == 0.0) return E(0.0);
  E result(a);
  result *= d;
  return result;
}

template <class E>
E divided(const E& a, double d) {
  E result(a);
  result /= d;
  return result;
}

}  // namespace klo_detail
