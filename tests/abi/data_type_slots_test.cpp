// What stands in each slot of the library's objects for data types, those of the classes alone
// included.
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <string>

#include <oxa/oxa.h>

#include "abi/destructors.h"
#include "abi/raw.h"
#include "support/allocations.h"
#include "support/files.h"

using namespace oxa_test;

namespace {

constexpr std::int32_t user_defined = 16;
constexpr std::int32_t no_data_type = -1;

// A manager with one namespace with one empty type, and a translator, as bare pointers.
struct RawTypes {
  RawTypes() {
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    context->GetInterface(IID_IOXAPropertyDataTypeTranslator, &translator);
    OXACreateUserDefinedDataTypeManager(context.get(), IID_IOXAUserDefinedDataTypeManager,
                                        &manager);
    call_slot<OXAResult>(manager, 6, "p", &name_space);
    call_slot<OXAResult>(name_space, 5, "point", "struct", &type);
  }
  RawTypes(const RawTypes&) = delete;
  RawTypes& operator=(const RawTypes&) = delete;
  ~RawTypes() {
    call_slot<std::int64_t>(manager, release_slot);
    call_slot<std::int64_t>(translator, release_slot);
  }

  // Makes a member; with a name it is added to the type.
  void* make_element(const char* name = nullptr) const {
    void* element = nullptr;
    EXPECT_EQ(call_slot<OXAResult>(type, 7, &element), S_OK);
    if (name != nullptr) {
      EXPECT_EQ(call_slot<OXAResult>(element, 13, name), S_OK);
      EXPECT_EQ(call_slot<OXAResult>(type, 8, element), S_OK);
    }
    return element;
  }

  oxa::Ref<IOXAContext> context;
  void* translator = nullptr;
  void* manager = nullptr;
  void* name_space = nullptr;
  void* type = nullptr;
};

TEST(DataTypeSlotsTest, EveryObjectBeginsWithTheReferenceOperations) {
  const RawTypes types;
  void* const element = types.make_element("x");
  for (void* object : {types.manager, types.name_space, types.type, element, types.translator}) {
    const auto count = call_slot<std::int64_t>(object, check_slot);
    EXPECT_EQ(call_slot<std::int64_t>(object, 1), count + 1);
    EXPECT_EQ(call_slot<std::int64_t>(object, check_slot), count + 1);
    EXPECT_EQ(call_slot<std::int64_t>(object, release_slot), count);
  }
  EXPECT_EQ(call_slot<std::int64_t>(types.manager, check_slot), 1);
  EXPECT_EQ(call_slot<std::int64_t>(types.name_space, check_slot), 1);
  EXPECT_EQ(call_slot<std::int64_t>(types.type, check_slot), 1);
  EXPECT_EQ(call_slot<std::int64_t>(element, check_slot), 1);
  EXPECT_EQ(call_slot<std::int64_t>(types.translator, check_slot),
            3);  // also the context's, manager's
}

TEST(DataTypeSlotsTest, TheInterfaceIsAtTheStartOfTheObjectAndTheReferenceBaseBehindIt) {
  const RawTypes types;
  void* const element = types.make_element("x");
  for (void* object : {types.manager, types.name_space, types.type, element, types.translator}) {
    void* const base = static_cast<char*>(object) + 8;
    EXPECT_EQ(offset_to_top(object), 0);
    EXPECT_EQ(offset_to_top(base), -8);
    EXPECT_EQ(call_slot<std::int64_t>(base, check_slot),
              call_slot<std::int64_t>(object, check_slot));
  }
}

TEST(DataTypeSlotsTest, Translator) {
  const RawTypes types;
  const auto name_of = [&](std::size_t slot, std::int32_t type) {
    const char* name = call_slot<const char*>(types.translator, slot, type);
    return std::string(name == nullptr ? "null" : name);
  };
  EXPECT_EQ(name_of(4, 0), "boolean");
  EXPECT_EQ(name_of(5, 0), "bool");
  EXPECT_EQ(name_of(4, no_data_type), "null");
  EXPECT_EQ(name_of(5, 17), "null");
  EXPECT_EQ(call_slot<std::int32_t>(types.translator, 6, "unsigned long"), 9);
  EXPECT_EQ(call_slot<std::int32_t>(types.translator, 6, "p::point"), user_defined);
  EXPECT_EQ(call_slot<std::int32_t>(types.translator, 6, "unknown"), no_data_type);
  EXPECT_EQ(call_slot<OXAResult>(types.translator, 7, 17, "complex", "string"), S_OK);
  EXPECT_EQ(name_of(5, 17), "complex");
}

TEST(DataTypeSlotsTest, ElementTexts) {
  const RawTypes types;
  void* const element = types.make_element("x");
  EXPECT_EQ(text_in(element, 4), "x");
  EXPECT_EQ(text_in(element, 5), "p");
  EXPECT_EQ(text_in(element, 7), "null");
  EXPECT_EQ(text_in(element, 8), "null");
  EXPECT_EQ(text_in(element, 9), "0");
  EXPECT_EQ(call_slot<OXAResult>(element, 15, "help"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(element, 17, "7"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(element, 18, "p::point"), S_OK);
  EXPECT_EQ(text_in(element, 7), "help");
  EXPECT_EQ(text_in(element, 8), "p::point");
  EXPECT_EQ(text_in(element, 9), "7");
}

TEST(DataTypeSlotsTest, ElementTypeAndRange) {
  const RawTypes types;
  void* const element = types.make_element("x");
  EXPECT_EQ(call_slot<std::int32_t>(element, 6), no_data_type);
  EXPECT_FALSE(call_slot<bool>(element, 12));
  EXPECT_EQ(call_slot<OXAResult>(element, 14, user_defined), S_OK);
  EXPECT_EQ(call_slot<std::int32_t>(element, 6), user_defined);
  EXPECT_TRUE(call_slot<bool>(element, 12));
  EXPECT_EQ(call_slot<double>(element, 10), 0.0);
  EXPECT_EQ(call_slot<double>(element, 11), 1.0);
  EXPECT_EQ(call_slot<OXAResult>(element, 16, -1.5, 2.5), S_OK);
  EXPECT_EQ(call_slot<double>(element, 10), -1.5);
  EXPECT_EQ(call_slot<double>(element, 11), 2.5);
}

TEST(DataTypeSlotsTest, Type) {
  const RawTypes types;
  void* found = nullptr;
  EXPECT_EQ(text_in(types.type, 4), "point");
  EXPECT_EQ(text_in(types.type, 5), "p");
  EXPECT_EQ(text_in(types.type, 6), "struct");
  EXPECT_EQ(call_slot<int>(types.type, 11), 0);
  void* const first = types.make_element("x");
  void* const second = types.make_element("y");
  EXPECT_EQ(call_slot<int>(types.type, 11), 2);
  EXPECT_EQ(call_slot<OXAResult>(types.type, 9, &found), S_OK);
  EXPECT_EQ(found, first);
  EXPECT_EQ(call_slot<OXAResult>(types.type, 10, &found), S_OK);
  EXPECT_EQ(found, second);
}

TEST(DataTypeSlotsTest, Namespace) {
  const RawTypes types;
  void* first = nullptr;
  void* second = nullptr;
  void* found = nullptr;
  EXPECT_EQ(text_in(types.name_space, 4), "p");
  EXPECT_EQ(call_slot<OXAResult>(types.name_space, 5, "line", "struct", &second), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(types.name_space, 6, &first), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(types.name_space, 7, &second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_EQ(call_slot<OXAResult>(types.name_space, 7, &found), S_FALSE);
  EXPECT_EQ(call_slot<OXAResult>(types.name_space, 8, "point", &found), S_OK);
  EXPECT_EQ(found, types.type);
}

TEST(DataTypeSlotsTest, ManagerFiles) {
  const RawTypes types;
  const TemporaryFolder folder;
  const auto file = folder.write(
      "a.xml", R"(<extension type="data" plugin="q"><data_type name="a" type="b"/></extension>)");
  void* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 5, L"/not/there"), E_BADENVIRONMENT);
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 4, wide(file).c_str()), S_FALSE);
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 9, "q", &found), S_OK);
}

TEST(DataTypeSlotsTest, ManagerNamespaces) {
  const RawTypes types;
  void* first = nullptr;
  void* second = nullptr;
  void* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 6, "p", &found), S_ALREADYEXISTS);
  EXPECT_EQ(found, types.name_space);
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 6, "q", &found), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 7, &first), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 8, &second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 8, &found), S_FALSE);
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 9, "p", &found), S_OK);
  EXPECT_EQ(found, types.name_space);
}

TEST(DataTypeSlotsTest, ManagerTypeStrings) {
  const RawTypes types;
  void* found = nullptr;
  EXPECT_TRUE(call_slot<bool>(types.manager, 10, "p::point"));
  EXPECT_FALSE(call_slot<bool>(types.manager, 10, "p::line"));
  EXPECT_EQ(call_slot<OXAResult>(types.manager, 11, "p::point", &found), S_OK);
  EXPECT_EQ(found, types.type);
}

TEST(DataTypeSlotsTest, TheDestructorsFollowTheElement) {
  const RawTypes types;
  const auto make = [&] {
    void* element = types.make_element();
    call_slot<OXAResult>(element, 13, "a name that is long enough to need memory");
    return element;
  };
  expect_destructors_at(19, make, sizeof(void*));
}

TEST(DataTypeSlotsTest, TheDestructorsFollowTheManager) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  void* manager = nullptr;
  expect_destructors_at(12, [&] {
    void* name_space = nullptr;
    EXPECT_EQ(OXACreateUserDefinedDataTypeManager(context.get(), IID_IOXAUserDefinedDataTypeManager,
                                                  &manager),
              S_OK);
    call_slot<OXAResult>(manager, 6, "p", &name_space);
    return manager;
  });
}

TEST(DataTypeSlotsTest, TheDestructorsFollowTheTranslator) {
  expect_destructors_at(8, [&] {
    oxa::Ref<IOXAContext> context;
    void* translator = nullptr;
    OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
    context->GetInterface(IID_IOXAPropertyDataTypeTranslator, &translator);
    return translator;  // no longer the context's, which ends
  });
}

TEST(DataTypeSlotsTest, TheReferenceBaseEndsTheObjectByItsDeletingDestructor) {
  const RawTypes types;
  const long before = live_allocations();
  void* element = types.make_element();
  call_slot<void>(static_cast<char*>(element) + 8, 5);
  EXPECT_EQ(live_allocations(), before);
}

// How a caller that compiles no header of ours declares the factory.
using CStyleFactory = int (*)(void* context, const void* iid, void** out);

TEST(DataTypeSlotsTest, TheFactoryIsFoundByItsPlainName) {
  const RawTypes types;
  const auto factory =
      reinterpret_cast<CStyleFactory>(dlsym(RTLD_DEFAULT, "OXACreateUserDefinedDataTypeManager"));
  void* manager = nullptr;
  ASSERT_NE(factory, nullptr);
  EXPECT_EQ(factory(nullptr, &IID_IOXAUserDefinedDataTypeManager, &manager), S_OK);
  EXPECT_EQ(manager, types.manager);
  EXPECT_EQ(call_slot<std::int64_t>(manager, release_slot), 1);
}

}  // namespace
