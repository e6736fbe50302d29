// oxa-graph: draws graphs, with everything but the frame done by plug-ins.
#include <oxa/oxa.h>

#include <cstdio>
#include <exception>

#include "catalogue.h"
#include "findings.h"
#include "graph_store.h"
#include "interrupt.h"
#include "options.h"
#include "plugin_folder.h"
#include "problem.h"
#include "progress.h"
#include "record_types.h"
#include "selection.h"
#include "settings_list.h"
#include "summary.h"
#include "text.h"
#include "work.h"

namespace {

oxa::Ref<IOXAContext> make_context(IOXAProgressIndicator& progress) {
  oxa::Ref<IOXAContext> context;
  OXAResult result = OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  if (oxa::succeeded(result)) {
    result = context->AddToContext(IID_IOXAProgressIndicator, &progress);
  }
  if (oxa::failed(result)) {
    throw Problem(std::string("cannot start the library: ") + oxa::result_text(result) +
                  "; free some memory and try again");
  }
  return context;
}

std::string size_of(const std::string& path, IGraph& graph) {
  return path + ": " + counted(graph.GetNodeCount(), "node") + ", " +
         counted(graph.GetEdgeCount(), "edge");
}

void draw(const PluginFolder& plugins, const Options& options, const Settings& settings,
          IOXAContext* context) {
  const Selection selection = select(plugins, options, settings);
  const oxa::Ref<IGraph> graph = make_graph(oxa::service<IOXAPreferences>(context));
  draw_graph(selection, options, settings, *graph, context);
  if (options.quiet) {
    return;
  }
  std::printf("%s\n", size_of(options.input, *graph).c_str());
  print_summary(*graph);
  const std::string found =
      count_findings(*oxa::service<IOXADiagnosticsManager>(context), settings);
  if (!found.empty()) {
    std::printf("%s; oxa-graph --check shows them\n", found.c_str());
  }
  std::printf("drawn to %s\n", options.output.c_str());
}

ExitCode check(const PluginFolder& plugins, const Options& options, const Settings& settings,
               IOXAContext* context) {
  const auto findings = oxa::service<IOXADiagnosticsManager>(context);
  const Selection selection = select_for_check(plugins, options, settings);
  const oxa::Ref<IGraph> graph = make_graph(oxa::service<IOXAPreferences>(context));
  check_graph(selection, options, settings, *graph, context);
  const std::string found = count_findings(*findings, settings);
  if (!options.quiet) {
    print_findings(*findings, settings);
    std::printf("%s; %s\n", size_of(options.input, *graph).c_str(),
                found.empty() ? "no findings" : found.c_str());
  }
  return found.empty() ? exit_done : exit_findings;
}

// The members of record types would fill a page before each drawing, so those are for --list alone.
void print_offers(const PluginFolder& plugins, const RecordTypes& records, const Options& options) {
  if (options.quiet && !options.list) {
    return;
  }
  print_catalogue(plugins);
  if (options.list) {
    print_choices(plugins);
    print_record_types(records.all());
  } else {
    print_record_type_count(records.all());
  }
}

// Everything here ends in the reverse order: graph, plug-ins, record types, settings, context.
// Plug-ins can ask for record types as long as they are loaded.
ExitCode run(const Options& options) {
  if (options.help || options.version) {
    std::printf("%s", options.help ? help_text : "oxa-graph " OXA_GRAPH_VERSION "\n");
    return exit_done;
  }
  watch_interrupts();
  const auto style = options.quiet ? ProgressStyle::quiet : suitable_progress_style();
  const oxa::Ref<IOXAContext> context = make_context(*make_progress(style));
  prepare_findings(context.get());
  Settings settings(context.get());
  settings.take(options.assignments);
  const std::string folder =
      settings.given(setting::plugin_folder).value_or(default_plugin_folder());
  RecordTypes records(context.get());
  records.load(folder);
  PluginFolder plugins(context.get());
  plugins.load(folder);
  add_choices(settings, plugins);
  settings.take_rest();
  if (options.settings) {
    print_settings(settings, *oxa::service<IOXAPropertyDataTypeTranslator>(context));
    return exit_done;
  }
  if (options.check) {
    return check(plugins, options, settings, context.get());
  }
  print_offers(plugins, records, options);
  if (!options.list) {
    draw(plugins, options, settings, context.get());
  }
  return exit_done;
}

int complain(const std::string& sentence, int code) {
  std::fflush(stdout);
  std::fprintf(stderr, "oxa-graph: %s\n", sentence.c_str());
  return code;
}

int run_behind_wall(int count, char** arguments) {
  try {
    const ExitCode code = run(parse_options({arguments + 1, arguments + count}));
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      return complain("cannot write to standard output; check where it leads", exit_failed);
    }
    return code;
  } catch (const Problem& problem) {
    return complain(problem.what(), problem.code());
  } catch (const Stopped&) {
    return complain("stopped; nothing was written", exit_signalled + interrupt_signal());
  } catch (const std::bad_alloc&) {
    return complain("there is not enough memory; close other programs or use a smaller graph",
                    exit_failed);
  } catch (const std::exception& error) {
    return complain(std::string("unexpected failure: ") + error.what() + "; please report it",
                    exit_failed);
  } catch (...) {
    return complain("unexpected failure without a reason; please report it", exit_failed);
  }
}

}  // namespace

int main(int count, char** arguments) { return run_behind_wall(count, arguments); }
