// What describes a property, over plain containers.
#pragma once

#include <oxa/IOXAProperty.h>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace oxa_test::model {

class Property {
 public:
  Property(std::string path, std::string own_name)
      : ns(std::move(path)), name(std::move(own_name)) {}

  OXAResult SetRange(double new_minimum, double new_maximum);
  void SetDataType(OXA::Property::DataType new_type);
  // `resolves` tells whether a type string names a type, with the result for a missing type
  // manager.
  OXAResult SetUserDefinedDataType(const char* type_string,
                                   const std::function<OXAResult(const std::string&)>& resolves);
  OXAResult SetDefaultValue(const char* text);

  OXAResult AddAttribute(const char* attribute, const char* value);
  void ClearAttributes();
  // Give no name at the end. GetNextAttribute is allowed if can_go_on().
  std::optional<std::string> GetFirstAttribute();
  std::optional<std::string> GetNextAttribute();
  std::size_t attribute_count() const { return attributes_.size(); }
  bool can_go_on() const { return cursor_.has_value(); }
  std::optional<std::string> GetAttributeValue(const std::string& attribute) const;
  // All attributes with a value, of which the library gives one.
  std::set<std::string> GetAttributesFromValue(const std::string& value) const;

  OXAResult AddSupport(const char* category, const char* supported);
  bool Supports(const char* category, const char* supported) const;

  Property Clone() const;

  int id = -1;
  std::string ns;
  std::string name;
  std::string user_defined_type;
  std::optional<std::string> default_value;
  bool supports_all = false;
  bool is_range_set = false;
  bool dependency = false;
  bool is_mutable = false;
  double minimum = 0;
  double maximum = 1;
  OXA::Property::Type type{};
  OXA::Property::DataType data_type = OXA::Property::NoDataType;

  std::string alias;
  std::string tooltip;
  std::string group;
  bool display = false;
  int editor = 0;

  // Who has it: the manager, and those who run the program.
  int references = 1;
  int held = 0;
  // Its counterpart in the library, which may be gone when nobody has a reference.
  IOXAProperty* twin = nullptr;

 private:
  std::optional<std::string> attribute_at_cursor() const;

  std::vector<std::pair<std::string, std::string>> attributes_;
  std::optional<std::size_t> cursor_;
  std::map<std::string, std::set<std::string>> supports_;
};

// Give all that can be asked without arguments, and the number of references.
std::string describe(IOXAProperty& property);
std::string describe(const Property& property);

}  // namespace oxa_test::model
