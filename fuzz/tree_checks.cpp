#include "tree_checks.h"

#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/ref.h>
#include <oxa/sdk/xml.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "check.h"
#include "xml/model/model_escape.h"
#include "xml/model/outcome.h"
#include "xml/model/twins.h"

using oxa_test::model::twin;

namespace oxa_fuzz {
namespace {

bool is_printable(char ch) { return ch >= 33 && ch <= 126; }

// What the parser keeps of a name or value, and of a text.
constexpr std::size_t longest_token = 4095;
constexpr std::size_t longest_text = 99998;

// A name is read up to whitespace and these marks. What else it must not begin with is another
// token, of an element a comment too.
bool reads_as_name(const std::string& name, std::string_view not_first) {
  return !name.empty() && name.size() <= longest_token &&
         not_first.find(name.front()) == std::string_view::npos &&
         std::all_of(name.begin(), name.end(), is_printable) &&
         name.find_first_of("=>?/") == std::string::npos;
}

bool reads_as_value(const std::string& value) {
  return value.size() <= longest_token && value.find('"') == std::string::npos &&
         (value.empty() || value.back() != '\\');
}

bool is_raw(const Element& element) { return element.name == "data" || element.name == "text"; }

// Blanks in front are skipped, except in elements that hold whatever is in them.
bool reads_as_text(const Element& element) {
  return oxa_test::model::escaped(element.text).size() <= longest_text &&
         element.text.find('\xFF') == std::string::npos &&
         (is_raw(element) || is_printable(element.text.front()));
}

void check_enumerator(OXAResult result, IOXAXMLElementEnum* enumerator,
                      const std::vector<Element*>& expected) {
  check(result == (expected.empty() ? E_NOTFOUND : S_OK),
        "a query tells whether it found something");
  check((enumerator == nullptr) == expected.empty(), "a query gives what it found");
  if (enumerator == nullptr) {
    return;
  }
  check(enumerator->Count() == expected.size(), "a query finds so many");
  IOXAXMLElement* found = nullptr;
  OXAResult moved = enumerator->GetFirst(&found);
  for (const Element* element : expected) {
    check(moved == S_OK && found == twin(element), "a query finds these in order");
    moved = enumerator->GetNext(&found);
  }
  check(moved == S_FALSE, "a query finds no more");
}

}  // namespace

bool writes_itself(const Element& root) {
  if (!reads_as_name(root.name, "!<\"") || root.name == "xml") {
    return false;
  }
  for (const auto& [key, value] : root.attributes) {
    if (!reads_as_name(key, "<\"") || !reads_as_value(value)) {
      return false;
    }
  }
  if (!root.text.empty()) {
    return reads_as_text(root);
  }
  return root.children.empty() ||
         (!is_raw(root) && std::all_of(root.children.begin(), root.children.end(),
                                       [](const Element* child) { return writes_itself(*child); }));
}

void check_element(const Element& element) {
  oxa_xml_element& found = *twin(&element);
  check(found.CheckReference() == element.count, "an element has its references");
  const char* const name = found.Name();
  check(element.name.empty() ? name == nullptr : name == element.name, "an element has its name");
  char* text = nullptr;
  check(found.GetText(text) == S_OK, "an element gives its text");
  check(element.text.empty() ? text == nullptr : text == element.text, "an element has its text");
  check(found.hasText() == !element.text.empty(), "an element tells whether it has a text");

  auto expected = element.attributes.begin();
  for (const oxa::XMLAttribute& attribute : oxa::attributes(found)) {
    check(expected != element.attributes.end() && attribute.key == expected->first &&
              attribute.value == expected->second,
          "an element has these attributes");
    ++expected;
  }
  check(expected == element.attributes.end(), "an element has so many attributes");

  check(found.HasChildren() == !element.children.empty(),
        "an element tells whether it has children");
  check(found.child_count() == element.children.size(), "an element has so many children");
  for (std::size_t at = 0; at < element.children.size(); ++at) {
    check(found.child(at) == twin(element.children[at]), "an element has these children");
  }
}

void check_tree(const Element& element) {
  check_element(element);
  for (const Element* child : element.children) {
    check_tree(*child);
  }
}

void check_queries(Element& element, const Query& query) {
  const auto [name, key, value] = query;
  oxa_xml_element& its_twin = *twin(&element);
  IOXAXMLElement* first = nullptr;
  check(its_twin.FirstChild(name, key, value, &first) == S_OK, "FirstChild succeeds");
  check(first == twin(element.first_child(name, key, value)), "FirstChild finds the first");

  oxa::Ref<IOXAXMLElementEnum> direct;
  const OXAResult of_direct =
      its_twin.GetImmediateChildren(name, key, value, oxa::adopt_into(direct));
  check_enumerator(of_direct, direct.get(), element.immediate_children(name, key, value));

  oxa::Ref<IOXAXMLElementEnum> all;
  const OXAResult of_all = its_twin.GetChildren(name, key, value, oxa::adopt_into(all));
  check_enumerator(of_all, all.get(), element.all_children(name, key, value));

  oxa::Ref<IOXAXMLElementEnum> named;
  const OXAResult of_named = its_twin.GetChildren(name, oxa::adopt_into(named));
  check_enumerator(of_named, named.get(), element.all_children(name, nullptr, nullptr));

  oxa::Ref<IOXAXMLElementEnum> keyed;
  const OXAResult of_keyed = its_twin.GetChildren(key, value, oxa::adopt_into(keyed));
  check_enumerator(of_keyed, keyed.get(), element.all_children(nullptr, key, value));
}

void check_get_child(Element& element, const char* id) {
  IOXAXMLElement* found = nullptr;
  Element* expected = nullptr;
  check(twin(&element)->GetChild(id, &found) == element.GetChild(id, &expected),
        "GetChild succeeds");
  check(found == twin(expected), "GetChild finds what the last children lead to");
}

void check_dump(const Element& element, int level) {
  check(oxa_test::model::dumped(*twin(&element), level) == oxa_test::model::dumped(element, level),
        "dump writes what the model writes, and leaves the level as it was");
}

}  // namespace oxa_fuzz
