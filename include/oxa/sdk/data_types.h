// User-defined data types, and walking them.
#pragma once

#include <oxa/IOXADataElement.h>
#include <oxa/IOXAPluginDataTypeNamespace.h>
#include <oxa/IOXAUserDefinedDataType.h>
#include <oxa/IOXAUserDefinedDataTypeManager.h>
#include <oxa/sdk/ranges.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/result_text.h>

namespace oxa {
inline namespace sdk1 {

// Returns the type manager of the process, made with `context` if there is none, which may be null
// where there is one. Empty when it cannot be made. A context does not hold it, so oxa::service
// does not find it.
inline Ref<IOXAUserDefinedDataTypeManager> type_manager(IOXAContext* context = nullptr) {
  Ref<IOXAUserDefinedDataTypeManager> manager;
  OXACreateUserDefinedDataTypeManager(context, IID_IOXAUserDefinedDataTypeManager,
                                      adopt_into(manager));
  return manager;
}

inline Ref<IOXAUserDefinedDataTypeManager> type_manager(const Ref<IOXAContext>& context) {
  return type_manager(context.get());
}

// Returns the record type that a type string names, borrowed; null when it names none, or a data
// type that is no record.
inline IOXAUserDefinedDataType* find_type(IOXAUserDefinedDataTypeManager& manager,
                                          const char* type_string) {
  IOXAUserDefinedDataType* type = nullptr;
  manager.GetUserType(type_string, &type);
  return type;
}

// Appends a member, which must be in no type yet. The result of AddElement; after a failure the
// member's reference is dropped.
inline OXAResult add_element(IOXAUserDefinedDataType& type, Ref<IOXADataElement> member) {
  const OXAResult result = type.AddElement(member.get());
  if (succeeded(result)) {
    static_cast<void>(member.detach());  // the type owns it now
  }
  return result;
}

using NamespaceSource = PointerSource<IOXAUserDefinedDataTypeManager, IOXAPluginDataTypeNamespace,
                                      &IOXAUserDefinedDataTypeManager::GetFirstNamespace,
                                      &IOXAUserDefinedDataTypeManager::GetNextNamespace>;
using TypeSource = PointerSource<IOXAPluginDataTypeNamespace, IOXAUserDefinedDataType,
                                 &IOXAPluginDataTypeNamespace::GetFirstType,
                                 &IOXAPluginDataTypeNamespace::GetNextType>;
using MemberSource = PointerSource<IOXAUserDefinedDataType, IOXADataElement,
                                   &IOXAUserDefinedDataType::GetFirstElement,
                                   &IOXAUserDefinedDataType::GetNextElement>;

// Ranges over the namespaces of a manager and the types of a namespace, in no specified order, and
// over the members of a type, in theirs. Items are borrowed. Not to be nested over the same holder,
// which keeps the position.
inline EnumeratorRange<NamespaceSource> namespaces(IOXAUserDefinedDataTypeManager& manager) {
  return EnumeratorRange<NamespaceSource>(
      NamespaceSource{Ref<IOXAUserDefinedDataTypeManager>::share(&manager)});
}

inline EnumeratorRange<TypeSource> types(IOXAPluginDataTypeNamespace& name_space) {
  return EnumeratorRange<TypeSource>(
      TypeSource{Ref<IOXAPluginDataTypeNamespace>::share(&name_space)});
}

inline EnumeratorRange<MemberSource> elements(IOXAUserDefinedDataType& type) {
  return EnumeratorRange<MemberSource>(MemberSource{Ref<IOXAUserDefinedDataType>::share(&type)});
}

}  // namespace sdk1
}  // namespace oxa
