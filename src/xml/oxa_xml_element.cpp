#include "xml/oxa_xml_element.h"

#include <oxa/sdk/guard.h>
#include <oxa/xml_text.h>

#include <algorithm>
#include <utility>

#include "xml/attempt.h"
#include "xml/oxa_xml_enums.h"

using oxa::thin_string;

oxa_xml_element::oxa_xml_element(int& result) { result = S_OK; }

oxa_xml_element::oxa_xml_element(const char* name, int& result) {
  result = E_INVALIDARG;
  if (name != nullptr) {
    set_name(name);
    result = S_OK;
  }
}

oxa_xml_element::oxa_xml_element(const char* name, const char* text, int& result) {
  drop_reference();
  result = E_INVALIDARG;
  if (name != nullptr && text != nullptr) {
    set_name(name);
    text_ = thin_string(text);
    result = S_OK;
  }
}

oxa_xml_element::oxa_xml_element(oxa::xml_builder& builder, std::string_view name)
    : name_(thin_string::borrow(builder.copy_name(name).text)), arena_(builder.arena()) {
  if (name == "xml") {
    add_version();
  }
}

void oxa_xml_element::set_name(const char* name) {
  name_ = thin_string(name);
  if (oxa::same_text(name, "xml")) {
    add_version();
  }
}

void oxa_xml_element::add_version() { attribute("version").value = thin_string("1.0"); }

const char* oxa_xml_element::Name() { return name_.data(); }

OXAResult oxa_xml_element::SetName(const char* name) {
  return oxa::guard([&] {
    if (name == nullptr) {
      return E_INVALIDARG;
    }
    name_ = thin_string(name);
    return S_OK;
  });
}

OXAResult oxa_xml_element::SetText(const char* text) {
  return oxa::guard([&] {
    if (text == nullptr) {
      return E_INVALIDARG;
    }
    text_ = thin_string(text);
    return S_OK;
  });
}

bool oxa_xml_element::HasChildren() { return children_.count() != 0; }

bool oxa_xml_element::hasText() { return !text_.empty(); }

OXAResult oxa_xml_element::GetText(char*& out) {
  out = text_.data();
  return S_OK;
}

OXAResult oxa_xml_element::GetHTMLEscapedText(char*& out) {
  convert_text(ConvertToHTMLEscapedText, out);
  return S_OK;
}

OXAResult oxa_xml_element::GetPlainText(char*& out) {
  convert_text(ConvertFromHTMLEscapedText, out);
  return S_OK;
}

void oxa_xml_element::convert_text(std::string (*convert)(const char*), char*& out) {
  out = nullptr;
  if (!text_.empty()) {
    std::string converted = convert(text_.c_str());
    if (scratch_ == nullptr) {
      scratch_ = new std::string();
    }
    *scratch_ = std::move(converted);
    out = scratch_->data();
  }
}

// Returns the attribute under a key, added with an empty value if it was not there.
oxa::xml_attribute& oxa_xml_element::attribute(const char* key) {
  if (oxa::xml_attribute* found = attributes_.find(key)) {
    return *found;
  }
  thin_string added(key);
  attributes_.reserve(1, nullptr);
  return attributes_.append(std::move(added), {});
}

OXAResult oxa_xml_element::AddAttribute(const char* key, const char* value) {
  return oxa::attempt([&] {
    if (key == nullptr || value == nullptr) {
      return E_UNEXPECTED;
    }
    thin_string copy(value);
    attribute(key).value = std::move(copy);
    return S_OK;
  });
}

OXAResult oxa_xml_element::GetAttribute(const char* key, char** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = nullptr;
  if (key == nullptr) {
    throw std::logic_error("GetAttribute: the key is null");
  }
  const oxa::xml_attribute* found = attributes_.find(key);
  if (found == nullptr) {
    return E_NOTFOUND;
  }
  *out = found->value.data();
  return *out == nullptr ? E_INVALIDARG : S_OK;
}

OXAResult oxa_xml_element::GetAttributes(IOXAXMLAttributeEnum** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = nullptr;
  return oxa::guard([&] {
    *out = new oxa_xml_attribute_enum(attributes_);
    return S_OK;
  });
}

OXAResult oxa_xml_element::AddChild(IOXAXMLElement* child) {
  return oxa::guard([&] {
    if (child == nullptr) {
      return E_INVALIDARG;
    }
    children_.reserve(1, nullptr);
    children_.append(static_cast<oxa_xml_element*>(child));
    return S_OK;
  });
}

// Kept: destroys the child instead of releasing it, whoever else references it
// (ElementChildrenTest.RemoveChildDestroysWhateverTheCount).
OXAResult oxa_xml_element::RemoveChild(IOXAXMLElement* child) {
  if (child == nullptr) {
    return E_INVALIDARG;
  }
  // Whoever removes one after another mostly does so from one end.
  oxa_xml_element** found = children_.end();
  if (HasChildren() && *(found - 1) == child) {
    --found;
  } else {
    found = std::find(children_.begin(), children_.end(), child);
  }
  if (found == children_.end()) {
    return S_FALSE;
  }
  oxa_xml_element* const removed = *found;
  children_.remove(found);
  delete removed;
  return S_OK;
}

OXAResult oxa_xml_element::FirstChild(IOXAXMLElement** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = HasChildren() ? children_[0] : nullptr;
  return S_OK;
}

void oxa_xml_element::parsed_text(oxa::xml_builder& builder, std::string_view text) {
  text_ = thin_string::borrow(text.empty() ? nullptr : builder.copy(text));
}

void oxa_xml_element::parsed_attributes(oxa::xml_builder& builder,
                                        std::span<const parsed_attribute> attributes) {
  attributes_.reserve(attributes.size(), &builder);
  for (const auto& [key, value] : attributes) {
    const auto [copied_key, known] = builder.copy_name(key);
    thin_string copied_value = thin_string::borrow(value.empty() ? nullptr : builder.copy(value));
    oxa::xml_attribute* const found =
        known ? attributes_.find_known(copied_key) : attributes_.find(copied_key);
    if (found != nullptr) {
      found->value = std::move(copied_value);
    } else {
      attributes_.append(thin_string::borrow(copied_key), std::move(copied_value));
    }
  }
}

void oxa_xml_element::parsed_child(oxa::xml_builder& builder, oxa_xml_element* child) {
  children_.reserve(1, &builder);
  children_.append(child);
}

oxa_xml_element::~oxa_xml_element() {
  oxa_xml_element* dead = nullptr;
  drop_children(dead);
  delete scratch_;
  while (dead != nullptr) {
    oxa_xml_element* const next = dead->next_dead_;
    dead->scratch_ = nullptr;
    delete dead;
    dead = next;
  }
}

void oxa_xml_element::drop_children(oxa_xml_element*& dead) {
  for (std::size_t left = children_.count(); left > 0; --left) {
    oxa_xml_element* const child = children_[left - 1];
    if (child->drop_reference() == 0) {
      delete child->scratch_;
      child->next_dead_ = std::exchange(dead, child);
    }
  }
  children_.clear();
}

void oxa_xml_element::operator delete(oxa_xml_element* element, std::destroying_delete_t) {
  delete element->scratch_;
  element->next_dead_ = nullptr;
  oxa::object_arena* arena = nullptr;
  std::int64_t gone = 0;
  for (oxa_xml_element* dead = element; dead != nullptr;) {
    oxa_xml_element* const ending = dead;
    dead = ending->next_dead_;
    ending->scratch_ = nullptr;
    ending->drop_children(dead);
    oxa::object_arena* const home = ending->arena_;
    ending->~oxa_xml_element();
    if (home == nullptr) {
      ::operator delete(ending);
      continue;
    }
    if (home != arena && arena != nullptr) {
      arena->remove_objects(std::exchange(gone, 0));
    }
    arena = home;
    ++gone;
  }
  if (arena != nullptr) {
    arena->remove_objects(gone);
  }
}
