#include <benchmark/benchmark.h>
#include <oxa/oxa.h>

#include "core/OXAInterfaceManager.h"
#include "registry/registry.h"

namespace bench {

namespace {

class interface_manager final : public registry {
 public:
  void file(const char* ns, const _GUID& id, void* object) override {
    manager_->RegisterInterface(ns, id, object);
  }
  std::size_t list_namespace(const char* ns) override {
    oxa::Ref<IOXAInterfaceEnum> found;
    manager_->GetInterfaceEnumByNamespace(ns, oxa::adopt_into(found));
    return visited(*found);
  }
  std::size_t list_id(const _GUID& id) override {
    oxa::Ref<IOXAInterfaceEnum> found;
    manager_->GetInterfaceEnumByGUID(id, oxa::adopt_into(found));
    return visited(*found);
  }
  std::size_t walk_namespace(const char* /*ns*/) override { return 0; }
  std::size_t walk_id(const _GUID& /*id*/) override { return 0; }

 private:
  static std::size_t visited(IOXAInterfaceEnum& found) {
    std::size_t count = 0;
    _GUID id{};
    void* object = nullptr;
    for (OXAResult given = found.GetFirst(id, &object); given == S_OK;
         given = found.GetNext(id, &object)) {
      benchmark::DoNotOptimize(id);
      benchmark::DoNotOptimize(object);
      ++count;
    }
    return count;
  }

  oxa::Ref<IOXAInterfaceManager> manager_ = oxa::make<OXAInterfaceManager>();
};

}  // namespace

registry_library oxa_registry() { return library_of<interface_manager>("oxa", false); }

}  // namespace bench
