#include <gtest/gtest.h>
#include <oxa/IOXAPropertyDataTypeTranslator.h>
#include <oxa/sdk/ref.h>

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "datatypes/model/library_manager.h"
#include "datatypes/model/model_type_string.h"
#include "xml/model/random_documents.h"

namespace oxa_test::model {
namespace {

class TypeStringModelTest : public testing::Test {
 protected:
  void add_type(const std::string& owner, const std::string& name) {
    IOXAPluginDataTypeNamespace* found = nullptr;
    ASSERT_GE(manager_->NewNamespace(owner.c_str(), &found), 0);
    if (known_.insert({owner, name}).second) {
      ASSERT_EQ(found->AddUserDefinedType(name.c_str(), "", &types_[{owner, name}]), S_OK);
    }
  }

  void add_data_type(const std::string& name) {
    const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(manager_.context);
    const auto type = OXA::Property::DataType::Int;
    const bool is_new = names_.emplace(name, type).second;
    ASSERT_EQ(translator->Register(type, name.c_str(), nullptr), is_new ? S_OK : E_ALREADYEXISTS);
  }

  // Compares what the type string stands for.
  void compare(const std::string& type_string) {
    const Resolution expected = resolve(type_string, names_, known_);
    IOXAUserDefinedDataType* type = nullptr;
    const OXAResult result = manager_->GetUserType(type_string.c_str(), &type);
    ASSERT_EQ(result, expected.result) << "'" << type_string << "'";
    ASSERT_EQ(type, expected.type ? types_.at(*expected.type) : nullptr)
        << "'" << type_string << "'";
    ASSERT_EQ(manager_->TypeDefined(type_string.c_str()), expected.result >= 0)
        << "'" << type_string << "'";
    (expected.type ? types_found_ : expected.result >= 0 ? built_in_ : unknown_) += 1;
  }

  // Compares all rows of so many tokens behind `beginning`.
  template <class Tokens>
  void compare_rows(const Tokens& tokens, int length, const std::string& beginning = "") {
    if (length == 0 || HasFatalFailure()) {
      return compare(beginning);
    }
    for (const std::string_view token : tokens) {
      compare_rows(tokens, length - 1, beginning + std::string(token));
    }
  }

  // Strings that are all of one kind would prove nothing.
  void expect_variety(int least) const {
    EXPECT_GT(types_found_, least);
    EXPECT_GT(built_in_, least);
    EXPECT_GT(unknown_, least);
  }

 private:
  LibraryManager manager_;
  DataTypeNames names_ = default_data_type_names();
  std::set<QualifiedName> known_;
  std::map<QualifiedName, IOXAUserDefinedDataType*> types_;
  int types_found_ = 0;
  int built_in_ = 0;
  int unknown_ = 0;
};

constexpr std::string_view tokens[] = {"p", "t", "int", "::", ":", "$", "%"};
constexpr std::string_view odd_names[] = {"",   "p",  "t",  ":",  "::",  "$",   "%",  " ",
                                          "p:", ":t", "p ", " t", "p$t", "p%t", "int"};
constexpr int longest_row = share == 1 ? 6 : 4;

TEST_F(TypeStringModelTest, EveryShortRowOfTokensStandsForWhatItDoesInTheModel) {
  add_type("p", "t");
  for (int length = 0; length <= longest_row; ++length) {
    compare_rows(tokens, length);
  }
  expect_variety(share == 1 ? 100 : 2);
}

TEST_F(TypeStringModelTest, TypesWithOddNamesAreFoundAsInTheModel) {
  for (const std::string_view owner : odd_names) {
    for (const std::string_view name : odd_names) {
      add_type(std::string(owner), std::string(name));
    }
  }
  for (int length = 0; length < longest_row; ++length) {
    compare_rows(tokens, length);
  }
  expect_variety(share == 1 ? 100 : 2);
}

// A name of a namespace, a type or a data type, or anything else.
std::string random_name(Random& random) {
  static constexpr std::string_view names[] = {"p",
                                               "plugin",
                                               "point",
                                               "Point",
                                               "line",
                                               "int",
                                               "long long",
                                               "mapped-string",
                                               "user-defined",
                                               "Int",
                                               "long ",
                                               "x",
                                               "",
                                               " ",
                                               ":",
                                               "\t",
                                               "\xC3\xA9"};
  return std::string(random.one_in(5) ? random.of(odd_names) : random.of(names));
}

// The name of a type or a row of names, often with something around it.
std::string random_type_string(Random& random) {
  static constexpr std::string_view separators[] = {"::", "::", "::", "$", "%", ":"};
  std::string text = random_name(random) + "::" + random_name(random);
  if (random.one_in(2)) {
    text = random_name(random) + (random.one_in(3) ? "$" + text : "");
  }
  for (std::size_t left = random.below(5); left > 2; --left) {
    text += std::string(random.of(separators)) + random_name(random);
  }
  return random.one_in(3) ? random_name(random) + "$" + text + "%" + random_name(random) : text;
}

TEST_F(TypeStringModelTest, RandomTypeStringsStandForWhatTheyDoInTheModelAsNamesAreAdded) {
  Random random(1);
  for (int run = 0; run < runs(30000) && !HasFatalFailure(); ++run) {
    if (run % 20 == 0) {
      add_type(random_name(random), random_name(random));
    }
    if (run % 100 == 99) {
      add_data_type(random_name(random));
    }
    compare(random_type_string(random));
  }
  expect_variety(runs(500));
}

}  // namespace
}  // namespace oxa_test::model
