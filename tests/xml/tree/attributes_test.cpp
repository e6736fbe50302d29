// The attributes of an element: few, many, and very many.
#include <gtest/gtest.h>
#include <oxa/sdk/xml.h>

#include <cstddef>
#include <stdexcept>
#include <string>

#include "xml/tree/trees.h"

using namespace oxa_test;

namespace {

class ElementAttributesTest : public HomesTest {};
INSTANTIATE_TEST_SUITE_P(Homes, ElementAttributesTest, homes(), home_name);

TEST_P(ElementAttributesTest, AreKeptInTheOrderInWhichTheyWereAdded) {
  const Element given = tree("<e z=\"1\" y=\"2\"/>");
  EXPECT_EQ(given->AddAttribute("x", "3"), S_OK);
  EXPECT_EQ(given->AddAttribute("a", "4"), S_OK);
  EXPECT_EQ(shown(*given), "e[z=1 y=2 x=3 a=4]");
}

TEST_P(ElementAttributesTest, ALaterValueReplacesTheEarlierInItsPlace) {
  const Element given = tree("<e a=\"1\" b=\"2\"/>");
  EXPECT_EQ(given->AddAttribute("a", "a longer value"), S_OK);
  EXPECT_EQ(shown(*given), "e[a=a longer value b=2]");
  EXPECT_EQ(given->AddAttribute("a", ""), S_OK);
  EXPECT_EQ(given->AddAttribute("b", "3"), S_OK);
  EXPECT_EQ(shown(*given), "e[a= b=3]");
}

TEST_P(ElementAttributesTest, KeysDifferInEveryByte) {
  const Element given = tree("<e key=\"1\"/>");
  for (const char* key : {"Key", "ke", "keyy", "k", "kez"}) {
    char* value = nullptr;
    EXPECT_EQ(given->GetAttribute(key, &value), E_NOTFOUND);
    EXPECT_EQ(given->AddAttribute(key, key), S_OK);
  }
  EXPECT_EQ(shown(*given), "e[key=1 Key=Key ke=ke keyy=keyy k=k kez=kez]");
}

TEST_P(ElementAttributesTest, AKeyMayBeEmpty) {
  const Element given = tree("<e a=\"1\"/>");
  char* value = nullptr;
  EXPECT_EQ(given->GetAttribute("", &value), E_NOTFOUND);
  EXPECT_EQ(given->AddAttribute("", "nothing"), S_OK);
  EXPECT_EQ(given->AddAttribute("", "something"), S_OK);
  EXPECT_EQ(shown(*given), "e[a=1 =something]");
  EXPECT_EQ(given->GetAttribute("", &value), S_OK);
  EXPECT_STREQ(value, "something");
}

TEST_P(ElementAttributesTest, NullIsUnexpectedAndChangesNothing) {
  const Element given = tree("<e a=\"1\"/>");
  EXPECT_EQ(given->AddAttribute(nullptr, "2"), E_UNEXPECTED);
  EXPECT_EQ(given->AddAttribute("a", nullptr), E_UNEXPECTED);
  EXPECT_EQ(given->AddAttribute("b", nullptr), E_UNEXPECTED);
  EXPECT_EQ(given->AddAttribute(nullptr, nullptr), E_UNEXPECTED);
  EXPECT_EQ(shown(*given), "e[a=1]");
}

TEST_P(ElementAttributesTest, AnEmptyValueIsInvalidAndAMissingOneNotFound) {
  const Element given = tree("<e empty=\"\" full=\"1\"/>");
  char before[] = "before";
  char* value = before;
  EXPECT_EQ(given->GetAttribute("empty", &value), E_INVALIDARG);
  EXPECT_EQ(value, nullptr);
  value = before;
  EXPECT_EQ(given->GetAttribute("missing", &value), E_NOTFOUND);
  EXPECT_EQ(value, nullptr);
  EXPECT_EQ(given->GetAttribute("full", &value), S_OK);
  EXPECT_STREQ(value, "1");
  EXPECT_EQ(shown(*given), "e[empty= full=1]");
}

TEST_P(ElementAttributesTest, TheOutputIsCheckedBeforeTheKey) {
  const Element given = tree("<e/>");
  char before[] = "before";
  char* value = before;
  EXPECT_EQ(given->GetAttribute("a", nullptr), E_POINTER);
  EXPECT_EQ(given->GetAttribute(nullptr, nullptr), E_POINTER);
  EXPECT_THROW(given->GetAttribute(nullptr, &value), std::logic_error);
  EXPECT_EQ(value, nullptr);
}

TEST_P(ElementAttributesTest, ValuesStayWhereTheyAreWhileOthersAreAdded) {
  const Element given = tree("<e a=\"first\" b=\"second\"/>");
  char* first = nullptr;
  given->GetAttribute("a", &first);
  for (int i = 0; i < 5000; ++i) {
    given->AddAttribute(std::to_string(i).c_str(), "value");
  }
  given->AddAttribute("b", "changed");
  char* later = nullptr;
  EXPECT_EQ(given->GetAttribute("a", &later), S_OK);
  EXPECT_EQ(first, later);
  EXPECT_STREQ(first, "first");
}

TEST_P(ElementAttributesTest, AValueMayBeWrittenThroughItsPointer) {
  const Element given = tree("<e a=\"same\" b=\"same\"/>");
  char* value = nullptr;
  given->GetAttribute("a", &value);
  value[0] = 'l';
  EXPECT_EQ(shown(*given), "e[a=lame b=same]");
}

TEST_P(ElementAttributesTest, AValueMayBeGivenBack) {
  const Element given = tree("<e a=\"one\" b=\"two\"/>");
  char* value = nullptr;
  given->GetAttribute("a", &value);
  EXPECT_EQ(given->AddAttribute("a", value), S_OK);
  given->GetAttribute("b", &value);
  EXPECT_EQ(given->AddAttribute("a", value), S_OK);
  EXPECT_EQ(given->AddAttribute(value, value), S_OK);
  EXPECT_EQ(shown(*given), "e[a=two b=two two=two]");
}

std::string key(std::size_t number) { return "k" + std::to_string(number); }

// Fills an element with k<i>="<i>": the first `written` of them by its source.
Element with_many(Element (*home)(const std::string&), std::size_t written, std::size_t count) {
  std::string source = "<e";
  for (std::size_t i = 0; i < written; ++i) {
    source += " " + key(i) + "=\"" + std::to_string(i) + "\"";
  }
  Element filled = home(source + "/>");
  for (std::size_t i = written; i < count; ++i) {
    EXPECT_EQ(filled->AddAttribute(key(i).c_str(), std::to_string(i).c_str()), S_OK);
  }
  return filled;
}

void expect_many(oxa_xml_element& element, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    ASSERT_EQ(value_of(element, key(i).c_str()), std::to_string(i));
  }
  EXPECT_EQ(value_of(element, key(count).c_str()), "(null)");
  std::size_t seen = 0;
  for (const oxa::XMLAttribute& attribute : oxa::attributes(element)) {
    ASSERT_EQ(attribute.key, key(seen));
    ASSERT_EQ(attribute.value, std::to_string(seen));
    ++seen;
  }
  EXPECT_EQ(seen, count);
}

TEST_P(ElementAttributesTest, AreFoundAtEveryCount) {
  for (std::size_t count = 0; count <= 70; ++count) {
    expect_many(*with_many(GetParam(), count / 2, count), count);
  }
}

TEST_P(ElementAttributesTest, MayBeManyInTheSource) {
  for (const std::size_t count : {16, 17, 1024, 1025, 2048, 2049, 4096, 4097, 9000}) {
    expect_many(*with_many(GetParam(), count, count + 1), count + 1);
  }
}

TEST_P(ElementAttributesTest, AreReplacedAtEveryCount) {
  for (const std::size_t count : {1, 2, 3, 15, 16, 17, 18, 32, 33, 1000}) {
    const Element given = with_many(GetParam(), count / 2, count);
    for (std::size_t i = 0; i < count; ++i) {
      given->AddAttribute(key(i).c_str(), "other");
    }
    for (std::size_t i = 0; i < count; ++i) {
      given->AddAttribute(key(i).c_str(), std::to_string(i).c_str());
    }
    expect_many(*given, count);
  }
}

TEST_P(ElementAttributesTest, MayBeAMillion) {
  constexpr std::size_t count = 1000000;
  const Element top = tree("<top/>");
  oxa_xml_element* const given = add(*top, with_many(GetParam(), 1000, count));
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(names(top->children("e", key(count - 1).c_str(), "999999")), "e");
    EXPECT_EQ(names(top->children("e", "gained", "1")), "");
  }
  EXPECT_EQ(given->attributes().count(), count + 1);
  EXPECT_EQ(value_of(*given, "gained"), "(null)");
  given->AddAttribute("gained", std::to_string(count).c_str());
  given->AddAttribute(key(count / 2).c_str(), "replaced");
  given->AddAttribute(key(count / 2).c_str(), "500000");
  for (std::size_t i = 0; i < count; i += 99) {
    ASSERT_EQ(value_of(*given, key(i).c_str()), std::to_string(i));
  }
  std::size_t seen = 0;
  for (const oxa::XMLAttribute& attribute : oxa::attributes(*given)) {
    ASSERT_EQ(attribute.value, std::to_string(seen++));
  }
  EXPECT_EQ(seen, count + 1);
}

}  // namespace
