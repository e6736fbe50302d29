#include "catalogue.h"

#include <graph_contract.h>

#include <cstdio>
#include <utility>

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

std::string or_dash(const std::string& text) { return text.empty() ? "-" : text; }

// The first line of a type names it; those of its other members leave room.
void add_record_type(Rows& rows, const RecordType& type) {
  std::string name = type.name_space + "::" + type.name;
  std::string kind = or_dash(type.kind);
  if (type.members.empty()) {
    rows.push_back({name, kind, "-"});
  }
  for (const RecordMember& member : type.members) {
    rows.push_back({std::exchange(name, ""), std::exchange(kind, ""), member.name, member.data_type,
                    or_dash(member.range), or_dash(member.default_value), or_dash(member.tooltip)});
  }
}

}  // namespace

void print_catalogue(const PluginFolder& plugins) {
  Rows rows = {{"NAMESPACE", "INTERFACE", "NAME", "PLUG-IN", "FILE"}};
  for (const Offered& entry : plugins.offered()) {
    rows.push_back({entry.name_space, interface_name(entry.iid), or_dash(entry.name), entry.plugin,
                    entry.file});
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

void print_record_type_count(const std::vector<RecordType>& types) {
  if (!types.empty()) {
    std::printf("%s, shown by --list\n\n", counted(types.size(), "record type").c_str());
  }
}

void print_record_types(const std::vector<RecordType>& types) {
  if (types.empty()) {
    return;
  }
  Rows rows = {{"RECORD TYPE", "KIND", "MEMBER", "DATA TYPE", "RANGE", "DEFAULT", "MEANING"}};
  for (const RecordType& type : types) {
    add_record_type(rows, type);
  }
  std::printf("\n");
  print_table(rows);
}
