// What the core promises about cost: looking an id up is the same with ten ids as with a hundred
// thousand, and registering, enumerating and unregistering grow linearly.
#include <benchmark/benchmark.h>
#include <oxa/oxa.h>

#include <algorithm>
#include <memory>
#include <random>
#include <thread>
#include <unordered_map>
#include <vector>

#include "core/OXAContext.h"
#include "core/OXAInterfaceManager.h"
#include "core/guid_numbering.h"

namespace {

// A process that has never had a second thread counts std::shared_ptr without atomic operations; a
// host is not such a process.
const bool threaded = (std::thread([] {}).join(), true);

class Service final : public OXAReference {
 public:
  Service() { AddReference(); }
};

std::vector<_GUID> random_ids(std::size_t count) {
  std::mt19937_64 random(1);
  std::vector<_GUID> ids(count);
  for (_GUID& id : ids) {
    id.Data1 = static_cast<std::uint32_t>(random());
    const std::uint64_t rest = random();
    std::memcpy(id.Data4, &rest, sizeof rest);
  }
  return ids;
}

// The same ids in an order in which nobody inserted them.
std::vector<_GUID> shuffled(std::vector<_GUID> ids) {
  std::shuffle(ids.begin(), ids.end(), std::mt19937(2));
  return ids;
}

// The floor of every lookup that hands out a reference.
void reference_and_release(benchmark::State& state) {
  const auto service = oxa::make<Service>();
  for (auto step : state) {
    benchmark::DoNotOptimize(service->AddReference());
    benchmark::DoNotOptimize(service->ReleaseReference());
  }
}
BENCHMARK(reference_and_release);

void context_lookup_and_release(benchmark::State& state) {
  OXAResult result = S_OK;
  const auto context = oxa::make<OXAContext>(result);
  const std::vector<_GUID> ids = random_ids(static_cast<std::size_t>(state.range(0)));
  for (const _GUID& id : ids) {
    context->AddToContext(id, oxa::make<Service>().get());
  }
  const std::vector<_GUID> asked = shuffled(ids);
  std::size_t next = 0;
  for (auto step : state) {
    void* out = nullptr;
    context->GetInterface(asked[next], &out);
    static_cast<IOXAReference*>(out)->ReleaseReference();
    next = next + 1 == ids.size() ? 0 : next + 1;
  }
}
BENCHMARK(context_lookup_and_release)->Arg(9)->Arg(100)->Arg(10'000)->Arg(100'000);

struct Hash {
  std::size_t operator()(const _GUID& id) const {
    std::uint64_t tail = 0;
    std::memcpy(&tail, id.Data4, sizeof tail);
    return id.Data1 ^ tail;
  }
};

// The same with what the standard library offers.
void unordered_map_lookup_with_shared_ptr(benchmark::State& state) {
  std::unordered_map<_GUID, std::shared_ptr<Service>, Hash> services;
  const std::vector<_GUID> ids = random_ids(static_cast<std::size_t>(state.range(0)));
  for (const _GUID& id : ids) {
    services.emplace(id, std::make_shared<Service>());
  }
  const std::vector<_GUID> asked = shuffled(ids);
  std::size_t next = 0;
  for (auto step : state) {
    const std::shared_ptr<Service> found = services.find(asked[next])->second;
    benchmark::DoNotOptimize(found.get());
    next = next + 1 == ids.size() ? 0 : next + 1;
  }
}
BENCHMARK(unordered_map_lookup_with_shared_ptr)->Arg(9)->Arg(100)->Arg(10'000)->Arg(100'000);

// The numbering that the registry and the loader share.
void numbering_lookup(benchmark::State& state) {
  guid_numbering numbering;
  const std::vector<_GUID> ids = random_ids(static_cast<std::size_t>(state.range(0)));
  for (const _GUID& id : ids) {
    numbering.number(id);
  }
  const std::vector<_GUID> asked = shuffled(ids);
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
  const std::vector<_GUID> ids = random_ids(static_cast<std::size_t>(state.range(1)));
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
