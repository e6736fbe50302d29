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
void add_choices(Rows& rows, const char* what, const PluginFolder& plugins) {
  for (const Offered* entry : plugins.all<Interface>()) {
    rows.push_back({what, entry->name, entry->details});
  }
}

}  // namespace

void print_catalogue(const PluginFolder& plugins) {
  Rows rows = {{"NAMESPACE", "INTERFACE", "NAME", "PLUG-IN", "FILE"}};
  for (const Offered& entry : plugins.offered()) {
    rows.push_back({entry.name_space, interface_name(entry.iid),
                    entry.name.empty() ? "-" : entry.name, entry.plugin, entry.file});
  }
  print_table(rows);
  std::printf("\n");
}

void print_choices(const PluginFolder& plugins) {
  Rows rows;
  add_choices<IGraphReader>(rows, "reads", plugins);
  add_choices<IGraphAlgorithm>(rows, "computes", plugins);
  add_choices<IGraphLayout>(rows, "arranges", plugins);
  add_choices<IGraphWriter>(rows, "writes", plugins);
  print_table(rows);
}
