// Hand-made objects in the hands of the library: which of their slots it calls, and with what.
#include <gtest/gtest.h>

#include <cstdarg>
#include <string>
#include <vector>

#include <oxa/oxa.h>

#include "abi/raw.h"
#include "plugins/files.h"

using namespace oxa_test;

namespace {

using Lines = std::vector<std::string>;

// An object whose functions note their calls.
struct RawObject {
  const void* table;
  std::int64_t count = 1;
  Lines calls = {};
};

std::int64_t add(RawObject* self) {
  self->calls.emplace_back("1");
  return ++self->count;
}

std::int64_t release(RawObject* self) {
  self->calls.emplace_back("2");
  return --self->count;
}

std::int64_t check(RawObject* self) {
  self->calls.emplace_back("3");
  return self->count;
}

// Fills the slots that must not be called.
void not_to_be_called() { ADD_FAILURE() << "a slot was called that has no business here"; }

const auto reference_table = raw_table(typeid(IOXAReference), add, release, check);

TEST(RawServiceTest, TheContextReferencesWhatIsAddedAndFetchedAndReleasesItAtTheEnd) {
  RawObject service{reference_table.slots.data()};
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  context->AddToContext(IID_IOXAPlugin, &service);
  EXPECT_EQ(service.calls, Lines{"1"});
  void* out = nullptr;
  context->GetInterface(IID_IOXAPlugin, &out);
  EXPECT_EQ(out, &service);
  EXPECT_EQ(service.calls, (Lines{"1", "1"}));
  context.reset();
  EXPECT_EQ(service.calls, (Lines{"1", "1", "2"}));
}

void emit_error(RawObject* self, const char* format, ...) {
  self->calls.push_back("4 " + std::string(format));
}

void emit_message_at_level(RawObject* self, int level, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const wchar_t* path = va_arg(arguments, const wchar_t*);
  va_end(arguments);
  self->calls.push_back("10 " + std::to_string(level) + " " + format + " " +
                        std::filesystem::path(path).filename().string());
}

const auto sink_table = raw_table(
    typeid(IOXADebugMessage), add, release, check, emit_error, not_to_be_called, not_to_be_called,
    not_to_be_called, not_to_be_called, not_to_be_called, emit_message_at_level, not_to_be_called);

OXAResult register_interface(RawObject* self, const char* name, const _GUID* iid, void*) {
  self->calls.push_back("6 " + std::string(name) + " " + oxa::to_string(*iid));
  return S_OK;
}

const auto manager_table =
    raw_table(typeid(IOXAInterfaceManager), add, release, check, not_to_be_called, not_to_be_called,
              register_interface, not_to_be_called);

// A context that has a sink and a manager.
struct RawContext {
  const void* table;
  RawObject sink{sink_table.slots.data()};
  RawObject manager{manager_table.slots.data()};
  Lines calls = {};
};

OXAResult get_interface(RawContext* self, const _GUID* iid, void** out) {
  self->calls.push_back("4 " + oxa::to_string(*iid));
  RawObject& found = *iid == IID_IOXADebugMessage ? self->sink : self->manager;
  add(&found);
  *out = &found;
  return S_OK;
}

OXAResult add_to_context(RawContext* self, const _GUID* iid, void*) {
  self->calls.push_back("5 " + oxa::to_string(*iid));
  return S_FALSE;
}

const auto context_table = raw_table(typeid(IOXAContext), not_to_be_called, not_to_be_called,
                                     not_to_be_called, get_interface, add_to_context);

oxa::Ref<IOXAPluginLoader> make_loader(RawContext& context) {
  oxa::Ref<IOXAPluginLoader> loader;
  OXACreatePluginLoader(reinterpret_cast<IOXAContext*>(&context), oxa::adopt_into(loader));
  return loader;
}

TEST(RawContextTest, TheLoaderFetchesTheSinkAndThenTheManagerAndAddsItself) {
  RawContext context{context_table.slots.data()};
  auto loader = make_loader(context);
  EXPECT_EQ(context.calls, (Lines{"4 " + oxa::to_string(IID_IOXADebugMessage),
                                  "4 " + oxa::to_string(IID_IOXAInterfaceManager),
                                  "5 " + oxa::to_string(IID_IOXAPluginLoader)}));
  loader.reset();
  EXPECT_EQ(context.sink.calls, (Lines{"1", "2"}));
  EXPECT_EQ(context.manager.calls, (Lines{"1", "2"}));
}

TEST(RawManagerTest, TheLoaderRegistersThePluginAndThenWhatItOffers) {
  RawContext context{context_table.slots.data()};
  const auto loader = make_loader(context);
  context.manager.calls.clear();
  loader->Load(wide(miniature("c_style")).c_str());
  EXPECT_EQ(context.manager.calls, (Lines{"6 plugins " + oxa::to_string(IID_IOXAPlugin),
                                          "6 layouts " + oxa::to_string(IID_IOXALayout)}));
}

TEST(RawSinkTest, TheLoaderReportsThroughTheErrorAndTheMessageWithALevel) {
  const TemporaryFolder good;
  const TemporaryFolder bad;
  copy_plugin(good, "c_style", "x.so");
  bad.write("y.so", "no plug-in");
  RawContext context{context_table.slots.data()};
  const auto loader = make_loader(context);
  context.sink.calls.clear();
  loader->LoadAll(wide(good.path()).c_str());
  loader->LoadAll(wide(bad.path()).c_str());
  EXPECT_EQ(context.sink.calls, (Lines{"1", "10 0 %ls loaded... x.so", "1", "4 %ls failed..."}));
}

TEST(RawPluginTest, TheLoaderCallsTheSixthSlotOfThePluginAndEndsWhatItGot) {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  const auto loader = oxa::service<IOXAPluginLoader>(context.get());
  const auto path = miniature("c_style");
  void* handle = LoadPlugin(path.c_str());
  const auto calls = reinterpret_cast<const char* (*)()>(FindFunction(handle, "CStyleCalls"));
  EXPECT_EQ(loader->Load(wide(path).c_str()), S_OK);
  EXPECT_STREQ(calls(), "p6 e4 e5 e2 ");
  EXPECT_EQ(loader->Unload(wide(path).c_str()), S_OK);
  EXPECT_STREQ(calls(), "p6 e4 e5 e2 p2 ");
  EXPECT_EQ(UnloadPlugin(handle), S_OK);
}

}  // namespace
