// The one rule by which solver-library statuses become exceptions.
#pragma once

namespace klo_detail {

// Throws KLOException(KLOexplainerror(code), code): used for library
// failures and for the faults this layer detects itself, so that every
// message (bar two fixed ones) is the library's own wording.
[[noreturn]] void raise(int code);

// A library call's status: anything but 0 is a failure.
inline void check(int status) {
  if (status != 0) raise(status);
}

// Submissions from inside a callback (solutions, cuts, branches): positive
// statuses are refusals the caller may inspect, only negative ones fail.
inline int checkSubmission(int status) {
  if (status < 0) raise(status);
  return status;
}

}  // namespace klo_detail
