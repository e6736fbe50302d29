#include "attribute_store.h"

namespace {

constexpr const char* part_names[] = {"graph", "node", "edge"};
constexpr const char* name_spaces[] = {"graph::graph", "graph::node", "graph::edge"};

std::size_t index_of(GraphPart part) { return static_cast<std::size_t>(part); }

}  // namespace

OXAResult AttributeStore::add(GraphPart part, const char* name, OXA::Property::DataType type,
                              std::uint64_t* attribute) {
  const OXAVariant::Kind kind = oxa::kind_of(type);
  if (index_of(part) >= attributes_.size() || name == nullptr || *name == '\0' ||
      attribute == nullptr || kind == OXAVariant::Kind::Nothing ||
      (part == GraphPart::edge && std::string_view(name) == "weight")) {
    return E_INVALIDARG;
  }
  auto& all = attributes_[index_of(part)];
  auto& numbers = numbers_[index_of(part)];
  return oxa::guard([&]() -> OXAResult {
    const auto found = numbers.find(std::string_view(name));
    if (found != numbers.end()) {
      if (all[found->second].description->DataType() != type) {
        return E_TYPEMISMATCH;
      }
      *attribute = found->second;
      return S_FALSE;
    }
    if (!preferences_) {
      return E_NOTFOUND;
    }
    all.push_back({describe(part, name, type), kind, {}});
    try {
      numbers.emplace(all.back().description->Name(), all.size() - 1);
    } catch (...) {
      all.pop_back();
      throw;
    }
    *attribute = all.size() - 1;
    return S_OK;
  });
}

// Only the preferences make descriptions, each under a name that stays, and they forget none. So a
// name is added once in the process, as a setting that never has a data type or a value, by which
// it is not among the settings that have one; and each graph works on a clone. What it narrows
// there, such as a range, which cannot be widened again, does not meet the next graph that has an
// attribute of this name. The clones have the id of their name, so all graphs know an attribute by
// the same.
oxa::Ref<IOXAProperty> AttributeStore::describe(GraphPart part, const char* name,
                                                OXA::Property::DataType type) {
  IOXAProperty* registered = nullptr;
  oxa::Ref<IOXAProperty> description;
  const char* const part_name = part_names[index_of(part)];
  if (oxa::failed(preferences_->Add(name_spaces[index_of(part)], name, &registered)) ||
      oxa::failed(registered->Clone(oxa::adopt_into(description)))) {
    throw std::bad_alloc();
  }
  if (oxa::failed(description->AddSupport("graph", part_name))) {
    throw std::bad_alloc();
  }
  description->SetDataType(type);
  return description;
}

IOXAProperty* AttributeStore::description(GraphPart part, std::uint64_t attribute) {
  const Attribute* found = find(part, attribute);
  return found != nullptr ? found->description.get() : nullptr;
}

OXAResult AttributeStore::set(GraphPart part, std::uint64_t attribute, std::uint64_t item,
                              const OXAVariant& value) {
  Attribute* found = find(part, attribute);
  if (found == nullptr) {
    return E_INVALIDARG;
  }
  if (value.kind != found->kind && value.kind != OXAVariant::Kind::Nothing) {
    return E_TYPEMISMATCH;
  }
  return oxa::guard([&] {
    OXAVariant copy = value;
    if (item >= found->values.size()) {
      found->values.resize(item + 1);
    }
    found->values[item] = std::move(copy);
    return S_OK;
  });
}

const OXAVariant* AttributeStore::get(GraphPart part, std::uint64_t attribute, std::uint64_t item) {
  const Attribute* found = find(part, attribute);
  if (found == nullptr || item >= found->values.size() ||
      found->values[item].kind == OXAVariant::Kind::Nothing) {
    return nullptr;
  }
  return &found->values[item];
}

AttributeStore::Attribute* AttributeStore::find(GraphPart part, std::uint64_t attribute) {
  if (index_of(part) >= attributes_.size()) {
    return nullptr;
  }
  auto& all = attributes_[index_of(part)];
  return attribute < all.size() ? &all[attribute] : nullptr;
}
