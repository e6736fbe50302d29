// A namespace of properties.
#pragma once

#include <oxa/IOXAProperty.h>

#include <cstddef>
#include <list>
#include <string_view>

#include "core/thin_string.h"
#include "properties/OXAProperty.h"

// A node in the tree of namespaces, which lies between its parent, its siblings and its children.
// It owns a reference to each of its properties and keeps them in the order of their registration.
class OXAPropertyNS {
 public:
  // The root.
  OXAPropertyNS() = default;
  // The last child of a node, which must outlive it.
  OXAPropertyNS(OXAPropertyNS& parent, oxa::thin_string name, std::size_t hash);
  OXAPropertyNS(const OXAPropertyNS&) = delete;
  OXAPropertyNS& operator=(const OXAPropertyNS&) = delete;
  ~OXAPropertyNS();

  // Returns the hash of its path, and that of the path of a child.
  std::size_t hash() const { return hash_; }
  std::size_t hash_of_child(std::string_view name) const;

  bool is_child(const OXAPropertyNS& parent, std::string_view name) const {
    return parent_ == &parent && oxa::same_text(name_.c_str(), name);
  }

  // Makes a property, whose reference belongs to the node once it is added. `path` is the node's.
  // Throws std::bad_alloc.
  oxa::Ref<OXAProperty> make_property(std::string_view path, std::string_view name);

  void add(oxa::Ref<OXAProperty> property) noexcept;
  // Takes a property out and gives its reference to the caller.
  oxa::Ref<OXAProperty> remove(OXAProperty& property) noexcept;
  // Releases all properties.
  void clear() noexcept;

  // Appends the properties to a list. Throws std::bad_alloc.
  void capture(std::list<IOXAProperty*>& list) const;

  // Returns the node that follows in `top` and all below it, parents first; null after the last.
  const OXAPropertyNS* next_below(const OXAPropertyNS& top) const;

 private:
  OXAPropertyNS* parent_ = nullptr;
  OXAPropertyNS* first_child_ = nullptr;
  OXAPropertyNS* last_child_ = nullptr;
  OXAPropertyNS* next_sibling_ = nullptr;
  OXAProperty* first_ = nullptr;
  OXAProperty* last_ = nullptr;
  oxa::thin_string name_;
  oxa::shared_text* path_ = nullptr;  // what its properties share, made with the first one
  std::size_t hash_ = 0;
};
