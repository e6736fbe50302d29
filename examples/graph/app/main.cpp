// oxa-graph: draws graphs, with everything but the frame done by plug-ins.
#include <oxa/oxa.h>

#include <cstdio>
#include <exception>

#include "catalogue.h"
#include "graph_store.h"
#include "interrupt.h"
#include "options.h"
#include "plugin_folder.h"
#include "problem.h"
#include "progress.h"
#include "record_types.h"
#include "selection.h"
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

void draw(const PluginFolder& plugins, const Options& options, IOXAProgressIndicator& progress) {
  const Selection selection = select(plugins, options);
  const oxa::Ref<IGraph> graph = make_graph();
  draw_graph(selection, options, *graph, progress);
  if (!options.quiet) {
    std::printf("%s: %s, %s\n", options.input.c_str(),
                counted(graph->GetNodeCount(), "node").c_str(),
                counted(graph->GetEdgeCount(), "edge").c_str());
    print_summary(*graph);
    std::printf("drawn to %s\n", options.output.c_str());
  }
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

// Everything here ends in the reverse order: graph, plug-ins, record types, context. Plug-ins can
// ask for record types as long as they are loaded.
void run(const Options& options) {
  if (options.help || options.version) {
    std::printf("%s", options.help ? help_text : "oxa-graph " OXA_GRAPH_VERSION "\n");
    return;
  }
  watch_interrupts();
  const auto style = options.quiet ? ProgressStyle::quiet : suitable_progress_style();
  const oxa::Ref<IOXAProgressIndicator> progress = make_progress(style);
  const oxa::Ref<IOXAContext> context = make_context(*progress);
  const std::string folder = options.plugins.empty() ? default_plugin_folder() : options.plugins;
  RecordTypes records(context.get());
  records.load(folder);
  PluginFolder plugins(context.get());
  plugins.load(folder);
  print_offers(plugins, records, options);
  if (!options.list) {
    draw(plugins, options, *progress);
  }
}

int complain(const std::string& sentence, int code) {
  std::fflush(stdout);
  std::fprintf(stderr, "oxa-graph: %s\n", sentence.c_str());
  return code;
}

int run_behind_wall(int count, char** arguments) {
  try {
    run(parse_options({arguments + 1, arguments + count}));
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      return complain("cannot write to standard output; check where it leads", exit_failed);
    }
    return exit_done;
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
