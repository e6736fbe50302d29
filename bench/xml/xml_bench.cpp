// What reading, searching, writing and ending XML documents costs, beside other libraries. Cases
// are named operation/document/size/library; those of "growth" show that the time per byte does not
// depend on the size.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include "support/allocations.h"
#include "support/process.h"
#include "xml/documents.h"
#include "xml/library.h"

namespace {

using bench::xml_document;
using bench::xml_document_kind;
using bench::xml_extent;
using bench::xml_library;
using bench::xml_tree;
using tree_pointer = std::unique_ptr<xml_tree>;

const bool like_a_host = bench::like_a_host();

// A library that asks for huge pages gets them unless this says "never".
const bool huge_pages_told = [] {
  std::string setting;
  std::getline(std::ifstream("/sys/kernel/mm/transparent_hugepage/enabled"), setting);
  benchmark::AddCustomContext("huge_pages", setting);
  return true;
}();

// Gives the path of a file that goes when the program ends.
std::string scratch_file(const std::string& name) {
  struct folder {
    folder() { std::filesystem::create_directories(path); }
    folder(const folder&) = delete;
    folder& operator=(const folder&) = delete;
    ~folder() {
      std::error_code ignored;
      std::filesystem::remove_all(path, ignored);
    }
    std::filesystem::path path = std::filesystem::temp_directory_path() / "oxa_xml_bench";
  };
  static const folder scratch;
  return scratch.path / name;
}

// A document that is made, and written to a file, when it is first asked for.
class source {
 public:
  source(const xml_document_kind& kind, std::string size, xml_extent extent)
      : kind_(&kind), size_(std::move(size)), extent_(extent) {}

  std::string name() const { return std::string(kind_->name) + "/" + size_; }
  bool deep() const { return kind_->deep; }

  const xml_document& document() {
    if (document_.elements == 0) {
      document_ = kind_->make(extent_);
    }
    return document_;
  }
  std::string file() {
    if (file_.empty()) {
      file_ = scratch_file(std::string(kind_->name) + "_" + size_ + ".xml");
      std::ofstream(file_) << document().text;
    }
    return file_;
  }

 private:
  const xml_document_kind* kind_;
  std::string size_;
  xml_extent extent_;
  xml_document document_;
  std::string file_;
};

// A case that runs: one library, one document.
struct subject {
  benchmark::State& state;
  const xml_library& library;
  source& from;

  const xml_document& document() const { return from.document(); }
  tree_pointer parsed() const { return library.parse(document().text); }
  tree_pointer parsed_file(const std::string& path) const { return library.parse_file(path); }

  // Makes ready for taking about as much memory as the trees of large documents do.
  void expect_tree() const {
    constexpr std::size_t bytes_per_byte = 8;
    bench::back_with_memory(document().text.size() * bytes_per_byte);
  }

  // Times `timed` with what `prepare` gives. All begin without memory that another case has freed.
  template <class Prepare, class Timed>
  void measure(Prepare prepare, Timed timed) const {
    malloc_trim(0);
    for (auto step : state) {
      auto prepared = prepare();
      const double begin = bench::processor_seconds();
      timed(prepared);
      state.SetIterationTime(bench::processor_seconds() - begin);
    }
    const auto size = static_cast<std::int64_t>(document().text.size());
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * size);
    state.counters["elements"] = static_cast<double>(document().elements);
  }

  void check(const tree_pointer& tree) const {
    if (tree == nullptr) {
      state.SkipWithError("the library refuses the document");
    }
  }
  void check(std::size_t found) const {
    if (found != document().matches) {
      state.SkipWithError("the search found something else");
    }
  }
};

void parse_memory(const subject& of) {
  of.expect_tree();
  of.measure([] { return tree_pointer(); },
             [&](tree_pointer& tree) { of.check(tree = of.parsed()); });
}

void parse_file(const subject& of) {
  const std::string path = of.from.file();
  of.expect_tree();
  of.measure([] { return tree_pointer(); },
             [&](tree_pointer& tree) { of.check(tree = of.parsed_file(path)); });
}

void find_first(const subject& of) {
  of.measure([&] { return of.parsed(); },
             [&](tree_pointer& tree) { of.check(tree->find(of.document().query)); });
}

void find(const subject& of) {
  const tree_pointer tree = of.parsed();
  of.check(tree->find(of.document().query));
  of.measure([] { return 0; }, [&](int) { of.check(tree->find(of.document().query)); });
}

void serialize(const subject& of) {
  const tree_pointer tree = of.parsed();
  const std::string path = scratch_file("written.xml");
  of.measure([&] { return std::filesystem::remove(path); }, [&](bool) { tree->serialize(path); });
}

void destroy(const subject& of) {
  of.measure([&] { return of.parsed(); }, [](tree_pointer& tree) { tree.reset(); });
}

// The heap after a parse, divided by the number of elements.
void memory(const subject& of) {
  const auto elements = static_cast<double>(of.document().elements);
  for (auto step : of.state) {
    bench::begin_counting();
    const tree_pointer tree = of.parsed();
    const bench::allocation_count count = bench::end_counting();
    of.check(tree);
    of.state.counters["elements"] = elements;
    of.state.counters["size"] = static_cast<double>(of.document().text.size());
    of.state.counters["bytes_per_element"] = static_cast<double>(count.live_bytes) / elements;
    of.state.counters["allocations_per_element"] = static_cast<double>(count.blocks) / elements;
  }
}

using operation = void (*)(const subject& of);

benchmark::internal::Benchmark* add(const std::string& name, operation run,
                                    const xml_library& library, source& from) {
  const auto body = [run, &library, &from](benchmark::State& state) {
    if (from.deep() && library.deepest < from.document().elements) {
      state.SkipWithError(
          ("unsupported: nesting beyond " + std::to_string(library.deepest)).c_str());
      return;
    }
    run({state, library, from});
  };
  auto* added = benchmark::RegisterBenchmark(name.c_str(), body);
  return added->UseManualTime()->Unit(benchmark::kMillisecond);
}

// Writing an indented tree grows by the square of its depth, with every library.
bool applies(operation run, const source& from) { return run != serialize || !from.deep(); }

const std::vector<std::pair<const char*, operation>>& timed_operations() {
  static const std::vector<std::pair<const char*, operation>> all{
      {"parse_memory", parse_memory}, {"parse_file", parse_file}, {"find", find},
      {"serialize", serialize},       {"destroy", destroy},
  };
  return all;
}

void add_comparison(const xml_library& library, source& from, int iterations) {
  const std::string rest = "/" + from.name() + "/" + library.name;
  for (const auto& [name, run] : timed_operations()) {
    if (applies(run, from)) {
      add(name + rest, run, library, from)->Iterations(iterations);
    }
  }
  add("memory" + rest, memory, library, from)->Iterations(1)->Repetitions(1);
}

bool add_all() {
  static const std::vector<xml_library> libraries{
      bench::oxa_library(),      bench::pugixml_library(), bench::rapidxml_library(),
      bench::tinyxml2_library(), bench::expat_library(),   bench::libxml2_library()};
  static std::vector<std::unique_ptr<source>> sources;
  constexpr int many = 20;
  for (const xml_document_kind& kind : bench::xml_document_kinds()) {
    source& small = *sources.emplace_back(std::make_unique<source>(kind, "small", kind.small));
    source& large = *sources.emplace_back(std::make_unique<source>(kind, "large", kind.large));
    for (const xml_library& library : libraries) {
      add_comparison(library, small, many);
      add_comparison(library, large, 1);
    }
    // Alone among the libraries, a search adds the key to the elements that lack it, once.
    const xml_library& ours = libraries.front();
    for (const auto& [from, iterations] : {std::pair{&small, many}, std::pair{&large, 1}}) {
      add("find_first/" + from->name() + "/" + ours.name, find_first, ours, *from)
          ->Iterations(iterations);
    }
    constexpr std::size_t unit = 1'000'000;
    for (const int scale : {1, 4, 16, 64}) {
      const auto bytes = static_cast<std::size_t>(scale) * unit;
      const xml_extent extent{bytes, kind.small.units};
      source& grown = *sources.emplace_back(
          std::make_unique<source>(kind, std::to_string(scale) + "x", extent));
      for (const auto& [name, run] : timed_operations()) {
        if (applies(run, grown) && run != parse_file) {
          add(std::string("growth_") + name + "/" + grown.name() + "/" + ours.name, run, ours,
              grown)
              ->Iterations(std::max(1, 16 / scale));
        }
      }
    }
  }
  return true;
}

const bool added = add_all();

}  // namespace
