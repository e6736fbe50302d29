// What a table of findings costs to build, to read and to give other columns, and what it takes
// from the heap, beside other tables. Cases are named operation/table/number of rows.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <array>
#include <string>

#include "diagnostics/table.h"
#include "support/allocations.h"
#include "support/process.h"

namespace {

using bench::table;
using bench::table_library;

const bool like_a_host = bench::like_a_host();

constexpr std::array<std::size_t, 3> sizes{10'000, 100'000, 1'000'000};

std::unique_ptr<table> built(const table_library& library, std::size_t rows) {
  auto made = library.make();
  made->build(rows);
  return made;
}

bench::sums expected(std::size_t rows) {
  bench::sums all;
  bench::each_finding(rows, [&](const bench::finding& found) {
    all.numbers += found.number;
    all.shares += found.share;
    all.characters += found.name.size();
    all.known += found.known ? 1 : 0;
    all.severities += found.severity;
  });
  return all;
}

// A case that runs: one library, so many rows.
struct subject {
  benchmark::State& state;
  const table_library& peer;
  std::size_t rows;

  // Makes ready for taking about as much memory as the largest of the tables does.
  void expect_table() const {
    constexpr std::size_t most_per_row = 1'000;
    malloc_trim(0);
    bench::back_with_memory(rows * most_per_row);
  }

  // Times `timed` with what `prepare` gives.
  template <class Prepare, class Timed>
  void measure(Prepare prepare, Timed timed) const {
    for (auto step : state) {
      auto prepared = prepare();
      const double begin = bench::processor_seconds();
      timed(prepared);
      state.SetIterationTime(bench::processor_seconds() - begin);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * rows));
  }

  void check(const bench::sums& read) const {
    if (read != expected(rows)) {
      state.SkipWithError("the table holds something else");
    }
  }
};

void build(const subject& of) {
  of.expect_table();
  of.measure([&] { return of.peer.make(); },
             [&](std::unique_ptr<table>& made) { made->build(of.rows); });
}

void read(const subject& of) {
  const auto made = built(of.peer, of.rows);
  of.check(made->read());
  of.measure([] { return 0; }, [&](int) { benchmark::DoNotOptimize(made->read()); });
}

// From four columns to six and back, the first time for that table: the second time, there would be
// room in the rows.
void columns(const subject& of) {
  of.expect_table();
  of.measure([&] { return built(of.peer, of.rows); },
             [](std::unique_ptr<table>& made) {
               made->widen();
               made->narrow();
             });
}

void destroy(const subject& of) {
  of.measure([&] { return built(of.peer, of.rows); },
             [](std::unique_ptr<table>& made) { made.reset(); });
}

void memory(const subject& of) {
  const auto rows = static_cast<double>(of.rows);
  for (auto step : of.state) {
    bench::begin_counting();
    const auto made = built(of.peer, of.rows);
    const bench::allocation_count count = bench::end_counting();
    of.state.counters["bytes_per_row"] = static_cast<double>(count.live_bytes) / rows;
    of.state.counters["allocations_per_row"] = static_cast<double>(count.blocks) / rows;
  }
}

benchmark::internal::Benchmark* add(const char* operation, void (*run)(const subject&),
                                    const table_library& library, std::size_t rows) {
  const std::string name = std::string(operation) + "/" + library.name + "/" + std::to_string(rows);
  return benchmark::RegisterBenchmark(name.c_str(),
                                      [=](benchmark::State& state) {
                                        run({state, library, rows});
                                      })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

const bool added = [] {
  for (const std::size_t rows : sizes) {
    const auto iterations = static_cast<benchmark::IterationCount>(1 + 200'000 / rows);
    for (const table_library& library :
         {bench::oxa_table(), bench::qt_table(), bench::sqlite_table()}) {
      add("build", build, library, rows)->Iterations(iterations);
      add("read", read, library, rows)->Iterations(iterations * 2);
      add("destroy", destroy, library, rows)->Iterations(iterations);
      add("memory", memory, library, rows)->Iterations(1)->Repetitions(1);
    }
    add("columns", columns, bench::oxa_table(), rows)->Iterations(iterations);
    add("columns", columns, bench::sqlite_table(), rows)->Iterations(iterations);
  }
  // Grows by the square: with a million rows it would take an hour.
  for (const std::size_t rows : {1'000, 10'000, 30'000}) {
    add("columns", columns, bench::qt_table(), rows)->Iterations(1);
  }
  add("columns", columns, bench::oxa_table(), 1'000)->Iterations(100);
  return true;
}();

}  // namespace
