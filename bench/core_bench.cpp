// What the core promises about cost: looking an id up is the same with ten ids as with a hundred
// thousand, and registering, enumerating and unregistering grow linearly.
#include <benchmark/benchmark.h>
#include <oxa/oxa.h>

#include <vector>

#include "core/OXAInterfaceManager.h"
#include "core/guid_numbering.h"
#include "support/ids.h"

namespace {

// The numbering that the registry and the loader share.
void numbering_lookup(benchmark::State& state) {
  guid_numbering numbering;
  const std::vector<_GUID> ids = bench::random_ids(static_cast<std::size_t>(state.range(0)));
  for (const _GUID& id : ids) {
    numbering.number(id);
  }
  const std::vector<_GUID> asked = bench::shuffled(ids);
  std::size_t next = 0;
  for (auto step : state) {
    benchmark::DoNotOptimize(numbering.number(asked[next]));
    next = next + 1 == ids.size() ? 0 : next + 1;
  }
}
BENCHMARK(numbering_lookup)->Arg(10)->Arg(100)->Arg(10'000)->Arg(100'000);

// Registers, enumerates by id and by namespace, and unregisters oldest first, in `ids` ids.
void register_enumerate_unregister(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const std::vector<_GUID> ids = bench::random_ids(static_cast<std::size_t>(state.range(1)));
  std::vector<char> objects(count);
  for (auto step : state) {
    const auto registry = oxa::make<OXAInterfaceManager>();
    for (std::size_t object = 0; object < count; ++object) {
      registry->RegisterInterface("readers", ids[object % ids.size()], &objects[object]);
    }
    oxa::Ref<IOXAInterfaceEnum> all;
    registry->GetInterfaceEnumByNamespace("readers", oxa::adopt_into(all));
    for (const _GUID& id : ids) {
      registry->GetInterfaceEnumByGUID(id, oxa::adopt_into(all));
    }
    for (std::size_t object = 0; object < count; ++object) {
      registry->UnRegisterInterface("readers", ids[object % ids.size()], &objects[object]);
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(register_enumerate_unregister)
    ->ArgNames({"objects", "ids"})
    ->ArgsProduct({{1'000, 10'000, 100'000, 1'000'000}, {1, 1'000}})
    ->Args({1'000'000, 1'000'000})
    ->Unit(benchmark::kMillisecond);

}  // namespace
