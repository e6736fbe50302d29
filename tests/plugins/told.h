// A plug-in whose behaviour the test itself lays down, for what needs no code in a shared object.
#pragma once

#include <functional>
#include <vector>

#include "plugins/files.h"
#include "plugins/host.h"

namespace oxa_test {

// A list of interfaces that lives as long as its test: one gauge per call, with the result that the
// test has laid down for the call.
class ToldList final : public IOXAInterfaceEnum {
 public:
  std::int64_t AddReference() override { return ++references; }
  std::int64_t ReleaseReference() override { return --references; }
  std::int64_t CheckReference() override { return references; }
  OXAResult GetFirst(_GUID& iid, void** out) override {
    calls_ = 0;
    return GetNext(iid, out);
  }
  OXAResult GetNext(_GUID& iid, void** out) override {
    iid = IID_IGauge;
    *out = this;
    return results.at(calls_++);
  }

  std::vector<OXAResult> results = {S_OK, S_FALSE};
  std::int64_t references = 1;

 private:
  std::size_t calls_ = 0;
};

// A plug-in object that lives as long as its test.
class ToldPlugin final : public IOXAPlugin {
 public:
  std::int64_t AddReference() override { return ++references; }
  std::int64_t ReleaseReference() override {
    --references;
    if (on_release) {
      on_release();
    }
    return references;
  }
  std::int64_t CheckReference() override { return references; }
  const char* GetName() override { return nullptr; }
  const char* GetVersion() override { return nullptr; }
  OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) override {
    *out = &list;
    return listed;
  }

  ToldList list;
  OXAResult listed = S_OK;
  std::int64_t references = 1;
  std::function<void()> on_release;
};

// Hands out the plug-in object.
class ToldEntryPoint final : public oxa::Implements<IEntryPoint> {
 public:
  OXAResult Create(void** out) override {
    *out = static_cast<IOXAPlugin*>(&plugin);
    return entered;
  }

  ToldPlugin plugin;
  OXAResult entered = S_OK;
};

// What outlives the host.
struct Told {
  std::filesystem::path path = miniature("as_told");
  oxa::Ref<ToldEntryPoint> entry = oxa::make<ToldEntryPoint>();
  ToldPlugin& plugin = entry->plugin;
};

// A kind of host with such a plug-in at hand.
template <class Base>
struct Telling : Told, Base {
  Telling() { this->context->AddToContext(IID_IEntryPoint, entry.get()); }
  OXAResult load() const { return this->loader->Load(wide(path).c_str()); }
  OXAResult unload() const { return this->loader->Unload(wide(path).c_str()); }
};

}  // namespace oxa_test
