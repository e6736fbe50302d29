#include "core/OXAInterfaceManager.h"

#include <oxa/sdk/guard.h>

#include <memory>

#include "core/OXAInterfaceEnum.h"

namespace {

// Makes the enumerator that a query returns: it owns its list and stands on the first pair.
IOXAInterfaceEnum* make_enumerator(std::unique_ptr<OXAInterfaceList> list) {
  auto enumerator = oxa::make<OXAInterfaceEnum>(list.get(), true);
  static_cast<void>(list.release());
  return enumerator.detach();
}

// Collects the entries of a range of buckets; `bucket_of` leads from an element to its bucket.
template <class Buckets, class BucketOf>
std::unique_ptr<OXAInterfaceList> collect(const Buckets& buckets, BucketOf bucket_of) {
  std::size_t count = 0;
  for (const auto& element : buckets) {
    count += bucket_of(element).size();
  }
  auto list = std::make_unique<OXAInterfaceList>();
  list->reserve(count);
  for (const auto& element : buckets) {
    bucket_of(element).append_to(*list);
  }
  return list;
}

}  // namespace

OXAResult OXAInterfaceManager::GetInterfaceEnumByGUID(const _GUID& iid, IOXAInterfaceEnum** out) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  return oxa::guard([&] {
    const id_number number = register_guid(iid);
    static const holders nobody;
    *out = make_enumerator(collect(
        number < holders_.size() ? holders_[number] : nobody,
        [](const auto& holder) -> const auto& { return *holder.second; }));
    return S_OK;
  });
}

OXAResult OXAInterfaceManager::GetInterfaceEnumByNamespace(const char* name,
                                                           IOXAInterfaceEnum** out) {
  if (out == nullptr || name == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  return oxa::guard([&] {
    const auto found = namespaces_.find(std::string_view(name));
    if (found == namespaces_.end()) {
      return E_NOTFOUND;
    }
    *out = make_enumerator(collect(
        found->second, [](const auto& numbered) -> const auto& { return numbered.second; }));
    return S_OK;
  });
}

OXAResult OXAInterfaceManager::RegisterInterface(const char* name, const _GUID& iid, void* object) {
  if (name == nullptr || object == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    const id_number number = register_guid(iid);
    const auto known = namespaces_.find(std::string_view(name));
    if (known != namespaces_.end()) {
      file(*known, number, iid, object);
      return S_OK;
    }
    const auto made = namespaces_.try_emplace(name).first;
    try {
      file(*made, number, iid, object);
    } catch (...) {
      namespaces_.erase(made);
      throw;
    }
    return S_OK;
  });
}

OXAResult OXAInterfaceManager::UnRegisterInterface(const char* name, const _GUID& iid,
                                                   void* object) {
  if (object == nullptr || name == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    const id_number number = register_guid(iid);
    const auto found = namespaces_.find(std::string_view(name));
    if (found == namespaces_.end()) {
      return E_NOTFOUND;
    }
    const auto bucket = found->second.find(number);
    if (bucket == found->second.end() || !bucket->second.remove(object)) {
      return E_NOTFOUND;
    }
    drop_if_empty(*found, number);
    return S_OK;
  });
}

// Adds an entry; a bucket that is made for it is also filed under its id.
void OXAInterfaceManager::file(namespaces::value_type& name_space, id_number number,
                               const _GUID& iid, void* object) {
  if (number >= holders_.size()) {
    holders_.resize(number + 1);
  }
  interface_bucket& bucket = name_space.second[number];
  try {
    if (bucket.empty()) {
      holders_[number].try_emplace(name_space.first, &bucket);
    }
    bucket.add(iid, object);
  } catch (...) {
    drop_if_empty(name_space, number);
    throw;
  }
}

// Forgets a bucket without entries, so that queries do not walk it. Its namespace stays.
void OXAInterfaceManager::drop_if_empty(namespaces::value_type& name_space, id_number number) {
  const auto bucket = name_space.second.find(number);
  if (bucket->second.empty()) {
    holders_[number].erase(name_space.first);
    name_space.second.erase(bucket);
  }
}
