#include "xml/oxa_xml_enums.h"

#include <oxa/result.h>

#include "xml/oxa_xml_element.h"

oxa_xml_element_enum::oxa_xml_element_enum(std::vector<oxa_xml_element*> elements)
    : elements_(std::move(elements)) {}

OXAResult oxa_xml_element_enum::GetFirst(IOXAXMLElement** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  cursor_ = 0;
  if (elements_.empty()) {
    return E_UNEXPECTED;
  }
  *out = elements_.front();
  return S_OK;
}

OXAResult oxa_xml_element_enum::GetNext(IOXAXMLElement** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  if (cursor_ < elements_.size()) {
    ++cursor_;
  }
  if (cursor_ == elements_.size()) {
    return S_FALSE;
  }
  *out = elements_[cursor_];
  return S_OK;
}

unsigned long oxa_xml_element_enum::Count() { return elements_.size(); }

oxa_xml_attribute_enum::oxa_xml_attribute_enum(const oxa::xml_attributes& attributes) {
  const auto copy = [this](const oxa::thin_string& text) {
    const std::size_t begin = texts_.size();
    texts_.append(text.c_str()).push_back('\0');
    return begin;
  };
  entries_.reserve(attributes.count());
  for (const oxa::xml_attribute& attribute : attributes) {
    const std::size_t key = copy(attribute.key);
    entries_.push_back({key, copy(attribute.value)});
  }
}

OXAResult oxa_xml_attribute_enum::GetFirst(char** key, char** value) {
  if (key == nullptr || value == nullptr) {
    return E_POINTER;
  }
  *key = nullptr;
  *value = nullptr;
  cursor_ = 0;
  if (entries_.empty()) {
    return E_UNEXPECTED;
  }
  store(key, value);
  return S_OK;
}

// Kept: the outputs are not reset, so an empty value leaves the pointer of the attribute before it
// (AttributeEnumTest.GetNextLeavesTheOutputOfAnEmptyValue).
OXAResult oxa_xml_attribute_enum::GetNext(char** key, char** value) {
  if (key == nullptr || value == nullptr) {
    return E_POINTER;
  }
  if (cursor_ < entries_.size()) {
    ++cursor_;
  }
  if (cursor_ == entries_.size()) {
    return S_FALSE;
  }
  store(key, value);
  return S_OK;
}

void oxa_xml_attribute_enum::store(char** key, char** value) {
  const auto point = [this](std::size_t begin, char** out) {
    if (texts_[begin] != '\0') {
      *out = &texts_[begin];
    }
  };
  point(entries_[cursor_].key, key);
  point(entries_[cursor_].value, value);
}

unsigned long oxa_xml_attribute_enum::Count() { return entries_.size(); }
