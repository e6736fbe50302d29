// A host that is built outside the library's tree: loads the record types and the plug-ins of a
// folder, prints what is registered by them, and talks to one kind of it.
#include <oxa/oxa.h>

#include <cstdio>

#include "IGreeter.h"

namespace {

void list_plugins(IOXAInterfaceManager& registry) {
  oxa::Ref<IOXAInterfaceEnum> plugins;
  registry.GetInterfaceEnumByGUID(IID_IOXAPlugin, oxa::adopt_into(plugins));
  for (const oxa::InterfaceEntry& entry : oxa::entries(*plugins)) {
    auto* plugin = static_cast<IOXAPlugin*>(entry.object);
    std::printf("plug-in %s %s\n", plugin->GetName(), plugin->GetVersion());
  }
}

void list_namespace(IOXAInterfaceManager& registry, const char* name) {
  oxa::Ref<IOXAInterfaceEnum> offered;
  const OXAResult result = registry.GetInterfaceEnumByNamespace(name, oxa::adopt_into(offered));
  if (oxa::failed(result)) {
    std::printf("%s: %s\n", name, oxa::result_text(result));
    return;
  }
  for (const oxa::InterfaceEntry& entry : oxa::entries(*offered)) {
    std::printf("%s: %s\n", name, oxa::to_string(entry.iid).c_str());
  }
}

void list_types(IOXAUserDefinedDataTypeManager& manager) {
  for (IOXAPluginDataTypeNamespace* plugin : oxa::namespaces(manager)) {
    for (IOXAUserDefinedDataType* type : oxa::types(*plugin)) {
      std::printf("type %s::%s\n", plugin->Name(), type->Name());
    }
  }
}

void greet(IOXAInterfaceManager& registry) {
  oxa::Ref<IOXAInterfaceEnum> greeters;
  registry.GetInterfaceEnumByGUID(IID_IGreeter, oxa::adopt_into(greeters));
  for (const oxa::InterfaceEntry& entry : oxa::entries(*greeters)) {
    std::printf("%s\n", static_cast<IGreeter*>(entry.object)->Greeting());
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
    return 2;
  }
  oxa::Ref<IOXAContext> context;
  if (oxa::failed(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)))) {
    return 1;
  }
  const std::wstring folder = oxa::widen(argv[1]);
  const auto manager = oxa::type_manager(context);
  manager->LoadAll(folder.c_str());
  oxa::service<IOXAPluginLoader>(context.get())->LoadAll(folder.c_str());
  list_types(*manager);
  const auto registry = oxa::service<IOXAInterfaceManager>(context.get());
  list_plugins(*registry);
  list_namespace(*registry, "misc");
  list_namespace(*registry, "readers");
  greet(*registry);
  return 0;
}
