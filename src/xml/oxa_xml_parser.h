// An XML document.
#pragma once

#include <oxa/IOXADebugMessage.h>
#include <oxa/IOXAXMLDocument.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/ref.h>

#include <cstdint>

#include "xml/oxa_xml_element.h"
#include "xml/oxa_xml_tokenizer.h"

class oxa_xml_parser final : public oxa::Implements<IOXAXMLDocument> {
 public:
  // References the sink, which may be null. Throws std::bad_alloc.
  oxa_xml_parser(IOXADebugMessage* sink, int& result);

  OXAResult CreateElement(const char* name, IOXAXMLElement** out) override;
  OXAResult Open(const wchar_t* path) override;
  OXAResult SetBuffer(const char* buffer) override;
  OXAResult Serialize(const wchar_t* path) override;
  OXAResult Parse() override;
  OXAResult GetElementByID(const char* id, IOXAXMLElement** out) override;
  OXAResult GetElementEnumByName(const char* name, IOXAXMLElementEnum** out) override;
  OXAResult GetElementEnumByKeyValue(const char* key, const char* value,
                                     IOXAXMLElementEnum** out) override;
  OXAResult GetElementEnumByNameKeyValue(const char* name, const char* key, const char* value,
                                         IOXAXMLElementEnum** out) override;
  OXAResult SetRoot(IOXAXMLElement* root) override;
  OXAResult GetRoot(IOXAXMLElement** out) override;

  // Kept: leaves the root and the source to Destroy
  // (DocumentLifeTest.TheLastReleaseLeavesTheTreeAndTheSource).
  ~oxa_xml_parser() override = default;

  // Returns `document` if it is of this class; null for a host's own.
  static oxa_xml_parser* own(IOXAXMLDocument* document);

  // What the last declaration said.
  const oxa_xml_element& prolog() const { return prolog_; }

  // Destroys the root, whoever else references it, and the source, and releases the document.
  // Returns the count that this leaves.
  virtual std::int64_t Destroy();

 private:
  struct parse_state;
  class open_elements;

  template <class Character>
  OXAResult set_source(const Character* source);

  // Read what comes after a `<?`, a `<`, and the tokens around the top-level element.
  OXAResult parse_top_level();
  bool parse_xml_tag();
  OXAResult parse_element(oxa_xml_element* parent);

  OXAResult start_element(open_elements& open);
  template <class Add>
  OXAResult read_attributes(Add add, int& end);
  OXAResult read_content(open_elements& open);
  OXAResult read_child(open_elements& open);
  OXAResult read_end_tag(open_elements& open);
  OXAResult end_element(open_elements& open);
  void abandon_elements(open_elements& open);

  template <class Tell>
  OXAResult fail(Tell tell);
  static void print_element(IOXADebugMessage& to, oxa_xml_element& element);

  // Holds the attributes of the declaration; it is never written.
  oxa_xml_element prolog_;
  oxa_xml_element* root_ = nullptr;
  oxa_xml_tokenizer* tokenizer_ = nullptr;
  oxa::Ref<IOXADebugMessage> sink_;
  // Of the parse that is running.
  parse_state* state_ = nullptr;
};
