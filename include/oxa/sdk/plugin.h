// Writing a plug-in: a table of what it offers and one line for its entry point.
//
//   class Reader final : public oxa::Implements<IReader> { ... };
//   OXA_PLUGIN("Edge lists", "1.0", oxa::offer<Reader>(IID_IOXAFileReader))
#pragma once

#include <oxa/IOXAPlugin.h>
#include <oxa/sdk/guard.h>
#include <oxa/sdk/implements.h>
#include <oxa/sdk/ref.h>

#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

namespace oxa {
inline namespace sdk1 {

// One row of a plug-in's table: an interface id, and how to make the object offered under it.
struct Offer {
  const _GUID* iid;
  // Returns an interface pointer that carries one reference; may throw. Null offers the object of
  // the row above.
  void* (*make)(IOXAContext* context);
};

// A plug-in's table, with what people call it.
struct PluginDescription {
  const char* name;
  const char* version;
  const Offer* offers;
  std::size_t offer_count;
};

// Offers a `Class` that derives from Implements, under `iid`, which must have static storage. The
// object is made with the context if its constructor takes one, otherwise with nothing.
template <class Class>
constexpr Offer offer(const _GUID& iid) {
  return {&iid, [](IOXAContext* context) -> void* {
            using Interface = typename Class::InterfaceType;
            if constexpr (std::is_constructible_v<Class, IOXAContext*>) {
              return static_cast<Interface*>(new Class(context));
            } else {
              (void)context;
              return static_cast<Interface*>(new Class());
            }
          }};
}

// Offers the object of the row above under a further id: that of an interface from which the
// class's own derives, or of another version of it.
constexpr Offer also(const _GUID& iid) { return {&iid, nullptr}; }

// The plug-in object over a table: makes what is offered when it is made, and holds it until it
// ends.
class TablePlugin final : public Implements<IOXAPlugin> {
 public:
  TablePlugin(IOXAContext* context, const PluginDescription& description)
      : description_(description) {
    held_.reserve(description.offer_count);
    offered_.reserve(description.offer_count);
    void* object = nullptr;
    for (std::size_t row = 0; row < description.offer_count; ++row) {
      const Offer& offer = description.offers[row];
      if (offer.make != nullptr) {
        object = offer.make(context);
        held_.push_back(Ref<IOXAReference>::adopt(static_cast<IOXAReference*>(object)));
      }
      offered_.emplace_back(*offer.iid, object);
    }
  }

  const char* GetName() override { return description_.name; }
  const char* GetVersion() override { return description_.version; }

  OXAResult GetInterfaceEnum(IOXAInterfaceEnum** out) override {
    if (out == nullptr) {
      return E_INVALIDARG;
    }
    *out = nullptr;
    return guard([&] {
      auto list = std::make_unique<OXAInterfaceList>(offered_);
      void* enumerator = nullptr;
      const OXAResult result =
          OXACreateInterfaceEnum(list.get(), true, IID_IOXAInterfaceEnum, &enumerator);
      if (result >= 0) {
        static_cast<void>(list.release());
        *out = static_cast<IOXAInterfaceEnum*>(enumerator);
      }
      return result;
    });
  }

 private:
  PluginDescription description_;
  std::vector<Ref<IOXAReference>> held_;
  OXAInterfaceList offered_;
};

// The body of an entry point over a table. The results are those that OXACreatePluginInterface
// promises; an exception of a constructor becomes E_OUTOFMEMORY or E_UNEXPECTED.
inline OXAResult create_plugin(IOXAContext* context, const _GUID& iid, void** out,
                               const PluginDescription& description) {
  if (out == nullptr) {
    return E_INVALIDARG;
  }
  *out = nullptr;
  if (iid != IID_IOXAPlugin) {
    return E_NOINTERFACE;
  }
  return guard([&] {
    *out = static_cast<IOXAPlugin*>(make<TablePlugin>(context, description).detach());
    return S_OK;
  });
}

}  // namespace sdk1
}  // namespace oxa

// Defines the entry point of a plug-in called `name`, in version `version`, both text; the offers
// follow.
#define OXA_PLUGIN(name, version, ...)                                                             \
  extern "C" OXA_EXPORT OXAResult OXACreatePluginInterface(IOXAContext* context, const _GUID& iid, \
                                                           void** out) {                           \
    static_assert(sizeof(#__VA_ARGS__) > 1, "a plug-in offers at least one interface");            \
    static const oxa::Offer offers[] = {__VA_ARGS__};                                              \
    return oxa::create_plugin(context, iid, out,                                                   \
                              {name, version, offers, sizeof offers / sizeof offers[0]});          \
  }
