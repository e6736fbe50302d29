// The exception wall.
#pragma once

#include <oxa/result.h>

#include <new>
#include <utility>

#if __has_include(<cxxabi.h>)
#include <cxxabi.h>
#endif

namespace oxa {
inline namespace sdk1 {

// Returns the code of the exception that is being handled. The cancellation of a thread is thrown
// on, since it must not be swallowed. Out of line and without the check for null references: a
// cancellation is no C++ object, so the reference by which it is caught refers to nothing.
__attribute__((noinline, no_sanitize("null"))) inline OXAResult result_of_exception() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
#ifdef __GLIBCXX__
  } catch (const abi::__forced_unwind&) {
    throw;
#endif
  } catch (...) {
    return E_UNEXPECTED;
  }
}

// Runs `operation` and returns its result code; no exception passes. Every operation of an
// interface that may throw inside begins with it: `return oxa::guard([&] { ... return S_OK; });`.
// E_OUTOFMEMORY for std::bad_alloc, E_UNEXPECTED for any other exception.
template <class Operation>
OXAResult guard(Operation&& operation) {
  try {
    return std::forward<Operation>(operation)();
  } catch (...) {
    return result_of_exception();
  }
}

}  // namespace sdk1
}  // namespace oxa
