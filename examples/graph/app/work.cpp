#include "work.h"

#include <oxa/sdk/implements.h>
#include <oxa/sdk/result_text.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "files.h"
#include "interrupt.h"
#include "problem.h"
#include "progress.h"
#include "text.h"

namespace {

class ErrorText final : public oxa::Implements<IGraphErrorText> {
 public:
  void Set(const char* text) override { text_ = text != nullptr ? text : ""; }

  // Throws for a negative result, with the plug-in's reason if it gave one.
  void check(OXAResult result, const std::string& what) const {
    stop_if_interrupted();
    if (oxa::failed(result)) {
      throw Problem(what + ": " + (text_.empty() ? without_text(result) : text_));
    }
  }

 private:
  static std::string without_text(OXAResult result) {
    return result == E_OUTOFMEMORY
               ? "there is not enough memory; close other programs or use a smaller graph"
               : std::string("the plug-in gives no reason but \"") + oxa::result_text(result) +
                     "\"; ask its author";
  }

  std::string text_;
};

class PictureOptions final : public oxa::Implements<IGraphOptions> {
 public:
  void set(const char* name, const std::string& value) {
    if (!value.empty()) {
      values_[name] = value;
    }
  }

  const char* Get(const char* name) override {
    const auto found = name != nullptr ? values_.find(std::string_view(name)) : values_.end();
    return found != values_.end() ? found->second.c_str() : nullptr;
  }

 private:
  std::map<std::string, std::string, std::less<>> values_;
};

void read_graph(IGraphReader& reader, const std::string& path, IGraph& graph,
                IOXAProgressIndicator& progress) {
  const Step step(progress, "reading " + path);
  const std::string content = read_file(path);
  const auto error = oxa::make<ErrorText>();
  error->check(reader.Read(content.data(), content.size(), &graph, error.get()),
               "cannot read " + in_quotes(path));
}

void compute(IGraphAlgorithm& algorithm, IGraph& graph, IOXAProgressIndicator& progress) {
  const std::string name = algorithm.GetName();
  const Step step(progress, "computing " + name);
  const auto error = oxa::make<ErrorText>();
  error->check(algorithm.Run(&graph, error.get()), "cannot compute " + name);
}

void arrange(IGraphLayout& layout, IGraph& graph, IOXAProgressIndicator& progress) {
  const std::string name = layout.GetName();
  const Step step(progress, "arranging nodes, layout " + name);
  const auto error = oxa::make<ErrorText>();
  error->check(layout.Arrange(&graph, error.get()), "cannot make the layout " + name);
}

// The column asked for, or the first of the kind.
std::string column_to_show(const std::string& wanted, GraphColumnKind kind, IGraph& graph) {
  if (!wanted.empty()) {
    return wanted == "none" ? "" : wanted;
  }
  for (std::uint64_t column = 0; const char* name = graph.GetColumnName(column); ++column) {
    GraphColumnKind found{};
    const double* values = nullptr;
    if (graph.GetColumn(name, &found, &values) >= 0 && found == kind) {
      return name;
    }
  }
  return "";
}

std::string title_from(const std::string& path) {
  std::string title = std::filesystem::path(path).stem().string();
  std::replace(title.begin(), title.end(), '_', ' ');
  if (!title.empty() && title[0] >= 'a' && title[0] <= 'z') {
    title[0] = static_cast<char>(title[0] - 'a' + 'A');
  }
  return title;
}

void write_picture(IGraphWriter& writer, const Options& options, IGraph& graph,
                   IOXAProgressIndicator& progress) {
  const Step step(progress, "writing " + options.output);
  const auto picture = oxa::make<PictureOptions>();
  picture->set("title", options.title.empty() ? title_from(options.input) : options.title);
  picture->set("theme", options.theme);
  picture->set("size", column_to_show(options.size_by, GraphColumnKind::measure, graph));
  picture->set("color", column_to_show(options.color_by, GraphColumnKind::category, graph));
  const auto file = oxa::make<OutputFile>(options.output);
  const auto error = oxa::make<ErrorText>();
  const OXAResult result = writer.Write(&graph, picture.get(), file.get(), error.get());
  file->check();
  error->check(result, "cannot write " + in_quotes(options.output));
  file->commit();
}

}  // namespace

void draw_graph(const Selection& selection, const Options& options, IGraph& graph,
                IOXAProgressIndicator& progress) {
  read_graph(*selection.reader, options.input, graph, progress);
  for (IGraphAlgorithm* algorithm : selection.algorithms) {
    compute(*algorithm, graph, progress);
  }
  arrange(*selection.layout, graph, progress);
  write_picture(*selection.writer, options, graph, progress);
}
