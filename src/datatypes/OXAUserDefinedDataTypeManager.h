// The record types of all plug-ins.
#pragma once

#include <oxa/IOXAContext.h>
#include <oxa/IOXADirectoryScanner.h>
#include <oxa/IOXAPropertyDataTypeTranslator.h>
#include <oxa/IOXAUserDefinedDataTypeManager.h>
#include <oxa/IOXAXMLParser.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/ref.h>

#include <string_view>

#include "datatypes/OXAPluginDataTypeNamespace.h"
#include "datatypes/named_list.h"
#include "datatypes/type_builder.h"

// One per process: the factory keeps the manager in a slot that the destructor clears.
class OXAUserDefinedDataTypeManager final : public oxa::Implements<IOXAUserDefinedDataTypeManager> {
 public:
  // Takes translator, scanner and parser from `context`, which it does not reference; `result`
  // receives E_INVALIDARG for null, or the outcome for the parser.
  OXAUserDefinedDataTypeManager(IOXAContext* context, OXAResult& result);

  OXAResult Load(const wchar_t* path) override;
  OXAResult LoadAll(const wchar_t* folder) override;
  OXAResult NewNamespace(const char* name, IOXAPluginDataTypeNamespace** ns) override;
  OXAResult GetFirstNamespace(IOXAPluginDataTypeNamespace** ns) override;
  OXAResult GetNextNamespace(IOXAPluginDataTypeNamespace** ns) override;
  OXAResult FindNamespace(const char* name, IOXAPluginDataTypeNamespace** ns) override;
  bool TypeDefined(const char* name) override;
  OXAResult GetUserType(const char* name, IOXAUserDefinedDataType** type) override;

  ~OXAUserDefinedDataTypeManager() override;

 private:
  bool is_built_in(std::string_view name) const;

  named_list<OXAPluginDataTypeNamespace> namespaces_;
  type_builder builder_;
  IOXAContext* context_;
  oxa::Ref<IOXAPropertyDataTypeTranslator> translator_;
  oxa::Ref<IOXADirectoryScanner> scanner_;
  oxa::Ref<IOXAXMLParser> parser_;
};
