#include "plugins/OXAPluginLoader.h"

#include <oxa/sdk/guard.h>
#include <oxa/sdk/ranges.h>
#include <oxa/shared_objects.h>

#include <memory>
#include <utility>
#include <vector>

#include "core/factory.h"
#include "plugins/to_wstring.h"

namespace {

// The one loader of the process; it holds no reference.
IOXAPluginLoader* process_loader = nullptr;

constexpr char plugins_namespace[] = "plugins";

const char* namespace_for(const _GUID& iid) {
  if (iid == IID_IOXAFileReader) {
    return "readers";
  }
  if (iid == IID_IOXAFileWriter) {
    return "writers";
  }
  if (iid == IID_IOXAAlgorithm) {
    return "algorithms";
  }
  if (iid == IID_IOXALayout) {
    return "layouts";
  }
  return "misc";
}

struct shared_object_closer {
  void operator()(void* handle) const { UnloadPlugin(handle); }
};

using shared_object = std::unique_ptr<void, shared_object_closer>;

}  // namespace

OXAPluginLoader::OXAPluginLoader(IOXAContext* context, OXAResult& result) : context_(context) {
  result = context_->GetInterface(IID_IOXADebugMessage, oxa::adopt_into(sink_));
  if (result < 0) {
    return;
  }
  scanner_ = oxa::make<OXADirectoryScanner>();
  result = context_->GetInterface(IID_IOXAInterfaceManager, oxa::adopt_into(registry_));
}

OXAResult OXAPluginLoader::Load(const wchar_t* path) {
  if (path == nullptr) {
    return E_INVALIDARG;
  }
  if (!registry_) {
    return E_UNEXPECTED;  // the loader is ending, or its context has no registry
  }
  return oxa::guard([&] {
    if (plugins_.find(std::wstring_view(path)) != plugins_.end()) {
      return S_ALREADYEXISTS;
    }
    _plugin plugin;
    plugin.path = path;
    return open(plugin);
  });
}

// Every return but that of a loaded plug-in closes the shared object again. Plug-in code runs
// behind the wall, and what it throws is caught in here: an exception must not outlive the code of
// its own destructor.
OXAResult OXAPluginLoader::open(_plugin& plugin) {
  shared_object opened(LoadPluginW(plugin.path.c_str()));
  if (opened == nullptr) {
    return E_FAIL;
  }
  plugin.handle = opened.get();
  plugin.entry_point = reinterpret_cast<decltype(plugin.entry_point)>(
      FindFunction(plugin.handle, "OXACreatePluginInterface"));
  if (plugin.entry_point == nullptr) {
    refuse("Unloading plugin: %s is not an OXA plugin..", plugin);
    return E_INVALIDARG;
  }
  if (create_object(plugin) < 0) {
    refuse("Unloading plugin (%s): OXACreateInterface() failed..", plugin);
    return E_INVALIDARG;
  }
  const OXAResult result = oxa::guard([&] { return publish(plugin); });
  switch (result) {
    case S_OK:
      static_cast<void>(opened.release());
      break;
    case E_INVALIDARG:
      // Kept: the plug-in object is neither released nor taken out of the registry
      // (PluginLoaderTest.AFailingListLeavesThePluginObjectBehind).
      break;
    case E_NOINTERFACE:
      // Kept: the registry still lists the plug-in object, which ends here
      // (PluginLoaderTest.AnEmptyListEndsThePluginObject).
      end_object(plugin);
      break;
    default:
      retract(plugin);
  }
  return result;
}

// Calls the entry point; success without an object counts as failure.
OXAResult OXAPluginLoader::create_object(_plugin& plugin) {
  void* object = nullptr;
  const OXAResult result =
      oxa::guard([&] { return plugin.entry_point(context_, IID_IOXAPlugin, &object); });
  plugin.object = static_cast<IOXAPlugin*>(object);
  return result >= 0 && object == nullptr ? E_POINTER : result;
}

// Files the plug-in object and what it offers, and takes it among the loaded ones. S_OK;
// E_INVALIDARG when it does not list what it offers, E_NOINTERFACE when that is nothing; 5 when its
// entry point has had the same path loaded; any other result for a load that broke off.
OXAResult OXAPluginLoader::publish(_plugin& plugin) {
  if (registry_->RegisterInterface(plugins_namespace, IID_IOXAPlugin, plugin.object) ==
      E_OUTOFMEMORY) {
    return E_OUTOFMEMORY;
  }
  IOXAInterfaceEnum* offered = nullptr;
  const OXAResult listed = oxa::guard([&] { return plugin.object->GetInterfaceEnum(&offered); });
  if (listed < 0 || offered == nullptr) {
    refuse("Unloading plugin (%s): GetInterfaceEnum() failed..", plugin);
    return E_INVALIDARG;
  }
  // Released by hand: a smart pointer would end the process if the plug-in throws here.
  const OXAResult filed = oxa::guard([&] { return file_interfaces(plugin, *offered); });
  const OXAResult released = oxa::guard([&] {
    offered->ReleaseReference();
    return S_OK;
  });
  if (filed != S_OK || released != S_OK) {
    return filed != S_OK ? filed : released;
  }
  return plugins_.try_emplace(plugin.path, plugin).second ? S_OK : S_ALREADYEXISTS;
}

// Numbers and files what the plug-in offers. A range would hold a reference to the list, and end
// the process if that throws when it is released.
OXAResult OXAPluginLoader::file_interfaces(_plugin& plugin, IOXAInterfaceEnum& offered) {
  _GUID iid{};
  void* object = nullptr;
  for (OXAResult given = offered.GetFirst(iid, &object); given == S_OK;
       given = offered.GetNext(iid, &object)) {
    const auto number = static_cast<std::int32_t>(numbers_.number(iid));
    plugin.interfaces.push_back({number, iid, object});
    // Only want of memory stops the load: a pair without an object is refused and passed over.
    if (registry_->RegisterInterface(namespace_for(iid), iid, object) == E_OUTOFMEMORY) {
      plugin.interfaces.pop_back();
      return E_OUTOFMEMORY;
    }
  }
  return plugin.interfaces.empty() ? E_NOINTERFACE : S_OK;
}

// Undoes a load that broke off in the middle, for want of memory or by an exception.
void OXAPluginLoader::retract(_plugin& plugin) {
  for (const _plugin::reported& reported : plugin.interfaces) {
    registry_->UnRegisterInterface(namespace_for(reported.iid), reported.iid, reported.object);
  }
  registry_->UnRegisterInterface(plugins_namespace, IID_IOXAPlugin, plugin.object);
  end_object(plugin);
}

void OXAPluginLoader::end_object(_plugin& plugin) {
  oxa::guard([&] {
    plugin.object->ReleaseReference();
    return S_OK;
  });
}

// Kept: the wide path goes to a narrow "%s" as it is, which prints it up to its first zero byte, so
// of an ASCII path the first character (PluginLoaderTest.MessagesShowTheFirstCharacterOfThePath).
void OXAPluginLoader::refuse(const char* format, const _plugin& plugin) {
  if (sink_) {
    sink_->EmitError(format, reinterpret_cast<const char*>(plugin.path.c_str()));
  }
}

OXAResult OXAPluginLoader::LoadAll(const wchar_t* folder) {
  if (folder == nullptr) {
    return E_INVALIDARG;
  }
  if (!registry_) {
    return E_UNEXPECTED;
  }
  return oxa::guard([&] {
    // Kept: the sink is fetched again and the reference to the previous one is never released
    // (PluginLoaderTest.EachLoadAllLeavesAReferenceOnTheSink).
    static_cast<void>(sink_.detach());
    context_->GetInterface(IID_IOXADebugMessage, oxa::adopt_into(sink_));

    if (scanner_->Scan(folder, "*.so") < 0) {
      return S_OK;
    }
    // Copied: a plug-in's entry point may call LoadAll itself.
    std::vector<std::wstring> paths;
    for (const wchar_t* name : oxa::names(*scanner_)) {
      paths.push_back(folder + oxa::to_wstring("/") + name);
    }
    for (const std::wstring& path : paths) {
      const OXAResult result = Load(path.c_str());
      if (!sink_) {
        continue;
      }
      if (result < 0) {
        sink_->EmitError("%ls failed...", path.c_str());
      } else {
        sink_->EmitMessage(0, "%ls loaded...", path.c_str());
      }
    }
    return S_OK;
  });
}

OXAResult OXAPluginLoader::Unload(const wchar_t* path) {
  if (path == nullptr) {
    return E_INVALIDARG;
  }
  const auto found = plugins_.find(std::wstring_view(path));
  if (found == plugins_.end()) {
    return E_NOTFOUND;
  }
  // Kept: what the plug-in registered stays in the registry
  // (PluginLoaderTest.UnloadLeavesTheRegistrationsBehind).
  auto record = plugins_.extract(found);
  return oxa::guard([&] { return unload_plugin(record.mapped()); });
}

// A record without a handle has been unloaded already. It stays until all are, or for good when one
// throws: a plug-in that has the loader load its path again while it ends finds it loaded, and so
// the walk ends.
OXAResult OXAPluginLoader::UnloadAll() {
  const OXAResult result = oxa::guard([&] {
    for (auto record = plugins_.begin(); record != plugins_.end();) {
      if (record->second.handle == nullptr) {
        ++record;
        continue;
      }
      _plugin plugin = std::exchange(record->second, {});
      unload_plugin(plugin);
      record = plugins_.upper_bound(plugin.path);
    }
    std::erase_if(plugins_, [](const auto& record) { return record.second.handle == nullptr; });
    return S_OK;
  });
  return result < 0 ? E_UNEXPECTED : S_OK;
}

OXAPluginLoader::~OXAPluginLoader() {
  registry_.reset();
  sink_.reset();
  scanner_.reset();
  UnloadAll();
  process_loader = nullptr;
}

// Kept: an existing loader is handed out without a reference for the caller
// (PluginLoaderTest.ASecondContextHasNoReferenceOfItsOwn).
OXAResult OXACreatePluginLoader(IOXAContext* context, void** out) {
  return run_factory(out, [&] {
    if (context == nullptr) {
      return E_INVALIDARG;
    }
    if (process_loader != nullptr) {
      *out = process_loader;
      return context->AddToContext(IID_IOXAPluginLoader, process_loader);
    }
    OXAResult result = S_OK;
    auto loader = oxa::make<OXAPluginLoader>(context, result);
    if (result < 0) {
      return result;
    }
    process_loader = loader.get();
    result = context->AddToContext(IID_IOXAPluginLoader, process_loader);
    *out = static_cast<IOXAPluginLoader*>(loader.detach());
    return result;
  });
}
