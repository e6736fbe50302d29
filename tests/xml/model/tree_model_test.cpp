#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "xml/model/forest.h"
#include "xml/model/model_enums.h"
#include "xml/model/random_documents.h"
#include "xml/oxa_xml_enums.h"

namespace oxa_test::model {
namespace {

constexpr const char* texts[] = {"a",
                                 "b",
                                 "c",
                                 "a",
                                 "b",
                                 "xml",
                                 "id",
                                 "1",
                                 "2",
                                 "",
                                 "data",
                                 "x<y & &lt;z",
                                 "&amp;amp;lt;",
                                 "a longer text than the usual, to live elsewhere"};
constexpr const char* nothing = nullptr;

using AttributeMove = OXAResult (IOXAXMLAttributeEnum::*)(char**, char**);
using ElementMove = OXAResult (IOXAXMLElementEnum::*)(IOXAXMLElement**);

std::optional<std::string> optional(const char* text) {
  return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

// Performs random operations on a forest of its own.
class TreeSteps {
 public:
  explicit TreeSteps(unsigned seed) : random_(seed) {}

  void step() {
    if (forest_.empty() || (forest_.size() < 40 && random_.one_in(5))) {
      return make_element();
    }
    constexpr void (TreeSteps::*operations[])(Element*) = {
        &TreeSteps::change,          &TreeSteps::change,          &TreeSteps::change_children,
        &TreeSteps::change_children, &TreeSteps::change_children, &TreeSteps::count,
        &TreeSteps::read_text,       &TreeSteps::read_attribute,  &TreeSteps::read_attributes,
        &TreeSteps::enumerate,       &TreeSteps::enumerate,       &TreeSteps::find_first,
        &TreeSteps::find_by_id};
    (this->*random_.of(operations))(forest_.any());
  }

  void expect_equal() { forest_.expect_equal(); }

 private:
  // A text, or null at times.
  const char* text() { return random_.one_in(12) ? nothing : random_.of(texts); }
  const char* filter() { return random_.one_in(2) ? nothing : random_.of(texts); }

  Element* any_or_null() { return random_.one_in(10) ? nullptr : forest_.any(); }

  void make_element() {
    switch (random_.below(8)) {
      case 0:
        return forest_.make_empty();
      case 1:
      case 2:
        return forest_.make(text(), text());
      case 3:
        return forest_.make_parsed(random_.one_in(2) ? damaged_tree() : row_of_elements());
      default:
        return forest_.make(text());
    }
  }

  // A `<!`, `/` or `?` could stop the process.
  std::string damaged_tree() {
    std::string source;
    do {
      source = damaged_document(random_);
    } while (stops(source));
    return source;
  }

  static bool stops(const std::string& source) {
    try {
      model_outcome(source, {});
      return false;
    } catch (const Stop&) {
      return true;
    }
  }

  std::string row_of_elements() {
    std::string source = "<a id=\"1\" x=\"2\">";
    for (std::size_t left = random_.below(6); left > 0; --left) {
      source += random_.one_in(2) ? "<b id=\"2\"/>" : "<c a=\"1\"><b/><data>1</data></c>";
    }
    return source + "</a>";
  }

  void change(Element* element) {
    oxa_xml_element* const its_twin = twin(element);
    const char* const first = text();
    const char* const second = text();
    switch (random_.below(12)) {
      case 0:
        add_many_attributes(element);
        break;
      case 1:
      case 2:
        EXPECT_EQ(its_twin->SetName(first), element->SetName(first));
        break;
      case 3:
      case 4:
      case 5:
        EXPECT_EQ(its_twin->SetText(first), element->SetText(first));
        break;
      default:
        EXPECT_EQ(its_twin->AddAttribute(first, second), element->AddAttribute(first, second));
    }
  }

  void add_many_attributes(Element* element) {
    for (std::size_t left = random_.below(60); left > 0; --left) {
      const std::string key = "k" + std::to_string(random_.below(100));
      const char* const value = random_.of(texts);
      EXPECT_EQ(twin(element)->AddAttribute(key.c_str(), value),
                element->AddAttribute(key.c_str(), value));
    }
  }

  void change_children(Element* element) {
    oxa_xml_element* const its_twin = twin(element);
    Element* other = any_or_null();
    if (other == nullptr) {
      EXPECT_EQ(its_twin->AddChild(nullptr), element->AddChild(nullptr));
      EXPECT_EQ(its_twin->RemoveChild(nullptr), element->RemoveChild(nullptr));
    } else if (!random_.one_in(4)) {
      forest_.add_child(element, other);
    } else {
      if (random_.one_in(2) && !element->children.empty()) {
        other = element->children[random_.below(element->children.size())];
      }
      oxa_xml_element* const other_twin = twin(other);
      EXPECT_EQ(its_twin->RemoveChild(other_twin), element->RemoveChild(other));
    }
  }

  void count(Element* element) {
    if (element->held > 0 && random_.one_in(2)) {
      forest_.release(element);
    } else {
      forest_.reference(element);
    }
  }

  static Answer taken(oxa_xml_element* element, OXAResult (oxa_xml_element::*get)(char*&)) {
    char sentinel[] = "untouched";
    char* out = sentinel;
    const OXAResult result = (element->*get)(out);
    return {result, optional(out)};
  }

  void read_text(Element* element) {
    oxa_xml_element* const its_twin = twin(element);
    EXPECT_EQ(optional(its_twin->Name()), element->Name());
    EXPECT_EQ(its_twin->hasText(), !element->text.empty());
    EXPECT_EQ(its_twin->HasChildren(), !element->children.empty());
    EXPECT_TRUE(taken(its_twin, &oxa_xml_element::GetText) == element->GetText());
    EXPECT_TRUE(taken(its_twin, &oxa_xml_element::GetHTMLEscapedText) ==
                element->GetHTMLEscapedText());
    EXPECT_TRUE(taken(its_twin, &oxa_xml_element::GetPlainText) == element->GetPlainText());
    const int level = static_cast<int>(random_.below(4)) - 1;
    EXPECT_EQ(dumped(*its_twin, level), dumped(*element, level));
  }

  void read_attribute(Element* element) {
    const char* const key = random_.one_in(4) ? "k7" : text();
    char sentinel[] = "untouched";
    char* out = sentinel;
    EXPECT_EQ(twin(element)->GetAttribute(key, nullptr), E_POINTER);
    if (key == nullptr) {
      EXPECT_THROW(twin(element)->GetAttribute(key, &out), std::logic_error);
      EXPECT_EQ(out, nullptr);
    } else {
      const OXAResult result = twin(element)->GetAttribute(key, &out);
      EXPECT_TRUE((Answer{result, optional(out)}) == element->GetAttribute(key));
    }
  }

  void read_attributes(Element* element) {
    AttributeEnum expected{element->attributes};
    IOXAXMLAttributeEnum* found = nullptr;
    EXPECT_EQ(twin(element)->GetAttributes(nullptr), E_POINTER);
    ASSERT_EQ(twin(element)->GetAttributes(&found), S_OK);
    EXPECT_EQ(static_cast<oxa_xml_attribute_enum*>(found)->Count(), element->attributes.size());
    // The copies do not follow the element.
    change(element);
    char sentinel[] = "untouched";
    char* key = sentinel;
    char* value = sentinel;
    AttributeEnum::Output expected_key = sentinel;
    AttributeEnum::Output expected_value = sentinel;
    for (std::size_t left = random_.below(8); left > 0; --left) {
      const bool first = random_.one_in(4);
      const bool no_key = random_.one_in(12);
      const bool no_value = random_.one_in(12);
      const AttributeMove move =
          first ? &IOXAXMLAttributeEnum::GetFirst : &IOXAXMLAttributeEnum::GetNext;
      const auto expected_move = first ? &AttributeEnum::GetFirst : &AttributeEnum::GetNext;
      EXPECT_EQ((found->*move)(no_key ? nullptr : &key, no_value ? nullptr : &value),
                (expected.*expected_move)(no_key ? nullptr : &expected_key,
                                          no_value ? nullptr : &expected_value));
      EXPECT_EQ(optional(key), expected_key);
      EXPECT_EQ(optional(value), expected_value);
    }
    EXPECT_EQ(found->ReleaseReference(), 0);
  }

  void walk(IOXAXMLElementEnum* found, const std::vector<Element*>& elements) {
    ElementEnum expected{elements};
    ASSERT_EQ(found->Count(), elements.size());
    IOXAXMLElement* out = nullptr;
    Element* expected_out = nullptr;
    for (std::size_t left = random_.below(8); left > 0; --left) {
      const bool first = random_.one_in(4);
      const bool none = random_.one_in(12);
      const ElementMove move = first ? &IOXAXMLElementEnum::GetFirst : &IOXAXMLElementEnum::GetNext;
      const auto expected_move = first ? &ElementEnum::GetFirst : &ElementEnum::GetNext;
      EXPECT_EQ((found->*move)(none ? nullptr : &out),
                (expected.*expected_move)(none ? nullptr : &expected_out));
      EXPECT_EQ(out, twin(expected_out));
    }
    EXPECT_EQ(found->ReleaseReference(), 0);
  }

  template <class Query>
  void enumerate(const std::vector<Element*>& expected, Query ask) {
    IOXAXMLElementEnum* found = nullptr;
    ASSERT_EQ(ask(&found), expected.empty() ? E_NOTFOUND : S_OK);
    ASSERT_EQ(found == nullptr, expected.empty());
    if (found != nullptr) {
      walk(found, expected);
    }
  }

  void enumerate(Element* element) {
    oxa_xml_element* const its_twin = twin(element);
    const char* const name = filter();
    const char* const key = filter();
    const char* const value = filter();
    switch (random_.below(7)) {
      case 0:
        return enumerate(element->all_children(name, key, value), [&](IOXAXMLElementEnum** out) {
          return its_twin->GetChildren(name, key, value, out);
        });
      case 1:
        return enumerate(
            element->all_children(name, nullptr, nullptr),
            [&](IOXAXMLElementEnum** out) { return its_twin->GetChildren(name, out); });
      case 2:
        return enumerate(element->all_children(nullptr, key, value), [&](IOXAXMLElementEnum** out) {
          return its_twin->GetChildren(key, value, out);
        });
      case 3:
        return enumerate(element->immediate_children(name, key, value),
                         [&](IOXAXMLElementEnum** out) {
                           return its_twin->GetImmediateChildren(name, key, value, out);
                         });
      case 4:
        EXPECT_EQ(its_twin->children(name, key, value),
                  twins(element->all_children(name, key, value)));
        break;
      case 5:
        EXPECT_EQ(its_twin->immediate_children(name, key, value),
                  twins(element->immediate_children(name, key, value)));
        break;
      default:
        EXPECT_EQ(its_twin->GetChildren(name, key, value, nullptr), E_POINTER);
        EXPECT_EQ(its_twin->GetChildren(name, nullptr), E_POINTER);
        EXPECT_EQ(its_twin->GetChildren(key, value, nullptr), E_POINTER);
        EXPECT_EQ(its_twin->GetImmediateChildren(name, key, value, nullptr), E_POINTER);
    }
  }

  void find_first(Element* element) {
    oxa_xml_element* const its_twin = twin(element);
    const char* const name = filter();
    const char* const key = filter();
    const char* const value = filter();
    IOXAXMLElement* out = its_twin;
    EXPECT_EQ(its_twin->FirstChild(nullptr), E_POINTER);
    EXPECT_EQ(its_twin->FirstChild(&out), S_OK);
    EXPECT_EQ(out, element->children.empty() ? nullptr : twin(element->children.front()));
    EXPECT_EQ(its_twin->FirstChild(name, key, value, nullptr), E_POINTER);
    out = its_twin;
    EXPECT_EQ(its_twin->FirstChild(name, key, value, &out), S_OK);
    Element* const expected = element->first_child(name, key, value);
    EXPECT_EQ(out, twin(expected));
    EXPECT_EQ(its_twin->first_child(name, key, value), twin(expected));
  }

  void find_by_id(Element* element) {
    const char* const id = random_.one_in(2) ? "1" : random_.of(texts);
    IOXAXMLElement* out = twin(element);
    Element* expected = nullptr;
    EXPECT_EQ(twin(element)->GetChild(id, nullptr), E_POINTER);
    EXPECT_EQ(twin(element)->GetChild(id, &out), element->GetChild(id, &expected));
    EXPECT_EQ(out, twin(expected));
  }

  Random random_;
  Forest forest_{random_};
};

TEST(TreeModelTest, RandomOperationsGiveWhatTheModelGives) {
  for (int seed = 0; seed < runs(500) && !testing::Test::HasFailure(); ++seed) {
    TreeSteps steps(static_cast<unsigned>(seed));
    for (int count = 0; count < 120 && !testing::Test::HasFailure(); ++count) {
      steps.step();
      if (count % 4 == 0) {
        steps.expect_equal();
      }
    }
    EXPECT_FALSE(testing::Test::HasFailure()) << "seed " << seed;
  }
}

}  // namespace
}  // namespace oxa_test::model
