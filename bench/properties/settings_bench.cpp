// What reading and writing a setting costs among 100 or a million of them, beside other stores of
// settings. Cases are named operation/store/number of settings.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <tuple>

#include "properties/settings.h"
#include "support/process.h"

namespace {

using bench::number_kind;
using bench::setting_key;
using bench::settings;
using bench::settings_library;

const bool like_a_host = bench::like_a_host();

constexpr std::array<std::size_t, 5> sizes{100, 1'000, 10'000, 100'000, 1'000'000};

// What people set: integers of up to four digits, and numbers with up to three behind the point.
const std::vector<int>& integers() {
  static const std::vector<int> numbers = [] {
    std::mt19937 random(2);
    std::vector<int> made(1024);
    std::generate(made.begin(), made.end(), [&] { return static_cast<int>(random() % 10'000); });
    return made;
  }();
  return numbers;
}

const std::vector<double>& reals() {
  static const std::vector<double> numbers = [] {
    std::vector<double> made;
    for (const int number : integers()) {
      made.push_back(number * 7 / 1000.0);
    }
    return made;
  }();
  return numbers;
}

void set_value(settings& store, number_kind kind, std::size_t key, std::size_t number) {
  if (kind == number_kind::integer) {
    store.set(key, integers()[number % integers().size()]);
  } else {
    store.set(key, reals()[number % reals().size()]);
  }
}

const std::vector<setting_key>& keys_of(std::size_t count) {
  static std::map<std::size_t, std::vector<setting_key>> made;
  auto& keys = made[count];
  if (keys.empty()) {
    keys = bench::shuffled_keys(count);
  }
  return keys;
}

// A store in which each setting has a value. They were set in another order than that of the keys.
std::unique_ptr<settings> filled(const settings_library& library, number_kind kind,
                                 std::size_t count) {
  auto store = library.make(keys_of(count), kind);
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::shuffle(order.begin(), order.end(), std::mt19937(3));
  for (const std::size_t key : order) {
    set_value(*store, kind, key, key);
  }
  return store;
}

using store_name = std::tuple<std::string, number_kind, std::size_t>;

// Small stores stay; of the large ones, the last.
settings& store_of(const settings_library& library, number_kind kind, std::size_t count) {
  static std::map<store_name, std::unique_ptr<settings>> small;
  static std::map<store_name, std::unique_ptr<settings>> large;
  constexpr std::size_t most = 100'000;
  auto& stores = count <= most ? small : large;
  const store_name name(library.name, kind, count);
  if (stores.find(name) == stores.end()) {
    large.clear();
    stores[name] = filled(library, kind, count);
  }
  return *stores[name];
}

void set(benchmark::State& state, const settings_library& library, number_kind kind,
         std::size_t count) {
  settings& store = store_of(library, kind, count);
  std::size_t key = 0;
  std::size_t number = 0;
  for (auto step : state) {
    set_value(store, kind, key, ++number);
    key = key + 1 == count ? 0 : key + 1;
  }
}

void get(benchmark::State& state, const settings_library& library, number_kind kind,
         std::size_t count) {
  settings& store = store_of(library, kind, count);
  std::size_t key = 0;
  for (auto step : state) {
    if (kind == number_kind::integer) {
      benchmark::DoNotOptimize(store.get_integer(key));
    } else {
      benchmark::DoNotOptimize(store.get_real(key));
    }
    key = key + 1 == count ? 0 : key + 1;
  }
}

const bool registered = [] {
  for (const std::size_t count : sizes) {
    for (const settings_library& library :
         {bench::oxa_numbers(), bench::oxa_text(), bench::glib_key_file(), bench::qt_settings(),
          bench::boost_property_tree(), bench::map_of_strings(), bench::map_of_joined_strings()}) {
      for (const number_kind kind : {number_kind::integer, number_kind::real}) {
        const std::string rest = (kind == number_kind::integer ? "integer/" : "real/") +
                                 std::string(library.name) + "/" + std::to_string(count);
        benchmark::RegisterBenchmark(("set_" + rest).c_str(), set, library, kind, count)
            ->MinTime(0.2);
        benchmark::RegisterBenchmark(("get_" + rest).c_str(), get, library, kind, count)
            ->MinTime(0.2);
      }
    }
  }
  return true;
}();

}  // namespace
