// What loading a folder of extension files costs, beside parsing them.
#include <benchmark/benchmark.h>
#include <oxa/oxa.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr int files = 1000;
constexpr int types_per_file = 100;

oxa::Ref<IOXAContext> make_context() {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  return context;
}

// An extension file as their authors write them.
std::string extension(int number) {
  const std::string plugin = "plugin_" + std::to_string(number);
  std::string text =
      "<?xml version=\"1.0\"?>\n<extension type=\"data\" plugin=\"" + plugin + "\">\n";
  for (int type = 0; type < types_per_file; ++type) {
    text += "  <data_type name=\"record_" + std::to_string(type) +
            "\" type=\"struct\">\n"
            "    <member name=\"label\" type=\"string\" tooltip=\"what people call it\"/>\n"
            "    <member name=\"weight\" type=\"double\" range_min=\"0\" range_max=\"1000\" "
            "default=\"1\"/>\n"
            "    <member name=\"count\" type=\"unsigned int\"/>\n"
            "    <member name=\"origin\" type=\"" +
            plugin + "::record_0\"/>\n  </data_type>\n";
  }
  return text + "</extension>\n";
}

// A folder of 1,000 files with 100,000 types, which lives as long as the program.
class Folder {
 public:
  Folder() : path_(std::filesystem::temp_directory_path() / "oxa-data-types-bench") {
    std::filesystem::create_directories(path_);
    for (int number = 0; number < files; ++number) {
      names_.push_back((path_ / (std::to_string(number) + ".xml")).wstring());
      std::ofstream(path_ / (std::to_string(number) + ".xml")) << extension(number);
    }
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  std::wstring path() const { return path_.wstring(); }
  const std::vector<std::wstring>& names() const { return names_; }

 private:
  std::filesystem::path path_;
  std::vector<std::wstring> names_;
};

const Folder& folder() {
  static const Folder made;
  return made;
}

void BM_ParseFolder(benchmark::State& state) {
  const auto context = make_context();
  const auto parser = oxa::service<IOXAXMLParser>(context);
  const auto& names = folder().names();
  for (auto _ : state) {
    for (const std::wstring& name : names) {
      oxa::XMLDocument document;
      parser->CreateDocument(name.c_str(), oxa::adopt_into(document));
      if (document->Parse() != S_OK) {
        state.SkipWithError("a file is malformed");
      }
    }
  }
}

void BM_LoadFolder(benchmark::State& state) {
  const auto context = make_context();
  const std::wstring path = folder().path();
  for (auto _ : state) {
    auto manager = oxa::type_manager(context.get());
    if (manager->LoadAll(path.c_str()) != S_FALSE) {
      state.SkipWithError("a file does not load");
    }
    state.PauseTiming();
    manager.reset();
    state.ResumeTiming();
  }
}

BENCHMARK(BM_ParseFolder)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadFolder)->Unit(benchmark::kMillisecond);

}  // namespace
