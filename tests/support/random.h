// Random input, and how much of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace oxa_test {

// Numbers that are the same on every machine.
class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}

  // A number in [0, end).
  std::size_t below(std::size_t end) { return engine_() % end; }
  bool one_in(std::size_t count) { return below(count) == 0; }
  template <class Table>
  const auto& of(const Table& table) {
    return table[below(std::size(table))];
  }
  // 64 random bits.
  std::uint64_t bits() { return engine_(); }

 private:
  std::mt19937_64 engine_;
};

// Instrumentation makes comparisons slow, so fewer of them run there; one thread alone has no races
// to be found.
#if defined(__SANITIZE_THREAD__)
inline constexpr int share = 20;
#elif defined(__SANITIZE_ADDRESS__)
inline constexpr int share = 2;
#else
inline constexpr int share = 1;
#endif
constexpr int runs(int count) { return count / share; }

}  // namespace oxa_test
