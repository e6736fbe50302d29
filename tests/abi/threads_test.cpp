// One context in the hands of many threads.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
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

template <class Objects>
void reference_in_many_threads(const Objects& objects) {
  in_many_threads([&] {
    for (IOXAReference* object : objects) {
      object->AddReference();
      object->CheckReference();
      object->ReleaseReference();
    }
  });
}

TEST(ThreadsTest, ReferencesAreCountedAcrossThreads) {
  const auto context = make_context();
  reference_in_many_threads(std::initializer_list<IOXAReference*>{context.get()});
  EXPECT_EQ(context->CheckReference(), 1);
}

// Drops the two references to an object in two threads, and expects that one of them ended it.
void expect_one_thread_to_end(IOXAReference* object) {
  std::int64_t left[2] = {-1, -1};
  std::thread other([&] { left[0] = object->ReleaseReference(); });
  left[1] = object->ReleaseReference();
  other.join();
  EXPECT_EQ(std::min(left[0], left[1]), 0);
  EXPECT_EQ(std::max(left[0], left[1]), 1);
}

TEST(ThreadsTest, ExactlyOneThreadDropsTheLastReference) {
  for (int round = 0; round < rounds; ++round) {
    IOXAContext* context = make_context().detach();
    context->AddReference();
    expect_one_thread_to_end(context);
  }
}

TEST(ThreadsTest, ServicesCanBeFetchedByAllThreads) {
  const auto context = make_context();
  const _GUID* const ids[] = {
      &IID_IOXADebugMessage,       &IID_IOXAProgressIndicator, &IID_IOXADirectoryScanner,
      &IID_IOXAInterfaceManager,   &IID_IOXAPluginLoader,      &IID_IOXAPropertyDataTypeTranslator,
      &IID_IOXADiagnosticsManager, &IID_IOXAPreferences,       &IID_IOXAXMLParser};
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
  reference_in_many_threads(objects);
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
    expect_one_thread_to_end(manager);
  }
}

// A setting, the list of settings, and a row of the table of diagnostics.
struct Findings {
  Findings() : context(make_context()) {
    preferences = oxa::service<IOXAPreferences>(context);
    diagnostics = oxa::service<IOXADiagnosticsManager>(context);
    preferences->Add("a", "x", &property);
    preferences->GetPreferencePropertiesEnum(oxa::adopt_into(settings));
    diagnostics->CreateCategory("findings", &category);
    category->CreateDiagnostic(oxa::adopt_into(row));
  }

  oxa::Ref<IOXAContext> context;
  oxa::Ref<IOXAPreferences> preferences;
  oxa::Ref<IOXADiagnosticsManager> diagnostics;
  oxa::Ref<IOXAPropertyEnum> settings;
  oxa::Ref<IOXADiagnostic> row;
  IOXAProperty* property = nullptr;
  IOXADiagnosticCategory* category = nullptr;
};

TEST(ThreadsTest, PropertiesAndDiagnosticsAreReferencedByAllThreads) {
  const Findings findings;
  IOXAReference* const objects[] = {findings.property, findings.settings.get(), findings.category,
                                    findings.row.get()};
  reference_in_many_threads(objects);
  for (IOXAReference* object : objects) {
    EXPECT_EQ(object->CheckReference(), 1);
  }
}

TEST(ThreadsTest, ExactlyOneThreadEndsAPropertyAndADiagnostic) {
  Findings findings;
  for (int round = 0; round < rounds; ++round) {
    IOXAProperty* clone = nullptr;
    findings.property->Clone(&clone);
    clone->AddReference();
    expect_one_thread_to_end(clone);
    IOXADiagnostic* row = nullptr;
    findings.category->CreateDiagnostic(&row);
    row->AddReference();
    expect_one_thread_to_end(row);
  }
}

// They share the text that names their namespace.
TEST(ThreadsTest, PropertiesOfOneNamespaceEndInDifferentThreads) {
  for (int round = 0; round < rounds; ++round) {
    oxa::Ref<IOXAProperty> held[2];
    {
      const Findings findings;
      findings.preferences->Add("a", "x", oxa::share_into(held[0]));
      findings.preferences->Add("a", "y", oxa::share_into(held[1]));
    }
    std::thread other([&] { held[0].reset(); });
    held[1].reset();
    other.join();
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
