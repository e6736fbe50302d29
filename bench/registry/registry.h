// The registries that are compared, behind one interface.
#pragma once

#include <oxa/guid.h>

#include <cstddef>
#include <memory>

namespace bench {

// Objects under the name of a namespace and an id.
class registry {
 public:
  registry() = default;
  registry(const registry&) = delete;
  registry& operator=(const registry&) = delete;
  virtual ~registry() = default;

  virtual void file(const char* ns, const _GUID& id, void* object) = 0;

  // List what is filed there, with ids, in a list that stays as it is whatever is filed next, and
  // walk it. They return how many objects that was.
  virtual std::size_t list_namespace(const char* ns) = 0;
  virtual std::size_t list_id(const _GUID& id) = 0;

  // Walk what is filed there where it is, which nobody may change meanwhile. Ours has no such way.
  virtual std::size_t walk_namespace(const char* ns) = 0;
  virtual std::size_t walk_id(const _GUID& id) = 0;
};

struct registry_library {
  const char* name;
  bool walks;
  std::unique_ptr<registry> (*make)();
};

template <class Registry>
registry_library library_of(const char* name, bool walks) {
  return {name, walks, [] { return std::unique_ptr<registry>(std::make_unique<Registry>()); }};
}

registry_library oxa_registry();
registry_library map_of_multimaps();
registry_library unordered_map_of_multimaps();
registry_library unordered_map_of_vectors();
registry_library flat_hash_map_of_vectors();
registry_library robin_map_of_vectors();

}  // namespace bench
