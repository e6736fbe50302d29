// Text for result codes.
#pragma once

#include <oxa/result.h>

namespace oxa {
inline namespace sdk1 {

// Tell the outcome from its sign.
constexpr bool succeeded(OXAResult result) { return result >= 0; }
constexpr bool failed(OXAResult result) { return result < 0; }

// Returns the name of a code, such as "E_NOTFOUND", or null for a value without one: print
// result_text instead, which is never null.
constexpr const char* result_name(OXAResult result) {
  switch (result) {
    case S_OK:
      return "S_OK";
    case S_FALSE:
      return "S_FALSE";
    case S_ALREADYEXISTS:
      return "S_ALREADYEXISTS";
    case E_INVALIDARG:
      return "E_INVALIDARG";
    case E_POINTER:
      return "E_POINTER";
    case E_NOINTERFACE:
      return "E_NOINTERFACE";
    case E_OUTOFMEMORY:
      return "E_OUTOFMEMORY";
    case E_NOTFOUND:
      return "E_NOTFOUND";
    case E_ALREADYEXISTS:
      return "E_ALREADYEXISTS";
    case E_INVALIDDATA:
      return "E_INVALIDDATA";
    case E_UNEXPECTED:
      return "E_UNEXPECTED";
    case E_FAIL:
      return "E_FAIL";
    case E_HANDLE:
      return "E_HANDLE";
    case E_BADENVIRONMENT:
      return "E_BADENVIRONMENT";
    case E_OPENFAILED:
      return "E_OPENFAILED";
    case E_TYPEMISMATCH:
      return "E_TYPEMISMATCH";
    default:
      return nullptr;
  }
}

// Returns what a code means, as a phrase for people: "not found". A value without a name is
// "success" or "failure" by its sign.
constexpr const char* result_text(OXAResult result) {
  switch (result) {
    case S_FALSE:
      return "success, nothing to give";
    case S_ALREADYEXISTS:
      return "success, there already";
    case E_INVALIDARG:
      return "invalid argument";
    case E_POINTER:
      return "null output pointer or no list";
    case E_NOINTERFACE:
      return "interface not served";
    case E_OUTOFMEMORY:
      return "out of memory";
    case E_NOTFOUND:
      return "not found";
    case E_ALREADYEXISTS:
      return "already present";
    case E_INVALIDDATA:
      return "malformed or unusable data";
    case E_UNEXPECTED:
      return "internal inconsistency";
    case E_FAIL:
      return "operating system or plug-in step failed";
    case E_HANDLE:
      return "still referenced elsewhere";
    case E_BADENVIRONMENT:
      return "folder cannot be opened";
    case E_OPENFAILED:
      return "file cannot be opened for reading";
    case E_TYPEMISMATCH:
      return "value does not match the data type";
    default:
      return succeeded(result) ? "success" : "failure";
  }
}

}  // namespace sdk1
}  // namespace oxa
