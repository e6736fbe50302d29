// The registry of properties.
#pragma once

#include <oxa/IOXAPropertyEnum.h>
#include <oxa/IOXAPropertyManager.h>
#include <oxa/sdk/implements.h>

#include <cstddef>
#include <list>
#include <string_view>
#include <vector>

#include "core/hash_index.h"
#include "properties/OXAPropertyNS.h"

// Finds a property by path and name in one step, whatever the depth of the path; the tree is for
// enumeration, and for what is not there yet.
class OXAPropertyManager final : public oxa::Implements<IOXAPropertyManager> {
 public:
  OXAResult Register(const char* ns, const char* name, IOXAProperty** out) override;
  OXAResult Unregister(const char* ns, const char* name) override;
  OXAResult Unregister(IOXAProperty* property) override;
  OXAResult GetPropertyEnum(IOXAPropertyEnum** out) override;
  OXAResult GetPropertyEnum(const char* ns, bool recursive, IOXAPropertyEnum** out) override;
  OXAResult FindProperty(unsigned long id, IOXAProperty** out) override;
  OXAResult FindProperty(const char* ns, const char* name, IOXAProperty** out) override;

  ~OXAPropertyManager() override = default;

 private:
  struct full_name;

  OXAProperty* find(const full_name& wanted) const;
  OXAPropertyNS& locate(std::string_view path);
  OXAPropertyNS& child(OXAPropertyNS& parent, std::string_view name);
  OXAProperty* add(const full_name& wanted);
  static void recursive_capture(const OXAPropertyNS& node, std::list<IOXAProperty*>& list);

  OXAPropertyNS root_;
  std::list<OXAPropertyNS> nodes_;  // all but the root
  oxa::hash_index<OXAPropertyNS> children_;
  oxa::hash_index<OXAProperty> properties_;
  // By the id that each was registered under, which counts them. Kept: what was unregistered stays,
  // destroyed or not (PropertyManagerTest.TheIdOfAnUnregisteredPropertyStillLeadsToIt).
  std::vector<IOXAProperty*> by_id_;
};
