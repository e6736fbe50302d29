// What one would write first: maps, by the name of the namespace, of maps by the id.
#include <absl/container/flat_hash_map.h>
#include <benchmark/benchmark.h>
#include <tsl/robin_map.h>

#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "registry/registry.h"
#include "support/ids.h"

namespace bench {

namespace {

using entries = std::vector<std::pair<_GUID, void*>>;

struct name_hash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const {
    return std::hash<std::string_view>()(name);
  }
};

struct id_less {
  bool operator()(const _GUID& left, const _GUID& right) const {
    return left.Data1 != right.Data1 ? left.Data1 < right.Data1
                                     : std::memcmp(left.Data4, right.Data4, sizeof left.Data4) < 0;
  }
};

// How maps that have an id once for each object are used.
struct by_id_and_object {
  template <class Ids>
  static void file(Ids& ids, const _GUID& id, void* object) {
    ids.emplace(id, object);
  }
  template <class Ids, class Visit>
  static void all(const Ids& ids, Visit visit) {
    for (const auto& [id, object] : ids) {
      visit(id, object);
    }
  }
  template <class Ids, class Visit>
  static void of(const Ids& ids, const _GUID& id, Visit visit) {
    const auto [first, last] = ids.equal_range(id);
    for (auto at = first; at != last; ++at) {
      visit(at->first, at->second);
    }
  }
};

// How maps that have each id once, with its objects, are used.
struct by_id {
  template <class Ids>
  static void file(Ids& ids, const _GUID& id, void* object) {
    ids[id].push_back(object);
  }
  template <class Ids, class Visit>
  static void all(const Ids& ids, Visit visit) {
    for (const auto& [id, objects] : ids) {
      for (void* object : objects) {
        visit(id, object);
      }
    }
  }
  template <class Ids, class Visit>
  static void of(const Ids& ids, const _GUID& id, Visit visit) {
    const auto found = ids.find(id);
    if (found != ids.end()) {
      for (void* object : found->second) {
        visit(id, object);
      }
    }
  }
};

template <class Namespaces, class Use>
class maps final : public registry {
 public:
  void file(const char* ns, const _GUID& id, void* object) override {
    auto found = namespaces_.find(std::string_view(ns));
    if (found == namespaces_.end()) {
      found = namespaces_.emplace(ns, typename Namespaces::mapped_type()).first;
    }
    Use::file(ids_at(found), id, object);
  }
  std::size_t list_namespace(const char* ns) override {
    return listed(
        [&](auto take) { Use::all(namespaces_.find(std::string_view(ns))->second, take); });
  }
  std::size_t list_id(const _GUID& id) override {
    return listed([&](auto take) { of_all(id, take); });
  }
  std::size_t walk_namespace(const char* ns) override {
    return walked(
        [&](auto take) { Use::all(namespaces_.find(std::string_view(ns))->second, take); });
  }
  std::size_t walk_id(const _GUID& id) override {
    return walked([&](auto take) { of_all(id, take); });
  }

 private:
  // The pairs of tsl::robin_map cannot be changed.
  template <class Iterator>
  static auto& ids_at(Iterator at) {
    if constexpr (requires { at.value(); }) {
      return at.value();
    } else {
      return at->second;
    }
  }

  template <class Take>
  void of_all(const _GUID& id, Take take) {
    for (const auto& each : namespaces_) {
      Use::of(each.second, id, take);
    }
  }

  template <class Each>
  static std::size_t walked(Each each) {
    std::size_t count = 0;
    each([&](const _GUID& id, void* object) {
      benchmark::DoNotOptimize(id);
      benchmark::DoNotOptimize(object);
      ++count;
    });
    return count;
  }

  template <class Each>
  static std::size_t listed(Each each) {
    entries list;
    each([&](const _GUID& id, void* object) { list.emplace_back(id, object); });
    return walked([&](auto take) {
      for (const auto& [id, object] : list) {
        take(id, object);
      }
    });
  }

  Namespaces namespaces_;
};

using objects = std::vector<void*>;
using name_equal = std::equal_to<>;

using std_maps = std::map<std::string, std::multimap<_GUID, void*, id_less>, std::less<>>;
using unordered_multimaps =
    std::unordered_map<std::string, std::unordered_multimap<_GUID, void*, id_hash>, name_hash,
                       name_equal>;
using unordered_maps = std::unordered_map<std::string, std::unordered_map<_GUID, objects, id_hash>,
                                          name_hash, name_equal>;
using flat_hash_maps =
    absl::flat_hash_map<std::string, absl::flat_hash_map<_GUID, objects, id_hash>, name_hash,
                        name_equal>;
using robin_maps =
    tsl::robin_map<std::string, tsl::robin_map<_GUID, objects, id_hash>, name_hash, name_equal>;

}  // namespace

registry_library map_of_multimaps() {
  return library_of<maps<std_maps, by_id_and_object>>("std::map of multimaps", true);
}
registry_library unordered_map_of_multimaps() {
  return library_of<maps<unordered_multimaps, by_id_and_object>>("unordered_map of multimaps",
                                                                 true);
}
registry_library unordered_map_of_vectors() {
  return library_of<maps<unordered_maps, by_id>>("unordered_map of vectors", true);
}
registry_library flat_hash_map_of_vectors() {
  return library_of<maps<flat_hash_maps, by_id>>("flat_hash_map of vectors", true);
}
registry_library robin_map_of_vectors() {
  return library_of<maps<robin_maps, by_id>>("robin_map of vectors", true);
}

}  // namespace bench
