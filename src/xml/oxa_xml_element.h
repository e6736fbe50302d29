// A node of an XML tree.
#pragma once

#include <oxa/IOXAXMLElement.h>
#include <oxa/result.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <iosfwd>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/object_arena.h"
#include "core/thin_string.h"
#include "xml/xml_array.h"
#include "xml/xml_attributes.h"
#include "xml/xml_builder.h"

class oxa_xml_element final : public oxa::Implements<IOXAXMLElement> {
 public:
  using elements = std::vector<oxa_xml_element*>;

  // Where an attribute lies in a source.
  struct parsed_attribute {
    std::string_view key;
    std::string_view value;
  };

  // An empty element. `result` is S_OK.
  explicit oxa_xml_element(int& result);
  // `result` is E_INVALIDARG for a null name, which leaves the element nameless. One named "xml"
  // has the attribute version="1.0".
  oxa_xml_element(const char* name, int& result);
  // `result` is E_INVALIDARG when either is null. Kept: the element begins without a reference,
  // unlike the others (ElementConstructionTest.WithATextItBeginsWithoutAReference).
  oxa_xml_element(const char* name, const char* text, int& result);
  // One that a parse makes in its arena, with a name from its source that is not empty.
  oxa_xml_element(oxa::xml_builder& builder, std::string_view name);

  const char* Name() override;
  OXAResult SetName(const char* name) override;
  OXAResult SetText(const char* text) override;
  bool HasChildren() override;
  bool hasText() override;
  OXAResult GetText(char*& out) override;
  OXAResult GetHTMLEscapedText(char*& out) override;
  OXAResult GetPlainText(char*& out) override;
  OXAResult AddAttribute(const char* key, const char* value) override;
  OXAResult GetAttribute(const char* key, char** out) override;
  OXAResult GetAttributes(IOXAXMLAttributeEnum** out) override;
  OXAResult AddChild(IOXAXMLElement* child) override;
  OXAResult RemoveChild(IOXAXMLElement* child) override;
  OXAResult GetChild(const char* id, IOXAXMLElement** out) override;
  OXAResult GetChildren(const char* name, const char* key, const char* value,
                        IOXAXMLElementEnum** out) override;
  OXAResult GetImmediateChildren(const char* name, const char* key, const char* value,
                                 IOXAXMLElementEnum** out) override;
  OXAResult FirstChild(IOXAXMLElement** out) override;
  OXAResult FirstChild(const char* name, const char* key, const char* value,
                       IOXAXMLElement** out) override;

  ~oxa_xml_element() override;

  // GetChildren with key and value null, and with the name null.
  virtual OXAResult GetChildren(const char* name, IOXAXMLElementEnum** out);
  virtual OXAResult GetChildren(const char* key, const char* value, IOXAXMLElementEnum** out);

  // The matching descendants in document order, the matching direct children, and the first of the
  // former or null. Throw std::bad_alloc.
  elements children(const char* name, const char* key, const char* value);
  elements immediate_children(const char* name, const char* key, const char* value);
  oxa_xml_element* first_child(const char* name, const char* key, const char* value);

  // Writes the element and its subtree, indented by `level` steps; `level` is as before when it
  // returns. Flushes the stream after each line. Throws std::bad_alloc.
  void dump(std::ostream& os, int& level);

  // What the parser and the writer work on.
  const oxa::xml_attributes& attributes() const { return attributes_; }
  const char* name() const { return name_.c_str(); }
  const char* text() const { return text_.c_str(); }
  std::size_t child_count() const { return children_.count(); }
  oxa_xml_element* child(std::size_t position) const { return children_[position]; }

  // What the parser adds from its source to an element that it has made. Throw std::bad_alloc.
  void parsed_text(oxa::xml_builder& builder, std::string_view text);
  void parsed_attributes(oxa::xml_builder& builder, std::span<const parsed_attribute> attributes);
  void parsed_child(oxa::xml_builder& builder, oxa_xml_element* child);

  static void* operator new(std::size_t size) { return ::operator new(size); }
  static void* operator new(std::size_t size, oxa::xml_builder& builder) {
    return builder.add_element(size);
  }
  // For a constructor that throws.
  static void operator delete(void* element) { ::operator delete(element); }
  static void operator delete(void*, oxa::xml_builder& builder) { builder.undo_element(); }
  // Ends an element, and with it every descendant that nobody else references, without recursion.
  static void operator delete(oxa_xml_element* element, std::destroying_delete_t);

 private:
  class query;

  static std::size_t no_tail(std::size_t) { return 0; }

  void set_name(const char* name);
  void add_version();
  oxa::xml_attribute& attribute(const char* key);
  void convert_text(std::string (*convert)(const char*), char*& out);
  // Drops the children; those whose last reference that was join the list `dead`.
  void drop_children(oxa_xml_element*& dead);

  oxa::thin_string name_;
  oxa::thin_string text_;
  // What GetHTMLEscapedText and GetPlainText point into. In an element whose last reference is gone
  // and whose turn to end has not come, the next such element.
  union {
    std::string* scratch_ = nullptr;
    oxa_xml_element* next_dead_;
  };
  oxa::object_arena* arena_ = nullptr;
  oxa::xml_attributes attributes_;
  oxa::xml_array<oxa_xml_element*, no_tail> children_;
};
