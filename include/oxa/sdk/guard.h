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

// Runs `operation` and returns its result code; no exception passes. Every operation of an
// interface that may throw inside begins with it: `return oxa::guard([&] { ... return S_OK; });`.
// E_OUTOFMEMORY for std::bad_alloc, E_UNEXPECTED for any other exception. The cancellation of a
// thread passes, since it must not be swallowed.
//
// A cancellation is no C++ object, so the reference by which it is caught refers to nothing; the
// attribute keeps a sanitizer from minding that.
template <class Operation>
__attribute__((no_sanitize("null"))) OXAResult guard(Operation&& operation) {
  try {
    return std::forward<Operation>(operation)();
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

}  // namespace sdk1
}  // namespace oxa
