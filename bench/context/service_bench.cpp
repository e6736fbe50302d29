// What fetching a service costs, with nine of them or ten thousand, beside what the standard
// library offers.
#include <benchmark/benchmark.h>
#include <oxa/oxa.h>

#include <memory>
#include <unordered_map>
#include <vector>

#include "core/OXAContext.h"
#include "support/ids.h"
#include "support/process.h"

namespace {

const bool like_a_host = bench::like_a_host();

class Service final : public OXAReference {
 public:
  Service() { AddReference(); }
};

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
  const std::vector<_GUID> ids = bench::random_ids(static_cast<std::size_t>(state.range(0)));
  for (const _GUID& id : ids) {
    context->AddToContext(id, oxa::make<Service>().get());
  }
  const std::vector<_GUID> asked = bench::shuffled(ids);
  std::size_t next = 0;
  for (auto step : state) {
    void* out = nullptr;
    context->GetInterface(asked[next], &out);
    static_cast<IOXAReference*>(out)->ReleaseReference();
    next = next + 1 == ids.size() ? 0 : next + 1;
  }
}
BENCHMARK(context_lookup_and_release)->Arg(9)->Arg(100)->Arg(10'000);

// The same with what the standard library offers.
void unordered_map_lookup_with_shared_ptr(benchmark::State& state) {
  std::unordered_map<_GUID, std::shared_ptr<Service>, bench::id_hash> services;
  const std::vector<_GUID> ids = bench::random_ids(static_cast<std::size_t>(state.range(0)));
  for (const _GUID& id : ids) {
    services.emplace(id, std::make_shared<Service>());
  }
  const std::vector<_GUID> asked = bench::shuffled(ids);
  std::size_t next = 0;
  for (auto step : state) {
    const std::shared_ptr<Service> found = services.find(asked[next])->second;
    benchmark::DoNotOptimize(found.get());
    next = next + 1 == ids.size() ? 0 : next + 1;
  }
}
BENCHMARK(unordered_map_lookup_with_shared_ptr)->Arg(9)->Arg(100)->Arg(10'000);

}  // namespace
