#include "datatypes/OXAPluginDataTypeNamespace.h"

#include <oxa/sdk/guard.h>

#include <utility>

OXAPluginDataTypeNamespace::OXAPluginDataTypeNamespace(IOXAContext* context,
                                                       IOXAUserDefinedDataTypeManager* manager,
                                                       const char* name, OXAResult& result) {
  if (context == nullptr || manager == nullptr || name == nullptr) {
    result = E_INVALIDARG;
    return;
  }
  name_ = oxa::thin_string(name);
  result = S_OK;
}

const char* OXAPluginDataTypeNamespace::Name() { return name_.data(); }

OXAResult OXAPluginDataTypeNamespace::AddUserDefinedType(const char* name, const char* kind,
                                                         IOXAUserDefinedDataType** type) {
  if (name == nullptr || kind == nullptr || type == nullptr) {
    return E_INVALIDARG;
  }
  *type = nullptr;
  if (types_.find(name) != nullptr) {
    return E_ALREADYEXISTS;
  }
  return oxa::guard([&] {
    OXAResult result = S_OK;
    auto made = oxa::make<OXAUserDefinedDataType>(this, name, kind, result);
    if (result >= 0) {
      types_.add(oxa::thin_string::borrow(made->name()), made.get());
      *type = made.detach();
    }
    return result;
  });
}

OXAUserDefinedDataType* OXAPluginDataTypeNamespace::add(type_builder& builder, const char* name,
                                                        const char* kind) {
  if (types_.find(name) != nullptr) {
    return nullptr;
  }
  oxa::thin_string own_name = builder.copy(name);
  oxa::thin_string own_kind = builder.copy(kind);
  oxa::thin_string name_space = builder.copy(name_.c_str());
  auto made = oxa::Ref<OXAUserDefinedDataType>::adopt(new (builder) OXAUserDefinedDataType(
      std::move(own_name), std::move(own_kind), std::move(name_space)));
  types_.add(oxa::thin_string::borrow(made->name()), made.get());
  return made.detach();
}

OXAResult OXAPluginDataTypeNamespace::GetFirstType(IOXAUserDefinedDataType** type) {
  return types_.first(type);
}

OXAResult OXAPluginDataTypeNamespace::GetNextType(IOXAUserDefinedDataType** type) {
  return types_.next(type);
}

OXAResult OXAPluginDataTypeNamespace::FindUserDefinedType(const char* name,
                                                          IOXAUserDefinedDataType** type) {
  if (name == nullptr || type == nullptr) {
    return E_INVALIDARG;
  }
  *type = find(name);
  return *type == nullptr ? E_NOTFOUND : S_OK;
}
