#include "work.h"

#include <oxa/sdk/implements.h>
#include <oxa/sdk/result_text.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "files.h"
#include "findings.h"
#include "interrupt.h"
#include "plugin_call.h"
#include "problem.h"
#include "progress.h"
#include "text.h"

namespace {

class ErrorText final : public oxa::Implements<IGraphErrorText> {
 public:
  void Set(const char* text) override { text_ = text != nullptr ? text : ""; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

// One operation of a plug-in, of which anything may come out.
class Operation {
 public:
  // `failure` begins the sentence about a failure: "cannot read ...".
  Operation(const Offered& plugin, std::string failure)
      : plugin_("the plug-in " + in_quotes(plugin.plugin) + " in " + plugin.file),
        failure_(std::move(failure)) {}

  // Runs `call`, which gets the receiver of the plug-in's reason.
  template <class Call>
  void run(Call&& call) {
    outcome_ = call_plugin([&] { return call(error_.get()); });
  }

  // Throws Problem after a failure, with the plug-in's reason if it gave one, and Stopped.
  void check() const {
    stop_if_interrupted();
    if (outcome_.result == E_OUTOFMEMORY) {
      fail("there is not enough memory; close other programs or use a smaller graph");
    }
    if (outcome_.threw) {
      blame(exception_text(outcome_));
    }
    if (oxa::failed(outcome_.result)) {
      if (!error_->text().empty()) {
        fail(error_->text());
      }
      blame("gives no reason but " + in_quotes(oxa::result_text(outcome_.result)));
    }
  }

  // Throws Problem when the graph has no column `name`, which the operation promised to make.
  void check_column(IGraph& graph, const std::string& name) const {
    GraphColumnKind kind{};
    const double* values = nullptr;
    if (oxa::failed(graph.GetColumn(name.c_str(), &kind, &values))) {
      blame("reports success but makes no column " + in_quotes(name));
    }
  }

 private:
  [[noreturn]] void fail(const std::string& why) const { throw Problem(failure_ + ": " + why); }
  [[noreturn]] void blame(const std::string& what) const {
    fail(plugin_ + " " + what + "; ask its author");
  }

  std::string plugin_;
  std::string failure_;
  oxa::Ref<ErrorText> error_ = oxa::make<ErrorText>();
  CallOutcome outcome_;
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

// Looks for what is unusual as well, unless nobody is to see it.
void read_graph(const Offered& reader, const Options& options, const Settings& settings,
                IGraph& graph, IOXAContext* context) {
  const auto progress = oxa::service<IOXAProgressIndicator>(context);
  {
    const Step step(*progress, "reading " + options.input);
    const std::string content = read_file(options.input);
    Operation operation(reader, "cannot read " + in_quotes(options.input));
    operation.run([&](IGraphErrorText* error) {
      return reader.as<IGraphReader>().Read(content.data(), content.size(), &graph, error);
    });
    operation.check();
  }
  if (options.check || !options.quiet) {
    const Step step(*progress, "checking " + options.input);
    run_checks(graph, settings, *oxa::service<IOXADiagnosticsManager>(context));
  }
}

void compute(const Offered& algorithm, IGraph& graph, IOXAProgressIndicator& progress) {
  const Step step(progress, "computing " + algorithm.name);
  Operation operation(algorithm, "cannot compute " + algorithm.name);
  operation.run(
      [&](IGraphErrorText* error) { return algorithm.as<IGraphAlgorithm>().Run(&graph, error); });
  operation.check();
  operation.check_column(graph, algorithm.name);
}

// Throws Problem unless the picture can show the values of the column.
void check_shown(const std::string& column, const Settings& settings, IGraph& graph) {
  GraphColumnKind kind{};
  const double* values = nullptr;
  graph.GetColumn(column.c_str(), &kind, &values);
  const auto refuse = [&](const char* path, const char* why) {
    throw Problem(
        settings.source(path) + " cannot show " + in_quotes(column) + ", whose values " + why,
        exit_usage);
  };
  if (column == settings.text(setting::size_by) && kind != GraphColumnKind::measure) {
    refuse(setting::size_by, "are no quantities; name an algorithm that measures");
  }
  if (column == settings.text(setting::color_by) && kind != GraphColumnKind::measure &&
      kind != GraphColumnKind::category) {
    refuse(setting::color_by, "are neither quantities nor groups; name another algorithm");
  }
}

void arrange(const Offered& layout, IGraph& graph, IOXAProgressIndicator& progress) {
  const Step step(progress, "arranging nodes, layout " + layout.name);
  Operation operation(layout, "cannot make the layout " + layout.name);
  operation.run(
      [&](IGraphErrorText* error) { return layout.as<IGraphLayout>().Arrange(&graph, error); });
  operation.check();
  operation.check_column(graph, "x");
  operation.check_column(graph, "y");
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

void write_picture(const Offered& writer, const Options& options, const Settings& settings,
                   IGraph& graph, OutputFile& file, IOXAProgressIndicator& progress) {
  const Step step(progress, "writing " + options.output);
  const auto picture = oxa::make<PictureOptions>();
  picture->set("title", settings.given(setting::title).value_or(title_from(options.input)));
  picture->set("theme", settings.text(setting::theme));
  picture->set("size",
               column_to_show(settings.text(setting::size_by), GraphColumnKind::measure, graph));
  picture->set("color",
               column_to_show(settings.text(setting::color_by), GraphColumnKind::category, graph));
  Operation operation(writer, "cannot write " + in_quotes(options.output));
  operation.run([&](IGraphErrorText* error) {
    return writer.as<IGraphWriter>().Write(&graph, picture.get(), &file, error);
  });
  file.check();
  operation.check();
  file.commit();
}

}  // namespace

// The output is opened first, so that nothing is computed in vain.
void draw_graph(const Selection& selection, const Options& options, const Settings& settings,
                IGraph& graph, IOXAContext* context) {
  const auto progress = oxa::service<IOXAProgressIndicator>(context);
  const auto file = oxa::make<OutputFile>(options.output);
  read_graph(*selection.reader, options, settings, graph, context);
  for (const Offered* algorithm : selection.algorithms) {
    compute(*algorithm, graph, *progress);
    check_shown(algorithm->name, settings, graph);
  }
  arrange(*selection.layout, graph, *progress);
  write_picture(*selection.writer, options, settings, graph, *file, *progress);
}

void check_graph(const Selection& selection, const Options& options, const Settings& settings,
                 IGraph& graph, IOXAContext* context) {
  const auto progress = oxa::service<IOXAProgressIndicator>(context);
  read_graph(*selection.reader, options, settings, graph, context);
  for (const Offered* algorithm : selection.algorithms) {
    compute(*algorithm, graph, *progress);
  }
}
