// The record types that one plug-in declares.
#pragma once

#include <oxa/IOXAPluginDataTypeNamespace.h>
#include <oxa/sdk/implements.h>

#include <string_view>

#include "core/thin_string.h"
#include "datatypes/OXAUserDefinedDataType.h"
#include "datatypes/named_list.h"
#include "datatypes/type_builder.h"

class IOXAContext;
class IOXAUserDefinedDataTypeManager;

class OXAPluginDataTypeNamespace final : public oxa::Implements<IOXAPluginDataTypeNamespace> {
 public:
  // `result` receives S_OK, or E_INVALIDARG when an argument is null. Throws std::bad_alloc.
  OXAPluginDataTypeNamespace(IOXAContext* context, IOXAUserDefinedDataTypeManager* manager,
                             const char* name, OXAResult& result);

  const char* Name() override;
  OXAResult AddUserDefinedType(const char* name, const char* kind,
                               IOXAUserDefinedDataType** type) override;
  OXAResult GetFirstType(IOXAUserDefinedDataType** type) override;
  OXAResult GetNextType(IOXAUserDefinedDataType** type) override;
  OXAResult FindUserDefinedType(const char* name, IOXAUserDefinedDataType** type) override;

  // Adds a type as AddUserDefinedType does; null when the name is taken. Throws std::bad_alloc.
  OXAUserDefinedDataType* add(type_builder& builder, const char* name, const char* kind);

  // Null when there is none.
  IOXAUserDefinedDataType* find(std::string_view name) const { return types_.find(name); }

  ~OXAPluginDataTypeNamespace() override = default;

 private:
  oxa::thin_string name_;
  named_list<OXAUserDefinedDataType> types_;
};
