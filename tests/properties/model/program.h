// Programs of operations that run on the library and on a model at once. They are bytes, so that
// random numbers, a fuzzer and people can write them.
#pragma once

#include <oxa/OXAVariant.h>
#include <oxa/result.h>

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/input.h"

namespace oxa_test::model {

// The letters and numbers of a program.
class Program {
 public:
  explicit Program(std::string_view bytes) : input_(bytes) {}

  bool empty() const { return input_.empty(); }
  char next() { return input_.next(); }
  // A digit stands for itself.
  unsigned below(unsigned bound) { return input_.below(bound); }
  bool flag() { return below(2) == 1; }
  // Tells whether an operation is to be given no output, which is rare.
  bool drops_output() { return below(10) == 9; }

  // An entry of a table.
  template <class Table>
  const auto& of(const Table& table) {
    return table[below(static_cast<unsigned>(std::size(table)))];
  }

  // A text in quotes as it is, or one of a table, which may be null. It lives as long as the
  // program.
  template <class Table>
  const char* text(const Table& table) {
    if (input_.rest().empty() || input_.rest().front() != '"') {
      return of(table);
    }
    return input_.text();
  }

  // A variant of any kind, which may be none, or of a given one.
  OXAVariant variant() { return variant(any_kind()); }
  OXAVariant variant(OXAVariant::Kind kind);

 private:
  OXAVariant::Kind any_kind();

  oxa_fuzz::Input input_;
};

// Puts the outcomes of operations side by side. Each throws std::runtime_error where they differ.
class Account {
 public:
  void result(const char* operation, OXAResult library, OXAResult model);
  static void number(const char* what, long long library, long long model);
  static void text(const char* what, const std::string& library, const std::string& model);
  static void same(const char* what, const void* library, const void* model);

  // The results that each operation has had.
  std::map<std::string, std::set<OXAResult>> results;
};

// Returns where library and model differ in what `run` does with them; empty if they do not.
template <class Run>
std::string difference(Run run) {
  try {
    run();
  } catch (const std::runtime_error& differ) {
    return differ.what();
  }
  return "";
}

// A text that may be null, so that it can be told from an empty one.
std::string shown(const char* text);

// The whole record: scalar, text and kind.
std::string whole(const OXAVariant& value);

// What it stands for: its kind, and the member that belongs to it.
std::string meaning(const OXAVariant& value);

// Texts for values, of which some are numbers in part or for one type alone.
extern const std::vector<const char*> value_texts;

}  // namespace oxa_test::model
