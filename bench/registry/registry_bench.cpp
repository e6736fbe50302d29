// What filing a million objects costs, and listing them by namespace and by id, beside maps of the
// standard library and hash tables of others. Cases are named operation/registry.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "registry/registry.h"
#include "support/ids.h"
#include "support/process.h"

namespace {

using bench::registry;
using bench::registry_library;

// Lists, of which some are large, are made of memory that earlier ones have given back.
const bool like_a_host = [] {
  constexpr int mapped = 1 << 25;
  return bench::like_a_host() && mallopt(M_MMAP_THRESHOLD, mapped) != 0;
}();

constexpr std::array<const char*, 5> namespaces{"readers", "writers", "algorithms", "layouts",
                                                "misc"};
constexpr std::size_t id_count = 1'000;
constexpr std::size_t entry_count = 1'000'000;

const std::vector<_GUID>& ids() {
  static const std::vector<_GUID> made = bench::random_ids(id_count);
  return made;
}

struct entry {
  const char* ns;
  const _GUID* id;
  void* object;
};

// Each namespace has as many entries of each id; they come in no order.
const std::vector<entry>& entries() {
  static std::vector<char> objects(entry_count);
  static const std::vector<entry> made = [] {
    std::vector<entry> all;
    for (std::size_t number = 0; number < entry_count; ++number) {
      all.push_back({namespaces[number % namespaces.size()],
                     &ids()[number / namespaces.size() % id_count], &objects[number]});
    }
    std::shuffle(all.begin(), all.end(), std::mt19937(3));
    return all;
  }();
  return made;
}

void file_all(registry& into) {
  for (const entry& each : entries()) {
    into.file(each.ns, *each.id, each.object);
  }
}

void file(benchmark::State& state, const registry_library& library) {
  constexpr std::size_t most_per_entry = 200;
  malloc_trim(0);
  bench::back_with_memory(entries().size() * most_per_entry);
  for (auto step : state) {
    const auto made = library.make();
    const double begin = bench::processor_seconds();
    file_all(*made);
    state.SetIterationTime(bench::processor_seconds() - begin);
  }
}

// A registry that holds all entries.
registry& filled(const registry_library& library) {
  static std::map<std::string, std::unique_ptr<registry>> all;
  std::unique_ptr<registry>& made = all[library.name];
  if (made == nullptr) {
    made = library.make();
    file_all(*made);
  }
  return *made;
}

// Times a round over all namespaces or ids.
template <class Round>
void rounds(benchmark::State& state, const registry_library& library, Round round) {
  registry& of = filled(library);
  round(of);
  for (auto step : state) {
    const double begin = bench::processor_seconds();
    const std::size_t visited = round(of);
    state.SetIterationTime(bench::processor_seconds() - begin);
    if (visited != entry_count) {
      state.SkipWithError("not all entries were there");
    }
  }
}

using by_namespace = std::size_t (registry::*)(const char*);
using by_id = std::size_t (registry::*)(const _GUID&);

template <by_namespace visit>
void namespaces_one_by_one(benchmark::State& state, const registry_library& library) {
  rounds(state, library, [](registry& of) {
    std::size_t count = 0;
    for (const char* ns : namespaces) {
      count += (of.*visit)(ns);
    }
    return count;
  });
}

template <by_id visit>
void ids_one_by_one(benchmark::State& state, const registry_library& library) {
  static const std::vector<_GUID> asked = bench::shuffled(ids());
  rounds(state, library, [](registry& of) {
    std::size_t count = 0;
    for (const _GUID& id : asked) {
      count += (of.*visit)(id);
    }
    return count;
  });
}

void add(const char* operation, void (*run)(benchmark::State&, const registry_library&),
         const registry_library& library, benchmark::IterationCount iterations) {
  benchmark::RegisterBenchmark((std::string(operation) + "/" + library.name).c_str(), run, library)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(iterations);
}

const bool added = [] {
  constexpr int many = 5;
  for (const registry_library& library :
       {bench::oxa_registry(), bench::map_of_multimaps(), bench::unordered_map_of_multimaps(),
        bench::unordered_map_of_vectors(), bench::flat_hash_map_of_vectors(),
        bench::robin_map_of_vectors()}) {
    add("file", file, library, 1);
    add("list_namespaces", namespaces_one_by_one<&registry::list_namespace>, library, many);
    add("list_ids", ids_one_by_one<&registry::list_id>, library, many);
    if (library.walks) {
      add("walk_namespaces", namespaces_one_by_one<&registry::walk_namespace>, library, many);
      add("walk_ids", ids_one_by_one<&registry::walk_id>, library, many);
    }
  }
  return true;
}();

}  // namespace
