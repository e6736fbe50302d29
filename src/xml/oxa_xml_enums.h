// The enumerators that the queries of an XML element hand out.
#pragma once

#include <oxa/IOXAXMLAttributeEnum.h>
#include <oxa/IOXAXMLElementEnum.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "xml/xml_attributes.h"

class oxa_xml_element;

class oxa_xml_element_enum final : public oxa::Implements<IOXAXMLElementEnum> {
 public:
  explicit oxa_xml_element_enum(std::vector<oxa_xml_element*> elements);

  OXAResult GetFirst(IOXAXMLElement** out) override;
  OXAResult GetNext(IOXAXMLElement** out) override;
  unsigned long Count() override;

 private:
  std::vector<oxa_xml_element*> elements_;
  std::size_t cursor_ = 0;
};

class oxa_xml_attribute_enum final : public oxa::Implements<IOXAXMLAttributeEnum> {
 public:
  explicit oxa_xml_attribute_enum(const oxa::xml_attributes& attributes);

  OXAResult GetFirst(char** key, char** value) override;
  OXAResult GetNext(char** key, char** value) override;

  ~oxa_xml_attribute_enum() override = default;

  virtual unsigned long Count();

 private:
  // Where the copies of a key and its value begin in texts_.
  struct entry {
    std::size_t key;
    std::size_t value;
  };

  void store(char** key, char** value);

  std::vector<entry> entries_;
  std::string texts_;
  std::size_t cursor_ = 0;
};
