// The numbers that go with diagnostics.
#pragma once

#include <cstdint>

namespace OXA {
namespace Diagnostics {

// How grave a finding is. The application gives the numbers their meaning; the library stores them.
// 0 at first; `Severity{2}` makes one.
enum class Severity : std::int32_t {};

// What kind of object a key points at. As above.
enum class Type : std::int32_t {};

}  // namespace Diagnostics
}  // namespace OXA
