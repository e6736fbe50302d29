#include "offered.h"

#include <graph_contract.h>
#include <oxa/IOXAPlugin.h>

#include <optional>

#include "plugin_call.h"

namespace {

// Asks for one text; absent for null. `operation` and `what` name the call and the object's role.
template <class Interface>
std::optional<std::string> ask(Interface& object, const char* (Interface::*getter)(),
                               const std::string& operation, const char* what) {
  std::optional<std::string> text;
  const CallOutcome outcome = call_plugin([&] {
    if (const char* answer = (object.*getter)()) {
      text = answer;
    }
    return S_OK;
  });
  if (outcome.threw) {
    throw BadPlugin(operation + " of its " + what + " " + exception_text(outcome));
  }
  return text;
}

template <class Interface>
std::string ask_firmly(Interface& object, const char* (Interface::*getter)(),
                       const std::string& operation, const char* what) {
  const auto text = ask(object, getter, operation, what);
  if (!text) {
    throw BadPlugin(operation + " of its " + what + " returns null");
  }
  return *text;
}

template <class Interface>
void describe_format(Offered& entry, const char* what) {
  auto& object = entry.as<Interface>();
  entry.name = ask_firmly(object, &Interface::GetName, "GetName", what);
  entry.details = ask_firmly(object, &Interface::GetExtensions, "GetExtensions", what);
}

template <class Interface>
void describe_work(Offered& entry, const char* what) {
  auto& object = entry.as<Interface>();
  entry.name = ask_firmly(object, &Interface::GetName, "GetName", what);
  entry.details = ask_firmly(object, &Interface::GetDescription, "GetDescription", what);
}

void describe_object(Offered& entry) {
  if (entry.iid == IID_IOXAFileReader) describe_format<IGraphReader>(entry, "reader");
  if (entry.iid == IID_IOXAFileWriter) describe_format<IGraphWriter>(entry, "writer");
  if (entry.iid == IID_IOXAAlgorithm) describe_work<IGraphAlgorithm>(entry, "algorithm");
  if (entry.iid == IID_IOXALayout) describe_work<IGraphLayout>(entry, "layout");
}

// The plug-in object may return null for both of its texts.
std::string plugin_title(const std::vector<Offered>& entries) {
  for (const Offered& entry : entries) {
    if (entry.iid == IID_IOXAPlugin) {
      auto& plugin = entry.as<IOXAPlugin>();
      const auto name = ask(plugin, &IOXAPlugin::GetName, "GetName", "plug-in object");
      const auto version = ask(plugin, &IOXAPlugin::GetVersion, "GetVersion", "plug-in object");
      return name.value_or("unnamed") + (version ? " " + *version : std::string());
    }
  }
  return "unnamed";
}

}  // namespace

void describe(std::vector<Offered>& entries) {
  const std::string title = plugin_title(entries);
  for (Offered& entry : entries) {
    entry.plugin = title;
    describe_object(entry);
  }
}
