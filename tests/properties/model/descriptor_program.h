// The operations of a program that are those of a single property.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "datatypes/model/library_manager.h"
#include "properties/model/model_property.h"
#include "properties/model/program.h"

namespace oxa_test::model {

// Runs them on a property and on its counterpart in the library.
class DescriptorProgram {
 public:
  DescriptorProgram(Program& program, Account& account, bool has_type_manager);

  // Takes the arguments of an operation and compares its outcome. An unknown letter does nothing.
  void run(char letter, Property& property);
  void set_type(Property& property);

 private:
  void describe_record_type(Property& property);
  void set_range(Property& property);
  void set_flag(char letter, Property& property);
  void set_hint(Property& property);
  void use_own_texts(Property& property);
  void change_supports(char letter, Property& property);
  void change_attributes(char letter, Property& property);
  void walk_attributes(const char* operation, Property& property,
                       OXAResult (IOXAProperty::*step)(char**),
                       std::optional<std::string> (Property::*expected_step)());
  void get_attribute_value(Property& property);
  void get_attribute_from_value(Property& property);
  OXAResult resolve_type(const std::string& type_string) const;

  Program& program_;
  Account& account_;
  std::unique_ptr<LibraryManager> types_;
};

}  // namespace oxa_test::model
