// The registry of properties and their values, over plain containers.
#pragma once

#include <oxa/OXAVariant.h>

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "properties/model/model_property.h"

namespace oxa_test::model {

// The parts of a namespace's path.
using Path = std::vector<std::string>;

struct FoundProperty {
  OXAResult result;
  Property* property = nullptr;
};

// Properties stay in memory when they are unregistered: what becomes of them is up to whoever runs
// the program. The tree of namespaces cannot be seen but through its properties, so there is none.
class Properties {
 public:
  FoundProperty Register(const char* ns, const char* name);
  OXAResult Unregister(const char* ns, const char* name);
  OXAResult Unregister(Property* property);
  FoundProperty FindProperty(unsigned long id) const;
  FoundProperty FindProperty(const char* ns, const char* name) const;
  // All properties below a namespace, or in it alone. The empty path is that of all of them.
  std::vector<Property*> in(const Path& path, bool recursive) const;

  static Path path_of(const std::string& ns);

  // Drops the manager's references.
  void end();

  Property* add(Property property);
  std::deque<Property> all;  // of those that are gone as well

 private:
  std::map<Path, std::map<std::string, Property*>> registered_;
  std::map<unsigned long, Property*> by_id_;
  int next_id_ = 0;
};

class Values {
 public:
  struct Value {
    OXAVariant variant;
    // A value that was parsed has no more than a kind and the member that belongs to it.
    bool is_copy = false;
  };
  struct Text {
    OXAResult result;
    std::optional<std::string> text;
  };
  struct Stored {
    OXAResult result;
    Value value;
  };

  explicit Values(Properties& properties) : properties_(properties) {}

  OXAResult SetProperty(const char* ns, const char* name, const char* text);
  OXAResult SetProperty(Property* property, const OXAVariant& value);
  Text GetProperty(const char* ns, const char* name);
  Stored GetProperty(Property* property) const;
  OXAResult RemoveProperty(const char* ns, const char* name);
  OXAResult RemoveProperty(Property* property);
  // Those that have a value and whose id the manager knows, one entry for each value.
  std::vector<Property*> with_value() const;

 private:
  Properties& properties_;
  std::map<unsigned long, Value> values_;
};

}  // namespace oxa_test::model
