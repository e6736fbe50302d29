// What loading 500 plug-ins costs, beside opening the same files and calling their entry points and
// nothing else. Both run in processes of their own, one after the other.
#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <oxa/oxa.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "support/process.h"

namespace {

const bool like_a_host = bench::like_a_host();

constexpr int plugin_count = 500;

// A folder with copies of a plug-in, which lives as long as the program.
class Folder {
 public:
  Folder() : path_(std::filesystem::temp_directory_path() / "oxa-plugins-bench") {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
    for (int number = 0; number < plugin_count; ++number) {
      files_.push_back((path_ / ("plugin_" + std::to_string(number) + ".so")).string());
      std::filesystem::copy_file(OXA_SMALL_PLUGIN, files_.back());
    }
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::wstring path() const { return path_.wstring(); }
  const std::vector<std::string>& files() const { return files_; }

 private:
  std::filesystem::path path_;
  std::vector<std::string> files_;
};

const Folder& folder() {
  static const Folder made;
  return made;
}

oxa::Ref<IOXAContext> make_context() {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  return context;
}

// How many entries the registry has in a namespace.
int filed(IOXAContext* context, const char* ns) {
  oxa::Ref<IOXAInterfaceEnum> found;
  oxa::service<IOXAInterfaceManager>(context)->GetInterfaceEnumByNamespace(ns,
                                                                           oxa::adopt_into(found));
  int count = 0;
  _GUID iid{};
  void* object = nullptr;
  for (OXAResult given = found ? found->GetFirst(iid, &object) : S_FALSE; given == S_OK;
       given = found->GetNext(iid, &object)) {
    ++count;
  }
  return count;
}

// Returns the seconds that it took; 0 when not all plug-ins were loaded.
double load_all() {
  const auto context = make_context();
  const auto loader = oxa::service<IOXAPluginLoader>(context);
  const std::wstring path = folder().path();
  const double begin = bench::processor_seconds();
  loader->LoadAll(path.c_str());
  const double seconds = bench::processor_seconds() - begin;
  return filed(context.get(), "algorithms") == plugin_count ? seconds : 0;
}

double open_and_call() {
  const auto context = make_context();
  const double begin = bench::processor_seconds();
  for (const std::string& file : folder().files()) {
    void* const handle = dlopen(file.c_str(), RTLD_LAZY);
    void* const found = handle == nullptr ? nullptr : dlsym(handle, "OXACreatePluginInterface");
    if (found == nullptr) {
      return 0;
    }
    void* plugin = nullptr;
    reinterpret_cast<decltype(&OXACreatePluginInterface)>(found)(context.get(), IID_IOXAPlugin,
                                                                 &plugin);
    benchmark::DoNotOptimize(plugin);
  }
  return bench::processor_seconds() - begin;
}

// Runs one of the two in a new process, where no plug-in is loaded yet, and returns its result. The
// lines that the loader prints go nowhere.
double in_new_process(double (*run)()) {
  int channel[2] = {-1, -1};
  if (pipe(channel) != 0) {
    return 0;
  }
  const pid_t child = fork();
  if (child == 0) {
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    const double seconds = run();
    const bool told = write(channel[1], &seconds, sizeof seconds) == sizeof seconds;
    _exit(told ? EXIT_SUCCESS : EXIT_FAILURE);
  }
  close(channel[1]);
  double seconds = 0;
  const bool told = read(channel[0], &seconds, sizeof seconds) == sizeof seconds;
  close(channel[0]);
  waitpid(child, nullptr, 0);
  return told ? seconds : 0;
}

void load_plugins(benchmark::State& state) {
  folder();
  double loaded = 0;
  double opened = 0;
  bool loaded_first = false;
  for (auto step : state) {
    loaded_first = !loaded_first;
    double seconds = loaded_first ? in_new_process(load_all) : 0;
    const double bare = in_new_process(open_and_call);
    seconds = loaded_first ? seconds : in_new_process(load_all);
    if (seconds == 0 || bare == 0) {
      state.SkipWithError("not all plug-ins were loaded");
      break;
    }
    loaded += seconds;
    opened += bare;
    state.SetIterationTime(seconds);
  }
  const double all = static_cast<double>(state.iterations()) * plugin_count / 1e6;
  state.counters["load_us"] = loaded / all;
  state.counters["open_us"] = opened / all;
  state.counters["ratio"] = loaded / opened;
}
BENCHMARK(load_plugins)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace
