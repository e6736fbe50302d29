// The factory of the type manager, and the one manager of the process.
#include "datatypes/OXAUserDefinedDataTypeManager.h"

#include <functional>
#include <map>

#include "support.h"

using namespace oxa_test;

namespace {

// A context that gives the results it is told, and records what it is asked for.
class ToldContext final : public oxa::Implements<IOXAContext> {
 public:
  OXAResult GetInterface(const _GUID& iid, void** out) override {
    asked.push_back(iid);
    std::exchange(on_ask, [] {})();
    *out = nullptr;
    const auto told = results.find(oxa::to_string(iid));
    if (told != results.end()) {
      return told->second;
    }
    return services.context->GetInterface(iid, out);
  }
  OXAResult AddToContext(const _GUID&, void*) override { return E_FAIL; }

  void tell(const _GUID& iid, OXAResult result) { results[oxa::to_string(iid)] = result; }

  Services services;
  std::map<std::string, OXAResult> results;  // without an object
  std::vector<_GUID> asked;
  std::function<void()> on_ask = [] {};  // runs once
};

// A service of which nothing is asked, but which tells when it ends.
class TellingService final : public OXAReference {
 public:
  TellingService(const char* name, Lines& ended) : OXAReference(1), name_(name), ended_(ended) {}
  ~TellingService() override {
    ended_.emplace_back(name_);
    on_end();
  }

  std::function<void()> on_end = [] {};

 private:
  const char* name_;
  Lines& ended_;
};

class TypeManagerFactoryTest : public testing::Test {
 protected:
  void* const marked_ = &marker_;
  int marker_ = 0;
  Services services_;
  IOXAContext* const context_ = services_.context.get();
  oxa::Ref<IOXAUserDefinedDataTypeManager> manager_;
};

TEST_F(TypeManagerFactoryTest, ANullOutputIsRefusedFirst) {
  EXPECT_EQ(OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAContext, nullptr), E_INVALIDARG);
  EXPECT_EQ(
      OXACreateUserDefinedDataTypeManager(context_, IID_IOXAUserDefinedDataTypeManager, nullptr),
      E_INVALIDARG);
  EXPECT_FALSE(has_manager());
}

TEST_F(TypeManagerFactoryTest, AnotherIdIsRefusedNext) {
  for (const _GUID& iid : {IID_IOXAContext, IID_IOXAXMLParser, _GUID{}}) {
    for (IOXAContext* context : {context_, static_cast<IOXAContext*>(nullptr)}) {
      void* out = marked_;
      EXPECT_EQ(OXACreateUserDefinedDataTypeManager(context, iid, &out), E_NOINTERFACE);
      EXPECT_EQ(out, nullptr);
    }
  }
  EXPECT_FALSE(has_manager());
}

TEST_F(TypeManagerFactoryTest, TheFirstOneNeedsAContext) {
  void* out = marked_;
  EXPECT_EQ(OXACreateUserDefinedDataTypeManager(nullptr, IID_IOXAUserDefinedDataTypeManager, &out),
            E_INVALIDARG);
  EXPECT_EQ(out, nullptr);
}

TEST_F(TypeManagerFactoryTest, GivesTheCallerAReference) {
  EXPECT_EQ(get_manager(context_, manager_), S_OK);
  EXPECT_EQ(manager_->CheckReference(), 1);
}

TEST_F(TypeManagerFactoryTest, GivesTheSameOneFromThenOn) {
  get_manager(context_, manager_);
  Services others;
  for (IOXAContext* context : {context_, static_cast<IOXAContext*>(others.context.get()),
                               static_cast<IOXAContext*>(nullptr)}) {
    oxa::Ref<IOXAUserDefinedDataTypeManager> again;
    EXPECT_EQ(get_manager(context, again), S_OK);
    EXPECT_EQ(again, manager_);
    EXPECT_EQ(manager_->CheckReference(), 2);
  }
  EXPECT_EQ(others.parser->CheckReference(), 2);  // not asked for
}

TEST_F(TypeManagerFactoryTest, AnotherIdIsRefusedWhenThereIsOneToo) {
  get_manager(context_, manager_);
  void* out = marked_;
  EXPECT_EQ(OXACreateUserDefinedDataTypeManager(context_, IID_IOXAContext, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(manager_->CheckReference(), 1);
}

TEST_F(TypeManagerFactoryTest, TheLastReleaseEndsIt) {
  get_manager(context_, manager_);
  auto second = manager_;
  manager_.reset();
  EXPECT_TRUE(has_manager());
  second.reset();
  EXPECT_FALSE(has_manager());
}

TEST_F(TypeManagerFactoryTest, AnotherOneCanBeMadeAfterwards) {
  get_manager(context_, manager_);
  IOXAPluginDataTypeNamespace* found = nullptr;
  manager_->NewNamespace("p", &found);
  manager_.reset();
  Services others;
  EXPECT_EQ(get_manager(others.context.get(), manager_), S_OK);
  EXPECT_EQ(outline(*manager_), Lines{});
  EXPECT_EQ(services_.parser->CheckReference(), 2);
  EXPECT_EQ(others.parser->CheckReference(), 3);
}

TEST_F(TypeManagerFactoryTest, TheManagerHoldsItsServicesAndNotTheSink) {
  get_manager(context_, manager_);
  EXPECT_EQ(services_.translator->CheckReference(), 3);
  EXPECT_EQ(services_.scanner->CheckReference(), 3);
  EXPECT_EQ(services_.parser->CheckReference(), 3);
  EXPECT_EQ(services_.sink->CheckReference(), 2);
  EXPECT_EQ(services_.context->CheckReference(), 1);
  manager_.reset();
  EXPECT_EQ(services_.translator->CheckReference(), 2);
  EXPECT_EQ(services_.scanner->CheckReference(), 2);
  EXPECT_EQ(services_.parser->CheckReference(), 2);
}

TEST_F(TypeManagerFactoryTest, TheManagerReleasesItsServicesInOrder) {
  Lines ended;
  const auto file = [&](const _GUID& iid, const char* name) {
    services_.context->AddToContext(
        iid, oxa::Ref<TellingService>::adopt(new TellingService(name, ended)).get());
  };
  file(IID_IOXAXMLParser, "parser");
  file(IID_IOXADirectoryScanner, "scanner");
  file(IID_IOXAPropertyDataTypeTranslator, "translator");
  get_manager(context_, manager_);
  services_.context->services.clear();
  EXPECT_EQ(ended, Lines{});
  manager_.reset();
  EXPECT_EQ(ended, (Lines{"translator", "scanner", "parser"}));
}

// A service that asked for the manager as it ended was given the dying one, which ended twice.
TEST_F(TypeManagerFactoryTest, AManagerThatEndsIsNotGivenOut) {
  Lines ended;
  auto service = oxa::Ref<TellingService>::adopt(new TellingService("translator", ended));
  service->on_end = [] { EXPECT_FALSE(has_manager()); };
  services_.context->AddToContext(IID_IOXAPropertyDataTypeTranslator, service.get());
  get_manager(context_, manager_);
  services_.context->services.clear();
  service.reset();
  EXPECT_EQ(ended, Lines{});
  manager_.reset();
  EXPECT_EQ(ended, Lines{"translator"});
}

// The inner manager took the slot of the outer one with it when it ended.
TEST_F(TypeManagerFactoryTest, AManagerThatEndsLeavesTheSlotOfAnother) {
  const auto context = oxa::make<ToldContext>();
  oxa::Ref<IOXAUserDefinedDataTypeManager> inner;
  context->on_ask = [&] { EXPECT_EQ(get_manager(context.get(), inner), S_OK); };
  EXPECT_EQ(get_manager(context.get(), manager_), S_OK);
  EXPECT_NE(inner, manager_);
  inner.reset();
  EXPECT_TRUE(has_manager());
  manager_.reset();
  EXPECT_FALSE(has_manager());
}

TEST_F(TypeManagerFactoryTest, AsksForItsServicesInOrder) {
  const auto context = oxa::make<ToldContext>();
  EXPECT_EQ(get_manager(context.get(), manager_), S_OK);
  ASSERT_EQ(context->asked.size(), 3);
  EXPECT_EQ(context->asked[0], IID_IOXAPropertyDataTypeTranslator);
  EXPECT_EQ(context->asked[1], IID_IOXADirectoryScanner);
  EXPECT_EQ(context->asked[2], IID_IOXAXMLParser);
}

TEST_F(TypeManagerFactoryTest, OnlyTheParserMustBeThere) {
  services_.remove(IID_IOXAPropertyDataTypeTranslator);
  services_.remove(IID_IOXADirectoryScanner);
  EXPECT_EQ(get_manager(context_, manager_), S_OK);
  manager_.reset();
  services_.remove(IID_IOXAXMLParser);
  EXPECT_EQ(get_manager(context_, manager_), E_NOTFOUND);
  EXPECT_EQ(manager_, nullptr);
}

TEST_F(TypeManagerFactoryTest, WithoutAParserNothingStays) {
  services_.remove(IID_IOXAXMLParser);
  void* out = marked_;
  EXPECT_EQ(OXACreateUserDefinedDataTypeManager(context_, IID_IOXAUserDefinedDataTypeManager, &out),
            E_NOTFOUND);
  EXPECT_EQ(out, nullptr);
  EXPECT_FALSE(has_manager());
  EXPECT_EQ(services_.translator->CheckReference(), 2);
  EXPECT_EQ(services_.scanner->CheckReference(), 2);
}

TEST_F(TypeManagerFactoryTest, TheResultForTheParserIsThatOfTheFactory) {
  const auto context = oxa::make<ToldContext>();
  context->tell(IID_IOXAPropertyDataTypeTranslator, E_UNEXPECTED);
  for (const OXAResult result : {E_FAIL, E_NOINTERFACE, OXAResult{-1}}) {
    context->tell(IID_IOXAXMLParser, result);
    EXPECT_EQ(get_manager(context.get(), manager_), result);
    EXPECT_EQ(manager_, nullptr);
  }
  context->tell(IID_IOXAXMLParser, S_FALSE);
  EXPECT_EQ(get_manager(context.get(), manager_), S_FALSE);
  EXPECT_NE(manager_, nullptr);
}

TEST_F(TypeManagerFactoryTest, AFailureForTheOthersDoesNotCount) {
  const auto context = oxa::make<ToldContext>();
  context->tell(IID_IOXAPropertyDataTypeTranslator, E_FAIL);
  context->tell(IID_IOXADirectoryScanner, E_UNEXPECTED);
  EXPECT_EQ(get_manager(context.get(), manager_), S_OK);
}

TEST_F(TypeManagerFactoryTest, WithoutAParserObjectNothingLoads) {
  const auto context = oxa::make<ToldContext>();
  context->tell(IID_IOXAXMLParser, S_OK);
  EXPECT_EQ(get_manager(context.get(), manager_), S_OK);
  EXPECT_EQ(manager_->Load(nullptr), E_INVALIDARG);
  EXPECT_EQ(manager_->Load(L"file.xml"), E_UNEXPECTED);
}

TEST_F(TypeManagerFactoryTest, AManagerIsMadeEvenOfANullContext) {
  OXAResult result = S_OK;
  const auto manager = oxa::make<OXAUserDefinedDataTypeManager>(nullptr, result);
  EXPECT_EQ(result, E_INVALIDARG);
  EXPECT_EQ(manager->CheckReference(), 1);
}

TEST_F(TypeManagerFactoryTest, WorksWithAContextOfTheLibrary) {
  oxa::Ref<IOXAContext> context;
  ASSERT_EQ(OXACreateContext(IID_IOXAContext, oxa::adopt_into(context)), S_FALSE);
  EXPECT_FALSE(has_manager());
  EXPECT_EQ(get_manager(context.get(), manager_), S_OK);
  EXPECT_EQ(context->CheckReference(), 1);
  EXPECT_TRUE(manager_->TypeDefined("unsigned int"));
  void* out = marked_;
  EXPECT_EQ(context->GetInterface(IID_IOXAUserDefinedDataTypeManager, &out), E_NOTFOUND);
}

TEST_F(TypeManagerFactoryTest, WhatItHasReadOutlivesTheContext) {
  {
    Host host;
    host.load(point(R"(<member name="x" type="int"/>)"));
    manager_ = host.manager;
  }
  EXPECT_EQ(outline(*manager_), Lines{"p: point(x)"});
  EXPECT_TRUE(manager_->TypeDefined("p::point"));
}

}  // namespace
