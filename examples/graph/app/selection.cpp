#include "selection.h"

#include <algorithm>
#include <filesystem>

#include "problem.h"
#include "text.h"

namespace {

constexpr const char* none = "none";
constexpr const char* usual_algorithms[] = {"pagerank", "betweenness", "degree", "community"};

template <class Interface>
Interface* find_named(const std::vector<Interface*>& all, const std::string& name) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](Interface* object) { return object->GetName() == name; });
  return found != all.end() ? *found : nullptr;
}

template <class Interface>
Interface* named(const std::vector<Interface*>& all, const char* what, const std::string& name) {
  if (Interface* found = find_named(all, name)) {
    return found;
  }
  std::vector<std::string> known;
  known.reserve(all.size());
  for (Interface* object : all) {
    known.emplace_back(object->GetName());
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

template <class Interface>
Interface* for_file(const std::vector<Interface*>& all, const char* what, const std::string& path) {
  const std::string extension = std::filesystem::path(path).extension().string();
  std::vector<std::string> known;
  for (Interface* object : all) {
    for (const std::string& served : split(object->GetExtensions(), ' ')) {
      if (served == extension) {
        return object;
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

void add_once(std::vector<IGraphAlgorithm*>& chosen, IGraphAlgorithm* algorithm) {
  if (std::find(chosen.begin(), chosen.end(), algorithm) == chosen.end()) {
    chosen.push_back(algorithm);
  }
}

std::vector<IGraphAlgorithm*> select_algorithms(const PluginFolder& plugins,
                                                const Options& options) {
  const std::vector<IGraphAlgorithm*> all = plugins.all<IGraphAlgorithm>();
  std::vector<IGraphAlgorithm*> chosen;
  if (!options.algorithms) {
    for (const char* name : usual_algorithms) {
      if (IGraphAlgorithm* found = find_named(all, name)) {
        chosen.push_back(found);
      }
    }
  } else if (*options.algorithms != std::vector<std::string>{none}) {
    for (const std::string& name : *options.algorithms) {
      add_once(chosen, named(all, "algorithm", name));
    }
  }
  for (const std::string& column : {options.size_by, options.color_by}) {
    if (!column.empty() && column != none) {
      add_once(chosen, named(all, "algorithm", column));
    }
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
