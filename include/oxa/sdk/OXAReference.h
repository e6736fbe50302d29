// The implementation base of every concrete class.
#pragma once

#include <oxa/IOXAReference.h>

#include <atomic>
#include <cstdint>

// Holds the reference count and the rule by which it works. Not used alone: derive from
// oxa::Implements<Interface>, which joins it to an interface. The count is 0 after this
// constructor; the object begins with 1 because the class on top of it takes the first reference.
class OXAReference : public IOXAReference {
 public:
  OXAReference() = default;
  OXAReference(const OXAReference&) = delete;
  OXAReference& operator=(const OXAReference&) = delete;

  std::int64_t AddReference() override {
    count_.fetch_add(1, std::memory_order_relaxed);
    return count_.load(std::memory_order_relaxed);
  }

  // The value comes from the decrement itself, so exactly one caller sees 0 and destroys the
  // object.
  std::int64_t ReleaseReference() override {
    const std::int64_t left = drop_reference();
    if (left == 0) {
      destroy();
    }
    return left;
  }

  std::int64_t CheckReference() override { return count_.load(std::memory_order_relaxed); }

  virtual ~OXAReference() = default;

 protected:
  explicit OXAReference(std::int64_t count) : count_(count) {}

  // Drops one reference without destroying the object: on 0 that is up to the caller.
  std::int64_t drop_reference() { return count_.fetch_sub(1, std::memory_order_acq_rel) - 1; }

 private:
  // Out of line: g++ 12 takes an inlined deletion for that of an OXAReference itself, and warns
  // that it is not at the start of its block.
  __attribute__((noinline)) void destroy() { delete this; }

  std::atomic<std::int64_t> count_{0};
};
