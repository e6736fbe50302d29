// The element tree with its queries, by recursion over vectors.
#pragma once

#include <oxa/result.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace oxa_test::model {

// A result and the string that came with it, or none for a null pointer.
struct Answer {
  OXAResult result;
  std::optional<std::string> text;

  friend bool operator==(const Answer& a, const Answer& b) {
    return a.result == b.result && a.text == b.text;
  }
};

class Element {
 public:
  // The elements that are alive, by the order in which they were made.
  using Registry = std::map<int, Element*>;

  Element(OXAResult& result, Registry* registry = nullptr);
  Element(const char* name, OXAResult& result, Registry* registry = nullptr);
  Element(const char* name, const char* text, OXAResult& result, Registry* registry = nullptr);
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;
  ~Element();

  long add_reference() { return ++count; }
  long release_reference();

  std::optional<std::string> Name() const;
  OXAResult SetName(const char* value);
  OXAResult SetText(const char* value);
  Answer GetText() const;
  Answer GetHTMLEscapedText() const;
  Answer GetPlainText() const;
  OXAResult AddAttribute(const char* key, const char* value);
  // Throws std::logic_error for null.
  Answer GetAttribute(const char* key) const;
  OXAResult AddChild(Element* child);
  OXAResult RemoveChild(Element* child);
  // Throws std::logic_error for null.
  OXAResult GetChild(const char* id, Element** out);

  std::vector<Element*> all_children(const char* name, const char* key, const char* value);
  std::vector<Element*> immediate_children(const char* name, const char* key, const char* value);
  Element* first_child(const char* name, const char* key, const char* value);

  void dump(std::string& out, int& level) const;

  std::string name;
  std::string text;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::vector<Element*> children;
  long count = 0;

  // What a test keeps about the element: its counterpart, which element owns it, and how many of
  // its references are the test's own.
  void* twin = nullptr;
  Element* owner = nullptr;
  long held = 0;
  const int number;

 private:
  std::string& value_of(const std::string& key);
  const std::string* find(const std::string& key) const;
  bool matches(const char* wanted, const char* key, const char* value);
  void apply_name_rule();

  Registry* registry_;
};

}  // namespace oxa_test::model
