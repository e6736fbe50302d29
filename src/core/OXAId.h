// The counter that numbers services, interface ids, properties and diagnostic types.
#pragma once

#include <oxa/IOXAId.h>

#include <atomic>
#include <cstdint>

// Embedded by value in what it numbers for.
class OXAId final : public IOXAId {
 public:
  unsigned long CreateID() override { return next_.fetch_add(1); }
  void Reset() override { next_.store(0); }
  void Reset(unsigned int value) override { next_.store(value); }
  unsigned long CurrentValue() override { return next_.load(std::memory_order_relaxed); }

  virtual ~OXAId() = default;

 private:
  std::atomic<std::uint64_t> next_{0};
};
