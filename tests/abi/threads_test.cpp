// One context in the hands of many threads.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <thread>

#include "support/capture.h"
#include "support/fakes.h"

using namespace oxa_test;

namespace {

constexpr int thread_count = 8;
constexpr int rounds = 200;

void in_many_threads(const std::function<void()>& work) {
  std::vector<std::thread> threads;
  threads.reserve(thread_count);
  for (int index = 0; index < thread_count; ++index) {
    threads.emplace_back([&] {
      for (int round = 0; round < rounds; ++round) {
        work();
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

oxa::Ref<IOXAContext> make_context() {
  oxa::Ref<IOXAContext> context;
  OXACreateContext(IID_IOXAContext, oxa::adopt_into(context));
  return context;
}

TEST(ThreadsTest, ReferencesAreCountedAcrossThreads) {
  const auto context = make_context();
  in_many_threads([&] {
    context->AddReference();
    context->CheckReference();
    context->ReleaseReference();
  });
  EXPECT_EQ(context->CheckReference(), 1);
}

TEST(ThreadsTest, ExactlyOneThreadDropsTheLastReference) {
  for (int round = 0; round < rounds; ++round) {
    IOXAContext* context = make_context().detach();
    context->AddReference();
    std::int64_t left[2] = {-1, -1};
    std::thread other([&] { left[0] = context->ReleaseReference(); });
    left[1] = context->ReleaseReference();
    other.join();
    EXPECT_EQ(std::min(left[0], left[1]), 0);
    EXPECT_EQ(std::max(left[0], left[1]), 1);
  }
}

TEST(ThreadsTest, ServicesCanBeFetchedByAllThreads) {
  const auto context = make_context();
  const _GUID* const ids[] = {&IID_IOXADebugMessage,     &IID_IOXAProgressIndicator,
                              &IID_IOXADirectoryScanner, &IID_IOXAInterfaceManager,
                              &IID_IOXAPluginLoader,     &IID_IOXAPropertyDataTypeTranslator,
                              &IID_IOXAXMLParser};
  in_many_threads([&] {
    for (const _GUID* iid : ids) {
      oxa::Ref<IOXAReference> service;
      EXPECT_EQ(context->GetInterface(*iid, oxa::adopt_into(service)), S_OK);
    }
    oxa::Ref<IOXAReference> none;
    EXPECT_EQ(context->GetInterface(IID_IOXAPlugin, oxa::adopt_into(none)), E_NOTFOUND);
  });
  for (const _GUID* iid : ids) {
    oxa::Ref<IOXAReference> service;
    context->GetInterface(*iid, oxa::adopt_into(service));
    EXPECT_EQ(service->CheckReference(),
              iid == &IID_IOXADebugMessage || iid == &IID_IOXAInterfaceManager
                  ? 3  // the loader has one too
                  : 2);
  }
}

// A manager with the type "p::point" and its member "x".
struct Types {
  Types() : context(make_context()) {
    OXACreateUserDefinedDataTypeManager(context.get(), IID_IOXAUserDefinedDataTypeManager,
                                        oxa::adopt_into(manager));
    manager->NewNamespace("p", &name_space);
    name_space->AddUserDefinedType("point", "struct", &type);
    type->CreateElement(&element);
    element->SetName("x");
    type->AddElement(element);
  }

  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager;
  IOXAPluginDataTypeNamespace* name_space = nullptr;
  IOXAUserDefinedDataType* type = nullptr;
  IOXADataElement* element = nullptr;
};

TEST(ThreadsTest, DataTypesAreReferencedByAllThreads) {
  const Types types;
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(types.context.get());
  IOXAReference* const objects[] = {types.manager.get(), types.name_space, types.type,
                                    types.element, translator.get()};
  in_many_threads([&] {
    for (IOXAReference* object : objects) {
      object->AddReference();
      object->CheckReference();
      object->ReleaseReference();
    }
  });
  for (IOXAReference* object : objects) {
    EXPECT_EQ(object->CheckReference(), object == translator.get() ? 3 : 1);
  }
}

TEST(ThreadsTest, DataTypesAreLookedUpByAllThreads) {
  const Types types;
  const auto translator = oxa::service<IOXAPropertyDataTypeTranslator>(types.context.get());
  in_many_threads([&] {
    IOXAUserDefinedDataType* type = nullptr;
    IOXAPluginDataTypeNamespace* name_space = nullptr;
    EXPECT_EQ(types.manager->GetUserType("x$p::point%2", &type), S_OK);
    EXPECT_EQ(type, types.type);
    EXPECT_EQ(types.manager->FindNamespace("p", &name_space), S_OK);
    EXPECT_EQ(name_space->FindUserDefinedType("point", &type), S_OK);
    EXPECT_TRUE(types.manager->TypeDefined("$int%2"));
    EXPECT_FALSE(types.manager->TypeDefined("unknown"));
    EXPECT_EQ(translator->ToType("unsigned long"), OXA::Property::DataType::UnsignedLongLong);
    EXPECT_STREQ(translator->ToString(OXA::Property::DataType::Bool), "bool");
    EXPECT_STREQ(types.element->Name(), "x");
    EXPECT_STREQ(types.element->Namespace(), "p");
  });
}

// The factory must not overlap with itself, but the last reference may go in any thread.
TEST(ThreadsTest, ExactlyOneThreadEndsTheManager) {
  for (int round = 0; round < rounds; ++round) {
    Types types;
    IOXAUserDefinedDataTypeManager* manager = types.manager.detach();
    manager->AddReference();
    std::int64_t left[2] = {-1, -1};
    std::thread other([&] { left[0] = manager->ReleaseReference(); });
    left[1] = manager->ReleaseReference();
    other.join();
    EXPECT_EQ(left[0] + left[1], 1);
  }
}

TEST(ThreadsTest, LinesOfDifferentThreadsStayWhole) {
  const auto context = make_context();
  const Written written = written_by([&] {
    in_many_threads([&] {
      const auto sink = oxa::service<IOXADebugMessage>(context.get());
      sink->EmitError("%s", "an error");
      sink->EmitMessage(0, "%s", "a message");
      sink->EmitWarning(0, "%s", "a warning");
    });
  });
  const auto count_of = [](const std::string& text, const std::string& expected) {
    std::istringstream lines(text);
    int count = 0;
    for (std::string line; std::getline(lines, line);) {
      count += line == expected ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(count_of(written.err, "ERROR: an error"), thread_count * rounds);
  EXPECT_EQ(count_of(written.out, "a message"), thread_count * rounds);
  EXPECT_EQ(count_of(written.out, "WARNING: a warning"), thread_count * rounds);
}

}  // namespace
