// The tables of findings that are compared, behind one interface.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "support/number_text.h"

namespace bench {

// A finding: four cells, how grave it is, and a type, which has a short and a long text and is the
// same for all.
struct finding {
  int number;
  double share;
  std::string_view name;  // short: up to 15 characters
  bool known;
  int severity;
};

constexpr const char* terse_text = "Parallel edge";
constexpr const char* verbose_text = "Another edge joins the same two nodes.";

// Calls `take` with so many findings, one after another.
template <class Take>
void each_finding(std::size_t count, Take take) {
  for (std::size_t row = 0; row < count; ++row) {
    const number_text name("edge_", row);
    take(finding{static_cast<int>(row), static_cast<double>(row) / 2, name.view(), row % 2 == 0,
                 static_cast<int>(row % 3)});
  }
}

// What comes of reading a table: sums over its rows, so that each cell counts.
struct sums {
  std::int64_t numbers = 0;
  double shares = 0;
  std::size_t characters = 0;
  std::int64_t known = 0;
  std::int64_t severities = 0;
  std::int64_t types = 0;

  friend bool operator==(const sums&, const sums&) = default;
};

class table {
 public:
  table() = default;
  table(const table&) = delete;
  table& operator=(const table&) = delete;
  virtual ~table() = default;

  // Adds rows of four cells to a table without any.
  virtual void build(std::size_t rows) = 0;
  virtual sums read() = 0;
  // Makes it six columns, and four again.
  virtual void widen() = 0;
  virtual void narrow() = 0;
};

struct table_library {
  const char* name;
  std::unique_ptr<table> (*make)();
};

template <class Table>
table_library library_of(const char* name) {
  return {name, [] { return std::unique_ptr<table>(std::make_unique<Table>()); }};
}

table_library oxa_table();
table_library qt_table();
table_library sqlite_table();

}  // namespace bench
