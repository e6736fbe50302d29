#include "properties/OXAPropertyManager.h"

#include <oxa/sdk/guard.h>

#include <utility>

#include "core/hash_text.h"
#include "properties/property_enum.h"

struct OXAPropertyManager::full_name {
  full_name(const char* path, const char* own_name)
      : ns(path), name(own_name), hash(oxa::hash_text(ns) * 31 + oxa::hash_text(name)) {}

  std::string_view ns;
  std::string_view name;
  std::size_t hash;
};

// Null when there is none.
OXAProperty* OXAPropertyManager::find(const full_name& wanted) const {
  return properties_.find(wanted.hash, [&](const OXAProperty& property) {
    return property.is(wanted.ns, wanted.name);
  });
}

// Finds a namespace, and makes what is missing on the way. Throws std::bad_alloc.
OXAPropertyNS& OXAPropertyManager::locate(std::string_view path) {
  constexpr std::string_view separator = "::";
  OXAPropertyNS* node = &root_;
  for (;;) {
    const std::size_t end = path.find(separator);
    node = &child(*node, path.substr(0, end));
    if (end == std::string_view::npos) {
      return *node;
    }
    path.remove_prefix(end + separator.size());
  }
}

OXAPropertyNS& OXAPropertyManager::child(OXAPropertyNS& parent, std::string_view name) {
  const std::size_t hash = parent.hash_of_child(name);
  OXAPropertyNS* found =
      children_.find(hash, [&](const OXAPropertyNS& node) { return node.is_child(parent, name); });
  if (found != nullptr) {
    return *found;
  }
  children_.reserve_one();
  OXAPropertyNS& made = nodes_.emplace_back(parent, oxa::thin_string(name), hash);
  children_.add(hash, &made);
  return made;
}

// Makes a property that is not there yet. Throws std::bad_alloc.
OXAProperty* OXAPropertyManager::add(const full_name& wanted) {
  OXAPropertyNS& node = locate(wanted.ns);
  oxa::Ref<OXAProperty> made = node.make_property(wanted.ns, wanted.name);
  OXAProperty* property = made.get();
  properties_.reserve_one();
  property->SetID(static_cast<int>(by_id_.size()));
  by_id_.push_back(property);
  properties_.add(wanted.hash, property);
  node.add(std::move(made));
  return property;
}

OXAResult OXAPropertyManager::Register(const char* ns, const char* name, IOXAProperty** out) {
  if (ns == nullptr || name == nullptr || out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  const full_name wanted(ns, name);
  if (OXAProperty* known = find(wanted)) {
    *out = known;
    return S_ALREADYEXISTS;
  }
  return oxa::guard([&] {
    *out = add(wanted);
    return S_OK;
  });
}

OXAResult OXAPropertyManager::Unregister(const char* ns, const char* name) {
  if (ns == nullptr || name == nullptr) {
    return E_INVALIDARG;
  }
  return oxa::guard([&]() -> OXAResult {
    OXAPropertyNS& node = locate(ns);
    if (*name == '\0') {
      return E_INVALIDARG;
    }
    const full_name wanted(ns, name);
    OXAProperty* property = find(wanted);
    if (property == nullptr) {
      return E_UNEXPECTED;
    }
    properties_.remove(wanted.hash, property);
    // The texts may be the property's own: they are not read after this.
    return node.remove(*property).detach()->ReleaseReference() == 0 ? S_OK : S_FALSE;
  });
}

OXAResult OXAPropertyManager::Unregister(IOXAProperty* property) {
  return property == nullptr ? E_INVALIDARG : Unregister(property->Namespace(), property->Name());
}

OXAResult OXAPropertyManager::GetPropertyEnum(IOXAPropertyEnum** out) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  return oxa::guard([&] {
    *out = enumerate_properties([&](auto& list) { recursive_capture(root_, list); });
    return S_OK;
  });
}

OXAResult OXAPropertyManager::GetPropertyEnum(const char* ns, bool recursive,
                                              IOXAPropertyEnum** out) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  const OXAPropertyNS* node = nullptr;
  const OXAResult located = oxa::guard([&] {
    node = ns == nullptr ? nullptr : &locate(ns);
    return S_OK;
  });
  if (located < 0 || node == nullptr) {
    return E_UNEXPECTED;
  }
  return oxa::guard([&] {
    *out = enumerate_properties(
        [&](auto& list) { recursive ? recursive_capture(*node, list) : node->capture(list); });
    return S_OK;
  });
}

// Appends the properties of a namespace and of those in it; a walk, whatever its name says.
void OXAPropertyManager::recursive_capture(const OXAPropertyNS& node,
                                           std::list<IOXAProperty*>& list) {
  for (const OXAPropertyNS* at = &node; at != nullptr; at = at->next_below(node)) {
    at->capture(list);
  }
}

OXAResult OXAPropertyManager::FindProperty(unsigned long id, IOXAProperty** out) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = id < by_id_.size() ? by_id_[id] : nullptr;
  return *out == nullptr ? E_NOTFOUND : S_OK;
}

// Kept: what is found is S_ALREADYEXISTS, and looking makes the namespaces
// (PropertyManagerTest.FindingMakesTheNamespace).
OXAResult OXAPropertyManager::FindProperty(const char* ns, const char* name, IOXAProperty** out) {
  if (ns == nullptr || name == nullptr || out == nullptr) {
    return E_INVALIDARG;
  }
  *out = find(full_name(ns, name));
  if (*out != nullptr) {
    return S_ALREADYEXISTS;
  }
  return oxa::guard([&] {
    locate(ns);
    return E_NOTFOUND;
  });
}
