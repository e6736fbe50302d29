// A record type that a plug-in declares.
#pragma once

#include <oxa/IOXADataElement.h>
#include <oxa/IOXAUserDefinedDataType.h>
#include <oxa/sdk/implements.h>

#include <optional>
#include <utility>

#include "core/thin_string.h"
#include "datatypes/named_list.h"
#include "datatypes/type_builder.h"

class IOXAPluginDataTypeNamespace;

class OXAUserDefinedDataType final : public oxa::Implements<IOXAUserDefinedDataType>,
                                     public arena_placed {
 public:
  // The owner is not referenced. `result` receives S_OK, or E_INVALIDARG when an argument is null.
  // Throws std::bad_alloc.
  OXAUserDefinedDataType(IOXAPluginDataTypeNamespace* owner, const char* name, const char* kind,
                         OXAResult& result);
  OXAUserDefinedDataType(oxa::thin_string name, oxa::thin_string kind,
                         oxa::thin_string name_space) noexcept;

  const char* Name() override;
  const char* Namespace() override;
  const char* Type() override;
  OXAResult CreateElement(IOXADataElement** element) override;
  OXAResult AddElement(IOXADataElement* element) override;
  OXAResult GetFirstElement(IOXADataElement** element) override;
  OXAResult GetNextElement(IOXADataElement** element) override;
  int ElementCount() override;

  // A member as an extension file declares it; null stands for what it does not say.
  struct declared_member {
    const char* name = nullptr;
    OXA::Property::DataType type = OXA::Property::NoDataType;
    const char* user_defined_type = nullptr;
    std::optional<std::pair<double, double>> range;
    const char* tooltip = nullptr;
    const char* default_value = nullptr;
  };

  // Appends a member, as CreateElement, its setters and AddElement do; nothing if the name is
  // taken. Throws std::bad_alloc.
  void add(type_builder& builder, const declared_member& member);

  // The name, which is never changed, for a borrowing string.
  char* name() const { return name_.data(); }

  ~OXAUserDefinedDataType() override = default;

 private:
  OXAResult refusal(const char* name) const;

  oxa::thin_string name_;
  oxa::thin_string kind_;
  oxa::thin_string namespace_;
  named_list<IOXADataElement> elements_;
};
