#include "datatypes/OXAUserDefinedDataType.h"

#include <oxa/IOXAPluginDataTypeNamespace.h>
#include <oxa/sdk/guard.h>

#include "datatypes/OXADataElement.h"

static_assert(alignof(OXAUserDefinedDataType) <= alignof(void*), "arena_placed aligns to words");

OXAUserDefinedDataType::OXAUserDefinedDataType(IOXAPluginDataTypeNamespace* owner, const char* name,
                                               const char* kind, OXAResult& result) {
  if (owner == nullptr || name == nullptr || kind == nullptr) {
    result = E_INVALIDARG;
    return;
  }
  name_ = oxa::thin_string(name);
  kind_ = oxa::thin_string(kind);
  if (const char* name_space = owner->Name()) {
    namespace_ = oxa::thin_string(name_space);
  }
  result = S_OK;
}

OXAUserDefinedDataType::OXAUserDefinedDataType(oxa::thin_string name, oxa::thin_string kind,
                                               oxa::thin_string name_space) noexcept
    : name_(std::move(name)), kind_(std::move(kind)), namespace_(std::move(name_space)) {}

const char* OXAUserDefinedDataType::Name() { return name_.data(); }

const char* OXAUserDefinedDataType::Namespace() { return namespace_.data(); }

const char* OXAUserDefinedDataType::Type() { return kind_.data(); }

OXAResult OXAUserDefinedDataType::CreateElement(IOXADataElement** element) {
  if (element == nullptr) {
    return E_INVALIDARG;
  }
  *element = nullptr;
  return oxa::guard([&] {
    *element = new OXADataElement(*this);
    return S_OK;
  });
}

// S_OK for a name that can be added.
OXAResult OXAUserDefinedDataType::refusal(const char* name) const {
  if (name == nullptr) {
    return E_INVALIDARG;
  }
  return elements_.find(name) == nullptr ? S_OK : E_ALREADYEXISTS;
}

OXAResult OXAUserDefinedDataType::AddElement(IOXADataElement* element) {
  return oxa::guard([&] {
    const char* name = element == nullptr ? nullptr : element->Name();
    const OXAResult result = refusal(name);
    if (result >= 0) {
      elements_.add(oxa::thin_string(name), element);
    }
    return result;
  });
}

// Kept: a member without a name, and the second of a name, is left out without a word
// (ExtensionFileTest.ASecondMemberOfANameIsLeftOut).
void OXAUserDefinedDataType::add(type_builder& builder, const declared_member& member) {
  if (*member.name == '\0' || refusal(member.name) < 0) {
    return;
  }
  oxa::thin_string name = builder.copy(member.name);
  oxa::thin_string key = oxa::thin_string::borrow(name.data());
  OXADataElement::text_fields texts{std::move(name), builder.copy(member.tooltip),
                                    member.default_value == nullptr
                                        ? OXADataElement::first_default()
                                        : builder.copy(member.default_value),
                                    builder.copy(member.user_defined_type)};
  auto element =
      oxa::Ref<OXADataElement>::adopt(new (builder) OXADataElement(*this, std::move(texts)));
  element->SetDataType(member.type);
  if (member.range) {
    element->SetRange(member.range->first, member.range->second);
  }
  elements_.add(std::move(key), element.get());
  static_cast<void>(element.detach());
}

OXAResult OXAUserDefinedDataType::GetFirstElement(IOXADataElement** element) {
  return elements_.first(element);
}

// Kept: after the end it starts over (UserDefinedDataTypeTest.AfterTheEndComesTheFirstAgain).
OXAResult OXAUserDefinedDataType::GetNextElement(IOXADataElement** element) {
  return elements_.next(element);
}

int OXAUserDefinedDataType::ElementCount() { return static_cast<int>(elements_.size()); }
