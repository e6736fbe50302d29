// Reading extension files, over the model's documents and lists.
#pragma once

#include <oxa/data_type.h>
#include <oxa/result.h>

#include <list>
#include <set>
#include <string>

#include "datatypes/model/model_type_string.h"
#include "xml/model/model_element.h"
#include "xml/model/model_tokenizer.h"

namespace oxa_test::model {

struct DeclaredMember {
  void set_data_type(OXA::Property::DataType new_type);
  void set_range(double new_minimum, double new_maximum);

  std::string name;
  std::string tooltip;
  std::string default_value = "0";
  std::string type_string;
  OXA::Property::DataType type = OXA::Property::NoDataType;
  double minimum = 0;
  double maximum = 0;
  bool is_range_set = false;
};

struct DeclaredType {
  void add(const DeclaredMember& member);

  std::string name;
  std::string type_string;
  std::list<DeclaredMember> members;
};

struct DeclaredNamespace {
  std::string name;
  std::list<DeclaredType> types;
};

class Declarations {
 public:
  // Reads a file with this content. Throws Stop.
  OXAResult load(const std::string& content);

  std::set<QualifiedName> type_names() const;

  std::list<DeclaredNamespace> namespaces;
  Messages messages;

 private:
  OXAResult read_extension(Element& root);
  void read_data_type(Element& element, DeclaredNamespace& owner);
  // Returns false where the rest of the type is not read.
  bool read_member(const Element& element, DeclaredType& type);
  DeclaredNamespace& namespace_of(const std::string& name);
  void error(const std::string& text);

  const DataTypeNames names_ = default_data_type_names();
};

}  // namespace oxa_test::model
