#include "selection.h"

#include <graph_contract.h>

#include <algorithm>
#include <filesystem>

#include "problem.h"
#include "text.h"

namespace {

constexpr const char* none = "none";
constexpr const char* usual_algorithms[] = {"pagerank", "betweenness", "degree", "community"};

using Entries = std::vector<const Offered*>;

const Offered* find_named(const Entries& all, const std::string& name) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Offered* entry) { return entry->name == name; });
  return found != all.end() ? *found : nullptr;
}

const Offered* named(const Entries& all, const char* what, const std::string& name) {
  if (const Offered* found = find_named(all, name)) {
    return found;
  }
  std::vector<std::string> known;
  known.reserve(all.size());
  for (const Offered* entry : all) {
    known.push_back(entry->name);
  }
  std::sort(known.begin(), known.end());
  const std::string sentence = std::string("there is no ") + what + " " + in_quotes(name);
  if (known.empty()) {
    throw Problem(sentence + " because no plug-in offers any; name another folder with --plugins",
                  exit_usage);
  }
  const std::string like = closest(name, known);
  throw Problem(sentence + "; use one of " + join(known, ", ") +
                    (like.empty() ? "" : " (perhaps " + in_quotes(like) + ")"),
                exit_usage);
}

const Offered* for_file(const Entries& all, const char* what, const std::string& path) {
  const std::string extension = std::filesystem::path(path).extension().string();
  std::vector<std::string> known;
  for (const Offered* entry : all) {
    for (const std::string& served : split(entry->details, ' ')) {
      if (in_small_letters(served) == in_small_letters(extension)) {
        return entry;
      }
      known.push_back(served);
    }
  }
  const std::string why =
      extension.empty() ? "its name has no extension" : "no plug-in knows " + in_quotes(extension);
  throw Problem(std::string("cannot ") + what + " " + in_quotes(path) + ": " + why + "; " +
                    (known.empty() ? "name a folder of plug-ins with --plugins"
                                   : "use a name that ends in " + join(known, " or ")),
                exit_usage);
}

// Whether --size-by or --color-by names an algorithm.
bool names_column(const std::string& value) { return !value.empty() && value != none; }

void add_once(Entries& chosen, const Offered* algorithm) {
  if (std::find(chosen.begin(), chosen.end(), algorithm) == chosen.end()) {
    chosen.push_back(algorithm);
  }
}

// The one that sizes are to show comes first: whether its values fit is known only once it has run,
// and should be known before the others take their time.
Entries select_algorithms(const PluginFolder& plugins, const Options& options) {
  const Entries all = plugins.all<IGraphAlgorithm>();
  Entries chosen;
  if (names_column(options.size_by)) {
    add_once(chosen, named(all, "algorithm", options.size_by));
  }
  if (!options.algorithms) {
    for (const char* name : usual_algorithms) {
      if (const Offered* found = find_named(all, name)) {
        add_once(chosen, found);
      }
    }
  } else if (*options.algorithms != std::vector<std::string>{none}) {
    for (const std::string& name : *options.algorithms) {
      add_once(chosen, named(all, "algorithm", name));
    }
  }
  if (names_column(options.color_by)) {
    add_once(chosen, named(all, "algorithm", options.color_by));
  }
  return chosen;
}

}  // namespace

Selection select(const PluginFolder& plugins, const Options& options) {
  Selection selection;
  selection.reader = for_file(plugins.all<IGraphReader>(), "read", options.input);
  selection.writer = for_file(plugins.all<IGraphWriter>(), "write", options.output);
  selection.algorithms = select_algorithms(plugins, options);
  selection.layout = named(plugins.all<IGraphLayout>(), "layout", options.layout);
  return selection;
}
