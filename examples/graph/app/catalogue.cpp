#include "catalogue.h"

#include <graph_contract.h>

#include <cstdio>

#include "text.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string interface_name(const _GUID& iid) {
  if (iid == IID_IOXAPlugin) return "IOXAPlugin";
  if (iid == IID_IOXAFileReader) return "IOXAFileReader";
  if (iid == IID_IOXAFileWriter) return "IOXAFileWriter";
  if (iid == IID_IOXAAlgorithm) return "IOXAAlgorithm";
  if (iid == IID_IOXALayout) return "IOXALayout";
  if (iid == IID_IOXALayoutCompute) return "IOXALayoutCompute";
  return oxa::to_string(iid);
}

template <class Interface>
std::string name_of(const Offered& entry) {
  const char* name = static_cast<Interface*>(entry.object)->GetName();
  return name != nullptr ? name : "-";
}

std::string object_name(const Offered& entry) {
  if (entry.iid == IID_IOXAFileReader) return name_of<IGraphReader>(entry);
  if (entry.iid == IID_IOXAFileWriter) return name_of<IGraphWriter>(entry);
  if (entry.iid == IID_IOXAAlgorithm) return name_of<IGraphAlgorithm>(entry);
  if (entry.iid == IID_IOXALayout) return name_of<IGraphLayout>(entry);
  return "-";
}

template <class Interface>
void add_described(Rows& rows, const char* what, const PluginFolder& plugins) {
  for (Interface* object : plugins.all<Interface>()) {
    rows.push_back({what, object->GetName(), object->GetDescription()});
  }
}

template <class Interface>
void add_formats(Rows& rows, const char* what, const PluginFolder& plugins) {
  for (Interface* object : plugins.all<Interface>()) {
    rows.push_back({what, object->GetName(), object->GetExtensions()});
  }
}

}  // namespace

void print_catalogue(const PluginFolder& plugins) {
  Rows rows = {{"NAMESPACE", "INTERFACE", "NAME", "PLUG-IN", "FILE"}};
  for (const Offered& entry : plugins.offered()) {
    rows.push_back({entry.name_space, interface_name(entry.iid), object_name(entry), entry.plugin,
                    entry.file});
  }
  print_table(rows);
  std::printf("\n");
}

void print_choices(const PluginFolder& plugins) {
  Rows rows;
  add_formats<IGraphReader>(rows, "reads", plugins);
  add_described<IGraphAlgorithm>(rows, "computes", plugins);
  add_described<IGraphLayout>(rows, "arranges", plugins);
  add_formats<IGraphWriter>(rows, "writes", plugins);
  print_table(rows);
}
