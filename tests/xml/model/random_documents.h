// Random sources for the comparison of the parser with its model.
#pragma once

#include <cstddef>
#include <random>
#include <string>

namespace oxa_test::model {

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

 private:
  std::mt19937_64 engine_;
};

// A row of tokens.
std::string row_of_tokens(Random& random);

// Changes the source in one place.
void damage(std::string& source, Random& random);

// A document by the grammar, often damaged in one to three places.
std::string damaged_document(Random& random);

// An element or two with a name, value or text around the longest that is kept, or hundreds of
// elements.
std::string long_document(Random& random);

// Changes some bytes to zero.
std::string with_zero_bytes(std::string source, Random& random);

// The source as it can be read in a message.
std::string printable(const std::string& source);

// Instrumentation makes comparisons slow, so fewer of them run there; one thread alone has no races
// to be found.
#if defined(__SANITIZE_THREAD__)
constexpr int share = 20;
#elif defined(__SANITIZE_ADDRESS__)
constexpr int share = 2;
#else
constexpr int share = 1;
#endif
constexpr int runs(int count) { return count / share; }

}  // namespace oxa_test::model
