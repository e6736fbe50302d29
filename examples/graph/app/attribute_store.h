// The attributes of a graph: what describes them, and their values.
#pragma once

#include <graph_contract.h>
#include <oxa/oxa.h>

#include <array>
#include <deque>
#include <string_view>
#include <unordered_map>
#include <vector>

// Implements the operations on attributes of IGraph but for the check that an item is there.
class AttributeStore {
 public:
  // Descriptions are made by the preferences; without them no attribute can be added.
  explicit AttributeStore(oxa::Ref<IOXAPreferences> preferences)
      : preferences_(std::move(preferences)) {}

  OXAResult add(GraphPart part, const char* name, OXA::Property::DataType type,
                std::uint64_t* attribute);
  IOXAProperty* description(GraphPart part, std::uint64_t attribute);
  OXAResult set(GraphPart part, std::uint64_t attribute, std::uint64_t item,
                const OXAVariant& value);
  const OXAVariant* get(GraphPart part, std::uint64_t attribute, std::uint64_t item);

 private:
  struct Attribute {
    oxa::Ref<IOXAProperty> description;
    OXAVariant::Kind kind;
    // As many as up to the last item with a value; those without are of the kind Nothing.
    std::vector<OXAVariant> values;
  };

  Attribute* find(GraphPart part, std::uint64_t attribute);
  oxa::Ref<IOXAProperty> describe(GraphPart part, const char* name, OXA::Property::DataType type);

  oxa::Ref<IOXAPreferences> preferences_;
  std::array<std::deque<Attribute>, 3> attributes_;
  // Their numbers by their names, which the descriptions keep.
  std::array<std::unordered_map<std::string_view, std::uint64_t>, 3> numbers_;
};
