// A host that is built outside the library's tree: loads the plug-ins of a folder, prints what is
// registered by them, and talks to one kind of it.
#include <oxa/oxa.h>

#include <cstdio>
#include <string>

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
  const std::string folder = argv[1];
  oxa::service<IOXAPluginLoader>(context.get())
      ->LoadAll(std::wstring(folder.begin(), folder.end()).c_str());
  const auto registry = oxa::service<IOXAInterfaceManager>(context.get());
  list_plugins(*registry);
  list_namespace(*registry, "misc");
  list_namespace(*registry, "readers");
  greet(*registry);
  return 0;
}
