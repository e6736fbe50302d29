// The smart pointer for counted objects.
#pragma once

#include <oxa/IOXAContext.h>

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

namespace oxa {
inline namespace sdk1 {

// Owns one reference to an object, or is empty. The two ways in are named apart, since a raw
// pointer does not tell whether it carries a reference: `adopt` takes over one that the pointer
// carries, `share` adds one to a borrowed pointer.
template <class Interface>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(const Ref& other) : Ref(share(other.object_)) {}
  Ref(Ref&& other) noexcept : object_(other.detach()) {}
  template <class Derived, class = std::enable_if_t<std::is_convertible_v<Derived*, Interface*>>>
  Ref(Ref<Derived> other) noexcept : object_(other.detach()) {}
  ~Ref() { reset(); }

  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  // Takes over the reference that `object` carries; null gives an empty pointer.
  static Ref adopt(Interface* object) {
    Ref ref;
    ref.object_ = object;
    return ref;
  }

  // Adds a reference to `object`, which stays borrowed; null gives an empty pointer.
  static Ref share(Interface* object) {
    if (object != nullptr) {
      object->AddReference();
    }
    return adopt(object);
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  Interface& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Drops the reference; the pointer is empty afterwards.
  void reset() {
    if (Interface* object = detach()) {
      object->ReleaseReference();
    }
  }

  // Gives the reference to the caller; the pointer is empty afterwards.
  [[nodiscard]] Interface* detach() { return std::exchange(object_, nullptr); }

 private:
  Interface* object_ = nullptr;
};

template <class Left, class Right>
bool operator==(const Ref<Left>& left, const Ref<Right>& right) {
  return left.get() == right.get();
}

template <class Left, class Right>
bool operator!=(const Ref<Left>& left, const Ref<Right>& right) {
  return !(left == right);
}

template <class Interface>
bool operator==(const Ref<Interface>& ref, std::nullptr_t) {
  return ref.get() == nullptr;
}

template <class Interface>
bool operator!=(const Ref<Interface>& ref, std::nullptr_t) {
  return ref.get() != nullptr;
}

// Stands for the output argument of one call: what the callee stores there goes to a Ref at the end
// of the full expression. Made by adopt_into and share_into.
template <class Interface>
class OutputArgument {
 public:
  using Receive = Ref<Interface> (*)(Interface*);

  OutputArgument(Ref<Interface>& target, Receive receive) : target_(target), receive_(receive) {}
  OutputArgument(const OutputArgument&) = delete;
  OutputArgument& operator=(const OutputArgument&) = delete;
  ~OutputArgument() {
    target_ = receive_(untyped_ != nullptr ? static_cast<Interface*>(untyped_) : typed_);
  }

  operator Interface**() { return &typed_; }
  operator void**() { return &untyped_; }

 private:
  Ref<Interface>& target_;
  Receive receive_;
  Interface* typed_ = nullptr;
  void* untyped_ = nullptr;
};

// Receives an output that carries a reference: `manager->GetInterfaceEnumByGUID(iid,
// oxa::adopt_into(found));`. The target receives it when the statement ends, not before: test it in
// the next one. It is emptied when the callee stores nothing. An operation with a `void**` stores
// what belongs to the id it was asked for, which the compiler cannot compare with the target's
// type.
template <class Interface>
OutputArgument<Interface> adopt_into(Ref<Interface>& target) {
  return {target, &Ref<Interface>::adopt};
}

// Receives a borrowed output and adds a reference to it, at the same moment.
template <class Interface>
OutputArgument<Interface> share_into(Ref<Interface>& target) {
  return {target, &Ref<Interface>::share};
}

// Fetches the service behind an interface from a context; empty when the context has none.
template <class Interface>
Ref<Interface> service(IOXAContext* context) {
  Ref<Interface> found;
  if (context != nullptr) {
    context->GetInterface(OXAInterfaceId<Interface>::value(), adopt_into(found));
  }
  return found;
}

template <class Interface>
Ref<Interface> service(const Ref<IOXAContext>& context) {
  return service<Interface>(context.get());
}

// Files an object in a context under its interface's id, which AddToContext leaves to the caller.
// The results of AddToContext.
template <class Interface>
OXAResult add_service(IOXAContext* context, const Ref<Interface>& object) {
  return context->AddToContext(OXAInterfaceId<Interface>::value(), object.get());
}

}  // namespace sdk1
}  // namespace oxa

template <class Interface>
struct std::hash<oxa::Ref<Interface>> {
  std::size_t operator()(const oxa::Ref<Interface>& ref) const {
    return std::hash<Interface*>()(ref.get());
  }
};
