// Record types: their members, and what becomes of them.
#include "datatypes/OXAUserDefinedDataType.h"
#include "support.h"
#include "support/stubs.h"

using namespace oxa_test;

namespace {

class UserDefinedDataTypeTest : public testing::Test {
 protected:
  UserDefinedDataTypeTest() {
    host_.name_space("p")->AddUserDefinedType("point", "struct", &type_);
  }

  oxa::Ref<IOXADataElement> make_element(const char* name) const {
    oxa::Ref<IOXADataElement> made;
    EXPECT_EQ(type_->CreateElement(oxa::adopt_into(made)), S_OK);
    EXPECT_EQ(made->SetName(name), S_OK);
    return made;
  }

  // Moves to a member and returns its name, "end" at the end.
  std::string first() const { return moved(&IOXAUserDefinedDataType::GetFirstElement); }
  std::string next() const { return moved(&IOXAUserDefinedDataType::GetNextElement); }

  Lines ended_;  // the elements of the test's own that have ended
  Host host_;
  IOXAUserDefinedDataType* type_ = nullptr;

 private:
  std::string moved(OXAResult (IOXAUserDefinedDataType::*move)(IOXADataElement**)) const {
    int marker = 0;
    auto* element = reinterpret_cast<IOXADataElement*>(&marker);
    const OXAResult result = (type_->*move)(&element);
    EXPECT_EQ(result, element != nullptr ? S_OK : S_FALSE);
    return element != nullptr ? element->Name() : "end";
  }
};

// An element of a plug-in's own, which tells when it ends.
class ForeignElement final : public StubElement {
 public:
  ForeignElement(const char* name, Lines& ended) : name_(name), ended_(ended) {}
  ~ForeignElement() override {
    ended_.push_back(name_);
    on_end();
  }

  const char* Name() override { return name_.empty() ? nullptr : name_.c_str(); }
  DataType Type() override { return DataType::Code; }

  std::function<void()> on_end = [] {};

 private:
  std::string name_;
  Lines& ended_;
};

TEST_F(UserDefinedDataTypeTest, BeginsWithoutMembers) {
  EXPECT_EQ(type_->CheckReference(), 1);
  EXPECT_STREQ(type_->Name(), "point");
  EXPECT_STREQ(type_->Type(), "struct");
  EXPECT_STREQ(type_->Namespace(), "p");
  EXPECT_EQ(type_->ElementCount(), 0);
  EXPECT_EQ(first(), "end");
}

// A host's own elements can have an empty name, which the library's do not give out.
TEST_F(UserDefinedDataTypeTest, ADeclaredMemberNeedsAName) {
  type_builder builder;
  OXAUserDefinedDataType::declared_member member;
  for (const char* name : {"", "x", "x"}) {
    member.name = name;
    static_cast<OXAUserDefinedDataType*>(type_)->add(builder, member);
  }
  EXPECT_EQ(outline(*type_), "point(x)");
}

TEST_F(UserDefinedDataTypeTest, EmptyTextsAreNull) {
  IOXAUserDefinedDataType* type = nullptr;
  EXPECT_EQ(host_.name_space("")->AddUserDefinedType("", "", &type), S_OK);
  EXPECT_EQ(type->Name(), nullptr);
  EXPECT_EQ(type->Type(), nullptr);
  EXPECT_EQ(type->Namespace(), nullptr);
}

TEST_F(UserDefinedDataTypeTest, MakesElementsThatAreNotInItYet) {
  const auto first_made = make_element("x");
  const auto second_made = make_element("y");
  EXPECT_NE(first_made, second_made);
  EXPECT_EQ(first_made->CheckReference(), 1);
  EXPECT_EQ(type_->ElementCount(), 0);
}

TEST_F(UserDefinedDataTypeTest, NullElementsAreRefused) {
  EXPECT_EQ(type_->CreateElement(nullptr), E_INVALIDARG);
  EXPECT_EQ(type_->AddElement(nullptr), E_INVALIDARG);
  EXPECT_EQ(type_->GetFirstElement(nullptr), E_INVALIDARG);
  EXPECT_EQ(type_->ElementCount(), 0);
}

TEST_F(UserDefinedDataTypeTest, TakesOverTheReference) {
  auto element = make_element("x");
  EXPECT_EQ(type_->AddElement(element.get()), S_OK);
  EXPECT_EQ(element->CheckReference(), 1);
  EXPECT_EQ(type_->ElementCount(), 1);
  static_cast<void>(element.detach());
}

TEST_F(UserDefinedDataTypeTest, HandsOutWhatWasAdded) {
  IOXADataElement* const added = make_element("x").detach();
  type_->AddElement(added);
  IOXADataElement* element = nullptr;
  EXPECT_EQ(type_->GetFirstElement(&element), S_OK);
  EXPECT_EQ(element, added);
  EXPECT_EQ(element->CheckReference(), 1);
}

TEST_F(UserDefinedDataTypeTest, KeepsTheOrder) {
  for (const char* name : {"z", "a", "m", "b", "0"}) {
    EXPECT_EQ(add_member(*type_, name), S_OK);
  }
  EXPECT_EQ(type_->ElementCount(), 5);
  EXPECT_EQ(outline(*type_), "point(z a m b 0)");
}

TEST_F(UserDefinedDataTypeTest, HoldsManyMembers) {
  std::string expected;
  for (int number = 0; number < 1000; ++number) {
    const std::string name = "member " + std::to_string(number);
    EXPECT_EQ(add_member(*type_, name.c_str()), S_OK);
    expected += (number == 0 ? "" : " ") + name;
  }
  EXPECT_EQ(type_->ElementCount(), 1000);
  EXPECT_EQ(outline(*type_), "point(" + expected + ")");
  EXPECT_EQ(add_member(*type_, "member 0"), E_ALREADYEXISTS);
  EXPECT_EQ(add_member(*type_, "member 500"), E_ALREADYEXISTS);
  EXPECT_EQ(add_member(*type_, "member 999"), E_ALREADYEXISTS);
}

TEST_F(UserDefinedDataTypeTest, ANamelessElementIsRefused) {
  const auto element = make_element("x");
  element->SetName("");
  EXPECT_EQ(type_->AddElement(element.get()), E_INVALIDARG);
  EXPECT_EQ(element->CheckReference(), 1);
  EXPECT_EQ(type_->ElementCount(), 0);
}

TEST_F(UserDefinedDataTypeTest, ASecondElementOfANameIsRefused) {
  add_member(*type_, "x");
  const auto element = make_element("x");
  EXPECT_EQ(type_->AddElement(element.get()), E_ALREADYEXISTS);
  EXPECT_EQ(element->CheckReference(), 1);
  EXPECT_EQ(type_->ElementCount(), 1);
  EXPECT_EQ(outline(*type_), "point(x)");
}

TEST_F(UserDefinedDataTypeTest, AnElementIsNotAddedTwice) {
  IOXADataElement* const element = make_element("x").detach();
  type_->AddElement(element);
  EXPECT_EQ(type_->AddElement(element), E_ALREADYEXISTS);
  EXPECT_EQ(type_->ElementCount(), 1);
}

TEST_F(UserDefinedDataTypeTest, NamesAreComparedExactly) {
  for (const char* name : {"x", "X", " x", "x ", "xx", "x\t"}) {
    EXPECT_EQ(add_member(*type_, name), S_OK);
  }
  EXPECT_EQ(type_->ElementCount(), 6);
}

TEST_F(UserDefinedDataTypeTest, ARenamedMemberIsKnownByTheNameBefore) {
  IOXADataElement* const element = make_element("x").detach();
  type_->AddElement(element);
  element->SetName("a name that is longer than the one before");
  EXPECT_EQ(add_member(*type_, "x"), E_ALREADYEXISTS);
  EXPECT_EQ(add_member(*type_, "a name that is longer than the one before"), S_OK);
  EXPECT_EQ(type_->ElementCount(), 2);
}

TEST_F(UserDefinedDataTypeTest, AMemberMayBecomeNameless) {
  IOXADataElement* const element = make_element("x").detach();
  type_->AddElement(element);
  element->SetName("");
  add_member(*type_, "y");
  IOXADataElement* found = nullptr;
  EXPECT_EQ(type_->GetFirstElement(&found), S_OK);
  EXPECT_EQ(found, element);
  EXPECT_EQ(next(), "y");
}

TEST_F(UserDefinedDataTypeTest, AnElementMayComeFromAnotherType) {
  IOXAUserDefinedDataType* other = nullptr;
  host_.name_space("q")->AddUserDefinedType("line", "struct", &other);
  EXPECT_EQ(other->AddElement(make_element("x").detach()), S_OK);
  IOXADataElement* element = nullptr;
  other->GetFirstElement(&element);
  EXPECT_STREQ(element->Namespace(), "p");
}

TEST_F(UserDefinedDataTypeTest, AfterTheEndComesTheFirstAgain) {
  add_member(*type_, "x");
  add_member(*type_, "y");
  EXPECT_EQ(first(), "x");
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(next(), "y");
    EXPECT_EQ(next(), "end");
    EXPECT_EQ(next(), "x");
  }
}

TEST_F(UserDefinedDataTypeTest, WithoutMembersTheEndStays) {
  EXPECT_EQ(first(), "end");
  EXPECT_EQ(next(), "end");
  EXPECT_EQ(next(), "end");
}

TEST_F(UserDefinedDataTypeTest, FirstGoesBackFromAnywhere) {
  for (const char* name : {"x", "y", "z"}) {
    add_member(*type_, name);
  }
  EXPECT_EQ(first(), "x");
  EXPECT_EQ(first(), "x");
  EXPECT_EQ(next(), "y");
  EXPECT_EQ(first(), "x");
  EXPECT_EQ(next(), "y");
  EXPECT_EQ(next(), "z");
  EXPECT_EQ(next(), "end");
  EXPECT_EQ(first(), "x");
}

TEST_F(UserDefinedDataTypeTest, ANullOutputLeavesThePosition) {
  add_member(*type_, "x");
  add_member(*type_, "y");
  EXPECT_EQ(first(), "x");
  EXPECT_EQ(type_->GetNextElement(nullptr), E_INVALIDARG);
  EXPECT_EQ(next(), "y");
  EXPECT_EQ(type_->GetFirstElement(nullptr), E_INVALIDARG);
  EXPECT_EQ(next(), "end");
}

TEST_F(UserDefinedDataTypeTest, MembersCanBeAddedOnTheWay) {
  add_member(*type_, "x");
  EXPECT_EQ(first(), "x");
  for (int number = 0; number < 100; ++number) {
    add_member(*type_, std::to_string(number).c_str());
  }
  for (int number = 0; number < 100; ++number) {
    EXPECT_EQ(next(), std::to_string(number));
  }
  EXPECT_EQ(next(), "end");
}

TEST_F(UserDefinedDataTypeTest, AMemberAddedAtTheEndWaitsForTheNextRound) {
  add_member(*type_, "x");
  EXPECT_EQ(first(), "x");
  EXPECT_EQ(next(), "end");
  add_member(*type_, "y");
  EXPECT_EQ(next(), "x");
  EXPECT_EQ(next(), "y");
  EXPECT_EQ(next(), "end");
}

TEST_F(UserDefinedDataTypeTest, ARefusedElementLeavesThePosition) {
  add_member(*type_, "x");
  add_member(*type_, "y");
  EXPECT_EQ(first(), "x");
  EXPECT_EQ(add_member(*type_, "y"), E_ALREADYEXISTS);
  EXPECT_EQ(next(), "y");
}

TEST_F(UserDefinedDataTypeTest, AcceptsElementsOfAnImplementationOfOnesOwn) {
  auto element = oxa::make<ForeignElement>("x", ended_);
  EXPECT_EQ(type_->AddElement(element.get()), S_OK);
  EXPECT_EQ(element->CheckReference(), 1);
  IOXADataElement* found = nullptr;
  EXPECT_EQ(type_->GetFirstElement(&found), S_OK);
  EXPECT_EQ(found, element.detach());
  EXPECT_EQ(add_member(*type_, "x"), E_ALREADYEXISTS);
}

TEST_F(UserDefinedDataTypeTest, ANamelessElementOfOnesOwnIsRefused) {
  EXPECT_EQ(type_->AddElement(oxa::make<ForeignElement>("", ended_).get()), E_INVALIDARG);
  EXPECT_EQ(ended_, Lines{""});
}

TEST_F(UserDefinedDataTypeTest, ReleasesItsMembersInOrder) {
  for (const char* name : {"z", "a", "m", "b"}) {
    type_->AddElement(oxa::make<ForeignElement>(name, ended_).detach());
  }
  EXPECT_EQ(ended_, Lines{});
  host_.manager.reset();
  EXPECT_EQ(ended_, (Lines{"z", "a", "m", "b"}));
}

TEST_F(UserDefinedDataTypeTest, AMemberThatIsHeldGoesOnLiving) {
  const auto element = make_element("x");
  element->AddReference();
  type_->AddElement(element.get());
  host_.manager.reset();
  EXPECT_EQ(element->CheckReference(), 1);
  EXPECT_STREQ(element->Name(), "x");
}

TEST_F(UserDefinedDataTypeTest, ATypeThatIsHeldGoesOnLiving) {
  const auto type = oxa::Ref<IOXAUserDefinedDataType>::share(type_);
  add_member(*type, "x");
  host_.manager.reset();
  EXPECT_EQ(type->CheckReference(), 1);
  EXPECT_STREQ(type->Namespace(), "p");
  EXPECT_EQ(outline(*type), "point(x)");
}

// Services and slot come before the types.
TEST_F(UserDefinedDataTypeTest, MembersEndWhenThereIsNoManagerAnyMore) {
  auto element = oxa::make<ForeignElement>("x", ended_);
  element->on_end = [&] {
    EXPECT_FALSE(has_manager());
    EXPECT_EQ(host_.translator->CheckReference(), 2);  // the test's and the context's
    EXPECT_EQ(host_.scanner->CheckReference(), 2);
    EXPECT_EQ(host_.parser->CheckReference(), 2);
  };
  type_->AddElement(element.detach());
  host_.manager.reset();
  EXPECT_EQ(ended_, Lines{"x"});
}

}  // namespace
