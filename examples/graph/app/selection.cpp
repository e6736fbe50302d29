#include "selection.h"

#include <graph_contract.h>

#include <algorithm>
#include <filesystem>

#include "problem.h"
#include "text.h"

namespace {

constexpr const char* none = "none";

using Entries = std::vector<const Offered*>;

const Offered* find_named(const Entries& all, const std::string& name) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Offered* entry) { return entry->name == name; });
  return found != all.end() ? *found : nullptr;
}

std::vector<std::string> names_of(const Entries& all) {
  std::vector<std::string> names;
  names.reserve(all.size());
  for (const Offered* entry : all) {
    names.push_back(entry->name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

const Offered* named(const Entries& all, const char* what, const std::string& name) {
  if (const Offered* found = find_named(all, name)) {
    return found;
  }
  const std::vector<std::string> known = names_of(all);
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

// Whether what sizes or colours go by is an algorithm.
bool names_column(const std::string& value) { return !value.empty() && value != none; }

void add_once(Entries& chosen, const Offered* algorithm) {
  if (std::find(chosen.begin(), chosen.end(), algorithm) == chosen.end()) {
    chosen.push_back(algorithm);
  }
}

// Adds the algorithms that the setting names. Of the usual ones, those that no plug-in offers are
// left out.
void add_named(Entries& chosen, const Entries& all, const Settings& settings) {
  const bool usual = !settings.given(setting::algorithms);
  const std::vector<std::string> names = split(settings.text(setting::algorithms), ',');
  if (names == std::vector<std::string>{none}) {
    return;
  }
  for (const std::string& name : names) {
    if (!usual || find_named(all, name) != nullptr) {
      add_once(chosen, named(all, "algorithm", name));
    }
  }
}

// The one that sizes are to show comes first: whether its values fit is known only once it has run,
// and should be known before the others take their time.
Entries select_algorithms(const PluginFolder& plugins, const Settings& settings) {
  const Entries all = plugins.all<IGraphAlgorithm>();
  const std::string size_by = settings.text(setting::size_by);
  const std::string color_by = settings.text(setting::color_by);
  Entries chosen;
  if (names_column(size_by)) {
    add_once(chosen, named(all, "algorithm", size_by));
  }
  add_named(chosen, all, settings);
  if (names_column(color_by)) {
    add_once(chosen, named(all, "algorithm", color_by));
  }
  return chosen;
}

}  // namespace

Selection select(const PluginFolder& plugins, const Options& options, const Settings& settings) {
  Selection selection;
  selection.reader = for_file(plugins.all<IGraphReader>(), "read", options.input);
  selection.writer = for_file(plugins.all<IGraphWriter>(), "write", options.output);
  selection.algorithms = select_algorithms(plugins, settings);
  selection.layout = named(plugins.all<IGraphLayout>(), "layout", settings.text(setting::layout));
  return selection;
}

Selection select_for_check(const PluginFolder& plugins, const Options& options,
                           const Settings& settings) {
  Selection selection;
  selection.reader = for_file(plugins.all<IGraphReader>(), "read", options.input);
  if (settings.given(setting::algorithms)) {
    add_named(selection.algorithms, plugins.all<IGraphAlgorithm>(), settings);
  }
  return selection;
}

void add_choices(Settings& settings, const PluginFolder& plugins) {
  const std::vector<std::string> algorithms = names_of(plugins.all<IGraphAlgorithm>());
  settings.add_entries(setting::size_by, algorithms);
  settings.add_entries(setting::color_by, algorithms);
  settings.add_entries(setting::layout, names_of(plugins.all<IGraphLayout>()));
}
