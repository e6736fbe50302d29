// What stands in each slot of the library's objects: the side of whoever made the object.
#include <gtest/gtest.h>

#include <oxa/oxa.h>
#include <oxa/sdk/plugin.h>

#include "abi/raw.h"
#include "support/allocations.h"
#include "support/capture.h"
#include "support/fakes.h"

using namespace oxa_test;

namespace {

// A context and its services, as bare pointers. The context holds every service that is fetched
// here, so the references of the fetches are dropped at once.
struct RawHost {
  RawHost() { OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)); }

  void* service(const _GUID& iid) const {
    void* found = nullptr;
    context->GetInterface(iid, &found);
    call_slot<std::int64_t>(found, 2);
    return found;
  }

  oxa::Ref<IOXAContext> context;
};

void expect_reference_operations(void* object) {
  const auto count = call_slot<std::int64_t>(object, 3);
  EXPECT_EQ(call_slot<std::int64_t>(object, 1), count + 1);
  EXPECT_EQ(call_slot<std::int64_t>(object, 3), count + 1);
  EXPECT_EQ(call_slot<std::int64_t>(object, 2), count);
}

TEST(ObjectSlotsTest, EveryServiceBeginsWithTheReferenceOperations) {
  const RawHost host;
  expect_reference_operations(host.context.get());
  for (const _GUID* iid :
       {&IID_IOXADebugMessage, &IID_IOXAProgressIndicator, &IID_IOXADirectoryScanner,
        &IID_IOXADiagnosticsManager, &IID_IOXAXMLParser, &IID_IOXAPropertyDataTypeTranslator,
        &IID_IOXAInterfaceManager, &IID_IOXAPreferences, &IID_IOXAPluginLoader}) {
    expect_reference_operations(host.service(*iid));
  }
}

TEST(ObjectSlotsTest, Context) {
  const RawHost host;
  const auto thing = oxa::make<Thing>();
  void* context = host.context.get();
  void* found = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(context, 5, &IID_IOXAPlugin, static_cast<void*>(thing.get())),
            S_FALSE);
  EXPECT_EQ(call_slot<OXAResult>(context, 4, &IID_IOXAPlugin, &found), S_OK);
  EXPECT_EQ(found, thing.get());
  EXPECT_EQ(call_slot<std::int64_t>(found, 2), 2);
}

TEST(ObjectSlotsTest, InterfaceManager) {
  const RawHost host;
  void* manager = host.service(IID_IOXAInterfaceManager);
  int object = 0;
  void* list = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(manager, 6, "a", &IID_IOXAPlugin, &object), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(manager, 4, &IID_IOXAPlugin, &list), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(list, 2), 0);
  EXPECT_EQ(call_slot<OXAResult>(manager, 5, "b", &list), E_NOTFOUND);
  EXPECT_EQ(call_slot<OXAResult>(manager, 7, "a", &IID_IOXAPlugin, &object), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(manager, 7, "a", &IID_IOXAPlugin, &object), E_NOTFOUND);
}

// Makes an enumerator over two pairs, which it owns.
void* make_enumerator(void* first, void* second) {
  void* enumerator = nullptr;
  OXACreateInterfaceEnum(
      new OXAInterfaceList{{IID_IOXAFileReader, first}, {IID_IOXAFileWriter, second}}, true,
      IID_IOXAInterfaceEnum, &enumerator);
  return enumerator;
}

TEST(ObjectSlotsTest, InterfaceEnum) {
  int objects[2] = {};
  void* enumerator = make_enumerator(&objects[0], &objects[1]);
  _GUID iid{};
  void* out = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 4, &iid, &out), S_OK);
  EXPECT_EQ(out, &objects[0]);
  EXPECT_EQ(iid, IID_IOXAFileReader);
  EXPECT_EQ(call_slot<OXAResult>(enumerator, 5, &iid, &out), S_OK);
  EXPECT_EQ(out, &objects[1]);
  EXPECT_EQ(call_slot<std::int64_t>(enumerator, 2), 0);
}

// The table goes on with the complete and then the deleting destructor.
TEST(ObjectSlotsTest, TheDeletingDestructorIsTheSecondSlotAfterTheInterface) {
  const long before = live_allocations();
  void* enumerator = make_enumerator(nullptr, nullptr);
  EXPECT_GT(live_allocations(), before);
  call_slot<void>(enumerator, 7);
  EXPECT_EQ(live_allocations(), before);
}

TEST(ObjectSlotsTest, TheCompleteDestructorIsTheFirstSlotAfterTheInterface) {
  const long before = live_allocations();
  void* enumerator = make_enumerator(nullptr, nullptr);
  call_slot<void>(enumerator, 6);
  EXPECT_EQ(live_allocations(), before + 1);  // the memory of the object itself
  operator delete(enumerator);
}

void emit(void* sink, std::size_t slot, const char* text) {
  slot_of<void (*)(void*, const char*, ...)>(sink, slot)(sink, text);
}

void emit_at_level(void* sink, std::size_t slot, int level, const char* text) {
  slot_of<void (*)(void*, int, const char*, ...)>(sink, slot)(sink, level, text);
}

TEST(ObjectSlotsTest, DebugMessage) {
  const RawHost host;
  void* sink = host.service(IID_IOXADebugMessage);
  const Written written = written_by([&] {
    emit(sink, 4, "error");
    emit(sink, 5, "unheard");
    call_slot<void>(sink, 8, 1);
    emit(sink, 5, "message");
    emit(sink, 6, "unheard");
    call_slot<void>(sink, 9, 2);
    emit(sink, 6, "warning");
    call_slot<void>(sink, 7);
    emit_at_level(sink, 10, 1, "message at 1");
    emit_at_level(sink, 10, 2, "unheard");
    emit_at_level(sink, 11, 2, "warning at 2");
  });
  EXPECT_EQ(written.err, "ERROR: error\n");
  EXPECT_EQ(written.out, "message\nWARNING: warning\nmessage at 1\nWARNING: warning at 2\n");
}

TEST(ObjectSlotsTest, ProgressIndicator) {
  const RawHost host;
  void* progress = host.service(IID_IOXAProgressIndicator);
  EXPECT_EQ(call_slot<OXAResult>(progress, 4), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(progress, 5), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(progress, 6, "text"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(progress, 7, "text"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(progress, 8, 3), S_OK);
  EXPECT_TRUE(call_slot<bool>(progress, 9));
}

TEST(ObjectSlotsTest, DirectoryScanner) {
  const RawHost host;
  void* scanner = host.service(IID_IOXADirectoryScanner);
  wchar_t* name = nullptr;
  EXPECT_EQ(call_slot<OXAResult>(scanner, 4, L"/not/there", ""), E_BADENVIRONMENT);
  EXPECT_EQ(call_slot<OXAResult>(scanner, 4, L"/", ".."), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(scanner, 5, &name), S_OK);
  EXPECT_STREQ(name, L"..");
  EXPECT_EQ(call_slot<OXAResult>(scanner, 6, &name), S_FALSE);
}

TEST(ObjectSlotsTest, PluginLoader) {
  const RawHost host;
  void* loader = host.service(IID_IOXAPluginLoader);
  EXPECT_EQ(call_slot<OXAResult>(loader, 4, L"/not/there"), E_FAIL);
  EXPECT_EQ(call_slot<OXAResult>(loader, 5, L"/not/there"), S_OK);
  EXPECT_EQ(call_slot<OXAResult>(loader, 6, L"/not/there"), E_NOTFOUND);
  EXPECT_EQ(call_slot<OXAResult>(loader, 7), S_OK);
  // LoadAll leaves a reference on the sink.
  call_slot<std::int64_t>(host.service(IID_IOXADebugMessage), 2);
}

class Tool : public IOXAReference {
 protected:
  ~Tool() = default;
};

class MyTool final : public oxa::Implements<Tool> {};

TEST(ObjectSlotsTest, APluginMadeWithTheSdk) {
  const oxa::Offer offers[] = {oxa::offer<MyTool>(IID_IOXAAlgorithm)};
  void* plugin = nullptr;
  ASSERT_EQ(oxa::create_plugin(nullptr, IID_IOXAPlugin, &plugin, {"Name", "1.2", offers, 1}), S_OK);
  void* enumerator = nullptr;
  EXPECT_STREQ(call_slot<const char*>(plugin, 4), "Name");
  EXPECT_STREQ(call_slot<const char*>(plugin, 5), "1.2");
  EXPECT_EQ(call_slot<OXAResult>(plugin, 6, &enumerator), S_OK);
  EXPECT_EQ(call_slot<std::int64_t>(enumerator, 2), 0);
  expect_reference_operations(plugin);
  EXPECT_EQ(call_slot<std::int64_t>(plugin, 2), 0);
}

}  // namespace
