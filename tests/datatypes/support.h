// What the tests of record types share.
#pragma once

#include <gtest/gtest.h>
#include <oxa/oxa.h>

#include <algorithm>
#include <string>
#include <vector>

#include "plugins/OXADirectoryScanner.h"
#include "properties/OXAPropertyDataTypeTranslator.h"
#include "support/fakes.h"
#include "support/files.h"
#include "support/memory_file.h"
#include "xml/oxa_xml_container.h"

namespace oxa_test {

using OXA::Property::DataType;
using OXA::Property::NoDataType;
using Lines = std::vector<std::string>;

// Asks the factory for the manager of the process.
inline OXAResult get_manager(IOXAContext* context,
                             oxa::Ref<IOXAUserDefinedDataTypeManager>& manager) {
  return OXACreateUserDefinedDataTypeManager(context, IID_IOXAUserDefinedDataTypeManager,
                                             oxa::adopt_into(manager));
}

// Returns whether there is a manager.
inline bool has_manager() {
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
  return get_manager(nullptr, manager) == S_OK;
}

// A context with the services that a manager asks for, and a sink that records.
struct Services {
  Services() {
    context->AddToContext(IID_IOXADebugMessage, sink.get());
    context->AddToContext(IID_IOXAPropertyDataTypeTranslator, translator.get());
    context->AddToContext(IID_IOXADirectoryScanner, scanner.get());
    context->AddToContext(IID_IOXAXMLParser, parser.get());
  }
  Services(const Services&) = delete;
  Services& operator=(const Services&) = delete;
  ~Services() = default;

  // Takes a service out of the context.
  void remove(const _GUID& iid) const { context->services.erase(oxa::to_string(iid)); }

  const Lines& lines() const { return sink->lines; }

  oxa::Ref<FakeContext> context = oxa::make<FakeContext>();
  oxa::Ref<RecordingSink> sink = oxa::make<RecordingSink>();
  oxa::Ref<IOXAPropertyDataTypeTranslator> translator = oxa::make<OXAPropertyDataTypeTranslator>();
  oxa::Ref<IOXADirectoryScanner> scanner = oxa::make<OXADirectoryScanner>();
  oxa::Ref<IOXAXMLParser> parser = oxa::make<oxa_xml_container>(context.get());
};

// The same with a manager.
struct Host : Services {
  Host() { make_manager(); }
  void make_manager() { EXPECT_EQ(get_manager(context.get(), manager), S_OK); }

  // Loads a file with the given content.
  OXAResult load(const std::string& content) const {
    return manager->Load(MemoryFile(content).path().c_str());
  }

  // Adds a namespace, or finds it.
  IOXAPluginDataTypeNamespace* name_space(const char* name) const {
    IOXAPluginDataTypeNamespace* found = nullptr;
    EXPECT_GE(manager->NewNamespace(name, &found), 0);
    return found;
  }

  // Returns null for what is no record type.
  IOXAUserDefinedDataType* type(const char* type_string) const {
    IOXAUserDefinedDataType* found = nullptr;
    manager->GetUserType(type_string, &found);
    return found;
  }

  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
};

// Shows a type as "point(x y)".
inline std::string outline(IOXAUserDefinedDataType& type) {
  std::string members;
  for (IOXADataElement* member : oxa::elements(type)) {
    members += (members.empty() ? "" : " ") + std::string(member->Name());
  }
  return std::string(type.Name()) + "(" + members + ")";
}

// Shows the types of each namespace as "p: line() point(x y)", sorted.
inline Lines outline(IOXAUserDefinedDataTypeManager& manager) {
  Lines shown;
  for (IOXAPluginDataTypeNamespace* each : oxa::namespaces(manager)) {
    Lines types;
    for (IOXAUserDefinedDataType* type : oxa::types(*each)) {
      types.push_back(outline(*type));
    }
    std::sort(types.begin(), types.end());
    shown.push_back(std::string(each->Name()) + ":");
    for (const std::string& type : types) {
      shown.back() += " " + type;
    }
  }
  std::sort(shown.begin(), shown.end());
  return shown;
}

// A text of a member, and how it is set.
struct ElementText {
  OXAResult (IOXADataElement::*set)(const char*);
  const char* (IOXADataElement::*get)();
};

inline const ElementText element_texts[] = {
    {&IOXADataElement::SetName, &IOXADataElement::Name},
    {&IOXADataElement::SetTooltip, &IOXADataElement::Tooltip},
    {&IOXADataElement::SetDefaultValue, &IOXADataElement::DefaultValue},
    {&IOXADataElement::SetUserDefinedTypeString, &IOXADataElement::UserDefinedType},
};

inline OXAResult add_member(IOXAUserDefinedDataType& type, const char* name) {
  oxa::Ref<IOXADataElement> member;
  EXPECT_EQ(type.CreateElement(oxa::adopt_into(member)), S_OK);
  EXPECT_EQ(member->SetName(name), S_OK);
  const OXAResult result = type.AddElement(member.get());
  if (result >= 0) {
    static_cast<void>(member.detach());
  }
  return result;
}

// An extension file of the plug-in p.
inline std::string extension(const std::string& content) {
  return R"(<extension type="data" plugin="p">)" + content + "</extension>";
}

// The declaration of a type named point.
inline std::string point(const std::string& members) {
  return extension(R"(<data_type name="point" type="struct">)" + members + "</data_type>");
}

}  // namespace oxa_test
