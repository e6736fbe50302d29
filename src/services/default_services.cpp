// The services that every new context holds, in the order in which they are built.
#include "core/default_services.h"

#include <oxa/IOXADebugMessage.h>
#include <oxa/IOXAPluginLoader.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/ref.h>

#include <array>

#include "core/OXADefaultIO.h"
#include "core/OXAInterfaceManager.h"
#include "diagnostics/OXADiagnosticsManager.h"
#include "plugins/OXADirectoryScanner.h"
#include "properties/OXAPreferences.h"
#include "properties/OXAPropertyDataTypeTranslator.h"
#include "xml/oxa_xml_container.h"

namespace {

using service_reference = oxa::Ref<IOXAReference>;

// One step of the sequence. `create` is given the context and throws std::bad_alloc, or leaves a
// negative `result`; `failure` goes to the message sink when the service cannot be added, and is
// null for the sink itself.
struct default_service {
  const _GUID& iid;
  service_reference (*create)(IOXAContext& context, OXAResult& result);
  const char* failure;
};

template <class Service>
service_reference own(Service* service) {
  return service_reference::adopt(static_cast<typename Service::InterfaceType*>(service));
}

template <class Service>
service_reference create(IOXAContext& /*context*/, OXAResult& /*result*/) {
  return own(new Service());
}

service_reference create_xml_container(IOXAContext& context, OXAResult& /*result*/) {
  return own(new oxa_xml_container(&context));
}

service_reference create_preferences(IOXAContext& /*context*/, OXAResult& result) {
  return own(new OXAPreferences(result));
}

const default_service default_services[] = {
    {IID_IOXADebugMessage, create<OXADefaultIOMessage>, nullptr},
    {IID_IOXAProgressIndicator, create<OXADefaultIOProgress>,
     "Unable to add ProgressIndicator to the context."},
    {IID_IOXADirectoryScanner, create<OXADirectoryScanner>,
     "Unable to add DirectoryScanner() to the context."},
    {IID_IOXADiagnosticsManager, create<OXADiagnosticsManager>,
     "Unable to add DiagnosticsManager() to the context."},
    {IID_IOXAXMLParser, create_xml_container, "Unable to add XMLParser() to the context."},
    {IID_IOXAPropertyDataTypeTranslator, create<OXAPropertyDataTypeTranslator>,
     "Unable to add DataTypeTranslator() to the context."},
    {IID_IOXAInterfaceManager, create<OXAInterfaceManager>,
     "Unable to add Interface Manager to the context."},
    {IID_IOXAPreferences, create_preferences,
     "Unable to add Preferences interface to the context."},
};

// Held while the sequence runs and released last created first, as an array ends: afterwards the
// context alone holds the services.
using held_services = std::array<service_reference, std::size(default_services) + 1>;

}  // namespace

OXAResult add_default_services(IOXAContext& context) {
  held_services held;
  OXAResult result = S_OK;
  IOXADebugMessage* sink = nullptr;
  std::size_t step = 0;
  for (const default_service& service : default_services) {
    held[step] = service.create(context, result);
    if (result < 0) {
      return result;
    }
    if (sink == nullptr) {
      sink = static_cast<IOXADebugMessage*>(held[step].get());
    }
    result = context.AddToContext(service.iid, held[step].get());
    if (result < 0) {
      if (service.failure != nullptr) {
        sink->EmitError("%s", service.failure);
      }
      return result;
    }
    ++step;
  }

  // Kept: for a second context of the process this is the first one's loader, without a reference
  // for us. Releasing it all the same takes away the one that AddToContext took, so the second
  // context's entry has no reference of its own
  // (PluginLoaderTest.ASecondContextHasNoReferenceOfItsOwn).
  void* loader = nullptr;
  result = OXACreatePluginLoader(&context, &loader);
  held[step] = service_reference::adopt(static_cast<IOXAPluginLoader*>(loader));
  if (result < 0) {
    sink->EmitError("Unable to create plugin loader interface...");
  }
  return result;
}
