// What resolving type strings costs, among ten types or a million.
#include <benchmark/benchmark.h>
#include <oxa/oxa.h>

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

oxa::Ref<IOXAContext> make_context() {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  return context;
}

// A manager with so many types, in namespaces of 1,000.
oxa::Ref<IOXAUserDefinedDataTypeManager> manager_with(IOXAContext* context, std::int64_t types) {
  auto manager = oxa::type_manager(context);
  IOXAPluginDataTypeNamespace* plugin = nullptr;
  for (std::int64_t number = 0; number < types; ++number) {
    if (number % 1000 == 0) {
      manager->NewNamespace(("plugin_" + std::to_string(number / 1000)).c_str(), &plugin);
    }
    IOXAUserDefinedDataType* type = nullptr;
    plugin->AddUserDefinedType(("record_" + std::to_string(number)).c_str(), "struct", &type);
  }
  return manager;
}

// Resolves strings that are spread over all types.
void BM_ResolveType(benchmark::State& state, const char* before, const char* behind) {
  const auto context = make_context();
  const auto manager = manager_with(context.get(), state.range(0));
  std::vector<std::string> names;
  for (std::int64_t number = 0; number < 1000; ++number) {
    const std::int64_t type = number * 7919 % state.range(0);
    names.push_back(before + ("plugin_" + std::to_string(type / 1000)) + "::record_" +
                    std::to_string(type) + behind);
  }
  std::size_t next = 0;
  IOXAUserDefinedDataType* type = nullptr;
  for (auto _ : state) {
    if (manager->GetUserType(names[next].c_str(), &type) != S_OK) {
      state.SkipWithError("a type is not found");
    }
    next = next + 1 == names.size() ? 0 : next + 1;
  }
}

// The least that resolving such a string could take: two look-ups, of pieces that are split
// already.
void BM_ResolveInMaps(benchmark::State& state) {
  std::unordered_map<std::string, std::unordered_map<std::string, std::int64_t>> plugins;
  for (std::int64_t number = 0; number < state.range(0); ++number) {
    plugins["plugin_" + std::to_string(number / 1000)]["record_" + std::to_string(number)] = number;
  }
  std::vector<std::pair<std::string, std::string>> names;
  for (std::int64_t number = 0; number < 1000; ++number) {
    const std::int64_t type = number * 7919 % state.range(0);
    names.emplace_back("plugin_" + std::to_string(type / 1000), "record_" + std::to_string(type));
  }
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(plugins.find(names[next].first)->second.find(names[next].second));
    next = next + 1 == names.size() ? 0 : next + 1;
  }
}

void BM_ResolveBuiltIn(benchmark::State& state) {
  const auto context = make_context();
  const auto manager = manager_with(context.get(), state.range(0));
  IOXAUserDefinedDataType* type = nullptr;
  for (auto _ : state) {
    benchmark::DoNotOptimize(manager->GetUserType("unsigned long long", &type));
  }
}

void counts(benchmark::internal::Benchmark* benchmark) {
  for (const std::int64_t types : {10, 1000, 100000, 1000000}) {
    benchmark->Arg(types);
  }
}

BENCHMARK_CAPTURE(BM_ResolveType, plain, "", "")->Apply(counts);
BENCHMARK_CAPTURE(BM_ResolveType, decorated, "x$", "%2")->Apply(counts);
BENCHMARK(BM_ResolveInMaps)->Apply(counts);
BENCHMARK(BM_ResolveBuiltIn)->Apply(counts);

}  // namespace
