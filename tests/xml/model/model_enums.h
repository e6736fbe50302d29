// The enumerators as lists with a cursor.
#pragma once

#include <oxa/result.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "xml/model/model_element.h"

namespace oxa_test::model {

struct ElementEnum {
  OXAResult GetFirst(Element** out) {
    if (out == nullptr) {
      return E_POINTER;
    }
    cursor = 0;
    if (elements.empty()) {
      return E_UNEXPECTED;
    }
    *out = elements[0];
    return S_OK;
  }

  OXAResult GetNext(Element** out) {
    if (out == nullptr) {
      return E_POINTER;
    }
    if (cursor < elements.size()) {
      ++cursor;
    }
    if (cursor == elements.size()) {
      return S_FALSE;
    }
    *out = elements[cursor];
    return S_OK;
  }

  std::vector<Element*> elements;
  std::size_t cursor = 0;
};

struct AttributeEnum {
  using Output = std::optional<std::string>;

  OXAResult GetFirst(Output* key, Output* value) {
    if (key == nullptr || value == nullptr) {
      return E_POINTER;
    }
    key->reset();
    value->reset();
    cursor = 0;
    if (attributes.empty()) {
      return E_UNEXPECTED;
    }
    store(*key, *value);
    return S_OK;
  }

  OXAResult GetNext(Output* key, Output* value) {
    if (key == nullptr || value == nullptr) {
      return E_POINTER;
    }
    if (cursor < attributes.size()) {
      ++cursor;
    }
    if (cursor == attributes.size()) {
      return S_FALSE;
    }
    store(*key, *value);
    return S_OK;
  }

  void store(Output& key, Output& value) const {
    const auto& [found_key, found_value] = attributes[cursor];
    if (!found_key.empty()) {
      key = found_key;
    }
    if (!found_value.empty()) {
      value = found_value;
    }
  }

  std::vector<std::pair<std::string, std::string>> attributes;
  std::size_t cursor = 0;
};

}  // namespace oxa_test::model
