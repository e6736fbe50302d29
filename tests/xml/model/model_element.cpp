#include "xml/model/model_element.h"

#include <algorithm>
#include <stdexcept>

#include "xml/model/model_escape.h"

namespace oxa_test::model {

namespace {

int made_so_far = 0;

Answer answer(const std::string& text) {
  return {S_OK, text.empty() ? std::nullopt : std::optional<std::string>(text)};
}

void require(const char* text) {
  if (text == nullptr) {
    throw std::logic_error("null");
  }
}

}  // namespace

Element::Element(OXAResult& result, Registry* registry)
    : count(1), number(++made_so_far), registry_(registry) {
  if (registry_ != nullptr) {
    registry_->emplace(number, this);
  }
  result = S_OK;
}

Element::Element(const char* new_name, OXAResult& result, Registry* registry)
    : Element(result, registry) {
  result = SetName(new_name);
  apply_name_rule();
}

Element::Element(const char* new_name, const char* new_text, OXAResult& result, Registry* registry)
    : Element(result, registry) {
  count = 0;
  if (new_name == nullptr || new_text == nullptr) {
    result = E_INVALIDARG;
    return;
  }
  name = new_name;
  text = new_text;
  apply_name_rule();
}

Element::~Element() {
  for (Element* child : children) {
    child->owner = nullptr;
    child->release_reference();
  }
  if (registry_ != nullptr) {
    registry_->erase(number);
  }
}

long Element::release_reference() {
  const long left = --count;
  if (left == 0) {
    delete this;
  }
  return left;
}

void Element::apply_name_rule() {
  if (name == "xml") {
    AddAttribute("version", "1.0");
  }
}

std::optional<std::string> Element::Name() const { return answer(name).text; }

OXAResult Element::SetName(const char* value) {
  if (value == nullptr) {
    return E_INVALIDARG;
  }
  name = value;
  return S_OK;
}

OXAResult Element::SetText(const char* value) {
  if (value == nullptr) {
    return E_INVALIDARG;
  }
  text = value;
  return S_OK;
}

Answer Element::GetText() const { return answer(text); }

Answer Element::GetHTMLEscapedText() const { return answer(escaped(text)); }

Answer Element::GetPlainText() const { return answer(unescaped(text)); }

const std::string* Element::find(const std::string& key) const {
  for (const auto& attribute : attributes) {
    if (attribute.first == key) {
      return &attribute.second;
    }
  }
  return nullptr;
}

std::string& Element::value_of(const std::string& key) {
  if (find(key) == nullptr) {
    attributes.emplace_back(key, "");
  }
  return const_cast<std::string&>(*find(key));
}

OXAResult Element::AddAttribute(const char* key, const char* value) {
  if (key == nullptr || value == nullptr) {
    return E_UNEXPECTED;
  }
  value_of(key) = value;
  return S_OK;
}

Answer Element::GetAttribute(const char* key) const {
  require(key);
  const std::string* value = find(key);
  if (value == nullptr) {
    return {E_NOTFOUND, std::nullopt};
  }
  if (value->empty()) {
    return {E_INVALIDARG, std::nullopt};
  }
  return {S_OK, *value};
}

OXAResult Element::AddChild(Element* child) {
  if (child == nullptr) {
    return E_INVALIDARG;
  }
  children.push_back(child);
  child->owner = this;
  return S_OK;
}

OXAResult Element::RemoveChild(Element* child) {
  if (child == nullptr) {
    return E_INVALIDARG;
  }
  const auto found = std::find(children.begin(), children.end(), child);
  if (found == children.end()) {
    return S_FALSE;
  }
  children.erase(found);
  delete child;
  return S_OK;
}

OXAResult Element::GetChild(const char* id, Element** out) {
  if (out == nullptr) {
    return E_POINTER;
  }
  *out = nullptr;
  require(id);
  OXAResult result = S_OK;
  for (Element* child : children) {
    if (child->value_of("id") == id) {
      *out = child;
      continue;
    }
    Element* found = nullptr;
    result = child->GetChild(id, &found);
    if (result >= 0) {
      *out = found;
    }
  }
  return result;
}

bool Element::matches(const char* wanted, const char* key, const char* value) {
  const bool name_matches = wanted == nullptr || name == wanted;
  bool attribute_matches = true;
  if (key != nullptr && *key != '\0') {
    const std::string& found = value_of(key);
    attribute_matches = value == nullptr || found == value;
  }
  return name_matches && attribute_matches;
}

std::vector<Element*> Element::all_children(const char* wanted, const char* key,
                                            const char* value) {
  std::vector<Element*> found;
  for (Element* child : children) {
    if (child->matches(wanted, key, value)) {
      found.push_back(child);
    }
    const std::vector<Element*> below = child->all_children(wanted, key, value);
    found.insert(found.end(), below.begin(), below.end());
  }
  return found;
}

std::vector<Element*> Element::immediate_children(const char* wanted, const char* key,
                                                  const char* value) {
  std::vector<Element*> found;
  for (Element* child : children) {
    if (child->matches(wanted, key, value)) {
      found.push_back(child);
    }
  }
  return found;
}

Element* Element::first_child(const char* wanted, const char* key, const char* value) {
  for (Element* child : children) {
    if (child->matches(wanted, key, value)) {
      return child;
    }
    if (Element* below = child->first_child(wanted, key, value)) {
      return below;
    }
  }
  return nullptr;
}

void Element::dump(std::string& out, int& level) const {
  const std::string indent(level > 0 ? 3 * static_cast<std::size_t>(level) : 0, ' ');
  out += name == "xml" ? "<?xml" : indent + "<" + name;
  if (const std::string* id = find("id")) {
    out += "  id=\"" + *id + "\"";
  }
  for (const auto& [key, value] : attributes) {
    if (key != "id") {
      out += "  " + key + "=\"" + value + "\"";
    }
  }
  if (!text.empty()) {
    out += ">" + escaped(text) + "</" + name + ">\n";
  } else if (children.empty()) {
    out += name == "xml" ? "?>\n" : "/>\n";
  } else {
    out += ">\n";
    ++level;
    for (const Element* child : children) {
      child->dump(out, level);
    }
    --level;
    out += indent + "</" + name + ">\n";
  }
}

}  // namespace oxa_test::model
