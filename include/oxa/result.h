// The result codes of every operation that can fail.
#pragma once

#include <oxa/export.h>

#include <cstdint>

// A signed 32-bit outcome: negative means failure, zero or positive success. Test the sign, never
// equality with S_OK: several operations report success as S_FALSE or as another positive value.
using OXAResult = std::int32_t;

// Success.
inline constexpr OXAResult S_OK = 0;
// Success with nothing to give: an enumerator is at its end, a document has no root, an element is
// no child, extension files are loaded. Also the normal success of adding to the context, and so of
// the factories that end with that step.
inline constexpr OXAResult S_FALSE = 1;
// Success: the entry was there already. Registries and the plug-in loader return it.
inline constexpr OXAResult S_ALREADYEXISTS = 5;
// A required output pointer or input argument is null or out of range.
inline constexpr OXAResult E_INVALIDARG = static_cast<OXAResult>(0x80070057U);
// The output pointer is null, in enumerators and in XML, or an enumerator has no list behind it.
inline constexpr OXAResult E_POINTER = static_cast<OXAResult>(0x80004003U);
// A factory or entry point was asked for an interface id that it does not serve.
inline constexpr OXAResult E_NOINTERFACE = static_cast<OXAResult>(0x80004002U);
// An allocation gave no object.
inline constexpr OXAResult E_OUTOFMEMORY = static_cast<OXAResult>(0x8007000EU);
// The id, name or entry asked for is not present.
inline constexpr OXAResult E_NOTFOUND = static_cast<OXAResult>(0x80004008U);
// An entry under the same key is already present.
inline constexpr OXAResult E_ALREADYEXISTS = static_cast<OXAResult>(0x80004007U);
// There is nothing usable: a document has no root. A malformed document is E_UNEXPECTED.
inline constexpr OXAResult E_INVALIDDATA = static_cast<OXAResult>(0x80004009U);
// Internal inconsistency, a malformed document, or an exception caught at an interface boundary.
inline constexpr OXAResult E_UNEXPECTED = static_cast<OXAResult>(0x8000FFFFU);
// An operating-system or plug-in step failed.
inline constexpr OXAResult E_FAIL = static_cast<OXAResult>(0x80004005U);
// A document handed back for destruction is still referenced elsewhere after its release.
inline constexpr OXAResult E_HANDLE = static_cast<OXAResult>(0x80070006U);
// The directory scanner could not open the folder.
inline constexpr OXAResult E_BADENVIRONMENT = static_cast<OXAResult>(0x8007000AU);
// A file named by a path could not be opened for reading.
inline constexpr OXAResult E_OPENFAILED = static_cast<OXAResult>(0x80004006U);
// A value's kind does not match the data type of the property it is stored under.
inline constexpr OXAResult E_TYPEMISMATCH = static_cast<OXAResult>(0x8000400CU);
