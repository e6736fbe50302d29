// [snippet: host]
#include <oxa/oxa.h>

#include <cstdio>

int main(int count, char** arguments) {
  oxa::Ref<IOXAContext> context;
  if (count != 2 || oxa::failed(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)))) {
    return 1;
  }
  const auto loader = oxa::service<IOXAPluginLoader>(context.get());
  loader->LoadAll(oxa::widen(arguments[1]).c_str());

  const auto registry = oxa::service<IOXAInterfaceManager>(context.get());
  for (const char* name : {"readers", "writers", "algorithms", "layouts", "misc"}) {
    oxa::Ref<IOXAInterfaceEnum> found;
    if (oxa::succeeded(registry->GetInterfaceEnumByNamespace(name, oxa::adopt_into(found)))) {
      for (const oxa::InterfaceEntry& entry : oxa::entries(*found)) {
        std::printf("%s %s\n", name, oxa::to_string(entry.iid).c_str());
      }
    }
  }
}
// [snippet end]
