// Input: a program of operations on elements, most of them a letter, the numbers of elements, and
// texts; an unknown letter does nothing.
#include <oxa/sdk/ref.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "check.h"
#include "input.h"
#include "tree_checks.h"
#include "xml/model/model_document.h"
#include "xml/model/outcome.h"
#include "xml/model/twins.h"
#include "xml/oxa_xml_parser.h"

using oxa_fuzz::check;
using oxa_fuzz::Element;
using oxa_test::model::twin;

namespace {

// Who holds an element decides what may be done with it: the pool, or other elements, among whose
// children it has its places.
long places(const Element& element) { return element.count - element.held; }

// What the library gives is compared with what the model gives.
bool same(const std::optional<std::string>& expected, const char* found) {
  return expected.has_value() ? found != nullptr && *expected == found : found == nullptr;
}

class Pool {
 public:
  Pool() = default;
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

  ~Pool() {
    for (auto at = alive_.begin(); at != alive_.end();) {
      // The last release may take any number of others along.
      at = at->second->held > 0 ? (release(*at->second), alive_.begin()) : std::next(at);
    }
    check(alive_.empty(), "every element is held by somebody");
  }

  void run(oxa_fuzz::Input& input) {
    const char operation = input.next();
    if (operation == 'c' || operation == 'P') {
      if (alive_.size() < most_elements) {
        operation == 'c' ? create(input) : parse(input);
      }
    } else if (!alive_.empty()) {
      change(operation, pick(input), input);
    }
  }

  void check_all() {
    for (const auto& [number, element] : alive_) {
      oxa_fuzz::check_element(*element);
    }
  }

 private:
  static constexpr std::size_t most_elements = 48;

  Element& pick(oxa_fuzz::Input& input) {
    return *std::next(alive_.begin(), input.below(static_cast<unsigned>(alive_.size())))->second;
  }

  void change(char operation, Element& element, oxa_fuzz::Input& input) {
    switch (operation) {
      case 'n':
        set_name(element, input.text());
        break;
      case 't':
        set_text(element, input.text());
        break;
      case 'a':
        add_attribute(element, input);
        break;
      case 'g':
        get_attribute(element, input.text());
        break;
      case 'e':
        get_texts(element);
        break;
      case 'o':
        use_own_texts(element);
        break;
      case '+':
        add_child(element, pick(input));
        break;
      case '-':
        remove_child(element, pick(input));
        break;
      case 'h':
        check(twin(&element)->AddReference() == element.add_reference(), "a reference is counted");
        ++element.held;
        break;
      case 'r':
        if (element.held > 0) {
          release(element);
        }
        break;
      case 'q': {
        const char* const name = input.text();
        const char* const key = input.text();
        oxa_fuzz::check_queries(element, {name, key, input.text()});
        break;
      }
      case 'i': {
        const char* const id = input.text();
        oxa_fuzz::check_get_child(element, id == nullptr ? "" : id);
        break;
      }
      case 'd':
        oxa_fuzz::check_dump(element, static_cast<int>(input.below(4)) - 1);
        break;
      case 'w':
        check_written(element);
        break;
      case 'v':
        check_all();
        break;
      default:
        break;
    }
  }

  void add(Element* element, oxa_xml_element* its_twin) {
    element->twin = its_twin;
    element->held = element->count;
  }

  void create(oxa_fuzz::Input& input) {
    const unsigned kind = input.below(3);
    const char* const name = kind == 0 ? nullptr : input.text();
    const char* const text = kind == 2 ? input.text() : nullptr;
    int result = 1;
    OXAResult expected = 1;
    if (kind == 0) {
      add(new Element(expected, &alive_), new oxa_xml_element(result));
    } else if (kind == 1) {
      add(new Element(name, expected, &alive_), new oxa_xml_element(name, result));
    } else {
      auto* const element = new Element(name, text, expected, &alive_);
      auto* const its_twin = new oxa_xml_element(name, text, result);
      check(its_twin->AddReference() == element->add_reference(),
            "an element made with a text has no reference");
      add(element, its_twin);
    }
    check(result == expected, "a constructor tells what it was given");
  }

  // Takes the tree of a document whose last release leaves it.
  void parse(oxa_fuzz::Input& input) {
    const char* const text = input.text();
    const char* const source = text != nullptr ? text : "<a><b id=\"1\"/><data>x</data></a>";
    oxa_test::model::Document model(&alive_);
    model.set_source(source);
    try {
      model.parse();
    } catch (const oxa_test::model::Stop&) {
      // The library gives up what is open just so.
    }
    int result = 0;
    auto* const document = new oxa_xml_parser(nullptr, result);
    document->SetBuffer(source);
    document->Parse();
    document->Open(nullptr);
    IOXAXMLElement* root = nullptr;
    document->GetRoot(&root);
    check(document->ReleaseReference() == 0, "nobody else holds the document");
    check((root == nullptr) == (model.root == nullptr), "there is a root where the model has one");
    if (root != nullptr) {
      check(oxa_test::model::make_twins(*model.root, static_cast<oxa_xml_element&>(*root)),
            "the tree has the model's shape");
      model.root->held = model.root->count;
      model.root = nullptr;
    }
  }

  // What is set may be the element's own, so the model has its turn first.
  static void set_name(Element& element, const char* name) {
    const OXAResult expected = element.SetName(name);
    check(twin(&element)->SetName(name) == expected, "SetName tells what it was given");
  }

  static void set_text(Element& element, const char* text) {
    const OXAResult expected = element.SetText(text);
    check(twin(&element)->SetText(text) == expected, "SetText tells what it was given");
  }

  static void set_attribute(Element& element, const char* key, const char* value) {
    const OXAResult expected = element.AddAttribute(key, value);
    check(twin(&element)->AddAttribute(key, value) == expected,
          "AddAttribute tells what it was given");
  }

  static void add_attribute(Element& element, oxa_fuzz::Input& input) {
    const char* const key = input.text();
    set_attribute(element, key, input.text());
  }

  static void get_attribute(Element& element, const char* key) {
    if (key == nullptr) {
      return;
    }
    const auto [expected, value] = element.GetAttribute(key);
    char* found = nullptr;
    check(twin(&element)->GetAttribute(key, &found) == expected,
          "GetAttribute tells what there is");
    check(same(value, found), "GetAttribute gives the value");
  }

  static void get_texts(Element& element) {
    char* found = nullptr;
    check(twin(&element)->GetHTMLEscapedText(found) == S_OK &&
              same(element.GetHTMLEscapedText().text, found),
          "an element escapes its text");
    check(twin(&element)->GetPlainText(found) == S_OK && same(element.GetPlainText().text, found),
          "an element unescapes its text");
  }

  // Parses what is written of a tree. Where that can be read back, the same is written again.
  static void check_written(const Element& element) {
    std::string written;
    int level = 0;
    element.dump(written, level);
    int result = 0;
    auto* const document = new oxa_xml_parser(nullptr, result);
    document->SetBuffer(written.c_str());
    result = document->Parse();
    if (oxa_fuzz::writes_itself(element)) {
      IOXAXMLElement* root = nullptr;
      document->GetRoot(&root);
      check(result == S_OK && root != nullptr, "what was written can be parsed");
      check(oxa_test::model::dumped(*static_cast<oxa_xml_element*>(root), 0) == written + "0",
            "what was written is written the same again");
    }
    document->Destroy();
  }

  // What an element has given out may be given back to it.
  static void use_own_texts(Element& element) {
    const oxa_xml_element& its_twin = *twin(&element);
    const char* key = nullptr;
    const char* value = nullptr;
    if (its_twin.attributes().count() != 0) {
      const oxa::xml_attribute& last = *(its_twin.attributes().end() - 1);
      key = last.key.c_str();
      set_attribute(element, key, last.value.c_str());
      value = last.value.c_str();
    }
    set_text(element, its_twin.text());
    set_name(element, its_twin.name());
    oxa_fuzz::check_queries(element, {its_twin.name(), key, value});
  }

  static bool reaches(const Element& from, const Element& to) {
    return &from == &to || std::any_of(from.children.begin(), from.children.end(),
                                       [&](const auto* child) { return reaches(*child, to); });
  }

  // A reference of the pool's goes to the parent. Only an element without children may have several
  // places, and gets none then, so that walks stay short.
  static void add_child(Element& parent, Element& child) {
    const bool has_place = places(child) < (child.children.empty() ? 3 : 1);
    if (child.held == 0 || !has_place || places(parent) > 1 || reaches(child, parent)) {
      return;
    }
    check(twin(&parent)->AddChild(twin(&child)) == parent.AddChild(&child), "a child is added");
    --child.held;
  }

  // The child is destroyed whoever holds it, so it must have no other place.
  static void remove_child(Element& parent, Element& child) {
    const bool is_child = std::count(parent.children.begin(), parent.children.end(), &child) != 0;
    if (!is_child || places(child) == 1) {
      oxa_xml_element* const its_twin = twin(&child);
      check(twin(&parent)->RemoveChild(its_twin) == parent.RemoveChild(&child),
            "RemoveChild tells whether there was such a child");
    }
  }

  static void release(Element& element) {
    oxa_xml_element* const its_twin = twin(&element);
    --element.held;
    check(its_twin->ReleaseReference() == element.release_reference(),
          "a release tells what it leaves");
  }

  Element::Registry alive_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  oxa_fuzz::Input input(data, size);
  Pool pool;
  while (!input.empty()) {
    pool.run(input);
  }
  pool.check_all();
  return 0;
}
