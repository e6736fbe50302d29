// Input: a line for each type string that is resolved. `+` in front of one adds a type instead: the
// name of its namespace, a bar and its own name. `=` adds a name for the data type Int.
#include <oxa/IOXAPropertyDataTypeTranslator.h>
#include <oxa/sdk/ref.h>

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "check.h"
#include "datatypes/model/library_manager.h"
#include "datatypes/model/model_type_string.h"
#include "input.h"

using oxa_fuzz::check;
using oxa_test::model::QualifiedName;

namespace {

class Types {
 public:
  Types() {
    add("p", "point");
    add("p", "p");
    add("", "");
    add("q:", ":r");
  }

  void run(std::string_view line) {
    oxa_fuzz::Input input(line);
    const char kind = input.next();
    if (kind == '+') {
      const std::string owner = terminated(input.until('|'));
      add(owner, terminated(input.rest()));
    } else if (kind == '=') {
      add_data_type(terminated(input.rest()));
    } else {
      check_type_string(terminated(line));
    }
  }

 private:
  // What there is of a text up to its terminator.
  static std::string terminated(std::string_view text) {
    return std::string(text.substr(0, text.find('\0')));
  }

  void add(const std::string& owner, const std::string& name) {
    IOXAPluginDataTypeNamespace* found = nullptr;
    const bool is_new = owners_.insert(owner).second;
    check(library_->NewNamespace(owner.c_str(), &found) == (is_new ? S_OK : S_ALREADYEXISTS),
          "NewNamespace tells whether there was such a namespace");
    IOXAUserDefinedDataType* type = nullptr;
    const OXAResult result = found->AddUserDefinedType(name.c_str(), "record", &type);
    check(result == (types_.count({owner, name}) == 0 ? S_OK : E_ALREADYEXISTS),
          "AddUserDefinedType tells whether there was such a type");
    check((type != nullptr) == (result == S_OK), "AddUserDefinedType stores the new type");
    if (type != nullptr) {
      types_[{owner, name}] = type;
      names_of_types_.insert({owner, name});
    }
  }

  void add_data_type(const std::string& name) {
    const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(library_.context);
    const auto type = OXA::Property::DataType::Int;
    const bool is_new = data_types_.emplace(name, type).second;
    check(translator->Register(type, name.c_str(), nullptr) == (is_new ? S_OK : E_ALREADYEXISTS),
          "Register tells whether there was such a name");
  }

  void check_type_string(const std::string& text) {
    const auto [expected, name] = oxa_test::model::resolve(text, data_types_, names_of_types_);
    IOXAUserDefinedDataType* type = nullptr;
    check(library_->GetUserType(text.c_str(), &type) == expected,
          "GetUserType tells what there is");
    check(type == (name ? types_.at(*name) : nullptr), "GetUserType finds what the model finds");
    check(library_->TypeDefined(text.c_str()) == (expected >= 0),
          "TypeDefined tells what GetUserType tells");
  }

  oxa_test::model::LibraryManager library_;
  oxa_test::model::DataTypeNames data_types_ = oxa_test::model::default_data_type_names();
  std::set<std::string> owners_;
  std::map<QualifiedName, IOXAUserDefinedDataType*> types_;
  std::set<QualifiedName> names_of_types_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  oxa_fuzz::Input input(data, size);
  Types types;
  while (!input.empty()) {
    types.run(input.until('\n'));
  }
  return 0;
}
