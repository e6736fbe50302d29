#include "core/OXAInterfaceManager.h"

#include <oxa/sdk/guard.h>

#include <memory>

#include "core/OXAInterfaceEnum.h"
#include "core/hash_text.h"

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

std::size_t hash(std::string_view name, std::uint32_t number) {
  return oxa::hash_text(name) * 31 + number;
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
        found->second, [](const auto& numbered) -> const auto& { return numbered.second.bucket; }));
    return S_OK;
  });
}

OXAResult OXAInterfaceManager::RegisterInterface(const char* name, const _GUID& iid, void* object) {
  if (name == nullptr || object == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&] {
    const id_number number = register_guid(iid);
    if (filed_bucket* const filed = find(name, number)) {
      filed->bucket.add(iid, object);
    } else {
      file_first(name, number, iid, object);
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
    filed_bucket* const filed = find(name, number);
    if (filed == nullptr || !filed->bucket.remove(object)) {
      return E_NOTFOUND;
    }
    if (filed->bucket.empty()) {
      drop_bucket(*namespaces_.find(std::string_view(name)), number);
    }
    return S_OK;
  });
}

// Null when there is none.
OXAInterfaceManager::filed_bucket* OXAInterfaceManager::find(std::string_view name,
                                                             id_number number) const {
  return index_.find(hash(name, number), [&](const filed_bucket& filed) {
    return filed.number == number && *filed.name == name;
  });
}

// Adds the first entry of an id in a namespace: makes its bucket, and the namespace if it is not
// there. Throws std::bad_alloc; then the namespace is there without the bucket, or not at all.
void OXAInterfaceManager::file_first(const char* name, id_number number, const _GUID& iid,
                                     void* object) {
  if (number >= holders_.size()) {
    holders_.resize(number + 1);
  }
  index_.reserve_one();
  const auto [name_space, fresh] = namespaces_.try_emplace(name);
  try {
    filed_bucket& made = name_space->second[number];
    made.name = &name_space->first;
    made.number = number;
    index_.add(hash(name, number), &made);
    holders_[number].try_emplace(name_space->first, &made.bucket);
    made.bucket.add(iid, object);
  } catch (...) {
    drop_bucket(*name_space, number);
    if (fresh) {
      namespaces_.erase(name_space);
    }
    throw;
  }
}

// Forgets a bucket, if it was made, so that queries do not walk it. Its namespace stays.
void OXAInterfaceManager::drop_bucket(namespaces::value_type& name_space, id_number number) {
  const auto filed = name_space.second.find(number);
  if (filed != name_space.second.end()) {
    index_.remove(hash(name_space.first, number), &filed->second);
    holders_[number].erase(name_space.first);
    name_space.second.erase(filed);
  }
}
