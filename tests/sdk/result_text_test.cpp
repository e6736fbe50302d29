#include <oxa/sdk/result_text.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

struct Code {
  OXAResult value;
  unsigned bits;
  const char* name;
};

const Code codes[] = {
    {S_OK, 0, "S_OK"},
    {S_FALSE, 1, "S_FALSE"},
    {S_ALREADYEXISTS, 5, "S_ALREADYEXISTS"},
    {E_INVALIDARG, 0x80070057, "E_INVALIDARG"},
    {E_POINTER, 0x80004003, "E_POINTER"},
    {E_NOINTERFACE, 0x80004002, "E_NOINTERFACE"},
    {E_OUTOFMEMORY, 0x8007000E, "E_OUTOFMEMORY"},
    {E_NOTFOUND, 0x80004008, "E_NOTFOUND"},
    {E_ALREADYEXISTS, 0x80004007, "E_ALREADYEXISTS"},
    {E_INVALIDDATA, 0x80004009, "E_INVALIDDATA"},
    {E_UNEXPECTED, 0x8000FFFF, "E_UNEXPECTED"},
    {E_FAIL, 0x80004005, "E_FAIL"},
    {E_HANDLE, 0x80070006, "E_HANDLE"},
    {E_BADENVIRONMENT, 0x8007000A, "E_BADENVIRONMENT"},
    {E_OPENFAILED, 0x80004006, "E_OPENFAILED"},
    {E_TYPEMISMATCH, 0x8000400C, "E_TYPEMISMATCH"},
};

TEST(ResultTest, CodesHaveTheirValuesAndNames) {
  static_assert(sizeof(OXAResult) == 4);
  for (const Code& code : codes) {
    EXPECT_EQ(static_cast<unsigned>(code.value), code.bits);
    EXPECT_STREQ(oxa::result_name(code.value), code.name);
  }
}

TEST(ResultTest, TheSignTellsFailure) {
  for (const Code& code : codes) {
    const bool is_failure = code.name[0] == 'E';
    EXPECT_EQ(oxa::failed(code.value), is_failure) << code.name;
    EXPECT_EQ(oxa::succeeded(code.value), !is_failure) << code.name;
  }
}

TEST(ResultTest, EveryCodeHasATextOfItsOwn) {
  std::set<std::string> texts;
  for (const Code& code : codes) {
    EXPECT_TRUE(texts.insert(oxa::result_text(code.value)).second) << code.name;
  }
}

TEST(ResultTest, OtherValuesAreToldBySign) {
  EXPECT_EQ(oxa::result_name(6), nullptr);
  EXPECT_STREQ(oxa::result_text(6), "success");
  EXPECT_STREQ(oxa::result_text(-5), "failure");
}

}  // namespace
