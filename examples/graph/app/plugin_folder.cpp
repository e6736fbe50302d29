#include "plugin_folder.h"

#include <dlfcn.h>
#include <oxa/sdk/utf8.h>

#include <algorithm>
#include <filesystem>

#include "folder.h"
#include "problem.h"
#include "text.h"

namespace {

constexpr const char* name_spaces[] = {"plugins",    "readers", "writers",
                                       "algorithms", "layouts", "misc"};

bool same_entry(const Offered& left, const Offered& right) {
  return left.object == right.object && left.iid == right.iid &&
         left.name_space == right.name_space;
}

// Returns the entries that are in `after` more often than in `before`.
std::vector<Offered> added(std::vector<Offered> before, const std::vector<Offered>& after) {
  std::vector<Offered> fresh;
  for (const Offered& entry : after) {
    const auto known = std::find_if(before.begin(), before.end(),
                                    [&](const Offered& other) { return same_entry(entry, other); });
    if (known != before.end()) {
      before.erase(known);
    } else {
      fresh.push_back(entry);
    }
  }
  return fresh;
}

// Returns why `path` could not be opened just now. The system has nothing to say of a file that the
// loader did not hand to it.
std::string opening_error(const std::string& path) {
  const char* reason = dlerror();
  if (reason == nullptr) {
    return "it is no complete shared object, or fails as it is opened";
  }
  const std::string beginning = path + ": ";
  const std::string_view text = reason;
  return std::string(text.substr(text.rfind(beginning, 0) == 0 ? beginning.size() : 0));
}

}  // namespace

PluginFolder::PluginFolder(IOXAContext* context)
    : scanner_(oxa::service<IOXADirectoryScanner>(context)),
      loader_(oxa::service<IOXAPluginLoader>(context)),
      registry_(oxa::service<IOXAInterfaceManager>(context)) {
  if (!scanner_ || !loader_ || !registry_) {
    throw Problem("the library gives no plug-in services; reinstall it");
  }
}

PluginFolder::~PluginFolder() {
  unregister(offered_);
  for (const std::wstring& path : paths_) {
    loader_->Unload(path.c_str());
  }
}

void PluginFolder::load(const std::string& folder) {
  for (const std::wstring& name : names_in(*scanner_, folder, L".so")) {
    load_file(folder, name);
  }
  if (paths_.empty()) {
    throw Problem("there are no plug-ins in " + in_quotes(folder) +
                  " that can be loaded; name their folder with --plugins");
  }
}

// A load that fails may leave entries behind that point to nothing, so whatever is new after it
// goes out again, unused.
void PluginFolder::load_file(const std::string& folder, const std::wstring& name) {
  const std::wstring path = oxa::widen(folder) + L"/" + name;
  const std::string shown_path = folder + "/" + oxa::narrow(name);
  const std::vector<Offered> before = registered();
  dlerror();  // forgets earlier failures
  const OXAResult result = loader_->Load(path.c_str());
  const std::string why = result == E_FAIL ? opening_error(shown_path) : oxa::result_text(result);
  std::vector<Offered> fresh = added(before, registered());
  if (oxa::failed(result)) {
    unregister(fresh);
    report_skipped("plug-in", shown_path, why, "remove or rebuild the file");
    return;
  }
  try {
    describe(fresh);
  } catch (const BadPlugin& bad) {
    unregister(fresh);
    loader_->Unload(path.c_str());
    report_skipped("plug-in", shown_path, bad.what(), "remove the file or ask its author");
    return;
  }
  paths_.push_back(path);
  for (Offered& entry : fresh) {
    entry.file = oxa::narrow(name);
    offered_.push_back(std::move(entry));
  }
}

void PluginFolder::unregister(const std::vector<Offered>& entries) {
  for (const Offered& entry : entries) {
    registry_->UnRegisterInterface(entry.name_space.c_str(), entry.iid, entry.object);
  }
}

std::vector<Offered> PluginFolder::registered() {
  std::vector<Offered> entries;
  for (const char* name_space : name_spaces) {
    oxa::Ref<IOXAInterfaceEnum> found;
    if (oxa::failed(registry_->GetInterfaceEnumByNamespace(name_space, oxa::adopt_into(found)))) {
      continue;
    }
    for (const oxa::InterfaceEntry& entry : oxa::entries(*found)) {
      entries.push_back({name_space, entry.iid, entry.object, {}, {}, {}, {}});
    }
  }
  return entries;
}

std::string default_plugin_folder() {
  std::error_code ignored;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
  const auto built = program / "../plugins";
  const auto folder =
      std::filesystem::is_directory(built, ignored) ? built : program / OXA_GRAPH_PLUGIN_DIRECTORY;
  return folder.lexically_normal().string();
}
