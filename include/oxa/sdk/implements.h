// Implementing an interface by deriving once.
#pragma once

#include <oxa/sdk/OXAReference.h>
#include <oxa/sdk/ref.h>

#include <cstdint>
#include <utility>

namespace oxa {
inline namespace sdk1 {

// Joins the reference count to an interface: one of `First` and `Second` is the interface, the
// other is OXAReference. A new object has count 1, which belongs to whoever made it.
template <class First, class Second>
class Counted : public First, public Second {
 public:
  std::int64_t AddReference() override { return OXAReference::AddReference(); }
  std::int64_t ReleaseReference() override { return OXAReference::ReleaseReference(); }
  std::int64_t CheckReference() override { return OXAReference::CheckReference(); }

 protected:
  Counted() : OXAReference(1) {}
  ~Counted() override = default;
};

// Implements an interface: `class Reader final : public oxa::Implements<IReader> { ... };` leaves
// only the interface's own operations to write. Its last ReleaseReference destroys the object.
// Derive from nothing else before it, and the object's address is its interface pointer; where a
// `void*` is asked for, as in AddToContext, give it as an Interface*.
template <class Interface>
class Implements : public Counted<Interface, OXAReference> {
 public:
  using InterfaceType = Interface;

 protected:
  ~Implements() override = default;
};

// Makes an object that derives from Implements and adopts its first reference. Throws what its
// constructor throws.
template <class Class, class... Arguments>
Ref<Class> make(Arguments&&... arguments) {
  return Ref<Class>::adopt(new Class(std::forward<Arguments>(arguments)...));
}

}  // namespace sdk1
}  // namespace oxa
