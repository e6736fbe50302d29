// The interface registry.
#pragma once

#include <oxa/IOXAInterfaceManager.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/guid_numbering.h"
#include "core/hash_index.h"
#include "core/interface_bucket.h"

// Holds the entries by namespace and id number, and for each id number the namespaces that have it.
// Takes no references to what is registered.
class OXAInterfaceManager final : public oxa::Implements<IOXAInterfaceManager> {
 public:
  OXAResult GetInterfaceEnumByGUID(const _GUID& iid, IOXAInterfaceEnum** out) override;
  OXAResult GetInterfaceEnumByNamespace(const char* name, IOXAInterfaceEnum** out) override;
  OXAResult RegisterInterface(const char* name, const _GUID& iid, void* object) override;
  OXAResult UnRegisterInterface(const char* name, const _GUID& iid, void* object) override;

 private:
  using id_number = std::uint32_t;
  // The bucket of an id number in the namespace of a name.
  struct filed_bucket {
    const std::string* name = nullptr;
    id_number number = 0;
    interface_bucket bucket;
  };
  using buckets = std::map<id_number, filed_bucket>;
  // Ordered byte by byte; found by a C string without making a string of it.
  using namespaces = std::map<std::string, buckets, std::less<>>;
  // The buckets of one id by the names of their namespaces, which never go away.
  using holders = std::map<std::string_view, interface_bucket*>;

  id_number register_guid(const _GUID& iid) { return numbers_.number(iid); }
  filed_bucket* find(std::string_view name, id_number number) const;
  void file_first(const char* name, id_number number, const _GUID& iid, void* object);
  void drop_bucket(namespaces::value_type& name_space, id_number number);

  guid_numbering numbers_;
  namespaces namespaces_;
  // All buckets: the maps tell their order.
  oxa::hash_index<filed_bucket> index_;
  std::vector<holders> holders_;  // by id number; may be shorter than the numbering
};
