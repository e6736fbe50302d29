// Hosts that load the miniature plug-ins.
#pragma once

#include <dlfcn.h>

#include <functional>
#include <string>
#include <vector>

#include "plugins/miniature/journal.h"
#include "support/fakes.h"

namespace oxa_test {

// Keeps what the plug-ins note.
class Journal final : public oxa::Implements<IJournal> {
 public:
  void Note(const char* line) override {
    lines.emplace_back(line);
    if (on_note) {
      on_note();
    }
  }

  std::vector<std::string> lines;
  std::function<void()> on_note;
};

// A host with a context as the library makes it.
struct Host {
  Host() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    context->AddToContext(IID_IJournal, journal.get());
    registry = oxa::service<IOXAInterfaceManager>(context.get());
    loader = oxa::service<IOXAPluginLoader>(context.get());
  }

  oxa::Ref<IOXAContext> context;
  oxa::Ref<Journal> journal = oxa::make<Journal>();
  oxa::Ref<IOXAInterfaceManager> registry;
  oxa::Ref<IOXAPluginLoader> loader;
};

// A host whose loader reports to a sink that keeps what it is told.
struct RecordingHost {
  RecordingHost() {
    registry = Host().registry;
    context->AddToContext(IID_IOXADebugMessage, sink.get());
    context->AddToContext(IID_IOXAInterfaceManager, registry.get());
    context->AddToContext(IID_IJournal, journal.get());
    OXACreatePluginLoader(context.get(), oxa::adopt_into(loader));
  }

  oxa::Ref<FakeContext> context = oxa::make<FakeContext>();
  oxa::Ref<RecordingSink> sink = oxa::make<RecordingSink>();
  oxa::Ref<Journal> journal = oxa::make<Journal>();
  oxa::Ref<IOXAInterfaceManager> registry;
  oxa::Ref<IOXAPluginLoader> loader;
};

// Returns what is registered in a namespace; nothing for one that does not exist.
inline std::vector<oxa::InterfaceEntry> entries_in(const oxa::Ref<IOXAInterfaceManager>& registry,
                                                   const char* name) {
  oxa::Ref<IOXAInterfaceEnum> found;
  registry->GetInterfaceEnumByNamespace(name, oxa::adopt_into(found));
  std::vector<oxa::InterfaceEntry> entries;
  if (found) {
    const auto range = oxa::entries(*found);
    for (const oxa::InterfaceEntry& entry : range) {
      entries.push_back(entry);
    }
  }
  return entries;
}

// Returns the ids under which a namespace holds something.
inline std::vector<std::string> ids_in(const oxa::Ref<IOXAInterfaceManager>& registry,
                                       const char* name) {
  std::vector<std::string> ids;
  for (const oxa::InterfaceEntry& entry : entries_in(registry, name)) {
    ids.push_back(oxa::to_string(entry.iid));
  }
  return ids;
}

// Returns how many entries all the namespaces of the loader hold together.
inline std::size_t entry_count(const oxa::Ref<IOXAInterfaceManager>& registry) {
  std::size_t count = 0;
  for (const char* name : {"plugins", "readers", "writers", "algorithms", "layouts", "misc"}) {
    count += entries_in(registry, name).size();
  }
  return count;
}

// Drops the one reference that a LoadAll leaves on the sink that it fetches anew.
inline void drop_reference_of_load_all(IOXADebugMessage* sink) { sink->ReleaseReference(); }

}  // namespace oxa_test
